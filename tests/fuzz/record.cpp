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

constexpr const char* kNames[] = {"A", "B", "C", ""};
constexpr int kVlans[] = {0, 100, 200, 1000, 4060, 4061};
constexpr const char* kServices[] = {"INTERNET", "TR069", "VOIP", "INTERNET_TR069", "MME", ""};
constexpr const char* kUsualPorts[] = {"LAN1",  "LAN2",  "LAN3",  "LAN4", "WLAN1",
                                       "WLAN2", "WLAN3", "WLAN4", "LAN5", "LAN0"};

template <typename Value, std::size_t kCount>
Value one_of(const Value (&values)[kCount], Input& input) {
  return values[input.byte() % kCount];
}

std::vector<std::string> draw_usual_ports(Input& input) {
  std::vector<std::string> ports;
  for (int count = input.below(4); count > 0; --count) ports.push_back(one_of(kUsualPorts, input));
  return ports;
}

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

api_wan_info draw_usual_record(Input& input) {
  api_wan_info info;
  info.wan_info_name = one_of(kNames, input);
  info.vlan_enable = input.below(3);
  info.vlan_id = one_of(kVlans, input);
  info.vlan_priority = input.below(8);
  info.connection_class = 1 + input.below(3);
  info.connect_mode = 1 + input.below(3);
  info.bind_lan = draw_usual_ports(input);
  info.bind_wan = draw_usual_ports(input);
  info.service_type = one_of(kServices, input);
  info.nat_mode = input.below(3);
  info.ip_dns_enable = input.below(3);
  info.pppoe_user_name = one_of({"user@isp", "other@isp"}, input);
  info.ip_addr = one_of({"203.0.113.7", "2001:db8:0:0:0:0:0:1"}, input);
  info.ip_dns1 = "198.51.100.1";
  info.wan_enable = input.coin() ? "true" : "false";
  for (const std::string& port : draw_usual_ports(input)) info.port_option60[port] = "of " + port;
  return info;
}

}  // namespace fuzz
