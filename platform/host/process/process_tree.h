/// The tree that getContext() stands for, and the one when no other was put in its place.
#ifndef PLATFORM_HOST_PROCESS_TREE_H
#define PLATFORM_HOST_PROCESS_TREE_H

#include <memory>

#include "host_platform.h"

namespace host {

/// That of the process's store. In a build without stores, one in memory: it starts in factory
/// state and ends with the process. Null while the store cannot be opened.
Tree* process_tree();

/// Whether what was written to it is now as durable as it can be: on disk, or in memory without
/// a store.
bool commit_process_tree();

/// While one lives, reads show one state: commits of other processes do not appear. May be null.
std::shared_ptr<const void> held_process_tree();

/// Whether active_tree() has one that takes writes.
bool has_active_tree();

}  // namespace host

#endif  // PLATFORM_HOST_PROCESS_TREE_H
