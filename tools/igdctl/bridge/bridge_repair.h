/// Repairs bridges: creates a missing one, removes one that belongs to nobody, moves a port.
///
/// The library creates and removes a bridge only together with its connection. When the two no
/// longer match, these repair the same objects with single writes. Called inside a Change.
#ifndef IGDCTL_BRIDGE_REPAIR_H
#define IGDCTL_BRIDGE_REPAIR_H

#include <string>
#include <vector>

#include "gateway/bridges.h"
#include "gateway/connections.h"

namespace igdctl {

/// Creates the own bridge of a connection that has none: with the VLAN that the connection's link
/// has, and the port of its uplink. Returns its path.
std::string make_own_bridge(MibAccess& tree, const Connection& connection);

/// Deletes a bridge and its ports. Ports that are then in no bridge go to the LAN bridge.
void take_bridge_away(MibAccess& tree, const Bridge& bridge, const std::vector<Bridge>& bridges);

/// Makes a port a member of this bridge alone, bound to no connection when it is the LAN bridge.
/// Its option 60 goes with it.
void move_port(MibAccess& tree, const std::string& node, const Bridge& target,
               const std::vector<Bridge>& bridges);

/// True when the port is a member of this bridge alone, and bound to no connection.
bool is_in_place(const std::string& node, const Bridge& target, const std::vector<Bridge>& bridges);

/// Every port with this node, in the tree's order.
std::vector<Port> ports_with_node(const std::vector<Bridge>& bridges, const std::string& node);

}  // namespace igdctl

#endif  // IGDCTL_BRIDGE_REPAIR_H
