// Operations on bridges and VLANs, with arguments.
#include <array>

#include "igd_api.h"
#include "igd_c_api.h"
#include "operation.h"
#include "reference.h"

namespace operations {
namespace {

using FindBridge = int(std::string, std::string*, std::string*);

Operation find_bridge(const char* exported, const char* variant, FindBridge* library,
                      FindBridge* reference, const char* key) {
  return operation(exported, variant, library, reference, [key](auto call, const Start& start) {
    std::string path = "kept";
    std::string name = "kept";
    const int result = call(key == nullptr ? start.wan : key, &path, &name);
    return shown(result) + path + '|' + name;
  });
}

using ReadInto = void(const char*, char*, std::size_t);

Operation read_into(const char* exported, ReadInto* library, ReadInto* reference) {
  return operation(exported, "", library, reference, [](auto call, const Start& start) {
    std::array<char, 24> buffer = {'o', 'l', 'd'};
    call(start.wan.c_str(), buffer.data(), buffer.size());
    return std::string(buffer.data());
  });
}

Operation bridge_of_path(const char* variant, const char* path) {
  return operation(
      "igd_get_bridge_info", variant, &::igd_get_bridge_info, &reference::igd_get_bridge_info,
      [path](auto call, const Start& start) { return call(path == nullptr ? start.wan : path); });
}

Operation ports_of_wan() {
  return operation("igd_wan_intf", "", &::igd_wan_intf, &reference::igd_wan_intf,
                   [](auto call, const Start& start) {
                     Names ports = {"old"};
                     unsigned int vlan = 7;
                     const std::string name = call(start.wan, ports, vlan);
                     return name + shown(ports) + std::to_string(vlan);
                   });
}

Operation belongs(const char* variant, const char* device) {
  return operation("igd_c_check_belong_bridge", variant, &::igd_c_check_belong_bridge,
                   &reference::igd_c_check_belong_bridge,
                   [device](auto call, const Start&) { return shown(call("internet", device)); });
}

Operation set_pvid() {
  return operation("igd_c_set_bridge_pvid", "", &::igd_c_set_bridge_pvid,
                   &reference::igd_c_set_bridge_pvid, [](auto call, const Start&) {
                     api_wan_info info;
                     info.vlan_id = 300;
                     return shown(call("internet", &info)) + shown(info);
                   });
}

Operation unused_vlan() {
  return operation("igd_wan_get_unused_vlan", "", &::igd_wan_get_unused_vlan,
                   &reference::igd_wan_get_unused_vlan,
                   [](auto call, const Start&) { return shown(call()); });
}

Operation mask() {
  return operation(
      "igd_c_get_mask", "", &::igd_c_get_mask, &reference::igd_c_get_mask,
      [](auto call, const Start&) { return std::to_string(call("br_a_long_name_3_31")); });
}

}  // namespace

std::vector<Operation> bridge_operations() {
  return {
      bridge_of_path("", nullptr),
      bridge_of_path("of a LAN path", "InternetGatewayDevice.LANDevice.1."),
      find_bridge("igd_wan_get_lan_bridge_info", "", &::igd_wan_get_lan_bridge_info,
                  &reference::igd_wan_get_lan_bridge_info, nullptr),
      find_bridge("igd_wan_get_wan_bridge_info", "", &::igd_wan_get_wan_bridge_info,
                  &reference::igd_wan_get_wan_bridge_info, nullptr),
      ports_of_wan(),
      find_bridge("igd_wan_get_bridge_info_from_phy", "", &::igd_wan_get_bridge_info_from_phy,
                  &reference::igd_wan_get_bridge_info_from_phy, "eth1"),
      unused_vlan(),
      belongs("", "ath1"),
      belongs("of an unknown device", "tun0"),
      mask(),
      read_into("igd_c_get_wan_bridge_name", &::igd_c_get_wan_bridge_name,
                &reference::igd_c_get_wan_bridge_name),
      read_into("igd_c_get_wan_bridge_intf_name", &::igd_c_get_wan_bridge_intf_name,
                &reference::igd_c_get_wan_bridge_intf_name),
      read_into("igd_c_get_wan_bridge_pvid_name", &::igd_c_get_wan_bridge_pvid_name,
                &reference::igd_c_get_wan_bridge_pvid_name),
      read_into("igd_c_get_wan_bridge_vlanid_name", &::igd_c_get_wan_bridge_vlanid_name,
                &reference::igd_c_get_wan_bridge_vlanid_name),
      read_into("igd_c_get_wan_bridge_vlanpriority_name", &::igd_c_get_wan_bridge_vlanpriority_name,
                &reference::igd_c_get_wan_bridge_vlanpriority_name),
      set_pvid(),
  };
}

}  // namespace operations
