// What the parts of the reference share.
#ifndef IGD_TESTS_REFERENCE_TOOLS_H
#define IGD_TESTS_REFERENCE_TOOLS_H

#include <string>

#include "reference.h"

namespace reference {

std::string value(const std::string& name);
std::string read(const std::string& path, const std::string& name);
void write(const std::string& path, const std::string& name, const std::string& text);
void erase(const std::string& object_path);

/// The number of a new instance; 0 when it was refused, and then `added` is false.
int add(const std::string& table_path, bool* added = nullptr);

Names list(const std::string& prefix, int type);
std::string first_with(const std::string& prefix, int type, const std::string& text);
std::string parent(const std::string& name);  ///< of a parameter or an object; "" without one
std::string bridge_of(const std::string& port_parameter);
std::string path_of(const std::string& table, int number);
int number(const std::string& text);  ///< leading number, else 0
bool has(const std::string& text, const std::string& part);
bool begins(const std::string& text, const std::string& start);
bool is_uplink(const std::string& node);
std::string device_of(const std::string& node, bool tagged, int vlan);

struct Objects {
  std::string fixed;
  std::string dhcp;
  std::string ppp;
};
Objects objects_of(const std::string& wan);  ///< asked for in this order

std::string find_vlan_id(int vlan_id, const std::string& bridge, const std::string& wan);
std::string create_bridge(const std::string& wan, int kind, int tagged, int vlan,
                          api_wan_info* info);
void create_port(const std::string& bridge, const std::string& depend_wan, const std::string& node,
                 api_wan_info* info);
void update_ports(const wan_mib_info& mib, api_wan_info* info);
void delete_port(const std::string& path);
void write_link_and_vlan(const std::string& bridge, const std::string& wan, int tagged, int vlan);
bool route_is_of(const std::string& wan, const std::string& interface, const std::string& table);

inline constexpr char kTable[] = "InternetGatewayDevice.Layer2Bridging.Bridge.";
inline constexpr char kRoutes[] = "InternetGatewayDevice.Layer3Forwarding.Forwarding.";

}  // namespace reference

#endif  // IGD_TESTS_REFERENCE_TOOLS_H
