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

class Membership : public support::GatewayTest {
 protected:
  /// Those of many names under which a port, alone in a bridge, belongs to it: "eth0 eth1 ".
  std::string names_of(const std::string& standard, const std::string& node,
                       const std::string& pvid) {
    const std::string bridge_path = add_bridge("br_1_1", wan_path(1, 1), "7", standard);
    (void)add_port(bridge_path, node, "", pvid);
    std::string found;
    for (const std::string ifname :
         {"", "LAN1", "ETH1", "eth0", "eth0.100", "eth1", "eth1.0", "eth1.7", "eth1.-1", "eth1.100",
          "eth1.4094", "eth1.4095", "ath3", "ath3.100", "ath4", "ath4.100", "usb0", "3g"}) {
      if (igd_c_check_belong_bridge("br_1_1", ifname.c_str()) == 1) found += ifname + ' ';
    }
    EXPECT_EQ(tree_.delete_object(bridge_path), 0);
    return found;
  }
};

TEST_F(Membership, InATaggedBridgeFollowsThePvid) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"100", "eth1.100 "}, {"4094", "eth1.4094 "}, {"4095", "eth1 "},       {"0", "eth1.0 "},
      {"", "eth1.0 "},      {"abc", "eth1.0 "},     {"100abc", "eth1.100 "}, {"-1", "eth1 "}};
  for (const auto& [pvid, names] : rows) EXPECT_EQ(names_of("802.1Q", "LAN1", pvid), names) << pvid;
}

TEST_F(Membership, InATaggedBridgeFollowsTheNode) {
  const std::vector<std::pair<std::string, std::string>> rows = {{"LAN0", "eth0.100 "},
                                                                 {"LAN_DEFAULT1", "eth1 "},
                                                                 {"WLAN4", "ath4 "},
                                                                 {"LAN5", "usb0 "},
                                                                 {"3G0", "3g "},
                                                                 {"LAN9", " "},
                                                                 {"", " "}};
  for (const auto& [node, names] : rows) EXPECT_EQ(names_of("802.1Q", node, "100"), names) << node;
}

TEST_F(Membership, InAnyOtherBridgeFollowsTheNode) {
  for (const char* standard : {"802.1D", "802.1q", "802.1Q ", ""}) {
    EXPECT_EQ(names_of(standard, "LAN1", "100"), "eth1 ") << standard;
    EXPECT_EQ(names_of(standard, "WIFIW0", "100"), "ath3 ") << standard;
    EXPECT_EQ(names_of(standard, "LAN9", "100"), " ") << standard;
  }
}

TEST_F(Membership, AsksEveryPortOfTheFirstBridgeOfTheName) {
  const std::string bridge_path = add_bridge("br", "", "0", "802.1Q");
  (void)add_port(bridge_path, "WLAN1", "", "1");
  (void)add_port(bridge_path, "LAN2", "", "200");
  (void)add_port(add_bridge("br", ""), "WLAN2");
  EXPECT_EQ(igd_c_check_belong_bridge("br", "eth1.200"), 1);
  EXPECT_EQ(igd_c_check_belong_bridge("br", "ath1"), 0);
}

TEST_F(Membership, IsRefusedForWhatIsMissing) {
  (void)add_bridge("empty", "");
  EXPECT_EQ(igd_c_check_belong_bridge("internet", nullptr), 0);
  EXPECT_EQ(igd_c_check_belong_bridge("unknown", "eth1"), 0);
  EXPECT_EQ(igd_c_check_belong_bridge("empty", "eth1"), 0);
  EXPECT_EQ(igd_c_check_belong_bridge("internet", "eth1"), 1);
}

TEST_F(Membership, IsLogged) {
  support::Transcript transcript;
  ASSERT_EQ(igd_c_check_belong_bridge("internet", "ath1"), 1);
  EXPECT_NE(transcript.text().find("log igd_api:# Matched Ifname ath1 in bridge=internet\n"),
            std::string::npos);
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
