// The gateways on which every operation is tried.
#ifndef IGD_TESTS_START_H
#define IGD_TESTS_START_H

#include <string>
#include <vector>

#include "host_platform.h"

namespace operations {

using Names = std::vector<std::string>;

/// A gateway, and the connection on it that operations work on; it need not exist.
struct Start {
  std::string name;
  host::Tree tree;
  std::string wan;       ///< path of the connection
  std::string wan_name;  ///< Name of its objects
  Names own_ports;       ///< in its own bridge, the uplink left out
  Names lan_ports;       ///< in the LAN bridge, bound to it
  bool dump = false;     ///< a whole gateway was imported
};

Start factory_gateway();

/// Nine connections: each class in each mode, tagged and untagged, on three uplinks, with ports of
/// both kinds, option 60 and routes of each kind.
Start busy_gateway();

/// What imports, crashes and other programs leave behind: missing objects, two PPP connections, no
/// LAN bridge, a bridge with a wrong name, texts where numbers are expected.
Start damaged_gateway();

/// A dump of a gateway of another make, which knows nothing of the operator's parameters, with one
/// connection made on it. `file` is a dump in CSV.
Start imported_gateway(const std::string& name, const std::string& file);

/// The connections of a gateway all alike, so that calls can be counted: a LAN bridge with `ports`
/// unbound ports, and `connections` connections on one uplink, each with `ports` ports in its own
/// bridge beside the uplink's, and `ports` ports bound in the LAN bridge. `routes` routes go
/// through the last connection, which operations work on.
Start uniform_gateway(int connections, int ports, int routes);

}  // namespace operations

#endif  // IGD_TESTS_START_H
