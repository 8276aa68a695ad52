/// The WAN connections of the tree, and how people name them.
#ifndef IGDCTL_CONNECTIONS_H
#define IGDCTL_CONNECTIONS_H

#include <string>
#include <vector>

#include "common_util.h"

namespace igdctl {

struct Connection {
  std::string path;         ///< "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2."
  std::string id;           ///< "1.2", from the path
  std::string name;         ///< Name of its enabled object, of the static one when none is
  std::string service;      ///< service list of that object: "INTERNET,VOIP"
  std::string access;       ///< WANAccessType of its WAN device: "Ethernet", "3G", "Repeator"
  std::string bridge_path;  ///< its own bridge; "" when it has none
  std::string bridge_name;  ///< "br_1_2", also without a bridge

  bool has_bridge() const { return !bridge_path.empty(); }
};

/// All connections, in the tree's order.
std::vector<Connection> list_connections(MibAccess& tree);

/// True when the selector is the connection's name, its path (the last dot may be left out) or
/// "<d>.<c>".
bool is_selected_by(const Connection& connection, const std::string& selector);

/// The connection that a selector names. Throws Failure: kNotFound, with similar names, or
/// kBadInput when it names several.
Connection find_connection(MibAccess& tree, const std::string& selector);

/// "Internet" or, without a name, "1.2".
std::string title_of(const Connection& connection);

/// The title of the connection with this path; the path itself when there is none.
std::string title_of_path(const std::vector<Connection>& connections, const std::string& path);

/// True when a service list holds the management service, as the library sees it.
bool carries_management(const std::string& service_list);

/// "1.2" of a connection's path; "" when it has another shape.
std::string id_of_path(const std::string& path);

}  // namespace igdctl

#endif  // IGDCTL_CONNECTIONS_H
