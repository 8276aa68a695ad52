#include <algorithm>
#include <string>
#include <vector>

#include "connection_test.h"

namespace {

using support::bridged;
using support::kRoutes;
using support::routed_pppoe;
using support::wan_path;
using Names = std::vector<std::string>;

class WanWriteBridge : public support::ConnectionTest {
 protected:
  static int write(const std::string& wan_index, api_wan_info info) {
    int result = -1;
    (void)support::printed_by([&] { result = igd_wan_set_params(wan_index, &info); });
    return result;
  }
  int write(const api_wan_info& info) const { return write(wan_, info); }

  wan_mib_info& cached() const { return *g_wan_mibinfo_cache_list.at(wan_); }

  std::string add_route(const std::string& interface, const std::string& route_table) {
    const std::string path = add(kRoutes);
    set(path + "Interface", interface);
    set(path + "X_ZYN_RouteTable", route_table);
    return path;
  }

  // Four routes, of which the first and the third are the connection's; "1 2": those left.
  void add_routes() {
    add_route(wan_, "");
    add_route("", wan_path(1, 2));
    add_route("", wan_);
    add_route(wan_path(1, 2), wan_);
  }
  std::string routes_left() const {
    std::string numbers;
    for (const std::string& name : tree_.instances(kForwardingInterface)) {
      const std::string number = name.substr(kRoutes.size());
      numbers += (numbers.empty() ? "" : " ") + number.substr(0, number.find('.'));
    }
    return numbers;
  }
};

TEST_F(WanWriteBridge, BridgingDropsTheRoutesThroughTheConnection) {
  const struct {
    const char* type_before;
    int connection_class;
    const char* left;
  } kCases[] = {
      {"IP_Routed", 2, "2 4"},         {"IP_BridgeRouted", 2, "2 4"},
      {"IP_Routed", 1, "1 2 3 4"},     {"IP_Routed", 3, "1 2 3 4"},
      {"IP_Bridged", 1, "1 2 3 4"},    {"IP_Bridged", 2, "1 2 3 4"},
      {"PPPoE_Bridged", 2, "1 2 3 4"}, {"", 2, "1 2 3 4"},
      {"ip_routed", 2, "1 2 3 4"},
  };
  const host::Tree before = tree_;
  for (const auto& c : kCases) {
    tree_ = before;
    add_routes();
    set(static_ + "ConnectionType", c.type_before);
    api_wan_info info = bridged("1_OTHER", 0, {});
    info.connection_class = c.connection_class;
    EXPECT_EQ(write(info), 0);
    EXPECT_EQ(routes_left(), c.left) << c.type_before << " to " << c.connection_class;
  }
}

TEST_F(WanWriteBridge, TheStaticObjectsTypeTellsTheClassBefore) {
  add_routes();
  set(dhcp_ + "ConnectionType", "IP_Routed");
  set(ppp_ + "ConnectionType", "IP_Routed");
  EXPECT_EQ(write(bridged("1_OTHER", 0, {})), 0);
  EXPECT_EQ(routes_left(), "1 2 3 4");
}

TEST_F(WanWriteBridge, AsksEveryRouteForItsTable) {
  add_routes();
  set(static_ + "ConnectionType", "IP_Routed");
  api_wan_info info = bridged("1_OTHER", 0, {});
  const std::string transcript =
      support::transcript_of([&] { (void)igd_wan_set_params(wan_, &info); });
  for (const char* number : {"1", "2", "3", "4"}) {
    const std::string name = kRoutes + number + ".X_ZYN_RouteTable";
    EXPECT_NE(transcript.find("\nget " + name + " -> "), std::string::npos) << name;
  }
}

TEST_F(WanWriteBridge, RemembersTheClassThatItFound) {
  const struct {
    const char* type;
    int connect_class;
  } kCases[] = {{"IP_Routed", 1}, {"IP_BridgeRouted", 3}, {"IP_Bridged", 2}, {"PPPoE_Bridged", 2},
                {"", 2},          {"IP_Routed ", 2}};
  for (const auto& c : kCases) {
    set(static_ + "ConnectionType", c.type);
    EXPECT_EQ(write(routed_pppoe("1_INTERNET", 0)), 0);
    EXPECT_EQ(cached().connect_class, c.connect_class) << c.type;
  }
}

TEST_F(WanWriteBridge, MakesTheLanBridgeForARoutedConnection) {
  remove(lan_bridge_);
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  info.bind_lan = {"LAN1"};
  EXPECT_EQ(write(info), 0);
  const std::string made = bridge_named("internet");
  ASSERT_NE(made, "");
  EXPECT_EQ(cached().lan_bridge_path, made);
  EXPECT_EQ(get(made + "BridgeStandard"), "802.1Q");
  EXPECT_EQ(get(made + "VLANID"), "4060");
  EXPECT_EQ(ports_of(made), Names{"LAN1"});
}

TEST_F(WanWriteBridge, TheNewLanBridgeTakesTheVlanOfAPortThatIsBoundAlready) {
  remove(lan_bridge_);
  (void)add_port(add_bridge("br_1_2", wan_path(1, 2)), "LAN2", wan_, "4065");
  EXPECT_EQ(write(routed_pppoe("1_INTERNET", 100)), 0);
  EXPECT_EQ(get(bridge_named("internet") + "VLANID"), "4065");
}

TEST_F(WanWriteBridge, AsksTheTreeForTheConnectionsVlanAsIfItWereAName) {
  remove(lan_bridge_);
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  const std::string transcript =
      support::transcript_of([&] { (void)igd_wan_set_params(wan_, &info); });
  EXPECT_NE(transcript.find("\nget 100 -> \"\"\n"), std::string::npos);
}

TEST_F(WanWriteBridge, TheNewLanBridgeOfAnUntaggedConnectionIsUntagged) {
  remove(lan_bridge_);
  EXPECT_EQ(write(routed_pppoe("1_INTERNET", 0)), 0);
  EXPECT_EQ(get(bridge_named("internet") + "BridgeStandard"), "802.1D");
  EXPECT_EQ(get(bridge_named("internet") + "VLANID"), "0");
}

TEST_F(WanWriteBridge, LeavesTheLinkWithTheConnectionsOwnVlan) {
  remove(lan_bridge_);
  EXPECT_EQ(write(routed_pppoe("1_INTERNET", 100)), 0);
  EXPECT_EQ(get(wan_ + "WANEthernetLinkConfig.X_CT-COM_VLANIDMark"), "100");
}

TEST_F(WanWriteBridge, MakesNoLanBridgeForOtherClasses) {
  remove(lan_bridge_);
  for (const int connection_class : {2, 3, 0}) {
    api_wan_info info = routed_pppoe("1_INTERNET", 0);
    info.connection_class = connection_class;
    EXPECT_EQ(write(info), 0);
    EXPECT_EQ(bridge_named("internet"), "") << connection_class;
    EXPECT_EQ(cached().lan_bridge_path, "") << connection_class;
  }
}

TEST_F(WanWriteBridge, LeavesAnExistingLanBridgeAsItIs) {
  EXPECT_EQ(write(routed_pppoe("1_INTERNET", 100)), 0);
  EXPECT_EQ(tree_.instances(kBridgeName).size(), 2U);
  EXPECT_EQ(get(lan_bridge_ + "VLANID"), "0");
  EXPECT_EQ(get(lan_bridge_ + "BridgeStandard"), "802.1D");
}

TEST_F(WanWriteBridge, AdoptsALanBridgeThatAppearedSinceItsPathsWereCached) {
  remove(lan_bridge_);
  EXPECT_EQ(write(bridged("1_OTHER", 0, {})), 0);
  const std::string late = add_bridge("internet", "");
  EXPECT_EQ(write(bridged("1_OTHER", 0, {})), 0);
  EXPECT_EQ(cached().lan_bridge_path, "") << "a bridged connection needs none";
  EXPECT_EQ(write(routed_pppoe("1_INTERNET", 0)), 0);
  EXPECT_EQ(cached().lan_bridge_path, late);
  EXPECT_EQ(tree_.instances(kBridgeName).size(), 2U);
}

TEST_F(WanWriteBridge, RecordsTheBoundPortsOnTheObjects) {
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN4"};
  EXPECT_EQ(write(info), 0);
  for (const std::string& path : {static_, dhcp_, ppp_}) {
    EXPECT_EQ(get(path + "X_CT-COM_LanInterface"), "LAN1,WLAN1,LAN4") << path;
  }
}

TEST_F(WanWriteBridge, MovesPortsAndWritesTheVlan) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  info.bind_lan = {"LAN1"};
  info.bind_wan = {"LAN4"};
  EXPECT_EQ(write(info), 0);
  EXPECT_EQ(ports_of(bridge_), (Names{"LAN0", "LAN4"}));
  EXPECT_EQ(lan_ports_of(wan_), "LAN1");
  EXPECT_EQ(lan_ports_of(""), "LAN2 LAN3 WLAN1 WLAN2 WLAN3 WLAN4");
  EXPECT_EQ(get(bridge_ + "VLANID"), "100");
  EXPECT_EQ(get(wan_ + "WANEthernetLinkConfig.X_CT-COM_VLANIDMark"), "100");
}

TEST_F(WanWriteBridge, SecondIdenticalWriteChangesNothing) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  info.bind_lan = {"LAN1"};
  info.bind_wan = {"LAN4"};
  EXPECT_EQ(write(info), 0);
  const std::vector<host::Parameter> before = tree_.parameters();
  EXPECT_EQ(write(info), 0);
  const std::vector<host::Parameter> after = tree_.parameters();
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    EXPECT_EQ(after[i].name, before[i].name);
    EXPECT_EQ(after[i].value, before[i].value) << after[i].name;
  }
}

TEST_F(WanWriteBridge, WritesToBareNamesForAPathThatNamesNoConnection) {
  const std::string index = wan_path(9, 9);
  EXPECT_EQ(write(index, routed_pppoe("9_INTERNET", 0)), 0);
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(index)->static_path, "");
  const Names refused = take_refusals();
  for (const std::string& name :
       {std::string("Enable"), std::string("Name"), std::string("MTU"),
        std::string("ConnectionType"), std::string("VLANID"), index + "X_CT-COM_Enable"}) {
    EXPECT_NE(std::count(refused.begin(), refused.end(), "setValue " + name), 0) << name;
  }
  EXPECT_EQ(get(ppp_ + "Name"), "");
}

TEST_F(WanWriteBridge, GoesOnAfterAPortCouldNotBeAdded) {
  support::FailingAdds failing(host::mib_access(), 1);
  const support::BehindSwitchboard behind(failing);
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  info.bind_wan = {"LAN4"};
  EXPECT_EQ(write(info), 0);
  EXPECT_TRUE(failing.failed());
  EXPECT_EQ(ports_of(bridge_), Names{"LAN0"});
  EXPECT_EQ(get(ppp_ + "Enable"), "true");
  EXPECT_NE(take_refusals(), Names());  // the port's parameters, at number 0
}

TEST_F(WanWriteBridge, GoesOnAfterTheLanBridgeCouldNotBeAdded) {
  remove(lan_bridge_);
  support::FailingAdds failing(host::mib_access(), 1);
  const support::BehindSwitchboard behind(failing);
  EXPECT_EQ(write(routed_pppoe("1_INTERNET", 0)), 0);
  EXPECT_TRUE(failing.failed());
  EXPECT_EQ(bridge_named("internet"), "");
  EXPECT_EQ(get(ppp_ + "Enable"), "true");
  EXPECT_NE(take_refusals(), Names());  // the bridge's parameters, at number 0
}

}  // namespace
