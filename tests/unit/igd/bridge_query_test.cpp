// Which bridge serves a connection, the LAN, an interface.
#include <utility>

#include "connection_test.h"

namespace {

using support::kBridges;
using support::wan_path;

using Texts = std::vector<std::string>;

class BridgeInfo : public support::ConnectionTest {};

TEST_F(BridgeInfo, NamesTheLanBridgeForALanPathWithoutAskingTheTree) {
  support::Transcript transcript;
  EXPECT_EQ(igd_get_bridge_info("InternetGatewayDevice.LANDevice.1."), "internet");
  EXPECT_EQ(igd_get_bridge_info("anything with LANDevice in it"), "internet");
  EXPECT_EQ(transcript.text(), "");
}

TEST_F(BridgeInfo, NamesTheFirstBridgeOwnedByAConnectionWhateverItsName) {
  (void)add_bridge("second", wan_);
  EXPECT_EQ(igd_get_bridge_info(wan_), "br_1_1");
  (void)add_bridge("any name", wan_path(3, 3));
  EXPECT_EQ(igd_get_bridge_info(wan_path(3, 3)), "any name");
}

TEST_F(BridgeInfo, ComparesTheOwnerExactly) {
  for (const std::string& path :
       {wan_path(1, 2), wan_ + "1", wan_.substr(0, 55), static_, std::string("landevice")}) {
    EXPECT_EQ(igd_get_bridge_info(path), "") << path;
  }
  EXPECT_EQ(igd_get_bridge_info(""), "internet") << "the LAN bridge has the empty owner";
}

class LanBridge : public support::ConnectionTest {};

TEST_F(LanBridge, IsTheFirstNamedInternetWhateverTheConnection) {
  (void)add_bridge("internet", "");
  for (const std::string& path : {wan_, wan_path(9, 9), std::string()}) {
    std::string bridge_path = "old";
    std::string name = "old";
    EXPECT_EQ(igd_wan_get_lan_bridge_info(path, &bridge_path, &name), 0) << path;
    EXPECT_EQ(bridge_path, lan_bridge_) << path;
    EXPECT_EQ(name, "internet") << path;
  }
}

TEST_F(LanBridge, HasItsNameEvenWhenThereIsNone) {
  set(lan_bridge_ + "BridgeName", "Internet");
  std::string bridge_path = "old";
  std::string name = "old";
  EXPECT_EQ(igd_wan_get_lan_bridge_info(wan_, &bridge_path, &name), 0);
  EXPECT_EQ(bridge_path, "");
  EXPECT_EQ(name, "internet");
}

TEST_F(LanBridge, FillsOnlyWhatIsWanted) {
  std::string output;
  EXPECT_EQ(igd_wan_get_lan_bridge_info(wan_, nullptr, nullptr), 0);
  EXPECT_EQ(igd_wan_get_lan_bridge_info(wan_, &output, nullptr), 0);
  EXPECT_EQ(output, lan_bridge_);
  EXPECT_EQ(igd_wan_get_lan_bridge_info(wan_, nullptr, &output), 0);
  EXPECT_EQ(output, "internet");
}

class WanInterfaces : public support::ConnectionTest {
 protected:
  Texts ports_ = {"stale"};
  unsigned int vlan_id_ = 5;
};

TEST_F(WanInterfaces, AreThePortsOfTheConnectionsBridge) {
  (void)add_port(bridge_, "LAN3");
  (void)add_port(bridge_, "LAN1");
  set(bridge_ + "VLANID", "100");
  EXPECT_EQ(igd_wan_intf(wan_, ports_, vlan_id_), "br_1_1");
  EXPECT_EQ(ports_, (Texts{"LAN0", "LAN3", "LAN1"}));
  EXPECT_EQ(vlan_id_, 100U);
}

TEST_F(WanInterfaces, AreNoneInABridgeWithoutPorts) {
  (void)add_bridge("br_1_2", wan_path(1, 2));
  EXPECT_EQ(igd_wan_intf(wan_path(1, 2), ports_, vlan_id_), "br_1_2");
  EXPECT_TRUE(ports_.empty());
}

TEST_F(WanInterfaces, AreThePortsOfEveryBridgeWithoutABridge) {
  support::Transcript transcript;
  EXPECT_EQ(igd_wan_intf(wan_path(1, 2), ports_, vlan_id_), "");
  EXPECT_EQ(ports_,
            (Texts{"LAN1", "LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4", "LAN0"}));
  EXPECT_EQ(vlan_id_, 0U);
  EXPECT_NE(transcript.text().find("\nget VLANID -> \"\"\nget BridgeName -> \"\"\n"),
            std::string::npos);
}

TEST_F(WanInterfaces, HaveTheVlanThatALeadingNumberGives) {
  const std::vector<std::pair<std::string, unsigned int>> rows = {
      {"4094", 4094}, {"100abc", 100}, {" 7", 7},          {"007", 7},
      {"abc", 0},     {"", 0},         {"-1", 4294967295U}};
  for (const auto& [text, vlan] : rows) {
    set(bridge_ + "VLANID", text);
    (void)igd_wan_intf(wan_, ports_, vlan_id_);
    EXPECT_EQ(vlan_id_, vlan) << '"' << text << '"';
  }
}

class BridgeOfInterface : public support::ConnectionTest {
 protected:
  /// "path name" of the bridge that carries an interface; "- -" when none does.
  static std::string carrier(const std::string& phy) {
    std::string bridge_path = "-";
    std::string name = "-";
    EXPECT_EQ(igd_wan_get_bridge_info_from_phy(phy, &bridge_path, &name), 0) << phy;
    return bridge_path + ' ' + name;
  }
};

TEST_F(BridgeOfInterface, IsFoundByPhysicalName) {
  EXPECT_EQ(carrier("eth1"), lan_bridge_ + " internet");
  EXPECT_EQ(carrier("ath4"), lan_bridge_ + " internet");
  EXPECT_EQ(carrier("eth0"), bridge_ + " br_1_1");
  for (const char* phy : {"eth0.0", "LAN1", "eth", "usb0", ""}) EXPECT_EQ(carrier(phy), "- -");
  (void)add_port(bridge_, "LAN9");  // an unknown node has the empty name
  EXPECT_EQ(carrier(""), bridge_ + " br_1_1");
}

TEST_F(BridgeOfInterface, CarriesTheBridgesVlanAsSuffix) {
  set(bridge_ + "BridgeStandard", "802.1Q");
  set(bridge_ + "Port.1.PVID", "200");
  (void)add_port(bridge_, "LAN5", "", "200");
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"100", "eth0.100"}, {"4094", "eth0.4094"}, {"4095", "eth0"}, {"0", "eth0.0"},
      {"abc", "eth0.0"},   {"12x", "eth0.12"},    {"-1", "eth0"}};
  for (const auto& [vlan, phy] : rows) {
    set(bridge_ + "VLANID", vlan);
    EXPECT_EQ(carrier(phy), bridge_ + " br_1_1") << vlan;
    EXPECT_EQ(carrier("eth0.200"), "- -") << vlan;
    EXPECT_EQ(carrier("usb0"), bridge_ + " br_1_1") << vlan;
  }
}

TEST_F(BridgeOfInterface, IsTheOneOfTheLastPortThatMatches) {
  (void)add_port(bridge_, "LAN_DEFAULT1");
  EXPECT_EQ(carrier("eth1"), bridge_ + " br_1_1");
  (void)add_port(add_bridge("br_9_9", wan_path(9, 9)), "STA1");
  (void)add_port(bridge_, "REP0");
  EXPECT_EQ(carrier("ath5"), kBridges + "3. br_9_9");
}

TEST_F(BridgeOfInterface, FillsOnlyWhatIsWanted) {
  std::string output;
  EXPECT_EQ(igd_wan_get_bridge_info_from_phy("eth0", nullptr, nullptr), 0);
  EXPECT_EQ(igd_wan_get_bridge_info_from_phy("eth0", &output, nullptr), 0);
  EXPECT_EQ(output, bridge_);
  EXPECT_EQ(igd_wan_get_bridge_info_from_phy("eth0", nullptr, &output), 0);
  EXPECT_EQ(output, "br_1_1");
}

}  // namespace
