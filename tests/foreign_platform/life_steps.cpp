// Creating and removing a connection.
#include "steps.h"

namespace foreign {
namespace {

constexpr char kDevices[] = "InternetGatewayDevice.WANDevice.";
constexpr char kForwarding[] = "InternetGatewayDevice.Layer3Forwarding.Forwarding.";

void add_dmz_mapping(Script& s, const std::string& connection) {
  const std::string table = connection + "PortMapping.";
  const int number = s.add(table);
  if (number == 0) return;
  const std::string mapping = table + std::to_string(number) + ".";
  s.set(mapping + "PortMappingProtocol", "ALL");
  s.set(mapping + "PortMappingDescription", "DMZ");
}

void add_ip_connection(Script& s, const std::string& wan, const char* addressing) {
  const std::string table = wan + "WANIPConnection.";
  const int number = s.add(table);
  if (number == 0) return;
  const std::string connection = table + std::to_string(number) + ".";
  s.set(connection + "AddressingType", addressing);
  add_dmz_mapping(s, connection);
}

void add_ppp_connection(Script& s, const std::string& wan) {
  const std::string table = wan + "WANPPPConnection.";
  const int number = s.add(table);
  if (number != 0) add_dmz_mapping(s, table + std::to_string(number) + ".");
}

void drop_routes(Script& s, const std::string& wan) {
  for (const std::string& name : s.loop(kForwarding, 177)) {
    const std::string interface = s.get(name);
    s.print("aaaa%s\n", interface.c_str());
    const std::string route = parent_of(name);
    if (interface.empty()) {
      s.print("aaaa%s\n", route.c_str());
      const std::string table = s.get(route + "X_ZYN_RouteTable");
      s.print("aaaa%s\n", table.c_str());
      if (table == wan) s.erase(route);
    } else if (interface == wan) {
      s.erase(route);
    }
  }
}

void drop_connection_objects(Script& s, const std::string& wan) {
  const std::string fixed = parent_of(s.find(wan, 1359, "Static"));
  const std::string dhcp = parent_of(s.find(wan, 1359, "DHCP"));
  const std::vector<std::string> ppp = s.loop(wan, 1429);
  s.set(fixed + "Enable", "false");
  s.set(dhcp + "Enable", "false");
  s.set((ppp.empty() ? "" : ppp.front()) + "Enable", "false");
  s.erase(wan);
}

}  // namespace

std::string find_by_name(Script& s, const std::string& name) {
  std::string found = s.find("", 1351, name);
  if (found.empty()) found = s.find("", 1437, name);
  return parent_of(parent_of(parent_of(found)));
}

std::string create_wan(Script& s, const std::string& access_type, api_wan_info& info) {
  const std::string existing = find_by_name(s, info.wan_info_name);
  if (!existing.empty()) {
    write_params(s, existing, info);
    return existing;
  }
  std::string access = s.find("", 1007, access_type);
  if (access.empty()) {
    const int number = s.add(kDevices);
    if (number == 0) return "";
    access = kDevices + std::to_string(number) + ".WANCommonInterfaceConfig.WANAccessType";
    s.set(access, access_type);
  }
  const std::string table = parent_of(parent_of(access)) + "WANConnectionDevice.";
  const int number = s.add(table);
  if (number == 0) return "";
  const std::string wan = table + std::to_string(number) + ".";
  add_ip_connection(s, wan, "Static");
  add_ip_connection(s, wan, "DHCP");
  add_ppp_connection(s, wan);
  create_wan_bridge(s, wan, info);
  write_params(s, wan, info);
  return wan;
}

void remove_wan(Script& s, const std::string& wan) {
  drop_routes(s, wan);
  drop_connection_objects(s, wan);

  std::vector<std::string> released;
  std::string bridge;
  std::string name;
  find_wan_bridge(s, wan, &bridge, &name);
  for (const std::string& port : s.loop(bridge, 205)) {
    const std::string interface = s.get(port);
    if (!is_wan_side(interface)) released.push_back(interface);
  }
  for (const std::string& port : s.loop(bridge, 205)) delete_port(s, parent_of(port));
  s.set(bridge + "BridgeEnable", "false");
  s.erase(bridge);

  std::string lan_bridge;
  find_lan_bridge(s, wan, &lan_bridge, &name);
  for (const std::string& owner : s.loop(lan_bridge, 204)) {
    if (s.get(owner) != wan) continue;
    released.push_back(s.get(parent_of(owner) + "PortInterface"));
    delete_port(s, parent_of(owner));
  }
  s.cache.erase(wan);
  for (const std::string& interface : released) create_port(s, lan_bridge, "", interface, nullptr);
  s.commit();
}

}  // namespace foreign
