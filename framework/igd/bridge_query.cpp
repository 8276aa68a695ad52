#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_common.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"

namespace {

constexpr char kConnectionDeviceMark[] = ".WANConnectionDevice.";

std::string text_up_to_dot(const std::string& path, std::size_t start) {
  if (start >= path.size()) return {};
  return path.substr(start, path.find('.', start) - start);
}

// The texts between the fixed parts are taken as they are: "01" stays "01".
std::string expected_bridge_name(const std::string& wan_path) {
  const std::size_t mark = wan_path.find(kConnectionDeviceMark);
  const std::string connection =
      mark == std::string::npos
          ? std::string()
          : text_up_to_dot(wan_path, mark + sizeof(kConnectionDeviceMark) - 1);
  return "br_" + text_up_to_dot(wan_path, sizeof(igd::kWanDeviceTable) - 1) + '_' + connection;
}

// A bridge belongs to a connection when it both names the connection and has the expected name.
std::optional<std::string> bridge_of_wan(const std::string& wan_path,
                                         const std::string& expected_name) {
  for (const std::string& owner : igd::instances_below(igd::kEverywhere, kBridgeWanName)) {
    if (!igd::has_value(owner, wan_path)) continue;
    std::string bridge_path = objectPathOf(owner);
    if (igd::value_is(bridge_path, "BridgeName", expected_name)) return bridge_path;
  }
  return std::nullopt;
}

}  // namespace

namespace igd {

bool is_vlan_bridge(const std::string& bridge_path) {
  return igd::value_is(bridge_path, "BridgeStandard", kTaggedStandard);
}

std::string owner_of_port(const std::string& parameter) {
  std::string owner = _get_value(bridge_of_port_parameter(parameter), "X_ZYN_WANName");
  if (owner.empty()) owner = _get_value(port_of(parameter), "X_ZYN_DependWanName");
  return owner;
}

std::string bridge_named(const std::string& name) {
  return objectPathOf(parameter_with_value(kEverywhere, kBridgeName, name));
}

}  // namespace igd

std::string igd_get_bridge_info(std::string connection_path) {
  if (igd::contains(connection_path, "LANDevice")) return igd::kLanBridgeName;
  ensureContext();
  const std::string owner =
      igd::parameter_with_value(igd::kEverywhere, kBridgeWanName, connection_path);
  return owner.empty() ? std::string() : _get_value(objectPathOf(owner), "BridgeName");
}

int igd_wan_get_lan_bridge_info(std::string wan_path, std::string* lan_bridge_path,
                                std::string* lan_bridge_name) {
  if (igd::tree() == nullptr) return kIgdNoTree;
  // Kept: the connection's objects are looked up, though no output depends on them.
  (void)igd::connection_paths_of(wan_path);
  const std::string bridge_path = igd::bridge_named(igd::kLanBridgeName);
  if (lan_bridge_path != nullptr) *lan_bridge_path = bridge_path;
  if (lan_bridge_name != nullptr) *lan_bridge_name = igd::kLanBridgeName;
  return kIgdOk;
}

int igd_wan_get_wan_bridge_info(std::string wan_path, std::string* bridge_path,
                                std::string* bridge_name) {
  ensureContext();
  c_debug_out(igd::kUnit, __LINE__, "INDEX=%s", wan_path.c_str());
  const std::string expected_name = expected_bridge_name(wan_path);
  if (bridge_name != nullptr) *bridge_name = expected_name;
  const std::optional<std::string> found = bridge_of_wan(wan_path, expected_name);
  if (!found) return kIgdNoWan;
  if (bridge_path != nullptr) *bridge_path = *found;
  return kIgdOk;
}

std::string igd_wan_intf(std::string wan_path, std::vector<std::string>& ports,
                         unsigned int& vlan_id) {
  if (igd::tree() == nullptr) return {};
  ports.clear();
  std::string bridge_path;
  // Kept: without a bridge the path stays empty, and the ports of every bridge are listed.
  (void)igd_wan_get_wan_bridge_info(wan_path, &bridge_path, nullptr);
  for (const std::string& port : igd::instances_below(bridge_path, kPortInterface)) {
    ports.push_back(igd::value_of(port));
  }
  vlan_id = static_cast<unsigned int>(igd::number_at(bridge_path, "VLANID"));
  return _get_value(bridge_path, "BridgeName");
}

int igd_wan_get_bridge_info_from_phy(std::string phy, std::string* bridge_path,
                                     std::string* bridge_name) {
  if (igd::tree() == nullptr) return kIgdNoTree;
  for (const std::string& port : igd::instances_below(igd::kEverywhere, kPortInterface)) {
    const std::string node = igd::value_of(port);
    const std::string bridge = igd::bridge_of_port_parameter(port);
    const bool tagged = igd::is_vlan_bridge(bridge);
    const int vlan = igd::number_at(bridge, "VLANID");
    if (igd::physical_name(node, tagged, vlan) != phy) continue;
    // Kept: the scan goes on, so the last match decides.
    if (bridge_path != nullptr) *bridge_path = bridge;
    if (bridge_name != nullptr) *bridge_name = _get_value(bridge, "BridgeName");
  }
  return kIgdOk;
}
