// Reading the VLANs, the bound ports and their option 60; the whole sequence of a reading.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class GetBindings : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    connection_ = add_connection(add_device("Ethernet"));
    lan_bridge_ = add_lan_bridge({"LAN1"});
    wan_bridge_ = add_wan_bridge(connection_, "br_1_1", {"LAN0"});
  }

  api_wan_info read() {
    api_wan_info info;
    get_params(connection_.wan, info);
    return info;
  }

  Connection connection_;
  std::string lan_bridge_;
  std::string wan_bridge_;
};

TEST_F(GetBindings, ReadsTheVlansOfBothBridges) {
  tag(wan_bridge_, 100);
  tree().set(wan_bridge_ + "X_ZYN_VLANPriority", "5");
  tag(lan_bridge_, 4060);
  api_wan_info info = read();
  EXPECT_EQ(info.vlan_enable, 1);
  EXPECT_EQ(info.vlan_id, 100);
  EXPECT_EQ(info.vlan_priority, 5);
  EXPECT_EQ(info.lan_vlan_enable, 1);
  EXPECT_EQ(info.lan_vlan_id, 4060);
  tree().set(wan_bridge_ + "BridgeStandard", "802.1q");
  tree().set(lan_bridge_ + "BridgeStandard", "802.1D");
  info = read();
  EXPECT_EQ(info.vlan_enable, 0);
  EXPECT_EQ(info.vlan_id, 100);
  EXPECT_EQ(info.lan_vlan_enable, 0);
}

TEST_F(GetBindings, ReadsTheLeadingNumberOfATextAndClampsIt) {
  const struct {
    const char* text;
    int number;
  } cases[] = {{"", 0},
               {"abc", 0},
               {"12abc", 12},
               {" 34", 34},
               {"-5", -5},
               {"+6", 6},
               {"0x10", 0},
               {"99999999999", 2147483647},
               {"007", 7},
               {"1 2", 1},
               {"-99999999999", -2147483647 - 1}};
  for (const auto& c : cases) {
    tree().set(wan_bridge_ + "VLANID", c.text);
    tree().set(wan_bridge_ + "X_ZYN_VLANPriority", c.text);
    tree().set(lan_bridge_ + "VLANID", c.text);
    const api_wan_info info = read();
    EXPECT_EQ(info.vlan_id, c.number) << c.text;
    EXPECT_EQ(info.vlan_priority, c.number) << c.text;
    EXPECT_EQ(info.lan_vlan_id, c.number) << c.text;
  }
}

TEST_F(GetBindings, ListsThePortsThatDependOnTheConnectionInAnyBridge) {
  add_port(lan_bridge_, " LAN2\t", connection_.wan);
  add_port(lan_bridge_, "LAN3", connection_.wan + " ");
  add_port(lan_bridge_, "LAN4", "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.11.");
  add_port(add_bridge("other", ""), "WLAN1", connection_.wan);
  EXPECT_EQ(read().bind_lan, (Names{"LAN2", "WLAN1"}));
}

TEST_F(GetBindings, ListsThePortsOfItsOwnBridgeButTheUplinks) {
  for (const char* node : {"3G0", "LAN4", "WIFIW0", "LAN_DEFAULT1", "\nWLAN1 ", "LAN4"}) {
    add_port(wan_bridge_, node);
  }
  EXPECT_EQ(read().bind_wan, (Names{"LAN4", "LAN_DEFAULT1", "WLAN1", "LAN4"}));
}

TEST_F(GetBindings, EmptiesTheListsButNotTheOptions) {
  api_wan_info info;
  info.bind_lan = {"LAN3"};
  info.bind_wan = {"LAN4"};
  info.port_option60["LAN3"] = "kept";
  get_params(connection_.wan, info);
  EXPECT_EQ(info.bind_lan, Names{});
  EXPECT_EQ(info.bind_wan, Names{});
  EXPECT_EQ(info.port_option60, (std::map<std::string, std::string>{{"LAN3", "kept"}}));
}

TEST_F(GetBindings, CollectsTheOptionsOfBoundPorts) {
  tree().set(add_port(lan_bridge_, "LAN2", connection_.wan) + "PortOption60", "two");
  tree().set(add_port(lan_bridge_, "LAN3") + "PortOption60", "unbound");
  tree().set(add_port(wan_bridge_, "LAN4") + "PortOption60", "four");
  add_port(wan_bridge_, "WLAN1");
  tree().set(add_port(wan_bridge_, "3G0") + "PortOption60", "uplink");
  api_wan_info info;
  info.port_option60 = {{"LAN2", "old"}, {"WLAN1", "kept"}};
  get_params(connection_.wan, info);
  EXPECT_EQ(info.port_option60, (std::map<std::string, std::string>{
                                    {"LAN2", "two"}, {"LAN4", "four"}, {"WLAN1", "kept"}}));
}

TEST_F(GetBindings, LetsThePortOfItsOwnBridgeDecideTheOptionOfAnInterface) {
  tree().set(add_port(lan_bridge_, "LAN2", connection_.wan) + "PortOption60", "lan");
  tree().set(add_port(wan_bridge_, "LAN2") + "PortOption60", "wan");
  EXPECT_EQ(read().port_option60.at("LAN2"), "wan");
}

TEST_F(GetBindings, ListsEveryPortWhenTheConnectionHasNoBridge) {
  const Connection other = add_connection(parent_of(parent_of(connection_.wan)));
  add_port(wan_bridge_, "LAN2");
  api_wan_info info;
  get_params(other.wan, info);
  EXPECT_EQ(info.bind_wan, (Names{"LAN1", "LAN2"}));
  EXPECT_EQ(info.vlan_id, 0);
}

TEST_F(GetBindings, ReadsBareNamesForAConnectionThatDoesNotExist) {
  const std::string wan = "InternetGatewayDevice.WANDevice.9.WANConnectionDevice.9.";
  api_wan_info info;
  get_params(wan, info);
  EXPECT_NE(transcript().find("\nget Username\n"), std::string::npos);
  EXPECT_NE(transcript().find("\nget " + wan + "X_CT-COM_Enable\n"), std::string::npos);
  EXPECT_EQ(info.wan_info_name, "");
  EXPECT_EQ(info.pppoe_mtu, "");
  EXPECT_EQ(info.nat_mode, 0);
}

TEST_F(GetBindings, KeepsReadingThePathsItOnceCached) {
  read();
  tree().erase(connection_.fixed);
  tree().set(connection_.fixed + "MTU", "left behind");
  tree().set(lan_bridge_ + "BridgeName", "renamed");
  tag(lan_bridge_, 77);
  const api_wan_info info = read();
  EXPECT_EQ(info.static_mtu, "left behind");
  EXPECT_EQ(info.lan_vlan_id, 77);
}

TEST_F(GetBindings, ReadsAndPrintsInOneFixedOrder) {
  run([&] { return _get_cache(connection_.wan); });
  tree().set(connection_.dhcp + "Enable", "true");
  add_port(lan_bridge_, "LAN2", connection_.wan);
  add_port(wan_bridge_, "LAN3");
  api_wan_info info;
  EXPECT_EQ(run([&] { return igd_wan_get_params(connection_.wan, &info); }), 0);
  const std::string dhcp = connection_.dhcp, ppp = connection_.ppp, fixed = connection_.fixed;
  const std::string wan = connection_.wan, lan = lan_bridge_, own = wan_bridge_;
  const std::string step = "| vornik igd_wan_get_params:#";
  std::string expected = lines({
      "| vornik get_params bridge_name:br_1_1,connect_class:0,",
      "|  dhcp_path:" + dhcp + ",",
      "|  lan_bridge_name:internet,\t\tlan_bridge_path:" + lan + ",ppp_path:" + ppp + ",",
      "|  static_path:" + fixed + ",",
      "|  wan_bridge_path:" + own + ",",
      "|  wan_path:" + wan,
      "| vornik mib_info->ppp_path = \"" + ppp + "\"",
      "get " + ppp + "Username",
      "get " + ppp + "Password",
      step,
      "get " + ppp + "MTU",
      "get " + fixed + "MTU",
      "get " + dhcp + "MTU",
      step,
      "get " + fixed + "ExternalIPAddress",
      "get " + fixed + "SubnetMask",
      "get " + fixed + "DefaultGateway",
      step,
      "get " + wan + "X_CT-COM_Enable",
      "get " + wan + "X_CT-COM_RemoteManagerEnable",
      "get " + wan + "X_CT-COM_STPEnable",
      step,
      "get " + dhcp + "Enable",
      "| vornik dhcp_path true",
      "| vornik _get_value(mib_info->dhcp_path,\"Enable\") = 1",
      "get " + ppp + "Enable",
      "| vornik ppp_path false",
      "get " + fixed + "Enable",
      "| vornik static_path false",
      step,
      "get " + dhcp + "DNSEnabled",
      "get " + dhcp + "X_ZYN-COM_OPTION60",
      "get " + dhcp + "DNSServers",
      "get " + dhcp + "DNSEnabled",
      "get " + dhcp + "DNSServers",
      "get " + fixed + "DNSEnabled",
      "get " + fixed + "DNSServers",
      step,
      "get " + dhcp + "ConnectionType",
      "get " + dhcp + "Name",
      "get " + dhcp + "X_CT-COM_ServiceList",
      "get " + dhcp + "NATEnabled",
      step,
      step,
      "get " + own + "BridgeStandard",
      "get " + own + "VLANID",
      "get " + own + "X_ZYN_VLANPriority",
      "get " + lan + "BridgeStandard",
      "get " + lan + "VLANID",
      step,
      "open 204",
      "close",
      "get " + lan + "Port.1.X_ZYN_DependWanName",
      "get " + lan + "Port.2.X_ZYN_DependWanName",
      "get " + lan + "Port.2.PortInterface",
      "get " + own + "Port.1.X_ZYN_DependWanName",
      "get " + own + "Port.2.X_ZYN_DependWanName",
      "open 205",
      "close",
      "get " + own + "Port.1.PortInterface",
      "get " + own + "Port.2.PortInterface",
      step,
      "get " + lan + "Port.2.PortOption60",
      "get " + own + "Port.2.PortOption60",
      step,
      step,
      "| igd_wan_get_params  igd_wan_print_params(info) :565",
  });
  Script dump;
  print_record(dump, info);
  EXPECT_EQ(transcript(), expected + dump.text());
}

}  // namespace
}  // namespace foreign
