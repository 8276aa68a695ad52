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

}  // namespace igdctl
