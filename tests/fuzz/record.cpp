#include "record.h"

namespace fuzz {
namespace {

constexpr int kMostPorts = 5;

// Mostly those that a gateway has.
std::vector<std::string> draw_ports(Input& input) {
  constexpr const char* kPorts[] = {"LAN1",  "LAN2",  "LAN3", "LAN4", "WLAN1",  "WLAN2",
                                    "WLAN3", "WLAN4", "LAN0", "3G0",  "WIFIW0", "LAN_DEFAULT1"};
  constexpr unsigned kCount = sizeof(kPorts) / sizeof(*kPorts);
  std::vector<std::string> ports;
  for (int count = input.below(kMostPorts + 1); count > 0; --count) {
    const unsigned chosen = input.byte() % (kCount + 2);
    ports.push_back(chosen < kCount ? kPorts[chosen] : input.text());
  }
  return ports;
}

// Mostly one of the codes that there are.
int draw_code(Input& input) { return input.byte() < 230 ? 1 + input.below(3) : input.number(); }

}  // namespace

api_wan_info draw_record(Input& input) {
  api_wan_info info;
  info.wan_info_name = input.text();
  info.vlan_enable = input.coin() ? 1 : input.number();
  info.vlan_id = input.number();
  info.vlan_priority = input.number();
  info.connection_class = draw_code(input);
  info.connect_mode = draw_code(input);
  info.bind_lan = draw_ports(input);
  info.bind_wan = draw_ports(input);
  info.nat_mode = input.number();
  info.dhcp_trans = input.number();
  info.ip_dns_enable = input.coin() ? 1 : input.number();
  for (std::string* const text :
       {&info.service_type, &info.pppoe_user_name, &info.pppoe_password, &info.pppoe_mtu,
        &info.static_mtu, &info.dhcp_mtu, &info.ip_addr, &info.ip_mask, &info.ip_gw, &info.ip_dns1,
        &info.ip_dns2, &info.dhcp_option60, &info.wan_enable, &info.wan_remote_management_enable,
        &info.stp_enable}) {
    *text = input.text();
  }
  for (const std::string& port : draw_ports(input)) info.port_option60[port] = input.text();
  return info;
}

}  // namespace fuzz
