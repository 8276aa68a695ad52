/// What stands behind a Tree, for the parts of this library that build one as a whole.
#ifndef PLATFORM_HOST_TREE_ACCESS_H
#define PLATFORM_HOST_TREE_ACCESS_H

#include <vector>

#include "host_platform.h"
#include "tree_store.h"

namespace host {

struct Tree::Impl {
  TreeStore store;
  std::vector<Refusal> refusals;
};

struct TreeAccess {
  static TreeStore& store(Tree& tree) { return tree.impl_->store; }
};

}  // namespace host

#endif  // PLATFORM_HOST_TREE_ACCESS_H
