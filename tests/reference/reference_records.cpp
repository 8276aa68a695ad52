// Writing a description to a connection and reading it back, as the reference tells it.
#include "reference_tools.h"

namespace reference {
namespace {

std::string buffered(const std::string& text) { return std::string(text.c_str()).substr(0, 255); }

int flag(const std::string& path, const char* name) { return read(path, name) == "true" ? 1 : 0; }

void read_servers(const std::string& path, std::string& first, std::string& second) {
  Names servers;
  (void)igd_tool_split_str(read(path, "DNSServers"), ",", servers);
  first = !servers.empty() ? servers[0] : "";
  second = servers.size() > 1 ? servers[1] : "";
}

std::string trimmed(std::string text) {
  const char* blanks = " \n\t\r";
  text.erase(0, text.find_first_not_of(blanks));
  const std::size_t last = text.find_last_not_of(blanks);
  return last == std::string::npos ? "" : text.substr(0, last + 1);
}

void drop_routes(const std::string& wan) {
  for (const std::string& route : list(kRoutes, 177)) {
    const std::string interface = value(route);
    const std::string table = read(parent(route), "X_ZYN_RouteTable");
    if (route_is_of(wan, interface, table)) erase(parent(route));
  }
}

void write_type(const wan_mib_info& mib, const api_wan_info& info) {
  const std::string types[] = {"IP_Routed", "IP_Bridged", "IP_BridgeRouted"};
  if (info.connection_class < 1 || info.connection_class > 3) return;
  const std::string& type = types[info.connection_class - 1];
  write(mib.dhcp_path, "ConnectionType", type);
  write(mib.static_path, "ConnectionType", type);
  write(mib.ppp_path, "ConnectionType", info.connection_class == 2 ? "PPPoE_Bridged" : type);
  write(mib.dhcp_path, "X_ZYN-COM_OPTION60", info.dhcp_option60);
}

void write_addresses_and_enable(const wan_mib_info& mib, const api_wan_info& info) {
  const std::string* paths[] = {&mib.dhcp_path, &mib.static_path, &mib.ppp_path};
  if (info.connect_mode < 1 || info.connect_mode > 3) return;
  const std::string& active = *paths[info.connect_mode - 1];
  write(active, "DNSEnabled", info.ip_dns_enable == 1 ? "true" : "false");
  if (info.connect_mode == 2) {
    write(active, "ExternalIPAddress", info.ip_addr);
    write(active, "SubnetMask", info.ip_mask);
    write(active, "DefaultGateway", info.ip_gw);
  }
  if (info.ip_dns_enable != 0) {
    write(active, "DNSServers", buffered(info.ip_dns1 + "," + info.ip_dns2));
  }
  write(active, "Enable", "true");
}

void read_bindings(const std::string& wan, const wan_mib_info& mib, api_wan_info* info) {
  info->bind_lan.clear();
  info->bind_wan.clear();
  std::vector<std::pair<std::string, std::string>> ports;
  for (const std::string& depend : list(kTable, 204)) {
    if (value(depend) != wan) continue;
    info->bind_lan.push_back(trimmed(read(parent(depend), "PortInterface")));
    ports.emplace_back(parent(depend), info->bind_lan.back());
  }
  for (const std::string& port : list(mib.wan_bridge_path, 205)) {
    const std::string node = trimmed(value(port));
    if (is_uplink(node)) continue;
    info->bind_wan.push_back(node);
    ports.emplace_back(parent(port), node);
  }
  for (const auto& [path, node] : ports) {
    const std::string option60 = read(path, "PortOption60");
    if (!option60.empty()) info->port_option60[node] = option60;
  }
}

// Which object is enabled: the mode is set, and its path given; null when none is.
const std::string* find_active(const wan_mib_info& mib, api_wan_info* info) {
  const bool dhcp = read(mib.dhcp_path, "Enable") == "true";
  const bool ppp = read(mib.ppp_path, "Enable") == "true";
  const bool fixed = read(mib.static_path, "Enable") == "true";
  if (!dhcp && !ppp && !fixed) return nullptr;
  info->connect_mode = dhcp ? 1 : ppp ? 3 : 2;
  return dhcp ? &mib.dhcp_path : ppp ? &mib.ppp_path : &mib.static_path;
}

void read_servers_of_all(const wan_mib_info& mib, const std::string& active, api_wan_info* info) {
  info->ip_dns_enable = flag(active, "DNSEnabled");
  if (info->connect_mode == 1) info->dhcp_option60 = read(active, "X_ZYN-COM_OPTION60");
  read_servers(active, info->ip_dns1, info->ip_dns2);
  info->dhcp_dns_enable = flag(mib.dhcp_path, "DNSEnabled");
  read_servers(mib.dhcp_path, info->dhcp_dns1, info->dhcp_dns2);
  info->static_dns_enable = flag(mib.static_path, "DNSEnabled");
  read_servers(mib.static_path, info->static_dns1, info->static_dns2);
}

void read_type_and_services(const std::string& path, api_wan_info* info) {
  const std::string type = read(path, "ConnectionType");
  if (type == "IP_Routed") info->connection_class = 1;
  if (type == "IP_Bridged" || type == "PPPoE_Bridged") info->connection_class = 2;
  if (type == "IP_BridgeRouted") info->connection_class = 3;
  info->wan_info_name = read(path, "Name");
  info->service_type = read(path, "X_CT-COM_ServiceList");
  info->nat_mode = flag(path, "NATEnabled");
}

}  // namespace

bool route_is_of(const std::string& wan, const std::string& interface, const std::string& table) {
  return interface.empty() ? table == wan : interface == wan;
}

int igd_wan_set_params(std::string wan_index, api_wan_info* info) {
  wan_mib_info& mib = *_get_cache(wan_index);
  if (mib.lan_bridge_path.empty() && info->connection_class == 1) {
    const std::string vlan = find_vlan_id(info->vlan_id, "", wan_index);
    mib.lan_bridge_path = create_bridge(wan_index, 3, info->vlan_enable, number(vlan), info);
  }
  reference::saveLanInterfaceToWanNode(wan_index, info);
  write(mib.wan_path, "X_CT-COM_RemoteManagerEnable", info->wan_remote_management_enable);
  write(mib.wan_path, "X_CT-COM_Enable", info->wan_enable);
  write(mib.wan_path, "X_CT-COM_STPEnable", info->stp_enable);
  write(mib.dhcp_path, "Enable", "false");
  write(mib.static_path, "Enable", "false");
  write(mib.ppp_path, "Enable", "false");
  const std::string type = read(mib.static_path, "ConnectionType");
  mib.connect_class = type == "IP_Routed" ? 1 : type == "IP_BridgeRouted" ? 3 : 2;
  if (mib.connect_class != 2 && info->connection_class == 2) drop_routes(wan_index);
  update_ports(mib, info);
  const Names objects = {mib.dhcp_path, mib.static_path, mib.ppp_path};
  for (const std::string& path : objects) write(path, "Name", buffered(info->wan_info_name));
  write(mib.wan_path, "WANEthernetLinkConfig.X_CT-COM_Name", buffered(info->wan_info_name));
  write_type(mib, *info);
  for (const std::string& path : objects) write(path, "X_CT-COM_ServiceList", info->service_type);
  for (const std::string& path : objects) {
    write(path, "NATEnabled", info->nat_mode == 1 ? "true" : "false");
  }
  write(mib.ppp_path, "Username", info->pppoe_user_name);
  write(mib.ppp_path, "Password", info->pppoe_password);
  write(mib.ppp_path, "MTU", info->pppoe_mtu);
  write(mib.static_path, "MTU", info->static_mtu);
  write(mib.dhcp_path, "MTU", info->dhcp_mtu);
  write_addresses_and_enable(mib, *info);
  return 0;
}

int igd_wan_get_params(std::string wan_index, api_wan_info* info) {
  const wan_mib_info& mib = *_get_cache(wan_index);
  info->pppoe_user_name = read(mib.ppp_path, "Username");
  info->pppoe_password = read(mib.ppp_path, "Password");
  info->pppoe_mtu = read(mib.ppp_path, "MTU");
  info->static_mtu = read(mib.static_path, "MTU");
  info->dhcp_mtu = read(mib.dhcp_path, "MTU");
  info->ip_addr = read(mib.static_path, "ExternalIPAddress");
  info->ip_mask = read(mib.static_path, "SubnetMask");
  info->ip_gw = read(mib.static_path, "DefaultGateway");
  info->wan_enable = read(mib.wan_path, "X_CT-COM_Enable");
  info->wan_remote_management_enable = read(mib.wan_path, "X_CT-COM_RemoteManagerEnable");
  info->stp_enable = read(mib.wan_path, "X_CT-COM_STPEnable");
  const std::string* const active = find_active(mib, info);
  if (active != nullptr) read_servers_of_all(mib, *active, info);
  read_type_and_services(active != nullptr ? *active : mib.static_path, info);
  info->vlan_enable = read(mib.wan_bridge_path, "BridgeStandard") == "802.1Q" ? 1 : 0;
  info->vlan_id = number(read(mib.wan_bridge_path, "VLANID"));
  info->vlan_priority = number(read(mib.wan_bridge_path, "X_ZYN_VLANPriority"));
  info->lan_vlan_enable = read(mib.lan_bridge_path, "BridgeStandard") == "802.1Q" ? 1 : 0;
  info->lan_vlan_id = number(read(mib.lan_bridge_path, "VLANID"));
  read_bindings(wan_index, mib, info);
  const bool short_texts =
      info->ip_addr.size() < 16 && info->ip_mask.size() < 16 && info->ip_gw.size() < 16;
  info->protocol = short_texts ? 1 : 2;
  return 0;
}

void saveLanInterfaceToWanNode(std::string wan_path, api_wan_info* info) {
  const wan_mib_info& mib = *_get_cache(wan_path);
  std::string ports;
  for (const Names* nodes : {&info->bind_lan, &info->bind_wan}) {
    for (const std::string& node : *nodes) {
      if (node != "LAN0") ports += (ports.empty() ? "" : ",") + node;
    }
  }
  for (const std::string& path : {mib.static_path, mib.dhcp_path, mib.ppp_path}) {
    if (read(path, "X_CT-COM_LanInterface") != ports) write(path, "X_CT-COM_LanInterface", ports);
  }
}

// It prints and asks nothing; its answer is the length of the last line.
int igd_wan_print_params(api_wan_info* /*info*/) {
  return static_cast<int>(
      std::string("igd_wan_print_params end!!! igd_wan_print_params:631\n").size());
}

}  // namespace reference
