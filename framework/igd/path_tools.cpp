#include "path_tools.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"

namespace {

// Owns an open walk, so that every way out closes it.
class OpenIterator {
 public:
  OpenIterator(MibAccess& mib, int type) : mib_(mib), walk_(mib.openInstanceIterator(type)) {}
  ~OpenIterator() {
    if (walk_ != nullptr) mib_.closeInstanceIterator(walk_);
  }
  OpenIterator(const OpenIterator&) = delete;
  OpenIterator& operator=(const OpenIterator&) = delete;

  explicit operator bool() const { return walk_ != nullptr; }
  InstanceIterator* operator->() const { return walk_; }

 private:
  MibAccess& mib_;
  InstanceIterator* walk_;
};

// The place behind a found character; the beginning where none was found.
std::size_t behind(std::size_t found) { return found == std::string_view::npos ? 0 : found + 1; }

}  // namespace

std::string objectPathOf(const std::string& name) { return std::string(igd::parent_of(name)); }

namespace igd {

std::string_view parent_of(std::string_view name) {
  const std::size_t last = name.find_last_not_of(kWhiteSpace);
  if (last == std::string_view::npos) return {};
  if (name[last] != '.') return name.substr(0, behind(name.rfind('.')));
  if (last == 0) return {};
  return name.substr(0, behind(name.rfind('.', last - 1)));
}

std::vector<std::string> instances_below(const std::string& prefix, int type) {
  std::vector<std::string> names;
  MibAccess* const mib = tree();
  if (mib == nullptr) return names;
  const OpenIterator walk(*mib, type);
  if (!walk) return names;
  do {
    std::string name = walk->fullName();
    if (starts_with(name, prefix)) names.push_back(std::move(name));
  } while (walk->next() != 0);
  return names;
}

std::vector<std::string> instances_below(const char* prefix, int type) {
  return instances_below(std::string(prefix), type);
}

std::string parameter_with_value(const std::string& prefix, int type, const std::string& value) {
  for (const std::string& parameter : instances_below(prefix, type)) {
    if (has_value(parameter, value)) return parameter;
  }
  return {};
}

std::string parameter_with_value(const char* prefix, int type, const std::string& value) {
  return parameter_with_value(std::string(prefix), type, value);
}

std::vector<std::string> split(const std::string& text, const std::string& delimiters) {
  std::vector<std::string> tokens;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find_first_of(delimiters, start), text.size());
    tokens.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return tokens;
}

bool is_listed(const std::vector<std::string>& list, const std::string& text) {
  for (const std::string& listed : list) {
    if (listed == text) return true;
  }
  return false;
}

bool starts_with(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

int lenient_number(const std::string& text) {
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  constexpr long long kLowest = std::numeric_limits<int>::min();
  constexpr long long kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(number, kLowest, kHighest));
}

std::string cut(const std::string& text) {
  return text.substr(0, std::min(text.find('\0'), kLongestText));
}

std::string numbered(const std::string& table_path, int number) {
  return cut(table_path + std::to_string(number) + '.');
}

std::string static_path_of(const std::string& wan_path) {
  return objectPathOf(parameter_with_value(wan_path, kAddressingType, kStaticAddressing));
}

std::string dhcp_path_of(const std::string& wan_path) {
  return objectPathOf(parameter_with_value(wan_path, kAddressingType, kDhcpAddressing));
}

std::string ppp_path_of(const std::string& wan_path) {
  std::vector<std::string> connections = instances_below(wan_path, kPppConnection);
  return connections.empty() ? std::string() : std::move(connections.front());
}

ConnectionPaths connection_paths_of(const std::string& wan_path) {
  ConnectionPaths paths;
  paths.static_path = static_path_of(wan_path);
  paths.dhcp_path = dhcp_path_of(wan_path);
  paths.ppp_path = ppp_path_of(wan_path);
  return paths;
}

}  // namespace igd

int igd_tool_split_str(std::string text, std::string delimiter_set, std::vector<std::string>& out) {
  out = igd::split(text, delimiter_set);
  return static_cast<int>(out.size());
}

int igd_tool_loop_instance(std::string path, int type, std::vector<std::string>& out) {
  out = igd::instances_below(path, type);
  return static_cast<int>(out.size());
}

std::string igd_tool_loop_fullname(std::string path, int type, std::string value) {
  return igd::parameter_with_value(path, type, value);
}

void _delete_node(std::vector<std::string>& list, std::string name) {
  const auto found = std::find(list.begin(), list.end(), name);
  if (found != list.end()) list.erase(found);
}
