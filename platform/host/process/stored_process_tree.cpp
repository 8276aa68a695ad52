// The process's tree is its store's.
#include "host_store.h"
#include "process/process_tree.h"

namespace host {

Tree* process_tree() {
  Store* const store = process_store();
  return store != nullptr ? &store->tree() : nullptr;
}

bool commit_process_tree() {
  Store* const store = process_store();
  return store != nullptr && store->commit().ok();
}

std::shared_ptr<const void> held_process_tree() {
  Store* const store = process_store();
  return store != nullptr ? std::make_shared<ReadHold>(*store) : nullptr;
}

}  // namespace host
