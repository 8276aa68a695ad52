/// Finds the parts of a tree without walking it.
#ifndef PLATFORM_HOST_TREE_INDEX_H
#define PLATFORM_HOST_TREE_INDEX_H

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "node.h"
#include "path_table.h"

namespace host {

/// Every node by its path, every parameter by its full name, and what each ObjectType enumerates.
/// Points into nodes, which enter when they are made and leave before they go.
class TreeIndex {
 public:
  void enter(Node& node);
  void leave(const Node& node);

  Node* node(std::string_view path) const { return nodes_.find(path); }
  Cell cell(std::string_view full_name) const;

  /// Full names of a type's instances, in numeric order at every level.
  std::vector<std::string> names(int object_type) const;

 private:
  PathTable nodes_;
  std::unordered_map<const ObjectSchema*, std::vector<const Node*>> enumerated_;
};

}  // namespace host

#endif  // PLATFORM_HOST_TREE_INDEX_H
