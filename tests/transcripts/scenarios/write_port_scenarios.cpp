// Writing over an existing connection: ports that move, what new ports get, and the list of
// bound ports by itself.
#include "scenario.h"

namespace transcripts {
namespace {

using Nodes = std::vector<std::string>;

api_wan_info with_ports(const Nodes& bind_lan, const Nodes& bind_wan) {
  api_wan_info info = support::routed_pppoe("1_INTERNET", 100);
  info.connection_class = kIgdRoutedAndBridged;
  info.bind_lan = bind_lan;
  info.bind_wan = bind_wan;
  return info;
}

void record_move(Gateway& gateway, const api_wan_info& before, api_wan_info after) {
  const std::string path = gateway.create(before);
  gateway.record(IGD_OPERATION(igd_wan_set_params), path, &after);
}

void from_lan_to_wan(Gateway& gateway) {
  record_move(gateway, with_ports({"LAN1", "LAN2"}, {}), with_ports({"LAN1"}, {"LAN2"}));
}

void from_wan_to_lan(Gateway& gateway) {
  record_move(gateway, with_ports({}, {"LAN2", "WLAN2"}), with_ports({"WLAN2"}, {"LAN2"}));
}

void released(Gateway& gateway) {
  record_move(gateway, with_ports({"LAN1"}, {"LAN3"}), with_ports({}, {}));
}

void taken_into_both_lists(Gateway& gateway) {
  record_move(gateway, with_ports({}, {}), with_ports({"LAN4"}, {"LAN4"}));
}

void unknown_to_the_gateway(Gateway& gateway) {
  record_move(gateway, with_ports({}, {}), with_ports({"LAN0", "USB9"}, {}));
}

void bound_to_another_connection(Gateway& gateway) {
  api_wan_info other = support::routed_pppoe("2_INTERNET", 200);
  other.bind_lan = {"LAN1"};
  (void)gateway.create(other);
  record_move(gateway, with_ports({}, {}), with_ports({}, {"LAN1"}));
}

// Wireless ports lend no VLAN: the second one gets a free identifier of its own.
void second_wireless_port(Gateway& gateway) {
  record_move(gateway, with_ports({"WLAN1"}, {}), with_ports({"WLAN1", "WLAN2"}, {}));
}

void second_switched_port(Gateway& gateway) {
  record_move(gateway, with_ports({"LAN1"}, {}), with_ports({"LAN1", "LAN2"}, {}));
}

void with_option60(Gateway& gateway) {
  api_wan_info after = with_ports({}, {"LAN2", "LAN3"});
  after.port_option60 = {{"LAN2", "stb"}, {"WLAN9", "none"}};
  record_move(gateway, with_ports({}, {"LAN2"}), after);
}

void without_lan_bridge(Gateway& gateway) {
  gateway.remove(gateway.bridge_named("internet"));
  api_wan_info after = with_ports({"LAN1"}, {});
  after.connection_class = kIgdRouted;
  record_move(gateway, support::bridged("1_INTERNET", 100, {}), after);
}

// A tree without LAN bridge: the write makes it, then binds a port in it.
void without_lan_bridge_failing_add(Gateway& gateway, int nth) {
  gateway.remove(gateway.bridge_named("internet"));
  api_wan_info info = support::bridged("1_OTHER", 100, {});
  const std::string path = gateway.create(info);
  info.connection_class = kIgdRouted;
  info.bind_lan = {"LAN1"};
  gateway.note_writes_only();
  gateway.fail_add(nth);
  gateway.record(IGD_OPERATION(igd_wan_set_params), path, &info);
}

void binding(Gateway& gateway) {
  const std::string path = gateway.create(support::routed_pppoe("1_INTERNET", 100));
  api_wan_info info;
  info.bind_lan = {"LAN0", "LAN2"};
  info.bind_wan = {"WLAN1"};
  gateway.record(IGD_OPERATION(saveLanInterfaceToWanNode), path, &info);
}

void binding_that_is_there(Gateway& gateway) {
  api_wan_info info = support::routed_pppoe("1_INTERNET", 100);
  info.bind_lan = {"LAN1"};
  const std::string path = gateway.create(info);
  gateway.set(path + "WANIPConnection.2.X_CT-COM_LanInterface", "LAN4");
  gateway.record(IGD_OPERATION(saveLanInterfaceToWanNode), path, &info);
}

void binding_without_objects(Gateway& gateway) {
  const std::string path = gateway.add_connection_device(1, {"DHCP"});
  api_wan_info info;
  info.bind_lan = {"LAN1"};
  gateway.record(IGD_OPERATION(saveLanInterfaceToWanNode), path, &info);
}

}  // namespace

Scenarios write_port_scenarios() {
  return {
      {"write_port_from_lan_to_wan", from_lan_to_wan},
      {"write_port_from_wan_to_lan", from_wan_to_lan},
      {"write_ports_released", released},
      {"write_port_taken_into_both_lists", taken_into_both_lists},
      {"write_ports_unknown_to_the_gateway", unknown_to_the_gateway},
      {"write_port_bound_to_another_connection", bound_to_another_connection},
      {"write_second_wireless_port", second_wireless_port},
      {"write_second_switched_port", second_switched_port},
      {"write_ports_with_option60", with_option60},
      {"write_ports_without_lan_bridge", without_lan_bridge},
      {"write_add_1_fails", [](Gateway& gateway) { without_lan_bridge_failing_add(gateway, 1); },
       Refusals::kExpected},
      {"write_add_2_fails", [](Gateway& gateway) { without_lan_bridge_failing_add(gateway, 2); },
       Refusals::kExpected},
      {"write_binding", binding},
      {"write_binding_that_is_there", binding_that_is_there},
      {"write_binding_without_objects", binding_without_objects, Refusals::kExpected},
  };
}

}  // namespace transcripts
