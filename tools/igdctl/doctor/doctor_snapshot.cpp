#include "doctor/doctor.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "igd_c_api.h"

namespace igdctl {

namespace {

struct ConnectionObject {
  const char* mode;
  std::string path;
};

// In the order in which the library asks which of them is in use.
std::vector<ConnectionObject> objects_of(const std::string& wan_path) {
  std::vector<ConnectionObject> objects = {
      {"dhcp", parent_of(igd_tool_loop_fullname(wan_path, kAddressingType, "DHCP"))}};
  const std::vector<std::string> ppp = instances_below(wan_path, kPppConnection);
  objects.push_back({"pppoe", ppp.empty() ? std::string() : ppp.front()});
  objects.push_back(
      {"static", parent_of(igd_tool_loop_fullname(wan_path, kAddressingType, "Static"))});
  return objects;
}

ConnectionState read_state(MibAccess& tree, const Connection& connection) {
  ConnectionState state;
  state.connection = connection;
  for (const ConnectionObject& object : objects_of(connection.path)) {
    if (object.path.empty()) continue;
    state.services.push_back(value_in(tree, object.path, "X_CT-COM_ServiceList"));
    if (value_in(tree, object.path, "Enable") == "true") {
      state.enabled_modes.emplace_back(object.mode);
    }
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
  route.enabled = value_in(tree, path, "Enable") == "true";
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
