// How ports move between a connection's own bridge, the LAN bridge where they are bound to it, and
// the LAN bridge where they are bound to nothing.
#include "model.h"

namespace model {
namespace {

/// The elements of `from` that `others` does not have.
Names without(const Names& from, const Names& others) {
  Names rest;
  for (const std::string& name : from) {
    if (!is_among(others, name)) rest.push_back(name);
  }
  return rest;
}

Names joined(const Names& first, const Names& second) {
  Names all = first;
  all.insert(all.end(), second.begin(), second.end());
  return all;
}

}  // namespace

void Model::update_ports(const std::string& path, const Entry& entry, api_wan_info& info) {
  const auto found = state_.bridges.find(entry.own_bridge);
  Bridge* own = found == state_.bridges.end() ? nullptr : &found->second;
  const int old_tagging = own != nullptr && own->standard == "802.1Q" ? 1 : 0;
  const int old_vlan = own == nullptr ? 0 : leading_number(own->vlan);
  if (info.connection_class != entry.connect_class || info.vlan_enable != old_tagging ||
      info.vlan_id != old_vlan) {
    disable_ports(entry.own_bridge, info.vlan_id);
  }
  tag(own, path, info, info.vlan_id);
  move_ports(path, entry, info);
  enable_ports(entry.own_bridge, info);
}

void Model::disable_ports(int bridge, int vlan) {
  for (const int number : bridges_meant_by(bridge)) {
    for (Port& port : state_.bridges.at(number).ports) {
      port.enabled = false;
      port.vlan = std::to_string(vlan);
    }
  }
}

void Model::enable_ports(int bridge, const api_wan_info& info) {
  for (const int number : bridges_meant_by(bridge)) {
    for (Port& port : state_.bridges.at(number).ports) {
      port.enabled = true;
      const auto option = info.port_option60.find(port.node);
      if (option != info.port_option60.end()) port.option60 = option->second;
    }
  }
}

void Model::move_ports(const std::string& path, const Entry& entry, api_wan_info& info) {
  Names in_own, bound, free;
  for (const Port* port : ports_in(entry.own_bridge)) {
    if (!is_uplink_port(port->node)) in_own.push_back(port->node);
  }
  for (const Port* port : ports_in(entry.lan_bridge)) {
    if (port->wan == path) {
      bound.push_back(port->node);
    } else if (port->wan.empty()) {
      free.push_back(port->node);
    }
  }
  const Names wanted = joined(info.bind_wan, info.bind_lan);
  const Names released = without(joined(joined(in_own, bound), free), wanted);
  delete_ports(entry.lan_bridge, without(free, released));
  delete_ports(entry.lan_bridge, without(bound, info.bind_lan));
  delete_ports(entry.own_bridge, without(in_own, info.bind_wan));
  for (const std::string& node : without(info.bind_wan, in_own)) {
    make_port(entry.own_bridge, "", node, &info);
  }
  for (const std::string& node : without(info.bind_lan, bound)) {
    make_port(entry.lan_bridge, path, node, &info);
  }
  for (const std::string& node : without(released, free)) {
    make_port(entry.lan_bridge, "", node, &info);
  }
}

}  // namespace model
