/// What differs between the build for the reference platform, which has a store, and the one for a
/// gateway, which has none. platform_host.cpp or platform_gateway.cpp supplies these.
#ifndef IGDCTL_PLATFORM_H
#define IGDCTL_PLATFORM_H

#include <string>

#include "common_util.h"

namespace CLI {
class App;
}

namespace igdctl {

class Session;

/// True when this build has the store of the reference platform: --store, the group "store", all of
/// "tree", --dry-run and --confirm.
bool has_store();

/// The tree of this process. Without a store on a gateway `store` is empty.
/// Throws Failure (kStore) when there is none.
MibAccess& open_tree(const std::string& store);

/// Lets reads see what other processes commit from now on. Until then a run sees one state.
void end_read_hold();

/// Adds what only a build with a store has; adds nothing on a gateway.
void add_store_option(CLI::App& root, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_PLATFORM_H
