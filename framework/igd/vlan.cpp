#include "vlan.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_common.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"

namespace {

constexpr int kPrivateEnd = igd::kFirstPrivateVlan + igd::kPrivateVlanCount;
constexpr char kPrivateFallback[] = "789";
constexpr int kUnusedFallback = 3999;

constexpr int kBoundPortLine = 82;  // fixed: field tools look for these lines
constexpr int kNoVlanLine = 108;

constexpr char kLinkConfig[] = "WANEthernetLinkConfig.";

// A bound wireless, USB or 3G port does not lend its VLAN.
bool lends_its_vlan(const std::string& physical) { return igd::contains(physical, "eth"); }

// The PVID of the first Ethernet port bound to the connection, even an empty one.
std::optional<std::string> vlan_of_bound_port(const std::string& bridge_path,
                                              const std::string& bind_wan) {
  for (const std::string& owner : igd::instances_below(bridge_path, kPortDependWanName)) {
    if (!igd::has_value(owner, bind_wan)) continue;
    const std::string port_path = objectPathOf(owner);
    const std::string node = _get_value(port_path, "PortInterface");
    const std::string physical = igd::physical_name(node, false, 0);
    if (!lends_its_vlan(physical)) continue;
    std::string vlan = _get_value(port_path, "PVID");
    c_debug_out(igd::kUnit, kBoundPortLine, "FIND vlan_id = %s, ifname=(%s,%s), for bind_wan=%s",
                vlan.c_str(), node.c_str(), physical.c_str(), bind_wan.c_str());
    return vlan;
  }
  return std::nullopt;
}

// Every candidate asks the tree anew.
bool is_taken(int candidate, const std::vector<std::string>& pvids) {
  for (const std::string& pvid : pvids) {
    if (igd::number_of(pvid) == candidate) return true;
  }
  return false;
}

}  // namespace

std::string _find_vlan_id(int vlan_id, std::string bridge_path, std::string bind_wan) {
  if (!bind_wan.empty()) {
    if (std::optional<std::string> vlan = vlan_of_bound_port(bridge_path, bind_wan)) return *vlan;
  }
  std::vector<std::string> pvids = igd::instances_below(igd::kEverywhere, kPortPvid);
  // Kept: the connection's VLAN joins the list as if it were a parameter's name, so it counts only
  // if the tree knows a parameter of that name.
  pvids.push_back(std::to_string(vlan_id));
  for (int candidate = igd::kFirstPrivateVlan; candidate < kPrivateEnd; ++candidate) {
    if (!is_taken(candidate, pvids)) return std::to_string(candidate);
  }
  c_debug_out(igd::kUnit, kNoVlanLine, "NO VALID VLAN ID");
  return kPrivateFallback;
}

int igd_wan_get_unused_vlan() {
  ensureContext();
  std::vector<int> used;
  for (const std::string& vlan : igd::instances_below(igd::kEverywhere, kBridgeVlanId)) {
    const int number = igd::number_of(vlan);
    if (number != 0) used.push_back(number);
  }
  for (int candidate = igd::kFirstSearchedVlan; candidate < igd::kFirstPrivateVlan; ++candidate) {
    if (std::find(used.begin(), used.end(), candidate) == used.end()) return candidate;
  }
  return kUnusedFallback;
}

namespace igd {

void write_untagged(const std::string& bridge_path, const std::string& wan_path) {
  const std::string link_path = wan_path + kLinkConfig;
  _set_value(bridge_path, "BridgeStandard", kUntaggedStandard);
  _set_value(bridge_path, "VLANID", "0");
  _set_value(link_path, "X_CT-COM_VLANIDMark", "0");
  _set_value(link_path, "X_CT-COM_Mode", "0");
}

void write_vlan(const std::string& bridge_path, const std::string& wan_path,
                const std::string& vlan) {
  const std::string link_path = wan_path + kLinkConfig;
  _set_value(bridge_path, "VLANID", vlan);
  _set_value(link_path, "X_CT-COM_VLANIDMark", vlan);
  if (igd::value_is(link_path, "X_CT-COM_Mode", "0")) _set_value(link_path, "X_CT-COM_Mode", "1");
}

}  // namespace igd
