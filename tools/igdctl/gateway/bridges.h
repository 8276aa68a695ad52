/// The bridges of the tree and their ports.
#ifndef IGDCTL_BRIDGES_H
#define IGDCTL_BRIDGES_H

#include <string>
#include <vector>

#include "common_util.h"

namespace igdctl {

struct Port {
  std::string path;         ///< "...Bridge.1.Port.2."
  std::string bridge_path;  ///< "...Bridge.1."
  std::string node;         ///< PortInterface: "LAN1", "WLAN1", "LAN0", ...
  std::string depend_wan;   ///< path of the connection it is bound to; "" when to none
  std::string pvid;
  bool enabled = false;
};

struct Bridge {
  std::string path;
  std::string name;      ///< "internet", "br_1_2"
  std::string wan_path;  ///< path of the connection that owns it; "" when none does
  std::string standard;  ///< "802.1D" or "802.1Q"
  std::string vlan;      ///< VLANID as the tree has it
  std::string priority;  ///< X_ZYN_VLANPriority
  bool enabled = false;
  std::vector<Port> ports;
};

/// All bridges with their ports, in the tree's order.
std::vector<Bridge> read_bridges(MibAccess& tree);

/// Names of a bridge's ports, in the tree's order.
std::vector<std::string> nodes_of(const Bridge& bridge);

/// Names of the ports that connections can be given, each once, in byte order: those of all bridges
/// without the uplinks and "LAN_DEFAULT1". Without any bridge port: LAN1-LAN4, WLAN1-WLAN4.
std::vector<std::string> assignable_nodes(const std::vector<Bridge>& bridges);

/// True for an uplink and for "LAN_DEFAULT1": several bridges may have such a port.
bool is_shared_node(const std::string& node);

}  // namespace igdctl

#endif  // IGDCTL_BRIDGES_H
