#include <optional>
#include <string>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "tree_query.h"

namespace {

// Path of the WAN device with this access type, made when there is none; none when it cannot be
// made. A parameter of no object counts as found: the device's path is then the empty one.
std::optional<std::string> find_or_add_wan_device(const std::string& access_type) {
  const std::string found =
      igd::parameter_with_value(igd::kEverywhere, kWanAccessType, access_type);
  if (!found.empty()) return objectPathOf(objectPathOf(found));
  auto [added, device_path] = igd::add_instance(igd::kWanDeviceTable);
  if (!added) return std::nullopt;
  _set_value(device_path, "WANCommonInterfaceConfig.WANAccessType", access_type);
  return device_path;
}

// The mapping that makes a connection object forward everything to the DMZ host.
void add_dmz_mapping(const std::string& connection_path) {
  const auto [added, mapping_path] = igd::add_instance(connection_path + "PortMapping.");
  if (!added) return;
  _set_value(mapping_path, "PortMappingProtocol", "ALL");
  _set_value(mapping_path, "PortMappingDescription", "DMZ");
}

void add_ip_connection(const std::string& wan_path, const char* addressing_type) {
  const auto [added, connection_path] = igd::add_instance(wan_path + "WANIPConnection.");
  if (!added) return;
  _set_value(connection_path, "AddressingType", addressing_type);
  add_dmz_mapping(connection_path);
}

void add_ppp_connection(const std::string& wan_path) {
  const auto [added, connection_path] = igd::add_instance(wan_path + "WANPPPConnection.");
  if (added) add_dmz_mapping(connection_path);
}

}  // namespace

std::string igd_wan_create(std::string access_type, api_wan_info* info) {
  if (igd::tree() == nullptr) return {};
  std::string existing = igd_wan_get_id_by_name(info->wan_info_name);
  if (!existing.empty()) {
    (void)igd_wan_set_params(existing, info);
    return existing;
  }
  const std::optional<std::string> device_path = find_or_add_wan_device(access_type);
  if (!device_path) return {};
  auto [added, wan_path] = igd::add_instance(*device_path + "WANConnectionDevice.");
  if (!added) return {};
  add_ip_connection(wan_path, igd::kStaticAddressing);
  add_ip_connection(wan_path, igd::kDhcpAddressing);
  add_ppp_connection(wan_path);
  (void)_create_bridge(wan_path, igd::kWanBridge, info->vlan_enable, info->vlan_id, info);
  (void)igd_wan_set_params(wan_path, info);
  return wan_path;
}
