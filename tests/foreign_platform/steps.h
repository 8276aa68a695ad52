// The expected steps of the operations, each as a script.
#pragma once

#include <string>
#include <vector>

#include "declarations.h"
#include "script.h"

namespace foreign {

/// The leading number of a text, else 0; what lies outside the int range is clamped to it.
int leading_number(const std::string& text);

/// True for the connection's own entries into its bridge: "LAN0", "3G0" and "WIFIW0".
bool is_wan_side(const std::string& interface);

// The record and the cached paths.
void print_record(Script& s, const api_wan_info& info);
wan_mib_info& cached_paths(Script& s, const std::string& wan);

// Bridges.
int find_wan_bridge(Script& s, const std::string& wan, std::string* path, std::string* name);
void find_lan_bridge(Script& s, const std::string& wan, std::string* path, std::string* name);
std::string choose_vlan(Script& s, int vlan_id, const std::string& bridge, const std::string& wan);
std::string create_wan_bridge(Script& s, const std::string& wan, api_wan_info& info);
std::string create_lan_bridge(Script& s, const std::string& wan, int vlan_id, api_wan_info& info);
void create_port(Script& s, const std::string& bridge, const std::string& depend_wan,
                 const std::string& interface, api_wan_info* info);
void delete_port(Script& s, const std::string& port);
void update_ports(Script& s, const wan_mib_info& mib, api_wan_info& info);

// Whole operations.
void save_lan_binding(Script& s, const std::string& wan, const api_wan_info& info);
void write_params(Script& s, const std::string& wan, api_wan_info& info);
void read_params(Script& s, const std::string& wan, api_wan_info& info);
std::string find_by_name(Script& s, const std::string& name);
std::string create_wan(Script& s, const std::string& access_type, api_wan_info& info);
void remove_wan(Script& s, const std::string& wan);

}  // namespace foreign
