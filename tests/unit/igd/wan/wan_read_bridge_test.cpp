#include <map>
#include <string>
#include <utility>
#include <vector>

#include "connection_test.h"

namespace {

using support::wan_path;
using Names = std::vector<std::string>;
using Option60 = std::map<std::string, std::string>;

class WanReadBridge : public support::ConnectionTest {
 protected:
  static api_wan_info read(const std::string& wan_index, api_wan_info info = {}) {
    int result = -1;
    (void)support::printed_by([&] { result = igd_wan_get_params(wan_index, &info); });
    EXPECT_EQ(result, 0) << wan_index;
    return info;
  }
  api_wan_info read(api_wan_info info = {}) const { return read(wan_, std::move(info)); }
};

TEST_F(WanReadBridge, ReadsTheVlanOfBothBridges) {
  set(bridge_ + "BridgeStandard", "802.1Q");
  set(bridge_ + "VLANID", "100");
  set(bridge_ + "X_ZYN_VLANPriority", "5");
  set(lan_bridge_ + "BridgeStandard", "802.1Q");
  set(lan_bridge_ + "VLANID", "4060");
  const api_wan_info info = read();
  EXPECT_EQ(info.vlan_enable, 1);
  EXPECT_EQ(info.vlan_id, 100);
  EXPECT_EQ(info.vlan_priority, 5);
  EXPECT_EQ(info.lan_vlan_enable, 1);
  EXPECT_EQ(info.lan_vlan_id, 4060);
}

TEST_F(WanReadBridge, ReadsTheTaggingOfEachBridge) {
  set(bridge_ + "BridgeStandard", "802.1Q");
  EXPECT_EQ(read().vlan_enable, 1);
  EXPECT_EQ(read().lan_vlan_enable, 0);
  set(bridge_ + "BridgeStandard", "802.1D");
  set(lan_bridge_ + "BridgeStandard", "802.1Q");
  EXPECT_EQ(read().vlan_enable, 0);
  EXPECT_EQ(read().lan_vlan_enable, 1);
}

TEST_F(WanReadBridge, IsTaggedOnlyByTheExactStandard) {
  for (const char* standard : {"802.1D", "802.1q", "802.1Q ", ""}) {
    set(bridge_ + "BridgeStandard", standard);
    set(lan_bridge_ + "BridgeStandard", standard);
    EXPECT_EQ(read().vlan_enable, 0) << standard;
    EXPECT_EQ(read().lan_vlan_enable, 0) << standard;
  }
}

TEST_F(WanReadBridge, ReadsVlansLeniently) {
  const struct {
    const char* text;
    int number;
  } kCases[] = {{"12abc", 12}, {"abc", 0}, {"", 0}, {" 7", 7}, {"-1", -1}};
  for (const auto& c : kCases) {
    set(bridge_ + "VLANID", c.text);
    set(bridge_ + "X_ZYN_VLANPriority", c.text);
    set(lan_bridge_ + "VLANID", c.text);
    const api_wan_info info = read();
    EXPECT_EQ(info.vlan_id, c.number) << c.text;
    EXPECT_EQ(info.vlan_priority, c.number) << c.text;
    EXPECT_EQ(info.lan_vlan_id, c.number) << c.text;
  }
}

TEST_F(WanReadBridge, HasNoVlanWithoutBridges) {
  remove(bridge_);
  remove(lan_bridge_);
  const api_wan_info info = read(support::routed_pppoe("old", 100));
  EXPECT_EQ(info.vlan_enable, 0);
  EXPECT_EQ(info.vlan_id, 0);
  EXPECT_EQ(info.vlan_priority, 0);
  EXPECT_EQ(info.lan_vlan_enable, 0);
  EXPECT_EQ(info.lan_vlan_id, 0);
}

TEST_F(WanReadBridge, ListsThePortsThatDependOnTheConnection) {
  set(port_in(lan_bridge_, "WLAN2") + "X_ZYN_DependWanName", wan_);
  set(port_in(lan_bridge_, "LAN3") + "X_ZYN_DependWanName", wan_);
  set(port_in(lan_bridge_, "LAN1") + "X_ZYN_DependWanName", wan_path(1, 2));
  EXPECT_EQ(read().bind_lan, (Names{"LAN3", "WLAN2"}));
}

TEST_F(WanReadBridge, FindsDependentPortsInEveryBridge) {
  const std::string other = add_bridge("br_1_2", wan_path(1, 2));
  (void)add_port(other, "LAN2", wan_);
  EXPECT_EQ(read().bind_lan, Names{"LAN2"});
  EXPECT_EQ(read().bind_wan, Names());
}

TEST_F(WanReadBridge, ComparesTheDependencyExactly) {
  set(port_in(lan_bridge_, "LAN1") + "X_ZYN_DependWanName", wan_ + " ");
  set(port_in(lan_bridge_, "LAN2") + "X_ZYN_DependWanName", wan_.substr(0, wan_.size() - 1));
  EXPECT_EQ(read().bind_lan, Names());
}

TEST_F(WanReadBridge, ListsTheOwnBridgesPortsWithoutTheUplinks) {
  for (const char* node : {"LAN4", "3G0", "WLAN1", "WIFIW0", "LAN0"}) (void)add_port(bridge_, node);
  EXPECT_EQ(read().bind_wan, (Names{"LAN4", "WLAN1"}));
}

TEST_F(WanReadBridge, TrimsThePortsNames) {
  (void)add_port(bridge_, " LAN4\t");
  (void)add_port(lan_bridge_, "\r\n WLAN 9 ", wan_);
  EXPECT_EQ(read().bind_wan, Names{"LAN4"});
  EXPECT_EQ(read().bind_lan, Names{"WLAN 9"});
}

TEST_F(WanReadBridge, EmptiesTheCallersListsFirst) {
  api_wan_info before;
  before.bind_lan = before.bind_wan = {"LAN9"};
  const api_wan_info info = read(before);
  EXPECT_EQ(info.bind_lan, Names());
  EXPECT_EQ(info.bind_wan, Names());
}

TEST_F(WanReadBridge, ListsThePortsOfEveryBridgeWhenItHasNone) {
  remove(bridge_);
  for (const char* node : {"LAN2", "LAN3", "WLAN1", "WLAN2", "WLAN3", "WLAN4"}) {
    remove(port_in(lan_bridge_, node));
  }
  (void)add_port(add_bridge("br_1_2", wan_path(1, 2)), "LAN3");
  EXPECT_EQ(read().bind_wan, (Names{"LAN1", "LAN4", "LAN3"}));
}

TEST_F(WanReadBridge, ListsAPortThatIsBoundBothWaysInBothLists) {
  (void)add_port(bridge_, "LAN2", wan_);
  EXPECT_EQ(read().bind_lan, Names{"LAN2"});
  EXPECT_EQ(read().bind_wan, Names{"LAN2"});
}

TEST_F(WanReadBridge, ReadsOption60OfBoundPorts) {
  set(add_port(bridge_, " LAN4 ") + "PortOption60", "of LAN4");
  set(port_in(lan_bridge_, "LAN3") + "X_ZYN_DependWanName", wan_);
  set(port_in(lan_bridge_, "LAN3") + "PortOption60", "of LAN3");
  EXPECT_EQ(read().port_option60, (Option60{{"LAN3", "of LAN3"}, {"LAN4", "of LAN4"}}));
}

TEST_F(WanReadBridge, DoesNotReadOption60OfPortsThatAreNotBound) {
  for (const std::string& path : {port_in(lan_bridge_, "LAN1"), port_in(bridge_, "LAN0")}) {
    set(path + "PortOption60", "vendor");
  }
  EXPECT_EQ(read().port_option60, Option60());
}

TEST_F(WanReadBridge, AddsToTheCallersOption60) {
  set(add_port(bridge_, "LAN1") + "PortOption60", "new");
  (void)add_port(bridge_, "LAN2");
  api_wan_info before;
  before.port_option60 = {{"LAN1", "old"}, {"LAN2", "kept"}, {"LAN9", "kept"}};
  EXPECT_EQ(read(before).port_option60,
            (Option60{{"LAN1", "new"}, {"LAN2", "kept"}, {"LAN9", "kept"}}));
}

TEST_F(WanReadBridge, TakesTheOwnBridgesOption60ForAPortThatIsBoundBothWays) {
  set(port_in(lan_bridge_, "LAN1") + "X_ZYN_DependWanName", wan_);
  set(port_in(lan_bridge_, "LAN1") + "PortOption60", "in the LAN bridge");
  set(add_port(bridge_, "LAN1") + "PortOption60", "in its own bridge");
  EXPECT_EQ(read().port_option60, (Option60{{"LAN1", "in its own bridge"}}));
}

TEST_F(WanReadBridge, ReadsBackWhatAWriteWrote) {
  api_wan_info written = support::routed_pppoe("1_INTERNET", 100);
  written.vlan_priority = 3;
  written.bind_lan = {"LAN1", "WLAN1"};
  written.bind_wan = {"LAN4"};
  written.port_option60 = {{"LAN4", "vendor"}};
  written.ip_dns_enable = 1;
  written.ip_dns1 = "9.9.9.9";
  written.ip_dns2 = "8.8.8.8";
  (void)support::printed_by([&] { (void)igd_wan_set_params(wan_, &written); });
  const api_wan_info info = read();
  EXPECT_EQ(info.wan_info_name, "1_INTERNET");
  EXPECT_EQ(info.vlan_enable, 1);
  EXPECT_EQ(info.vlan_id, 100);
  EXPECT_EQ(info.vlan_priority, 3);
  EXPECT_EQ(info.connection_class, 1);
  EXPECT_EQ(info.bind_lan, written.bind_lan);
  EXPECT_EQ(info.bind_wan, written.bind_wan);
  EXPECT_EQ(info.port_option60, written.port_option60);
  EXPECT_EQ(info.service_type, "INTERNET");
  EXPECT_EQ(info.nat_mode, 1);
  EXPECT_EQ(info.connect_mode, 3);
  EXPECT_EQ(info.pppoe_user_name, "user@isp");
  EXPECT_EQ(info.ip_dns1 + ' ' + info.ip_dns2, "9.9.9.9 8.8.8.8");
  EXPECT_EQ(info.wan_enable, "true");
}

}  // namespace
