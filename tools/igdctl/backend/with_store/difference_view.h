/// Writes and differences of the store, shown to people and programs. Secrets are stars unless
/// `show_secrets`.
#ifndef IGDCTL_DIFFERENCE_VIEW_H
#define IGDCTL_DIFFERENCE_VIEW_H

#include <string>
#include <vector>

#include "host_changes.h"
#include "term/output.h"

namespace igdctl {

/// The writes that change something, in order.
std::vector<host::WriteStep> changing_steps(const std::vector<host::WriteStep>& plan);

/// One line for each write, in order: "  3  set     <name> = "110", was "100"".
///
/// @param left_out  number of writes that are not shown; a line tells it, unless it is 0
std::string text_of(const std::vector<host::WriteStep>& plan, bool show_secrets,
                    std::size_t left_out);

/// Lines with "+" for objects that came, "-" for those that went, "~" for changed values.
std::string text_of(const host::Difference& difference, bool show_secrets);

/// [{"do": "set", "name": ..., "before": ..., "after": ...}, {"do": "add", "name": ...}, ...]
Json json_of(const std::vector<host::WriteStep>& plan, bool show_secrets);

/// {"added": [...], "deleted": [...], "values": [{"name", "before", "after"}, ...]}
Json json_of(const host::Difference& difference, bool show_secrets);

}  // namespace igdctl

#endif  // IGDCTL_DIFFERENCE_VIEW_H
