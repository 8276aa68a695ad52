// Every field of the five records as it crosses the boundary. Where a field leaves the choice it
// has a value that no other has, so that an exchanged or shifted field shows.
#include <map>

#include "gateway_test.h"

namespace foreign {
namespace {

const std::string kStatic = kWan + "WANIPConnection.1.";
const std::string kDhcp = kWan + "WANIPConnection.2.";
const std::string kPpp = kWan + "WANPPPConnection.1.";
const std::string kLan = kBridges + "1.";
const std::string kOwn = kBridges + "2.";

/// A LAN bridge, and a connection with a bridge of its own.
class Records : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    add_lan_bridge({"LAN1"});
    tree().add(kDevices);
    tree().add(kDevices + "1.WANConnectionDevice.");
    tree().add(kWan + "WANIPConnection.");
    tree().add(kWan + "WANIPConnection.");
    tree().add(kWan + "WANPPPConnection.");
    tree().add(kBridges);
    fill(kWan, {{"WANIPConnection.1.AddressingType", "Static"},
                {"WANIPConnection.2.AddressingType", "DHCP"}});
    fill(kOwn, {{"BridgeName", "br_1_1"}, {"X_ZYN_WANName", kWan}});
  }

  static void fill(const std::string& path, const std::map<std::string, std::string>& values) {
    for (const auto& [name, value] : values) tree().set(path + name, value);
  }

  /// A port of `bridge` with an option 60 of its own.
  static void add_port(const std::string& bridge, const std::string& node,
                       const std::string& owner) {
    const std::string port = bridge + "Port." + std::to_string(tree().add(bridge + "Port.")) + ".";
    fill(port, {{"PortInterface", node},
                {"X_ZYN_DependWanName", owner},
                {"PortOption60", "option of " + node}});
  }
};

TEST_F(Records, OfAConnectionIsWrittenFieldByField) {
  api_wan_info info;
  info.wan_info_name = "name";
  info.vlan_enable = 1;
  info.vlan_id = 3;
  info.vlan_priority = 4;
  info.connection_class = 3;
  info.bind_lan = {"LAN1"};
  info.bind_wan = {"WLAN2"};
  info.service_type = "services";
  info.dhcp_trans = 9;
  info.nat_mode = 1;
  info.connect_mode = 2;
  info.pppoe_user_name = "user";
  info.pppoe_password = "password";
  info.pppoe_mtu = "ppp mtu";
  info.static_mtu = "static mtu";
  info.dhcp_mtu = "dhcp mtu";
  info.protocol = 17;
  info.ip_addr = "address";
  info.ip_mask = "mask";
  info.ip_gw = "gateway";
  info.ip_dns_enable = 21;
  info.dhcp_dns_enable = 22;
  info.dhcp_dns1 = "dhcp dns1";
  info.dhcp_dns2 = "dhcp dns2";
  info.static_dns_enable = 25;
  info.static_dns1 = "static dns1";
  info.static_dns2 = "static dns2";
  info.ip_dns1 = "dns1";
  info.ip_dns2 = "dns2";
  info.dhcp_option60 = "option60";
  info.wan_enable = "enable";
  info.wan_remote_management_enable = "remote";
  info.stp_enable = "stp";
  info.port_option60 = {{"WLAN2", "port option"}};
  info.lan_vlan_enable = 35;
  info.lan_vlan_id = 36;
  const std::string before = describe(info);
  write(kWan, info);
  EXPECT_EQ(describe(info), before);
  // These three are read for the dump alone; it shows dhcp_trans for nat_mode too.
  for (const char* line : {"\ndhcp_trans: 9 \nnat_mode: 9 \n", "2 ipv6 [17] ", "_enable: 21 "}) {
    EXPECT_NE(printed().find(line), std::string::npos) << line;
  }
  EXPECT_EQ(tree().shown(kWan),
            lines({": X_CT-COM_Enable=enable X_CT-COM_RemoteManagerEnable=remote "
                   "X_CT-COM_STPEnable=stp",
                   "WANEthernetLinkConfig.: X_CT-COM_Mode=1 X_CT-COM_Name=name "
                   "X_CT-COM_VLANIDMark=3",
                   "WANIPConnection.1.: AddressingType=Static ConnectionType=IP_BridgeRouted "
                   "DNSEnabled=false DNSServers=dns1,dns2 DefaultGateway=gateway Enable=true "
                   "ExternalIPAddress=address MTU=static mtu NATEnabled=true Name=name "
                   "SubnetMask=mask X_CT-COM_LanInterface=LAN1,WLAN2 "
                   "X_CT-COM_ServiceList=services",
                   "WANIPConnection.2.: AddressingType=DHCP ConnectionType=IP_BridgeRouted "
                   "DNSEnabled=true Enable=false MTU=dhcp mtu NATEnabled=true Name=name "
                   "X_CT-COM_LanInterface=LAN1,WLAN2 X_CT-COM_ServiceList=services "
                   "X_ZYN-COM_OPTION60=option60",
                   "WANPPPConnection.1.: ConnectionType=IP_BridgeRouted DNSEnabled=true "
                   "Enable=false MTU=ppp mtu NATEnabled=true Name=name Password=password "
                   "Username=user X_CT-COM_LanInterface=LAN1,WLAN2 "
                   "X_CT-COM_ServiceList=services"}));
  EXPECT_EQ(tree().shown(kOwn),
            lines({": BridgeEnable=false BridgeName=br_1_1 BridgeStandard=802.1Q VLANID=3 "
                   "X_ZYN_VLANPriority=4 X_ZYN_WANName=" +
                       kWan,
                   "Port.1.: PVID=3 PortEnable=true PortInterface=WLAN2 "
                   "PortOption60=port option X_ZYN_DependWanName="}));
}

TEST_F(Records, OfAConnectionIsReadFieldByField) {
  fill(kWan, {{"X_CT-COM_Enable", "enable"},
              {"X_CT-COM_RemoteManagerEnable", "remote"},
              {"X_CT-COM_STPEnable", "stp"}});
  fill(kStatic, {{"MTU", "static mtu"},
                 {"ExternalIPAddress", "an address of IPv6"},
                 {"SubnetMask", "mask"},
                 {"DefaultGateway", "gateway"},
                 {"DNSEnabled", "false"},
                 {"DNSServers", "static dns1,static dns2"}});
  fill(kDhcp, {{"Enable", "true"},
               {"MTU", "dhcp mtu"},
               {"Name", "name"},
               {"ConnectionType", "IP_BridgeRouted"},
               {"NATEnabled", "true"},
               {"DNSServers", "dns1,dns2"},
               {"X_CT-COM_ServiceList", "services"},
               {"X_ZYN-COM_OPTION60", "option60"}});
  fill(kPpp, {{"Username", "user"}, {"Password", "password"}, {"MTU", "ppp mtu"}});
  fill(kOwn, {{"BridgeStandard", "802.1Q"}, {"VLANID", "3"}, {"X_ZYN_VLANPriority", "4"}});
  fill(kLan, {{"BridgeStandard", "802.1Q"}, {"VLANID", "36"}});
  add_port(kLan, "LAN2", kWan);
  add_port(kOwn, "WLAN3", "");
  add_port(kOwn, "LAN4", "");
  api_wan_info info;
  info.dhcp_trans = 9;
  EXPECT_EQ(run([&] { return igd_wan_get_params(kWan, &info); }), 0);
  EXPECT_EQ(describe(info),
            "name:name|vlan:1|id:3|priority:4|class:3|lan:LAN2;|wan:WLAN3;LAN4;|service:services|"
            "trans:9|nat:1|mode:1|user:user|password:password|ppp mtu:ppp mtu|"
            "static mtu:static mtu|dhcp mtu:dhcp mtu|protocol:2|ip:an address of IPv6|mask:mask|"
            "gateway:gateway|dns:1|dhcp dns:1|dhcp dns1:dns1|dhcp dns2:dns2|static dns:0|"
            "static dns1:static dns1|static dns2:static dns2|dns1:dns1|dns2:dns2|"
            "option60:option60|enable:enable|remote:remote|stp:stp|option LAN2:option of LAN2|"
            "option LAN4:option of LAN4|option WLAN3:option of WLAN3|lan vlan:1|lan id:36|");
}

TEST_F(Records, OfTheCacheHoldsItsPathsFieldByField) {
  fill(kStatic, {{"ConnectionType", "IP_BridgeRouted"}});
  api_wan_info info = description(1, 1);
  write(kWan, info);
  EXPECT_EQ(describe(*g_wan_mibinfo_cache_list.at(kWan)),
            "wan:" + kWan + "|name:br_1_1|static:" + kStatic + "|ppp:" + kPpp + "|dhcp:" + kDhcp +
                "|bridge:" + kOwn + "|lan:" + kLan + "|lan name:internet|class:3|");
}

TEST_F(Records, OfAStatusIsFilledFieldByField) {
  fill(kStatic, {{"Name", "name"},
                 {"Uptime", "uptime"},
                 {"X_CT-COM_ServiceList", "services"},
                 {"ConnectionType", "type"}});
  const std::map<std::string, std::string> active = {
      {"Enable", "true"},
      {"MACAddress", "mac"},
      {"X_CT-COM_ActiveExternalIPAddress", "active"},
      {"ExternalIPAddress", "address"},
      {"SubnetMask", "mask"},
      {"DefaultGateway", "gateway"},
      {"DNSServers", "dns"},
      {"Stats.EthernetBytesSent", "bytes sent"},
      {"Stats.EthernetBytesReceived", "bytes received"},
      {"Stats.EthernetPacketsSent", "packets sent"},
      {"Stats.EthernetPacketsReceived", "packets received"}};
  fill(kDhcp, active);
  api_wan_status status;
  status.last_connection_error = "kept";
  EXPECT_EQ(run([&] { return igd_wan_status(kWan, &status); }), 0);
  const std::string tail =
      "bytes out:bytes sent|bytes in:bytes received|packets out:packets sent|"
      "packets in:packets received|uptime:uptime|";
  EXPECT_EQ(describe(status),
            "name:name|connected:1|mac:mac|mode:1|services:services|type:type|ip:address|"
            "mask:mask|gateway:gateway|dns:dns|" +
                tail + "error:kept|");

  fill(kDhcp, {{"Enable", "false"}});
  fill(kPpp, active);
  fill(kPpp, {{"ExternalIPAddress", "0.0.0.0"}, {"X_ZYN_COM_LastConnectionError", "error"}});
  EXPECT_EQ(run([&] { return igd_wan_status(kWan, &status); }), 0);
  EXPECT_EQ(describe(status),
            "name:name|connected:0|mac:mac|mode:3|services:services|type:type|ip:|mask:|gateway:|"
            "dns:|" +
                tail + "error:error|");
}

TEST_F(Records, OfARouteIsStoredAndListedFieldByField) {
  fill(kDhcp, {{"Name", "interface"}});
  const api_route_info by_gateway = {"one", "mask one", 1, 1, "interface", "gateway"};
  const api_route_info by_interface = {"two", "mask two", 0, 2, "interface", "gateway"};
  EXPECT_EQ(run([&] { return igd_set_static_route(1, by_gateway); }), 0);
  EXPECT_EQ(logged(), "commit 1\napply \n");
  EXPECT_EQ(run([&] { return igd_set_static_route(1, by_interface); }), 0);
  EXPECT_EQ(tree().shown(kForwarding),
            lines({"1.: DestIPAddress=one DestSubnetMask=mask one Enable=true "
                   "GatewayIPAddress=gateway Interface=",
                   "2.: DestIPAddress=two DestSubnetMask=mask two Enable=false "
                   "GatewayIPAddress= Interface=" +
                       kWan}));
  std::vector<api_route_info> routes(3, by_gateway);
  EXPECT_EQ(run([&] { return igd_get_static_route_list(routes); }), 2);
  ASSERT_EQ(routes.size(), 2u);
  EXPECT_EQ(describe(routes[0]), describe({"one", "mask one", 1, 1, "", "gateway"}));
  EXPECT_EQ(describe(routes[1]), describe({"two", "mask two", 0, 2, kWan, ""}));
}

TEST_F(Records, OfTheManagementServerIsStoredAndReadFieldByField) {
  api_mng_server_info written = {"url", "user", "password", "back", "back user", "back password"};
  EXPECT_EQ(run([&] { return igd_mng_server_set_params(&written); }), 0);
  EXPECT_EQ(tree().shown(kServer),
            ": ConnectionRequestPassword=back password ConnectionRequestURL=back "
            "ConnectionRequestUsername=back user Password=password URL=url Username=user\n");
  api_mng_server_info seen;
  EXPECT_EQ(run([&] { return igd_mng_server_get_params(&seen); }), 0);
  EXPECT_EQ(describe(seen), describe(written));
}

}  // namespace
}  // namespace foreign
