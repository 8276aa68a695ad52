// Finding and creating bridges, choosing VLANs.
#include <algorithm>
#include <climits>
#include <cstdlib>

#include "steps.h"

namespace foreign {
namespace {

constexpr char kBridges[] = "InternetGatewayDevice.Layer2Bridging.Bridge.";

// The text from `begin` to the next dot.
std::string up_to_dot(const std::string& text, std::size_t begin) {
  if (begin >= text.size()) return "";
  const std::size_t dot = text.find('.', begin);
  return text.substr(begin, dot == std::string::npos ? dot : dot - begin);
}

std::string bridge_name_of(const std::string& wan) {
  const std::string marker = ".WANConnectionDevice.";
  const std::size_t found = wan.find(marker);
  const std::string connection =
      found == std::string::npos ? "" : up_to_dot(wan, found + marker.size());
  return "br_" + up_to_dot(wan, std::string("InternetGatewayDevice.WANDevice.").size()) + "_" +
         connection;
}

bool is_ethernet(const std::string& interface) {
  static const char* const kEthernet[] = {"LAN0", "LAN_DEFAULT1", "LAN1", "LAN2", "LAN3", "LAN4"};
  return std::find(std::begin(kEthernet), std::end(kEthernet), interface) != std::end(kEthernet);
}

std::string ethernet_device(const std::string& interface) {
  return interface == "LAN0" ? "eth0" : "eth1";
}

void write_link(Script& s, const std::string& bridge, const std::string& wan, int vlan_id,
                const api_wan_info& info) {
  const std::string link = wan + "WANEthernetLinkConfig.";
  if (info.vlan_enable == 0) {
    s.set(bridge + "BridgeStandard", "802.1D");
    s.set(bridge + "VLANID", "0");
    s.set(link + "X_CT-COM_VLANIDMark", "0");
    s.set(link + "X_CT-COM_Mode", "0");
    return;
  }
  s.set(bridge + "BridgeStandard", "802.1Q");
  s.set(bridge + "VLANID", std::to_string(vlan_id));
  s.set(link + "X_CT-COM_VLANIDMark", std::to_string(vlan_id));
  if (s.get(link + "X_CT-COM_Mode") == "0") s.set(link + "X_CT-COM_Mode", "1");
  s.set(bridge + "X_ZYN_VLANPriority", std::to_string(info.vlan_priority));
}

void attach_wan_side_port(Script& s, const std::string& bridge, const std::string& wan,
                          api_wan_info& info) {
  const std::string device = parent_of(parent_of(wan));
  for (const std::string& name : s.loop("", 1007)) {
    if (name.find(device) == std::string::npos) continue;
    const std::string access_type = s.get(name);
    if (access_type == "Ethernet") create_port(s, bridge, "", "LAN0", &info);
    if (access_type == "3G") create_port(s, bridge, "", "3G0", &info);
    if (access_type == "Repeator") create_port(s, bridge, "", "WIFIW0", &info);
    return;
  }
}

}  // namespace

int leading_number(const std::string& text) {
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long long>(number, INT_MIN, INT_MAX));
}

bool is_wan_side(const std::string& interface) {
  return interface == "LAN0" || interface == "3G0" || interface == "WIFIW0";
}

int find_wan_bridge(Script& s, const std::string& wan, std::string* path, std::string* name) {
  s.debug(0, "INDEX=%s", wan.c_str());
  const std::string expected = bridge_name_of(wan);
  if (name != nullptr) *name = expected;
  for (const std::string& owner : s.loop("", 197)) {
    if (s.get(owner) != wan) continue;
    const std::string bridge = parent_of(owner);
    if (s.get(bridge + "BridgeName") != expected) continue;
    if (path != nullptr) *path = bridge;
    return 0;
  }
  return -1023;
}

void find_lan_bridge(Script& s, const std::string& wan, std::string* path, std::string* name) {
  s.find(wan, 1359, "Static");
  s.find(wan, 1359, "DHCP");
  s.loop(wan, 1429);
  const std::string found = s.find("", 196, "internet");
  if (path != nullptr) *path = parent_of(found);
  if (name != nullptr) *name = "internet";
}

std::string choose_vlan(Script& s, int vlan_id, const std::string& bridge, const std::string& wan) {
  if (!wan.empty()) {
    for (const std::string& name : s.loop(bridge, 204)) {
      if (s.get(name) != wan) continue;
      const std::string port = parent_of(name);
      const std::string interface = s.get(port + "PortInterface");
      if (!is_ethernet(interface)) continue;
      const std::string vlan = s.get(port + "PVID");
      s.debug(82, "FIND vlan_id = %s, ifname=(%s,%s), for bind_wan=%s", vlan.c_str(),
              interface.c_str(), ethernet_device(interface).c_str(), wan.c_str());
      return vlan;
    }
  }
  std::vector<std::string> taken = s.loop("", 209);
  taken.push_back(std::to_string(vlan_id));
  for (int candidate = 4060; candidate <= 4080; ++candidate) {
    const bool used = std::any_of(taken.begin(), taken.end(), [&](const std::string& name) {
      return leading_number(s.get(name)) == candidate;
    });
    if (!used) return std::to_string(candidate);
  }
  s.debug(108, "NO VALID VLAN ID");
  return "789";
}

std::string create_wan_bridge(Script& s, const std::string& wan, api_wan_info& info) {
  std::string path;
  std::string name;
  find_wan_bridge(s, wan, &path, &name);
  if (!path.empty()) return path;
  const std::string bridge = kBridges + std::to_string(s.add(kBridges)) + ".";
  s.set(bridge + "BridgeName", name);
  write_link(s, bridge, wan, info.vlan_id, info);
  s.set(bridge + "X_ZYN_WANName", wan);
  s.set(bridge + "BridgeEnable", "true");
  attach_wan_side_port(s, bridge, wan, info);
  return bridge;
}

std::string create_lan_bridge(Script& s, const std::string& wan, int vlan_id, api_wan_info& info) {
  std::string path;
  find_lan_bridge(s, wan, &path, nullptr);
  if (!path.empty()) return path;
  const std::string bridge = kBridges + std::to_string(s.add(kBridges)) + ".";
  s.set(bridge + "BridgeName", "internet");
  write_link(s, bridge, wan, vlan_id, info);
  s.set(bridge + "BridgeEnable", "true");
  return bridge;
}

}  // namespace foreign
