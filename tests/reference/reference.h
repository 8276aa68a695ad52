// Every exported operation told a second time, plainly, step by step: which calls it makes of the
// tree, what it answers, what it leaves in the caller's records and in the cache. The matrix of
// faults compares the library with it. It prints nothing and lets nothing go when a call throws.
//
// The names and signatures are those of igd_api.h and igd_c_api.h.
#ifndef IGD_TESTS_REFERENCE_H
#define IGD_TESTS_REFERENCE_H

#include <map>
#include <string>
#include <vector>

#include "common_util.h"
#include "igd_types.h"

namespace reference {

using Names = std::vector<std::string>;

/// The tree that the operations talk to, and what they keep between calls.
struct State {
  MibAccess* tree = nullptr;
  std::map<std::string, wan_mib_info> cache;
  std::map<std::string, std::string> l3_names;
};
State& state();

// ---- WAN connections ----
int igd_verify_new_wan_info_valid(std::string wan_path, api_wan_info* info, int all_ports_mask);
std::string igd_wan_create(std::string access_type, api_wan_info* info);
int igd_wan_set_params(std::string wan_index, api_wan_info* info);
int igd_wan_get_params(std::string wan_index, api_wan_info* info);
int igd_wan_print_params(api_wan_info* info);
int igd_verify_can_remove_wan(std::string wan_path);
void igd_wan_destory(std::string wan_path);
int igd_wan_list(Names& out);
void saveLanInterfaceToWanNode(std::string wan_path, api_wan_info* info);
std::string igd_wan_get_id_by_name(std::string name);
int igd_check_wan_index(std::string index);
int igd_verify_is_wan_index(std::string index);
int igd_verify_wan_index_in_bridge(std::string index);
void igd_set_wan_all_value(std::string wan_path, std::string node, std::string value);
int igd_get_used_port_list(std::string wan_path, Names& ports);
int igd_wan_status(std::string wan_index, api_wan_status* status);

// ---- Bridges and VLANs ----
std::string igd_get_bridge_info(std::string connection_path);
int igd_wan_get_lan_bridge_info(std::string wan_path, std::string* path, std::string* name);
int igd_wan_get_wan_bridge_info(std::string wan_path, std::string* path, std::string* name);
std::string igd_wan_intf(std::string wan_path, Names& ports, unsigned int& vlan_id);
int igd_wan_get_bridge_info_from_phy(std::string phy, std::string* path, std::string* name);
int igd_wan_get_unused_vlan();
int igd_c_check_belong_bridge(const char* bridge_name, const char* ifname);
unsigned int igd_c_get_mask(const char* name);
void igd_c_get_wan_bridge_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_intf_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_pvid_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_vlanid_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_vlanpriority_name(const char* wan_path, char* buf, std::size_t size);
int igd_c_set_bridge_pvid(const char* bridge_name, api_wan_info* info);

// ---- Routes and settings ----
int igd_get_static_route_list(std::vector<api_route_info>& routes);
int igd_clear_static_route();
int igd_set_static_route(int op, api_route_info route);
int igd_mng_server_set_params(api_mng_server_info* info);
int igd_mng_server_get_params(api_mng_server_info* info);
std::string igd_c_get_lan_ipaddr();
void igd_c_set_l3_name(const char* key, const char* value);
void igd_c_get_l3_name(const char* key, char* buf, std::size_t size);

// ---- Names and tools ----
int igd_tool_get_port_value(std::string node);
int igd_tool_get_port_index(std::string node);
bool isWlan(std::string node);
std::string same_name(std::string name);  ///< all four translations between names
int igd_tool_split_str(std::string text, std::string delimiter_set, Names& out);
int igd_tool_loop_instance(std::string path, int type, Names& out);
std::string igd_tool_loop_fullname(std::string path, int type, std::string value);
void _delete_node(Names& list, std::string name);

// ---- Cache ----
wan_mib_info* _get_cache(std::string wan_path);
void _rebuid_cache(Names& wan_paths);
int _destory_cache(std::string wan_path);

}  // namespace reference

#endif  // IGD_TESTS_REFERENCE_H
