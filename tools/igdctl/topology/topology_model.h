/// How uplinks, connections, bridges and ports belong together.
#ifndef IGDCTL_TOPOLOGY_MODEL_H
#define IGDCTL_TOPOLOGY_MODEL_H

#include <string>
#include <vector>

#include "gateway/bridges.h"
#include "gateway/connections.h"
#include "term/output.h"

namespace igdctl {

/// A connection with what is shown beside its name.
struct DescribedConnection {
  Connection connection;
  std::string kind;  ///< "routed dhcp"
};

/// A port of the LAN bridge.
struct LanPort {
  std::string node;
  std::string vlan;         ///< its own VLAN when it is bound
  std::string bound_to;     ///< path of the connection that it is bound to; "" for none
  bool is_missing = false;  ///< there is no such connection
};

struct Link {
  Connection connection;
  std::string kind;
  std::string vlan;                    ///< "VLAN 100", "untagged"; "" without a bridge
  std::vector<std::string> own_ports;  ///< of its own bridge, the uplink among them
  std::vector<LanPort> lan_ports;      ///< of the LAN bridge, bound to it
};

/// A WAN device with the connections over it.
struct Uplink {
  std::string device;  ///< "1"
  std::string access;  ///< "Ethernet"
  std::vector<Link> links;
};

/// A bridge that no connection owns.
struct OtherBridge {
  std::string title;
  std::string path;
  std::string vlan;
  std::vector<std::string> ports;
};

struct Topology {
  std::vector<Uplink> uplinks;
  bool has_lan = false;
  std::string lan_path;
  std::vector<LanPort> lan_ports;
  std::vector<OtherBridge> others;  ///< beside the connections' own and the LAN bridge
};

/// Pure: asks nothing but its arguments.
Topology join(const std::vector<DescribedConnection>& connections,
              const std::vector<Bridge>& bridges);

/// "1" of "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2."
std::string device_of(const Connection& connection);

Json json_of(const Topology& topology);

/// Lines of box characters, or of ASCII in their place. `width` cuts them, 0 does not.
std::string drawn_as_text(const Topology& topology, bool box_characters, std::size_t width);

/// For the program dot.
std::string drawn_as_dot(const Topology& topology);

/// A picture.
std::string drawn_as_svg(const Topology& topology);

}  // namespace igdctl

#endif  // IGDCTL_TOPOLOGY_MODEL_H
