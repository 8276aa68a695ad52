#include <string>
#include <string_view>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"
#include "vlan.h"

namespace {

constexpr int kPortVlanLine = 667;  // fixed: field tools look for it

std::string find_bridge(const std::string& wan_path, int kind, std::string* name) {
  std::string path;
  if (kind == igd::kWanBridge) (void)igd_wan_get_wan_bridge_info(wan_path, &path, name);
  if (kind == igd::kLanBridge) (void)igd_wan_get_lan_bridge_info(wan_path, &path, name);
  return path;
}

void write_bridge_vlan(const std::string& bridge_path, const std::string& wan_path, int vlan_enable,
                       int vlan_id, const api_wan_info* info) {
  if (vlan_enable == 0) {
    igd::write_untagged(bridge_path, wan_path);
    return;
  }
  _set_value(bridge_path, "BridgeStandard", igd::kTaggedStandard);
  igd::write_vlan(bridge_path, wan_path, std::to_string(vlan_id));
  if (info == nullptr) return;
  _set_value(bridge_path, "X_ZYN_VLANPriority", std::to_string(info->vlan_priority));
}

// The first WAN device whose name contains the connection's device decides, whatever its type.
void attach_uplink(const std::string& bridge_path, const std::string& wan_path,
                   api_wan_info* info) {
  const std::string device_path = objectPathOf(objectPathOf(wan_path));
  for (const std::string& parameter : igd::instances_below(igd::kEverywhere, kWanAccessType)) {
    if (!igd::contains(parameter, device_path)) continue;
    const std::string_view port = igd::uplink_port_of(igd::value_of(parameter));
    if (!port.empty()) _create_port(bridge_path, "", std::string(port), info);
    return;
  }
}

// Ports of the LAN bridge get a VLAN of their own, and only when bound; others their bridge's.
std::string choose_port_vlan(const std::string& bridge_path, const std::string& depend_wan) {
  if (!igd::value_is(bridge_path, "BridgeName", igd::kLanBridgeName)) {
    return _get_value(bridge_path, "VLANID");
  }
  if (depend_wan.empty()) return {};
  std::string vlan = _find_vlan_id(0, bridge_path, depend_wan);
  c_debug_out(igd::kUnit, kPortVlanLine, "CREATE VLAN = %s", vlan.c_str());
  return vlan;
}

void write_port_option60(const std::string& bridge_path, const std::string& port_path,
                         const std::string& port_interface, api_wan_info* info) {
  if (igd::value_is(bridge_path, "BridgeName", igd::kLanBridgeName)) return;
  if (igd::is_wan_side_port(port_interface) || info == nullptr) return;
  // Kept: a port without an entry joins the caller's record with an empty one.
  _set_value(port_path, "PortOption60", info->port_option60[port_interface]);
}

}  // namespace

std::string _create_bridge(std::string wan_path, int kind, int vlan_enable, int vlan_id,
                           api_wan_info* info) {
  if (igd::tree() == nullptr) return {};
  std::string name;
  const std::string existing = find_bridge(wan_path, kind, &name);
  if (!existing.empty()) return existing;
  // Kept: whether it was added is not looked at.
  std::string bridge_path = igd::add_instance(igd::kBridgeTable).path;
  _set_value(bridge_path, "BridgeName", name);
  write_bridge_vlan(bridge_path, wan_path, vlan_enable, vlan_id, info);
  if (kind == igd::kWanBridge) _set_value(bridge_path, "X_ZYN_WANName", wan_path);
  _set_value(bridge_path, "BridgeEnable", igd::kTrue);
  if (kind == igd::kWanBridge) attach_uplink(bridge_path, wan_path, info);
  return bridge_path;
}

void _create_port(std::string bridge_path, std::string depend_wan, std::string port_interface,
                  api_wan_info* info) {
  if (igd::tree() == nullptr) return;
  const std::string vlan = choose_port_vlan(bridge_path, depend_wan);
  const std::string port_path = igd::add_instance(bridge_path + "Port.").path;
  _set_value(port_path, "PVID", vlan);
  _set_value(port_path, "PortInterface", port_interface);
  if (depend_wan.empty()) {
    write_port_option60(bridge_path, port_path, port_interface, info);
  } else {
    _set_value(port_path, "X_ZYN_DependWanName", depend_wan);
  }
  _set_value(port_path, "PortEnable", igd::kTrue);
}
