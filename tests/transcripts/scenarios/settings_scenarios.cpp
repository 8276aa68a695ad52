// Settings of the device, one value for all objects of a connection, and operations that never ask
// the tree.
#include <array>

#include "igd_common.h"
#include "scenario.h"

namespace transcripts {
namespace {

void management_set(Gateway& gateway) {
  api_mng_server_info info = {"http://acs.example/", "user", "", "http://192.0.2.1/", "acs", "key"};
  gateway.record(IGD_OPERATION(igd_mng_server_set_params), &info);
}

void management_get(Gateway& gateway) {
  gateway.set("InternetGatewayDevice.ManagementServer.URL", "http://acs.example/");
  api_mng_server_info info;
  gateway.record(IGD_OPERATION(igd_mng_server_get_params), &info);
}

void lan_address(Gateway& gateway) { gateway.record(IGD_OPERATION(igd_c_get_lan_ipaddr)); }

std::string l3_name_once_set(const char* key, const char* name) {
  std::array<char, 16> buffer = {};
  igd_c_set_l3_name(key, name);
  igd_c_get_l3_name(key, buffer.data(), buffer.size());
  return buffer.data();
}

void l3_names(Gateway& gateway) {
  gateway.record("igd_c_set_l3_name, then igd_c_get_l3_name", l3_name_once_set, "wan1", "ppp0");
}

void record_dump(Gateway& gateway) {
  api_wan_info info = support::dhcp_management("1_TR069", 46);
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN2"};
  info.dhcp_trans = 6;
  info.nat_mode = 1;
  gateway.record(IGD_OPERATION(igd_wan_print_params), &info);
}

void physical_name_with_suffix(Gateway& gateway) {
  gateway.record(IGD_OPERATION(getPhyName), "LAN2", 1, 100, nullptr);
}

void record_write_all(Gateway& gateway, const std::string& path, const std::string& node) {
  gateway.record(IGD_OPERATION(igd_set_wan_all_value), path, node, "true");
}

void all_objects_below_dhcp(Gateway& gateway) {
  const std::string path = gateway.create(support::routed_pppoe("1_INTERNET", 100));
  record_write_all(gateway, path, path + "WANIPConnection.2.Reset");
}

void all_objects_elsewhere(Gateway& gateway) {
  const std::string path = gateway.create(support::routed_pppoe("1_INTERNET", 100));
  record_write_all(gateway, path, path + "X_CT-COM_Enable");
}

void all_objects_without_ppp(Gateway& gateway) {
  const std::string path = gateway.add_connection_device(1, {"Static", "DHCP"});
  record_write_all(gateway, path, path + "WANIPConnection.1.Reset");
}

}  // namespace

Scenarios settings_scenarios() {
  return {
      {"settings_set_management_server", management_set},
      {"settings_get_management_server", management_get},
      {"settings_lan_address", lan_address},
      {"settings_l3_names", l3_names},
      {"settings_record_dump", record_dump},
      {"settings_physical_name_with_suffix", physical_name_with_suffix},
      {"settings_all_objects_below_dhcp", all_objects_below_dhcp},
      {"settings_all_objects_elsewhere", all_objects_elsewhere},
      {"settings_all_objects_without_ppp", all_objects_without_ppp},
  };
}

}  // namespace transcripts
