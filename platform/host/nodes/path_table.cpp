#include "nodes/path_table.h"

#include <utility>

namespace host {

void PathTable::enter(Node& node) {
  if (chains_.size() < 2 * (entered_ + 1)) grow();
  node.path_hash = TextHash::of(node.path);
  chain(node);
  ++entered_;
}

void PathTable::chain(Node& node) {
  Node*& first = chains_[place(node.path_hash)];
  node.next_in_chain = first;
  first = &node;
}

void PathTable::grow() {
  constexpr std::size_t kFewest = 64;
  const std::vector<Node*> before = std::exchange(chains_, {});
  chains_.resize(before.empty() ? kFewest : 2 * before.size());
  for (Node* first : before) {
    for (Node* next = first; next != nullptr;) chain(*std::exchange(next, next->next_in_chain));
  }
}

void PathTable::leave(const Node& node) {
  Node** at = &chains_[place(node.path_hash)];
  while (*at != &node) at = &(*at)->next_in_chain;
  *at = node.next_in_chain;
  --entered_;
}

}  // namespace host
