// Rules about ports and connections that hold whatever the reference says: they look at a gateway
// before and after an operation, and at what the operation was asked for.
#ifndef IGD_TESTS_FUZZ_PORT_RULES_H
#define IGD_TESTS_FUZZ_PORT_RULES_H

#include <string>
#include <vector>

#include "host_platform.h"
#include "igd_types.h"

namespace fuzz {

/// A port as it stands in the tree.
struct Holding {
  std::string node;
  std::string bridge_name;
  std::string owner;  ///< connection of the bridge
  std::string bound;  ///< connection of the port
};

using Holdings = std::vector<Holding>;
Holdings holdings_of(const host::Tree& tree);

/// Each port once, so that it can be told who holds it.
bool is_tidy(const Holdings& holdings);

/// A removed connection is named nowhere, and its ports are back in the LAN bridge.
void require_removed(const std::string& path, const Holdings& before, const host::Tree& tree);

/// A connection holds the ports of its description in the bridges that it says, and no others; none
/// of them is free as well, and those that it gave up are back in the LAN bridge.
void require_held(const std::string& path, const api_wan_info& info, const Holdings& before,
                  const host::Tree& tree);

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_PORT_RULES_H
