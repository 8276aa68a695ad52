// The doctor's findings, each on a tree that has it; a tree without any has none.
#include "doctor_test.h"

#include <gtest/gtest.h>

#include "doctor/doctor_rules.h"

namespace {

using namespace igdctl;
using igdctl_tests::Doctor;
using igdctl_tests::Words;
using support::wan_path;

TEST_F(Doctor, FindsNothingInATreeThatTheLibraryMade) {
  EXPECT_EQ(codes(), Words{});
  add_route("198.51.100.0", "255.255.255.0", "192.0.2.1", "");
  add_route("203.0.113.0", "255.255.255.0", "", internet_);
  EXPECT_EQ(codes(), Words{});
}

TEST_F(Doctor, FindsABridgeThatNamesNoConnection) {
  const std::string path = add_bridge("br_7_7", "", "70", "802.1Q");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "orphan-bridge");
  EXPECT_EQ(finding.where, path);
  EXPECT_NE(finding.message.find("names no connection"), std::string::npos);
  EXPECT_EQ(finding.fixes, Words{"bridge remove br_7_7"});
}

TEST_F(Doctor, FindsABridgeThatNamesAConnectionWhichIsNotThere) {
  add_bridge("br_7_7", wan_path(7, 7), "70", "802.1Q");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "orphan-bridge");
  EXPECT_NE(finding.message.find(wan_path(7, 7)), std::string::npos);
}

TEST_F(Doctor, NamesABridgeByItsPathWhenItsNameIsNoPlainWord) {
  const std::string path = add_bridge("two words", "");
  EXPECT_EQ(only().fixes, Words{"bridge remove " + path});
}

TEST_F(Doctor, FindsABridgeWhoseNameDoesNotFitItsConnection) {
  const std::string path = bridge_named("br_1_1");
  set(path + "BridgeName", "br_9_9");
  const std::vector<Finding> findings = found();
  ASSERT_EQ(codes(), (Words{"misnamed-bridge", "connection-without-bridge"}));
  EXPECT_EQ(findings[0].where, path);
  EXPECT_EQ(findings[0].fixes, Words{"tree set " + path + "BridgeName br_1_1"});
  EXPECT_EQ(findings[1].where, internet_);
  EXPECT_EQ(findings[1].fixes, findings[0].fixes);
}

TEST_F(Doctor, FindsASecondBridgeForOneConnection) {
  add_bridge("br_9_9", internet_, "9", "802.1Q");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "misnamed-bridge");
  EXPECT_EQ(finding.fixes, Words{"bridge remove br_9_9"});
}

TEST_F(Doctor, NeverRenamesTheLanBridge) {
  const std::string path = bridge_named("internet");
  set(path + "X_ZYN_WANName", internet_);
  const Finding finding = only();
  EXPECT_EQ(finding.code, "misnamed-bridge");
  EXPECT_EQ(finding.fixes, Words{"tree set " + path + "X_ZYN_WANName ''"});
}

TEST_F(Doctor, FindsAPortInTwoBridges) {
  add_port(bridge_named("br_1_1"), "LAN3", "", "100");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "port-in-two-bridges");
  EXPECT_NE(finding.message.find("LAN3"), std::string::npos);
  EXPECT_EQ(finding.fixes, Words{"bridge move LAN3 br_1_1"});
}

TEST_F(Doctor, AsksForConsentWhereTheManagementIsAtStake) {
  add_port(bridge_named("br_1_2"), "LAN3", "", "46");
  EXPECT_EQ(only().fixes, Words{"bridge move LAN3 br_1_2 --confirm 300"});
}

TEST_F(Doctor, TakesUplinksInSeveralBridgesAsTheyAre) {
  // LAN0 is in the bridges of both connections.
  EXPECT_EQ(ports_of(bridge_named("br_1_1")), Words{"LAN0"});
  EXPECT_EQ(ports_of(bridge_named("br_1_2")), Words{"LAN0"});
  EXPECT_EQ(codes(), Words{});
}

TEST_F(Doctor, FindsAPortBoundToAConnectionWhichIsNotThere) {
  const std::string port = port_of_lan1();
  set(port + "X_ZYN_DependWanName", wan_path(7, 7));
  const Finding finding = only();
  EXPECT_EQ(finding.code, "stale-binding");
  EXPECT_EQ(finding.where, port);
  EXPECT_EQ(finding.fixes, Words{"bridge move LAN1 internet"});
}

TEST_F(Doctor, FindsAConnectionWithoutABridge) {
  EXPECT_EQ(tree_.delete_object(bridge_named("br_1_1")), 0);
  const Finding finding = only();
  EXPECT_EQ(finding.code, "connection-without-bridge");
  EXPECT_EQ(finding.where, internet_);
  EXPECT_EQ(finding.fixes, Words{"bridge create Internet"});
}

TEST_F(Doctor, FindsAConnectionWithoutAnEnabledObject) {
  set(internet_ + "WANPPPConnection.1.Enable", "false");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "no-enabled-object");
  EXPECT_EQ(finding.fixes, Words{"wan set Internet --mode dhcp"});
}

TEST_F(Doctor, FindsAConnectionWithSeveralEnabledObjects) {
  set(internet_ + "WANIPConnection.1.Enable", "true");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "several-enabled-objects");
  EXPECT_EQ(finding.fixes, Words{"wan set Internet --mode pppoe"});
}

TEST_F(Doctor, FindsTwoConnectionsWithOneVlan) {
  set(bridge_named("br_1_2") + "VLANID", "100");
  set(bridge_named("internet") + "VLANID", "1000");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "vlan-twice");
  EXPECT_EQ(finding.where, bridge_named("br_1_2"));
  EXPECT_EQ(finding.fixes, Words{"wan set Management --vlan 1001 --confirm 300"});
}

TEST_F(Doctor, GivesEachConnectionAVlanOfItsOwn) {
  set(bridge_named("br_1_2") + "VLANID", "100");
  create(support::bridged("Television", 100, {}));
  const std::vector<Finding> findings = found();
  ASSERT_EQ(codes(), (Words{"vlan-twice", "vlan-twice"}));
  EXPECT_EQ(findings[0].fixes, Words{"wan set Management --vlan 1000 --confirm 300"});
  EXPECT_EQ(findings[1].fixes, Words{"wan set Television --vlan 1001"});
}

TEST_F(Doctor, FindsTwoConnectionsWithOneMark) {
  Snapshot snapshot;
  (void)support::printed_by([&] { snapshot = read_snapshot(*getContext()->mibAccess()); });
  EXPECT_EQ(snapshot.connections[0].mark, 31U);  // br_1_1: 1 * 30 + 1
  EXPECT_EQ(snapshot.connections[1].mark, 32U);
  EXPECT_TRUE(examine(snapshot).empty());
  snapshot.connections[1].mark = 31;
  const std::vector<Finding> findings = examine(snapshot);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].code, "mark-twice");
  EXPECT_EQ(findings[0].where, management_);
  EXPECT_EQ(findings[0].fixes, Words{"wan remove Management --confirm 300"});
}

TEST_F(Doctor, FindsTwoConnectionsWithOneName) {
  (void)support::printed_by([&] {
    for (const char* const object :
         {"WANIPConnection.1.", "WANIPConnection.2.", "WANPPPConnection.1."}) {
      set(management_ + object + "Name", "Internet");
    }
  });
  const Finding finding = only();
  EXPECT_EQ(finding.code, "name-twice");
  EXPECT_EQ(finding.fixes, Words{"wan set 1.2 --name=Internet2 --confirm 300"});
}

TEST_F(Doctor, FindsSeveralConnectionsWithTheManagementService) {
  api_wan_info second = support::dhcp_management("Spare", 47);
  second.service_type = "VOIP,TR069";
  create(second);
  const Finding finding = only();
  EXPECT_EQ(finding.code, "management-twice");
  EXPECT_EQ(finding.fixes, Words{"wan set Spare --service VOIP --confirm 300"});
}

TEST_F(Doctor, OnAGatewayConsentIsGivenAtOnce) {
  create(support::dhcp_management("Spare", 47));
  Snapshot snapshot;
  (void)support::printed_by([&] { snapshot = read_snapshot(*getContext()->mibAccess()); });
  snapshot.has_store = false;
  const std::vector<Finding> findings = examine(snapshot);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].fixes, Words{"wan set Spare --service OTHER --yes"});
}

TEST(ShellWord, QuotesWhatAShellWouldActOn) {
  EXPECT_EQ(shell_word("br_1_2"), "br_1_2");
  EXPECT_EQ(shell_word(""), "''");
  EXPECT_EQ(shell_word("a b"), "'a b'");
  EXPECT_EQ(shell_word("it's $(reboot)"), "'it'\\''s $(reboot)'");
}

TEST_F(Doctor, NamesAConnectionByItsNumbersWhenItsNameIsNoPlainWord) {
  set(internet_ + "WANPPPConnection.1.Name", "$(reboot)");
  EXPECT_EQ(tree_.delete_object(bridge_named("br_1_1")), 0);
  EXPECT_EQ(only().fixes, Words{"bridge create 1.1"});
  // A name that is the numbers of another leaves the path alone.
  set(management_ + "WANIPConnection.2.Name", "1.1");
  EXPECT_EQ(only().fixes, Words{"bridge create " + internet_});
}

}  // namespace
