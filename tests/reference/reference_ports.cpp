// Moving ports between a connection's bridge and the LAN bridge, as the reference tells it.
#include "reference_tools.h"

namespace reference {
namespace {

Names missing(const Names& names, const Names& in) {
  Names left;
  for (const std::string& name : names) {
    bool found = false;
    for (const std::string& other : in) found = found || other == name;
    if (!found) left.push_back(name);
  }
  return left;
}

void remove_ports(const std::string& bridge, const Names& leaving) {
  if (leaving.empty()) return;
  for (const std::string& port : list(bridge, 205)) {
    const std::string node = value(port);
    for (const std::string& name : leaving) {
      if (name == node) delete_port(parent(port));
    }
  }
}

}  // namespace

void update_ports(const wan_mib_info& mib, api_wan_info* info) {
  const std::string& own = mib.wan_bridge_path;
  const std::string& lan = mib.lan_bridge_path;
  const int old_tagging = read(own, "BridgeStandard") == "802.1Q" ? 1 : 0;
  const int old_vlan = number(read(own, "VLANID"));
  if (info->connection_class != mib.connect_class || info->vlan_enable != old_tagging ||
      info->vlan_id != old_vlan) {
    for (const std::string& enable : list(own, 203)) {
      write("", enable, "false");
      write(parent(enable), "PVID", std::to_string(info->vlan_id));
    }
  }
  write_link_and_vlan(own, mib.wan_path, info->vlan_enable, info->vlan_id);
  if (info->vlan_enable != 0) write(own, "X_ZYN_VLANPriority", std::to_string(info->vlan_priority));

  Names old_wan, old_lan, old_free;
  for (const std::string& port : list(own, 205)) {
    const std::string node = value(port);
    if (!is_uplink(node)) old_wan.push_back(node);
  }
  for (const std::string& depend : list(lan, 204)) {
    const std::string owner = value(depend);
    if (owner == mib.wan_path) {
      old_lan.push_back(read(parent(depend), "PortInterface"));
    } else if (owner.empty()) {
      old_free.push_back(read(parent(depend), "PortInterface"));
    }
  }
  Names old_all = old_wan, new_all = info->bind_wan;
  for (const Names* names : {&old_lan, &old_free}) {
    old_all.insert(old_all.end(), names->begin(), names->end());
  }
  new_all.insert(new_all.end(), info->bind_lan.begin(), info->bind_lan.end());
  const Names new_free = missing(old_all, new_all);
  const Names new_wan = info->bind_wan, new_lan = info->bind_lan;
  remove_ports(lan, missing(old_free, new_free));
  remove_ports(lan, missing(old_lan, new_lan));
  remove_ports(own, missing(old_wan, new_wan));
  for (const std::string& node : missing(new_wan, old_wan)) create_port(own, "", node, info);
  for (const std::string& node : missing(new_lan, old_lan)) {
    create_port(lan, mib.wan_path, node, info);
  }
  for (const std::string& node : missing(new_free, old_free)) create_port(lan, "", node, info);
  for (const std::string& enable : list(own, 203)) {
    write("", enable, "true");
    for (const auto& [node, option60] : info->port_option60) {
      if (read(parent(enable), "PortInterface") != node) continue;
      write(parent(enable), "PortOption60", option60);
      break;
    }
  }
}

}  // namespace reference
