// Reasons against a change that follow from the state of the gateway, contradictory ones too.
#include <gtest/gtest.h>

#include <algorithm>

#include "host_platform.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "stdout_capture.h"
#include "wan/wan_change.h"
#include "wan/wan_checks.h"

namespace {

using namespace igdctl;
using About = Conflict::About;

class WanObjections : public ::testing::Test {
 protected:
  WanObjections() : before_(host::exchange_active_tree(&tree_)) {
    forget();
    make("Internet", 100, {"LAN1"});
    make("Voice", 200, {});
  }
  ~WanObjections() override {
    forget();
    (void)host::exchange_active_tree(before_);
  }

  static void forget() {
    std::vector<std::string> none;
    _rebuid_cache(none);
  }

  static void make(const std::string& name, int vlan, const Names& ports) {
    WanPatch patch;
    patch["name"] = name;
    patch["vlan"] = vlan;
    patch["bind_lan"] = ports;
    WanDraft draft = draft_new(patch);
    const support::StdoutCapture trace;
    (void)igd_wan_create(draft.access, &draft.info);
  }

  void set(const std::string& name, const std::string& value) {
    ASSERT_EQ(tree_.set_value(name, value), 0) << name;
  }

  static Connection connection(const std::string& name) {
    const support::StdoutCapture trace;
    return find_connection(host::mib_access(), name);
  }

  static std::vector<Conflict> conflicts(const std::string& name, const WanPatch& patch) {
    const Connection changed = connection(name);
    const support::StdoutCapture trace;
    const WanDraft draft = draft_change(host::mib_access(), changed, patch);
    return conflicts_of(draft, read_gateway_state(host::mib_access(), &changed));
  }

  static std::vector<Conflict> conflicts_of_new(const WanPatch& patch) {
    const support::StdoutCapture trace;
    return conflicts_of(draft_new(patch), read_gateway_state(host::mib_access(), nullptr));
  }

  static const Conflict* find(const std::vector<Conflict>& all, About about) {
    const auto found = std::find_if(all.begin(), all.end(), [about](const Conflict& conflict) {
      return conflict.about == about;
    });
    return found == all.end() ? nullptr : &*found;
  }

  host::Tree tree_ = host::Tree::factory();
  host::Tree* before_;
};

TEST_F(WanObjections, NoneToAChangeThatFits) {
  WanPatch patch;
  patch["vlan"] = 110;
  patch["bind_lan"] = Names{"LAN2"};
  EXPECT_TRUE(conflicts("Internet", patch).empty());
}

TEST_F(WanObjections, NothingForcesAChangeOfAConnectionWithoutItsBridge) {
  set(connection("Internet").bridge_path + "X_ZYN_WANName", "");
  const std::vector<Conflict> all = conflicts("Internet", {});
  const Conflict* const bridge = find(all, About::kBridge);
  ASSERT_NE(bridge, nullptr);
  EXPECT_FALSE(bridge->can_be_forced);
  EXPECT_FALSE(bridge->was_there);
  const Connection removed = connection("Internet");
  const std::vector<Conflict> to_removal =
      conflicts_of_removal(removed, read_gateway_state(host::mib_access(), &removed));
  ASSERT_NE(find(to_removal, About::kBridge), nullptr);
}

TEST_F(WanObjections, NothingForcesABridgedConnectionWithoutTheLanBridge) {
  set("InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName", "lan");
  WanPatch patch;
  patch["class"] = "bridged";
  patch["vlan"] = 300;
  const std::vector<Conflict> all = conflicts_of_new(patch);
  ASSERT_NE(find(all, About::kBridge), nullptr);
  EXPECT_FALSE(find(all, About::kBridge)->can_be_forced);
}

TEST_F(WanObjections, AModeNeedsItsObject) {
  const std::string path = connection("Internet").path;
  ASSERT_EQ(tree_.delete_object(path + "WANPPPConnection.1."), 0);
  forget();
  WanPatch patch;
  patch["mode"] = "pppoe";
  ASSERT_NE(find(conflicts("Internet", patch), About::kObject), nullptr);
}

TEST_F(WanObjections, AFieldNeedsTheObjectThatKeepsIt) {
  const std::string path = connection("Internet").path;
  ASSERT_EQ(tree_.delete_object(path + "WANPPPConnection.1."), 0);
  forget();
  WanPatch patch;
  patch["user"] = "household@example.net";
  EXPECT_NE(find(conflicts("Internet", patch), About::kObject), nullptr);
  patch["user"] = "";  // as it is
  EXPECT_EQ(find(conflicts("Internet", patch), About::kObject), nullptr);
}

TEST_F(WanObjections, AVlanThatIsSharedAlreadyIsNoReasonAgainstAnotherChange) {
  set(connection("Voice").bridge_path + "VLANID", "100");
  WanPatch patch;
  patch["mtu"] = 1400;
  const std::vector<Conflict> all = conflicts("Internet", patch);
  ASSERT_NE(find(all, About::kVlan), nullptr);
  EXPECT_TRUE(find(all, About::kVlan)->was_there);
  EXPECT_EQ(find(all, About::kVlan)->message,
            "bridge \"br_1_2\" of connection \"Voice\" already has VLAN 100");
  patch["vlan"] = 200;
  EXPECT_TRUE(conflicts("Internet", patch).empty());
  set(connection("Voice").bridge_path + "VLANID", "200");
  EXPECT_FALSE(find(conflicts("Internet", patch), About::kVlan)->was_there);
}

TEST_F(WanObjections, ALanBridgeWithoutPortsIsNoReasonAgainstAChangeOfSomethingElse) {
  tree_ = host::Tree::factory();
  forget();
  WanPatch patch;
  patch["name"] = "All";
  patch["class"] = "bridged";
  patch["bind_wan"] = Names{igd::kBindablePorts.begin(), igd::kBindablePorts.end()};
  WanDraft draft = draft_new(patch);
  {
    const support::StdoutCapture trace;
    (void)igd_wan_create(draft.access, &draft.info);
  }
  const auto last_port = [](const WanPatch& change) {
    const std::vector<Conflict> all = conflicts("All", change);
    const Conflict* const found = find(all, About::kLastPort);
    return found == nullptr ? "none" : found->was_there ? "as before" : "new";
  };
  WanPatch other;
  other["mtu"] = 1400;
  EXPECT_STREQ(last_port(other), "as before");
  WanPatch of_class;
  of_class["class"] = "routed-bridged";
  EXPECT_STREQ(last_port(of_class), "new");
  WanPatch of_ports;
  of_ports["bind_wan"] = Names{"LAN1"};
  EXPECT_STREQ(last_port(of_ports), "new");
}

TEST_F(WanObjections, TheLanBridgeIsNobodysUntaggedOne) {
  set(connection("Voice").bridge_path + "VLANID", "0");
  WanPatch patch;
  patch["name"] = "Third";
  const std::vector<Conflict> all = conflicts_of_new(patch);
  ASSERT_NE(find(all, About::kVlan), nullptr);
  EXPECT_EQ(
      find(all, About::kVlan)->message,
      "bridge \"br_1_2\" of connection \"Voice\" is untagged, and only one connection can be");
}

TEST_F(WanObjections, ASecondManagementServiceThatIsThereIsNoReasonAgainstAnotherChange) {
  for (const char* name : {"Internet", "Voice"}) {
    set(connection(name).path + "WANIPConnection.2.X_CT-COM_ServiceList", "TR069");
  }
  WanPatch patch;
  patch["mtu"] = 1400;
  const std::vector<Conflict> all = conflicts("Internet", patch);
  ASSERT_NE(find(all, About::kManagement), nullptr);
  EXPECT_TRUE(find(all, About::kManagement)->was_there);
  patch["service"] = Names{"TR069", "VOIP"};
  EXPECT_FALSE(find(conflicts("Internet", patch), About::kManagement)->was_there);
}

TEST_F(WanObjections, APortThatTwoConnectionsHaveIsNoReasonAgainstAnotherChange) {
  int number = 0;
  const std::string ports = connection("Voice").bridge_path + "Port.";
  ASSERT_EQ(tree_.add_object(ports, &number), 0);
  set(ports + std::to_string(number) + ".PortInterface", "LAN1");
  WanPatch patch;
  patch["mtu"] = 1400;
  const std::vector<Conflict> all = conflicts("Internet", patch);
  ASSERT_NE(find(all, About::kPort), nullptr);
  EXPECT_TRUE(find(all, About::kPort)->was_there);
  patch["bind_lan"] = Names{"LAN1", "LAN2"};
  EXPECT_FALSE(find(conflicts("Internet", patch), About::kPort)->was_there);
}

TEST_F(WanObjections, AConnectionWithoutAModeNeedsNoObjectForIt) {
  for (const char* object : {"WANIPConnection.1.", "WANIPConnection.2.", "WANPPPConnection.1."}) {
    set(connection("Voice").path + object + "Enable", "false");
  }
  WanPatch patch;
  patch["vlan"] = 300;
  EXPECT_EQ(find(conflicts("Voice", patch), About::kObject), nullptr);
}

TEST_F(WanObjections, APortOfAnotherConnectionIsTakenByNoForce) {
  WanPatch patch;
  patch["bind_wan"] = Names{"LAN1"};
  const std::vector<Conflict> all = conflicts("Voice", patch);
  ASSERT_NE(find(all, About::kPort), nullptr);
  EXPECT_FALSE(find(all, About::kPort)->can_be_forced);
}

TEST_F(WanObjections, AManagementServiceOfAnObjectThatIsOffCountsToo) {
  set(connection("Voice").path + "WANPPPConnection.1.X_CT-COM_ServiceList", "TR069");
  WanPatch patch;
  patch["vlan"] = 300;
  patch["service"] = Names{"TR069"};
  const std::vector<Conflict> all = conflicts_of_new(patch);
  ASSERT_NE(find(all, About::kManagement), nullptr);
  EXPECT_TRUE(find(all, About::kManagement)->can_be_forced);
}

TEST_F(WanObjections, ANameOfASingleObjectOfAnotherConnectionIsTaken) {
  set(connection("Voice").path + "WANIPConnection.1.Name", "Radio");
  WanPatch patch;
  patch["name"] = "Radio";
  patch["vlan"] = 300;
  const GatewayState gateway = [] {
    const support::StdoutCapture trace;
    return read_gateway_state(host::mib_access(), nullptr);
  }();
  EXPECT_EQ(problems_of(draft_new(patch), gateway).size(), 1U);
}

}  // namespace
