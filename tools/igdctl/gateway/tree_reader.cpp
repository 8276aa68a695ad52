#include "gateway/tree_reader.h"

#include "igd_api.h"

namespace igdctl {

std::string value_in(MibAccess& tree, const std::string& object_path, std::string_view parameter) {
  return object_path.empty() ? std::string() : tree.getValue(object_path + std::string(parameter));
}

std::vector<std::string> instances_below(const std::string& path, ObjectType type) {
  std::vector<std::string> names;
  (void)igd_tool_loop_instance(path, type, names);
  return names;
}

std::string parent_of(std::string_view name) {
  if (!name.empty() && name.back() == '.') name.remove_suffix(1);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : std::string(name.substr(0, dot + 1));
}

bool begins_with(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

}  // namespace igdctl
