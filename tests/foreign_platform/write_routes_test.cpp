// Writing a record: cut texts, remembered class, routes, connections that are not there.
#include "write_bench.h"

namespace foreign {
namespace {

TEST_F(SetParams, StoresAtMost255CharactersOfTheName) {
  const std::string longest(255, 'n');
  api_wan_info info = description(1, 1);
  info.wan_info_name = longest + "lost";
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  for (const std::string& object : {connection_.dhcp, connection_.fixed, connection_.ppp}) {
    EXPECT_EQ(tree().get(object + "Name"), longest);
  }
  EXPECT_EQ(tree().get(connection_.wan + "WANEthernetLinkConfig.X_CT-COM_Name"), longest);
  EXPECT_EQ(info.wan_info_name, longest + "lost");
}

TEST_F(SetParams, StoresTheNameUpToAZeroByte) {
  api_wan_info info = description(1, 1);
  info.wan_info_name = std::string("ab\0cd", 5);
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  EXPECT_EQ(tree().get(connection_.ppp + "Name"), "ab");
}

TEST_F(SetParams, StoresAtMost255CharactersOfTheJoinedServers) {
  api_wan_info info = description(1, 3);
  info.ip_dns1 = std::string(250, '1');
  info.ip_dns2 = std::string(250, '2');
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  EXPECT_EQ(tree().get(connection_.ppp + "DNSServers"), info.ip_dns1 + ",2222");
}

TEST_F(SetParams, StoresEveryOtherTextWhole) {
  const std::string text(300, 'x');
  api_wan_info info = description(1, 2);
  info.wan_remote_management_enable = info.wan_enable = info.stp_enable = text;
  info.dhcp_option60 = info.service_type = info.pppoe_user_name = info.pppoe_password = text;
  info.pppoe_mtu = info.static_mtu = info.dhcp_mtu = text;
  info.ip_addr = info.ip_mask = info.ip_gw = text;
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  for (const std::string& name :
       {connection_.wan + "X_CT-COM_RemoteManagerEnable", connection_.wan + "X_CT-COM_Enable",
        connection_.wan + "X_CT-COM_STPEnable", connection_.dhcp + "X_ZYN-COM_OPTION60",
        connection_.ppp + "X_CT-COM_ServiceList", connection_.ppp + "Username",
        connection_.ppp + "Password", connection_.ppp + "MTU", connection_.fixed + "MTU",
        connection_.dhcp + "MTU", connection_.fixed + "ExternalIPAddress",
        connection_.fixed + "SubnetMask", connection_.fixed + "DefaultGateway"}) {
    EXPECT_EQ(tree().get(name), text) << name;
  }
}

TEST_F(SetParams, RemembersTheClassThatTheTreeHeldBefore) {
  const struct {
    const char* type;
    int remembered;
  } cases[] = {{"IP_Routed", 1}, {"IP_BridgeRouted", 3}, {"IP_Bridged", 2},
               {"", 2},          {"PPPoE_Bridged", 2},   {"ip_routed", 2}};
  for (const auto& c : cases) {
    tree().set(connection_.fixed + "ConnectionType", c.type);
    write(description(1, 1));
    EXPECT_EQ(g_wan_mibinfo_cache_list.at(connection_.wan)->connect_class, c.remembered) << c.type;
  }
}

class RoutesOfSetParams : public SetParams {
 protected:
  void SetUp() override {
    SetParams::SetUp();
    other_ = add_connection(device_).wan;
    by_interface_ = add_route(connection_.wan, other_);
    by_table_ = add_route("", connection_.wan);
    by_gateway_ = add_route("", other_);
    of_other_ = add_route(other_, connection_.wan);
    similar_ = add_route(connection_.wan + " ", "");
  }

  std::vector<std::string> left() {
    std::vector<std::string> found;
    for (const std::string& route : {by_interface_, by_table_, by_gateway_, of_other_, similar_}) {
      if (tree().objects().count(route) != 0) found.push_back(route);
    }
    return found;
  }

  std::vector<std::string> all() {
    return {by_interface_, by_table_, by_gateway_, of_other_, similar_};
  }

  std::string other_, by_interface_, by_table_, by_gateway_, of_other_, similar_;
};

TEST_F(RoutesOfSetParams, AreDroppedWhenARoutedConnectionBecomesBridged) {
  tree().set(connection_.fixed + "ConnectionType", "IP_Routed");
  write(description(2, 1));
  EXPECT_EQ(left(), (std::vector<std::string>{by_gateway_, of_other_, similar_}));
}

TEST_F(RoutesOfSetParams, AreDroppedWhenARouteAndBridgeConnectionBecomesBridged) {
  tree().set(connection_.fixed + "ConnectionType", "IP_BridgeRouted");
  write(description(2, 1));
  EXPECT_EQ(left(), (std::vector<std::string>{by_gateway_, of_other_, similar_}));
}

TEST_F(RoutesOfSetParams, StayOnEveryOtherChange) {
  const struct {
    const char* before;
    int after;
  } cases[] = {{"IP_Bridged", 2}, {"IP_Bridged", 1},      {"IP_Bridged", 3},
               {"IP_Routed", 1},  {"IP_Routed", 3},       {"IP_BridgeRouted", 1},
               {"IP_Routed", 0},  {"IP_BridgeRouted", 3}, {"", 2}};
  for (const auto& c : cases) {
    tree().set(connection_.fixed + "ConnectionType", c.before);
    write(description(c.after, 1));
    EXPECT_EQ(left(), all()) << c.before << ' ' << c.after;
  }
}

TEST_F(RoutesOfSetParams, AreJudgedByInterfaceThenByTable) {
  tree().set(connection_.fixed + "ConnectionType", "IP_Routed");
  api_wan_info info = description(2, 1);
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  const std::size_t begin = transcript().find("open 177\n");
  ASSERT_NE(begin, std::string::npos);
  const std::string trace = "| vornik igd_wan_set_params:#  interface:";
  const std::string expected = lines({
      "open 177",
      "close",
      "get " + by_interface_ + "Interface",
      trace + connection_.wan + " ",
      "get " + by_interface_ + "X_ZYN_RouteTable",
      "delete " + by_interface_,
      "get " + by_table_ + "Interface",
      trace + " ",
      "get " + by_table_ + "X_ZYN_RouteTable",
      "delete " + by_table_,
      "get " + by_gateway_ + "Interface",
      trace + " ",
      "get " + by_gateway_ + "X_ZYN_RouteTable",
      "get " + of_other_ + "Interface",
      trace + other_ + " ",
      "get " + of_other_ + "X_ZYN_RouteTable",
      "get " + similar_ + "Interface",
      trace + connection_.wan + "  ",
      "get " + similar_ + "X_ZYN_RouteTable",
  });
  EXPECT_EQ(transcript().substr(begin, expected.size()), expected);
}

TEST_F(SetParams, WritesBareNamesForAConnectionThatDoesNotExist) {
  const std::string wan = "InternetGatewayDevice.WANDevice.7.WANConnectionDevice.8.";
  api_wan_info info = description(2, 2);
  set_params(wan, info);
  EXPECT_EQ(tree().get("Name"), "wan-one");
  EXPECT_EQ(tree().get("ExternalIPAddress"), "10.0.0.2");
  EXPECT_EQ(tree().get("BridgeStandard"), "802.1D");
  EXPECT_EQ(tree().get(wan + "X_CT-COM_Enable"), "true");
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(wan)->bridge_name, "br_7_8");
}

TEST_F(SetParams, WritesToTheCachedPathsEvenWhenTheObjectsAreGone) {
  write(description(1, 1));
  tree().erase(connection_.fixed);
  write(description(1, 2));
  EXPECT_EQ(tree().get(connection_.fixed + "Enable"), "true");
}

TEST_F(SetParams, CreatesTheLanBridgeOfARoutedConnection) {
  tree().erase(lan_bridge_);
  write(description(1, 1));
  const std::string bridge = g_wan_mibinfo_cache_list.at(connection_.wan)->lan_bridge_path;
  EXPECT_EQ(bridge, std::string(kBridges) + "3.");
  EXPECT_EQ(tree().get(bridge + "BridgeName"), "internet");
  EXPECT_EQ(tree().get(bridge + "BridgeStandard"), "802.1D");
  EXPECT_EQ(tree().get(bridge + "VLANID"), "0");
  EXPECT_EQ(tree().get(bridge + "X_ZYN_WANName"), "");
  EXPECT_EQ(tree().get(bridge + "BridgeEnable"), "true");
}

TEST_F(SetParams, GivesATaggedLanBridgeTheFirstPrivateVlan) {
  tree().erase(lan_bridge_);
  tree().set(wan_bridge_ + "Port.1.PVID", "4060");
  api_wan_info info = description(1, 1);
  info.vlan_enable = 1;
  info.vlan_id = 100;
  info.vlan_priority = 6;
  EXPECT_EQ(tree().get(connection_.wan + "WANEthernetLinkConfig.X_CT-COM_Mode"), "0");
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  const std::string bridge = std::string(kBridges) + "3.";
  const std::string link = connection_.wan + "WANEthernetLinkConfig.";
  const std::string expected = lines({
      "add " + std::string(kBridges) + " 255: 3",
      "set " + bridge + "BridgeName = internet",
      "set " + bridge + "BridgeStandard = 802.1Q",
      "set " + bridge + "VLANID = 4061",
      "set " + link + "X_CT-COM_VLANIDMark = 4061",
      "set " + link + "X_CT-COM_Mode = 1",
      "set " + bridge + "X_ZYN_VLANPriority = 6",
      "set " + bridge + "BridgeEnable = true",
  });
  EXPECT_EQ(writes_of(transcript()).substr(0, expected.size()), expected);
  EXPECT_EQ(tree().get(wan_bridge_ + "VLANID"), "100");
  EXPECT_EQ(tree().get(link + "X_CT-COM_VLANIDMark"), "100");
}

TEST_F(SetParams, RaisesTheLinkModeFor0OnlyWhenItCreatesATaggedLanBridge) {
  const std::string mode = connection_.wan + "WANEthernetLinkConfig.X_CT-COM_Mode";
  const struct {
    const char* before;
    const char* after;
  } cases[] = {{"0", "1"}, {"2", "2"}, {"", ""}};
  for (const auto& c : cases) {
    tree().erase(lan_bridge_);
    tree().set(mode, c.before);
    forget();
    api_wan_info info = description(1, 1);
    info.vlan_enable = 1;
    info.vlan_id = 100;
    write(info);
    EXPECT_NE(transcript().find("\nadd "), std::string::npos);
    EXPECT_EQ(tree().get(mode), c.after) << c.before;
    lan_bridge_ = g_wan_mibinfo_cache_list.at(connection_.wan)->lan_bridge_path;
  }
}

TEST_F(SetParams, CreatesNoLanBridgeForOtherClasses) {
  tree().erase(lan_bridge_);
  for (int connection_class : {2, 3, 0}) {
    write(description(connection_class, 1));
    EXPECT_EQ(g_wan_mibinfo_cache_list.at(connection_.wan)->lan_bridge_path, "");
    EXPECT_EQ(transcript().find("\nadd "), std::string::npos);
  }
}

TEST_F(SetParams, AdoptsALanBridgeThatAppearedSinceItsPathsWereCached) {
  tree().erase(lan_bridge_);
  write(description(2, 1));
  const std::string late = add_lan_bridge({"LAN1"});
  write(description(2, 1));
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(connection_.wan)->lan_bridge_path, "");
  write(description(1, 1));
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(connection_.wan)->lan_bridge_path, late);
  EXPECT_EQ(transcript().find("\nadd "), std::string::npos);
}

TEST_F(SetParams, WritesToInstance0WhenTheLanBridgeIsRefused) {
  tree().erase(lan_bridge_);
  tree().refuse_add(1);
  write(description(1, 1));
  const std::string bridge = std::string(kBridges) + "0.";
  EXPECT_EQ(tree().get(bridge + "BridgeName"), "internet");
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(connection_.wan)->lan_bridge_path, bridge);
}

}  // namespace
}  // namespace foreign
