// The life of a connection as the reference tells it: checked, made, looked up, removed.
#include <optional>

#include "reference_tools.h"

namespace reference {
namespace {

bool vlan_taken(const std::string& wan, const std::string& text) {
  for (const std::string& vlan : list("", 199)) {
    if (value(vlan) != text) continue;
    if (read(parent(vlan), "BridgeName") == "internet") continue;
    if (wan.empty() || read(parent(vlan), "X_ZYN_WANName") != wan) return true;
  }
  return false;
}

std::string owner_of(const std::string& port) {
  const std::string owner = read(bridge_of(port), "X_ZYN_WANName");
  return owner.empty() ? read(parent(port), "X_ZYN_DependWanName") : owner;
}

bool is_exempt(const std::string& node) { return node == "LAN0" || node == "LAN_DEFAULT1"; }

// The first port of another connection among the candidates, which may be one without a name.
std::optional<std::string> port_of_another(const std::string& wan, const api_wan_info& info) {
  Names candidates = info.bind_lan;
  candidates.insert(candidates.end(), info.bind_wan.begin(), info.bind_wan.end());
  for (const std::string& node : candidates) {
    const std::string port = first_with("", 205, node);
    if (port.empty()) continue;
    const std::string owner = owner_of(port);
    if (!owner.empty() && owner != wan && !is_exempt(node)) return node;
  }
  return std::nullopt;
}

int ports_taken(const api_wan_info& info) {
  int taken = 0;
  for (const std::string& node : info.bind_wan) taken |= igd_tool_get_port_value(node);
  for (const std::string& port : list("", 205)) {
    const std::string node = value(port);
    const std::string bridge_name = read(bridge_of(port), "BridgeName");
    if (bridge_name != "internet" && !is_exempt(node)) taken |= igd_tool_get_port_value(node);
  }
  return taken;
}

std::string first_services(const std::string& wan) {
  const Names lists = list(wan, 1887);
  return lists.empty() ? "" : value(lists[0]);
}

void add_mapping(const std::string& object) {
  bool added = false;
  const int instance = add(object + "PortMapping.", &added);
  if (!added) return;
  write(path_of(object + "PortMapping.", instance), "PortMappingProtocol", "ALL");
  write(path_of(object + "PortMapping.", instance), "PortMappingDescription", "DMZ");
}

void add_object(const std::string& table, const std::string& addressing) {
  bool added = false;
  const std::string object = path_of(table, add(table, &added));
  if (!added) return;
  if (!addressing.empty()) write(object, "AddressingType", addressing);
  add_mapping(object);
}

std::optional<std::string> device_with(const std::string& access_type) {
  const std::string found = first_with("", 1007, access_type);
  if (!found.empty()) return parent(parent(found));
  bool added = false;
  const std::string table = "InternetGatewayDevice.WANDevice.";
  const std::string device = path_of(table, add(table, &added));
  if (!added) return std::nullopt;
  write(device, "WANCommonInterfaceConfig.WANAccessType", access_type);
  return device;
}

bool is_instance(const std::string& name, int type) {
  for (const std::string& instance : list("", type)) {
    if (instance == name) return true;
  }
  return false;
}

void read_ip(const std::string& path, api_wan_status* status) {
  const bool connected = !read(path, "X_CT-COM_ActiveExternalIPAddress").empty();
  status->connected = connected ? 1 : 0;
  status->ip_addr = connected ? read(path, "ExternalIPAddress") : "";
  status->ip_mask = connected ? read(path, "SubnetMask") : "";
  status->ip_gw = connected ? read(path, "DefaultGateway") : "";
  status->ip_dns = connected ? read(path, "DNSServers") : "";
}

void read_ppp(const std::string& path, api_wan_status* status) {
  const std::string address = read(path, "ExternalIPAddress");
  const bool connected = !address.empty() && address != "0.0.0.0";
  status->connected = connected ? 1 : 0;
  status->ip_addr = connected ? address : "";
  status->ip_mask = connected ? "255.255.255.255" : "";
  status->ip_gw = connected ? read(path, "RemoteIPAddress") : "";
  status->ip_dns = connected ? read(path, "DNSServers") : "";
  if (!connected) status->last_connection_error = read(path, "X_ZYN_COM_LastConnectionError");
}

void remove_routes_and_objects(const std::string& wan) {
  for (const std::string& route : list(kRoutes, 177)) {
    const std::string interface = value(route);
    std::string table;
    if (interface.empty()) table = read(parent(route), "X_ZYN_RouteTable");
    if (route_is_of(wan, interface, table)) erase(parent(route));
  }
  const Objects objects = objects_of(wan);
  for (const std::string& path : {objects.fixed, objects.dhcp, objects.ppp}) {
    write(path, "Enable", "false");
  }
  erase(wan);
}

}  // namespace

int igd_verify_new_wan_info_valid(std::string wan_path, api_wan_info* info, int all_ports_mask) {
  if (info->vlan_enable == 0) info->vlan_id = 0;
  if (vlan_taken(wan_path, std::to_string(info->vlan_id))) return info->vlan_id != 0 ? 9 : 10;
  if (wan_path.empty() && info->service_type == "TR069") {
    for (const std::string& services : list("", 1887)) {
      if (has(value(services), "TR069")) return 13;
    }
  }
  if (has(first_services(wan_path), "TR069")) return 0;
  const std::optional<std::string> port = port_of_another(wan_path, *info);
  if (port) return igd_tool_get_port_index(*port);
  if (info->connection_class != 2 && info->connection_class != 3) return 0;
  if (ports_taken(*info) != all_ports_mask) return 0;
  if (info->connection_class == 3) return 12;
  return info->ip_addr.empty() || info->ip_mask.empty() ? 14 : 0;
}

std::string igd_wan_create(std::string access_type, api_wan_info* info) {
  const std::string existing = reference::igd_wan_get_id_by_name(info->wan_info_name);
  if (!existing.empty()) {
    (void)reference::igd_wan_set_params(existing, info);
    return existing;
  }
  const std::optional<std::string> device = device_with(access_type);
  if (!device) return "";
  bool added = false;
  const int instance = add(*device + "WANConnectionDevice.", &added);
  if (!added) return "";
  const std::string wan = path_of(*device + "WANConnectionDevice.", instance);
  add_object(wan + "WANIPConnection.", "Static");
  add_object(wan + "WANIPConnection.", "DHCP");
  add_object(wan + "WANPPPConnection.", "");
  (void)create_bridge(wan, 2, info->vlan_enable, info->vlan_id, info);
  (void)reference::igd_wan_set_params(wan, info);
  return wan;
}

int igd_verify_can_remove_wan(std::string wan_path) {
  const bool internet = has(first_services(wan_path), "INTERNET");
  int kept = 0;
  for (const std::string& list_name : list("", 1887)) {
    const std::string services = value(list_name);
    const bool user = !has(services, "MME") && !has(services, "TR069");
    if (internet ? has(services, "INTERNET") : user) ++kept;
  }
  return kept >= 2 ? 1 : 0;
}

void igd_wan_destory(std::string wan_path) {
  remove_routes_and_objects(wan_path);
  std::string bridge, lan_bridge;
  Names released;
  (void)reference::igd_wan_get_wan_bridge_info(wan_path, &bridge, nullptr);
  for (const std::string& port : list(bridge, 205)) {
    const std::string node = value(port);
    if (!is_uplink(node)) released.push_back(node);
  }
  for (const std::string& port : list(bridge, 205)) delete_port(parent(port));
  write(bridge, "BridgeEnable", "false");
  erase(bridge);
  (void)reference::igd_wan_get_lan_bridge_info(wan_path, &lan_bridge, nullptr);
  for (const std::string& depend : list(lan_bridge, 204)) {
    if (value(depend) != wan_path) continue;
    released.push_back(read(parent(depend), "PortInterface"));
    delete_port(parent(depend));
  }
  (void)reference::_destory_cache(wan_path);
  for (const std::string& node : released) create_port(lan_bridge, "", node, nullptr);
  (void)state().tree->commit(1);
}

std::string igd_wan_get_id_by_name(std::string name) {
  std::string found = first_with("", 1351, name);
  if (found.empty()) found = first_with("", 1437, name);
  return parent(parent(parent(found)));
}

int igd_check_wan_index(std::string index) { return is_instance(index, 197) ? 1 : 0; }

int igd_verify_is_wan_index(std::string index) {
  if (!begins(index, "InternetGatewayDevice.WANDevice.") || index.size() < 56) return 0;
  return is_instance(index, 1273) ? 1 : 0;
}

int igd_verify_wan_index_in_bridge(std::string index) { return is_instance(index, 1273) ? 1 : 0; }

void igd_set_wan_all_value(std::string wan_path, std::string node, std::string text) {
  const Objects objects = objects_of(wan_path);
  std::string name;
  for (const std::string& path : {objects.fixed, objects.dhcp, objects.ppp}) {
    if (path.empty()) return;
  }
  for (const std::string& path : {objects.fixed, objects.dhcp, objects.ppp}) {
    if (!has(node, path)) continue;
    name = node.substr(path.size());
    break;
  }
  if (name.empty()) return;
  for (const std::string& path : {objects.fixed, objects.dhcp, objects.ppp}) {
    write(path, name, text);
  }
  (void)state().tree->commit(1);
}

int igd_get_used_port_list(std::string wan_path, Names& ports) {
  ports.clear();
  for (const std::string& port : list("", 205)) {
    const std::string node = value(port);
    if (node == "LAN0") continue;
    const std::string owner = owner_of(port);
    if (!owner.empty() && owner != wan_path) ports.push_back(node);
  }
  return 0;
}

int igd_wan_status(std::string wan_index, api_wan_status* status) {
  const Objects objects = objects_of(wan_index);
  std::string active = objects.fixed;
  if (read(objects.dhcp, "Enable") == "true") {
    status->connect_mode = 1;
    active = objects.dhcp;
    read_ip(active, status);
  } else if (read(objects.fixed, "Enable") == "true") {
    status->connect_mode = 2;
    read_ip(active, status);
  } else if (read(objects.ppp, "Enable") == "true") {
    status->connect_mode = 3;
    active = objects.ppp;
    read_ppp(active, status);
  }
  status->name = read(objects.fixed, "Name");
  status->uptime = read(objects.fixed, "Uptime");
  status->service_list = read(objects.fixed, "X_CT-COM_ServiceList");
  status->connection_type = read(objects.fixed, "ConnectionType");
  status->bytes_received = read(active + "Stats.", "EthernetBytesReceived");
  status->bytes_sent = read(active + "Stats.", "EthernetBytesSent");
  status->packets_received = read(active + "Stats.", "EthernetPacketsReceived");
  status->packets_sent = read(active + "Stats.", "EthernetPacketsSent");
  status->mac_address = read(parent(active + "Stats."), "MACAddress");
  return 0;
}

}  // namespace reference
