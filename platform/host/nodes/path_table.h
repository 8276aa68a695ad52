/// Finds a node of a tree by its path.
#ifndef PLATFORM_HOST_PATH_TABLE_H
#define PLATFORM_HOST_PATH_TABLE_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "nodes/node.h"
#include "schema/text_hash.h"

namespace host {

/// A hash table whose chains run through the nodes themselves, so that finding one touches little
/// memory beside it. Nodes enter when they are made and leave before they go.
class PathTable {
 public:
  void enter(Node& node);
  void leave(const Node& node);
  Node* find(std::string_view path) const {
    if (chains_.empty()) return nullptr;
    const std::uint32_t hash = TextHash::of(path);
    Node* node = chains_[place(hash)];
    while (node != nullptr && (node->path_hash != hash || node->path != path)) {
      node = node->next_in_chain;
    }
    return node;
  }

 private:
  void grow();
  void chain(Node& node);
  std::size_t place(std::uint32_t hash) const { return hash & (chains_.size() - 1); }

  std::vector<Node*> chains_;  ///< a power of two of them, twice the nodes or more; or none
  std::size_t entered_ = 0;
};

}  // namespace host

#endif  // PLATFORM_HOST_PATH_TABLE_H
