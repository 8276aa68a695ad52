/// Finds the parts of a tree without walking it.
#ifndef PLATFORM_HOST_TREE_INDEX_H
#define PLATFORM_HOST_TREE_INDEX_H

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "node.h"

namespace host {

/// Every node by its path, every parameter by its full name, and what each ObjectType enumerates.
/// Holds no text of its own: it points into nodes and cells, which enter when they are made and
/// leave before they go.
class TreeIndex {
 public:
  void enter(Node& node);
  void enter(Cell& cell);
  void leave(const Node& node);
  void leave(const Cell& cell);

  Node* node(std::string_view path) const;
  Cell* cell(std::string_view full_name) const;

  /// Full names of a type's instances, in numeric order at every level.
  std::vector<std::string> names(int object_type) const;

 private:
  using Enumeration = std::map<InstanceNumbers, std::string_view>;

  std::unordered_map<std::string_view, Node*> nodes_;
  std::unordered_map<std::string_view, Cell*> cells_;
  std::unordered_map<int, Enumeration> enumerations_;
};

}  // namespace host

#endif  // PLATFORM_HOST_TREE_INDEX_H
