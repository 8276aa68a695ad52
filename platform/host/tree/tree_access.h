/// What stands behind a Tree, for the parts of this library that build one as a whole.
#ifndef PLATFORM_HOST_TREE_ACCESS_H
#define PLATFORM_HOST_TREE_ACCESS_H

#include <string>
#include <utility>
#include <vector>

#include "host_platform.h"
#include "nodes/tree_store.h"
#include "tree/tree_observer.h"

namespace host {

struct Tree::Impl {
  Impl() = default;
  /// A copy is a tree of its own: nobody observes it.
  Impl(const Impl& other) : store(other.read()), refusals(other.refusals) {}
  Impl(Impl&&) = delete;
  Impl& operator=(const Impl&) = delete;
  Impl& operator=(Impl&&) = delete;
  ~Impl() = default;

  /// For whoever looks at the content, so that a store knows that its process did.
  const TreeStore& read() const {
    was_read = true;
    return store;
  }

  TreeStore store;
  std::vector<Refusal> refusals;
  TreeObserver* observer = nullptr;
  mutable bool was_read = false;  ///< since the mark was taken
};

struct TreeAccess {
  static TreeStore& store(Tree& tree) { return tree.impl_->store; }
  static const TreeStore& store(const Tree& tree) { return tree.impl_->store; }

  /// The same, for whoever reads it on behalf of a program.
  static const TreeStore& read(const Tree& tree) { return tree.impl_->read(); }

  /// Whether somebody read the tree since this was last asked.
  static bool take_read_mark(Tree& tree) { return std::exchange(tree.impl_->was_read, false); }

  /// Every later write asks and tells the observer; null: nobody.
  static void observe(Tree& tree, TreeObserver* observer) { tree.impl_->observer = observer; }

  /// Puts another content into the tree. Returns why not, "" when done.
  static std::string replace(Tree& tree, TreeStore content);
};

}  // namespace host

#endif  // PLATFORM_HOST_TREE_ACCESS_H
