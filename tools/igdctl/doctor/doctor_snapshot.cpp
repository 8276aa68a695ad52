#include <utility>

#include "doctor/doctor.h"
#include "gateway/connection_objects.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "igd_c_api.h"
#include "igd_vocabulary.h"

namespace igdctl {

namespace {

ConnectionState read_state(MibAccess& tree, const Connection& connection) {
  ConnectionState state;
  state.connection = connection;
  const ConnectionObjects objects = connection_objects(connection.path);
  // In the order in which the library asks which of them is in use.
  const std::pair<const char*, const std::string&> by_mode[] = {
      {"dhcp", objects.dhcp}, {"pppoe", objects.ppp}, {"static", objects.fixed}};
  for (const auto& [mode, path] : by_mode) {
    if (path.empty()) continue;
    state.services.push_back(value_in(tree, path, "X_CT-COM_ServiceList"));
    if (is_true(value_in(tree, path, "Enable"))) state.enabled_modes.emplace_back(mode);
  }
  state.mark = igd_c_get_mask(connection.bridge_name.c_str());
  return state;
}

RouteState read_route(MibAccess& tree, const std::string& path) {
  RouteState route;
  route.path = path;
  route.destination = value_in(tree, path, "DestIPAddress");
  route.mask = value_in(tree, path, "DestSubnetMask");
  route.gateway = value_in(tree, path, "GatewayIPAddress");
  route.interface = value_in(tree, path, "Interface");
  route.table = value_in(tree, path, "X_ZYN_RouteTable");
  route.enabled = is_true(value_in(tree, path, "Enable"));
  return route;
}

}  // namespace

Snapshot read_snapshot(MibAccess& tree) {
  Snapshot snapshot;
  for (const Connection& connection : list_connections(tree)) {
    snapshot.connections.push_back(read_state(tree, connection));
  }
  snapshot.bridges = read_bridges(tree);
  for (const std::string& name : instances_below("", kForwardingDestIpAddress)) {
    snapshot.routes.push_back(read_route(tree, parent_of(name)));
  }
  return snapshot;
}

}  // namespace igdctl
