/// Finding things in the tree: walks over the instances of a type, and lookups by value.
#ifndef IGD_TREE_QUERY_H
#define IGD_TREE_QUERY_H

#include <string>
#include <vector>

namespace igd {

inline constexpr char kEverywhere[] = "";  ///< prefix that matches every name

/// Names of the instances of a type whose text begins with a prefix, in the tree's order.
std::vector<std::string> instances_below(const std::string& prefix, int type);
std::vector<std::string> instances_below(const char* prefix, int type);

/// First parameter of a type below a prefix that has exactly this value; "" when none has.
std::string parameter_with_value(const std::string& prefix, int type, const std::string& value);
std::string parameter_with_value(const char* prefix, int type, const std::string& value);

/// The connection objects of a connection device; "" for one that is missing.
std::string static_path_of(const std::string& wan_path);
std::string dhcp_path_of(const std::string& wan_path);
std::string ppp_path_of(const std::string& wan_path);

struct ConnectionPaths {
  std::string static_path;
  std::string dhcp_path;
  std::string ppp_path;
};

/// Looks up all three, in the order static, DHCP, PPP.
ConnectionPaths connection_paths_of(const std::string& wan_path);

}  // namespace igd

#endif  // IGD_TREE_QUERY_H
