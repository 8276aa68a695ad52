// Reasons against a change that follow from the state of the gateway, contradictory ones too.
#include <gtest/gtest.h>

#include <algorithm>

#include "host_platform.h"
#include "igd_api.h"
#include "stdout_capture.h"
#include "wan/wan_change.h"
#include "wan/wan_checks.h"

namespace {

using namespace igdctl;
using About = Objection::About;

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
    WanWish wish;
    wish.name = name;
    wish.vlan = vlan;
    wish.bind_lan = ports;
    WanProposal proposal = propose_new(wish);
    const support::StdoutCapture trace;
    (void)igd_wan_create(proposal.access, &proposal.info);
  }

  void set(const std::string& name, const std::string& value) {
    ASSERT_EQ(tree_.set_value(name, value), 0) << name;
  }

  static Connection connection(const std::string& name) {
    const support::StdoutCapture trace;
    return find_connection(host::mib_access(), name);
  }

  static std::vector<Objection> objections(const std::string& name, const WanWish& wish) {
    const Connection changed = connection(name);
    const support::StdoutCapture trace;
    const WanProposal proposal = propose_change(host::mib_access(), changed, wish);
    return objections_to(proposal, read_surroundings(host::mib_access(), &changed));
  }

  static std::vector<Objection> objections_to_new(const WanWish& wish) {
    const support::StdoutCapture trace;
    return objections_to(propose_new(wish), read_surroundings(host::mib_access(), nullptr));
  }

  static const Objection* find(const std::vector<Objection>& all, About about) {
    const auto found = std::find_if(all.begin(), all.end(), [about](const Objection& objection) {
      return objection.about == about;
    });
    return found == all.end() ? nullptr : &*found;
  }

  host::Tree tree_ = host::Tree::factory();
  host::Tree* before_;
};

TEST_F(WanObjections, NoneToAChangeThatFits) {
  WanWish wish;
  wish.vlan = 110;
  wish.bind_lan = Names{"LAN2"};
  EXPECT_TRUE(objections("Internet", wish).empty());
}

TEST_F(WanObjections, NothingForcesAChangeOfAConnectionWithoutItsBridge) {
  set(connection("Internet").bridge_path + "X_ZYN_WANName", "");
  const std::vector<Objection> all = objections("Internet", {});
  const Objection* const bridge = find(all, About::kBridge);
  ASSERT_NE(bridge, nullptr);
  EXPECT_FALSE(bridge->can_be_forced);
  EXPECT_FALSE(bridge->was_there);
  const Connection removed = connection("Internet");
  const std::vector<Objection> to_removal =
      objections_to_removal(removed, read_surroundings(host::mib_access(), &removed));
  ASSERT_NE(find(to_removal, About::kBridge), nullptr);
}

TEST_F(WanObjections, NothingForcesABridgedConnectionWithoutTheLanBridge) {
  set("InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName", "lan");
  WanWish wish;
  wish.connection_class = kIgdBridged;
  wish.vlan = 300;
  const std::vector<Objection> all = objections_to_new(wish);
  ASSERT_NE(find(all, About::kBridge), nullptr);
  EXPECT_FALSE(find(all, About::kBridge)->can_be_forced);
}

TEST_F(WanObjections, AModeNeedsItsObject) {
  const std::string path = connection("Internet").path;
  ASSERT_EQ(tree_.delete_object(path + "WANPPPConnection.1."), 0);
  forget();
  WanWish wish;
  wish.mode = kIgdPppoe;
  ASSERT_NE(find(objections("Internet", wish), About::kObject), nullptr);
}

TEST_F(WanObjections, AVlanThatIsSharedAlreadyIsNoReasonAgainstAnotherChange) {
  set(connection("Voice").bridge_path + "VLANID", "100");
  WanWish wish;
  wish.mtu = 1400;
  const std::vector<Objection> all = objections("Internet", wish);
  ASSERT_NE(find(all, About::kVlan), nullptr);
  EXPECT_TRUE(find(all, About::kVlan)->was_there);
  wish.vlan = 200;
  EXPECT_TRUE(objections("Internet", wish).empty());
  set(connection("Voice").bridge_path + "VLANID", "200");
  EXPECT_FALSE(find(objections("Internet", wish), About::kVlan)->was_there);
}

TEST_F(WanObjections, APortOfAnotherConnectionIsTakenByNoForce) {
  WanWish wish;
  wish.bind_wan = Names{"LAN1"};
  const std::vector<Objection> all = objections("Voice", wish);
  ASSERT_NE(find(all, About::kPort), nullptr);
  EXPECT_FALSE(find(all, About::kPort)->can_be_forced);
}

TEST_F(WanObjections, AManagementServiceOfAnObjectThatIsOffCountsToo) {
  set(connection("Voice").path + "WANPPPConnection.1.X_CT-COM_ServiceList", "TR069");
  WanWish wish;
  wish.vlan = 300;
  wish.service = Names{"TR069"};
  const std::vector<Objection> all = objections_to_new(wish);
  ASSERT_NE(find(all, About::kManagement), nullptr);
  EXPECT_TRUE(find(all, About::kManagement)->can_be_forced);
}

TEST_F(WanObjections, ANameOfASingleObjectOfAnotherConnectionIsTaken) {
  set(connection("Voice").path + "WANIPConnection.1.Name", "Radio");
  WanWish wish;
  wish.name = "Radio";
  wish.vlan = 300;
  const Surroundings around = [] {
    const support::StdoutCapture trace;
    return read_surroundings(host::mib_access(), nullptr);
  }();
  EXPECT_EQ(faults_of(propose_new(wish), around).size(), 1U);
}

}  // namespace
