// The library's binary interface as a porter writes it down for himself: no header of the project
// is used here, so a field, a slot or a signature that moves shows up as a failing test.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// The library stepped on a virtual slot that it must leave alone; noted and failed by the test.
void reserved_slot_called(const char* slot);

struct api_wan_info {
  std::string wan_info_name;
  int vlan_enable = 0;
  int vlan_id = 0;
  int vlan_priority = 0;
  int connection_class = 0;
  std::vector<std::string> bind_lan;
  std::vector<std::string> bind_wan;
  std::string service_type;
  int dhcp_trans = 0;
  int nat_mode = 0;
  int connect_mode = 0;
  std::string pppoe_user_name;
  std::string pppoe_password;
  std::string pppoe_mtu;
  std::string static_mtu;
  std::string dhcp_mtu;
  int protocol = 0;
  std::string ip_addr;
  std::string ip_mask;
  std::string ip_gw;
  int ip_dns_enable = 0;
  int dhcp_dns_enable = 0;
  std::string dhcp_dns1;
  std::string dhcp_dns2;
  int static_dns_enable = 0;
  std::string static_dns1;
  std::string static_dns2;
  std::string ip_dns1;
  std::string ip_dns2;
  std::string dhcp_option60;
  std::string wan_enable;
  std::string wan_remote_management_enable;
  std::string stp_enable;
  std::map<std::string, std::string> port_option60;
  int lan_vlan_enable = 0;
  int lan_vlan_id = 0;
};

struct wan_mib_info {
  std::string wan_path;
  std::string bridge_name;
  std::string static_path;
  std::string ppp_path;
  std::string dhcp_path;
  std::string wan_bridge_path;
  std::string lan_bridge_path;
  std::string lan_bridge_name;
  int connect_class = 0;
};

struct api_wan_status {
  std::string name;
  int connected = 0;
  std::string mac_address;
  int connect_mode = 0;
  std::string service_list;
  std::string connection_type;
  std::string ip_addr;
  std::string ip_mask;
  std::string ip_gw;
  std::string ip_dns;
  std::string bytes_sent;
  std::string bytes_received;
  std::string packets_sent;
  std::string packets_received;
  std::string uptime;
  std::string last_connection_error;
};

struct api_route_info {
  std::string dest_ip;
  std::string dest_mask;
  int enable = 0;
  int route_type = 0;
  std::string interface;
  std::string gateway;
};

struct api_mng_server_info {
  std::string url;
  std::string username;
  std::string password;
  std::string connection_request_url;
  std::string connection_request_username;
  std::string connection_request_password;
};

class InstanceIterator {
 public:
  virtual int next() = 0;
  virtual void reserved1() { reserved_slot_called("InstanceIterator 1"); }
  virtual void reserved2() { reserved_slot_called("InstanceIterator 2"); }
  virtual std::string fullName() = 0;

 protected:
  ~InstanceIterator() = default;
};

class MibAccess {
 public:
  virtual void reserved0() { reserved_slot_called("MibAccess 0"); }
  virtual void reserved1() { reserved_slot_called("MibAccess 1"); }
  virtual void reserved2() { reserved_slot_called("MibAccess 2"); }
  virtual void reserved3() { reserved_slot_called("MibAccess 3"); }
  virtual void reserved4() { reserved_slot_called("MibAccess 4"); }
  virtual void reserved5() { reserved_slot_called("MibAccess 5"); }
  virtual void reserved6() { reserved_slot_called("MibAccess 6"); }
  virtual void reserved7() { reserved_slot_called("MibAccess 7"); }
  virtual void reserved8() { reserved_slot_called("MibAccess 8"); }
  virtual void reserved9() { reserved_slot_called("MibAccess 9"); }
  virtual int addObject(const std::string& table_path, int* number, int access) = 0;
  virtual int deleteObject(const std::string& object_path) = 0;
  virtual void reserved12() { reserved_slot_called("MibAccess 12"); }
  virtual InstanceIterator* openInstanceIterator(int type) = 0;
  virtual void closeInstanceIterator(InstanceIterator* iterator) = 0;
  virtual std::string getValue(const std::string& name) = 0;
  virtual int setValue(const std::string& name, const std::string& value, int flag) = 0;
  virtual void reserved17() { reserved_slot_called("MibAccess 17"); }
  virtual int commit(int flag) = 0;
  virtual int applyChanges(const std::string& text) = 0;

 protected:
  ~MibAccess() = default;
};

class PlatformContext {
 public:
  virtual void reserved0() { reserved_slot_called("PlatformContext 0"); }
  virtual void reserved1() { reserved_slot_called("PlatformContext 1"); }
  virtual void reserved2() { reserved_slot_called("PlatformContext 2"); }
  virtual void reserved3() { reserved_slot_called("PlatformContext 3"); }
  virtual void reserved4() { reserved_slot_called("PlatformContext 4"); }
  virtual void reserved5() { reserved_slot_called("PlatformContext 5"); }
  virtual MibAccess* mib_access() = 0;
  virtual void* second_service() = 0;

 protected:
  ~PlatformContext() = default;
};

// What the platform gives.
PlatformContext* getContext();
extern "C" void c_debug_out(const char* file, int line, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

// What the library gives.
extern std::map<std::string, wan_mib_info*> g_wan_mibinfo_cache_list;
extern std::map<std::string, std::string> g_l3_ifname_table;

int igd_verify_new_wan_info_valid(std::string wan_path, api_wan_info* info, int all_ports_mask);
std::string igd_wan_create(std::string access_type, api_wan_info* info);
int igd_wan_set_params(std::string wan_index, api_wan_info* info);
int igd_wan_get_params(std::string wan_index, api_wan_info* info);
int igd_wan_print_params(api_wan_info* info);
int igd_verify_can_remove_wan(std::string wan_path);
void igd_wan_destory(std::string wan_path);
int igd_wan_list(std::vector<std::string>& out);
void saveLanInterfaceToWanNode(std::string wan_path, api_wan_info* info);
std::string igd_wan_get_id_by_name(std::string name);
int igd_check_wan_index(std::string index);
int igd_verify_is_wan_index(std::string index);
int igd_verify_wan_index_in_bridge(std::string index);
void igd_set_wan_all_value(std::string wan_path, std::string node, std::string value);
int igd_get_used_port_list(std::string wan_path, std::vector<std::string>& ports);
int igd_wan_status(std::string wan_index, api_wan_status* status);

std::string igd_get_bridge_info(std::string connection_path);
int igd_wan_get_lan_bridge_info(std::string wan_path, std::string* path, std::string* name);
int igd_wan_get_wan_bridge_info(std::string wan_path, std::string* path, std::string* name);
std::string igd_wan_intf(std::string wan_path, std::vector<std::string>& ports,
                         unsigned int& vlan_id);
int igd_wan_get_bridge_info_from_phy(std::string phy, std::string* path, std::string* name);
int igd_wan_get_unused_vlan();

int igd_get_static_route_list(std::vector<api_route_info>& routes);
int igd_clear_static_route();
int igd_set_static_route(int op, api_route_info route);
int igd_mng_server_set_params(api_mng_server_info* info);
int igd_mng_server_get_params(api_mng_server_info* info);
std::string igd_c_get_lan_ipaddr();

int igd_tool_split_str(std::string text, std::string delimiters, std::vector<std::string>& out);
int igd_tool_loop_instance(std::string path, int type, std::vector<std::string>& out);
std::string igd_tool_loop_fullname(std::string path, int type, std::string value);
void _delete_node(std::vector<std::string>& list, std::string name);
int igd_tool_get_port_value(std::string node);
int igd_tool_get_port_index(std::string node);
bool isWlan(std::string node);
std::string getLanIndexByPhy(std::string name);
std::string getWlanIndexByPhy(std::string name);
std::string igd_transe_node_2_lan_interfac(std::string node);
std::string igd_trans_lan_interface_2_node(std::string interface);
wan_mib_info* _get_cache(std::string wan_path);
void _rebuid_cache(std::vector<std::string>& wan_paths);
int _destory_cache(std::string wan_path);

extern "C" {
int igd_c_check_belong_bridge(const char* bridge_name, const char* ifname);
unsigned int igd_c_get_mask(const char* name);
void igd_c_get_wan_bridge_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_intf_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_pvid_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_vlanid_name(const char* wan_path, char* buf, std::size_t size);
void igd_c_get_wan_bridge_vlanpriority_name(const char* wan_path, char* buf, std::size_t size);
int igd_c_set_bridge_pvid(const char* bridge_name, api_wan_info* info);
void igd_c_set_l3_name(const char* key, const char* value);
void igd_c_get_l3_name(const char* key, char* buf, std::size_t size);
}
