// The process's tree where the platform is built without stores.
#include "process/process_tree.h"

namespace host {

Tree* process_tree() {
  static auto* const tree = new Tree(Tree::factory());  // others may use it while the process ends
  return tree;
}

bool commit_process_tree() { return true; }

std::shared_ptr<const void> held_process_tree() { return nullptr; }

}  // namespace host
