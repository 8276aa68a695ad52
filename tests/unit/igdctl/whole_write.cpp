#include "whole_write.h"

#include <algorithm>
#include <set>

#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "igd_vocabulary.h"

namespace igdctl_tests {

namespace {

using namespace igdctl;

// Servers are kept unless they are other ones, or those of another object.
constexpr char kNewServers[] = "new dns";
constexpr char kNewMode[] = "new mode";

struct Row {
  const char* parameter;
  std::vector<std::string> keys;  // of the fields that may change it
};

struct Kept {
  std::string object_path;
  Row row;
  std::string text;
};

const Row kOfDevice[] = {{"WANEthernetLinkConfig.X_CT-COM_Name", {"name"}},
                         {"WANEthernetLinkConfig.X_CT-COM_VLANIDMark", {"vlan"}},
                         {"WANEthernetLinkConfig.X_CT-COM_Mode", {"vlan"}}};
const Row kOfBridge[] = {{"BridgeStandard", {"vlan"}},
                         {"VLANID", {"vlan"}},
                         {"X_ZYN_VLANPriority", {"vlan", "priority"}}};
const Row kOfObject[] = {{"Enable", {"mode"}},
                         {"ConnectionType", {"class"}},
                         {"Name", {"name"}},
                         {"X_CT-COM_ServiceList", {"service"}},
                         {"NATEnabled", {"nat"}},
                         {"X_CT-COM_LanInterface", {"bind_lan", "bind_wan"}},
                         {"DNSEnabled", {kNewServers, kNewMode}},
                         {"DNSServers", {kNewServers, kNewMode}}};
const Row kOfPort[] = {{"PVID", {"vlan"}}, {"PortEnable", {"vlan"}}};

class Keeper {
 public:
  Keeper(MibAccess& tree, const Connection& connection) : tree_(tree) {
    for (const Row& row : kOfDevice) keep(connection.path, row);
    for (const Row& row : kOfBridge) keep(connection.bridge_path, row);
    std::vector<std::string> paths = instances_below(connection.path, kPppConnection);
    for (const std::string& name : instances_below(connection.path, kAddressingType)) {
      paths.push_back(parent_of(name));
    }
    for (const std::string& path : paths) {
      for (const Row& row : kOfObject) keep(path, row);
    }
    for (const std::string& name : instances_below(connection.bridge_path, kPortInterface)) {
      for (const Row& row : kOfPort) keep(parent_of(name), row);
    }
  }

  void put_back(const WanDraft& draft) {
    const auto is_named = [&draft](const std::string& key) {
      if (key == kNewServers) return draft.changes("dns");
      return key == kNewMode ? draft.changes("mode") : draft.names(key.c_str());
    };
    std::set<std::string> ports;
    for (const std::string& name : instances_below(igd::kBridgeTable, kPortInterface)) {
      ports.insert(parent_of(name));
    }
    for (const Kept& kept : kept_) {
      const std::vector<std::string>& keys = kept.row.keys;
      const bool port = kept.object_path.find(".Port.") != std::string::npos;
      if (std::any_of(keys.begin(), keys.end(), is_named)) continue;
      if (port && ports.count(kept.object_path) == 0) continue;
      if (value_in(tree_, kept.object_path, kept.row.parameter) == kept.text) continue;
      (void)tree_.setValue(kept.object_path + kept.row.parameter, kept.text, 0);
    }
  }

 private:
  void keep(const std::string& path, const Row& row) {
    kept_.push_back({path, row, value_in(tree_, path, row.parameter)});
  }

  MibAccess& tree_;
  std::vector<Kept> kept_;
};

}  // namespace

void write_whole(MibAccess& tree, const Connection& connection, WanDraft draft) {
  Keeper keeper(tree, connection);
  (void)igd_wan_set_params(connection.path, &draft.info);
  keeper.put_back(draft);
}

}  // namespace igdctl_tests
