#include <map>
#include <string>
#include <vector>

#include "connection_test.h"
#include "port_update.h"

namespace {

using Option60 = std::map<std::string, std::string>;

class PortUpdateVlan : public support::ConnectionTest {
 protected:
  PortUpdateVlan() {
    entry_.wan_path = wan_;
    entry_.wan_bridge_path = bridge_;
    entry_.lan_bridge_path = lan_bridge_;
    entry_.connect_class = kIgdRouted;
    info_.connection_class = kIgdRouted;
  }

  // Makes bridge and record agree on a VLAN; 0 is untagged.
  void agree_on(int vlan) {
    info_.vlan_enable = vlan == 0 ? 0 : 1;
    info_.vlan_id = vlan;
    set(bridge_ + "BridgeStandard", vlan == 0 ? "802.1D" : "802.1Q");
    set(bridge_ + "VLANID", std::to_string(vlan));
  }

  std::string update() {
    return support::printed_by([&] { _wan_port_update(&entry_, &info_); });
  }
  std::string writes() {
    return support::writes_of([&] { _wan_port_update(&entry_, &info_); });
  }

  static std::string write_of(const std::string& name, const std::string& value) {
    return "set " + name + " = \"" + value + "\"\n";
  }

  const std::string uplink_ = bridge_ + "Port.1.";
  const std::string link_ = wan_ + "WANEthernetLinkConfig.";
  wan_mib_info entry_;
  api_wan_info info_;
};

TEST_F(PortUpdateVlan, RewritesAnUntaggedBridgeAlsoWhenNothingDiffers) {
  agree_on(0);
  EXPECT_EQ(writes(),
            write_of(bridge_ + "BridgeStandard", "802.1D") + write_of(bridge_ + "VLANID", "0") +
                write_of(link_ + "X_CT-COM_VLANIDMark", "0") +
                write_of(link_ + "X_CT-COM_Mode", "0") + write_of(uplink_ + "PortEnable", "true"));
}

TEST_F(PortUpdateVlan, RewritesATaggedBridgeAlsoWhenNothingDiffers) {
  agree_on(100);
  info_.vlan_priority = 5;
  set(link_ + "X_CT-COM_Mode", "1");
  EXPECT_EQ(writes(), write_of(bridge_ + "BridgeStandard", "802.1Q") +
                          write_of(bridge_ + "VLANID", "100") +
                          write_of(link_ + "X_CT-COM_VLANIDMark", "100") +
                          write_of(bridge_ + "X_ZYN_VLANPriority", "5") +
                          write_of(uplink_ + "PortEnable", "true"));
}

TEST_F(PortUpdateVlan, SwitchesPortsOffForAChangeOfClassTaggingOrVlan) {
  const struct {
    const char* what;
    int connection_class, vlan_enable, vlan_id;
    bool off;
  } kCases[] = {
      {"nothing", 1, 1, 100, false},
      {"class", 2, 1, 100, true},
      {"tagging", 1, 0, 100, true},
      {"VLAN", 1, 1, 101, true},
      {"another number for tagging on", 1, 2, 100, true},
  };
  for (const auto& c : kCases) {
    agree_on(100);
    info_.connection_class = c.connection_class;
    info_.vlan_enable = c.vlan_enable;
    info_.vlan_id = c.vlan_id;
    const std::string off = write_of(uplink_ + "PortEnable", "false") +
                            write_of(uplink_ + "PVID", std::to_string(c.vlan_id));
    const std::string written = writes();
    EXPECT_EQ(written.find(off) == 0, c.off) << c.what;
    EXPECT_EQ(written.find("PortEnable = \"false\"") != std::string::npos, c.off) << c.what;
  }
}

TEST_F(PortUpdateVlan, ReadsTheOldVlanLeniently) {
  agree_on(100);
  set(bridge_ + "VLANID", "100x");
  EXPECT_EQ(writes().find("PortEnable = \"false\""), std::string::npos);
  set(bridge_ + "VLANID", "x100");
  EXPECT_NE(writes().find("PortEnable = \"false\""), std::string::npos);
}

TEST_F(PortUpdateVlan, GivesTheNewVlanToEveryPortOfTheOwnBridge) {
  const std::string port = add_port(bridge_, "LAN4", "", "100");
  info_.bind_wan = {"LAN4"};
  info_.vlan_enable = 1;
  info_.vlan_id = 200;
  (void)update();
  for (const std::string& path : {uplink_, port}) {
    EXPECT_EQ(get(path + "PVID"), "200") << path;
    EXPECT_EQ(get(path + "PortEnable"), "true") << path;
  }
  EXPECT_EQ(get(port_in(lan_bridge_, "LAN1") + "PVID"), "");
}

TEST_F(PortUpdateVlan, WritesTheRecordsVlanToPortsEvenWhenTaggingIsOff) {
  agree_on(100);
  info_.vlan_enable = 0;
  (void)update();
  EXPECT_EQ(get(uplink_ + "PVID"), "100");
  EXPECT_EQ(get(bridge_ + "VLANID"), "0");
}

TEST_F(PortUpdateVlan, TurnsTheLinksModeFromZeroToOneOnly) {
  const struct {
    const char* before;
    const char* after;
  } kCases[] = {{"0", "1"}, {"1", "1"}, {"2", "2"}, {"", ""}, {"00", "00"}, {"0 ", "0 "}};
  agree_on(100);
  for (const auto& c : kCases) {
    set(link_ + "X_CT-COM_Mode", c.before);
    (void)update();
    EXPECT_EQ(get(link_ + "X_CT-COM_Mode"), c.after) << c.before;
  }
}

TEST_F(PortUpdateVlan, ResetsTheLinksModeWithoutTagging) {
  set(link_ + "X_CT-COM_Mode", "2");
  (void)update();
  EXPECT_EQ(get(link_ + "X_CT-COM_Mode"), "0");
}

TEST_F(PortUpdateVlan, KeepsThePriorityWithoutTagging) {
  set(bridge_ + "X_ZYN_VLANPriority", "5");
  info_.vlan_priority = 3;
  (void)update();
  EXPECT_EQ(get(bridge_ + "X_ZYN_VLANPriority"), "5");
}

TEST_F(PortUpdateVlan, TagsForAnyNonZeroFlag) {
  info_.vlan_enable = -1;
  info_.vlan_id = 100;
  (void)update();
  EXPECT_EQ(get(bridge_ + "BridgeStandard"), "802.1Q");
  EXPECT_EQ(get(bridge_ + "VLANID"), "100");
}

TEST_F(PortUpdateVlan, EnablesThePortsOfTheOwnBridgeOnly) {
  set(uplink_ + "PortEnable", "false");
  set(port_in(lan_bridge_, "LAN1") + "PortEnable", "false");
  (void)update();
  EXPECT_EQ(get(uplink_ + "PortEnable"), "true");
  EXPECT_EQ(get(port_in(lan_bridge_, "LAN1") + "PortEnable"), "false");
}

TEST_F(PortUpdateVlan, WritesTheRecordsOption60ToThePortsOfTheOwnBridge) {
  const std::string named = add_port(bridge_, "LAN3");
  const std::string unnamed = add_port(bridge_, "LAN4");
  set(named + "PortOption60", "old");
  set(unnamed + "PortOption60", "old");
  info_.bind_wan = {"LAN3", "LAN4"};
  info_.port_option60 = {{"LAN0", "of the uplink"}, {"LAN1", "of LAN1"}, {"LAN3", "of LAN3"}};
  (void)update();
  EXPECT_EQ(get(named + "PortOption60"), "of LAN3");
  EXPECT_EQ(get(unnamed + "PortOption60"), "old");
  EXPECT_EQ(get(uplink_ + "PortOption60"), "of the uplink");
  EXPECT_EQ(get(port_in(lan_bridge_, "LAN1") + "PortOption60"), "");
}

TEST_F(PortUpdateVlan, AsksForThePortsInterfaceUntilAnEntryOfTheRecordFits) {
  info_.port_option60 = {{"3G0", ""}, {"LAN0", "of the uplink"}, {"LAN1", ""}, {"LAN2", ""}};
  const std::string read = "get " + uplink_ + "PortInterface -> \"LAN0\"\n";
  const std::string transcript = support::transcript_of([&] { _wan_port_update(&entry_, &info_); });
  const std::string end = read + read + write_of(uplink_ + "PortOption60", "of the uplink");
  ASSERT_GE(transcript.size(), end.size());
  EXPECT_EQ(transcript.substr(transcript.size() - end.size()), end);
}

TEST_F(PortUpdateVlan, AnEmptyOption60OfTheRecordReplacesAStoredOne) {
  set(uplink_ + "PortOption60", "old");
  info_.port_option60 = {{"LAN0", ""}};
  (void)update();
  EXPECT_EQ(get(uplink_ + "PortOption60"), "");
}

TEST_F(PortUpdateVlan, NewPortsTakeTheirOption60FromTheRecordAndJoinItWhenMissing) {
  info_.bind_wan = {"LAN3", "LAN4"};
  info_.port_option60 = {{"LAN3", "of LAN3"}};
  (void)update();
  EXPECT_EQ(get(port_in(bridge_, "LAN3") + "PortOption60"), "of LAN3");
  EXPECT_EQ(get(port_in(bridge_, "LAN4") + "PortOption60"), "");
  EXPECT_EQ(info_.port_option60, (Option60{{"LAN3", "of LAN3"}, {"LAN4", ""}}));
}

TEST_F(PortUpdateVlan, PrintsTheVlansOldAndNew) {
  agree_on(100);
  info_.vlan_id = 200;
  info_.vlan_priority = 5;
  EXPECT_EQ(update().find("vornik _wan_port_update info->vlan_id = 200,old_vlan_id = 100\n"
                          "vornik PVID " +
                          uplink_ +
                          " = 200\n"
                          "vornik info->vlan_enable = 1\n"
                          "vornik " +
                          bridge_ +
                          "VLANID = 200\n"
                          "vornik " +
                          bridge_ + "X_ZYN_VLANPriority = 5\n"),
            0U);
}

TEST_F(PortUpdateVlan, PrintsTheGroupsAndEveryMoveWithItsLine) {
  for (const char* node : {"WLAN1", "WLAN2", "WLAN3", "WLAN4"}) {
    remove(port_in(lan_bridge_, node));
  }
  remove(port_in(lan_bridge_, "LAN1"));
  (void)add_port(bridge_, "LAN1");
  set(port_in(lan_bridge_, "LAN2") + "X_ZYN_DependWanName", wan_);
  info_.bind_lan = {"LAN3"};
  info_.bind_wan = {"LAN4", "LAN9"};
  const std::string printed = update();
  const char* const kLines[] = {
      "1075: OLD BIND WAN HAS LAN1 ",
      "1080: OLD BIND LAN HAS LAN2 ",
      "1085: OLD INTERNET HAS LAN3 ",
      "1085: OLD INTERNET HAS LAN4 ",
      "1090: NEW BIND WAN HAS LAN4 ",
      "1090: NEW BIND WAN HAS LAN9 ",
      "1095: NEW BIND LAN HAS LAN3 ",
      "1102: NEW CREATE LAN9 ",
      "1106: NEW INTERNET LAN1 ",
      "1106: NEW INTERNET LAN2 ",
      "_wan_port_update 1110",
      "1123: LAN3 remove from internet ",
      "1123: LAN4 remove from internet ",
      "_wan_port_update 1129",
      "1140: LAN2 remove from bind_lan ",
      "_wan_port_update 1146",
      "1157: LAN1 remove from bind_wan ",
      "_wan_port_update 1165",
      "1174: LAN4 create bind_wan ",
      "1174: LAN9 create bind_wan ",
      "_wan_port_update 1179",
      "1188: LAN3 create bind_lan ",
      "_wan_port_update 1193",
      "1202: LAN1 create internet ",
      "1202: LAN2 create internet ",
  };
  std::string expected;
  for (const char* line : kLines) {
    expected += "\n ------------- igd_api " + std::string(line) + '\n';
  }
  for (const char* number : {"1", "3", "4"}) {  // number 2 was LAN1
    expected += "\n ------------- igd_api _wan_port_update 1210 port:" + bridge_ + "Port." +
                number + ".PortEnable\n";
  }
  EXPECT_EQ(printed.substr(printed.find("\n -")), expected);
}

}  // namespace
