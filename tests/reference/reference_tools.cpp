#include "reference_tools.h"

#include <algorithm>
#include <cstdlib>

namespace reference {

State& state() {
  static State the_state;
  return the_state;
}

std::string value(const std::string& name) { return state().tree->getValue(name); }

std::string read(const std::string& path, const std::string& name) { return value(path + name); }

void write(const std::string& path, const std::string& name, const std::string& text) {
  (void)state().tree->setValue(path + name, text, 0);
}

void erase(const std::string& object_path) { (void)state().tree->deleteObject(object_path); }

int add(const std::string& table_path, bool* added) {
  int instance = 0;
  const bool done = state().tree->addObject(table_path, &instance, 255) == 0;
  if (added != nullptr) *added = done;
  return instance;
}

Names list(const std::string& prefix, int type) {
  Names names;
  InstanceIterator* const walk = state().tree->openInstanceIterator(type);
  if (walk == nullptr) return names;
  for (bool more = true; more; more = walk->next() != 0) {
    const std::string name = walk->fullName();
    if (begins(name, prefix)) names.push_back(name);
  }
  state().tree->closeInstanceIterator(walk);
  return names;
}

std::string first_with(const std::string& prefix, int type, const std::string& text) {
  for (const std::string& name : list(prefix, type)) {
    if (value(name) == text) return name;
  }
  return "";
}

std::string parent(const std::string& name) {
  std::string rest = name;
  while (!rest.empty() && std::string(" \n\t\r").find(rest.back()) != std::string::npos) {
    rest.pop_back();
  }
  if (!rest.empty() && rest.back() == '.') rest.pop_back();
  while (!rest.empty() && rest.back() != '.') rest.pop_back();
  return rest;
}

std::string bridge_of(const std::string& port_parameter) {
  return parent(parent(parent(port_parameter)));
}

std::string path_of(const std::string& table, int number) {
  return (table + std::to_string(number) + ".").substr(0, 255);
}

int number(const std::string& text) {
  const long long parsed = std::atoll(text.c_str());
  return static_cast<int>(std::clamp(parsed, -2147483648LL, 2147483647LL));
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

bool begins(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

bool is_uplink(const std::string& node) {
  return node == "LAN0" || node == "3G0" || node == "WIFIW0";
}

std::string device_of(const std::string& node, bool tagged, int vlan) {
  const char* const devices[][2] = {{"LAN0", "eth0"},  {"LAN_DEFAULT1", "eth1"},
                                    {"LAN1", "eth1"},  {"LAN2", "eth1"},
                                    {"LAN3", "eth1"},  {"LAN4", "eth1"},
                                    {"LAN5", "usb0"},  {"WLAN1", "ath0"},
                                    {"WLAN2", "ath1"}, {"WLAN3", "ath2"},
                                    {"WLAN4", "ath4"}, {"WIFIW0", "ath3"},
                                    {"REP0", "ath5"},  {"3G0", "3g"},
                                    {"WDS1", "ath5"},  {"WDS2", "ath6"},
                                    {"WDS3", "ath7"},  {"STA1", "ath5"}};
  for (const auto& [name, device] : devices) {
    if (node != name) continue;
    const bool takes_suffix = begins(node, "LAN") && node.size() == 4 && node != "LAN5";
    if (!tagged || !takes_suffix || vlan < 0 || vlan >= 4095) return device;
    return std::string(device) + "." + std::to_string(vlan);
  }
  return "";
}

Objects objects_of(const std::string& wan) {
  Objects objects;
  objects.fixed = parent(first_with(wan, 1359, "Static"));
  objects.dhcp = parent(first_with(wan, 1359, "DHCP"));
  const Names ppp = list(wan, 1429);
  if (!ppp.empty()) objects.ppp = ppp[0];
  return objects;
}

// ---- Names and tools ----

int igd_tool_get_port_index(std::string node) {
  const Names nodes = {"LAN1", "LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4"};
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (node == nodes[i]) return static_cast<int>(i) + 1;
  }
  return -1;
}

int igd_tool_get_port_value(std::string node) {
  const int bits[] = {0, 1, 2, 4, 8, 16, 32, 64, 128};
  const int index = igd_tool_get_port_index(node);
  return index < 0 ? 0 : bits[index];
}

bool isWlan(std::string node) { return has(node, "W"); }

std::string same_name(std::string name) { return name; }

int igd_tool_split_str(std::string text, std::string delimiter_set, Names& out) {
  out.clear();
  std::string token;
  for (const char letter : text) {
    if (delimiter_set.find(letter) == std::string::npos) {
      token += letter;
      continue;
    }
    out.push_back(token);
    token.clear();
  }
  if (!token.empty()) out.push_back(token);
  return static_cast<int>(out.size());
}

int igd_tool_loop_instance(std::string path, int type, Names& out) {
  out = list(path, type);
  return static_cast<int>(out.size());
}

std::string igd_tool_loop_fullname(std::string path, int type, std::string text) {
  return first_with(path, type, text);
}

void _delete_node(Names& names, std::string name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] != name) continue;
    names.erase(names.begin() + static_cast<std::ptrdiff_t>(i));
    return;
  }
}

}  // namespace reference
