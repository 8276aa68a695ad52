#include "state.h"

#include <algorithm>
#include <cstdlib>

namespace model {
namespace {

struct Device {
  const char* node;
  const char* name;
  bool takes_suffix;
};

constexpr Device kDevices[] = {
    {"LAN0", "eth0", true},   {"LAN1", "eth1", true},    {"LAN2", "eth1", true},
    {"LAN3", "eth1", true},   {"LAN4", "eth1", true},    {"LAN5", "usb0", false},
    {"WLAN1", "ath0", false}, {"WLAN2", "ath1", false},  {"WLAN3", "ath2", false},
    {"WLAN4", "ath4", false}, {"WIFIW0", "ath3", false}, {"3G0", "3g", false},
};

const Device* find_device(const std::string& node) {
  for (const Device& device : kDevices) {
    if (node == device.node) return &device;
  }
  return nullptr;
}

}  // namespace

State::State() {
  Bridge lan;
  lan.name = "internet";
  lan.standard = "802.1D";
  lan.vlan = "0";
  for (const char* node : {"LAN1", "LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4"}) {
    Port port;
    port.node = node;
    lan.ports.push_back(port);
  }
  bridges[last_bridge] = lan;
}

std::string text_of(const Texts& texts, const std::string& parameter) {
  const auto found = texts.find(parameter);
  if (found != texts.end()) return found->second;
  if (parameter == "Enable") return "false";
  if (parameter == "DNSEnabled") return "true";
  return parameter == "X_CT-COM_Mode" || parameter == "X_CT-COM_VLANIDMark" ? "0" : "";
}

std::string uplink_path(int number) {
  return "InternetGatewayDevice.WANDevice." + std::to_string(number) + '.';
}

std::string path_of(ConnectionId id) {
  return uplink_path(id.first) + "WANConnectionDevice." + std::to_string(id.second) + '.';
}

std::string bridge_path(int number) {
  if (number == 0) return {};
  return "InternetGatewayDevice.Layer2Bridging.Bridge." + std::to_string(number) + '.';
}

std::string object_path(ConnectionId id, Kind kind) {
  if (id.first == 0) return {};
  const char* const below[] = {"WANIPConnection.1.", "WANIPConnection.2.", "WANPPPConnection.1."};
  return path_of(id) + below[kind];
}

bool begins_with(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

bool is_among(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

int leading_number(const std::string& text) { return std::atoi(text.c_str()); }

bool is_uplink_port(const std::string& node) {
  return node == "LAN0" || node == "3G0" || node == "WIFIW0";
}

std::string device_of(const std::string& node) {
  const Device* device = find_device(node);
  return device == nullptr ? "" : device->name;
}

bool takes_suffix(const std::string& node) {
  const Device* device = find_device(node);
  return device != nullptr && device->takes_suffix;
}

}  // namespace model
