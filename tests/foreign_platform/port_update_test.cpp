// How writing a record moves ports between the bridges and changes VLANs.
#include "write_bench.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class PortUpdate : public SetParams {
 protected:
  void SetUp() override {
    SetParams::SetUp();
    tree().set(connection_.fixed + "ConnectionType", "IP_Routed");
  }

  /// Writes the two lists with the class and VLAN that the connection has.
  void bind(const Names& bind_lan, const Names& bind_wan) {
    api_wan_info info = description(1, 1);
    info.bind_lan = bind_lan;
    info.bind_wan = bind_wan;
    set_params(connection_.wan, info);
  }

  /// The interfaces of a bridge, a bound one as "LAN2>1" when it depends on the connection.
  Names ports_of(const std::string& bridge) {
    Names found;
    for (const std::string& name : tree().names_of(205)) {
      if (parent_of(parent_of(parent_of(name))) != bridge) continue;
      const std::string owner = tree().get(parent_of(name) + "X_ZYN_DependWanName");
      const std::string mark = owner.empty() ? "" : owner == connection_.wan ? ">1" : ">other";
      found.push_back(tree().get(name) + mark);
    }
    return found;
  }
};

TEST_F(PortUpdate, MovesAFreePortToTheConnectionsOwnBridge) {
  bind({}, {"LAN1"});
  EXPECT_EQ(ports_of(lan_bridge_), Names{"LAN2"});
  EXPECT_EQ(ports_of(wan_bridge_), (Names{"LAN0", "LAN1"}));
}

TEST_F(PortUpdate, BindsAFreePortWithinTheLanBridge) {
  bind({"LAN2"}, {});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN1", "LAN2>1"}));
  EXPECT_EQ(tree().get(lan_bridge_ + "Port.3.PVID"), "4060");
  EXPECT_EQ(ports_of(wan_bridge_), Names{"LAN0"});
}

TEST_F(PortUpdate, MovesAPortFromOneBindingToTheOther) {
  bind({"LAN2"}, {});
  bind({}, {"LAN2"});
  EXPECT_EQ(ports_of(lan_bridge_), Names{"LAN1"});
  EXPECT_EQ(ports_of(wan_bridge_), (Names{"LAN0", "LAN2"}));
  bind({"LAN2"}, {});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN1", "LAN2>1"}));
  EXPECT_EQ(ports_of(wan_bridge_), Names{"LAN0"});
}

TEST_F(PortUpdate, ReturnsADroppedPortToTheLanBridge) {
  bind({"LAN1"}, {"LAN2"});
  bind({}, {});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN2", "LAN1"}));
  EXPECT_EQ(ports_of(wan_bridge_), Names{"LAN0"});
  EXPECT_EQ(tree().get(lan_bridge_ + "Port.4.PVID"), "");
}

TEST_F(PortUpdate, CreatesAPortInBothBridgesWhenBothBindingsNameIt) {
  bind({"LAN1"}, {"LAN1"});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN2", "LAN1>1"}));
  EXPECT_EQ(ports_of(wan_bridge_), (Names{"LAN0", "LAN1"}));
}

TEST_F(PortUpdate, CreatesAPortThatNoBridgeHeld) {
  bind({"WLAN1"}, {"WLAN2"});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN1", "LAN2", "WLAN1>1"}));
  EXPECT_EQ(ports_of(wan_bridge_), (Names{"LAN0", "WLAN2"}));
}

TEST_F(PortUpdate, CreatesAPortAsOftenAsItIsNamed) {
  bind({}, {"LAN1", "LAN1"});
  EXPECT_EQ(ports_of(wan_bridge_), (Names{"LAN0", "LAN1", "LAN1"}));
}

TEST_F(PortUpdate, LeavesUnchangedBindingsAlone) {
  bind({"LAN1"}, {"LAN2"});
  bind({"LAN1"}, {"LAN2"});
  EXPECT_EQ(transcript().find("\nadd "), std::string::npos);
  EXPECT_EQ(transcript().find("\ndelete "), std::string::npos);
}

TEST_F(PortUpdate, DeletesAPortOfAnotherConnectionOnTheSameInterface) {
  add_port(lan_bridge_, "LAN1", "InternetGatewayDevice.WANDevice.9.WANConnectionDevice.1.");
  add_port(lan_bridge_, "LAN2", "InternetGatewayDevice.WANDevice.9.WANConnectionDevice.1.");
  bind({}, {"LAN1"});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN2", "LAN2>other"}));
}

TEST_F(PortUpdate, DeletesTwiceWhatStandsTwiceInTheOldGroup) {
  add_port(lan_bridge_, "LAN1");
  bind({}, {"LAN1"});
  EXPECT_EQ(ports_of(lan_bridge_), Names{"LAN2"});
  const std::string port = lan_bridge_ + "Port.1.";
  EXPECT_NE(writes_of(transcript())
                .find(lines({"set " + port + "PortEnable = false", "delete " + port,
                             "set " + port + "PortEnable = false", "delete " + port})),
            std::string::npos);
}

TEST_F(PortUpdate, TreatsEveryPortAsItsOwnWithoutBridges) {
  tree().erase(wan_bridge_);
  tree().erase(lan_bridge_);
  const std::string other = add_bridge("other", "");
  add_port(other, "LAN3");
  api_wan_info info = description(2, 1);
  info.bind_wan = {"LAN4"};
  set_params(connection_.wan, info);
  EXPECT_EQ(ports_of(other), Names{});
  EXPECT_EQ(tree().get("Port.0.PortInterface"), "LAN4");
  EXPECT_EQ(tree().get("Port.0.PVID"), "0");
}

TEST_F(PortUpdate, RewritesTheVlanEvenWhenNothingChanged) {
  tag(wan_bridge_, 100);
  tree().set(connection_.wan + "WANEthernetLinkConfig.X_CT-COM_Mode", "2");
  api_wan_info info = description(1, 1);
  info.vlan_enable = 1;
  info.vlan_id = 100;
  info.vlan_priority = 3;
  set_params(connection_.wan, info);
  const std::string writes = writes_of(transcript());
  EXPECT_EQ(writes.find("PortEnable = false"), std::string::npos);
  EXPECT_EQ(writes.find("PVID"), std::string::npos);
  const std::string link = connection_.wan + "WANEthernetLinkConfig.";
  EXPECT_NE(writes.find(lines({"set " + wan_bridge_ + "BridgeStandard = 802.1Q",
                               "set " + wan_bridge_ + "VLANID = 100",
                               "set " + link + "X_CT-COM_VLANIDMark = 100",
                               "set " + wan_bridge_ + "X_ZYN_VLANPriority = 3",
                               "set " + wan_bridge_ + "Port.1.PortEnable = true"})),
            std::string::npos);
}

TEST_F(PortUpdate, PutsEveryPortOfTheBridgeOnTheNewVlanWhileItIsDisabled) {
  add_port(wan_bridge_, "LAN3");
  api_wan_info info = description(1, 1);
  info.bind_wan = {"LAN3"};
  info.vlan_enable = 1;
  info.vlan_id = 200;
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  const std::string port = wan_bridge_ + "Port.";
  const std::string bridge = wan_bridge_;
  const std::string link = connection_.wan + "WANEthernetLinkConfig.";
  const std::size_t begin = transcript().find("get " + bridge + "BridgeStandard\n");
  ASSERT_NE(begin, std::string::npos);
  const std::string expected = lines({
      "get " + bridge + "BridgeStandard",
      "get " + bridge + "VLANID",
      "| vornik _wan_port_update info->vlan_id = 200,old_vlan_id = 0",
      "open 203",
      "close",
      "set " + port + "1.PortEnable = false",
      "set " + port + "1.PVID = 200",
      "| vornik PVID " + port + "1. = 200",
      "set " + port + "2.PortEnable = false",
      "set " + port + "2.PVID = 200",
      "| vornik PVID " + port + "2. = 200",
      "| vornik info->vlan_enable = 1",
      "set " + bridge + "BridgeStandard = 802.1Q",
      "| vornik " + bridge + "VLANID = 200",
      "set " + bridge + "VLANID = 200",
      "set " + link + "X_CT-COM_VLANIDMark = 200",
      "get " + link + "X_CT-COM_Mode",
      "set " + link + "X_CT-COM_Mode = 1",
      "| vornik " + bridge + "X_ZYN_VLANPriority = 0",
      "set " + bridge + "X_ZYN_VLANPriority = 0",
  });
  EXPECT_EQ(transcript().substr(begin, expected.size()), expected);
  EXPECT_EQ(tree().get(port + "1.PortEnable"), "true");
  EXPECT_EQ(tree().get(port + "2.PortEnable"), "true");
}

TEST_F(PortUpdate, DisablesThePortsOnAChangeOfClassTaggingOrVlan) {
  const struct {
    int connection_class;
    int vlan_enable;
    int vlan_id;
    bool disables;
  } cases[] = {{1, 1, 100, false}, {2, 1, 100, true}, {3, 1, 100, true},
               {1, 0, 100, true},  {1, 2, 100, true}, {1, 1, 101, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.connection_class << c.vlan_enable << c.vlan_id);
    tree().set(connection_.fixed + "ConnectionType", "IP_Routed");
    tag(wan_bridge_, 100);
    api_wan_info info = description(c.connection_class, 1);
    info.vlan_enable = c.vlan_enable;
    info.vlan_id = c.vlan_id;
    set_params(connection_.wan, info);
    const bool disabled = transcript().find("PortEnable = false") != std::string::npos;
    EXPECT_EQ(disabled, c.disables);
  }
}

TEST_F(PortUpdate, ReadsTheOldVlanAsALeadingNumber) {
  tag(wan_bridge_, 0);
  tree().set(wan_bridge_ + "VLANID", " 100 and more");
  api_wan_info info = description(1, 1);
  info.vlan_enable = 1;
  info.vlan_id = 100;
  set_params(connection_.wan, info);
  EXPECT_EQ(transcript().find("PortEnable = false"), std::string::npos);
}

TEST_F(PortUpdate, ClearsModeAndVlanWhenTaggingEnds) {
  tag(wan_bridge_, 100);
  const std::string link = connection_.wan + "WANEthernetLinkConfig.";
  tree().set(link + "X_CT-COM_Mode", "2");
  tree().set(wan_bridge_ + "X_ZYN_VLANPriority", "5");
  api_wan_info info = description(1, 1);
  info.vlan_id = 100;
  set_params(connection_.wan, info);
  EXPECT_EQ(tree().get(wan_bridge_ + "VLANID"), "0");
  EXPECT_EQ(tree().get(link + "X_CT-COM_VLANIDMark"), "0");
  EXPECT_EQ(tree().get(link + "X_CT-COM_Mode"), "0");
  EXPECT_EQ(tree().get(wan_bridge_ + "X_ZYN_VLANPriority"), "5");
  EXPECT_EQ(tree().get(wan_bridge_ + "Port.1.PVID"), "100");
}

TEST_F(PortUpdate, RaisesTheLinkModeFrom0Only) {
  const std::string mode = connection_.wan + "WANEthernetLinkConfig.X_CT-COM_Mode";
  const struct {
    const char* before;
    const char* after;
  } cases[] = {{"0", "1"}, {"1", "1"}, {"2", "2"}, {"", ""}, {"00", "00"}};
  for (const auto& c : cases) {
    tree().set(mode, c.before);
    api_wan_info info = description(1, 1);
    info.vlan_enable = 1;
    info.vlan_id = 5;
    set_params(connection_.wan, info);
    EXPECT_EQ(tree().get(mode), c.after) << '"' << c.before << '"';
  }
}

}  // namespace
}  // namespace foreign
