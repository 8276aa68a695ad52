// Whether a description fits beside the connections that exist.
#include <tuple>
#include <utility>

#include "gateway_test.h"

namespace {

using support::bridged;
using support::kBridges;
using support::routed_pppoe;

constexpr int kAllPorts = 255;  // LAN1 to WLAN4

class WanValidate : public support::GatewayTest {
 protected:
  static int verdict(const std::string& wan_path, api_wan_info info, int ports = kAllPorts) {
    return igd_verify_new_wan_info_valid(wan_path, &info, ports);
  }

  /// A new untagged connection that asks for ports. No bridge carries VLAN 0 in these tests.
  static api_wan_info asking(const std::vector<std::string>& bind_lan,
                             const std::vector<std::string>& bind_wan) {
    api_wan_info info = routed_pppoe("asking", 0);
    info.bind_lan = bind_lan;
    info.bind_wan = bind_wan;
    return info;
  }

  /// Takes ports out of the LAN bridge and into a bridge of this owner with VLAN 700.
  std::string hand_over(const std::vector<std::string>& nodes, const std::string& owner) {
    const std::string bridge_path = add_bridge("br", owner, "700");
    for (const std::string& node : nodes) {
      leave_lan_bridge(node);
      (void)add_port(bridge_path, node);
    }
    return bridge_path;
  }

  void leave_lan_bridge(const std::string& node) {
    for (const std::string& parameter : tree_.instances(kPortInterface)) {
      if (tree_.value(parameter) != node) continue;
      ASSERT_EQ(tree_.delete_object(parameter.substr(0, parameter.rfind('.') + 1)), 0);
      return;
    }
  }

  const std::string mine_ = support::wan_path(1, 1);
  const std::string other_ = support::wan_path(1, 2);
};

TEST_F(WanValidate, ForgetsTheVlanOfAnUntaggedRequest) {
  (void)add_bridge("br_1_2", other_, "100");
  api_wan_info info = routed_pppoe("new", 100);
  info.vlan_enable = 0;
  EXPECT_EQ(igd_verify_new_wan_info_valid("", &info, kAllPorts), kIgdAcceptable);
  EXPECT_EQ(info.vlan_id, 0);
}

TEST_F(WanValidate, KeepsTheVlanOfATaggedRequest) {
  api_wan_info info = routed_pppoe("new", 100);
  EXPECT_EQ(igd_verify_new_wan_info_valid("", &info, kAllPorts), kIgdAcceptable);
  EXPECT_EQ(info.vlan_id, 100);
}

TEST_F(WanValidate, RefusesASecondUntaggedConnection) {
  (void)add_bridge("br_1_2", other_, "0");
  EXPECT_EQ(verdict("", routed_pppoe("new", 0)), kIgdUntaggedTaken);
  api_wan_info tagged_with_zero = routed_pppoe("new", 0);
  tagged_with_zero.vlan_enable = 1;
  EXPECT_EQ(verdict("", tagged_with_zero), kIgdUntaggedTaken);
}

TEST_F(WanValidate, RefusesANewConnectionAVlanThatABridgeCarriesWhoeverOwnsIt) {
  for (const std::string& owner : {std::string(), mine_, std::string("anything")}) {
    const std::string bridge_path = add_bridge("br", owner, "100");
    EXPECT_EQ(verdict("", routed_pppoe("new", 100)), kIgdVlanTaken) << "owner " << owner;
    ASSERT_EQ(tree_.delete_object(bridge_path), 0);
  }
}

TEST_F(WanValidate, TakesTheLanBridgeForNobodys) {
  set(kBridges + "1.VLANID", "100");
  EXPECT_EQ(verdict("", routed_pppoe("new", 100)), kIgdAcceptable);
  EXPECT_EQ(verdict(mine_, routed_pppoe("changed", 100)), kIgdAcceptable);
}

TEST_F(WanValidate, LetsAConnectionKeepItsVlan) {
  (void)add_bridge("br_1_1", mine_, "100");
  EXPECT_EQ(verdict(mine_, routed_pppoe("changed", 100)), kIgdAcceptable);
}

TEST_F(WanValidate, RefusesAChangeToAVlanThatAnotherBridgeCarries) {
  (void)add_bridge("br_1_1", mine_, "100");
  for (const std::string& owner : {std::string(), other_, mine_ + "1", mine_.substr(0, 55)}) {
    const std::string bridge_path = add_bridge("br", owner, "100");
    EXPECT_EQ(verdict(mine_, routed_pppoe("changed", 100)), kIgdVlanTaken) << "owner " << owner;
    ASSERT_EQ(tree_.delete_object(bridge_path), 0);
  }
}

TEST_F(WanValidate, LooksBehindBridgesThatAreNotInTheWay) {
  set(kBridges + "1.VLANID", "100");
  (void)add_bridge("br_1_1", mine_, "100");
  (void)add_bridge("br_1_2", other_, "100");
  EXPECT_EQ(verdict(mine_, routed_pppoe("changed", 100)), kIgdVlanTaken);
}

TEST_F(WanValidate, ComparesVlansAsText) {
  for (const char* text : {"0100", " 100", "100 ", "+100", "10", "1000", ""}) {
    const std::string bridge_path = add_bridge("br_1_2", other_, text);
    EXPECT_EQ(verdict("", routed_pppoe("new", 100)), kIgdAcceptable) << '"' << text << '"';
    ASSERT_EQ(tree_.delete_object(bridge_path), 0);
  }
}

TEST_F(WanValidate, RefusesASecondManagementConnection) {
  (void)add_service("tr069");
  EXPECT_EQ(verdict("", support::dhcp_management("new", 46)), kIgdAcceptable);
  (void)add_service("VOIP,TR069,OTHER");
  EXPECT_EQ(verdict("", support::dhcp_management("new", 46)), kIgdManagementExists);
}

TEST_F(WanValidate, RefusesOnlyARequestForNothingButManagement) {
  (void)add_service("INTERNET");
  (void)add_service("TR069");
  for (const char* service : {"TR069,INTERNET", "tr069", " TR069", "INTERNET", ""}) {
    api_wan_info info = support::dhcp_management("new", 46);
    info.service_type = service;
    EXPECT_EQ(verdict("", info), kIgdAcceptable) << '"' << service << '"';
  }
}

TEST_F(WanValidate, LetsAConnectionBecomeASecondManagementConnection) {
  const std::string path = add_service("INTERNET");
  (void)add_service("TR069");
  EXPECT_EQ(verdict(path, support::dhcp_management("changed", 46)), kIgdAcceptable);
}

TEST_F(WanValidate, JudgesTheVlanBeforeManagement) {
  (void)add_service("TR069");
  (void)add_bridge("br_1_1", mine_, "46");
  EXPECT_EQ(verdict("", support::dhcp_management("new", 46)), kIgdVlanTaken);
}

TEST_F(WanValidate, AcceptsTheManagementConnectionWhateverPortsItAsks) {
  const std::string path = add_service("VOIP,TR069");
  (void)hand_over({"LAN1"}, other_);
  EXPECT_EQ(verdict(path, asking({"LAN1"}, {})), kIgdAcceptable);
  EXPECT_EQ(verdict(path, bridged("changed", 0, {"LAN1"}), 1), kIgdAcceptable);
}

TEST_F(WanValidate, RefusesTheManagementConnectionAVlanThatIsTaken) {
  const std::string path = add_service("TR069");
  (void)add_bridge("br_1_2", other_, "100");
  EXPECT_EQ(verdict(path, routed_pppoe("changed", 100)), kIgdVlanTaken);
}

TEST_F(WanValidate, AcceptsAnyNewConnectionWhenTheFirstOfTheGatewayIsManagement) {
  (void)add_service("TR069");
  (void)add_service("INTERNET");
  (void)hand_over({"LAN1"}, other_);
  EXPECT_EQ(verdict("", asking({"LAN1"}, {})), kIgdAcceptable);
  EXPECT_EQ(verdict("", bridged("new", 0, {"LAN1"}), 1), kIgdAcceptable);
}

TEST_F(WanValidate, AsksOnlyTheFirstServiceListOfTheGatewayForANewConnection) {
  (void)add_service("INTERNET");
  (void)add_service("TR069");
  (void)hand_over({"LAN1"}, other_);
  EXPECT_EQ(verdict("", asking({"LAN1"}, {})), 1);
}

TEST_F(WanValidate, AsksTheConnectionsOwnFirstServiceListForAChange) {
  (void)add_service("TR069");
  const std::string path = add_service("INTERNET");
  set(add(path + "WANPPPConnection.") + "X_CT-COM_ServiceList", "TR069");
  (void)hand_over({"LAN1"}, support::wan_path(1, 9));
  EXPECT_EQ(verdict(path, asking({"LAN1"}, {})), 1);
}

TEST_F(WanValidate, NamesThePortThatAnotherConnectionHolds) {
  const std::vector<std::pair<std::string, int>> rows = {
      {"LAN1", 1},  {"LAN2", 2},  {"LAN3", 3},  {"LAN4", 4}, {"WLAN1", 5},   {"WLAN2", 6},
      {"WLAN3", 7}, {"WLAN4", 8}, {"LAN5", -1}, {"3G0", -1}, {"WIFIW0", -1}, {"lan1", -1}};
  for (const auto& [node, expected] : rows) (void)hand_over({node}, other_);
  for (const auto& [node, expected] : rows) {
    EXPECT_EQ(verdict("", asking({node}, {})), expected) << "bind_lan " << node;
    EXPECT_EQ(verdict(mine_, asking({}, {node})), expected) << "bind_wan " << node;
  }
}

TEST_F(WanValidate, KnowsTheHolderOfALanBridgePortByItsDependency) {
  set(kBridges + "1.Port.2.X_ZYN_DependWanName", other_);
  EXPECT_EQ(verdict(mine_, asking({"LAN2"}, {})), 2);
  EXPECT_EQ(verdict(other_, asking({"LAN2"}, {})), kIgdAcceptable);
}

TEST_F(WanValidate, BelievesTheBridgesOwnerBeforeThePorts) {
  set(hand_over({"LAN1"}, other_) + "Port.1.X_ZYN_DependWanName", mine_);
  set(hand_over({"LAN2"}, mine_) + "Port.1.X_ZYN_DependWanName", other_);
  EXPECT_EQ(verdict(mine_, asking({"LAN1"}, {})), 1);
  EXPECT_EQ(verdict(mine_, asking({"LAN2"}, {})), kIgdAcceptable);
}

TEST_F(WanValidate, AcceptsPortsThatNobodyHoldsOrNobodyHas) {
  EXPECT_EQ(verdict("", asking({"LAN1", "WLAN4"}, {"LAN2", "USB7"})), kIgdAcceptable);
}

TEST_F(WanValidate, AcceptsTheConnectionsOwnPorts) {
  (void)hand_over({"LAN1"}, mine_);
  EXPECT_EQ(verdict(mine_, asking({}, {"LAN1"})), kIgdAcceptable);
}

TEST_F(WanValidate, ComparesTheHolderAsExactText) {
  (void)hand_over({"LAN1"}, mine_ + "1");
  EXPECT_EQ(verdict(mine_, asking({"LAN1"}, {})), 1);
}

TEST_F(WanValidate, JudgesAPortByItsFirstBridgeOnly) {
  (void)add_port(add_bridge("br_1_2", other_, "700"), "LAN2");  // LAN2 is free in the LAN bridge
  EXPECT_EQ(verdict("", asking({"LAN2"}, {})), kIgdAcceptable);
  set(kBridges + "1.Port.2.X_ZYN_DependWanName", other_);
  EXPECT_EQ(verdict("", asking({"LAN2"}, {})), 2);
}

TEST_F(WanValidate, SharesTheSwitchDevices) {
  (void)hand_over({"LAN0", "LAN_DEFAULT1"}, other_);
  EXPECT_EQ(verdict("", asking({"LAN0", "LAN_DEFAULT1"}, {})), kIgdAcceptable);
  EXPECT_EQ(verdict("", asking({}, {"LAN0", "LAN_DEFAULT1"})), kIgdAcceptable);
}

TEST_F(WanValidate, NamesTheFirstHeldPortLanBindingsFirst) {
  (void)hand_over({"LAN1", "LAN2", "LAN4"}, other_);
  EXPECT_EQ(verdict("", asking({"LAN3", "LAN4", "LAN2"}, {"LAN1"})), 4);
  EXPECT_EQ(verdict("", asking({"LAN3"}, {"LAN2", "LAN1"})), 2);
}

TEST_F(WanValidate, JudgesHeldPortsBeforeTheLastPort) {
  (void)hand_over({"LAN2"}, other_);
  EXPECT_EQ(verdict("", bridged("new", 0, {"LAN2"}), 2), 2);
}

TEST_F(WanValidate, KeepsAPortFreeUnlessTheConnectionIsRoutedOrHasAnAddress) {
  const std::vector<std::tuple<int, std::string, std::string, int>> rows = {
      {0, "", "", 0},
      {1, "", "", 0},
      {4, "", "", 0},
      {2, "", "", 14},
      {2, "10.0.0.2", "", 14},
      {2, "", "255.0.0.0", 14},
      {3, "", "", 12},
      {3, "10.0.0.2", "255.0.0.0", 12},
      {2, "10.0.0.2", "255.0.0.0", 0}};
  for (const auto& [connection_class, ip_addr, ip_mask, expected] : rows) {
    api_wan_info info = bridged("new", 0, {"LAN1", "LAN2"});
    info.connection_class = connection_class;
    info.ip_addr = ip_addr;
    info.ip_mask = ip_mask;
    EXPECT_EQ(verdict("", info, 3), expected)
        << connection_class << " \"" << ip_addr << "\" \"" << ip_mask << '"';
  }
}

TEST_F(WanValidate, CountsThePortsOfEveryBridgeButTheLanBridge) {
  (void)hand_over({"LAN1"}, other_);
  (void)hand_over({"LAN2"}, mine_);
  (void)hand_over({"LAN3"}, "");
  EXPECT_EQ(verdict(mine_, bridged("changed", 0, {"LAN4"}), 15), kIgdBridgeLeavesNoPort);
  EXPECT_EQ(verdict(mine_, bridged("changed", 0, {}), 7), kIgdBridgeLeavesNoPort);
  EXPECT_EQ(verdict(mine_, bridged("changed", 0, {}), kAllPorts), kIgdAcceptable);
}

TEST_F(WanValidate, CountsNoLanBindings) {
  api_wan_info info = bridged("new", 0, {});
  info.bind_lan = {"LAN1"};
  EXPECT_EQ(verdict("", info, 1), kIgdAcceptable);
}

TEST_F(WanValidate, ComparesTheTakenPortsWithTheDevicesPortsExactly) {
  EXPECT_EQ(verdict("", bridged("new", 0, {"LAN1", "LAN2"}), 1), kIgdAcceptable);
  EXPECT_EQ(verdict("", bridged("new", 0, {"LAN1", "LAN2"}), 7), kIgdAcceptable);
}

TEST_F(WanValidate, CountsNoSharedOrUnknownPorts) {
  (void)hand_over({"LAN0", "LAN_DEFAULT1", "3G0"}, other_);
  EXPECT_EQ(verdict("", bridged("new", 0, {"LAN1", "LAN0", "LAN_DEFAULT1"}), 1),
            kIgdBridgeLeavesNoPort);
}

TEST_F(WanValidate, WritesNothing) {
  (void)hand_over({"LAN1"}, other_);
  support::Transcript transcript;
  (void)verdict("", bridged("new", 0, {"LAN2"}), 3);
  EXPECT_EQ(transcript.writes(), "");
}

}  // namespace
