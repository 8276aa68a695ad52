#include "gateway_test.h"

#include <map>

namespace foreign {
namespace {

std::string joined(const std::vector<std::string>& texts) {
  std::string text;
  for (const std::string& part : texts) text += "[" + part + "]";
  return text;
}

std::string cached_entries(const std::map<std::string, wan_mib_info>& cache) {
  std::string text;
  for (const auto& entry : cache) text += entry.first + ":\n" + describe(entry.second);
  return text;
}

std::string library_cache() {
  std::map<std::string, wan_mib_info> cache;
  for (const auto& entry : g_wan_mibinfo_cache_list) {
    if (entry.second == nullptr) return "a null entry for " + entry.first;
    cache[entry.first] = *entry.second;
  }
  return cached_entries(cache);
}

}  // namespace

std::string describe(const api_wan_info& i) {
  std::string text = format_text(
      "name %s\nvlan %d %d %d\nclass %d\nlan %s\nwan %s\nservice %s\ntrans %d\nnat %d\nmode %d\n",
      i.wan_info_name.c_str(), i.vlan_enable, i.vlan_id, i.vlan_priority, i.connection_class,
      joined(i.bind_lan).c_str(), joined(i.bind_wan).c_str(), i.service_type.c_str(), i.dhcp_trans,
      i.nat_mode, i.connect_mode);
  text += format_text("ppp %s %s %s\nmtu %s %s\nprotocol %d\nip %s %s %s\n",
                      i.pppoe_user_name.c_str(), i.pppoe_password.c_str(), i.pppoe_mtu.c_str(),
                      i.static_mtu.c_str(), i.dhcp_mtu.c_str(), i.protocol, i.ip_addr.c_str(),
                      i.ip_mask.c_str(), i.ip_gw.c_str());
  text += format_text("dns %d [%s] [%s]\ndhcp dns %d [%s] [%s]\nstatic dns %d [%s] [%s]\n",
                      i.ip_dns_enable, i.ip_dns1.c_str(), i.ip_dns2.c_str(), i.dhcp_dns_enable,
                      i.dhcp_dns1.c_str(), i.dhcp_dns2.c_str(), i.static_dns_enable,
                      i.static_dns1.c_str(), i.static_dns2.c_str());
  text += format_text("option60 %s\nenable %s %s %s\nlan vlan %d %d\n", i.dhcp_option60.c_str(),
                      i.wan_enable.c_str(), i.wan_remote_management_enable.c_str(),
                      i.stp_enable.c_str(), i.lan_vlan_enable, i.lan_vlan_id);
  for (const auto& option : i.port_option60) text += option.first + "=" + option.second + "\n";
  return text;
}

std::string describe(const wan_mib_info& mib) {
  return lines({mib.wan_path, "name " + mib.bridge_name, "static " + mib.static_path,
                "ppp " + mib.ppp_path, "dhcp " + mib.dhcp_path, "bridge " + mib.wan_bridge_path,
                "lan " + mib.lan_bridge_path, "lan name " + mib.lan_bridge_name,
                "class " + std::to_string(mib.connect_class)});
}

api_wan_info description(int connection_class, int connect_mode) {
  api_wan_info info;
  info.wan_info_name = "wan-one";
  info.connection_class = connection_class;
  info.connect_mode = connect_mode;
  info.service_type = "INTERNET";
  info.nat_mode = 1;
  info.pppoe_user_name = "user";
  info.pppoe_password = "secret";
  info.pppoe_mtu = "1492";
  info.static_mtu = "1501";
  info.dhcp_mtu = "1502";
  info.protocol = 1;
  info.ip_addr = "10.0.0.2";
  info.ip_mask = "255.0.0.0";
  info.ip_gw = "10.0.0.1";
  info.ip_dns_enable = 1;
  info.ip_dns1 = "1.1.1.1";
  info.ip_dns2 = "2.2.2.2";
  info.dhcp_option60 = "vendor";
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "true";
  return info;
}

std::string lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

void GatewayTest::SetUp() {
  Platform::instance().reset();
  forget_all();
}

// The library frees no cache entry when the process ends.
void GatewayTest::TearDown() {
  EXPECT_EQ(lines(Platform::instance().complaints()), "");
  forget_all();
}

void GatewayTest::forget_all() {
  std::vector<std::string> none;
  _rebuid_cache(none);
  g_l3_ifname_table.clear();
}

void GatewayTest::expect_as_scripted() {
  EXPECT_EQ(transcript_, script_.text());
  EXPECT_EQ(tree().values(), script_.tree().values());
  EXPECT_EQ(tree().objects(), script_.tree().objects());
  EXPECT_EQ(library_cache(), cached_entries(script_.cache));
}

void GatewayTest::set_params(const std::string& wan, api_wan_info& info) {
  api_wan_info expected = info;
  EXPECT_EQ(follow([&](Script& s) { write_params(s, wan, expected); },
                   [&] { return igd_wan_set_params(wan, &info); }),
            0);
  EXPECT_EQ(describe(info), describe(expected));
}

void GatewayTest::get_params(const std::string& wan, api_wan_info& info) {
  api_wan_info expected = info;
  EXPECT_EQ(follow([&](Script& s) { read_params(s, wan, expected); },
                   [&] { return igd_wan_get_params(wan, &info); }),
            0);
  EXPECT_EQ(describe(info), describe(expected));
}

std::string GatewayTest::create(const std::string& access_type, api_wan_info& info) {
  api_wan_info expected = info;
  std::string expected_path;
  const std::string path =
      follow([&](Script& s) { expected_path = create_wan(s, access_type, expected); },
             [&] { return igd_wan_create(access_type, &info); });
  EXPECT_EQ(path, expected_path);
  EXPECT_EQ(describe(info), describe(expected));
  return path;
}

void GatewayTest::destroy(const std::string& wan) {
  follow([&](Script& s) { remove_wan(s, wan); }, [&] { igd_wan_destory(wan); });
}

std::string GatewayTest::add(const std::string& table) {
  return table + std::to_string(tree().add(table)) + ".";
}

std::string GatewayTest::add_device(const std::string& access_type) {
  const std::string device = add(kDevices);
  tree().set(device + "WANCommonInterfaceConfig.WANAccessType", access_type);
  return device;
}

Connection GatewayTest::add_connection(const std::string& device) {
  Connection connection;
  connection.wan = add(device + "WANConnectionDevice.");
  connection.fixed = add(connection.wan + "WANIPConnection.");
  tree().set(connection.fixed + "AddressingType", "Static");
  connection.dhcp = add(connection.wan + "WANIPConnection.");
  tree().set(connection.dhcp + "AddressingType", "DHCP");
  connection.ppp = add(connection.wan + "WANPPPConnection.");
  return connection;
}

std::string GatewayTest::add_bridge(const std::string& name, const std::string& owner) {
  const std::string bridge = add(kBridges);
  tree().set(bridge + "BridgeName", name);
  tree().set(bridge + "X_ZYN_WANName", owner);
  return bridge;
}

std::string GatewayTest::add_port(const std::string& bridge, const std::string& interface,
                                  const std::string& depend_wan) {
  const std::string port = add(bridge + "Port.");
  tree().set(port + "PortInterface", interface);
  tree().set(port + "X_ZYN_DependWanName", depend_wan);
  return port;
}

std::string GatewayTest::add_lan_bridge(const std::vector<std::string>& interfaces) {
  const std::string bridge = add_bridge("internet", "");
  for (const std::string& interface : interfaces) add_port(bridge, interface);
  return bridge;
}

std::string GatewayTest::add_wan_bridge(const Connection& connection, const std::string& name,
                                        const std::vector<std::string>& interfaces) {
  const std::string bridge = add_bridge(name, connection.wan);
  for (const std::string& interface : interfaces) add_port(bridge, interface);
  return bridge;
}

void GatewayTest::tag(const std::string& bridge, int vlan_id) {
  tree().set(bridge + "BridgeStandard", "802.1Q");
  tree().set(bridge + "VLANID", std::to_string(vlan_id));
}

std::string GatewayTest::add_route(const std::string& interface, const std::string& table) {
  const std::string route = add(kForwarding);
  tree().set(route + "Interface", interface);
  tree().set(route + "X_ZYN_RouteTable", table);
  return route;
}

}  // namespace foreign
