#include "shown.h"

#include <sstream>

namespace model {
namespace {

std::string shown(const std::map<std::string, std::string>& texts) {
  std::string all;
  for (const auto& [key, value] : texts) all.append(key).append(":").append(value).append(" ");
  return all;
}

}  // namespace

std::string shown(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all += (all.empty() ? "" : ",") + name;
  return all;
}

std::string shown(const api_wan_info& info) {
  std::ostringstream out;
  out << "\nname=" << info.wan_info_name << "\ntagging=" << info.vlan_enable
      << "\nvlan=" << info.vlan_id << "\npriority=" << info.vlan_priority
      << "\nclass=" << info.connection_class << "\nbind_lan=" << shown(info.bind_lan)
      << "\nbind_wan=" << shown(info.bind_wan) << "\nservices=" << info.service_type
      << "\ndhcp_trans=" << info.dhcp_trans << "\nnat=" << info.nat_mode
      << "\nmode=" << info.connect_mode << "\nuser=" << info.pppoe_user_name
      << "\npassword=" << info.pppoe_password << "\nmtus=" << info.pppoe_mtu << ' '
      << info.static_mtu << ' ' << info.dhcp_mtu << "\nprotocol=" << info.protocol
      << "\naddress=" << info.ip_addr << ' ' << info.ip_mask << ' ' << info.ip_gw
      << "\ndns=" << info.ip_dns_enable << ' ' << info.ip_dns1 << ' ' << info.ip_dns2
      << "\ndhcp_dns=" << info.dhcp_dns_enable << ' ' << info.dhcp_dns1 << ' ' << info.dhcp_dns2
      << "\nstatic_dns=" << info.static_dns_enable << ' ' << info.static_dns1 << ' '
      << info.static_dns2 << "\noption60=" << info.dhcp_option60 << "\nenable=" << info.wan_enable
      << "\nremote=" << info.wan_remote_management_enable << "\nstp=" << info.stp_enable
      << "\noptions=" << shown(info.port_option60) << "\nlan=" << info.lan_vlan_enable << ' '
      << info.lan_vlan_id << '\n';
  return out.str();
}

std::string shown(const api_wan_status& status) {
  std::ostringstream out;
  out << "\nname=" << status.name << "\nconnected=" << status.connected
      << "\nmac=" << status.mac_address << "\nmode=" << status.connect_mode
      << "\nservices=" << status.service_list << "\ntype=" << status.connection_type
      << "\naddress=" << status.ip_addr << ' ' << status.ip_mask << ' ' << status.ip_gw
      << "\ndns=" << status.ip_dns << "\ncounters=" << status.bytes_sent << ' '
      << status.bytes_received << ' ' << status.packets_sent << ' ' << status.packets_received
      << "\nuptime=" << status.uptime << "\nerror=" << status.last_connection_error << '\n';
  return out.str();
}

std::string shown(const api_route_info& route) {
  std::ostringstream out;
  out << "\nto " << route.dest_ip << '/' << route.dest_mask << " enabled=" << route.enable
      << " type=" << route.route_type
      << " interface=" << route.interface << " gateway=" << route.gateway;
  return out.str();
}

std::string shown(const api_mng_server_info& info) {
  return info.url + ' ' + info.username + ' ' + info.password + ' ' + info.connection_request_url +
         ' ' + info.connection_request_username + ' ' + info.connection_request_password;
}

api_wan_info unread_record() {
  api_wan_info info;
  info.connection_class = 77;
  info.connect_mode = 78;
  info.dhcp_trans = 79;
  info.ip_dns_enable = 80;
  info.ip_dns1 = "dns1 unread";
  info.ip_dns2 = "dns2 unread";
  info.dhcp_dns1 = "dhcp dns unread";
  info.static_dns2 = "static dns unread";
  info.dhcp_option60 = "option unread";
  info.bind_lan = {"unread"};
  info.bind_wan = {"unread"};
  info.port_option60["LAN4"] = "unread";
  return info;
}

api_wan_status unread_status() {
  api_wan_status status;
  status.connected = 77;
  status.connect_mode = 78;
  status.ip_addr = "address unread";
  status.ip_mask = "mask unread";
  status.ip_gw = "gateway unread";
  status.ip_dns = "dns unread";
  status.last_connection_error = "error unread";
  return status;
}

}  // namespace model
