// Choosing VLAN identifiers: for LAN-side ports of a connection, and for new connections.
#include "vlan.h"

#include <tuple>
#include <utility>

#include "gateway_test.h"

namespace {

using support::kBridges;
using support::wan_path;

using Texts = std::vector<std::string>;

/// Answers one name, which no tree knows, with a number.
class KnowsOneMore final : public support::MibDecorator {
 public:
  explicit KnowsOneMore(std::string name) : MibDecorator(host::mib_access()), name_(name) {}
  std::string getValue(const std::string& name) override {
    return name == name_ ? name_ : next().getValue(name);
  }

 private:
  std::string name_;
};

class FindVlan : public support::GatewayTest {
 protected:
  FindVlan() : GatewayTest(host::Tree()), bridge_(add_bridge("internet", "")) {}

  void add_pvids(int from, int to) {
    for (int pvid = from; pvid <= to; ++pvid) {
      (void)add_port(bridge_, "LAN1", "", std::to_string(pvid));
    }
  }

  const std::string bridge_;
  const std::string wan_ = wan_path(1, 1);
};

TEST_F(FindVlan, StartsAt4060WithoutPorts) {
  tree_ = host::Tree();
  EXPECT_EQ(_find_vlan_id(0, "", ""), "4060");
  EXPECT_EQ(_find_vlan_id(0, "", wan_), "4060");
}

TEST_F(FindVlan, StartsAt4060OnAFactoryGateway) {
  tree_ = host::Tree::factory();
  EXPECT_EQ(_find_vlan_id(0, "", wan_), "4060");
}

TEST_F(FindVlan, TakesTheLowestGap) {
  const std::vector<std::pair<Texts, std::string>> rows = {
      {{"4060", "4061"}, "4062"}, {{"4060", "4062"}, "4061"}, {{"4061", "4060"}, "4062"},
      {{"4061"}, "4060"},         {{"4059", "4081"}, "4060"}, {{"4060", "4060", "4062"}, "4061"}};
  for (const auto& [pvids, expected] : rows) {
    const std::string bridge_path = add_bridge("br_1_1", "");
    for (const std::string& pvid : pvids) (void)add_port(bridge_path, "LAN1", "", pvid);
    EXPECT_EQ(_find_vlan_id(0, "", ""), expected) << ::testing::PrintToString(pvids);
    ASSERT_EQ(tree_.delete_object(bridge_path), 0);
  }
}

TEST_F(FindVlan, Reaches4080AndThenFallsBackTo789) {
  add_pvids(4060, 4079);
  support::Transcript transcript;
  EXPECT_EQ(_find_vlan_id(0, "", ""), "4080");
  EXPECT_EQ(transcript.text().find("log "), std::string::npos);
  add_pvids(4080, 4080);
  EXPECT_EQ(_find_vlan_id(0, "", ""), "789");
  EXPECT_NE(transcript.text().find("log igd_api:108 NO VALID VLAN ID\n"), std::string::npos);
}

TEST_F(FindVlan, ReadsPvidsLeniently) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"4060", "4061"},  {"4060abc", "4061"}, {"04060", "4061"}, {" 4060", "4061"},
      {"+4060", "4061"}, {"4060.9", "4061"},  {"x4060", "4060"}, {"-4060", "4060"},
      {"", "4060"},      {"40600", "4060"},   {"4 060", "4060"}, {"99999999999", "4060"}};
  for (const auto& [pvid, expected] : rows) {
    const std::string port_path = add_port(bridge_, "LAN1", "", pvid);
    EXPECT_EQ(_find_vlan_id(0, "", ""), expected) << '"' << pvid << '"';
    ASSERT_EQ(tree_.delete_object(port_path), 0);
  }
}

TEST_F(FindVlan, CountsThePortsOfEveryBridge) {
  (void)add_port(add_bridge("br_1_1", wan_), "LAN1", "", "4060");
  EXPECT_EQ(_find_vlan_id(0, bridge_, wan_), "4061");
}

TEST_F(FindVlan, ReusesTheVlanOfABoundEthernetPort) {
  (void)add_port(bridge_, "LAN2", wan_, "4065");
  support::Transcript transcript;
  EXPECT_EQ(_find_vlan_id(0, bridge_, wan_), "4065");
  const std::string text = transcript.text();
  EXPECT_NE(text.find("log igd_api:82 FIND vlan_id = 4065, ifname=(LAN2,eth1), for bind_wan=" +
                      wan_ + "\n"),
            std::string::npos);
  EXPECT_EQ(text.find("open 209"), std::string::npos) << "the range needs no search";
}

TEST_F(FindVlan, ReturnsTheBoundPortsVlanAsItWasRead) {
  for (const char* pvid : {"", "0", "007", "abc"}) {
    const std::string port_path = add_port(bridge_, "LAN1", wan_, pvid);
    EXPECT_EQ(_find_vlan_id(0, bridge_, wan_), pvid);
    ASSERT_EQ(tree_.delete_object(port_path), 0);
  }
}

TEST_F(FindVlan, BorrowsFromEthernetPortsAlone) {
  const std::vector<std::pair<std::string, bool>> rows = {
      {"LAN0", true},  {"LAN_DEFAULT1", true}, {"LAN1", true},   {"LAN4", true},  {"LAN5", false},
      {"3G0", false},  {"WLAN1", false},       {"WLAN4", false}, {"REP0", false}, {"WDS3", false},
      {"eth1", false}, {"LAN9", false},        {"", false}};
  for (const auto& [node, lends] : rows) {
    const std::string port_path = add_port(bridge_, node, wan_, "4065");
    EXPECT_EQ(_find_vlan_id(0, bridge_, wan_), lends ? "4065" : "4060") << node;
    ASSERT_EQ(tree_.delete_object(port_path), 0);
  }
}

TEST_F(FindVlan, BorrowsFromTheFirstBoundEthernetPort) {
  (void)add_port(bridge_, "WLAN1", wan_, "4063");
  (void)add_port(bridge_, "LAN3", wan_path(1, 2), "4064");
  (void)add_port(bridge_, "LAN2", wan_, "4065");
  (void)add_port(bridge_, "LAN1", wan_, "4066");
  EXPECT_EQ(_find_vlan_id(0, bridge_, wan_), "4065");
}

TEST_F(FindVlan, ComparesTheConnectionExactly) {
  for (const std::string& owner : {wan_ + "1", wan_.substr(0, 55), wan_ + " ", std::string()}) {
    (void)add_port(bridge_, "LAN1", owner, "4065");
  }
  EXPECT_EQ(_find_vlan_id(0, bridge_, wan_), "4060");
}

TEST_F(FindVlan, BorrowsInTheGivenBridgeOrInAny) {
  (void)add_port(add_bridge("br_1_1", wan_), "LAN1", wan_, "4065");
  EXPECT_EQ(_find_vlan_id(0, bridge_, wan_), "4060");
  EXPECT_EQ(_find_vlan_id(0, "", wan_), "4065");
}

TEST_F(FindVlan, BorrowsNothingWithoutAConnection) {
  (void)add_port(bridge_, "LAN1", "", "4065");
  support::Transcript transcript;
  EXPECT_EQ(_find_vlan_id(0, bridge_, ""), "4060");
  EXPECT_EQ(transcript.text().find("open 204"), std::string::npos);
}

TEST_F(FindVlan, AsksForTheConnectionsOwnVlanAsForAName) {
  EXPECT_EQ(_find_vlan_id(4060, "", ""), "4060");
  KnowsOneMore tree("4060");
  const support::BehindSwitchboard behind(tree);
  EXPECT_EQ(_find_vlan_id(4060, "", ""), "4061");
  EXPECT_EQ(_find_vlan_id(4061, "", ""), "4060");
}

class UnusedVlan : public support::GatewayTest {
 protected:
  void add_vlans(const Texts& vlans) {
    for (const std::string& vlan : vlans) set(add(kBridges) + "VLANID", vlan);
  }

  void add_vlans(int from, int to) {
    for (int vlan = from; vlan <= to; ++vlan) add_vlans({std::to_string(vlan)});
  }
};

TEST_F(UnusedVlan, IsTheLowestThatNoBridgeCarries) {
  const std::vector<std::pair<Texts, int>> rows = {{{}, 1000},
                                                   {{"1000", "1001"}, 1002},
                                                   {{"1000", "1002"}, 1001},
                                                   {{"1001", "1000"}, 1002},
                                                   {{"1001"}, 1000},
                                                   {{"999", "4060"}, 1000},
                                                   {{"0", "", "abc"}, 1000},
                                                   {{"1000abc", "01001"}, 1002},
                                                   {{" 1000", "+1001"}, 1002},
                                                   {{"x1000"}, 1000},
                                                   {{"-1000"}, 1000},
                                                   {{"0", "1000", "", "1001"}, 1002}};
  for (const auto& [vlans, expected] : rows) {
    tree_ = host::Tree::factory();
    add_vlans(vlans);
    EXPECT_EQ(igd_wan_get_unused_vlan(), expected) << ::testing::PrintToString(vlans);
  }
}

TEST_F(UnusedVlan, IsNotTheOneOfTheLanBridge) {
  set(kBridges + "1.VLANID", "1000");
  EXPECT_EQ(igd_wan_get_unused_vlan(), 1001);
}

TEST_F(UnusedVlan, Reaches4059AndThenFallsBackTo3999WithoutALine) {
  add_vlans(1000, 4058);
  EXPECT_EQ(igd_wan_get_unused_vlan(), 4059);
  add_vlans({"4059"});
  support::Transcript transcript;
  EXPECT_EQ(igd_wan_get_unused_vlan(), 3999);
  const std::string text = transcript.text();
  EXPECT_EQ(text.find("\nlog "), std::string::npos);
  EXPECT_EQ(text.find("\n| "), std::string::npos);
}

}  // namespace
