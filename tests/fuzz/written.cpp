#include "written.h"

#include <utility>

#include "harness.h"

namespace fuzz {
namespace {

std::string as_buffer_keeps(const std::string& text) {
  const std::string cut = text.substr(0, 255);
  return cut.substr(0, cut.find('\0'));
}

// Up to the first comma, and from there to the next.
std::pair<std::string, std::string> first_two(const std::string& servers) {
  const std::size_t comma = servers.find(',');
  if (comma == std::string::npos) return {servers, ""};
  const std::string second = servers.substr(comma + 1);
  return {servers.substr(0, comma), second.substr(0, second.find(','))};
}

bool has_known_mode(const api_wan_info& info) {
  return info.connect_mode >= 1 && info.connect_mode <= 3;
}

void require_texts(const api_wan_info& is, const api_wan_info& written) {
  require_same(is.wan_info_name, as_buffer_keeps(written.wan_info_name), "the name comes back");
  require_same(is.service_type, written.service_type, "the services come back");
  require_same(is.pppoe_user_name, written.pppoe_user_name, "the account comes back");
  require_same(is.pppoe_password, written.pppoe_password, "the password comes back");
  require_same(is.pppoe_mtu, written.pppoe_mtu, "the MTU of PPP comes back");
  require_same(is.static_mtu, written.static_mtu, "the MTU of static addressing comes back");
  require_same(is.dhcp_mtu, written.dhcp_mtu, "the MTU of DHCP comes back");
  require_same(is.wan_enable, written.wan_enable, "the switch comes back");
  require_same(is.wan_remote_management_enable, written.wan_remote_management_enable,
               "remote management comes back");
  require_same(is.stp_enable, written.stp_enable, "the spanning tree comes back");
}

void require_addressing(const api_wan_info& is, const api_wan_info& written) {
  require(is.connect_mode == written.connect_mode, "the mode comes back");
  require(is.ip_dns_enable == (written.ip_dns_enable == 1 ? 1 : 0), "use of servers comes back");
  if (written.ip_dns_enable != 0) {
    const auto [first, second] =
        first_two(as_buffer_keeps(written.ip_dns1 + ',' + written.ip_dns2));
    require_same(is.ip_dns1, first, "the first server comes back");
    require_same(is.ip_dns2, second, "the second server comes back");
  }
  if (written.connect_mode == kIgdDhcp && written.connection_class >= 1 &&
      written.connection_class <= 3) {
    require_same(is.dhcp_option60, written.dhcp_option60, "option 60 comes back");
  }
  if (written.connect_mode != kIgdStatic) return;
  require_same(is.ip_addr, written.ip_addr, "the address comes back");
  require_same(is.ip_mask, written.ip_mask, "the mask comes back");
  require_same(is.ip_gw, written.ip_gw, "the default gateway comes back");
}

void require_codes(const api_wan_info& is, const api_wan_info& written) {
  require(is.nat_mode == (written.nat_mode == 1 ? 1 : 0), "NAT comes back");
  if (written.connection_class >= 1 && written.connection_class <= 3) {
    require(is.connection_class == written.connection_class, "the class comes back");
  }
  require(is.vlan_enable == (written.vlan_enable != 0 ? 1 : 0), "tagging comes back");
  require(is.vlan_id == (written.vlan_enable != 0 ? written.vlan_id : 0), "the VLAN comes back");
  if (written.vlan_enable != 0) {
    require(is.vlan_priority == written.vlan_priority, "the priority comes back");
  }
  const bool short_texts = is.ip_addr.size() < 16 && is.ip_mask.size() < 16 && is.ip_gw.size() < 16;
  require(is.protocol == (short_texts ? kIgdIpv4 : kIgdIpv6), "the protocol is that of the texts");
}

}  // namespace

void require_written(const api_wan_info& is, const api_wan_info& written) {
  require_texts(is, written);
  require_codes(is, written);
  if (has_known_mode(written)) require_addressing(is, written);
}

}  // namespace fuzz
