#include "port_update.h"

#include <string>
#include <vector>

#include "connection_test.h"
#include "text.h"

namespace {

using support::wan_path;
using Names = std::vector<std::string>;

const char kWlanPorts[] = " WLAN1 WLAN2 WLAN3 WLAN4";

Names names(const std::string& list) { return igd::split(list, " "); }

api_wan_info wanted(const Names& bind_lan, const Names& bind_wan) {
  api_wan_info info;
  info.connection_class = kIgdRouted;
  info.bind_lan = bind_lan;
  info.bind_wan = bind_wan;
  return info;
}

class PortUpdate : public support::ConnectionTest {
 protected:
  PortUpdate() {
    entry_.wan_path = wan_;
    entry_.wan_bridge_path = bridge_;
    entry_.lan_bridge_path = lan_bridge_;
    entry_.connect_class = kIgdRouted;
  }

  std::string update(api_wan_info info) {
    return support::printed_by([&] { _wan_port_update(&entry_, &info); });
  }

  // Puts ports of the LAN bridge where an earlier update would have put them.
  void bind_in_lan_bridge(const Names& nodes, const std::string& wan) {
    for (const std::string& node : nodes) {
      set(port_in(lan_bridge_, node) + "X_ZYN_DependWanName", wan);
    }
  }
  void move_to_own_bridge(const Names& nodes) {
    for (const std::string& node : nodes) {
      remove(port_in(lan_bridge_, node));
      set(add_port(bridge_, node) + "PortEnable", "true");
    }
  }

  wan_mib_info entry_;
};

TEST(DiffLists, JudgesEveryElementOnItsOwnAndKeepsTheOrder) {
  const struct {
    Names before, after, removed, added;
  } kCases[] = {
      {{"LAN1", "LAN2"}, {"LAN2", "LAN3"}, {"LAN1"}, {"LAN3"}},
      {{"LAN3", "LAN1"}, {"WLAN2", "LAN4"}, {"LAN3", "LAN1"}, {"WLAN2", "LAN4"}},
      {{"LAN1", "LAN2"}, {"LAN2", "LAN1"}, {}, {}},
      {{"LAN1", "LAN1"}, {"LAN2", "LAN2"}, {"LAN1", "LAN1"}, {"LAN2", "LAN2"}},
      {{"LAN1", "LAN1"}, {"LAN1"}, {}, {}},
      {{"LAN1"}, {"lan1", "LAN1 ", "LAN"}, {"LAN1"}, {"lan1", "LAN1 ", "LAN"}},
      {{}, {"LAN1"}, {}, {"LAN1"}},
      {{"LAN1"}, {}, {"LAN1"}, {}},
      {{}, {}, {}, {}},
      {{""}, {}, {""}, {}},
  };
  for (const auto& c : kCases) {
    Names removed = {"left over"};
    Names added = {"left over"};
    _diff_lists(c.before, c.after, removed, added);
    EXPECT_EQ(removed, c.removed) << ::testing::PrintToString(c.before);
    EXPECT_EQ(added, c.added) << ::testing::PrintToString(c.after);
  }
}

TEST_F(PortUpdate, DoesNothingWithoutEntryOrRecord) {
  api_wan_info info = wanted({"LAN1"}, {});
  EXPECT_EQ(support::transcript_of([&] { _wan_port_update(nullptr, &info); }), "");
  EXPECT_EQ(support::transcript_of([&] { _wan_port_update(&entry_, nullptr); }), "");
}

TEST_F(PortUpdate, MovesPortsBetweenTheThreeGroups) {
  const struct {
    const char *what, *lan_before, *wan_before, *lan_after, *wan_after;  // bind_lan, bind_wan
    const char *bound, *own_bridge, *internet;
  } kCases[] = {
      {"nothing", "", "", "", "", "", "LAN0", "LAN1 LAN2 LAN3 LAN4"},
      {"all stay", "LAN2", "LAN3", "LAN2", "LAN3", "LAN2", "LAN0 LAN3", "LAN1 LAN4"},
      {"lan to wan", "LAN2", "", "", "LAN2", "", "LAN0 LAN2", "LAN1 LAN3 LAN4"},
      {"wan to lan", "", "LAN2", "LAN2", "", "LAN2", "LAN0", "LAN1 LAN3 LAN4"},
      {"internet to lan", "", "", "LAN4", "", "LAN4", "LAN0", "LAN1 LAN2 LAN3"},
      {"internet to wan", "", "", "", "LAN4", "", "LAN0 LAN4", "LAN1 LAN2 LAN3"},
      {"exchange", "LAN1", "LAN2", "LAN2", "LAN1", "LAN2", "LAN0 LAN1", "LAN3 LAN4"},
      {"one joins", "LAN1", "", "LAN1 LAN2", "", "LAN1 LAN2", "LAN0", "LAN3 LAN4"},
      {"in both lists", "", "", "LAN1", "LAN1", "LAN1", "LAN0 LAN1", "LAN2 LAN3 LAN4"},
      {"new names", "", "", "LAN8", "LAN9", "LAN8", "LAN0 LAN9", "LAN1 LAN2 LAN3 LAN4"},
      {"as listed", "", "", "", "LAN3 LAN1", "", "LAN0 LAN3 LAN1", "LAN2 LAN4"},
      {"listed twice", "", "", "", "LAN1 LAN1", "", "LAN0 LAN1 LAN1", "LAN2 LAN3 LAN4"},
      {"uplink listed", "", "", "", "LAN0", "", "LAN0 LAN0", "LAN1 LAN2 LAN3 LAN4"},
  };
  const host::Tree before = tree_;
  for (const auto& c : kCases) {
    tree_ = before;
    bind_in_lan_bridge(names(c.lan_before), wan_);
    move_to_own_bridge(names(c.wan_before));
    (void)update(wanted(names(c.lan_after), names(c.wan_after)));
    EXPECT_EQ(lan_ports_of(wan_), c.bound) << c.what;
    EXPECT_EQ(ports_of(bridge_), names(c.own_bridge)) << c.what;
    EXPECT_EQ(lan_ports_of(""), std::string(c.internet) + kWlanPorts) << c.what;
  }
}

TEST_F(PortUpdate, SendsPortsThatLoseTheirBindingBackToTheLanBridge) {
  bind_in_lan_bridge({"LAN2"}, wan_);
  move_to_own_bridge({"LAN3"});
  (void)update(wanted({}, {}));
  EXPECT_EQ(ports_of(bridge_), Names{"LAN0"});
  EXPECT_EQ(lan_ports_of(wan_), "");
  EXPECT_EQ(lan_ports_of(""), "LAN1 LAN4" + std::string(kWlanPorts) + " LAN3 LAN2");
}

TEST_F(PortUpdate, CreatesEveryPortEnabledWithTheVlanOfItsGroup) {
  move_to_own_bridge({"LAN3"});
  api_wan_info info = wanted({"LAN1"}, {"LAN2"});
  info.vlan_enable = 1;
  info.vlan_id = 200;
  (void)update(info);
  const struct {
    std::string path;
    std::string depend_wan;
    const char* pvid;
  } kCases[] = {
      {port_in(bridge_, "LAN2"), "", "200"},
      {port_in(lan_bridge_, "LAN1"), wan_, "4060"},
      {port_in(lan_bridge_, "LAN3"), "", ""},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(get(c.path + "PVID"), c.pvid) << c.path;
    EXPECT_EQ(get(c.path + "X_ZYN_DependWanName"), c.depend_wan) << c.path;
    EXPECT_EQ(get(c.path + "PortEnable"), "true") << c.path;
  }
}

TEST_F(PortUpdate, DoesNotDoubleAPortThatIsInTheInternetGroupAlready) {
  (void)add_port(bridge_, "LAN3");  // beside LAN3 of the LAN bridge
  (void)update(wanted({}, {}));
  EXPECT_EQ(ports_of(bridge_), Names{"LAN0"});
  EXPECT_EQ(lan_ports_of(""), "LAN1 LAN2 LAN3 LAN4" + std::string(kWlanPorts));
}

TEST_F(PortUpdate, NeverListsAPortThatIsBoundToAnotherConnection) {
  bind_in_lan_bridge({"LAN1", "LAN2"}, wan_path(1, 2));
  (void)update(wanted({}, {"LAN1"}));
  EXPECT_EQ(lan_ports_of(wan_path(1, 2)), "LAN1 LAN2");
  EXPECT_EQ(ports_of(bridge_), (Names{"LAN0", "LAN1"}));
}

TEST_F(PortUpdate, DeletesAnotherConnectionsPortOfTheSameNameLeavingTheInternetGroup) {
  (void)add_port(lan_bridge_, "LAN1", wan_path(1, 2));
  (void)update(wanted({}, {"LAN1"}));
  EXPECT_EQ(lan_ports_of(wan_path(1, 2)), "");
}

TEST_F(PortUpdate, DeletesAnotherConnectionsPortOfTheSameNameLeavingBindLan) {
  bind_in_lan_bridge({"LAN1"}, wan_);
  (void)add_port(lan_bridge_, "LAN1", wan_path(1, 2));
  (void)update(wanted({}, {}));
  EXPECT_EQ(lan_ports_of(wan_path(1, 2)), "");
  EXPECT_EQ(lan_ports_of(""), "LAN2 LAN3 LAN4" + std::string(kWlanPorts) + " LAN1");
}

TEST_F(PortUpdate, LeavesTheBridgesOfOtherConnectionsAlone) {
  const std::string other = add_bridge("br_1_2", wan_path(1, 2));
  set(add_port(other, "LAN1") + "PVID", "7");
  api_wan_info info = wanted({}, {"LAN1"});
  info.vlan_id = 200;
  (void)update(info);
  EXPECT_EQ(ports_of(other), Names{"LAN1"});
  EXPECT_EQ(get(port_in(other, "LAN1") + "PVID"), "7");
}

TEST_F(PortUpdate, DeletesTwiceWhatStandsTwiceInTheGroupItLeaves) {
  const std::string first = port_in(lan_bridge_, "LAN3");
  const std::string second = add_port(lan_bridge_, "LAN3");
  (void)update(wanted({}, {"LAN3"}));
  EXPECT_EQ(take_refusals(),
            (Names{"setValue " + first + "PortEnable", "deleteObject " + first,
                   "setValue " + second + "PortEnable", "deleteObject " + second}));
  EXPECT_EQ(ports_of(bridge_), (Names{"LAN0", "LAN3"}));
  EXPECT_EQ(lan_ports_of(""), "LAN1 LAN2 LAN4" + std::string(kWlanPorts));
}

TEST_F(PortUpdate, SwitchesAPortOffBeforeItIsDeletedAndDeletesBeforeItCreates) {
  const std::string old_port = port_in(lan_bridge_, "LAN2");
  api_wan_info info = wanted({}, {"LAN2"});
  const std::string writes = support::writes_of([&] { _wan_port_update(&entry_, &info); });
  EXPECT_NE(writes.find("set " + old_port + "PortEnable = \"false\"\ndelete " + old_port +
                        "\nadd " + bridge_ + "Port. -> 2\n"),
            std::string::npos);
}

TEST_F(PortUpdate, TakesAnEmptyWanBridgePathForEveryBridge) {
  entry_.wan_bridge_path = "";
  (void)update(wanted({}, {}));
  EXPECT_EQ(take_refusals(), (Names{"setValue BridgeStandard", "setValue VLANID"}));
  EXPECT_EQ(ports_of(lan_bridge_), Names());
  EXPECT_EQ(ports_of(bridge_), Names{"LAN0"});
}

TEST_F(PortUpdate, TakesAnEmptyLanBridgePathForEveryBridge) {
  entry_.lan_bridge_path = "";
  const std::string other = add_bridge("br_1_2", wan_path(1, 2));
  (void)add_port(other, "LAN1");
  (void)update(wanted({}, {"LAN1"}));
  EXPECT_EQ(ports_of(bridge_), (Names{"LAN0", "LAN1"}));
  EXPECT_EQ(take_refusals().size(), 4U);  // LAN1 stands twice in the group it leaves
  EXPECT_EQ(ports_of(other), Names());
  EXPECT_EQ(lan_ports_of(""), "LAN2 LAN3 LAN4" + std::string(kWlanPorts));
}

TEST_F(PortUpdate, GoesOnWhenAPortCannotBeAdded) {
  support::FailingAdds failing(host::mib_access(), 1);
  const support::BehindSwitchboard behind(failing);
  (void)update(wanted({"LAN1"}, {"LAN2"}));
  EXPECT_EQ(ports_of(bridge_), Names{"LAN0"});
  EXPECT_EQ(lan_ports_of(wan_), "LAN1");
  EXPECT_NE(take_refusals(), Names());  // LAN2's parameters, at number 0
}

}  // namespace
