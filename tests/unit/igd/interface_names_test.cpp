// The names of ports, and the table of layer-3 interface names.
#include <array>
#include <cstddef>
#include <cstring>
#include <map>
#include <string>

#include "gateway_test.h"
#include "igd_common.h"
#include "igd_vocabulary.h"

namespace {

class PhysicalName : public support::GatewayTest {};

TEST(PortNumbers, FollowThePortsOrder) {
  const struct {
    const char* node;
    int bit;
    int index;
  } kCases[] = {
      {"LAN1", 1, 1},   {"LAN2", 2, 2},   {"LAN3", 4, 3},   {"LAN4", 8, 4},
      {"WLAN1", 16, 5}, {"WLAN2", 32, 6}, {"WLAN3", 64, 7}, {"WLAN4", 128, 8},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(igd_tool_get_port_value(c.node), c.bit) << c.node;
    EXPECT_EQ(igd_tool_get_port_index(c.node), c.index) << c.node;
  }
}

TEST(PortNumbers, AreUnknownForAnythingElse) {
  for (const char* node : {"lan1", "wlan1", "LAN0", "LAN5", "WLAN0", "WLAN5", "3G0", "WIFIW0",
                           "LAN_DEFAULT1", "LAN", "LAN1 ", " LAN1", "LAN11", "eth1", ""}) {
    EXPECT_EQ(igd_tool_get_port_value(node), 0) << node;
    EXPECT_EQ(igd_tool_get_port_index(node), -1) << node;
  }
}

TEST(IsWlan, HoldsForEveryNameWithACapitalW) {
  for (const char* node : {"WLAN1", "WIFIW0", "WDS1", "aWb", "W"}) {
    EXPECT_TRUE(isWlan(node)) << node;
  }
  for (const char* node : {"LAN1", "3G0", "", "wlan1", "REP0"}) EXPECT_FALSE(isWlan(node)) << node;
}

TEST(NameTranslations, GiveTheNameItself) {
  for (const char* name : {"LAN1", "WLAN4", "eth1.100", "no such port", ""}) {
    EXPECT_EQ(getLanIndexByPhy(name), name);
    EXPECT_EQ(getWlanIndexByPhy(name), name);
    EXPECT_EQ(igd_transe_node_2_lan_interfac(name), name);
    EXPECT_EQ(igd_trans_lan_interface_2_node(name), name);
  }
}

TEST(PortSets, TellTheUplinksPorts) {
  for (const char* node : {"LAN0", "3G0", "WIFIW0"}) {
    EXPECT_TRUE(igd::is_wan_side_port(node)) << node;
  }
  for (const char* node : {"LAN1", "REP0", "LAN_DEFAULT1", "lan0", "LAN0 ", ""}) {
    EXPECT_FALSE(igd::is_wan_side_port(node)) << node;
  }
}

TEST(PortSets, TellTheSharedDevices) {
  for (const char* node : {"LAN0", "LAN_DEFAULT1"}) EXPECT_TRUE(igd::is_shared_device(node));
  for (const char* node : {"LAN1", "3G0", "WIFIW0", ""}) EXPECT_FALSE(igd::is_shared_device(node));
}

TEST(PortSets, HoldNodesOfTheTableOnly) {
  for (const igd::Uplink& uplink : igd::kUplinks) {
    EXPECT_NE(igd::find_node(uplink.port), nullptr) << uplink.port;
    EXPECT_EQ(igd::uplink_port_of(uplink.access_type), uplink.port);
  }
  for (const char* port : igd::kBindablePorts) EXPECT_NE(igd::find_node(port), nullptr) << port;
  EXPECT_NE(igd::find_node(igd::kUndividedSwitch), nullptr);
}

// Asked without suffix, with a VLAN that fits every taggable device, and for the node's own VLAN.
TEST_F(PhysicalName, FollowsTheNodeTable) {
  const struct {
    const char* node;
    const char* plain;
    const char* tagged;
    int vlan;
  } kCases[] = {
      {"LAN0", "eth0", "eth0.100", -1}, {"LAN_DEFAULT1", "eth1", "eth1", -1},
      {"LAN1", "eth1", "eth1.100", 1},  {"LAN2", "eth1", "eth1.100", 2},
      {"LAN3", "eth1", "eth1.100", 3},  {"LAN4", "eth1", "eth1.100", 4},
      {"LAN5", "usb0", "usb0", -1},     {"WLAN1", "ath0", "ath0", -1},
      {"WLAN2", "ath1", "ath1", -1},    {"WLAN3", "ath2", "ath2", -1},
      {"WLAN4", "ath4", "ath4", -1},    {"WIFIW0", "ath3", "ath3", -1},
      {"REP0", "ath5", "ath5", -1},     {"3G0", "3g", "3g", -1},
      {"WDS1", "ath5", "ath5", -1},     {"WDS2", "ath6", "ath6", -1},
      {"WDS3", "ath7", "ath7", -1},     {"STA1", "ath5", "ath5", -1},
  };
  for (const auto& c : kCases) {
    int vlan = 99;
    EXPECT_STREQ(getPhyName(c.node, 0, 100, &vlan), c.plain) << c.node;
    EXPECT_EQ(vlan, c.vlan) << c.node;
    EXPECT_STREQ(getPhyName(c.node, 1, 100, nullptr), c.tagged) << c.node;
    EXPECT_EQ(igd::physical_name(c.node, false, 100), c.plain) << c.node;
    EXPECT_EQ(igd::physical_name(c.node, true, 100), c.tagged) << c.node;
  }
}

TEST_F(PhysicalName, TakesASuffixFrom0To4094) {
  const struct {
    int vlan;
    const char* name;
  } kCases[] = {{-1, "eth1"}, {0, "eth1.0"}, {4094, "eth1.4094"}, {4095, "eth1"}};
  for (const auto& c : kCases) {
    EXPECT_STREQ(getPhyName("LAN2", 1, c.vlan, nullptr), c.name) << c.vlan;
    EXPECT_EQ(igd::physical_name("LAN2", true, c.vlan), c.name) << c.vlan;
  }
}

TEST_F(PhysicalName, TakesASuffixForAnyNonZeroWish) {
  EXPECT_STREQ(getPhyName("LAN2", -1, 100, nullptr), "eth1.100");
  EXPECT_STREQ(getPhyName("LAN2", 2, 100, nullptr), "eth1.100");
}

TEST_F(PhysicalName, IsCutAt14Characters) {
  const igd::Node node = {"X", "abcdefghijkl", -1, true};
  EXPECT_EQ(igd::physical_name(node, true, 4094), "abcdefghijkl.4");
}

TEST_F(PhysicalName, IsEmptyForAnUnknownNodeAndLeavesTheVlan) {
  for (const char* node : {"lan2", "LAN9", "eth1", ""}) {
    int vlan = 99;
    EXPECT_STREQ(getPhyName(node, 1, 100, &vlan), "") << node;
    EXPECT_EQ(vlan, 99) << node;
    EXPECT_EQ(igd::physical_name(node, true, 100), "") << node;
  }
}

TEST_F(PhysicalName, IsEmptyForANullNode) {
  int vlan = 99;
  (void)getPhyName("LAN2", 0, 0, nullptr);
  EXPECT_STREQ(getPhyName(nullptr, 1, 100, &vlan), "");
  EXPECT_EQ(vlan, 99);
}

TEST_F(PhysicalName, IsOverwrittenByTheNextCall) {
  const char* const first = getPhyName("LAN2", 1, 100, nullptr);
  (void)getPhyName("WLAN1", 0, 0, nullptr);
  EXPECT_STREQ(first, "ath0");
}

TEST_F(PhysicalName, IsLoggedOnlyWhenItTakesASuffix) {
  const auto translate = [] {
    (void)getPhyName("LAN2", 1, 4095, nullptr);
    (void)getPhyName("WLAN1", 1, 100, nullptr);
    (void)getPhyName("LAN2", 0, 100, nullptr);
    (void)getPhyName("LAN2", 1, 100, nullptr);
    (void)igd::physical_name("LAN2", true, 100);
  };
  EXPECT_EQ(support::transcript_of(translate),
            "log framework/igd/inc/igd_common:401 ***** GET PHYNAME,VLANID=100,phy=eth1 \n");
}

class L3Names : public support::GatewayTest {
 protected:
  L3Names() { buffer_.fill('#'); }

  /// The whole buffer after a look-up; a zero byte shows as ".".
  std::string look_up(const char* key, size_t size) {
    buffer_.fill('#');
    igd_c_get_l3_name(key, buffer_.data(), size);
    std::string text(buffer_.begin(), buffer_.end());
    for (char& byte : text) byte = byte == '\0' ? '.' : byte;
    return text;
  }

  std::array<char, 8> buffer_{};
};

TEST_F(L3Names, AreFoundByTheirKey) {
  igd_c_set_l3_name("wan1", "ppp0");
  igd_c_set_l3_name("wan2", "br1");
  EXPECT_EQ(look_up("wan1", 8), "ppp0...#");
  EXPECT_EQ(look_up("wan2", 8), "br1....#");
}

TEST_F(L3Names, AreReplaced) {
  igd_c_set_l3_name("wan1", "ppp0");
  igd_c_set_l3_name("wan1", "ppp1");
  EXPECT_EQ(look_up("wan1", 8), "ppp1...#");
  EXPECT_EQ(g_l3_ifname_table.size(), 1U);
}

TEST_F(L3Names, AreCopied) {
  std::string key = "wan1";
  std::string value = "ppp0";
  igd_c_set_l3_name(key.c_str(), value.c_str());
  key[0] = value[0] = 'x';
  EXPECT_EQ(g_l3_ifname_table, (std::map<std::string, std::string>{{"wan1", "ppp0"}}));
}

TEST_F(L3Names, AreNotSetWithoutKeyOrValue) {
  igd_c_set_l3_name(nullptr, "ppp0");
  igd_c_set_l3_name("wan1", nullptr);
  EXPECT_TRUE(g_l3_ifname_table.empty());
}

TEST_F(L3Names, MayBeEmptyTexts) {
  igd_c_set_l3_name("", "ppp0");
  igd_c_set_l3_name("wan1", "");
  EXPECT_EQ(look_up("", 8), "ppp0...#");
  EXPECT_EQ(look_up("wan1", 8), ".......#");
}

TEST_F(L3Names, JoinTheTableWhenLookedUp) {
  EXPECT_EQ(look_up("wan1", 8), ".......#");
  EXPECT_EQ(g_l3_ifname_table, (std::map<std::string, std::string>{{"wan1", ""}}));
}

TEST_F(L3Names, StayOpenWhenTheyFillTheLimit) {
  igd_c_set_l3_name("wan1", "ppp0");
  EXPECT_EQ(look_up("wan1", 7), "ppp0..##");
  EXPECT_EQ(look_up("wan1", 6), "ppp0.###");
  EXPECT_EQ(look_up("wan1", 5), "ppp0####");
  EXPECT_EQ(look_up("wan1", 4), "ppp#####");
  EXPECT_EQ(look_up("wan1", 2), "p#######");
}

TEST_F(L3Names, AreNotWrittenIntoABufferOfOne) {
  igd_c_set_l3_name("wan1", "ppp0");
  EXPECT_EQ(look_up("wan1", 1), "########");
  EXPECT_EQ(look_up("wan2", 1), "########");
  EXPECT_EQ(g_l3_ifname_table.count("wan2"), 1U);
}

TEST_F(L3Names, AreEmptyForANullKey) {
  EXPECT_EQ(look_up(nullptr, 8), ".#######");
  EXPECT_EQ(look_up(nullptr, 1), ".#######");
  EXPECT_EQ(look_up(nullptr, 0), "########");
  igd_c_get_l3_name(nullptr, nullptr, 8);
  EXPECT_TRUE(g_l3_ifname_table.empty());
}

TEST_F(L3Names, AreNotLookedUpWithoutABuffer) {
  igd_c_get_l3_name("wan1", nullptr, 8);
  EXPECT_EQ(look_up("wan1", 0), "########");
  EXPECT_TRUE(g_l3_ifname_table.empty());
}

}  // namespace
