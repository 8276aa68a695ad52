#include "shown.h"

namespace operations {
namespace {

std::string line(const std::vector<std::string>& fields) {
  std::string text;
  for (const std::string& field : fields) text += field + '|';
  return text;
}

}  // namespace

std::string shown(int number) { return std::to_string(number) + '|'; }

std::string shown(const Names& names) { return '[' + line(names) + "]|"; }

std::string shown(const api_wan_info& info) {
  std::string options;
  for (const auto& [port, option60] : info.port_option60) {
    options.append(port).append("=").append(option60).append(" ");
  }
  return line({info.wan_info_name,
               shown(info.vlan_enable),
               shown(info.vlan_id),
               shown(info.vlan_priority),
               shown(info.connection_class),
               shown(info.bind_lan),
               shown(info.bind_wan),
               info.service_type,
               shown(info.dhcp_trans),
               shown(info.nat_mode),
               shown(info.connect_mode),
               info.pppoe_user_name,
               info.pppoe_password,
               info.pppoe_mtu,
               info.static_mtu,
               info.dhcp_mtu,
               shown(info.protocol),
               info.ip_addr,
               info.ip_mask,
               info.ip_gw,
               shown(info.ip_dns_enable),
               shown(info.dhcp_dns_enable),
               info.dhcp_dns1,
               info.dhcp_dns2,
               shown(info.static_dns_enable),
               info.static_dns1,
               info.static_dns2,
               info.ip_dns1,
               info.ip_dns2,
               info.dhcp_option60,
               info.wan_enable,
               info.wan_remote_management_enable,
               info.stp_enable,
               options,
               shown(info.lan_vlan_enable),
               shown(info.lan_vlan_id)});
}

std::string shown(const api_wan_status& status) {
  return line({status.name, shown(status.connected), status.mac_address, shown(status.connect_mode),
               status.service_list, status.connection_type, status.ip_addr, status.ip_mask,
               status.ip_gw, status.ip_dns, status.bytes_sent, status.bytes_received,
               status.packets_sent, status.packets_received, status.uptime,
               status.last_connection_error});
}

std::string shown(const api_route_info& route) {
  return line({route.dest_ip, route.dest_mask, shown(route.enable), shown(route.route_type),
               route.interface, route.gateway});
}

std::string shown(const api_mng_server_info& info) {
  return line({info.url, info.username, info.password, info.connection_request_url,
               info.connection_request_username, info.connection_request_password});
}

std::string shown(const wan_mib_info& entry) {
  return line({entry.wan_path, entry.bridge_name, entry.static_path, entry.ppp_path,
               entry.dhcp_path, entry.wan_bridge_path, entry.lan_bridge_path, entry.lan_bridge_name,
               shown(entry.connect_class)});
}

api_wan_info description(const std::string& name, int connection_class, int connect_mode,
                         const Names& bind_lan, const Names& bind_wan) {
  api_wan_info info;
  info.wan_info_name = name;
  info.vlan_enable = 1;
  info.vlan_id = 200;
  info.vlan_priority = 3;
  info.connection_class = connection_class;
  info.bind_lan = bind_lan;
  info.bind_wan = bind_wan;
  info.service_type = "INTERNET";
  info.nat_mode = 1;
  info.connect_mode = connect_mode;
  info.pppoe_user_name = "a user name that is longer than a short text";
  info.pppoe_password = "secret";
  info.pppoe_mtu = "1492";
  info.static_mtu = "1500";
  info.dhcp_mtu = "1480";
  info.ip_addr = "192.0.2.1";
  info.ip_mask = "255.255.255.0";
  info.ip_gw = "192.0.2.254";
  info.ip_dns_enable = 1;
  info.ip_dns1 = "198.51.100.1";
  info.ip_dns2 = "198.51.100.2";
  info.dhcp_option60 = "gateway";
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "false";
  return info;
}

}  // namespace operations
