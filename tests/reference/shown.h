// Results and records as text, every field of them.
#ifndef IGD_TESTS_SHOWN_H
#define IGD_TESTS_SHOWN_H

#include <string>
#include <vector>

#include "igd_types.h"

namespace operations {

using Names = std::vector<std::string>;

std::string shown(int number);
std::string shown(const Names& names);
std::string shown(const api_wan_info& info);
std::string shown(const api_wan_status& status);
std::string shown(const api_route_info& route);
std::string shown(const api_mng_server_info& info);
std::string shown(const wan_mib_info& entry);

}  // namespace operations

#endif  // IGD_TESTS_SHOWN_H
