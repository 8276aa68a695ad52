#include <algorithm>
#include <cctype>

#include "create_rows.h"
#include "scenario.h"

namespace transcripts {
namespace {

api_wan_info description_of(const CreateRow& row) {
  api_wan_info info = support::routed_pppoe("1_INTERNET", row.tagged ? 100 : 0);
  info.vlan_priority = row.tagged ? 5 : 0;
  info.connection_class = row.connection_class;
  info.connect_mode = row.connect_mode;
  info.dhcp_option60 = "gateway";
  info.ip_addr = "203.0.113.2";
  info.ip_mask = "255.255.255.0";
  info.ip_gw = "203.0.113.1";
  info.ip_dns_enable = row.tagged ? 1 : 0;
  info.ip_dns1 = "203.0.113.53";
  info.ip_dns2 = "203.0.113.54";
  if (row.connection_class != kIgdBridged) info.bind_lan = {"LAN1", "WLAN1"};
  if (row.connection_class != kIgdRouted) info.bind_wan = {"LAN2"};
  return info;
}

void record_create(Gateway& gateway, const std::string& access_type, api_wan_info info) {
  gateway.record(IGD_OPERATION(igd_wan_create), access_type, &info);
}

Scenario scenario_of(const CreateRow& row) {
  return {name_of(row), [row](Gateway& gateway) {
            record_create(gateway, row.access_type, description_of(row));
          }};
}

void on_the_uplink_of_another(Gateway& gateway) {
  (void)gateway.create(support::dhcp_management("1_TR069", 46));
  record_create(gateway, "Ethernet", support::routed_pppoe("2_INTERNET", 100));
}

void with_the_name_of_another(Gateway& gateway) {
  (void)gateway.create(support::dhcp_management("1_TR069", 46));
  api_wan_info info = support::routed_pppoe("1_TR069", 46);
  record_create(gateway, "3G", std::move(info));
}

}  // namespace

std::string name_of(const CreateRow& row) {
  constexpr const char* kClassNames[] = {"routed", "bridged", "both"};
  constexpr const char* kModeNames[] = {"dhcp", "static", "pppoe"};
  std::string name = std::string("create_") + row.access_type + '_' +
                     kClassNames[row.connection_class - 1] + '_' +
                     kModeNames[row.connect_mode - 1] + (row.tagged ? "_tagged" : "_untagged");
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return name;
}

Scenarios create_scenarios() {
  Scenarios scenarios;
  for (const CreateRow& row : kCreateRows) scenarios.push_back(scenario_of(row));
  scenarios.push_back({"create_on_the_uplink_of_another", on_the_uplink_of_another});
  scenarios.push_back({"create_with_the_name_of_another", with_the_name_of_another});
  return scenarios;
}

}  // namespace transcripts
