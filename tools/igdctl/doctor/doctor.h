/// Finds what contradicts itself in a tree, and the commands that fix it.
#ifndef IGDCTL_DOCTOR_H
#define IGDCTL_DOCTOR_H

#include <string>
#include <vector>

#include "gateway/bridges.h"
#include "gateway/connections.h"

namespace igdctl {

/// A connection with what its three objects say.
struct ConnectionState {
  Connection connection;
  std::vector<std::string> services;       ///< service list of each of its objects
  std::vector<std::string> enabled_modes;  ///< "dhcp", "pppoe", "static": its enabled objects
  unsigned int mark = 0;                   ///< packet mark of its bridge's name
};

struct RouteState {
  std::string path;
  std::string destination;
  std::string mask;
  std::string gateway;
  std::string interface;  ///< path of a connection
  std::string table;      ///< X_ZYN_RouteTable: path of a connection
  bool enabled = false;
};

/// All of a tree that the doctor looks at.
struct Snapshot {
  std::vector<ConnectionState> connections;
  std::vector<Bridge> bridges;
  std::vector<RouteState> routes;
  bool has_store = true;  ///< whether the commands that fix findings have --confirm
};

Snapshot read_snapshot(MibAccess& tree);

struct Finding {
  std::string code;     ///< one word for programs: "orphan-bridge"
  std::string where;    ///< path of the object that it is about
  std::string message;  ///< one sentence without a full stop, as is the next
  std::string why;      ///< why it matters
  /// The commands that fix it, in order, without "igdctl ": "bridge remove br_1_9". Each can be
  /// given to a shell as it is.
  std::vector<std::string> fixes;
};

/// Every finding, in the order of bridges, ports, connections, routes. Asks nothing but `snapshot`.
std::vector<Finding> examine(const Snapshot& snapshot);

}  // namespace igdctl

#endif  // IGDCTL_DOCTOR_H
