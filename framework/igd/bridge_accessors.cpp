#include <cstddef>
#include <cstdio>
#include <string>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_c_api.h"
#include "igd_common.h"
#include "igd_types.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"

namespace {

struct TwoNumbers {
  int first = 0;
  int second = 0;
};

// The first two numbers between separators. Zeros are skipped exactly like words.
TwoNumbers numbers_between(const std::string& text, const char* separator) {
  TwoNumbers numbers;
  for (const std::string& piece : igd::split(text, separator)) {
    const int number = igd::lenient_number(piece);
    if (number == 0) continue;
    if (numbers.first != 0) {
      numbers.second = number;
      break;
    }
    numbers.first = number;
  }
  return numbers;
}

// A parameter of the bridge that serves a connection; "" when none does.
// Kept: the owner's path is only a prefix, so an empty one matches every connection.
std::string bridge_parameter(const std::string& wan_path, const char* name) {
  for (const std::string& owner : igd::instances_below(igd::kEverywhere, kBridgeWanName)) {
    if (!igd::starts_with(wan_path, igd::value_of(owner))) continue;
    return _get_value(objectPathOf(owner), name);
  }
  return {};
}

void read_bridge_parameter(const char* wan_path, const char* name, char* buf, size_t size) {
  ensureContext();
  if (wan_path == nullptr || buf == nullptr || size == 0) return;
  (void)std::snprintf(buf, size, "%s", bridge_parameter(wan_path, name).c_str());
}

}  // namespace

int igd_c_check_belong_bridge(const char* bridge_name, const char* ifname) {
  const std::string found = igd::parameter_with_value(igd::kEverywhere, kBridgeName, bridge_name);
  if (igd::tree() == nullptr || ifname == nullptr || found.empty()) return 0;
  const std::string bridge_path = objectPathOf(found);
  const bool tagged = igd::is_vlan_bridge(bridge_path);
  for (const std::string& pvid : igd::instances_below(bridge_path, kPortPvid)) {
    const int vlan = igd::number_of(pvid);
    const std::string node = _get_value(objectPathOf(pvid), "PortInterface");
    if (igd::physical_name(node, tagged, vlan) != ifname) continue;
    c_debug_out(igd::kUnit, __LINE__, "Matched Ifname %s in bridge=%s", ifname, bridge_name);
    return 1;
  }
  return 0;
}

unsigned int igd_c_get_mask(const char* name) {
  if (name == nullptr) return 0;
  const TwoNumbers numbers = numbers_between(name, "_");
  return igd::packet_mark(numbers.first, numbers.second);
}

void igd_c_get_wan_bridge_name(const char* wan_path, char* buf, size_t size) {
  if (wan_path == nullptr || buf == nullptr || size == 0) return;
  const TwoNumbers numbers = numbers_between(wan_path, ".");
  (void)std::snprintf(buf, size, "br_%d_%d", numbers.first, numbers.second);
}

void igd_c_get_wan_bridge_intf_name(const char* wan_path, char* buf, size_t size) {
  igd_c_get_wan_bridge_name(wan_path, buf, size);
}

void igd_c_get_wan_bridge_pvid_name(const char* wan_path, char* buf, size_t size) {
  read_bridge_parameter(wan_path, "PVID", buf, size);
}

void igd_c_get_wan_bridge_vlanid_name(const char* wan_path, char* buf, size_t size) {
  read_bridge_parameter(wan_path, "VLANID", buf, size);
}

void igd_c_get_wan_bridge_vlanpriority_name(const char* wan_path, char* buf, size_t size) {
  read_bridge_parameter(wan_path, "X_ZYN_VLANPriority", buf, size);
}

int igd_c_set_bridge_pvid(const char* bridge_name, api_wan_info* info) {
  ensureContext();
  std::printf("vornik set %s pvid = %d\n", bridge_name == nullptr ? "(null)" : bridge_name,
              info->vlan_id);
  if (bridge_name == nullptr) return 0;
  const std::string found = igd::parameter_with_value(igd::kEverywhere, kBridgeName, bridge_name);
  if (found.empty()) return 0;
  const std::string bridge_path = objectPathOf(found);
  (void)igd::is_vlan_bridge(bridge_path);  // Kept: asked, but untagged bridges are written too.
  const std::string pvid = std::to_string(info->vlan_id);
  for (const std::string& port : igd::instances_below(bridge_path, kPortPvid)) {
    igd::store(port, pvid);
    std::printf("vornik set %s pvid = %s\n", port.c_str(), pvid.c_str());
  }
  return 0;
}
