// Questions about bridges, as the reference tells them.
#include <cstdio>
#include <cstring>

#include "reference_tools.h"

namespace reference {
namespace {

std::string up_to_dot(const std::string& text) { return text.substr(0, text.find('.')); }

std::string bridge_name_of(const std::string& wan) {
  const std::size_t device = std::strlen("InternetGatewayDevice.WANDevice.");
  const std::string mark = ".WANConnectionDevice.";
  const std::size_t connection = wan.find(mark);
  return "br_" + (wan.size() > device ? up_to_dot(wan.substr(device)) : std::string()) + "_" +
         (connection == std::string::npos ? std::string()
                                          : up_to_dot(wan.substr(connection + mark.size())));
}

std::string two_numbers(const std::string& text, const std::string& separator, int& a, int& b) {
  Names pieces;
  (void)igd_tool_split_str(text, separator, pieces);
  a = b = 0;
  for (const std::string& piece : pieces) {
    if (number(piece) == 0) continue;
    if (a != 0) {
      b = number(piece);
      break;
    }
    a = number(piece);
  }
  return "br_" + std::to_string(a) + "_" + std::to_string(b);
}

void read_into(const char* wan_path, const char* parameter, char* buf, std::size_t size) {
  if (wan_path == nullptr || buf == nullptr || size == 0) return;
  std::string text;
  for (const std::string& owner : list("", 197)) {
    if (!begins(wan_path, value(owner))) continue;
    text = read(parent(owner), parameter);
    break;
  }
  (void)std::snprintf(buf, size, "%s", text.c_str());
}

}  // namespace

std::string igd_get_bridge_info(std::string connection_path) {
  if (has(connection_path, "LANDevice")) return "internet";
  const std::string owner = first_with("", 197, connection_path);
  return owner.empty() ? "" : read(parent(owner), "BridgeName");
}

int igd_wan_get_lan_bridge_info(std::string wan_path, std::string* path, std::string* name) {
  (void)objects_of(wan_path);
  const std::string found = parent(first_with("", 196, "internet"));
  if (path != nullptr) *path = found;
  if (name != nullptr) *name = "internet";
  return 0;
}

int igd_wan_get_wan_bridge_info(std::string wan_path, std::string* path, std::string* name) {
  const std::string expected = bridge_name_of(wan_path);
  if (name != nullptr) *name = expected;
  for (const std::string& owner : list("", 197)) {
    if (value(owner) != wan_path || read(parent(owner), "BridgeName") != expected) continue;
    if (path != nullptr) *path = parent(owner);
    return 0;
  }
  return -1023;
}

std::string igd_wan_intf(std::string wan_path, Names& ports, unsigned int& vlan_id) {
  ports.clear();
  std::string bridge;
  (void)igd_wan_get_wan_bridge_info(wan_path, &bridge, nullptr);
  for (const std::string& port : list(bridge, 205)) ports.push_back(value(port));
  vlan_id = static_cast<unsigned int>(number(read(bridge, "VLANID")));
  return read(bridge, "BridgeName");
}

int igd_wan_get_bridge_info_from_phy(std::string phy, std::string* path, std::string* name) {
  for (const std::string& port : list("", 205)) {
    const std::string node = value(port);
    const std::string bridge = bridge_of(port);
    const bool tagged = read(bridge, "BridgeStandard") == "802.1Q";
    const int vlan = number(read(bridge, "VLANID"));
    if (device_of(node, tagged, vlan) != phy) continue;
    if (path != nullptr) *path = bridge;
    if (name != nullptr) *name = read(bridge, "BridgeName");
  }
  return 0;
}

int igd_wan_get_unused_vlan() {
  Names used;
  for (const std::string& vlan : list("", 199)) used.push_back(value(vlan));
  for (int candidate = 1000; candidate < 4060; ++candidate) {
    bool taken = false;
    for (const std::string& text : used) taken = taken || number(text) == candidate;
    if (!taken) return candidate;
  }
  return 3999;
}

int igd_c_check_belong_bridge(const char* bridge_name, const char* ifname) {
  const std::string found = first_with("", 196, bridge_name);
  if (ifname == nullptr || found.empty()) return 0;
  const bool tagged = read(parent(found), "BridgeStandard") == "802.1Q";
  for (const std::string& pvid : list(parent(found), 209)) {
    const int vlan = number(value(pvid));
    if (device_of(read(parent(pvid), "PortInterface"), tagged, vlan) == ifname) return 1;
  }
  return 0;
}

unsigned int igd_c_get_mask(const char* name) {
  if (name == nullptr) return 0;
  int a = 0, b = 0;
  (void)two_numbers(name, "_", a, b);
  return static_cast<unsigned int>(a) * 30U + static_cast<unsigned int>(b % 30);
}

void igd_c_get_wan_bridge_name(const char* wan_path, char* buf, std::size_t size) {
  if (wan_path == nullptr || buf == nullptr || size == 0) return;
  int a = 0, b = 0;
  (void)std::snprintf(buf, size, "%s", two_numbers(wan_path, ".", a, b).c_str());
}

void igd_c_get_wan_bridge_intf_name(const char* wan_path, char* buf, std::size_t size) {
  igd_c_get_wan_bridge_name(wan_path, buf, size);
}

void igd_c_get_wan_bridge_pvid_name(const char* wan_path, char* buf, std::size_t size) {
  read_into(wan_path, "PVID", buf, size);
}

void igd_c_get_wan_bridge_vlanid_name(const char* wan_path, char* buf, std::size_t size) {
  read_into(wan_path, "VLANID", buf, size);
}

void igd_c_get_wan_bridge_vlanpriority_name(const char* wan_path, char* buf, std::size_t size) {
  read_into(wan_path, "X_ZYN_VLANPriority", buf, size);
}

int igd_c_set_bridge_pvid(const char* bridge_name, api_wan_info* info) {
  const std::string found = first_with("", 196, bridge_name);
  if (found.empty()) return 0;
  (void)read(parent(found), "BridgeStandard");
  for (const std::string& pvid : list(parent(found), 209)) {
    write("", pvid, std::to_string(info->vlan_id));
  }
  return 0;
}

}  // namespace reference
