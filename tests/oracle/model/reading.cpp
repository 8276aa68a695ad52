// What is read of a connection.
#include "model.h"
#include "shown.h"

namespace model {
namespace {

constexpr int kNoWan = -1023;
constexpr int kNoTree = -1022;
constexpr std::size_t kIpv6From = 16;  ///< the length of a text that is no IPv4 address

/// Splits "a,b"; what is behind a second comma is dropped.
void split_servers(const std::string& text, std::string* first, std::string* second) {
  const std::size_t comma = text.find(',');
  *first = text.substr(0, comma);
  second->clear();
  if (comma == std::string::npos) return;
  const std::string rest = text.substr(comma + 1);
  *second = rest.substr(0, rest.find(','));
}

int is_true(const std::string& text) { return text == "true" ? 1 : 0; }

}  // namespace

Answer Model::get(const Step& step, const std::string& path) {
  if (step.text(Field::kRecord) == "null") return {"no record", std::to_string(kNoWan)};
  const Entry& entry = entry_of(path);
  api_wan_info info = unread_record();
  const ConnectionId ppp = entry.objects[kPpp];
  const ConnectionId ip = entry.objects[kStatic];
  info.pppoe_user_name = read(ppp, kPpp, "Username");
  info.pppoe_password = read(ppp, kPpp, "Password");
  info.pppoe_mtu = read(ppp, kPpp, "MTU");
  info.static_mtu = read(ip, kStatic, "MTU");
  info.dhcp_mtu = read(entry.objects[kDhcp], kDhcp, "MTU");
  info.ip_addr = read(ip, kStatic, "ExternalIPAddress");
  info.ip_mask = read(ip, kStatic, "SubnetMask");
  info.ip_gw = read(ip, kStatic, "DefaultGateway");
  const bool short_texts = info.ip_addr.size() < kIpv6From && info.ip_mask.size() < kIpv6From &&
                           info.ip_gw.size() < kIpv6From;
  info.protocol = short_texts ? 1 : 2;
  const auto connection = state_.connections.find(id_of(path));
  const Texts none;
  const Texts& flags = connection == state_.connections.end() ? none : connection->second.flags;
  info.wan_enable = text_of(flags, "X_CT-COM_Enable");
  info.wan_remote_management_enable = text_of(flags, "X_CT-COM_RemoteManagerEnable");
  info.stp_enable = text_of(flags, "X_CT-COM_STPEnable");
  read_addressing(entry, info);
  read_bridges(entry, info);
  read_bindings(path, entry, info);
  const bool known = is_connection(path);
  return {known ? "read" : "no such connection", "0" + shown(info)};
}

void Model::read_addressing(const Entry& entry, api_wan_info& info) const {
  Kind active = kStatic;
  bool enabled = false;
  for (const Kind kind : {kStatic, kPpp, kDhcp}) {  // the last one that is enabled decides
    if (read(entry.objects[kind], kind, "Enable") != "true") continue;
    active = kind;
    enabled = true;
  }
  const ConnectionId id = entry.objects[active];
  info.wan_info_name = read(id, active, "Name");
  info.service_type = read(id, active, "X_CT-COM_ServiceList");
  info.nat_mode = is_true(read(id, active, "NATEnabled"));
  const std::string type = read(id, active, "ConnectionType");
  if (type == "IP_Bridged" || type == "PPPoE_Bridged") info.connection_class = 2;
  if (type == "IP_Routed") info.connection_class = 1;
  if (type == "IP_BridgeRouted") info.connection_class = 3;
  if (!enabled) return;
  info.connect_mode = active == kDhcp ? 1 : active == kStatic ? 2 : 3;
  info.ip_dns_enable = is_true(read(id, active, "DNSEnabled"));
  split_servers(read(id, active, "DNSServers"), &info.ip_dns1, &info.ip_dns2);
  const ConnectionId dhcp = entry.objects[kDhcp];
  const ConnectionId ip = entry.objects[kStatic];
  if (active == kDhcp) info.dhcp_option60 = read(dhcp, kDhcp, "X_ZYN-COM_OPTION60");
  info.dhcp_dns_enable = is_true(read(dhcp, kDhcp, "DNSEnabled"));
  split_servers(read(dhcp, kDhcp, "DNSServers"), &info.dhcp_dns1, &info.dhcp_dns2);
  info.static_dns_enable = is_true(read(ip, kStatic, "DNSEnabled"));
  split_servers(read(ip, kStatic, "DNSServers"), &info.static_dns1, &info.static_dns2);
}

void Model::read_bridges(const Entry& entry, api_wan_info& info) const {
  const Bridge none;
  const auto own = state_.bridges.find(entry.own_bridge);
  const Bridge& bridge = own == state_.bridges.end() ? none : own->second;
  info.vlan_enable = bridge.standard == "802.1Q" ? 1 : 0;
  info.vlan_id = leading_number(bridge.vlan);
  info.vlan_priority = leading_number(bridge.priority);
  const auto lan = state_.bridges.find(entry.lan_bridge);
  const Bridge& lan_side = lan == state_.bridges.end() ? none : lan->second;
  info.lan_vlan_enable = lan_side.standard == "802.1Q" ? 1 : 0;
  info.lan_vlan_id = leading_number(lan_side.vlan);
}

void Model::read_bindings(const std::string& path, const Entry& entry, api_wan_info& info) const {
  info.bind_lan.clear();
  info.bind_wan.clear();
  const auto take = [&info](const Port& port, Names& names) {
    names.push_back(port.node);
    if (!port.option60.empty()) info.port_option60[port.node] = port.option60;
  };
  for (const Port* port : ports_in(0)) {
    if (port->wan == path) take(*port, info.bind_lan);
  }
  for (const Port* port : ports_in(entry.own_bridge)) {
    if (!is_uplink_port(port->node)) take(*port, info.bind_wan);
  }
}

Answer Model::status(const Step& step, const std::string& path) const {
  if (step.text(Field::kRecord) == "null") return {"no record", std::to_string(kNoTree)};
  std::array<ConnectionId, 3> ids;
  for (const Kind kind : kKinds) ids[kind] = owner_of_object(path, kind);
  api_wan_status seen = unread_status();
  Kind active = kStatic;
  bool enabled = false;
  for (const Kind kind : {kPpp, kStatic, kDhcp}) {  // the last one that is enabled decides
    if (read(ids[kind], kind, "Enable") != "true") continue;
    active = kind;
    enabled = true;
  }
  if (enabled) {
    const auto of_active = [&](const char* name) { return read(ids[active], active, name); };
    const std::string address = of_active("ExternalIPAddress");
    const std::string held =
        active == kPpp ? address : of_active("X_CT-COM_ActiveExternalIPAddress");
    const bool connected = !held.empty() && (active != kPpp || held != "0.0.0.0");
    seen.connect_mode = active == kDhcp ? 1 : active == kStatic ? 2 : 3;
    seen.connected = connected ? 1 : 0;
    const bool ppp = active == kPpp;
    seen.ip_addr = connected ? address : "";
    seen.ip_mask = !connected ? "" : ppp ? "255.255.255.255" : of_active("SubnetMask");
    seen.ip_gw = connected ? of_active(ppp ? "RemoteIPAddress" : "DefaultGateway") : "";
    seen.ip_dns = connected ? of_active("DNSServers") : "";
    if (ppp && !connected) seen.last_connection_error = of_active("X_ZYN_COM_LastConnectionError");
  }
  // What the three objects share is kept at the static one; the counters stand at the active one.
  seen.name = read(ids[kStatic], kStatic, "Name");
  seen.uptime = read(ids[kStatic], kStatic, "Uptime");
  seen.service_list = read(ids[kStatic], kStatic, "X_CT-COM_ServiceList");
  seen.connection_type = read(ids[kStatic], kStatic, "ConnectionType");
  seen.bytes_sent = read(ids[active], active, "Stats.EthernetBytesSent");
  seen.mac_address = read(ids[active], active, "MACAddress");
  const char* outcome = seen.connected == 1 ? "connected" : "not connected";
  return {is_connection(path) ? outcome : "no such connection", "0" + shown(seen)};
}

}  // namespace model
