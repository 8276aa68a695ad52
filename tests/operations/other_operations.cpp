// Routes, settings, names, tools and the cache, with arguments.
#include <array>

#include "igd_api.h"
#include "igd_c_api.h"
#include "operation.h"
#include "reference.h"

namespace operations {
namespace {

// ---- Routes ----

Operation list_routes() {
  return operation("igd_get_static_route_list", "", &::igd_get_static_route_list,
                   &reference::igd_get_static_route_list, [](auto call, const Start&) {
                     std::vector<api_route_info> routes(1);
                     std::string answer = shown(call(routes));
                     for (const api_route_info& route : routes) answer += shown(route);
                     return answer;
                   });
}

Operation clear_routes() {
  return operation("igd_clear_static_route", "", &::igd_clear_static_route,
                   &reference::igd_clear_static_route,
                   [](auto call, const Start&) { return shown(call()); });
}

Operation set_route(const char* variant, int code, const char* address, int type) {
  return operation("igd_set_static_route", variant, &::igd_set_static_route,
                   &reference::igd_set_static_route,
                   [code, address, type](auto call, const Start& start) {
                     api_route_info route;
                     route.dest_ip = address;
                     route.dest_mask = "255.255.0.0";
                     route.enable = 1;
                     route.route_type = type;
                     route.interface = start.wan_name;
                     route.gateway = "a gateway whose text is longer than others";
                     return shown(call(code, route));
                   });
}

// ---- Settings ----

Operation write_server() {
  return operation("igd_mng_server_set_params", "", &::igd_mng_server_set_params,
                   &reference::igd_mng_server_set_params, [](auto call, const Start&) {
                     api_mng_server_info info{"http://acs.example/", "gateway", "", "url", "", "x"};
                     return shown(call(&info)) + shown(info);
                   });
}

Operation read_server() {
  return operation("igd_mng_server_get_params", "", &::igd_mng_server_get_params,
                   &reference::igd_mng_server_get_params, [](auto call, const Start&) {
                     api_mng_server_info info{"old", "old", "old", "old", "old", "old"};
                     const int result = call(&info);
                     return shown(result) + shown(info);
                   });
}

Operation lan_address() {
  return operation("igd_c_get_lan_ipaddr", "", &::igd_c_get_lan_ipaddr,
                   &reference::igd_c_get_lan_ipaddr,
                   [](auto call, const Start&) { return call(); });
}

Operation set_l3_name() {
  return operation("igd_c_set_l3_name", "", &::igd_c_set_l3_name, &reference::igd_c_set_l3_name,
                   [](auto call, const Start&) {
                     call("a key that is longer than a short text", "ppp0 of the same length");
                     return std::string();
                   });
}

Operation get_l3_name() {
  return operation("igd_c_get_l3_name", "", &::igd_c_get_l3_name, &reference::igd_c_get_l3_name,
                   [](auto call, const Start&) {
                     std::array<char, 24> buffer = {'o', 'l', 'd'};
                     call("a key that is longer than a short text", buffer.data(), buffer.size());
                     return std::string(buffer.data());
                   });
}

// ---- Names and tools ----

Operation number_of_port(const char* exported, int (*library)(std::string),
                         int (*reference)(std::string)) {
  return operation(exported, "", library, reference, [](auto call, const Start&) {
    return shown(call("WLAN3")) + shown(call("a port that nobody has ever heard of"));
  });
}

Operation translate(const char* exported, std::string (*library)(std::string)) {
  return operation(exported, "", library, &reference::same_name, [](auto call, const Start&) {
    return call("a port that nobody has ever heard of");
  });
}

Operation is_wireless() {
  return operation("isWlan", "", &::isWlan, &reference::isWlan, [](auto call, const Start&) {
    return shown(call("WLAN3") ? 1 : 0) + shown(call("LAN3 and a longer text") ? 1 : 0);
  });
}

Operation split() {
  return operation("igd_tool_split_str", "", &::igd_tool_split_str, &reference::igd_tool_split_str,
                   [](auto call, const Start&) {
                     Names tokens = {"old"};
                     (void)call(",198.51.100.1 and more,;198.51.100.2 and more,", ",;", tokens);
                     return shown(tokens);
                   });
}

Operation list_instances() {
  return operation("igd_tool_loop_instance", "", &::igd_tool_loop_instance,
                   &reference::igd_tool_loop_instance, [](auto call, const Start& start) {
                     Names names = {"old"};
                     const int count = call(start.wan, kAddressingType, names);
                     return shown(count) + shown(names);
                   });
}

Operation find_value() {
  return operation(
      "igd_tool_loop_fullname", "", &::igd_tool_loop_fullname, &reference::igd_tool_loop_fullname,
      [](auto call, const Start& start) { return call(start.wan, kAddressingType, "DHCP"); });
}

Operation delete_node() {
  return operation("_delete_node", "", &::_delete_node, &reference::_delete_node,
                   [](auto call, const Start&) {
                     Names names = {"LAN1", "a name longer than others", "LAN2", "LAN1"};
                     call(names, "a name longer than others");
                     return shown(names);
                   });
}

// ---- Cache ----

Operation get_cache() {
  return operation("_get_cache", "", &::_get_cache, &reference::_get_cache,
                   [](auto call, const Start& start) { return shown(*call(start.wan)); });
}

Operation rebuild_cache(const char* variant, bool keep) {
  return operation("_rebuid_cache", variant, &::_rebuid_cache, &reference::_rebuid_cache,
                   [keep](auto call, const Start& start) {
                     Names paths = {"another"};
                     if (keep) paths.push_back(start.wan);
                     call(paths);
                     return shown(paths);
                   });
}

Operation destroy_cache() {
  return operation("_destory_cache", "", &::_destory_cache, &reference::_destory_cache,
                   [](auto call, const Start& start) { return shown(call(start.wan)); });
}

}  // namespace

std::vector<Operation> other_operations() {
  return {
      list_routes(),
      clear_routes(),
      set_route("adding one by interface", kIgdRouteSet, "10.99.0.0", kIgdRouteByInterface),
      set_route("changing one by gateway", kIgdRouteSet, "10.1.0.0", kIgdRouteByGateway),
      set_route("deleting one", kIgdRouteDelete, "10.1.0.0", 0),
      set_route("with an unknown code", 3, "10.1.0.0", 0),
      write_server(),
      read_server(),
      lan_address(),
      set_l3_name(),
      get_l3_name(),
      number_of_port("igd_tool_get_port_value", &::igd_tool_get_port_value,
                     &reference::igd_tool_get_port_value),
      number_of_port("igd_tool_get_port_index", &::igd_tool_get_port_index,
                     &reference::igd_tool_get_port_index),
      is_wireless(),
      translate("getLanIndexByPhy", &::getLanIndexByPhy),
      translate("getWlanIndexByPhy", &::getWlanIndexByPhy),
      translate("igd_transe_node_2_lan_interfac", &::igd_transe_node_2_lan_interfac),
      translate("igd_trans_lan_interface_2_node", &::igd_trans_lan_interface_2_node),
      split(),
      list_instances(),
      find_value(),
      delete_node(),
      get_cache(),
      when_cached(get_cache()),
      when_cached(rebuild_cache("keeping it", true)),
      when_cached(rebuild_cache("dropping it", false)),
      destroy_cache(),
      when_cached(destroy_cache()),
  };
}

std::vector<Operation> all_operations() {
  std::vector<Operation> all = wan_operations();
  for (const std::vector<Operation>& more : {bridge_operations(), other_operations()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

}  // namespace operations
