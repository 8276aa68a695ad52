// What of a description is written where.
#include "model.h"
#include "shown.h"

namespace model {
namespace {

constexpr std::size_t kLongest = 255;

std::string class_text(int connection_class, Kind kind) {
  if (connection_class == 1) return "IP_Routed";
  if (connection_class == 3) return "IP_BridgeRouted";
  return kind == kPpp ? "PPPoE_Bridged" : "IP_Bridged";
}

Kind kind_of_mode(int mode) { return mode == 1 ? kDhcp : mode == 2 ? kStatic : kPpp; }

}  // namespace

void Model::write_record(const std::string& path, api_wan_info& info) {
  Entry& entry = entry_of(path);
  if (entry.lan_bridge == 0 && info.connection_class == 1) {
    const int vlan = leading_number(lan_vlan(0, path));
    entry.lan_bridge = lan_bridge();
    if (entry.lan_bridge == 0) entry.lan_bridge = make_bridge("internet", path, info, vlan);
  }
  write_binding(entry, info);
  write_flags(path, info);
  for (const Kind kind : kKinds) write(entry.objects[kind], kind, "Enable", "false");
  const std::string type = read(entry.objects[kStatic], kStatic, "ConnectionType");
  entry.connect_class = type == "IP_Routed" ? 1 : type == "IP_BridgeRouted" ? 3 : 2;
  if (entry.connect_class != 2 && info.connection_class == 2) forget_routes_of(path);
  update_ports(path, entry, info);
  write_types(entry, info);
  write_accounts(entry, info);
  write_addressing(entry, info);
}

void Model::write_binding(const Entry& entry, const api_wan_info& info) {
  Names bound;
  for (const Names* names : {&info.bind_lan, &info.bind_wan}) {
    for (const std::string& node : *names) {
      if (node != "LAN0") bound.push_back(node);
    }
  }
  const std::string text = shown(bound);
  for (const Kind kind : kKinds) {
    const bool there = state_.connections.count(entry.objects[kind]) != 0;
    // A bare name is written only when it reads differently, and it always reads empty.
    if (there || !text.empty()) write(entry.objects[kind], kind, "X_CT-COM_LanInterface", text);
  }
}

void Model::write_flags(const std::string& path, const api_wan_info& info) {
  const auto found = state_.connections.find(id_of(path));
  if (found == state_.connections.end()) {
    state_.refused = true;
    return;
  }
  found->second.flags = {{"X_CT-COM_RemoteManagerEnable", info.wan_remote_management_enable},
                         {"X_CT-COM_Enable", info.wan_enable},
                         {"X_CT-COM_STPEnable", info.stp_enable}};
  found->second.link["X_CT-COM_Name"] = info.wan_info_name.substr(0, kLongest);
}

void Model::write_types(const Entry& entry, const api_wan_info& info) {
  const bool known = 1 <= info.connection_class && info.connection_class <= 3;
  for (const Kind kind : kKinds) {
    const ConnectionId id = entry.objects[kind];
    write(id, kind, "Name", info.wan_info_name.substr(0, kLongest));
    if (known) write(id, kind, "ConnectionType", class_text(info.connection_class, kind));
    write(id, kind, "X_CT-COM_ServiceList", info.service_type);
    write(id, kind, "NATEnabled", info.nat_mode == 1 ? "true" : "false");
  }
  if (known) write(entry.objects[kDhcp], kDhcp, "X_ZYN-COM_OPTION60", info.dhcp_option60);
}

void Model::write_accounts(const Entry& entry, const api_wan_info& info) {
  write(entry.objects[kPpp], kPpp, "Username", info.pppoe_user_name);
  write(entry.objects[kPpp], kPpp, "Password", info.pppoe_password);
  write(entry.objects[kPpp], kPpp, "MTU", info.pppoe_mtu);
  write(entry.objects[kStatic], kStatic, "MTU", info.static_mtu);
  write(entry.objects[kDhcp], kDhcp, "MTU", info.dhcp_mtu);
}

void Model::write_addressing(const Entry& entry, const api_wan_info& info) {
  if (info.connect_mode < 1 || info.connect_mode > 3) return;
  const Kind kind = kind_of_mode(info.connect_mode);
  const ConnectionId id = entry.objects[kind];
  write(id, kind, "DNSEnabled", info.ip_dns_enable == 1 ? "true" : "false");
  if (kind == kStatic) {
    write(id, kind, "ExternalIPAddress", info.ip_addr);
    write(id, kind, "SubnetMask", info.ip_mask);
    write(id, kind, "DefaultGateway", info.ip_gw);
  }
  if (info.ip_dns_enable != 0) {
    write(id, kind, "DNSServers", (info.ip_dns1 + ',' + info.ip_dns2).substr(0, kLongest));
  }
  write(id, kind, "Enable", "true");
}

}  // namespace model
