// Names, indexes, ports held by others, and one value for all objects of a connection.
#include "scenario.h"

namespace transcripts {
namespace {

using support::routed_pppoe;

std::string two_connections(Gateway& gateway) {
  api_wan_info other = routed_pppoe("2_INTERNET", 200);
  other.connection_class = kIgdRoutedAndBridged;
  other.bind_lan = {"LAN1"};
  other.bind_wan = {"LAN2"};
  (void)gateway.create(other);
  return gateway.create(routed_pppoe("1_INTERNET", 100));
}

void record_set_all(Gateway& gateway, const std::string& path, const std::string& node) {
  gateway.record([&] { igd_set_wan_all_value(path, node, "true"); });
}

void set_all_below_dhcp(Gateway& gateway) {
  const std::string path = gateway.create(routed_pppoe("1_INTERNET", 100));
  record_set_all(gateway, path, path + "WANIPConnection.2.Reset");
}

void set_all_elsewhere(Gateway& gateway) {
  const std::string path = gateway.create(routed_pppoe("1_INTERNET", 100));
  record_set_all(gateway, path, path + "X_CT-COM_Enable");
}

void set_all_without_ppp_object(Gateway& gateway) {
  const std::string path = gateway.add_connection_device(1, {"Static", "DHCP"});
  record_set_all(gateway, path, path + "WANIPConnection.1.Reset");
}

void find_name_of_ip_connection(Gateway& gateway) {
  (void)two_connections(gateway);
  gateway.record([] { return igd_wan_get_id_by_name("1_INTERNET"); });
}

void find_name_of_ppp_connection(Gateway& gateway) {
  const std::string path = gateway.create(routed_pppoe("1_INTERNET", 100));
  gateway.set(path + "WANPPPConnection.1.Name", "dialled");
  gateway.record([] { return igd_wan_get_id_by_name("dialled"); });
}

void find_name_of_nobody(Gateway& gateway) {
  gateway.record([] { return igd_wan_get_id_by_name("nobody"); });
}

void check_name_of_owner_parameter(Gateway& gateway) {
  const std::string parameter = gateway.bridge_named("internet") + "X_ZYN_WANName";
  gateway.record([&] { return igd_check_wan_index(parameter); });
}

void check_connection_path(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  gateway.record([&] { return igd_check_wan_index(path); });
}

void verify_connection_path(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  gateway.record([&] { return igd_verify_is_wan_index(path); });
}

void verify_wan_device_path(Gateway& gateway) {
  (void)two_connections(gateway);
  gateway.record([] { return igd_verify_is_wan_index("InternetGatewayDevice.WANDevice.1."); });
}

void verify_connection_path_without_tests(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  gateway.record([&] { return igd_verify_wan_index_in_bridge(path); });
}

void ports_of_others(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  std::vector<std::string> ports;
  gateway.record([&] { return igd_get_used_port_list(path, ports); });
}

void save_binding(Gateway& gateway) {
  const std::string path = gateway.create(routed_pppoe("1_INTERNET", 100));
  api_wan_info info;
  info.bind_lan = {"LAN0", "LAN2"};
  info.bind_wan = {"WLAN1"};
  gateway.record([&] { saveLanInterfaceToWanNode(path, &info); });
}

void save_binding_that_is_there(Gateway& gateway) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  info.bind_lan = {"LAN1"};
  const std::string path = gateway.create(info);
  gateway.set(path + "WANIPConnection.2.X_CT-COM_LanInterface", "LAN4");
  gateway.record([&] { saveLanInterfaceToWanNode(path, &info); });
}

void save_binding_without_objects(Gateway& gateway) {
  const std::string path = gateway.add_connection_device(1, {"DHCP"});
  api_wan_info info;
  info.bind_lan = {"LAN1"};
  gateway.record([&] { saveLanInterfaceToWanNode(path, &info); });
}

}  // namespace

Scenarios lookup_scenarios() {
  return {
      {"set_all_below_dhcp", set_all_below_dhcp},
      {"set_all_elsewhere", set_all_elsewhere},
      {"set_all_without_ppp_object", set_all_without_ppp_object},
      {"find_name_of_ip_connection", find_name_of_ip_connection},
      {"find_name_of_ppp_connection", find_name_of_ppp_connection},
      {"find_name_of_nobody", find_name_of_nobody},
      {"check_name_of_owner_parameter", check_name_of_owner_parameter},
      {"check_connection_path", check_connection_path},
      {"verify_connection_path", verify_connection_path},
      {"verify_wan_device_path", verify_wan_device_path},
      {"verify_connection_path_without_tests", verify_connection_path_without_tests},
      {"ports_of_others", ports_of_others},
      {"save_binding", save_binding},
      {"save_binding_that_is_there", save_binding_that_is_there},
      {"save_binding_without_objects", save_binding_without_objects, Refusals::kExpected},
  };
}

}  // namespace transcripts
