#include "scenario.h"

namespace transcripts {
namespace {

using support::bridged;
using support::routed_pppoe;

void record_destroy(Gateway& gateway, const std::string& path) {
  gateway.record(IGD_OPERATION(igd_wan_destory), path);
}

void with_bound_ports(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  info.connection_class = kIgdRoutedAndBridged;
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN2"};
  record_destroy(gateway, gateway.create(info));
}

// A route of the connection, one of its route table, one through another connection, one of nobody.
void with_routes(Gateway& gateway) {
  const std::string path = gateway.create(routed_pppoe("1_INTERNET", 0));
  const std::string other = support::wan_path(1, 9);
  const std::pair<std::string, std::string> routes[] = {
      {path, ""}, {"", path}, {other, path}, {"", other}};
  for (const auto& [interface, table] : routes) {
    const std::string route_path = gateway.add(support::kRoutes);
    gateway.set(route_path + "Interface", interface);
    gateway.set(route_path + "X_ZYN_RouteTable", table);
  }
  record_destroy(gateway, path);
}

// Without a bridge of its own the connection takes the ports of every bridge with it.
void without_bridge(Gateway& gateway) {
  (void)gateway.create(bridged("1_OTHER", 100, {"LAN2"}));
  record_destroy(gateway, gateway.add_connection_device(1, {"Static", "DHCP", "PPP"}));
}

void without_lan_bridge(Gateway& gateway) {
  const std::string path = gateway.create(bridged("1_OTHER", 100, {"LAN2"}));
  gateway.remove(gateway.bridge_named("internet"));
  record_destroy(gateway, path);
}

void without_dhcp_and_ppp_objects(Gateway& gateway) {
  const std::string path = gateway.add_connection_device(1, {"Static"});
  gateway.add_port(gateway.add_bridge("br_1_1", path), "LAN0");
  record_destroy(gateway, path);
}

void failing_to_give_back(Gateway& gateway, int nth) {
  const std::string path = gateway.create(support::bridged("1_OTHER", 100, {"LAN1", "LAN2"}));
  gateway.note_writes_only();
  gateway.fail_add(nth);
  gateway.record(IGD_OPERATION(igd_wan_destory), path);
}

void may_the_only_internet_go(Gateway& gateway) {
  const std::string path = gateway.create(routed_pppoe("1_INTERNET", 100));
  (void)gateway.create(support::dhcp_management("2_TR069", 46));
  gateway.record(IGD_OPERATION(igd_verify_can_remove_wan), path);
}

void may_one_of_two_others_go(Gateway& gateway) {
  (void)gateway.create(bridged("1_OTHER", 100, {}));
  (void)gateway.create(support::dhcp_management("2_TR069", 46));
  const std::string path = gateway.create(bridged("3_OTHER", 200, {}));
  gateway.record(IGD_OPERATION(igd_verify_can_remove_wan), path);
}

}  // namespace

Scenarios remove_scenarios() {
  return {
      {"remove_with_bound_ports", with_bound_ports},
      {"remove_with_routes", with_routes},
      {"remove_without_bridge", without_bridge, Refusals::kExpected},
      {"remove_without_lan_bridge", without_lan_bridge, Refusals::kExpected},
      {"remove_without_dhcp_and_ppp_objects", without_dhcp_and_ppp_objects, Refusals::kExpected},
      {"remove_add_1_fails", [](Gateway& gateway) { failing_to_give_back(gateway, 1); },
       Refusals::kExpected},
      {"remove_add_2_fails", [](Gateway& gateway) { failing_to_give_back(gateway, 2); },
       Refusals::kExpected},
      {"remove_check_of_the_only_internet", may_the_only_internet_go},
      {"remove_check_of_one_of_two_others", may_one_of_two_others_go},
  };
}

}  // namespace transcripts
