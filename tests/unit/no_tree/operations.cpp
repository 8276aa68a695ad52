#include "operations.h"

#include <array>

#include "bare_platform.h"
#include "igd_api.h"
#include "igd_c_api.h"
#include "stdout_capture.h"

namespace no_tree {
namespace {

using Names = std::vector<std::string>;
using std::to_string;

const std::string kIndexLine = "INDEX=" + kPath + '\n';

// Lines of a cache entry in which only the bridge's expected name is known.
const std::string kCacheLines =
    "vornik: wan_bridge_path = ,name = br_1_2\n"
    "vornik: info->lan_bridge_name = \n"
    "vornik: info->lan_bridge_path = \n"
    "vornik: info->static_path = \n"
    "vornik: info->dhcp_path = \n"
    "vornik: info->ppp_path = \n";

// ---- WAN connections ----

std::string verify() {
  api_wan_info info;
  info.vlan_id = 100;
  info.connection_class = kIgdBridged;
  info.bind_wan = {"LAN1"};
  const int verdict = igd_verify_new_wan_info_valid("", &info, igd_tool_get_port_value("LAN1"));
  return to_string(verdict) + " vlan " + to_string(info.vlan_id);
}

std::string create() {
  api_wan_info info;
  return '"' + igd_wan_create("Ethernet", &info) + '"';
}

std::string write() {
  api_wan_info info;
  return to_string(igd_wan_set_params(kPath, &info));
}

std::string read() {
  api_wan_info info;
  info.wan_info_name = "kept";
  const int result = igd_wan_get_params(kPath, &info);
  return to_string(result) + ' ' + info.wan_info_name;
}

std::string destroy() {
  g_wan_mibinfo_cache_list[kPath] = nullptr;
  igd_wan_destory(kPath);
  return "cached " + to_string(g_wan_mibinfo_cache_list.size());
}

std::string list() {
  g_wan_mibinfo_cache_list[kPath] = nullptr;
  Names paths = {"old"};
  const int count = igd_wan_list(paths);
  return to_string(count) + ' ' + shown(paths) + " cached " +
         to_string(g_wan_mibinfo_cache_list.size());
}

std::string save_binding() {
  api_wan_info info;
  info.bind_lan = {"LAN1"};
  saveLanInterfaceToWanNode(kPath, &info);
  return "cached " + to_string(g_wan_mibinfo_cache_list.count(kPath));
}

std::string set_all() {
  igd_set_wan_all_value(kPath, kPath + "WANIPConnection.1.Enable", "true");
  return "";
}

std::string used_ports() {
  Names ports = {"old"};
  const int result = igd_get_used_port_list("", ports);
  return to_string(result) + ' ' + shown(ports);
}

std::string status() {
  api_wan_status state;
  state.name = "kept";
  const int result = igd_wan_status(kPath, &state);
  return to_string(result) + ' ' + state.name;
}

std::string cache() {
  const wan_mib_info* const entry = _get_cache(kPath);
  return entry->wan_path + ' ' + entry->bridge_name + ' ' + entry->lan_bridge_name +
         entry->lan_bridge_path + entry->wan_bridge_path + entry->static_path + entry->dhcp_path +
         entry->ppp_path + to_string(entry->connect_class);
}

// ---- Bridges ----

using FindBridge = int (*)(std::string, std::string*, std::string*);

std::string find_bridge(FindBridge find, const std::string& key) {
  std::string path = "kept";
  std::string name = "kept";
  const int result = find(key, &path, &name);
  return to_string(result) + ' ' + path + ' ' + name;
}

std::string ports_of_wan() {
  Names ports = {"kept"};
  unsigned int vlan = 7;
  const std::string name = igd_wan_intf(kPath, ports, vlan);
  return '"' + name + "\" " + shown(ports) + ' ' + to_string(vlan);
}

std::string set_pvid() {
  api_wan_info info;
  info.vlan_id = 100;
  return to_string(igd_c_set_bridge_pvid("internet", &info));
}

// ---- Routes, settings, tools ----

std::string routes() {
  std::vector<api_route_info> list_of_routes(2);
  const int count = igd_get_static_route_list(list_of_routes);
  return to_string(count) + ' ' + to_string(list_of_routes.size());
}

std::string vlan_of_null() {
  std::array<char, 4> buffer = {'o', 'l', 'd'};
  igd_c_get_wan_bridge_vlanid_name(nullptr, buffer.data(), buffer.size());
  return buffer.data();
}

std::string read_management() {
  api_mng_server_info info;
  info.url = "kept";
  const int result = igd_mng_server_get_params(&info);
  return to_string(result) + ' ' + info.url;
}

std::string write_management() {
  api_mng_server_info info;
  return to_string(igd_mng_server_set_params(&info));
}

std::string instances() {
  Names names = {"old"};
  const int count = igd_tool_loop_instance("", 1273, names);
  return to_string(count) + ' ' + shown(names);
}

const std::string kBindingLines = "---index:" + kPath + "--------\n" + kCacheLines +
                                  "------phy:LAN1------------\n"
                                  "---static_path:X_CT-COM_LanInterface---value:LAN1------------\n"
                                  "---dhcp_path:X_CT-COM_LanInterface---value:LAN1------------\n"
                                  "---ppp_path:X_CT-COM_LanInterface---value:LAN1------------\n";

std::string set_route(int operation) {
  return to_string(igd_set_static_route(operation, api_route_info()));
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

}  // namespace

std::string shown(const std::vector<std::string>& names) {
  std::string text = "[";
  for (const std::string& name : names) text += name + ' ';
  return text + ']';
}

std::string buffer_of(ReadIntoBuffer read_into, const std::string& key) {
  std::array<char, 16> buffer = {'o', 'l', 'd'};
  read_into(key.c_str(), buffer.data(), buffer.size());
  return '"' + std::string(buffer.data()) + '"';
}

std::vector<Operation> asking_operations() {
  return {
      {"igd_verify_new_wan_info_valid", verify, "14 vlan 0", "", ""},
      {"igd_wan_create", create, "\"\"", "", ""},
      {"igd_wan_set_params", write, "-1023", "", ""},
      {"igd_wan_get_params", read, "-1023 kept", "", ""},
      {"igd_verify_can_remove_wan", [] { return to_string(igd_verify_can_remove_wan(kPath)); }, "0",
       "", ""},
      {"igd_wan_destory", destroy, "cached 1", "", ""},
      {"igd_wan_list", list, "0 [] cached 0", "", ""},
      {"saveLanInterfaceToWanNode", save_binding, "cached 1", kBindingLines, kIndexLine},
      {"igd_wan_get_id_by_name", [] { return quoted(igd_wan_get_id_by_name("")); }, "\"\"", "", ""},
      {"igd_check_wan_index", [] { return to_string(igd_check_wan_index(kPath)); }, "0", "", ""},
      {"igd_verify_is_wan_index", [] { return to_string(igd_verify_is_wan_index(kPath)); }, "0", "",
       ""},
      {"igd_verify_is_wan_index_of_no_connection",
       [] { return to_string(igd_verify_is_wan_index("")); }, "0", "", ""},
      {"igd_verify_wan_index_in_bridge",
       [] { return to_string(igd_verify_wan_index_in_bridge(kPath)); }, "0", "", ""},
      {"igd_set_wan_all_value", set_all, "", "", ""},
      {"igd_get_used_port_list", used_ports, "0 []", "", ""},
      {"igd_wan_status", status, "-1022 kept", "", ""},
      {"_get_cache", cache, kPath + " br_1_2 0", kCacheLines, kIndexLine},
      {"igd_get_bridge_info", [] { return quoted(igd_get_bridge_info(kPath)); }, "\"\"", "", ""},
      {"igd_wan_get_lan_bridge_info",
       [] { return find_bridge(igd_wan_get_lan_bridge_info, kPath); }, "-1022 kept kept", "", ""},
      {"igd_wan_get_wan_bridge_info",
       [] { return find_bridge(igd_wan_get_wan_bridge_info, kPath); }, "-1023 kept br_1_2", "",
       kIndexLine},
      {"igd_wan_get_bridge_info_from_phy",
       [] { return find_bridge(igd_wan_get_bridge_info_from_phy, ""); }, "-1022 kept kept", "", ""},
      {"igd_wan_intf", ports_of_wan, "\"\" [kept ] 7", "", ""},
      {"igd_c_check_belong_bridge",
       [] { return to_string(igd_c_check_belong_bridge("internet", "eth0")); }, "0", "", ""},
      {"igd_c_get_wan_bridge_pvid_name",
       [] { return buffer_of(igd_c_get_wan_bridge_pvid_name, kPath); }, "\"\"", "", ""},
      {"igd_c_get_wan_bridge_vlanid_name",
       [] { return buffer_of(igd_c_get_wan_bridge_vlanid_name, kPath); }, "\"\"", "", ""},
      {"igd_c_get_wan_bridge_vlanid_name_of_null", vlan_of_null, "old", "", ""},
      {"igd_c_get_wan_bridge_vlanpriority_name",
       [] { return buffer_of(igd_c_get_wan_bridge_vlanpriority_name, kPath); }, "\"\"", "", ""},
      {"igd_c_set_bridge_pvid", set_pvid, "0", "vornik set internet pvid = 100\n", ""},
      {"igd_wan_get_unused_vlan", [] { return to_string(igd_wan_get_unused_vlan()); }, "1000", "",
       ""},
      {"igd_get_static_route_list", routes, "0 0", "", ""},
      {"igd_set_static_route_set", [] { return set_route(kIgdRouteSet); }, "-1", "", ""},
      {"igd_set_static_route_delete", [] { return set_route(kIgdRouteDelete); }, "-1", "", ""},
      {"igd_set_static_route_other", [] { return set_route(3); }, "-1", "", ""},
      {"igd_mng_server_set_params", write_management, "-1022", "", ""},
      {"igd_mng_server_get_params", read_management, "-1022 kept", "", ""},
      {"igd_c_get_lan_ipaddr", [] { return quoted(igd_c_get_lan_ipaddr()); }, "\"\"", "", ""},
      {"igd_tool_loop_instance", instances, "0 []", "", ""},
      {"igd_tool_loop_fullname", [] { return quoted(igd_tool_loop_fullname("", 196, "")); }, "\"\"",
       "", ""},
  };
}

Outcome outcome_of(const Operation& operation) {
  (void)bare::take_log();
  support::StdoutCapture capture;
  Outcome outcome;
  outcome.answer = operation.call();
  outcome.printed = capture.drain();
  outcome.logged = bare::take_log();
  return outcome;
}

}  // namespace no_tree
