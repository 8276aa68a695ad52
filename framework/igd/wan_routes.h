/// Which static routes hang on a connection.
#ifndef IGD_WAN_ROUTES_H
#define IGD_WAN_ROUTES_H

#include <string>

namespace igd {

/// A route belongs to the connection its Interface names; one that names none, to the connection
/// its X_ZYN_RouteTable names.
inline bool route_belongs_to(const std::string& wan_path, const std::string& interface,
                             const std::string& route_table) {
  return interface.empty() ? route_table == wan_path : interface == wan_path;
}

}  // namespace igd

#endif  // IGD_WAN_ROUTES_H
