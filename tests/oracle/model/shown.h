// Records as text, so that two of them are compared, and shown, field by field.
#ifndef IGD_TESTS_MODEL_SHOWN_H
#define IGD_TESTS_MODEL_SHOWN_H

#include <string>
#include <vector>

#include "igd_types.h"

namespace model {

std::string shown(const std::vector<std::string>& names);
std::string shown(const api_wan_info& info);
std::string shown(const api_wan_status& status);
std::string shown(const api_route_info& route);
std::string shown(const api_mng_server_info& info);

/// Records before they are filled: what an operation leaves alone shows.
api_wan_info unread_record();
api_wan_status unread_status();

}  // namespace model

#endif  // IGD_TESTS_MODEL_SHOWN_H
