#include "scenario.h"

namespace transcripts {
namespace {

const api_route_info kByGateway = {"10.0.0.0",         "255.0.0.0",  1,
                                   kIgdRouteByGateway, "1_INTERNET", "192.168.1.2"};
const api_route_info kByInterface = {"10.0.0.0",           "255.0.0.0",  0,
                                     kIgdRouteByInterface, "1_INTERNET", "192.168.1.2"};

void add_route(Gateway& gateway, const std::string& address, const std::string& mask,
               const std::string& hop) {
  const std::string route_path = gateway.add(support::kRoutes);
  gateway.set(route_path + "DestIPAddress", address);
  gateway.set(route_path + "DestSubnetMask", mask);
  gateway.set(route_path + "GatewayIPAddress", hop);
}

// The same address with another mask, the same mask with another address, and the one.
void add_three_routes(Gateway& gateway) {
  add_route(gateway, "10.0.0.0", "255.255.0.0", "192.168.1.9");
  add_route(gateway, "11.0.0.0", "255.0.0.0", "");
  add_route(gateway, "10.0.0.0", "255.0.0.0", "192.168.1.7");
}

void record_route(Gateway& gateway, int operation, const api_route_info& route) {
  gateway.record(IGD_OPERATION(igd_set_static_route), operation, route);
}

void add_by_gateway(Gateway& gateway) { record_route(gateway, kIgdRouteSet, kByGateway); }

void add_by_interface(Gateway& gateway) {
  (void)gateway.create(support::routed_pppoe("1_INTERNET", 100));
  record_route(gateway, kIgdRouteSet, kByInterface);
}

void add_by_unknown_interface(Gateway& gateway) {
  record_route(gateway, kIgdRouteSet, kByInterface);
}

void add_of_no_type(Gateway& gateway) {
  api_route_info route = kByGateway;
  route.route_type = 3;
  record_route(gateway, kIgdRouteSet, route);
}

void add_fails(Gateway& gateway) {
  const api_route_info route = {"10.0.0.0", "255.0.0.0", 1, kIgdRouteByGateway, "", "192.168.1.2"};
  gateway.fail_add(1);
  record_route(gateway, kIgdRouteSet, route);
}

void update(Gateway& gateway) {
  add_three_routes(gateway);
  record_route(gateway, kIgdRouteSet, kByGateway);
}

void remove(Gateway& gateway) {
  add_three_routes(gateway);
  record_route(gateway, kIgdRouteDelete, kByGateway);
}

void remove_missing(Gateway& gateway) { record_route(gateway, kIgdRouteDelete, kByGateway); }

void unknown_operation(Gateway& gateway) {
  add_three_routes(gateway);
  record_route(gateway, 3, kByGateway);
}

void list(Gateway& gateway) {
  add_three_routes(gateway);
  std::vector<api_route_info> routes;
  gateway.record(IGD_OPERATION(igd_get_static_route_list), routes);
}

void clear(Gateway& gateway) {
  add_three_routes(gateway);
  gateway.record(IGD_OPERATION(igd_clear_static_route));
}

void clear_empty(Gateway& gateway) { gateway.record(IGD_OPERATION(igd_clear_static_route)); }

}  // namespace

Scenarios route_scenarios() {
  return {
      {"route_add_by_gateway", add_by_gateway},
      {"route_add_by_interface", add_by_interface},
      {"route_add_by_unknown_interface", add_by_unknown_interface},
      {"route_add_of_no_type", add_of_no_type},
      {"route_add_fails", add_fails, Refusals::kExpected},
      {"route_update", update},
      {"route_delete", remove},
      {"route_delete_missing", remove_missing},
      {"route_unknown_operation", unknown_operation},
      {"route_list", list},
      {"route_clear", clear},
      {"route_clear_empty", clear_empty},
  };
}

}  // namespace transcripts
