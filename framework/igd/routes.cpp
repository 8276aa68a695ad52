#include <string>
#include <vector>

#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "tree_query.h"

namespace {

std::vector<std::string> route_addresses() {
  return igd::instances_below(igd::kForwardingTable, kForwardingDestIpAddress);
}

api_route_info read_route(const std::string& address) {
  api_route_info route;
  route.dest_ip = igd::value_of(address);
  const std::string route_path = objectPathOf(address);
  igd::read_into(route_path, "DestSubnetMask", &route.dest_mask);
  route.enable = igd::value_is(route_path, "Enable", igd::kTrue) ? 1 : 0;
  igd::read_into(route_path, "GatewayIPAddress", &route.gateway);
  route.route_type = route.gateway.empty() ? kIgdRouteByInterface : kIgdRouteByGateway;
  if (route.gateway.empty()) igd::read_into(route_path, "Interface", &route.interface);
  return route;
}

// Destination and mask together are a route's key.
std::string find_route(const api_route_info& route) {
  for (const std::string& address : route_addresses()) {
    std::string route_path = objectPathOf(address);
    if (_get_value(route_path, "DestSubnetMask") != route.dest_mask) continue;
    if (igd::has_value(address, route.dest_ip)) return route_path;
  }
  return {};
}

// Kept: when nothing could be added the path stays empty, and the tree refuses the bare names.
std::string add_route() {
  const igd::NewInstance route = igd::add_instance(igd::kForwardingTable);
  return route.added ? route.path : std::string();
}

void write_next_hop(const std::string& route_path, const api_route_info& route) {
  if (route.route_type == kIgdRouteByGateway) {
    _set_value(route_path, "Interface", "");
    _set_value(route_path, "GatewayIPAddress", route.gateway);
  }
  if (route.route_type == kIgdRouteByInterface) {
    _set_value(route_path, "Interface", igd_wan_get_id_by_name(route.interface));
    _set_value(route_path, "GatewayIPAddress", "");
  }
}

// A route is disabled while it is rewritten.
void write_route(const std::string& route_path, const api_route_info& route) {
  _set_value(route_path, "Enable", igd::kFalse);
  _set_value(route_path, "DestIPAddress", route.dest_ip);
  _set_value(route_path, "DestSubnetMask", route.dest_mask);
  write_next_hop(route_path, route);
  _set_value(route_path, "Enable", igd::bool_text(route.enable != 0));
}

}  // namespace

int igd_get_static_route_list(std::vector<api_route_info>& routes) {
  ensureContext();
  routes.clear();
  for (const std::string& address : route_addresses()) routes.push_back(read_route(address));
  return static_cast<int>(routes.size());
}

int igd_clear_static_route() {
  ensureContext();
  for (const std::string& address : route_addresses()) {
    igd::delete_object(objectPathOf(address));
  }
  // Kept: the forwarding object itself is deleted too, and only this result counts. Callers see to
  // it that there is a tree; it is not checked here.
  const int result = igd::tree()->deleteObject(igd::kForwardingObject);
  if (result == 0) igd::commit_and_apply();
  return result;
}

int igd_set_static_route(int op, api_route_info route) {
  if (igd::tree() == nullptr) return kIgdFailed;
  std::string route_path = find_route(route);
  switch (op) {
    case kIgdRouteSet:
      if (route_path.empty()) route_path = add_route();
      write_route(route_path, route);
      break;
    case kIgdRouteDelete:
      if (route_path.empty()) return kIgdFailed;
      igd::delete_object(route_path);
      break;
    default:
      return kIgdOk;
  }
  igd::commit_and_apply();
  return kIgdOk;
}
