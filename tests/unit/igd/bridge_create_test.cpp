// Making bridges and their ports.
#include <map>
#include <utility>

#include "bridges.h"
#include "connection_test.h"

namespace {

using support::kBridges;
using support::kWanDevices;
using support::wan_path;

using Texts = std::vector<std::string>;

constexpr int kWan = 2;  // whose bridge: the connection's own
constexpr int kLan = 3;

Texts writes_to(const std::string& object_path, const Texts& names) {
  const std::string call = "setValue " + object_path;
  Texts calls;
  for (const std::string& name : names) calls.push_back(call + name);
  return calls;
}

class CreateBridge : public support::GatewayTest {
 protected:
  CreateBridge() {
    set_access_type(1, "Ethernet");
    info_.vlan_priority = 5;
  }

  void set_access_type(int device, const std::string& access_type) {
    const std::string device_path = kWanDevices + std::to_string(device) + '.';
    set(device_path + "WANCommonInterfaceConfig.WANAccessType", access_type);
  }

  const std::string wan_ = add_connection_device(1, {"Static", "DHCP", "PPP"});
  const std::string link_ = wan_ + "WANEthernetLinkConfig.";
  const std::string new_ = kBridges + "2.";
  api_wan_info info_;
};

TEST_F(CreateBridge, MakesATaggedBridgeForAConnection) {
  EXPECT_EQ(_create_bridge(wan_, kWan, 1, 100, &info_), new_);
  EXPECT_EQ(get(new_ + "BridgeName"), "br_1_1");
  EXPECT_EQ(get(new_ + "BridgeStandard"), "802.1Q");
  EXPECT_EQ(get(new_ + "VLANID"), "100");
  EXPECT_EQ(get(new_ + "X_ZYN_VLANPriority"), "5");
  EXPECT_EQ(get(new_ + "X_ZYN_WANName"), wan_);
  EXPECT_EQ(get(new_ + "BridgeEnable"), "true");
  EXPECT_EQ(get(link_ + "X_CT-COM_VLANIDMark"), "100");
  EXPECT_EQ(get(link_ + "X_CT-COM_Mode"), "1");
}

TEST_F(CreateBridge, MakesAnUntaggedBridgeWhateverTheVlan) {
  set(link_ + "X_CT-COM_VLANIDMark", "55");
  set(link_ + "X_CT-COM_Mode", "1");
  EXPECT_EQ(_create_bridge(wan_, kWan, 0, 100, &info_), new_);
  EXPECT_EQ(get(new_ + "BridgeStandard"), "802.1D");
  EXPECT_EQ(get(new_ + "VLANID"), "0");
  EXPECT_EQ(get(new_ + "X_ZYN_VLANPriority"), "");
  EXPECT_EQ(get(link_ + "X_CT-COM_VLANIDMark"), "0");
  EXPECT_EQ(get(link_ + "X_CT-COM_Mode"), "0");
}

TEST_F(CreateBridge, TurnsTheLinksModeOnOnlyFromZero) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"0", "1"}, {"1", "1"}, {"2", "2"}, {"", ""}, {"00", "00"}, {"0 ", "0 "}};
  for (const auto& [before, after] : rows) {
    set(link_ + "X_CT-COM_Mode", before);
    ASSERT_EQ(tree_.delete_object(_create_bridge(wan_, kWan, 1, 100, nullptr)), 0);
    EXPECT_EQ(get(link_ + "X_CT-COM_Mode"), after) << '"' << before << '"';
  }
}

TEST_F(CreateBridge, TakesAnyFlagAndNumberAndNoPriorityWithoutARecord) {
  EXPECT_EQ(_create_bridge(wan_, kWan, -1, -7, nullptr), new_);
  EXPECT_EQ(get(new_ + "BridgeStandard"), "802.1Q");
  EXPECT_EQ(get(new_ + "VLANID"), "-7");
  EXPECT_EQ(get(new_ + "X_ZYN_VLANPriority"), "");
}

TEST_F(CreateBridge, ReturnsAnExistingBridgeAsItIs) {
  const std::string existing = add_bridge("br_1_1", wan_, "100", "802.1Q");
  support::Transcript transcript;
  EXPECT_EQ(_create_bridge(wan_, kWan, 1, 200, &info_), existing);
  EXPECT_EQ(transcript.writes(), "");
}

TEST_F(CreateBridge, MakesAnotherBridgeBesideOneOfTheWrongNameOrOwner) {
  (void)add_bridge("br_1_2", wan_);
  (void)add_bridge("br_1_1", wan_path(1, 2));
  EXPECT_EQ(_create_bridge(wan_, kWan, 0, 0, nullptr), kBridges + "4.");
}

TEST_F(CreateBridge, ReturnsTheLanBridgeAsItIs) {
  support::Transcript transcript;
  EXPECT_EQ(_create_bridge(wan_, kLan, 1, 4060, nullptr), kBridges + "1.");
  EXPECT_EQ(transcript.writes(), "");
}

TEST_F(CreateBridge, MakesALanBridgeThatBelongsToNobody) {
  ASSERT_EQ(tree_.delete_object(kBridges + "1."), 0);
  EXPECT_EQ(_create_bridge(wan_, kLan, 1, 4060, &info_), new_);
  EXPECT_EQ(get(new_ + "BridgeName"), "internet");
  EXPECT_EQ(get(new_ + "VLANID"), "4060");
  EXPECT_EQ(get(new_ + "X_ZYN_VLANPriority"), "5");
  EXPECT_EQ(get(new_ + "X_ZYN_WANName"), "");
  EXPECT_EQ(get(new_ + "BridgeEnable"), "true");
  EXPECT_EQ(get(link_ + "X_CT-COM_VLANIDMark"), "4060");
  EXPECT_TRUE(ports_of(new_).empty());
}

TEST_F(CreateBridge, MakesANamelessBridgeForAnyOtherKindEachTime) {
  for (const int kind : {0, 1, 4}) {
    const std::string bridge_path = _create_bridge(wan_, kind, 1, 100, nullptr);
    EXPECT_EQ(get(bridge_path + "BridgeName"), "") << kind;
    EXPECT_EQ(get(bridge_path + "X_ZYN_WANName"), "") << kind;
    EXPECT_EQ(get(bridge_path + "VLANID"), "100") << kind;
    EXPECT_TRUE(ports_of(bridge_path).empty()) << kind;
  }
  EXPECT_EQ(tree_.instances(kBridgeName).size(), 4U);
}

TEST_F(CreateBridge, AttachesTheUplinkOfTheAccessType) {
  const std::vector<std::pair<std::string, Texts>> rows = {
      {"Ethernet", {"LAN0"}}, {"3G", {"3G0"}}, {"Repeator", {"WIFIW0"}}, {"Repeater", {}},
      {"ethernet", {}},       {"", {}},        {"Ethernet ", {}},        {"DSL", {}}};
  for (const auto& [access_type, ports] : rows) {
    set_access_type(1, access_type);
    const std::string bridge_path = _create_bridge(wan_, kWan, 1, 100, nullptr);
    EXPECT_EQ(ports_of(bridge_path), ports) << access_type;
    ASSERT_EQ(tree_.delete_object(bridge_path), 0);
  }
}

TEST_F(CreateBridge, GivesTheUplinkTheBridgesVlanAndNoOption60) {
  info_.port_option60["LAN0"] = "unused";
  for (const bool tagged : {true, false}) {
    const std::string bridge_path = _create_bridge(wan_, kWan, tagged ? 1 : 0, 100, &info_);
    EXPECT_EQ(get(bridge_path + "Port.1.PVID"), tagged ? "100" : "0");
    EXPECT_EQ(get(bridge_path + "Port.1.PortOption60"), "");
    EXPECT_EQ(get(bridge_path + "Port.1.PortEnable"), "true");
    ASSERT_EQ(tree_.delete_object(bridge_path), 0);
  }
}

TEST_F(CreateBridge, FindsTheConnectionsWanDeviceAnywhereInAName) {
  const std::string second = add_connection_device(2, {});
  set_access_type(2, "3G");
  EXPECT_EQ(ports_of(_create_bridge(second, kWan, 0, 0, nullptr)), Texts{"3G0"});
  const std::string bare = "WANDevice.2.WANConnectionDevice.1.";
  EXPECT_EQ(ports_of(_create_bridge(bare, kWan, 0, 0, nullptr)), Texts{"3G0"});
  EXPECT_EQ(take_refusals(),
            writes_to(bare + "WANEthernetLinkConfig.", {"X_CT-COM_VLANIDMark", "X_CT-COM_Mode"}));
}

TEST_F(CreateBridge, TriesNoWanDeviceBehindTheFirstThatFits) {
  (void)add_connection_device(2, {});
  set_access_type(1, "DSL");
  set_access_type(2, "3G");
  const std::string fits_all = "WANDevice.WANConnectionDevice.1.";  // names no device number
  EXPECT_TRUE(ports_of(_create_bridge(fits_all, kWan, 0, 0, nullptr)).empty());
  (void)take_refusals();
}

TEST_F(CreateBridge, AttachesNoUplinkWithoutWanDevices) {
  tree_ = host::Tree::factory();
  EXPECT_TRUE(ports_of(_create_bridge(wan_, kWan, 0, 0, nullptr)).empty());
  EXPECT_EQ(take_refusals(), writes_to(link_, {"X_CT-COM_VLANIDMark", "X_CT-COM_Mode"}));
}

TEST_F(CreateBridge, WritesToInstanceZeroWhenNoneCouldBeAdded) {
  support::FailingAdds failing(host::mib_access(), 1);
  const support::BehindSwitchboard behind(failing);
  const std::string zero = kBridges + "0.";
  EXPECT_EQ(_create_bridge(wan_, kWan, 1, 100, &info_), zero);
  Texts expected = writes_to(zero, {"BridgeName", "BridgeStandard", "VLANID", "X_ZYN_VLANPriority",
                                    "X_ZYN_WANName", "BridgeEnable"});
  expected.push_back("addObject " + zero + "Port.");
  const Texts port = writes_to(zero + "Port.0.", {"PVID", "PortInterface", "PortEnable"});
  expected.insert(expected.end(), port.begin(), port.end());
  EXPECT_EQ(take_refusals(), expected);
  EXPECT_EQ(get(link_ + "X_CT-COM_VLANIDMark"), "100");
}

class CreatePort : public support::ConnectionTest {
 protected:
  CreatePort() {
    set(bridge_ + "VLANID", "100");
    info_.port_option60["LAN1"] = "video";
  }

  /// PVID, PortInterface, PortOption60, X_ZYN_DependWanName, PortEnable.
  std::string values_of(const std::string& port_path) const {
    std::string text;
    for (const char* name :
         {"PVID", "PortInterface", "PortOption60", "X_ZYN_DependWanName", "PortEnable"}) {
      text += get(port_path + name) + '|';
    }
    return text;
  }

  const std::string lan_port_ = lan_bridge_ + "Port.9.";
  const std::string wan_port_ = bridge_ + "Port.2.";
  api_wan_info info_;
};

TEST_F(CreatePort, PutsAFreePortIntoTheLanBridgeWithoutVlan) {
  set(lan_bridge_ + "VLANID", "77");
  _create_port(lan_bridge_, "", "LAN1", &info_);
  EXPECT_EQ(values_of(lan_port_), "|LAN1|||true|");
  _create_port(lan_bridge_, "", "LAN2", nullptr);
  EXPECT_EQ(values_of(lan_bridge_ + "Port.10."), "|LAN2|||true|");
  EXPECT_EQ(info_.port_option60.size(), 1U);
}

TEST_F(CreatePort, GivesABoundPortOfTheLanBridgeAVlanOfItsOwn) {
  support::Transcript transcript;
  _create_port(lan_bridge_, wan_, "LAN1", &info_);
  EXPECT_EQ(values_of(lan_port_), "4060|LAN1||" + wan_ + "|true|");
  EXPECT_NE(transcript.text().find("log igd_api:667 CREATE VLAN = 4060\n"), std::string::npos);
}

TEST_F(CreatePort, SharesAConnectionsVlanAmongItsEthernetPorts) {
  for (const char* node : {"WLAN1", "LAN1", "LAN2"}) {
    _create_port(lan_bridge_, wan_, node, nullptr);
  }
  _create_port(lan_bridge_, wan_path(1, 2), "LAN3", nullptr);
  Texts vlans;
  for (const char* number : {"9", "10", "11", "12"}) {
    vlans.push_back(get(lan_bridge_ + "Port." + number + ".PVID"));
  }
  EXPECT_EQ(vlans, (Texts{"4060", "4061", "4061", "4062"}));
}

TEST_F(CreatePort, GivesAMemberItsBridgesVlanAndItsOption60) {
  _create_port(bridge_, "", "LAN1", &info_);
  EXPECT_EQ(values_of(wan_port_), "100|LAN1|video||true|");
  set(bridge_ + "VLANID", "as it is");
  _create_port(bridge_, "", "LAN1", &info_);
  EXPECT_EQ(values_of(bridge_ + "Port.3."), "as it is|LAN1|video||true|");
}

TEST_F(CreatePort, AddsAnEmptyOption60ToARecordThatLacksThePort) {
  _create_port(bridge_, "", "LAN2", &info_);
  EXPECT_EQ(values_of(wan_port_), "100|LAN2|||true|");
  EXPECT_EQ(info_.port_option60,
            (std::map<std::string, std::string>{{"LAN1", "video"}, {"LAN2", ""}}));
}

TEST_F(CreatePort, WritesOption60ToAllButUplinks) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"LAN0", ""},  {"3G0", ""},   {"WIFIW0", ""},       {"lan0", "x"},
      {"LAN5", "x"}, {"REP0", "x"}, {"LAN_DEFAULT1", "x"}};
  int number = 1;
  for (const auto& [node, option60] : rows) {
    api_wan_info info;
    info.port_option60[node] = "x";
    _create_port(bridge_, "", node, &info);
    const std::string port_path = bridge_ + "Port." + std::to_string(++number) + '.';
    EXPECT_EQ(get(port_path + "PortInterface"), node);
    EXPECT_EQ(get(port_path + "PortOption60"), option60) << node;
  }
}

TEST_F(CreatePort, GivesADependentMemberItsBridgesVlanAndNoOption60) {
  _create_port(bridge_, wan_, "LAN1", &info_);
  EXPECT_EQ(values_of(wan_port_), "100|LAN1||" + wan_ + "|true|");
  _create_port(bridge_, wan_, "LAN2", nullptr);
  EXPECT_EQ(values_of(bridge_ + "Port.3."), "100|LAN2||" + wan_ + "|true|");
}

TEST_F(CreatePort, WritesNoOption60WithoutARecord) {
  support::Transcript transcript;
  _create_port(bridge_, "", "LAN1", nullptr);
  EXPECT_EQ(values_of(wan_port_), "100|LAN1|||true|");
  EXPECT_EQ(transcript.text().find("PortOption60"), std::string::npos);
}

TEST_F(CreatePort, WritesToInstanceZeroWhenNoneCouldBeAdded) {
  support::FailingAdds failing(host::mib_access(), 1);
  const support::BehindSwitchboard behind(failing);
  _create_port(bridge_, "", "LAN1", &info_);
  EXPECT_EQ(take_refusals(), writes_to(bridge_ + "Port.0.",
                                       {"PVID", "PortInterface", "PortOption60", "PortEnable"}));
  EXPECT_EQ(ports_of(bridge_), Texts{"LAN0"});
}

TEST_F(CreatePort, CutsThePathOfAPortAt255Characters) {
  _create_port(std::string(300, 'x') + '.', wan_, "LAN1", nullptr);
  Texts expected = writes_to(std::string(255, 'x'),
                             {"PVID", "PortInterface", "X_ZYN_DependWanName", "PortEnable"});
  expected.insert(expected.begin(), "addObject " + std::string(300, 'x') + ".Port.");
  EXPECT_EQ(take_refusals(), expected);
}

}  // namespace
