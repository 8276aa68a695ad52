#include <string>
#include <vector>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "services.h"
#include "text.h"
#include "tree_query.h"

namespace {

using Names = std::vector<std::string>;

// The LAN bridge is nobody's. Any other bridge with this VLAN is in the way, unless it belongs to
// the connection being changed.
bool vlan_is_taken(const std::string& wan_path, const std::string& vlan_text) {
  for (const std::string& vlan : igd::instances_below(igd::kEverywhere, kBridgeVlanId)) {
    if (!igd::has_value(vlan, vlan_text)) continue;
    const std::string bridge_path = objectPathOf(vlan);
    if (igd::value_is(bridge_path, "BridgeName", igd::kLanBridgeName)) continue;
    if (wan_path.empty()) return true;
    if (!igd::value_is(bridge_path, "X_ZYN_WANName", wan_path)) return true;
  }
  return false;
}

// Kept: only a request for exactly "TR069" is refused; any list that contains it refuses.
bool second_management_connection(const api_wan_info& info) {
  if (info.service_type != igd::kManagementService) return false;
  for (const std::string& list : igd::instances_below(igd::kEverywhere, kServiceList)) {
    if (igd::contains(igd::value_of(list), igd::kManagementService)) return true;
  }
  return false;
}

// Kept: of a new connection the first service list of the whole tree is asked.
bool carries_management(const std::string& wan_path) {
  return igd::contains(igd::first_service_list(wan_path), igd::kManagementService);
}

bool held_by_another(const std::string& wan_path, const std::string& node) {
  const std::string port = igd::parameter_with_value(igd::kEverywhere, kPortInterface, node);
  if (port.empty()) return false;
  const std::string owner = igd::owner_of_port(port);
  return !owner.empty() && owner != wan_path && !igd::is_shared_device(node);
}

// The verdict on the first requested port that another connection holds; 0 when there is none.
int verdict_on_ports(const std::string& wan_path, const api_wan_info& info) {
  for (const Names* nodes : {&info.bind_lan, &info.bind_wan}) {
    for (const std::string& node : *nodes) {
      if (held_by_another(wan_path, node)) return igd_tool_get_port_index(node);
    }
  }
  return kIgdAcceptable;
}

// Ports that would be out of the LAN bridge, those of the connection being changed included.
int ports_taken(const Names& bind_wan) {
  int taken = 0;
  for (const std::string& node : bind_wan) taken |= igd_tool_get_port_value(node);
  for (const std::string& port : igd::instances_below(igd::kEverywhere, kPortInterface)) {
    const std::string node = igd::value_of(port);
    const std::string bridge_path = igd::bridge_of_port_parameter(port);
    if (igd::value_is(bridge_path, "BridgeName", igd::kLanBridgeName)) continue;
    if (!igd::is_shared_device(node)) taken |= igd_tool_get_port_value(node);
  }
  return taken;
}

int verdict_on_last_port(const api_wan_info& info, int all_ports_mask) {
  if (info.connection_class != kIgdBridged && info.connection_class != kIgdRoutedAndBridged) {
    return kIgdAcceptable;
  }
  if (ports_taken(info.bind_wan) != all_ports_mask) return kIgdAcceptable;
  if (info.connection_class != kIgdBridged) return kIgdRoutedBridgeLeavesNoPort;
  const bool has_address = !info.ip_addr.empty() && !info.ip_mask.empty();
  return has_address ? kIgdAcceptable : kIgdBridgeLeavesNoPort;
}

}  // namespace

int igd_verify_new_wan_info_valid(std::string wan_path, api_wan_info* info, int all_ports_mask) {
  ensureContext();
  if (info->vlan_enable == 0) info->vlan_id = 0;
  if (vlan_is_taken(wan_path, std::to_string(info->vlan_id))) {
    return info->vlan_id != 0 ? kIgdVlanTaken : kIgdUntaggedTaken;
  }
  if (wan_path.empty() && second_management_connection(*info)) return kIgdManagementExists;
  if (carries_management(wan_path)) return kIgdAcceptable;
  const int port_verdict = verdict_on_ports(wan_path, *info);
  if (port_verdict != kIgdAcceptable) return port_verdict;
  return verdict_on_last_port(*info, all_ports_mask);
}
