// Settings of the device, and operations that never ask the tree.
#include <array>

#include "igd_common.h"
#include "scenario.h"

namespace transcripts {
namespace {

void management_set(Gateway& gateway) {
  api_mng_server_info info = {"http://acs.example/", "user", "", "http://192.0.2.1/", "acs", "key"};
  gateway.record([&] { return igd_mng_server_set_params(&info); });
}

void management_get(Gateway& gateway) {
  gateway.set("InternetGatewayDevice.ManagementServer.URL", "http://acs.example/");
  api_mng_server_info info;
  gateway.record([&] { return igd_mng_server_get_params(&info); });
}

void lan_address(Gateway& gateway) {
  gateway.record([] { return igd_c_get_lan_ipaddr(); });
}

void l3_names(Gateway& gateway) {
  std::array<char, 16> buffer = {};
  gateway.record([&] {
    igd_c_set_l3_name("wan1", "ppp0");
    igd_c_get_l3_name("wan1", buffer.data(), buffer.size());
    return std::string(buffer.data());
  });
}

void record_dump(Gateway& gateway) {
  api_wan_info info = support::dhcp_management("1_TR069", 46);
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN2"};
  info.dhcp_trans = 6;
  info.nat_mode = 1;
  gateway.record([&] { return igd_wan_print_params(&info); });
}

void physical_name_with_suffix(Gateway& gateway) {
  gateway.record([] { return std::string(getPhyName("LAN2", 1, 100, nullptr)); });
}

}  // namespace

Scenarios settings_scenarios() {
  return {
      {"management_set", management_set}, {"management_get", management_get},
      {"lan_address", lan_address},       {"l3_names", l3_names},
      {"record_dump", record_dump},       {"physical_name_with_suffix", physical_name_with_suffix},
  };
}

}  // namespace transcripts
