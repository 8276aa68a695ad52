// Operations on WAN connections, with arguments.
#include "igd_api.h"
#include "operation.h"
#include "reference.h"

namespace operations {
namespace {

constexpr char kUnknown[] = "InternetGatewayDevice.WANDevice.9.WANConnectionDevice.9.";
constexpr int kAllPorts = 255;

// ---- Checks ----

Operation verify(const char* variant, bool existing, const char* services) {
  return operation("igd_verify_new_wan_info_valid", variant, &::igd_verify_new_wan_info_valid,
                   &reference::igd_verify_new_wan_info_valid,
                   [existing, services](auto call, const Start& start) {
                     api_wan_info info = description("new", kIgdBridged, kIgdStatic,
                                                     start.lan_ports, start.own_ports);
                     info.service_type = services;
                     const std::string wan = existing ? start.wan : "";
                     return shown(call(wan, &info, kAllPorts)) + shown(info);
                   });
}

// The description of a port that nobody holds, so that every port is looked at.
Operation verify_free_ports() {
  return operation("igd_verify_new_wan_info_valid", "of ports that are free",
                   &::igd_verify_new_wan_info_valid, &reference::igd_verify_new_wan_info_valid,
                   [](auto call, const Start&) {
                     const Names ports = {"LAN4", "WLAN4"};
                     api_wan_info info = description("new", kIgdBridged, kIgdDhcp, {}, ports);
                     info.vlan_enable = 0;
                     return shown(call("", &info, kAllPorts)) + shown(info);
                   });
}

// ---- Writing ----

Operation create(const char* variant, const char* uplink, bool known_name) {
  return operation("igd_wan_create", variant, &::igd_wan_create, &reference::igd_wan_create,
                   [uplink, known_name](auto call, const Start& start) {
                     api_wan_info info = description(known_name ? start.wan_name : "new",
                                                     kIgdRouted, kIgdPppoe, {"LAN3"}, {"LAN4"});
                     return call(uplink, &info) + shown(info);
                   });
}

using Describe = api_wan_info (*)(const Start&);

Operation write(const char* variant, Describe describe) {
  return operation("igd_wan_set_params", variant, &::igd_wan_set_params,
                   &reference::igd_wan_set_params, [describe](auto call, const Start& start) {
                     api_wan_info info = describe(start);
                     return shown(call(start.wan, &info)) + shown(info);
                   });
}

api_wan_info keep_ports(const Start& start) {
  return description("renamed", kIgdRouted, kIgdPppoe, start.lan_ports, start.own_ports);
}

api_wan_info exchange_ports(const Start& start) {
  api_wan_info info =
      description("renamed", kIgdRoutedAndBridged, kIgdDhcp, start.own_ports, start.lan_ports);
  info.vlan_enable = 0;
  info.vlan_id = 0;
  info.port_option60 = {{"LAN1", "video"}, {"WLAN1", "voice"}};
  return info;
}

api_wan_info release_ports(const Start&) {
  return description("renamed", kIgdBridged, kIgdStatic, {}, {});
}

Operation write_unknown() {
  return operation("igd_wan_set_params", "of an unknown connection", &::igd_wan_set_params,
                   &reference::igd_wan_set_params, [](auto call, const Start& start) {
                     api_wan_info info = keep_ports(start);
                     return shown(call(kUnknown, &info)) + shown(info);
                   });
}

Operation set_all(const char* variant, const char* object) {
  return operation("igd_set_wan_all_value", variant, &::igd_set_wan_all_value,
                   &reference::igd_set_wan_all_value, [object](auto call, const Start& start) {
                     call(start.wan, start.wan + object + "Enable", "true");
                     return std::string();
                   });
}

Operation save_binding() {
  return operation("saveLanInterfaceToWanNode", "", &::saveLanInterfaceToWanNode,
                   &reference::saveLanInterfaceToWanNode, [](auto call, const Start& start) {
                     api_wan_info info = keep_ports(start);
                     info.bind_wan.insert(info.bind_wan.begin(), "LAN0");
                     call(start.wan, &info);
                     return shown(info);
                   });
}

// ---- Reading ----

Operation read_record(const char* variant, const char* wan) {
  return operation("igd_wan_get_params", variant, &::igd_wan_get_params,
                   &reference::igd_wan_get_params, [wan](auto call, const Start& start) {
                     api_wan_info info = keep_ports(start);
                     info.port_option60 = {{"LAN1", "old"}};
                     const int result = call(wan == nullptr ? start.wan : wan, &info);
                     return shown(result) + shown(info);
                   });
}

Operation status() {
  return operation("igd_wan_status", "", &::igd_wan_status, &reference::igd_wan_status,
                   [](auto call, const Start& start) {
                     api_wan_status state;
                     state.last_connection_error = "kept";
                     const int result = call(start.wan, &state);
                     return shown(result) + shown(state);
                   });
}

Operation print() {
  return operation("igd_wan_print_params", "", &::igd_wan_print_params,
                   &reference::igd_wan_print_params, [](auto call, const Start& start) {
                     api_wan_info info = keep_ports(start);
                     return shown(call(&info)) + shown(info);
                   });
}

Operation list() {
  return operation("igd_wan_list", "", &::igd_wan_list, &reference::igd_wan_list,
                   [](auto call, const Start&) {
                     Names paths = {"old"};
                     const int count = call(paths);
                     return shown(count) + shown(paths);
                   });
}

Operation used_ports() {
  return operation("igd_get_used_port_list", "", &::igd_get_used_port_list,
                   &reference::igd_get_used_port_list, [](auto call, const Start& start) {
                     Names ports = {"old"};
                     const int result = call(start.wan, ports);
                     return shown(result) + shown(ports);
                   });
}

// One that takes a path and answers with a number.
Operation check(const char* exported, int (*library)(std::string), int (*reference)(std::string),
                const char* index = nullptr) {
  return operation(exported, "", library, reference, [index](auto call, const Start& start) {
    return shown(call(index == nullptr ? start.wan : index));
  });
}

Operation destroy() {
  return operation("igd_wan_destory", "", &::igd_wan_destory, &reference::igd_wan_destory,
                   [](auto call, const Start& start) {
                     call(start.wan);
                     return std::string();
                   });
}

Operation find_by_name(const char* variant, const char* name) {
  return operation("igd_wan_get_id_by_name", variant, &::igd_wan_get_id_by_name,
                   &reference::igd_wan_get_id_by_name, [name](auto call, const Start& start) {
                     return call(name == nullptr ? start.wan_name : name);
                   });
}

}  // namespace

std::vector<Operation> wan_operations() {
  return {
      verify("", false, "INTERNET"),
      verify("of an existing one", true, "INTERNET"),
      verify("of the management service", false, "TR069"),
      verify_free_ports(),
      create("", "Ethernet", false),
      create("on a new uplink", "Satellite", false),
      create("under a known name", "Ethernet", true),
      write("", keep_ports),
      when_cached(write("", keep_ports)),
      write("exchanging its ports", exchange_ports),
      write("to bridged, releasing its ports", release_ports),
      write_unknown(),
      read_record("", nullptr),
      when_cached(read_record("", nullptr)),
      read_record("of an unknown connection", kUnknown),
      print(),
      check("igd_verify_can_remove_wan", &::igd_verify_can_remove_wan,
            &reference::igd_verify_can_remove_wan),
      destroy(),
      when_cached(destroy()),
      when_cached(list()),
      save_binding(),
      when_cached(save_binding()),
      find_by_name("", nullptr),
      find_by_name("of an unknown name", "nobody"),
      check("igd_check_wan_index", &::igd_check_wan_index, &reference::igd_check_wan_index,
            "InternetGatewayDevice.Layer2Bridging.Bridge.1.X_ZYN_WANName"),
      check("igd_verify_is_wan_index", &::igd_verify_is_wan_index,
            &reference::igd_verify_is_wan_index),
      check("igd_verify_wan_index_in_bridge", &::igd_verify_wan_index_in_bridge,
            &reference::igd_verify_wan_index_in_bridge),
      set_all("", "WANIPConnection.2."),
      set_all("outside of its objects", ""),
      used_ports(),
      status(),
  };
}

}  // namespace operations
