// Finding things in the tree and working on their names.
#ifndef IGD_PATH_TOOLS_H
#define IGD_PATH_TOOLS_H

#include <string>
#include <string_view>
#include <vector>

#include "common_util.h"

/// The object path that holds a parameter, or the parent path of an object; "" when there is none.
/// Trailing white space is ignored.
std::string objectPathOf(const std::string& name);

namespace igd {

inline constexpr char kWhiteSpace[] = " \n\t\r";

inline constexpr char kEverywhere[] = "";  // prefix that matches every name

/// What objectPathOf gives, as a part of the name: to climb several levels without copies.
std::string_view parent_of(std::string_view name);

/// Names of the instances of a type whose text begins with a prefix, in the tree's order.
std::vector<std::string> instances_below(const std::string& prefix, int type);
std::vector<std::string> instances_below(const char* prefix, int type);

/// First parameter of a type below a prefix that has exactly this value; "" when none has.
std::string parameter_with_value(const std::string& prefix, int type, const std::string& value);
std::string parameter_with_value(const char* prefix, int type, const std::string& value);

std::vector<std::string> split(const std::string& text, const std::string& delimiters);

bool is_listed(const std::vector<std::string>& list, const std::string& text);

bool starts_with(std::string_view text, std::string_view prefix);
bool contains(std::string_view text, std::string_view part);
std::string trimmed(const std::string& text);

/// A leading decimal number, else 0, kept within int: what atoi gives on the gateway.
int lenient_number(const std::string& text);

/// What a 256-byte buffer of the gateway keeps of a text: at most 255 characters, up to a zero.
std::string cut(const std::string& text);

/// "<table_path><number>.", cut like every path the gateway formats.
std::string numbered(const std::string& table_path, int number);

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

#endif  // IGD_PATH_TOOLS_H
