// Names, indexes, and ports held by others.
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

void name_of_ip_connection(Gateway& gateway) {
  (void)two_connections(gateway);
  gateway.record(IGD_OPERATION(igd_wan_get_id_by_name), "1_INTERNET");
}

void name_of_ppp_connection(Gateway& gateway) {
  const std::string path = gateway.create(routed_pppoe("1_INTERNET", 100));
  gateway.set(path + "WANPPPConnection.1.Name", "dialled");
  gateway.record(IGD_OPERATION(igd_wan_get_id_by_name), "dialled");
}

void name_of_nobody(Gateway& gateway) {
  gateway.record(IGD_OPERATION(igd_wan_get_id_by_name), "nobody");
}

void check_owner_parameter(Gateway& gateway) {
  const std::string parameter = gateway.bridge_named("internet") + "X_ZYN_WANName";
  gateway.record(IGD_OPERATION(igd_check_wan_index), parameter);
}

void check_connection_path(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  gateway.record(IGD_OPERATION(igd_check_wan_index), path);
}

void verify_connection_path(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  gateway.record(IGD_OPERATION(igd_verify_is_wan_index), path);
}

void verify_wan_device_path(Gateway& gateway) {
  (void)two_connections(gateway);
  gateway.record(IGD_OPERATION(igd_verify_is_wan_index), "InternetGatewayDevice.WANDevice.1.");
}

void verify_connection_path_in_bridge(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  gateway.record(IGD_OPERATION(igd_verify_wan_index_in_bridge), path);
}

void ports_of_others(Gateway& gateway) {
  const std::string path = two_connections(gateway);
  std::vector<std::string> ports;
  gateway.record(IGD_OPERATION(igd_get_used_port_list), path, ports);
}

}  // namespace

Scenarios lookup_scenarios() {
  return {
      {"lookup_name_of_ip_connection", name_of_ip_connection},
      {"lookup_name_of_ppp_connection", name_of_ppp_connection},
      {"lookup_name_of_nobody", name_of_nobody},
      {"lookup_check_owner_parameter", check_owner_parameter},
      {"lookup_check_connection_path", check_connection_path},
      {"lookup_verify_connection_path", verify_connection_path},
      {"lookup_verify_wan_device_path", verify_wan_device_path},
      {"lookup_verify_connection_path_in_bridge", verify_connection_path_in_bridge},
      {"lookup_ports_of_others", ports_of_others},
  };
}

}  // namespace transcripts
