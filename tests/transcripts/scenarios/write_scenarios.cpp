// Writing over an existing connection: class, VLAN, mode, routes and texts.
#include "scenario.h"

namespace transcripts {
namespace {

using support::bridged;
using support::routed_pppoe;

void record_write(Gateway& gateway, const std::string& path, api_wan_info info) {
  gateway.record(IGD_OPERATION(igd_wan_set_params), path, &info);
}

void add_route(Gateway& gateway, const std::string& interface, const std::string& table) {
  const std::string route_path = gateway.add(support::kRoutes);
  gateway.set(route_path + "Interface", interface);
  gateway.set(route_path + "X_ZYN_RouteTable", table);
}

void nothing_changed(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  info.bind_lan = {"LAN1"};
  record_write(gateway, gateway.create(info), info);
}

void routed_to_bridged_with_routes(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  const std::string path = gateway.create(info);
  add_route(gateway, path, "");
  add_route(gateway, "", path);
  add_route(gateway, support::wan_path(1, 9), path);
  add_route(gateway, "", "");
  info.connection_class = kIgdBridged;
  record_write(gateway, path, info);
}

void bridged_to_routed_with_route(Gateway& gateway) {
  api_wan_info info = bridged("1_OTHER", 100, {"LAN2"});
  const std::string path = gateway.create(info);
  add_route(gateway, path, "");
  info.connection_class = kIgdRouted;
  record_write(gateway, path, info);
}

void routed_to_both(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  const std::string path = gateway.create(info);
  info.connection_class = kIgdRoutedAndBridged;
  record_write(gateway, path, info);
}

void both_to_bridged_with_route(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  info.connection_class = kIgdRoutedAndBridged;
  const std::string path = gateway.create(info);
  add_route(gateway, path, "");
  info.connection_class = kIgdBridged;
  record_write(gateway, path, info);
}

void vlan_changed(Gateway& gateway) {
  api_wan_info info = bridged("1_OTHER", 100, {"LAN2"});
  const std::string path = gateway.create(info);
  info.vlan_id = 200;
  info.vlan_priority = 3;
  record_write(gateway, path, info);
}

void tagged_to_untagged(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  const std::string path = gateway.create(info);
  info.vlan_enable = 0;
  info.vlan_id = 0;
  record_write(gateway, path, info);
}

void untagged_to_tagged(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  const std::string path = gateway.create(info);
  info.vlan_enable = 1;
  info.vlan_id = 100;
  record_write(gateway, path, info);
}

void untagged_to_tagged_in_another_link_mode(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  const std::string path = gateway.create(info);
  gateway.set(path + "WANEthernetLinkConfig.X_CT-COM_Mode", "2");
  info.vlan_enable = 1;
  info.vlan_id = 100;
  record_write(gateway, path, info);
}

void mode_dhcp_to_static_with_servers(Gateway& gateway) {
  api_wan_info info = support::dhcp_management("1_TR069", 46);
  const std::string path = gateway.create(info);
  info.connect_mode = kIgdStatic;
  info.ip_addr = "198.51.100.7";
  info.ip_mask = "255.255.255.128";
  info.ip_gw = "198.51.100.1";
  info.ip_dns_enable = 2;  // neither 0 nor 1: not enabled, and still written
  info.ip_dns1 = "198.51.100.2";
  record_write(gateway, path, info);
}

void mode_outside_the_three(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  const std::string path = gateway.create(info);
  info.connect_mode = 4;
  info.ip_dns_enable = 1;
  record_write(gateway, path, info);
}

void unknown_class(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  const std::string path = gateway.create(info);
  info.connection_class = 7;
  record_write(gateway, path, info);
}

void index_that_names_nothing(Gateway& gateway) {
  record_write(gateway, support::wan_path(7, 8), routed_pppoe("1_INTERNET", 100));
}

void texts_longer_than_255(Gateway& gateway) {
  api_wan_info info = support::dhcp_management("1_TR069", 46);
  const std::string path = gateway.create(info);
  info.wan_info_name = std::string(256, 'n');
  info.service_type = std::string(256, 's');
  info.ip_dns_enable = 1;
  info.ip_dns1 = std::string(200, '1');
  info.ip_dns2 = std::string(200, '2');
  record_write(gateway, path, info);
}

}  // namespace

Scenarios write_scenarios() {
  return {
      {"write_nothing_changed", nothing_changed},
      {"write_routed_to_bridged_with_routes", routed_to_bridged_with_routes},
      {"write_bridged_to_routed_with_route", bridged_to_routed_with_route},
      {"write_routed_to_both", routed_to_both},
      {"write_both_to_bridged_with_route", both_to_bridged_with_route},
      {"write_vlan_changed", vlan_changed},
      {"write_tagged_to_untagged", tagged_to_untagged},
      {"write_untagged_to_tagged", untagged_to_tagged},
      {"write_untagged_to_tagged_in_another_link_mode", untagged_to_tagged_in_another_link_mode},
      {"write_mode_dhcp_to_static_with_servers", mode_dhcp_to_static_with_servers},
      {"write_mode_outside_the_three", mode_outside_the_three},
      {"write_unknown_class", unknown_class},
      {"write_index_that_names_nothing", index_that_names_nothing, Refusals::kExpected},
      {"write_texts_longer_than_255", texts_longer_than_255},
  };
}

}  // namespace transcripts
