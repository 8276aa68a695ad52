#include "gateway_test.h"

namespace foreign {
namespace {

// "<name>:<value>|" a field.
class Fields {
 public:
  Fields& operator()(const char* name, const std::string& value) {
    text_ += name + (":" + value) + "|";
    return *this;
  }
  Fields& operator()(const char* name, int value) { return (*this)(name, std::to_string(value)); }
  Fields& operator()(const char* name, const Names& values) {
    std::string joined;
    for (const std::string& value : values) joined += value + ";";
    return (*this)(name, joined);
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace

std::string describe(const api_wan_info& i) {
  Fields fields;
  fields("name", i.wan_info_name)("vlan", i.vlan_enable)("id", i.vlan_id);
  fields("priority", i.vlan_priority)("class", i.connection_class)("lan", i.bind_lan);
  fields("wan", i.bind_wan)("service", i.service_type)("trans", i.dhcp_trans)("nat", i.nat_mode);
  fields("mode", i.connect_mode)("user", i.pppoe_user_name)("password", i.pppoe_password);
  fields("ppp mtu", i.pppoe_mtu)("static mtu", i.static_mtu)("dhcp mtu", i.dhcp_mtu);
  fields("protocol", i.protocol)("ip", i.ip_addr)("mask", i.ip_mask)("gateway", i.ip_gw);
  fields("dns", i.ip_dns_enable)("dhcp dns", i.dhcp_dns_enable)("dhcp dns1", i.dhcp_dns1);
  fields("dhcp dns2", i.dhcp_dns2)("static dns", i.static_dns_enable)("static dns1", i.static_dns1);
  fields("static dns2", i.static_dns2)("dns1", i.ip_dns1)("dns2", i.ip_dns2);
  fields("option60", i.dhcp_option60)("enable", i.wan_enable);
  fields("remote", i.wan_remote_management_enable)("stp", i.stp_enable);
  for (const auto& [port, option] : i.port_option60) fields(("option " + port).c_str(), option);
  return fields("lan vlan", i.lan_vlan_enable)("lan id", i.lan_vlan_id).text();
}

std::string describe(const wan_mib_info& mib) {
  Fields fields;
  fields("wan", mib.wan_path)("name", mib.bridge_name)("static", mib.static_path);
  fields("ppp", mib.ppp_path)("dhcp", mib.dhcp_path)("bridge", mib.wan_bridge_path);
  fields("lan", mib.lan_bridge_path)("lan name", mib.lan_bridge_name);
  return fields("class", mib.connect_class).text();
}

std::string describe(const api_wan_status& s) {
  Fields fields;
  fields("name", s.name)("connected", s.connected)("mac", s.mac_address)("mode", s.connect_mode);
  fields("services", s.service_list)("type", s.connection_type)("ip", s.ip_addr)("mask", s.ip_mask);
  fields("gateway", s.ip_gw)("dns", s.ip_dns)("bytes out", s.bytes_sent);
  fields("bytes in", s.bytes_received)("packets out", s.packets_sent);
  fields("packets in", s.packets_received)("uptime", s.uptime);
  return fields("error", s.last_connection_error).text();
}

std::string describe(const api_route_info& route) {
  Fields fields;
  fields("to", route.dest_ip)("mask", route.dest_mask)("enable", route.enable);
  fields("type", route.route_type)("interface", route.interface)("gateway", route.gateway);
  return fields.text();
}

std::string describe(const api_mng_server_info& server) {
  Fields fields;
  fields("url", server.url)("user", server.username)("password", server.password);
  fields("back", server.connection_request_url)("back user", server.connection_request_username);
  return fields("back password", server.connection_request_password).text();
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

std::string lines(const Names& lines) {
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
  EXPECT_EQ(Platform::instance().complaints(), "");
  EXPECT_EQ(tree().strays(), "");
  forget_all();
}

void GatewayTest::forget_all() {
  Names none;
  _rebuid_cache(none);
  g_l3_ifname_table.clear();
}

std::string GatewayTest::create(const std::string& access_type, api_wan_info& info) {
  return run([&] { return igd_wan_create(access_type, &info); });
}

void GatewayTest::write(const std::string& wan, api_wan_info& info) {
  EXPECT_EQ(run([&] { return igd_wan_set_params(wan, &info); }), 0);
}

api_wan_info GatewayTest::read(const std::string& wan) {
  api_wan_info info;
  EXPECT_EQ(run([&] { return igd_wan_get_params(wan, &info); }), 0);
  return info;
}

void GatewayTest::remove(const std::string& wan) {
  run([&] { igd_wan_destory(wan); });
  EXPECT_EQ(logged(), "igd_api:# INDEX=" + wan + "\ncommit 1\n");
}

void GatewayTest::add_lan_bridge(const Names& nodes) {
  const std::string bridge = kBridges + std::to_string(tree().add(kBridges)) + ".";
  tree().set(bridge + "BridgeName", "internet");
  tree().set(bridge + "BridgeEnable", "true");
  for (const std::string& node : nodes) {
    const std::string port = bridge + "Port." + std::to_string(tree().add(bridge + "Port.")) + ".";
    tree().set(port + "PVID", "");
    tree().set(port + "PortInterface", node);
    tree().set(port + "PortEnable", "true");
  }
}

}  // namespace foreign
