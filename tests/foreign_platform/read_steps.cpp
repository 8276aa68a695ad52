// Dumping a record, caching a connection's paths, reading a connection into a record.
#include <utility>

#include "steps.h"

namespace foreign {
namespace {

constexpr char kBridges[] = "InternetGatewayDevice.Layer2Bridging.Bridge.";

struct BoundPort {
  std::string path;
  std::string interface;
};

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \n\t\r");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \n\t\r") - first + 1);
}

void progress(Script& s) { s.print("vornik igd_wan_get_params:#\n"); }

int is_true(const std::string& text) { return text == "true" ? 1 : 0; }

// The first two tokens of a list of addresses; a comma at the very end begins no token.
void split_dns(const std::string& text, std::string& first, std::string& second) {
  const std::size_t comma = text.find(',');
  first = text.substr(0, comma);
  second.clear();
  if (comma == std::string::npos) return;
  second = text.substr(comma + 1);
  second = second.substr(0, second.find(','));
}

void print_entry(Script& s, const wan_mib_info& mib) {
  s.print(
      "vornik get_params bridge_name:%s,connect_class:%d,\n dhcp_path:%s,\n lan_bridge_name:%s,"
      "\t\tlan_bridge_path:%s,ppp_path:%s,\n static_path:%s,\n wan_bridge_path:%s,\n wan_path:%s\n",
      mib.bridge_name.c_str(), mib.connect_class, mib.dhcp_path.c_str(),
      mib.lan_bridge_name.c_str(), mib.lan_bridge_path.c_str(), mib.ppp_path.c_str(),
      mib.static_path.c_str(), mib.wan_bridge_path.c_str(), mib.wan_path.c_str());
  s.print("vornik mib_info->ppp_path = \"%s\"\n", mib.ppp_path.c_str());
}

// The path of the enabled object; "" and an untouched mode when none is enabled.
std::string read_mode(Script& s, const wan_mib_info& mib, api_wan_info& info) {
  const std::string dhcp = s.get(mib.dhcp_path + "Enable");
  s.print("vornik dhcp_path %s\n", dhcp.c_str());
  s.print("vornik _get_value(mib_info->dhcp_path,\"Enable\") = %d\n", is_true(dhcp));
  const std::string ppp = s.get(mib.ppp_path + "Enable");
  s.print("vornik ppp_path %s\n", ppp.c_str());
  const std::string fixed = s.get(mib.static_path + "Enable");
  s.print("vornik static_path %s\n", fixed.c_str());
  if (dhcp == "true") return info.connect_mode = 1, mib.dhcp_path;
  if (ppp == "true") return info.connect_mode = 3, mib.ppp_path;
  if (fixed == "true") return info.connect_mode = 2, mib.static_path;
  return "";
}

void read_dns(Script& s, const wan_mib_info& mib, const std::string& active, api_wan_info& info) {
  info.ip_dns_enable = is_true(s.get(active + "DNSEnabled"));
  if (info.connect_mode == 1) info.dhcp_option60 = s.get(active + "X_ZYN-COM_OPTION60");
  split_dns(s.get(active + "DNSServers"), info.ip_dns1, info.ip_dns2);
  info.dhcp_dns_enable = is_true(s.get(mib.dhcp_path + "DNSEnabled"));
  split_dns(s.get(mib.dhcp_path + "DNSServers"), info.dhcp_dns1, info.dhcp_dns2);
  info.static_dns_enable = is_true(s.get(mib.static_path + "DNSEnabled"));
  split_dns(s.get(mib.static_path + "DNSServers"), info.static_dns1, info.static_dns2);
}

void name_class(const std::string& type, api_wan_info& info) {
  if (type == "IP_Bridged" || type == "PPPoE_Bridged") info.connection_class = 2;
  if (type == "IP_Routed") info.connection_class = 1;
  if (type == "IP_BridgeRouted") info.connection_class = 3;
}

void read_vlans(Script& s, const wan_mib_info& mib, api_wan_info& info) {
  info.vlan_enable = s.get(mib.wan_bridge_path + "BridgeStandard") == "802.1Q" ? 1 : 0;
  info.vlan_id = leading_number(s.get(mib.wan_bridge_path + "VLANID"));
  info.vlan_priority = leading_number(s.get(mib.wan_bridge_path + "X_ZYN_VLANPriority"));
  info.lan_vlan_enable = s.get(mib.lan_bridge_path + "BridgeStandard") == "802.1Q" ? 1 : 0;
  info.lan_vlan_id = leading_number(s.get(mib.lan_bridge_path + "VLANID"));
}

std::vector<BoundPort> read_bindings(Script& s, const std::string& wan, const wan_mib_info& mib,
                                     api_wan_info& info) {
  std::vector<BoundPort> bound;
  info.bind_lan.clear();
  info.bind_wan.clear();
  for (const std::string& name : s.loop(kBridges, 204)) {
    if (s.get(name) != wan) continue;
    const std::string port = parent_of(name);
    bound.push_back({port, trimmed(s.get(port + "PortInterface"))});
    info.bind_lan.push_back(bound.back().interface);
  }
  for (const std::string& name : s.loop(mib.wan_bridge_path, 205)) {
    const std::string interface = trimmed(s.get(name));
    if (is_wan_side(interface)) continue;
    bound.push_back({parent_of(name), interface});
    info.bind_wan.push_back(interface);
  }
  return bound;
}

}  // namespace

void print_record(Script& s, const api_wan_info& info) {
  s.print("igd_wan_print_params start!!! igd_wan_print_params:601\n");
  s.print("wan_info_name:%s \n", info.wan_info_name.c_str());
  s.print("vlan_enable:%d \n", info.vlan_enable);
  s.print("vlan_id:%d \n", info.vlan_id);
  s.print("vlan_priority:%d \n", info.vlan_priority);
  s.print("connection_class 1:Route,2:Bridge,3:Route&Bridge:[%d] \n", info.connection_class);
  for (std::size_t i = 0; i < info.bind_lan.size(); ++i) {
    s.print("bind_lan:%d %s \n", static_cast<int>(i), info.bind_lan[i].c_str());
  }
  for (std::size_t i = 0; i < info.bind_wan.size(); ++i) {
    s.print("bind_wan:%d %s \n", static_cast<int>(i), info.bind_wan[i].c_str());
  }
  s.print("service_type: %s \n", info.service_type.c_str());
  s.print("dhcp_trans: %d \n", info.dhcp_trans);
  s.print("nat_mode: %d \n", info.dhcp_trans);  // kept: shows dhcp_trans
  s.print("connect_mode 1:dbcp,2:static,3:pppoe: [%d] \n", info.connect_mode);
  s.print("pppoe_user_name: %s \n", info.pppoe_user_name.c_str());
  s.print("pppoe_password: %s \n", info.pppoe_password.c_str());
  s.print("pppoe_mtu: %s \n", info.pppoe_mtu.c_str());
  s.print("protocol: 1 ipv4, 2 ipv6 [%d] \n", info.protocol);
  s.print("ip_addr: %s \n", info.ip_addr.c_str());
  s.print("ip_mask: %s \n", info.ip_mask.c_str());
  s.print("ip_gw: %s \n", info.ip_gw.c_str());
  s.print("ip_dns_enable: %d \n", info.ip_dns_enable);
  s.print("ip_dns1: %s \n", info.ip_dns1.c_str());
  s.print("ip_dns2: %s \n", info.ip_dns2.c_str());
  s.print("dhcp_option60: %s \n", info.dhcp_option60.c_str());
  s.print("wan_enable: %s \n", info.wan_enable.c_str());
  s.print("wan_remote_management_enable: %s \n", info.wan_remote_management_enable.c_str());
  s.print("stp_enable: %s \n", info.stp_enable.c_str());
  s.print("igd_wan_print_params end!!! igd_wan_print_params:631\n");
}

wan_mib_info& cached_paths(Script& s, const std::string& wan) {
  const auto found = s.cache.find(wan);
  if (found != s.cache.end()) return found->second;
  wan_mib_info& mib = s.cache[wan];
  mib.wan_path = wan;
  find_wan_bridge(s, wan, &mib.wan_bridge_path, &mib.bridge_name);
  s.print("vornik: wan_bridge_path = %s,name = %s\n", mib.wan_bridge_path.c_str(),
          mib.bridge_name.c_str());
  find_lan_bridge(s, wan, &mib.lan_bridge_path, &mib.lan_bridge_name);
  s.print("vornik: info->lan_bridge_name = %s\n", mib.lan_bridge_name.c_str());
  s.print("vornik: info->lan_bridge_path = %s\n", mib.lan_bridge_path.c_str());
  mib.static_path = parent_of(s.find(wan, 1359, "Static"));
  s.print("vornik: info->static_path = %s\n", mib.static_path.c_str());
  mib.dhcp_path = parent_of(s.find(wan, 1359, "DHCP"));
  s.print("vornik: info->dhcp_path = %s\n", mib.dhcp_path.c_str());
  const std::vector<std::string> ppp = s.loop(wan, 1429);
  if (!ppp.empty()) mib.ppp_path = ppp.front();
  s.print("vornik: info->ppp_path = %s\n", mib.ppp_path.c_str());
  return mib;
}

void read_params(Script& s, const std::string& wan, api_wan_info& info) {
  const wan_mib_info& mib = cached_paths(s, wan);
  print_entry(s, mib);
  info.pppoe_user_name = s.get(mib.ppp_path + "Username");
  info.pppoe_password = s.get(mib.ppp_path + "Password");
  progress(s);
  info.pppoe_mtu = s.get(mib.ppp_path + "MTU");
  info.static_mtu = s.get(mib.static_path + "MTU");
  info.dhcp_mtu = s.get(mib.dhcp_path + "MTU");
  progress(s);
  info.ip_addr = s.get(mib.static_path + "ExternalIPAddress");
  info.ip_mask = s.get(mib.static_path + "SubnetMask");
  info.ip_gw = s.get(mib.static_path + "DefaultGateway");
  progress(s);
  info.wan_enable = s.get(wan + "X_CT-COM_Enable");
  info.wan_remote_management_enable = s.get(wan + "X_CT-COM_RemoteManagerEnable");
  info.stp_enable = s.get(wan + "X_CT-COM_STPEnable");
  progress(s);
  // With empty paths all three objects are the bare names, so the mode and not the path decides.
  const int mode_before = std::exchange(info.connect_mode, 0);
  const std::string enabled = read_mode(s, mib, info);
  const bool none = info.connect_mode == 0;
  progress(s);
  if (!none) read_dns(s, mib, enabled, info);
  if (none) info.connect_mode = mode_before;
  progress(s);
  const std::string active = none ? mib.static_path : enabled;
  const std::string type = s.get(active + "ConnectionType");
  info.wan_info_name = s.get(active + "Name");
  info.service_type = s.get(active + "X_CT-COM_ServiceList");
  info.nat_mode = is_true(s.get(active + "NATEnabled"));
  progress(s);
  name_class(type, info);
  progress(s);
  read_vlans(s, mib, info);
  progress(s);
  const std::vector<BoundPort> bound = read_bindings(s, wan, mib, info);
  progress(s);
  for (const BoundPort& port : bound) {
    const std::string option = s.get(port.path + "PortOption60");
    if (!option.empty()) info.port_option60[port.interface] = option;
  }
  progress(s);
  const bool short_texts =
      info.ip_addr.size() < 16 && info.ip_mask.size() < 16 && info.ip_gw.size() < 16;
  info.protocol = short_texts ? 1 : 2;
  progress(s);
  s.print("igd_wan_get_params  igd_wan_print_params(info) :565\n");
  print_record(s, info);
}

}  // namespace foreign
