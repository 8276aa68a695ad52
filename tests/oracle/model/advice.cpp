// The two questions before a change: does a description fit, may a connection go.
#include <algorithm>

#include "model.h"

namespace model {
namespace {

const Names kPorts = {"LAN1", "LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4"};

/// 1 to 8, -1 for a port with another name.
int number_of_port(const std::string& node) {
  const auto found = std::find(kPorts.begin(), kPorts.end(), node);
  return found == kPorts.end() ? -1 : static_cast<int>(found - kPorts.begin()) + 1;
}

int bit_of_port(const std::string& node) {
  const int number = number_of_port(node);
  return number < 0 ? 0 : 1 << (number - 1);
}

/// The uplink's own device is nobody's.
bool is_exempt(const std::string& node) { return node == "LAN0" || node == "LAN_DEFAULT1"; }

const char* name_of_verdict(int verdict) {
  switch (verdict) {
    case 0:
      return "fits";
    case -1:
      return "other port held";
    case 9:
      return "VLAN held";
    case 10:
      return "untagged held";
    case 12:
      return "routed, no port left";
    case 13:
      return "management exists";
    case 14:
      return "no port left";
    default:
      return "port held";
  }
}

}  // namespace

Answer Model::check(const Step& step, const std::string& path) const {
  api_wan_info info = record_of(step);
  const int result = verdict(path, info, step.number(Field::kDevicePorts));
  return {name_of_verdict(result), std::to_string(result) + ' ' + std::to_string(info.vlan_id)};
}

int Model::verdict(const std::string& path, api_wan_info& info, int device_ports) const {
  if (info.vlan_enable == 0) info.vlan_id = 0;
  if (vlan_is_held(path, std::to_string(info.vlan_id))) return info.vlan_id == 0 ? 10 : 9;
  const std::vector<std::string> services = service_lists(path);
  const auto manages = [](const std::string& list) { return contains(list, "TR069"); };
  if (path.empty() && info.service_type == "TR069" &&
      std::any_of(services.begin(), services.end(), manages)) {
    return 13;
  }
  if (!services.empty() && manages(services.front())) return 0;
  const int held = held_port(path, info);
  return held != 0 ? held : ports_left(info, device_ports);
}

bool Model::vlan_is_held(const std::string& path, const std::string& vlan) const {
  for (const auto& [number, bridge] : state_.bridges) {
    if (bridge.vlan != vlan || bridge.name == "internet") continue;
    if (path.empty() || bridge.wan != path) return true;
  }
  return false;
}

/// Only the first port of that name counts. 0 when none is held.
int Model::held_port(const std::string& path, const api_wan_info& info) const {
  Names wanted = info.bind_lan;
  wanted.insert(wanted.end(), info.bind_wan.begin(), info.bind_wan.end());
  for (const std::string& node : wanted) {
    std::string owner;
    bool seen = false;
    for (const auto& [number, bridge] : state_.bridges) {
      for (const Port& port : bridge.ports) {
        if (seen || port.node != node) continue;
        seen = true;
        owner = bridge.wan.empty() ? port.wan : bridge.wan;
      }
    }
    if (!owner.empty() && owner != path && !is_exempt(node)) return number_of_port(node);
  }
  return 0;
}

int Model::ports_left(const api_wan_info& info, int device_ports) const {
  if (info.connection_class != 2 && info.connection_class != 3) return 0;
  int taken = 0;
  for (const std::string& node : info.bind_wan) taken |= bit_of_port(node);
  for (const auto& [number, bridge] : state_.bridges) {
    if (bridge.name == "internet") continue;
    for (const Port& port : bridge.ports) taken |= bit_of_port(port.node);
  }
  if (taken != device_ports) return 0;
  if (info.connection_class == 3) return 12;
  return info.ip_addr.empty() || info.ip_mask.empty() ? 14 : 0;
}

std::vector<std::string> Model::service_lists(const std::string& prefix) const {
  std::vector<std::string> lists;
  for (const auto& [id, connection] : state_.connections) {
    const std::string name = object_path(id, kPpp) + "X_CT-COM_ServiceList";
    if (!begins_with(name, prefix)) continue;
    lists.push_back(text_of(connection.objects[kPpp], "X_CT-COM_ServiceList"));
  }
  return lists;
}

Answer Model::may_remove(const std::string& path) const {
  const std::vector<std::string> own = service_lists(path);
  const bool internet = !own.empty() && contains(own.front(), "INTERNET");
  int alike = 0;
  for (const std::string& list : service_lists("")) {
    const bool other = !contains(list, "MME") && !contains(list, "TR069");
    if (internet ? contains(list, "INTERNET") : other) ++alike;
  }
  return alike >= 2 ? Answer{"yes", "1"} : Answer{"no", "0"};
}

}  // namespace model
