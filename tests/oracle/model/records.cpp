// The records that steps describe.
#include "step.h"

namespace model {
namespace {

void set_plain_texts(api_wan_info& info) {
  info.pppoe_user_name = "user@isp";
  info.pppoe_password = "secret";
  info.pppoe_mtu = "1492";
  info.static_mtu = "1500";
  info.dhcp_mtu = "1480";
  info.ip_addr = "203.0.113.7";
  info.ip_mask = "255.255.255.0";
  info.ip_gw = "203.0.113.1";
  info.ip_dns1 = "198.51.100.1";
  info.ip_dns2 = "198.51.100.2";
  info.dhcp_option60 = "gateway";
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "false";
}

void set_other_texts(api_wan_info& info) {
  set_plain_texts(info);
  info.pppoe_user_name = "other@isp";
  info.pppoe_password = "other secret";
  info.static_mtu = "1400";
  info.ip_addr = "203.0.113.8";
  info.ip_dns2.clear();
  info.dhcp_option60.clear();
  info.wan_enable = "false";
  info.wan_remote_management_enable = "true";
  info.stp_enable = "true";
}

void set_texts(api_wan_info& info, const std::string& kind) {
  if (kind == "plain" || kind == "ipv6" || kind.size() > 100) set_plain_texts(info);
  if (kind == "other") set_other_texts(info);
  if (kind == "ipv6") info.ip_addr = "2001:db8:0:0:0:0:0:1";
  if (kind.size() > 100) {
    info.ip_dns1 = std::string(200, '1');
    info.ip_dns2 = std::string(200, '2');
    info.dhcp_option60 = std::string(300, 'o');
    info.pppoe_user_name = kind;
  }
}

}  // namespace

api_wan_info record_of(const Step& step) {
  api_wan_info info;
  info.wan_info_name = step.text(Field::kName);
  info.vlan_enable = step.number(Field::kTagging);
  info.vlan_id = step.number(Field::kVlan);
  info.vlan_priority = step.number(Field::kPriority);
  info.connection_class = step.number(Field::kClass);
  info.connect_mode = step.number(Field::kMode);
  info.bind_lan = step.list(Field::kBindLan);
  info.bind_wan = step.list(Field::kBindWan);
  info.service_type = step.text(Field::kServices);
  info.nat_mode = step.number(Field::kNat);
  info.ip_dns_enable = step.number(Field::kDns);
  set_texts(info, step.text(Field::kTexts));
  for (const std::string& node : step.list(Field::kOptions)) {
    info.port_option60[node] = "option of " + node;
  }
  return info;
}

api_route_info route_of(const Step& step) {
  return {step.text(Field::kDestination), step.text(Field::kNetmask), step.number(Field::kEnabled),
          step.number(Field::kRouteType), step.text(Field::kName),    step.text(Field::kGateway)};
}

api_mng_server_info management_of(const Step& step) {
  const std::string kind = step.text(Field::kTexts);
  return {kind + ".url", kind + ".user", kind, kind + ".back", kind + ".name", kind + ".word"};
}

}  // namespace model
