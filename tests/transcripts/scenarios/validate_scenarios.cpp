// What the check of a description reads, and where it stops.
#include "scenario.h"

namespace transcripts {
namespace {

constexpr int kAllPorts = 255;

using support::bridged;
using support::routed_pppoe;

void record_check(Gateway& gateway, const std::string& path, api_wan_info info) {
  gateway.record(IGD_OPERATION(igd_verify_new_wan_info_valid), path, &info, kAllPorts);
}

void new_one_fits(Gateway& gateway) {
  (void)gateway.create(bridged("1_OTHER", 100, {"LAN2"}));
  api_wan_info info = bridged("2_OTHER", 200, {"LAN3"});
  info.bind_lan = {"LAN1", "LAN9"};
  record_check(gateway, "", info);
}

// A routed connection takes no port, so none is counted.
void routed_one_fits(Gateway& gateway) { record_check(gateway, "", routed_pppoe("NEW", 200)); }

void vlan_is_taken(Gateway& gateway) {
  (void)gateway.create(routed_pppoe("1_INTERNET", 100));
  record_check(gateway, "", routed_pppoe("2_INTERNET", 100));
}

void second_management(Gateway& gateway) {
  (void)gateway.create(routed_pppoe("1_INTERNET", 100));
  (void)gateway.create(support::dhcp_management("2_TR069", 46));
  record_check(gateway, "", support::dhcp_management("3_TR069", 47));
}

void management_keeps_its_ports(Gateway& gateway) {
  const std::string path = gateway.create(support::dhcp_management("1_TR069", 46));
  api_wan_info info = support::dhcp_management("1_TR069", 46);
  info.bind_wan = {"LAN1"};
  record_check(gateway, path, info);
}

void port_of_another(Gateway& gateway) {
  api_wan_info other = routed_pppoe("1_INTERNET", 100);
  other.bind_lan = {"LAN3"};
  (void)gateway.create(other);
  const std::string path = gateway.create(bridged("2_OTHER", 200, {"LAN2"}));
  api_wan_info info = bridged("2_OTHER", 200, {"LAN2", "LAN3", "LAN4"});
  record_check(gateway, path, info);
}

void last_free_port(Gateway& gateway) {
  (void)gateway.create(bridged("1_OTHER", 100, {"LAN1", "LAN2", "LAN3", "LAN4"}));
  record_check(gateway, "", bridged("2_OTHER", 200, {"WLAN1", "WLAN2", "WLAN3", "WLAN4"}));
}

}  // namespace

Scenarios validate_scenarios() {
  return {
      {"validate_new_one_fits", new_one_fits},
      {"validate_routed_one_fits", routed_one_fits},
      {"validate_vlan_is_taken", vlan_is_taken},
      {"validate_second_management", second_management},
      {"validate_management_keeps_its_ports", management_keeps_its_ports},
      {"validate_port_of_another", port_of_another},
      {"validate_last_free_port", last_free_port},
  };
}

}  // namespace transcripts
