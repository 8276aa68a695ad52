// Printing a record, caching a connection's paths, writing a record onto a connection.
#include <utility>

#include "steps.h"

namespace foreign {
namespace {

constexpr char kForwarding[] = "InternetGatewayDevice.Layer3Forwarding.Forwarding.";

// Text copies hold at most 255 characters.
std::string cut(const std::string& text) { return text.substr(0, 255); }

// The two lines that are printed again and again between the steps.
void mode_and_class(Script& s, const api_wan_info& info) {
  s.print("vornik igd_wan_set_params:#  info->connect_mode:%d \n", info.connect_mode);
  s.print("vornik igd_wan_set_params:#  info->connection_class:%d \n", info.connection_class);
}

void trace(Script& s, const char* label, const std::string& text) {
  s.print("vornik igd_wan_set_params:#  %s:%s \n", label, text.c_str());
}

void print_entry(Script& s, const wan_mib_info& mib) {
  s.print(
      "vornik set_params bridge_name:%s,connect_class:%d,\n dhcp_path:%s,\n lan_bridge_name:%s,"
      "\t\tlan_bridge_path:%s,ppp_path:%s,\nstatic_path:%s,\nwan_bridge_path:%s,\nwan_path:%s\n",
      mib.bridge_name.c_str(), mib.connect_class, mib.dhcp_path.c_str(),
      mib.lan_bridge_name.c_str(), mib.lan_bridge_path.c_str(), mib.ppp_path.c_str(),
      mib.static_path.c_str(), mib.wan_bridge_path.c_str(), mib.wan_path.c_str());
}

void write_flags(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  trace(s, "wan_remote_management_enable", cut(info.wan_remote_management_enable));
  trace(s, "wan_enable", cut(info.wan_enable));
  trace(s, "stp_enable", cut(info.stp_enable));
  s.set(mib.wan_path + "X_CT-COM_RemoteManagerEnable", info.wan_remote_management_enable);
  s.set(mib.wan_path + "X_CT-COM_Enable", info.wan_enable);
  s.set(mib.wan_path + "X_CT-COM_STPEnable", info.stp_enable);
}

void disable_objects(Script& s, const wan_mib_info& mib) {
  s.set(mib.dhcp_path + "Enable", "false");
  s.set(mib.static_path + "Enable", "false");
  s.set(mib.ppp_path + "Enable", "false");
}

void remember_class(Script& s, wan_mib_info& mib) {
  const std::string type = s.get(mib.static_path + "ConnectionType");
  trace(s, "connection_type", type);
  mib.connect_class = type == "IP_Routed" ? 1 : type == "IP_BridgeRouted" ? 3 : 2;
}

void drop_routes(Script& s, const std::string& wan) {
  for (const std::string& name : s.loop(kForwarding, 177)) {
    const std::string interface = s.get(name);
    trace(s, "interface", interface);
    const std::string route = parent_of(name);
    const std::string table = s.get(route + "X_ZYN_RouteTable");
    if (interface == wan || (interface.empty() && table == wan)) s.erase(route);
  }
}

void write_names(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  const std::string name = cut(info.wan_info_name);
  trace(s, "info->wan_info_name", name);
  trace(s, "wan_name", name);
  trace(s, "mib_info->dhcp_path", mib.dhcp_path);
  trace(s, "mib_info->static_path", mib.static_path);
  trace(s, "mib_info->ppp_path", mib.ppp_path);
  s.set(mib.dhcp_path + "Name", name);
  s.set(mib.static_path + "Name", name);
  s.set(mib.ppp_path + "Name", name);
  s.set(mib.wan_path + "WANEthernetLinkConfig.X_CT-COM_Name", name);
}

void write_type(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  trace(s, "dhcp_option60", cut(info.dhcp_option60));
  const int connection_class = info.connection_class;
  if (connection_class < 1 || connection_class > 3) return;
  static const char* const kTypes[][2] = {{"IP_Routed", "IP_Routed"},
                                          {"IP_Bridged", "PPPoE_Bridged"},
                                          {"IP_BridgeRouted", "IP_BridgeRouted"}};
  const auto& types = kTypes[connection_class - 1];
  s.set(mib.dhcp_path + "ConnectionType", types[0]);
  s.set(mib.static_path + "ConnectionType", types[0]);
  s.set(mib.ppp_path + "ConnectionType", types[1]);
  s.set(mib.dhcp_path + "X_ZYN-COM_OPTION60", info.dhcp_option60);
}

void write_everywhere(Script& s, const wan_mib_info& mib, const char* parameter,
                      const std::string& value) {
  s.set(mib.dhcp_path + parameter, value);
  s.set(mib.static_path + parameter, value);
  s.set(mib.ppp_path + parameter, value);
}

void write_ppp_and_mtus(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  trace(s, "pppoe_user_name", cut(info.pppoe_user_name));
  trace(s, "pppoe_password", cut(info.pppoe_password));
  trace(s, "pppoe_mtu", cut(info.pppoe_mtu));
  s.set(mib.ppp_path + "Username", info.pppoe_user_name);
  s.set(mib.ppp_path + "Password", info.pppoe_password);
  s.set(mib.ppp_path + "MTU", info.pppoe_mtu);
  s.set(mib.static_path + "MTU", info.static_mtu);
  s.set(mib.dhcp_path + "MTU", info.dhcp_mtu);
}

void write_addressing(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  const std::string dns = cut(info.ip_dns1 + "," + info.ip_dns2);
  trace(s, "ip_dns", dns);
  if (info.connect_mode < 1 || info.connect_mode > 3) return;
  const std::string path = info.connect_mode == 1   ? mib.dhcp_path
                           : info.connect_mode == 2 ? mib.static_path
                                                    : mib.ppp_path;
  s.set(path + "DNSEnabled", info.ip_dns_enable == 1 ? "true" : "false");
  if (info.connect_mode == 2) {
    trace(s, "ip_addr", cut(info.ip_addr));
    trace(s, "ip_mask", cut(info.ip_mask));
    trace(s, "ip_gw", cut(info.ip_gw));
    s.set(path + "ExternalIPAddress", info.ip_addr);
    s.set(path + "SubnetMask", info.ip_mask);
    s.set(path + "DefaultGateway", info.ip_gw);
  }
  if (info.ip_dns_enable != 0) s.set(path + "DNSServers", dns);
}

void enable_object(Script& s, const wan_mib_info& mib, int connect_mode) {
  if (connect_mode == 1) s.set(mib.dhcp_path + "Enable", "true");
  if (connect_mode == 2) s.set(mib.static_path + "Enable", "true");
  if (connect_mode == 3) s.set(mib.ppp_path + "Enable", "true");
}

}  // namespace

void save_lan_binding(Script& s, const std::string& wan, const api_wan_info& info) {
  s.print("---index:%s--------\n", wan.c_str());
  const wan_mib_info& mib = cached_paths(s, wan);
  std::string value;
  for (const auto* list : {&info.bind_lan, &info.bind_wan}) {
    for (const std::string& interface : *list) {
      s.print("------phy:%s------------\n", interface.c_str());
      if (interface == "LAN0") continue;
      if (!value.empty()) value += ",";
      value += interface;
    }
  }
  const std::pair<const char*, std::string> targets[] = {
      {"static_path", mib.static_path + "X_CT-COM_LanInterface"},
      {"dhcp_path", mib.dhcp_path + "X_CT-COM_LanInterface"},
      {"ppp_path", mib.ppp_path + "X_CT-COM_LanInterface"}};
  for (const auto& target : targets) {
    s.print("---%s:%s---value:%s------------\n", target.first, target.second.c_str(),
            value.c_str());
  }
  for (const auto& target : targets) {
    if (s.get(target.second) != value) s.set(target.second, value);
  }
}

void write_params(Script& s, const std::string& wan, api_wan_info& info) {
  s.print("igd_wan_set_params  igd_wan_print_params(info) :1234\n");
  print_record(s, info);
  wan_mib_info& mib = cached_paths(s, wan);
  mode_and_class(s, info);
  print_entry(s, mib);
  s.print("vornik: igd_wan_set_params wan_index %s\n", wan.c_str());
  if (mib.lan_bridge_path.empty() && info.connection_class == 1) {
    const std::string vlan = choose_vlan(s, info.vlan_id, "", wan);
    mib.lan_bridge_path = create_lan_bridge(s, wan, leading_number(vlan), info);
  }
  mode_and_class(s, info);
  save_lan_binding(s, wan, info);
  s.print("vornik: igd_wan_set_params mib_info->bridge_name %s\n", mib.bridge_name.c_str());
  s.print("vornik: igd_wan_set_params mib_info->wan_path %s\n", mib.wan_path.c_str());
  mode_and_class(s, info);
  write_flags(s, mib, info);
  mode_and_class(s, info);
  disable_objects(s, mib);
  mode_and_class(s, info);
  remember_class(s, mib);
  mode_and_class(s, info);
  if (mib.connect_class != 2 && info.connection_class == 2) drop_routes(s, wan);
  mode_and_class(s, info);
  update_ports(s, mib, info);
  mode_and_class(s, info);
  write_names(s, mib, info);
  mode_and_class(s, info);
  write_type(s, mib, info);
  mode_and_class(s, info);
  trace(s, "service_type", cut(info.service_type));
  write_everywhere(s, mib, "X_CT-COM_ServiceList", info.service_type);
  mode_and_class(s, info);
  write_everywhere(s, mib, "NATEnabled", info.nat_mode == 1 ? "true" : "false");
  mode_and_class(s, info);
  write_ppp_and_mtus(s, mib, info);
  mode_and_class(s, info);
  write_addressing(s, mib, info);
  mode_and_class(s, info);
  enable_object(s, mib, info.connect_mode);
}

}  // namespace foreign
