// A change of a connection by one igd_wan_set_params of its whole description, and a put-back of
// what that changed beside the fields that are named: what each change has to come to.
#ifndef IGDCTL_TESTS_WHOLE_WRITE_H
#define IGDCTL_TESTS_WHOLE_WRITE_H

#include "common_util.h"
#include "gateway/connections.h"
#include "wan/wan_draft.h"

namespace igdctl_tests {

void write_whole(MibAccess& tree, const igdctl::Connection& connection, igdctl::WanDraft draft);

}  // namespace igdctl_tests

#endif  // IGDCTL_TESTS_WHOLE_WRITE_H
