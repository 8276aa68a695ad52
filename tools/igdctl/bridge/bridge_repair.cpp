#include "bridge/bridge_repair.h"

#include <algorithm>

#include "gateway/bridge_names.h"
#include "gateway/tree_reader.h"
#include "gateway/tree_writer.h"
#include "igd_vocabulary.h"
#include "term/text.h"

namespace igdctl {

namespace {

void write_vlan(MibAccess& tree, const std::string& bridge_path, const std::string& wan_path) {
  long vlan = 0;
  const std::string mark = value_in(tree, wan_path, "WANEthernetLinkConfig.X_CT-COM_VLANIDMark");
  const bool tagged = parse_number(mark, igd::kLowestVlan, igd::kHighestVlan, &vlan);
  write_value(tree, bridge_path, "BridgeStandard",
              tagged ? igd::kTaggedStandard : igd::kUntaggedStandard);
  write_value(tree, bridge_path, "VLANID", std::to_string(vlan));
  if (tagged) write_value(tree, bridge_path, "X_ZYN_VLANPriority", "0");
}

// The LAN bridge gives a VLAN only to bound ports; another bridge gives its own to all.
void add_port(MibAccess& tree, const std::string& bridge_path, const std::string& node,
              const std::string& option60) {
  const bool in_lan = value_in(tree, bridge_path, "BridgeName") == igd::kLanBridgeName;
  const std::string vlan = in_lan ? std::string() : value_in(tree, bridge_path, "VLANID");
  const std::string port_path = add_instance(tree, bridge_path + "Port.");
  write_value(tree, port_path, "PVID", vlan);
  write_value(tree, port_path, "PortInterface", node);
  if (!in_lan && !igd::is_wan_side_port(node)) {
    write_value(tree, port_path, "PortOption60", option60);
  }
  write_value(tree, port_path, "PortEnable", igd::kTrue);
}

void delete_port(MibAccess& tree, const Port& port) {
  write_value(tree, port.path, "PortEnable", igd::kFalse);
  delete_instance(tree, port.path);
}

bool is_only_in(const std::vector<Port>& ports, const Bridge& bridge) {
  return std::all_of(ports.begin(), ports.end(),
                     [&bridge](const Port& port) { return port.bridge_path == bridge.path; });
}

}  // namespace

std::vector<Port> ports_with_node(const std::vector<Bridge>& bridges, const std::string& node) {
  std::vector<Port> found;
  for (const Bridge& bridge : bridges) {
    for (const Port& port : bridge.ports) {
      if (port.node == node) found.push_back(port);
    }
  }
  return found;
}

std::string make_own_bridge(MibAccess& tree, const Connection& connection) {
  std::string bridge_path = add_instance(tree, igd::kBridgeTable);
  write_value(tree, bridge_path, "BridgeName", connection.bridge_name);
  write_vlan(tree, bridge_path, connection.path);
  write_value(tree, bridge_path, "X_ZYN_WANName", connection.path);
  write_value(tree, bridge_path, "BridgeEnable", igd::kTrue);
  const std::string uplink(igd::uplink_port_of(connection.access));
  if (!uplink.empty()) add_port(tree, bridge_path, uplink, {});
  return bridge_path;
}

void take_bridge_away(MibAccess& tree, const Bridge& bridge, const std::vector<Bridge>& bridges) {
  const Bridge* const lan = find_lan_bridge(bridges);
  std::vector<std::string> released;
  for (const Port& port : bridge.ports) {
    const bool elsewhere = !is_only_in(ports_with_node(bridges, port.node), bridge);
    const bool known = std::find(released.begin(), released.end(), port.node) != released.end();
    const bool unassigned =
        !port.node.empty() && !igd::is_wan_side_port(port.node) && !elsewhere && !known;
    if (unassigned) released.push_back(port.node);
    delete_port(tree, port);
  }
  write_value(tree, bridge.path, "BridgeEnable", igd::kFalse);
  delete_instance(tree, bridge.path);
  if (lan == nullptr) return;
  for (const std::string& node : released) add_port(tree, lan->path, node, {});
}

bool is_in_place(const std::string& node, const Bridge& target,
                 const std::vector<Bridge>& bridges) {
  const std::vector<Port> ports = ports_with_node(bridges, node);
  return ports.size() == 1 && ports.front().bridge_path == target.path &&
         ports.front().depend_wan.empty();
}

void move_port(MibAccess& tree, const std::string& node, const Bridge& target,
               const std::vector<Bridge>& bridges) {
  std::string option60;
  for (const Port& port : ports_with_node(bridges, node)) {
    const std::string text = value_in(tree, port.path, "PortOption60");
    if (option60.empty() || port.bridge_path == target.path) option60 = text;
    delete_port(tree, port);
  }
  add_port(tree, target.path, node, option60);
}

}  // namespace igdctl
