#include "wan/preserved_values.h"

#include <algorithm>

#include "gateway/tree_reader.h"
#include "igd_api.h"

namespace igdctl {

namespace {

// Servers are kept unless they are other ones: a description would write the same ones otherwise.
constexpr char kNewServers[] = "new dns";
constexpr char kNewMode[] = "new mode";

}  // namespace

struct PreservedValues::Row {
  const char* parameter;
  std::vector<std::string> keys;
};

PreservedValues::PreservedValues(MibAccess& tree, const Connection& connection) : tree_(tree) {
  static const Row kOfDevice[] = {
      {"WANEthernetLinkConfig.X_CT-COM_Name", {"name"}},
      {"WANEthernetLinkConfig.X_CT-COM_VLANIDMark", {"vlan"}},
      {"WANEthernetLinkConfig.X_CT-COM_Mode", {"vlan"}},
  };
  static const Row kOfBridge[] = {{"BridgeStandard", {"vlan"}},
                                  {"VLANID", {"vlan"}},
                                  {"X_ZYN_VLANPriority", {"vlan", "priority"}}};
  for (const Row& row : kOfDevice) remember(connection.path, row);
  for (const Row& row : kOfBridge) remember(connection.bridge_path, row);
  remember_objects(connection.path);
  remember_ports(connection.bridge_path);
}

void PreservedValues::remember_objects(const std::string& wan_path) {
  static const Row kOfObject[] = {
      {"Enable", {"mode"}},
      {"ConnectionType", {"class"}},
      {"Name", {"name"}},
      {"X_CT-COM_ServiceList", {"service"}},
      {"NATEnabled", {"nat"}},
      {"X_CT-COM_LanInterface", {"bind_lan", "bind_wan"}},
      {"DNSEnabled", {kNewServers, kNewMode}},
      {"DNSServers", {kNewServers, kNewMode}},
  };
  std::vector<std::string> paths = instances_below(wan_path, kPppConnection);
  for (const std::string& name : instances_below(wan_path, kAddressingType)) {
    paths.push_back(parent_of(name));
  }
  for (const std::string& path : paths) {
    for (const Row& row : kOfObject) remember(path, row);
  }
}

void PreservedValues::remember_ports(const std::string& bridge_path) {
  static const Row kOfPort[] = {{"PVID", {"vlan"}}, {"PortEnable", {"vlan"}}};
  if (bridge_path.empty()) return;
  for (const std::string& name : instances_below(bridge_path, kPortInterface)) {
    for (const Row& row : kOfPort) remember(parent_of(name), row);
  }
}

void PreservedValues::remember(const std::string& object_path, const Row& row) {
  if (object_path.empty()) return;
  values_.push_back(
      {object_path, row.parameter, value_in(tree_, object_path, row.parameter), row.keys});
}

void PreservedValues::restore(const WanDraft& draft) {
  const auto is_named = [&draft](const std::string& key) {
    if (key == kNewServers) return draft.changes("dns");
    if (key == kNewMode) return draft.changes("mode");
    return draft.named.count(key) != 0;
  };
  std::vector<std::string> ports;
  for (const std::string& name : instances_below(kBridgeTable, kPortInterface)) {
    ports.push_back(parent_of(name));
  }
  const auto is_gone = [&ports](const std::string& path) {
    const bool port = path.find(".Port.") != std::string::npos;
    return port && std::find(ports.begin(), ports.end(), path) == ports.end();
  };
  for (const Value& value : values_) {
    if (std::any_of(value.keys.begin(), value.keys.end(), is_named)) continue;
    if (is_gone(value.object_path)) continue;
    if (value_in(tree_, value.object_path, value.parameter) == value.text) continue;
    (void)tree_.setValue(value.object_path + value.parameter, value.text, 0);
  }
}

}  // namespace igdctl
