// Creating, deleting and moving bridge ports.
#include <algorithm>

#include "steps.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

bool contains(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// What stands in `from` and not in `others`, as often as it stands there.
Names missing(const Names& from, const Names& others) {
  Names result;
  for (const std::string& name : from) {
    if (!contains(others, name)) result.push_back(name);
  }
  return result;
}

Names joined(Names first, const Names& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

struct Groups {
  Names bind_wan;
  Names bind_lan;
  Names internet;
};

void disable_ports(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  for (const std::string& name : s.loop(mib.wan_bridge_path, 203)) {
    const std::string port = parent_of(name);
    const std::string vlan = std::to_string(info.vlan_id);
    s.set(name, "false");
    s.set(port + "PVID", vlan);
    s.print("vornik PVID %s = %s\n", port.c_str(), vlan.c_str());
  }
}

void rewrite_vlan(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  const std::string& bridge = mib.wan_bridge_path;
  const std::string link = mib.wan_path + "WANEthernetLinkConfig.";
  s.print("vornik info->vlan_enable = %d\n", info.vlan_enable);
  if (info.vlan_enable == 0) {
    s.set(bridge + "BridgeStandard", "802.1D");
    s.set(bridge + "VLANID", "0");
    s.set(link + "X_CT-COM_VLANIDMark", "0");
    s.set(link + "X_CT-COM_Mode", "0");
    return;
  }
  const std::string vlan = std::to_string(info.vlan_id);
  const std::string priority = std::to_string(info.vlan_priority);
  s.set(bridge + "BridgeStandard", "802.1Q");
  s.print("vornik %sVLANID = %s\n", bridge.c_str(), vlan.c_str());
  s.set(bridge + "VLANID", vlan);
  s.set(link + "X_CT-COM_VLANIDMark", vlan);
  if (s.get(link + "X_CT-COM_Mode") == "0") s.set(link + "X_CT-COM_Mode", "1");
  s.print("vornik %sX_ZYN_VLANPriority = %s\n", bridge.c_str(), priority.c_str());
  s.set(bridge + "X_ZYN_VLANPriority", priority);
}

Groups read_groups(Script& s, const wan_mib_info& mib) {
  Groups groups;
  for (const std::string& name : s.loop(mib.wan_bridge_path, 205)) {
    const std::string interface = s.get(name);
    if (!is_wan_side(interface)) groups.bind_wan.push_back(interface);
  }
  for (const std::string& name : s.loop(mib.lan_bridge_path, 204)) {
    const std::string owner = s.get(name);
    if (owner == mib.wan_path) {
      groups.bind_lan.push_back(s.get(parent_of(name) + "PortInterface"));
    } else if (owner.empty()) {
      groups.internet.push_back(s.get(parent_of(name) + "PortInterface"));
    }
  }
  return groups;
}

void trace_list(Script& s, int line, const char* label, const Names& names) {
  for (const std::string& name : names) {
    s.print("\n ------------- igd_api %d: %s %s \n", line, label, name.c_str());
  }
}

void marker(Script& s, int line) {
  s.print("\n ------------- igd_api _wan_port_update %d\n", line);
}

void remove_ports(Script& s, const std::string& bridge, const Names& removed, int marker_line,
                  int port_line, const char* group) {
  marker(s, marker_line);
  if (removed.empty()) return;
  for (const std::string& name : s.loop(bridge, 205)) {
    const std::string interface = s.get(name);
    for (const std::string& gone : removed) {
      if (gone != interface) continue;
      delete_port(s, parent_of(name));
      s.print("\n ------------- igd_api %d: %s remove from %s \n", port_line, gone.c_str(), group);
    }
  }
}

struct Target {
  std::string bridge;
  std::string depend_wan;
};

void create_ports(Script& s, const Target& target, const Names& added, api_wan_info& info,
                  int marker_line, int port_line, const char* group) {
  marker(s, marker_line);
  for (const std::string& interface : added) {
    create_port(s, target.bridge, target.depend_wan, interface, &info);
    s.print("\n ------------- igd_api %d: %s create %s \n", port_line, interface.c_str(), group);
  }
}

void enable_ports(Script& s, const wan_mib_info& mib, const api_wan_info& info) {
  for (const std::string& name : s.loop(mib.wan_bridge_path, 203)) {
    s.set(name, "true");
    s.print("\n ------------- igd_api _wan_port_update 1210 port:%s\n", name.c_str());
    for (const auto& option : info.port_option60) {
      if (s.get(parent_of(name) + "PortInterface") != option.first) continue;
      s.set(parent_of(name) + "PortOption60", option.second);
      break;
    }
  }
}

}  // namespace

void create_port(Script& s, const std::string& bridge, const std::string& depend_wan,
                 const std::string& interface, api_wan_info* info) {
  std::string vlan;
  if (s.get(bridge + "BridgeName") != "internet") {
    vlan = s.get(bridge + "VLANID");
  } else if (!depend_wan.empty()) {
    vlan = choose_vlan(s, 0, bridge, depend_wan);
    s.debug(667, "CREATE VLAN = %s", vlan.c_str());
  }
  const std::string table = bridge + "Port.";
  const std::string port = table + std::to_string(s.add(table)) + ".";
  s.set(port + "PVID", vlan);
  s.set(port + "PortInterface", interface);
  if (!depend_wan.empty()) {
    s.set(port + "X_ZYN_DependWanName", depend_wan);
  } else if (s.get(bridge + "BridgeName") != "internet" && !is_wan_side(interface) &&
             info != nullptr) {
    s.set(port + "PortOption60", info->port_option60[interface]);
  }
  s.set(port + "PortEnable", "true");
}

void delete_port(Script& s, const std::string& port) {
  s.set(port + "PortEnable", "false");
  s.erase(port);
}

void update_ports(Script& s, const wan_mib_info& mib, api_wan_info& info) {
  const int old_tagging = s.get(mib.wan_bridge_path + "BridgeStandard") == "802.1Q" ? 1 : 0;
  const int old_vlan = leading_number(s.get(mib.wan_bridge_path + "VLANID"));
  s.print("vornik _wan_port_update info->vlan_id = %d,old_vlan_id = %d\n", info.vlan_id, old_vlan);
  if (info.connection_class != mib.connect_class || info.vlan_enable != old_tagging ||
      info.vlan_id != old_vlan) {
    disable_ports(s, mib, info);
  }
  rewrite_vlan(s, mib, info);

  const Groups old = read_groups(s, mib);
  const Names old_all = joined(joined(old.bind_wan, old.bind_lan), old.internet);
  const Names new_all = joined(info.bind_wan, info.bind_lan);
  const Names new_internet = missing(old_all, new_all);
  trace_list(s, 1075, "OLD BIND WAN HAS", old.bind_wan);
  trace_list(s, 1080, "OLD BIND LAN HAS", old.bind_lan);
  trace_list(s, 1085, "OLD INTERNET HAS", old.internet);
  trace_list(s, 1090, "NEW BIND WAN HAS", info.bind_wan);
  trace_list(s, 1095, "NEW BIND LAN HAS", info.bind_lan);
  trace_list(s, 1102, "NEW CREATE", missing(new_all, old_all));
  trace_list(s, 1106, "NEW INTERNET", new_internet);

  const std::string& lan = mib.lan_bridge_path;
  const std::string& wan = mib.wan_bridge_path;
  remove_ports(s, lan, missing(old.internet, new_internet), 1110, 1123, "internet");
  remove_ports(s, lan, missing(old.bind_lan, info.bind_lan), 1129, 1140, "bind_lan");
  remove_ports(s, wan, missing(old.bind_wan, info.bind_wan), 1146, 1157, "bind_wan");
  // The lists are copies: what creation adds to the record's option table changes none of them.
  create_ports(s, {wan, ""}, missing(info.bind_wan, old.bind_wan), info, 1165, 1174, "bind_wan");
  create_ports(s, {lan, mib.wan_path}, missing(info.bind_lan, old.bind_lan), info, 1179, 1188,
               "bind_lan");
  create_ports(s, {lan, ""}, missing(new_internet, old.internet), info, 1193, 1202, "internet");
  enable_ports(s, mib, info);
}

}  // namespace foreign
