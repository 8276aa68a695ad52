/// The bridges that join a connection to its ports: names, paths, and the writes that make them.
#ifndef IGD_BRIDGES_H
#define IGD_BRIDGES_H

#include <string>

#include "igd_types.h"
#include "text.h"

namespace igd {

/// Whose bridge _create_bridge looks for.
enum BridgeKind : int {
  kWanBridge = 2,  ///< the connection's own
  kLanBridge = 3,
};

/// From a port's parameter to the port, and to the bridge that holds the port.
inline std::string port_of(const std::string& parameter) { return objectPathOf(parameter); }
inline std::string bridge_of_port_parameter(const std::string& parameter) {
  return std::string(parent_of(parent_of(parent_of(parameter))));
}

bool is_vlan_bridge(const std::string& bridge_path);

/// Connection that holds a port, named by its bridge or, in the LAN bridge, by the port; "" when
/// none does. Takes the name of the port's PortInterface parameter.
std::string owner_of_port(const std::string& parameter);

/// Path of the first bridge with this BridgeName; "" when there is none.
std::string bridge_named(const std::string& name);

}  // namespace igd

/// Finds the bridge of a connection, or makes it.
///
/// @param kind         BridgeKind; any other value always makes a nameless bridge
/// @param vlan_enable  non-zero for 802.1Q tagging
/// @param info         gives vlan_priority and the ports' option 60; may be null
/// @return the bridge's path; "" without a tree
/// An existing bridge is returned as it is. A new one also gets its VLAN into the connection's
/// WANEthernetLinkConfig and, as a WAN bridge, the uplink's port.
std::string _create_bridge(std::string wan_path, int kind, int vlan_enable, int vlan_id,
                           api_wan_info* info);

/// Adds a port to a bridge.
///
/// @param depend_wan  the connection that a LAN-bridge port is bound to, or ""
/// @param info        gives the option 60 of a port in a connection's own bridge, and gains an
///                    empty entry when it has none for it; with null none is written
void _create_port(std::string bridge_path, std::string depend_wan, std::string port_interface,
                  api_wan_info* info);

#endif  // IGD_BRIDGES_H
