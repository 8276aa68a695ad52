// Bridges, their ports and the VLANs of both.
#include <algorithm>

#include "model.h"

namespace model {
namespace {

constexpr int kFirstLanVlan = 4060;
constexpr int kLastLanVlan = 4080;
const char* const kLanVlanOfLastResort = "789";

/// From `start` up to the next dot.
std::string piece(const std::string& text, std::size_t start) {
  return start >= text.size() ? "" : text.substr(start, text.find('.', start) - start);
}

}  // namespace

std::string bridge_name_for(const std::string& path) {
  const std::string devices = "InternetGatewayDevice.WANDevice.";
  const std::string connections = ".WANConnectionDevice.";
  const std::size_t below = path.find(connections);
  return "br_" + piece(path, devices.size()) + '_' +
         (below == std::string::npos ? "" : piece(path, below + connections.size()));
}

/// "No bridge" means every one, wherever ports are listed.
std::vector<int> Model::bridges_meant_by(int bridge) const {
  std::vector<int> numbers;
  for (const auto& [number, found] : state_.bridges) {
    if (bridge == 0 || bridge == number) numbers.push_back(number);
  }
  return numbers;
}

std::vector<const Port*> Model::ports_in(int bridge) const {
  std::vector<const Port*> ports;
  for (const int number : bridges_meant_by(bridge)) {
    for (const Port& port : state_.bridges.at(number).ports) ports.push_back(&port);
  }
  return ports;
}

int Model::bridge_named(const std::string& name) const {
  for (const auto& [number, bridge] : state_.bridges) {
    if (bridge.name == name) return number;
  }
  return 0;
}

int Model::lan_bridge() const { return bridge_named("internet"); }

int Model::own_bridge(const std::string& path) const {
  for (const auto& [number, bridge] : state_.bridges) {
    if (bridge.wan == path && bridge.name == bridge_name_for(path)) return number;
  }
  return 0;
}

int Model::make_bridge(const std::string& name, const std::string& path, const api_wan_info& info,
                       int vlan) {
  Bridge& bridge = state_.bridges[++state_.last_bridge];
  bridge.name = name;
  tag(&bridge, path, info, vlan);
  return state_.last_bridge;
}

/// The VLAN of a bridge and of the Ethernet link of a connection.
void Model::tag(Bridge* bridge, const std::string& path, const api_wan_info& info, int vlan) {
  const bool tagged = info.vlan_enable != 0;
  const std::string text = tagged ? std::to_string(vlan) : "0";
  if (bridge == nullptr) {
    state_.refused = true;
  } else {
    bridge->standard = tagged ? "802.1Q" : "802.1D";
    bridge->vlan = text;
    if (tagged) bridge->priority = std::to_string(info.vlan_priority);
  }
  const auto found = state_.connections.find(id_of(path));
  if (found == state_.connections.end()) {
    state_.refused = true;
    return;
  }
  found->second.link["X_CT-COM_VLANIDMark"] = text;
  found->second.link["X_CT-COM_Mode"] = tagged ? "1" : "0";
}

void Model::make_port(int bridge, const std::string& wan, const std::string& node,
                      api_wan_info* info) {
  const auto found = state_.bridges.find(bridge);
  const bool in_lan = found != state_.bridges.end() && found->second.name == "internet";
  Port port;
  port.node = node;
  port.wan = wan;
  if (in_lan) {
    if (!wan.empty()) port.vlan = lan_vlan(bridge, wan);
  } else if (found != state_.bridges.end()) {
    port.vlan = found->second.vlan;
  }
  // Asking the record for an option it does not have leaves an empty one in it.
  const bool has_option = wan.empty() && !in_lan && !is_uplink_port(node) && info != nullptr;
  if (has_option) port.option60 = info->port_option60[node];
  if (found == state_.bridges.end()) {
    state_.refused = true;
  } else {
    found->second.ports.push_back(port);
  }
}

/// That of an Ethernet port which is bound to the connection already, else the lowest one that no
/// port has.
std::string Model::lan_vlan(int bridge, const std::string& wan) const {
  for (const Port* port : ports_in(bridge)) {
    const bool lends = contains(device_of(port->node), "eth");
    if (!wan.empty() && port->wan == wan && lends) return port->vlan;
  }
  const std::vector<const Port*> all = ports_in(0);
  for (int vlan = kFirstLanVlan; vlan <= kLastLanVlan; ++vlan) {
    const auto has_it = [vlan](const Port* port) { return leading_number(port->vlan) == vlan; };
    if (std::none_of(all.begin(), all.end(), has_it)) return std::to_string(vlan);
  }
  return kLanVlanOfLastResort;
}

/// By name alone: a name that is there twice goes twice, one that is listed twice is asked twice.
void Model::delete_ports(int bridge, const Names& removed) {
  for (const int number : bridges_meant_by(bridge)) {
    std::vector<Port>& ports = state_.bridges.at(number).ports;
    for (const Port& port : ports) {
      if (std::count(removed.begin(), removed.end(), port.node) > 1) state_.refused = true;
    }
    ports.erase(std::remove_if(ports.begin(), ports.end(),
                               [&](const Port& port) { return is_among(removed, port.node); }),
                ports.end());
  }
}

void Model::release_all_ports(int bridge) {
  for (const int number : bridges_meant_by(bridge)) state_.bridges.at(number).ports.clear();
}

Names Model::release_bound_ports(int bridge, const std::string& path) {
  Names released;
  for (const int number : bridges_meant_by(bridge)) {
    std::vector<Port>& ports = state_.bridges.at(number).ports;
    for (const Port& port : ports) {
      if (port.wan == path) released.push_back(port.node);
    }
    ports.erase(std::remove_if(ports.begin(), ports.end(),
                               [&](const Port& port) { return port.wan == path; }),
                ports.end());
  }
  return released;
}

}  // namespace model
