// Making bridges and ports, as the reference tells it.
#include <optional>

#include "reference_tools.h"

namespace reference {
namespace {

std::optional<std::string> vlan_lent_by_port(const std::string& bridge, const std::string& wan) {
  for (const std::string& depend : list(bridge, 204)) {
    if (value(depend) != wan) continue;
    const std::string node = read(parent(depend), "PortInterface");
    if (has(device_of(node, false, 0), "eth")) return read(parent(depend), "PVID");
  }
  return std::nullopt;
}

void add_uplink_port(const std::string& bridge, const std::string& wan, api_wan_info* info) {
  const std::string device = parent(parent(wan));
  for (const std::string& type : list("", 1007)) {
    if (!has(type, device)) continue;
    const std::string text = value(type);
    if (text == "Ethernet") create_port(bridge, "", "LAN0", info);
    if (text == "3G") create_port(bridge, "", "3G0", info);
    if (text == "Repeator") create_port(bridge, "", "WIFIW0", info);
    return;
  }
}

}  // namespace

void write_link_and_vlan(const std::string& bridge, const std::string& wan, int tagged, int vlan) {
  const std::string link = wan + "WANEthernetLinkConfig.";
  const std::string text = tagged != 0 ? std::to_string(vlan) : "0";
  write(bridge, "BridgeStandard", tagged != 0 ? "802.1Q" : "802.1D");
  write(bridge, "VLANID", text);
  write(link, "X_CT-COM_VLANIDMark", text);
  if (tagged == 0) {
    write(link, "X_CT-COM_Mode", "0");
  } else if (read(link, "X_CT-COM_Mode") == "0") {
    write(link, "X_CT-COM_Mode", "1");
  }
}

std::string find_vlan_id(int vlan_id, const std::string& bridge, const std::string& wan) {
  if (!wan.empty()) {
    const std::optional<std::string> lent = vlan_lent_by_port(bridge, wan);
    if (lent) return *lent;
  }
  Names taken = list("", 209);
  taken.push_back(std::to_string(vlan_id));
  for (int candidate = 4060; candidate <= 4080; ++candidate) {
    bool found = false;
    for (const std::string& name : taken) {
      found = number(value(name)) == candidate;
      if (found) break;
    }
    if (!found) return std::to_string(candidate);
  }
  return "789";
}

std::string create_bridge(const std::string& wan, int kind, int tagged, int vlan,
                          api_wan_info* info) {
  std::string path;
  std::string name;
  if (kind == 2) (void)igd_wan_get_wan_bridge_info(wan, &path, &name);
  if (kind == 3) (void)igd_wan_get_lan_bridge_info(wan, &path, &name);
  if (!path.empty()) return path;
  path = path_of(kTable, add(kTable));
  write(path, "BridgeName", name);
  write_link_and_vlan(path, wan, tagged, vlan);
  if (tagged != 0 && info != nullptr) {
    write(path, "X_ZYN_VLANPriority", std::to_string(info->vlan_priority));
  }
  if (kind == 2) write(path, "X_ZYN_WANName", wan);
  write(path, "BridgeEnable", "true");
  if (kind == 2) add_uplink_port(path, wan, info);
  return path;
}

void create_port(const std::string& bridge, const std::string& depend_wan, const std::string& node,
                 api_wan_info* info) {
  std::string vlan;
  if (read(bridge, "BridgeName") != "internet") {
    vlan = read(bridge, "VLANID");
  } else if (!depend_wan.empty()) {
    vlan = find_vlan_id(0, bridge, depend_wan);
  }
  const std::string port = path_of(bridge + "Port.", add(bridge + "Port."));
  write(port, "PVID", vlan);
  write(port, "PortInterface", node);
  if (!depend_wan.empty()) {
    write(port, "X_ZYN_DependWanName", depend_wan);
  } else if (read(bridge, "BridgeName") != "internet" && !is_uplink(node) && info != nullptr) {
    write(port, "PortOption60", info->port_option60[node]);
  }
  write(port, "PortEnable", "true");
}

void delete_port(const std::string& path) {
  write(path, "PortEnable", "false");
  erase(path);
}

}  // namespace reference
