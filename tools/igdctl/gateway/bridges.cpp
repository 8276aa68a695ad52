#include "gateway/bridges.h"

#include <algorithm>

#include "gateway/tree_reader.h"
#include "igd_vocabulary.h"

namespace igdctl {

namespace {

Bridge read_bridge(MibAccess& tree, const std::string& path) {
  Bridge bridge;
  bridge.path = path;
  bridge.name = value_in(tree, path, "BridgeName");
  bridge.wan_path = value_in(tree, path, "X_ZYN_WANName");
  bridge.standard = value_in(tree, path, "BridgeStandard");
  bridge.vlan = value_in(tree, path, "VLANID");
  bridge.priority = value_in(tree, path, "X_ZYN_VLANPriority");
  bridge.enabled = is_true(value_in(tree, path, "BridgeEnable"));
  return bridge;
}

Port read_port(MibAccess& tree, const std::string& path) {
  Port port;
  port.path = path;
  port.bridge_path = parent_of(parent_of(path));
  port.node = value_in(tree, path, "PortInterface");
  port.depend_wan = value_in(tree, path, "X_ZYN_DependWanName");
  port.pvid = value_in(tree, path, "PVID");
  port.enabled = is_true(value_in(tree, path, "PortEnable"));
  return port;
}

}  // namespace

std::vector<Bridge> read_bridges(MibAccess& tree) {
  std::vector<Bridge> bridges;
  for (const std::string& name : instances_below(igd::kBridgeTable, kBridgeName)) {
    bridges.push_back(read_bridge(tree, parent_of(name)));
  }
  for (const std::string& name : instances_below(igd::kBridgeTable, kPortInterface)) {
    Port port = read_port(tree, parent_of(name));
    for (Bridge& bridge : bridges) {
      if (bridge.path == port.bridge_path) bridge.ports.push_back(port);
    }
  }
  return bridges;
}

std::vector<std::string> nodes_of(const Bridge& bridge) {
  std::vector<std::string> nodes;
  for (const Port& port : bridge.ports) nodes.push_back(port.node);
  return nodes;
}

bool is_shared_node(const std::string& node) {
  return igd::is_wan_side_port(node) || igd::is_shared_device(node);
}

std::vector<std::string> assignable_nodes(const std::vector<Bridge>& bridges) {
  std::vector<std::string> nodes;
  for (const Bridge& bridge : bridges) {
    for (const Port& port : bridge.ports) {
      const bool other = port.node.empty() || is_shared_node(port.node) ||
                         std::find(nodes.begin(), nodes.end(), port.node) != nodes.end();
      if (!other) nodes.push_back(port.node);
    }
  }
  std::sort(nodes.begin(), nodes.end());
  if (nodes.empty()) nodes.assign(igd::kBindablePorts.begin(), igd::kBindablePorts.end());
  return nodes;
}

}  // namespace igdctl
