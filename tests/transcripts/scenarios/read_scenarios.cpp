// Reading a connection and its run-time state.
#include "scenario.h"

namespace transcripts {
namespace {

void record_read(Gateway& gateway, const std::string& path) {
  api_wan_info info;
  gateway.record(IGD_OPERATION(igd_wan_get_params), path, &info);
}

void read_in_mode(Gateway& gateway, IgdConnectMode mode) {
  api_wan_info info = support::routed_pppoe("1_INTERNET", 100);
  info.connect_mode = mode;
  info.ip_addr = "203.0.113.2";
  info.ip_mask = "255.255.255.0";
  info.ip_gw = "203.0.113.1";
  info.dhcp_option60 = "gateway";
  info.ip_dns_enable = 1;
  info.ip_dns1 = "203.0.113.53";
  info.ip_dns2 = "203.0.113.54";
  record_read(gateway, gateway.create(info));
}

void read_none_enabled(Gateway& gateway) {
  api_wan_info info = support::routed_pppoe("1_INTERNET", 0);
  info.connect_mode = 0;
  record_read(gateway, gateway.create(info));
}

void read_ports_and_option60(Gateway& gateway) {
  api_wan_info info = support::bridged("1_OTHER", 100, {"LAN2", "LAN3"});
  info.bind_lan = {"LAN1"};
  info.port_option60 = {{"LAN3", "stb"}};
  record_read(gateway, gateway.create(info));
}

void read_for_the_first_time(Gateway& gateway) {
  const std::string path = gateway.create(support::dhcp_management("1_TR069", 46));
  gateway.forget_cache();
  record_read(gateway, path);
}

void read_index_that_names_nothing(Gateway& gateway) {
  record_read(gateway, support::wan_path(7, 8));
}

struct StatusSetting {
  const char* object;  // "WANIPConnection.1."
  const char* parameter;
  const char* value;
};

void record_status(Gateway& gateway, IgdConnectMode mode,
                   const std::vector<StatusSetting>& settings) {
  api_wan_info info = support::routed_pppoe("1_INTERNET", 100);
  info.connect_mode = mode;
  const std::string path = gateway.create(info);
  for (const StatusSetting& row : settings) {
    gateway.set(path + row.object + row.parameter, row.value);
  }
  api_wan_status status;
  gateway.record(IGD_OPERATION(igd_wan_status), path, &status);
}

void status_dhcp_connected(Gateway& gateway) {
  record_status(gateway, kIgdDhcp,
                {{"WANIPConnection.2.", "X_CT-COM_ActiveExternalIPAddress", "203.0.113.9"},
                 {"WANIPConnection.2.", "ExternalIPAddress", "203.0.113.9"}});
}

void status_static_unconnected(Gateway& gateway) { record_status(gateway, kIgdStatic, {}); }

void status_pppoe_connected(Gateway& gateway) {
  record_status(gateway, kIgdPppoe,
                {{"WANPPPConnection.1.", "ExternalIPAddress", "203.0.113.9"},
                 {"WANPPPConnection.1.", "RemoteIPAddress", "203.0.113.1"}});
}

void status_pppoe_unconnected(Gateway& gateway) {
  record_status(gateway, kIgdPppoe, {{"WANPPPConnection.1.", "ExternalIPAddress", "0.0.0.0"}});
}

void status_none_enabled(Gateway& gateway) {
  record_status(gateway, kIgdPppoe, {{"WANPPPConnection.1.", "Enable", "false"}});
}

}  // namespace

Scenarios read_scenarios() {
  return {
      {"read_dhcp", [](Gateway& gateway) { read_in_mode(gateway, kIgdDhcp); }},
      {"read_static", [](Gateway& gateway) { read_in_mode(gateway, kIgdStatic); }},
      {"read_pppoe", [](Gateway& gateway) { read_in_mode(gateway, kIgdPppoe); }},
      {"read_none_enabled", read_none_enabled},
      {"read_ports_and_option60", read_ports_and_option60},
      {"read_for_the_first_time", read_for_the_first_time},
      {"read_index_that_names_nothing", read_index_that_names_nothing},
      {"read_status_dhcp_connected", status_dhcp_connected},
      {"read_status_static_unconnected", status_static_unconnected},
      {"read_status_pppoe_connected", status_pppoe_connected},
      {"read_status_pppoe_unconnected", status_pppoe_unconnected},
      {"read_status_none_enabled", status_none_enabled},
  };
}

}  // namespace transcripts
