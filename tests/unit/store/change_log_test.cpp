// What a change log says of the writes it saw, and how it undoes them.
#include "rows/change_log.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "host_platform.h"
#include "rows/tree_rows.h"
#include "tree/tree_access.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::ChangeLog;
using host::RowChanges;
using host::RowSet;
using host::Tree;
using host::TreeAccess;
using host::WriteStep;

class Recorder final : public host::TreeObserver {
 public:
  Admission admit() override { return {refusal.empty() ? nullptr : refusal.c_str(), false}; }
  void added(const std::string& path, const std::string& table_path,
             const std::optional<host::Row>& table_before) override {
    log.added(path, table_path, table_before);
  }
  void deleting(const std::string& path, const RowSet& below) override {
    log.deleting(path, below);
  }
  void setting(const std::string& name, std::string old_text, std::optional<host::Row> before,
               const std::string& text) override {
    log.setting(name, std::move(old_text), std::move(before), text);
  }
  void replaced(const RowSet& before, const RowSet& after) override { log.replaced(before, after); }

  ChangeLog log;
  std::string refusal;
};

class RecordedTree : public testing::Test {
 protected:
  RecordedTree() {
    imported(tree_,
             "InternetGatewayDevice.X_Vendor,true,,,\n"
             "InternetGatewayDevice.X_Vendor.Colour,false,true,red,xsd:string\n"
             "InternetGatewayDevice.X_Vendor.Lamp.3.Lit,false,false,1,xsd:boolean\n"
             "InternetGatewayDevice.Layer3Forwarding.Forwarding.4.X_Own,false,true,a,xsd:int\n"
             "InternetGatewayDevice.Layer2Bridging.Bridge.1.Port.2.PVID,false,true,7,xsd:int\n");
    TreeAccess::observe(tree_, &recorder_);
    before_ = rows();
  }

  static void imported(Tree& tree, const std::string& lines) {
    std::istringstream input("Parameter,Object,Writable,Value,Value type\n" + lines);
    ASSERT_EQ(host::import_csv(tree, input, "dump").error, "");
  }

  RowSet rows() const { return host::rows_of(TreeAccess::store(tree_)); }
  RowChanges net() const { return recorder_.log.net(TreeAccess::store(tree_)); }
  void undo() { recorder_.log.undo(TreeAccess::store(tree_)); }

  Tree tree_;
  Recorder recorder_;
  RowSet before_;
};

TEST_F(RecordedTree, ListsTheWritesInTheirOrder) {
  const std::string bridge_path = added(tree_, kBridges);
  tree_.set_value(bridge_path + "BridgeName", "a");
  tree_.set_value(bridge_path + "BridgeName", "b");
  tree_.delete_object(bridge_path);
  const auto& steps = recorder_.log.steps();
  ASSERT_EQ(steps.size(), 4U);
  EXPECT_EQ(steps[0].kind, WriteStep::Kind::kAdd);
  EXPECT_EQ(steps[0].name, kBridges + "2.");
  EXPECT_EQ(steps[2].kind, WriteStep::Kind::kSet);
  EXPECT_EQ(steps[2].name, kBridges + "2.BridgeName");
  EXPECT_EQ(steps[2].before, "a");
  EXPECT_EQ(steps[2].after, "b");
  EXPECT_EQ(steps[3].kind, WriteStep::Kind::kDelete);
  EXPECT_EQ(steps[3].name, kBridges + "2.");
}

TEST_F(RecordedTree, DoesNotListRefusedWrites) {
  tree_.set_value("Enable", "true");
  tree_.delete_object("");
  added(tree_, "Port.");
  EXPECT_TRUE(recorder_.log.empty());
}

TEST_F(RecordedTree, NetDifferenceOfAnObjectThatCameAndWentIsItsCounter) {
  tree_.delete_object(added(tree_, kBridges));
  const RowChanges changes = net();
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0].name, kBridges);
  EXPECT_EQ(changes[0].before->text, "1");
  EXPECT_EQ(changes[0].after->text, "2");
  EXPECT_TRUE(difference_of(changes).empty());
}

TEST_F(RecordedTree, NetDifferenceOfTextsThatComeBackIsEmpty) {
  const std::string name = kRoot + "ManagementServer.URL";
  tree_.set_value(name, "http://a");
  tree_.set_value(name, "");
  EXPECT_TRUE(net().empty());
}

TEST_F(RecordedTree, SaysInWordsWhatBecameOfObjectsAndTexts) {
  const std::string bridge_path = added(tree_, kBridges);
  tree_.set_value(bridge_path + "VLANID", "7");
  tree_.delete_object(kRoutes + "4.");
  tree_.set_value(kRoot + "X_Vendor.Colour", "blue");
  const host::Difference difference = difference_of(net());
  EXPECT_EQ(difference.added, std::vector<std::string>{bridge_path});
  EXPECT_EQ(difference.deleted, std::vector<std::string>{kRoutes + "4."});
  ASSERT_EQ(difference.values.size(), 2U);
  EXPECT_EQ(difference.values[0].name, bridge_path + "VLANID");
  EXPECT_EQ(difference.values[0].before, "0");
  EXPECT_EQ(difference.values[0].after, "7");
  EXPECT_EQ(difference.values[1].before, "red");
  EXPECT_EQ(difference.values[1].after, "blue");
}

TEST_F(RecordedTree, TellsOfNoTextInADeletedObjectWhateverElseIsInIt) {
  const std::string bridge_path = added(tree_, kBridges);
  added(tree_, bridge_path + "Port.");
  tree_.set_value(bridge_path + "BridgeName", "before its ports");
  tree_.set_value(bridge_path + "X_ZYN_WANName", "behind its ports");
  recorder_.log.clear();
  tree_.delete_object(bridge_path);
  const host::Difference difference = difference_of(net());
  EXPECT_EQ(difference.deleted, (std::vector<std::string>{bridge_path, bridge_path + "Port.1."}));
  EXPECT_TRUE(difference.values.empty());
}

TEST_F(RecordedTree, UndoBringsBackDeletedSubtreesWithCountersAndExtensions) {
  added(tree_, kBridges + "1.Port.");
  tree_.delete_object(kBridges + "1.Port.3.");
  recorder_.log.clear();
  before_ = rows();
  tree_.delete_object(kBridges + "1.");
  tree_.delete_object(kRoot + "X_Vendor.");
  tree_.delete_object(kRoot + "Layer3Forwarding.");
  EXPECT_FALSE(tree_.has_parameter(kRoutes + "4.X_Own"));
  undo();
  EXPECT_EQ(rows(), before_);
  EXPECT_EQ(tree_.value(kBridges + "1.Port.2.PVID"), "7");
  EXPECT_EQ(tree_.describe(kRoutes + "4.X_Own")->type, "int");
  EXPECT_EQ(tree_.describe(kRoot + "X_Vendor.Lamp.3.Lit")->writable, false);
  EXPECT_EQ(added(tree_, kBridges + "1.Port."), kBridges + "1.Port.4.");
}

TEST_F(RecordedTree, UndoGivesTheInstanceNumberBack) {
  added(tree_, kBridges);
  undo();
  EXPECT_EQ(added(tree_, kBridges), kBridges + "2.");
}

TEST_F(RecordedTree, UndoesAnAssignmentAndAnImport) {
  tree_.set_value(kRoot + "X_Vendor.Colour", "blue");
  tree_ = Tree::factory();
  tree_.set_value(kBridges + "1.BridgeName", "other");
  imported(tree_, "InternetGatewayDevice.X_Vendor.Colour,false,true,green,xsd:int\n");
  EXPECT_EQ(recorder_.log.size(), 4U);
  undo();
  EXPECT_EQ(rows(), before_);
}

TEST_F(RecordedTree, ForwardChangesMakeTheSameTreeElsewhere) {
  Tree other = tree_;
  tree_ = Tree::factory();
  added(tree_, kRoutes);
  EXPECT_EQ(apply_changes(TreeAccess::store(other), net()), "");
  EXPECT_EQ(host::rows_of(TreeAccess::store(other)), rows());
}

TEST_F(RecordedTree, RefusesWhatTheObserverDoesNotAdmitAndNotesWhy) {
  recorder_.refusal = "the store is locked";
  EXPECT_NE(tree_.set_value(kRoot + "ManagementServer.URL", "x"), 0);
  EXPECT_NE(tree_.delete_object(kBridges + "1."), 0);
  EXPECT_EQ(added(tree_, kBridges), "");
  tree_ = Tree();
  ASSERT_EQ(tree_.refusals().size(), 4U);
  EXPECT_EQ(tree_.refusals()[0].reason, "the store is locked");
  EXPECT_EQ(rows(), before_);
}

TEST_F(RecordedTree, ACopyIsNotObserved) {
  Tree copy = tree_;
  added(copy, kBridges);
  EXPECT_TRUE(recorder_.log.empty());
}

TEST_F(RecordedTree, ARandomWalkIsUndoneToTheLastRow) {
  std::mt19937 random(7);  // the same walk each time
  for (int round = 0; round < 20; ++round) {
    for (int i = 0; i < 40; ++i) {
      const auto all = tree_.parameters();
      const std::string name = all[random() % all.size()].name;
      const std::string path = name.substr(0, name.rfind('.') + 1);
      const auto choice = random() % 8;
      if (choice == 0) tree_.delete_object(path);
      if (choice == 1) added(tree_, kBridges + "1.Port.");
      if (choice == 2) added(tree_, added(tree_, kWanDevices) + "WANConnectionDevice.");
      if (choice > 2) tree_.set_value(name, std::to_string(random()));
    }
    undo();
    ASSERT_EQ(rows(), before_) << "round " << round;
  }
}

TEST(TreeRows, AreThereOnlyForWhatDiffersFromAnEmptyTree) {
  const Tree tree;
  EXPECT_TRUE(host::rows_of(TreeAccess::store(tree)).empty());
}

TEST(TreeRows, RowsThatFitNoTreeAreRefused) {
  const char* const names[] = {"",
                               ".",
                               "Other.1.",
                               "InternetGatewayDevice.WANDevice.0.",
                               "InternetGatewayDevice.WANDevice.1.Enable",
                               "InternetGatewayDevice.NoSuchParameter"};
  for (const char* name : names) {
    host::TreeStore store;
    EXPECT_NE(host::tree_from({{name, {"1", "object"}}}, store), "") << name;
  }
}

std::string why_no_tree(const std::string& instance, const std::string& counter) {
  host::TreeStore store;
  return host::tree_from(
      {{"InternetGatewayDevice.WANDevice." + instance + ".", {counter, "object"}}}, store);
}

TEST(TreeRows, AnInstanceNumberIsAPositiveInt) {
  for (const char* number : {"1", "2147483647"}) EXPECT_EQ(why_no_tree(number, "0"), "") << number;
  for (const char* number : {"0", "01", "2147483648", "4294967297", "18446744073709551617"}) {
    EXPECT_EQ(why_no_tree(number, "0"), "InternetGatewayDevice.WANDevice." + std::string(number) +
                                            ". has no instance number");
  }
}

TEST(TreeRows, ACounterIsAnIntInDigits) {
  for (const char* counter : {"0", "1", "2147483647"}) EXPECT_EQ(why_no_tree("1", counter), "");
  for (const char* counter : {"", "-1", "+1", " 1", "1 ", "1x", "x", "1.0", "0x1", "2147483648",
                              "4294967297", "18446744073709551617"}) {
    EXPECT_EQ(why_no_tree("1", counter), "InternetGatewayDevice.WANDevice.1. has no counter")
        << counter;
  }
  EXPECT_NE(why_no_tree("1", std::string("1\0", 2)), "");
}

}  // namespace
