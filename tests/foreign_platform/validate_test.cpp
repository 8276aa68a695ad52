// The check of a description before it is created or written.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

constexpr int kLan1To4 = 15;

class Validate : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    device_ = add_device("Ethernet");
    connection_ = add_connection(device_);
    lan_bridge_ = add_lan_bridge({"LAN1", "LAN2"});
    own_bridge_ = add_wan_bridge(connection_, "br_1_1", {"LAN0"});
    tag(own_bridge_, 100);
  }

  /// The verdict on a new connection, or on a change of `wan`.
  int verdict(api_wan_info& info, const std::string& wan = "", int all_ports = kLan1To4) {
    const int result = run([&] { return igd_verify_new_wan_info_valid(wan, &info, all_ports); });
    EXPECT_EQ(writes_of(transcript()) + lines_of(transcript()), "");
    return result;
  }

  static api_wan_info tagged(int vlan_id) {
    api_wan_info info = description(1, 1);
    info.vlan_enable = 1;
    info.vlan_id = vlan_id;
    return info;
  }

  static api_wan_info bound(const Names& bind_lan, const Names& bind_wan) {
    api_wan_info info = tagged(500);
    info.bind_lan = bind_lan;
    info.bind_wan = bind_wan;
    return info;
  }

  std::string device_;
  Connection connection_;
  std::string lan_bridge_;
  std::string own_bridge_;
};

TEST_F(Validate, AcceptsAFreeVlanAndFreePorts) {
  api_wan_info info = bound({"LAN1"}, {"LAN2"});
  EXPECT_EQ(verdict(info), 0);
  EXPECT_EQ(info.vlan_id, 500);
}

TEST_F(Validate, RefusesAVlanThatABridgeCarries) {
  api_wan_info info = tagged(100);
  EXPECT_EQ(verdict(info), 9);
  EXPECT_EQ(verdict(info, device_ + "WANConnectionDevice.2."), 9);
  tree().set(own_bridge_ + "X_ZYN_WANName", "");
  EXPECT_EQ(verdict(info), 9);
}

TEST_F(Validate, AcceptsTheVlanOfTheConnectionsOwnBridge) {
  api_wan_info info = tagged(100);
  EXPECT_EQ(verdict(info, connection_.wan), 0);
}

TEST_F(Validate, RefusesASecondUntaggedConnection) {
  tree().set(own_bridge_ + "VLANID", "0");
  api_wan_info info = tagged(100);
  info.vlan_enable = 0;
  EXPECT_EQ(verdict(info), 10);
  EXPECT_EQ(info.vlan_id, 0);
  api_wan_info zero = tagged(0);
  EXPECT_EQ(verdict(zero), 10);
}

TEST_F(Validate, SetsTheVlanOfAnUntaggedRecordTo0AndLeavesItThere) {
  api_wan_info info = tagged(100);
  info.vlan_enable = 0;
  EXPECT_EQ(verdict(info), 0);
  EXPECT_EQ(info.vlan_id, 0);
  info.vlan_enable = 2;
  info.vlan_id = 100;
  EXPECT_EQ(verdict(info), 9);
  EXPECT_EQ(info.vlan_id, 100);
}

TEST_F(Validate, ComparesTheVlanAsText) {
  api_wan_info info = tagged(100);
  for (const char* vlan : {"0100", "100 ", "", "1000"}) {
    tree().set(own_bridge_ + "VLANID", vlan);
    EXPECT_EQ(verdict(info), 0) << vlan;
  }
}

TEST_F(Validate, LeavesTheLanBridgeOutOfTheVlanRule) {
  tag(lan_bridge_, 600);
  api_wan_info info = tagged(600);
  EXPECT_EQ(verdict(info), 0);
  tree().set(lan_bridge_ + "BridgeName", "Internet");
  EXPECT_EQ(verdict(info), 9);
}

TEST_F(Validate, LooksOnPastTheOwnBridgeForTheVlan) {
  tag(add_bridge("other", "someone"), 100);
  api_wan_info info = tagged(100);
  EXPECT_EQ(verdict(info, connection_.wan), 9);
}

TEST_F(Validate, RefusesASecondManagementConnection) {
  tree().set(connection_.ppp + "X_CT-COM_ServiceList", "INTERNET,TR069_X");
  api_wan_info info = tagged(500);
  info.service_type = "TR069";
  EXPECT_EQ(verdict(info), 13);
  info.service_type = "TR069,INTERNET";
  EXPECT_EQ(verdict(info), 0);
  info.service_type = "TR069";
  EXPECT_EQ(verdict(info, connection_.wan), 0);
}

TEST_F(Validate, AcceptsTheManagementConnectionWhateverPortsItAsks) {
  tree().set(connection_.ppp + "X_CT-COM_ServiceList", "TR069");
  add_port(add_bridge("other", "someone"), "LAN3");
  api_wan_info info = bound({"LAN3"}, {});
  EXPECT_EQ(verdict(info, connection_.wan), 0);
  tree().set(connection_.ppp + "X_CT-COM_ServiceList", "VOIP");
  EXPECT_EQ(verdict(info, connection_.wan), 3);
}

TEST_F(Validate, JudgesANewConnectionByTheFirstServiceListOfTheTree) {
  add_port(add_bridge("other", "someone"), "LAN3");
  const Connection second = add_connection(device_);
  api_wan_info info = bound({"LAN3"}, {});
  tree().set(second.ppp + "X_CT-COM_ServiceList", "TR069");
  EXPECT_EQ(verdict(info), 3);
  tree().set(connection_.ppp + "X_CT-COM_ServiceList", "TR069");
  EXPECT_EQ(verdict(info), 0);
}

TEST_F(Validate, NamesThePortThatAnotherConnectionHolds) {
  const std::string bridge = add_bridge("other", "someone");
  const struct {
    const char* port;
    int verdict;
  } cases[] = {{"LAN1", 1},  {"LAN2", 2},  {"LAN3", 3},  {"LAN4", 4},  {"WLAN1", 5},
               {"WLAN2", 6}, {"WLAN3", 7}, {"WLAN4", 8}, {"LAN5", -1}, {"WIFIW0", -1}};
  tree().erase(lan_bridge_);
  for (const auto& c : cases) {
    const std::string port = add_port(bridge, c.port);
    api_wan_info lan = bound({c.port}, {});
    EXPECT_EQ(verdict(lan), c.verdict) << c.port;
    api_wan_info wan = bound({}, {c.port});
    EXPECT_EQ(verdict(wan), c.verdict) << c.port;
    tree().erase(port);
    EXPECT_EQ(verdict(lan), 0) << c.port;
  }
}

TEST_F(Validate, NeverRefusesTheEthernetUplinks) {
  const std::string bridge = add_bridge("other", "someone");
  add_port(bridge, "LAN_DEFAULT1");
  api_wan_info info = bound({"LAN_DEFAULT1"}, {"LAN0"});
  EXPECT_EQ(verdict(info), 0);
}

TEST_F(Validate, AsksTheDependencyOfAPortWhoseBridgeHasNoOwner) {
  const std::string port = add_port(lan_bridge_, "LAN3", "someone");
  api_wan_info info = bound({"LAN3"}, {});
  EXPECT_EQ(verdict(info), 3);
  EXPECT_EQ(verdict(info, "someone"), 0);
  tree().set(port + "X_ZYN_DependWanName", "");
  EXPECT_EQ(verdict(info), 0);
  const std::string owned = add_port(add_bridge("other", connection_.wan), "LAN4", "someone");
  info = bound({"LAN4"}, {});
  EXPECT_EQ(verdict(info, connection_.wan), 0);
  EXPECT_EQ(verdict(info, "someone"), 4);
}

TEST_F(Validate, JudgesAPortByItsFirstInstance) {
  add_port(lan_bridge_, "LAN3");
  add_port(add_bridge("other", "someone"), "LAN3");
  api_wan_info info = bound({"LAN3"}, {});
  EXPECT_EQ(verdict(info), 0);
}

TEST_F(Validate, JudgesLanSidePortsBeforeWanSidePorts) {
  const std::string bridge = add_bridge("other", "someone");
  for (const char* port : {"WLAN1", "WLAN2", "WLAN3"}) add_port(bridge, port);
  api_wan_info info = bound({"LAN1", "WLAN3"}, {"WLAN1"});
  EXPECT_EQ(verdict(info), 7);
}

TEST_F(Validate, LeavesOnePortFreeToBridgedConnections) {
  add_port(own_bridge_, "LAN3");
  struct {
    int connection_class;
    const char* address;
    const char* mask;
    Names bind_wan;
    int verdict;
  } const cases[] = {
      {1, "", "", {"LAN1", "LAN2", "LAN4"}, 0},
      {0, "", "", {"LAN1", "LAN2", "LAN4"}, 0},
      {2, "", "", {"LAN1", "LAN2"}, 0},
      {2, "", "", {"LAN1", "LAN2", "LAN4"}, 14},
      {2, "10.0.0.2", "", {"LAN1", "LAN2", "LAN4"}, 14},
      {2, "", "255.0.0.0", {"LAN1", "LAN2", "LAN4"}, 14},
      {2, "10.0.0.2", "255.0.0.0", {"LAN1", "LAN2", "LAN4"}, 0},
      {3, "10.0.0.2", "255.0.0.0", {"LAN1", "LAN2", "LAN4"}, 12},
      {3, "", "", {"LAN1", "LAN4"}, 0},
      {3, "", "", {"LAN1", "LAN2", "LAN4", "WLAN1"}, 0},
      {3, "", "", {"LAN4", "LAN1", "LAN1", "LAN2", "LAN9"}, 12},
  };
  for (const auto& c : cases) {
    api_wan_info info = bound({}, c.bind_wan);
    info.connection_class = c.connection_class;
    info.ip_addr = c.address;
    info.ip_mask = c.mask;
    EXPECT_EQ(verdict(info, connection_.wan), c.verdict)
        << c.connection_class << c.address << c.mask << c.bind_wan.size();
  }
}

TEST_F(Validate, CountsPortsOfEveryBridgeButTheLanBridge) {
  add_port(add_bridge("one", "someone"), "LAN3");
  add_port(add_bridge("two", ""), "LAN4");
  add_port(lan_bridge_, "WLAN1");
  api_wan_info info = bound({"LAN1", "LAN2"}, {});
  info.connection_class = 3;
  EXPECT_EQ(verdict(info, "", 12), 12);
  EXPECT_EQ(verdict(info, "", kLan1To4), 0);
  EXPECT_EQ(verdict(info, "", 28), 0);
}

TEST_F(Validate, ReadsInAFixedOrder) {
  const std::string other = add_bridge("other", "someone");
  add_port(other, "LAN3");
  tree().set(connection_.ppp + "X_CT-COM_ServiceList", "VOIP");
  api_wan_info info = tagged(0);
  info.service_type = "TR069";
  info.connection_class = 2;
  info.bind_lan = {"LAN1"};
  tree().set(other + "VLANID", "9");
  EXPECT_EQ(verdict(info), 0);
  const std::string service = connection_.ppp + "X_CT-COM_ServiceList";
  const std::string lan = lan_bridge_, own = own_bridge_;
  EXPECT_EQ(transcript(), lines({"open 199",
                                 "close",
                                 "get " + lan + "VLANID",
                                 "get " + lan + "BridgeName",
                                 "get " + own + "VLANID",
                                 "get " + other + "VLANID",
                                 "open 1887",
                                 "close",
                                 "get " + service,
                                 "open 1887",
                                 "close",
                                 "get " + service,
                                 "open 205",
                                 "close",
                                 "get " + lan + "Port.1.PortInterface",
                                 "get " + lan + "X_ZYN_WANName",
                                 "get " + lan + "Port.1.X_ZYN_DependWanName",
                                 "open 205",
                                 "close",
                                 "get " + lan + "Port.1.PortInterface",
                                 "get " + lan + "BridgeName",
                                 "get " + lan + "Port.2.PortInterface",
                                 "get " + lan + "BridgeName",
                                 "get " + own + "Port.1.PortInterface",
                                 "get " + own + "BridgeName",
                                 "get " + other + "Port.1.PortInterface",
                                 "get " + other + "BridgeName"}));
}

}  // namespace
}  // namespace foreign
