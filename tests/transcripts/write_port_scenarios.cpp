// Writing over an existing connection: ports that move, and what new ports get.
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
  gateway.record([&] { return igd_wan_set_params(path, &after); });
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
  };
}

}  // namespace transcripts
