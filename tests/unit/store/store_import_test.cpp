// Imports into the tree of a live store: one trial, or one batch.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "csv_dump.h"
#include "rows/tree_rows.h"
#include "store_bench.h"
#include "tree/tree_access.h"
#include "tree_text.h"

namespace {

using namespace store_tests;
using host::RowSet;
using host::Tree;
using host::WriteStep;

// Everything of a tree: its rows, counters included, and what can be told of it.
struct WholeState {
  RowSet rows;
  std::string text;
  bool operator==(const WholeState& other) const {
    return rows == other.rows && text == other.text;
  }
};

WholeState state_of(Tree& tree) {
  return {rows_of(host::TreeAccess::store(tree)), whole_text(tree)};
}

class StoreImport : public StoreBench {
 protected:
  StoreImport() : store_(opened()), dump_(folder_ + "/tree.csv") {
    // What the dump has to put in the place of what the store has: both sides own objects, values,
    // extensions and counters that the other one lacks.
    Tree dumped = tree_of(
        "InternetGatewayDevice.User.3.Username,false,true,someone,xsd:string\n"
        "InternetGatewayDevice.X_A_Both,false,true,1,xsd:unsignedInt\n"
        "InternetGatewayDevice.X_A_Kind.2.Name,false,true,table,xsd:string\n");
    for (int i = 0; i < 4; ++i) added(dumped, kBridges);
    dumped.delete_object(kBridges + "4.");
    dumped.delete_object(added(dumped, kRoutes));
    dumped.set_value(kBridges + "1.BridgeName", std::string("a\0b\r\n\"", 6));
    dumped.set_value(kUrl, "http://dumped/");
    EXPECT_TRUE(host::export_csv_file(dumped, dump_).ok);
    dumped_ = state_of(dumped);

    Tree own = tree_of(
        "InternetGatewayDevice.X_A_Own.1.Name,false,true,own,xsd:string\n"
        "InternetGatewayDevice.X_A_Both,false,false,both,xsd:string\n"
        "InternetGatewayDevice.X_A_Kind,true,true,,\n");
    for (int i = 0; i < 2; ++i) added(own, kWanDevices);
    own.delete_object(kWanDevices + "2.");
    own.set_value(kUser, "own");
    store_->tree() = own;
    EXPECT_TRUE(store_->commit().ok());
    before_ = state_of(store_->tree());
    lines_before_ = lines_of(store_->tree());
  }

  static Tree tree_of(const std::string& rows) {
    Tree tree;
    std::istringstream input("Parameter,Object,Writable,Value,Value type\n" + rows);
    EXPECT_TRUE(host::import_csv(tree, input, "dump").ok);
    return tree;
  }

  bool is_dumped(Tree& tree) const { return state_of(tree) == dumped_; }
  bool is_as_before(Tree& tree) const { return state_of(tree) == before_; }

  void reopen() {
    store_.reset();
    store_ = opened();
  }

  std::unique_ptr<Store> store_;
  std::string dump_;
  WholeState dumped_;
  WholeState before_;
  std::vector<std::string> lines_before_;
};

TEST_F(StoreImport, InATrialShowsBeforeItIsAccepted) {
  ASSERT_TRUE(store_->begin_trial().ok());
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  EXPECT_TRUE(is_dumped(store_->tree()));
  ASSERT_EQ(store_->plan().size(), 1U);
  EXPECT_EQ(store_->plan()[0].kind, WriteStep::Kind::kReplace);
  EXPECT_EQ(store_->plan()[0].name, kRoot);

  const host::Difference difference = store_->difference();
  const std::vector<std::string> new_objects = {kBridges + "1.",   kBridges + "2.",
                                                kBridges + "3.",   kRoot + "User.",
                                                kRoot + "User.3.", kRoot + "X_A_Kind.2."};
  EXPECT_EQ(difference.added, new_objects);
  const std::vector<std::string> gone = {kWanDevices + "1.", kRoot + "X_A_Own.",
                                         kRoot + "X_A_Own.1."};
  EXPECT_EQ(difference.deleted, gone);
  const auto change_of = [&difference](const std::string& name) {
    const auto found =
        std::find_if(difference.values.begin(), difference.values.end(),
                     [&name](const host::ValueChange& change) { return change.name == name; });
    return found != difference.values.end() ? found->before + " -> " + found->after : "none";
  };
  EXPECT_EQ(change_of(kUrl), " -> http://dumped/");
  EXPECT_EQ(change_of(kUser), "own -> ");
  EXPECT_EQ(change_of(kRoot + "X_A_Both"), "both -> 1");
}

TEST_F(StoreImport, InATrialIsHeldBackFromOthersAndTheFile) {
  auto other = opened();
  ASSERT_TRUE(store_->begin_trial().ok());
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_TRUE(is_as_before(other->tree()));
  reopen();
  EXPECT_TRUE(is_as_before(store_->tree()));
}

TEST_F(StoreImport, OfAnAcceptedTrialLandsWhole) {
  auto other = opened();
  ASSERT_TRUE(store_->begin_trial().ok());
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  EXPECT_TRUE(store_->accept("import").ok());
  EXPECT_TRUE(is_dumped(store_->tree()));
  EXPECT_TRUE(is_dumped(other->tree()));
  EXPECT_EQ(store_->generation(), 3U);  // made, what it had of its own, imported
  reopen();
  EXPECT_TRUE(is_dumped(store_->tree()));
}

TEST_F(StoreImport, OfADiscardedTrialLeavesNoTrace) {
  ASSERT_TRUE(store_->begin_trial().ok());
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  added(store_->tree(), kBridges);
  store_->tree().delete_object(kRoot + "User.3.");
  store_->discard();
  EXPECT_TRUE(is_as_before(store_->tree()));
  EXPECT_EQ(added(store_->tree(), kWanDevices), kWanDevices + "3.");
  EXPECT_EQ(added(store_->tree(), kBridges), kBridges + "1.");
  store_->discard();
  reopen();
  EXPECT_TRUE(is_as_before(store_->tree()));
}

TEST_F(StoreImport, OfARevertedTrialLeavesTheOldContent) {
  ASSERT_TRUE(store_->begin_trial().ok());
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  ASSERT_TRUE(store_->accept_pending(60, "import").ok());
  EXPECT_TRUE(is_dumped(store_->tree()));
  ASSERT_TRUE(store_->revert().ok());
  EXPECT_EQ(lines_of(store_->tree()), lines_before_);
  // The counters that the import raised stay: no number is handed out twice.
  EXPECT_EQ(added(store_->tree(), kBridges), kBridges + "5.");
}

TEST_F(StoreImport, WithoutATrialIsOneBatch) {
  auto other = opened();
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  EXPECT_TRUE(is_as_before(other->tree()));
  EXPECT_EQ(store_->plan().size(), 1U);
  EXPECT_TRUE(store_->commit("import").ok());
  EXPECT_EQ(store_->generation(), 3U);
  EXPECT_TRUE(is_dumped(other->tree()));
  reopen();
  EXPECT_TRUE(is_dumped(store_->tree()));
  EXPECT_EQ(added(store_->tree(), kBridges), kBridges + "5.");
  EXPECT_EQ(added(store_->tree(), kRoutes), kRoutes + "2.");
  EXPECT_EQ(added(store_->tree(), kWanDevices), kWanDevices + "1.");
}

TEST_F(StoreImport, ThatIsNotCommittedIsGone) {
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  reopen();
  EXPECT_TRUE(is_as_before(store_->tree()));
  EXPECT_TRUE(is_reported("1 writes were not committed and are lost"));
}

TEST_F(StoreImport, OfWhatTheStoreHasAlreadyChangesNothing) {
  ASSERT_TRUE(host::export_csv_file(store_->tree(), dump_).ok);
  ASSERT_TRUE(store_->begin_trial().ok());
  ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_).ok);
  EXPECT_TRUE(store_->difference().empty());
  EXPECT_TRUE(store_->accept().ok());
  EXPECT_EQ(store_->generation(), 2U);
  EXPECT_TRUE(is_as_before(store_->tree()));
}

TEST_F(StoreImport, OfAMalformedFileChangesAndPoisonsNothing) {
  std::ofstream(dump_, std::ios::app) << "InternetGatewayDevice.X,maybe,,,,,\n";
  ASSERT_TRUE(store_->begin_trial().ok());
  store_->tree().set_value(kUrl, "mine");
  const WholeState mine = state_of(store_->tree());
  const host::ImportResult result = host::import_csv_file(store_->tree(), dump_);
  EXPECT_FALSE(result.ok);
  EXPECT_NE(result.error.find("X: Object is neither true nor false"), std::string::npos);
  EXPECT_TRUE(state_of(store_->tree()) == mine);
  EXPECT_EQ(store_->plan().size(), 1U);
  EXPECT_TRUE(store_->accept().ok());
  reopen();
  EXPECT_TRUE(state_of(store_->tree()) == mine);
}

TEST_F(StoreImport, OfAMalformedFileOpensNoBatch) {
  write_file(dump_, "broken\n");
  EXPECT_FALSE(host::import_csv_file(store_->tree(), dump_).ok);
  EXPECT_TRUE(is_as_before(store_->tree()));
  EXPECT_TRUE(store_->begin_trial().ok());  // kBatchOpen otherwise
}

TEST_F(StoreImport, IntoALockedStoreIsRefusedWithTheReason) {
  options_.lock_timeout_ms = 20;
  auto other = opened();
  ASSERT_TRUE(store_->begin_trial().ok());
  const host::ImportResult result = host::import_csv_file(other->tree(), dump_);
  EXPECT_FALSE(result.ok);
  EXPECT_TRUE(result.notes.empty());
  EXPECT_TRUE(is_as_before(other->tree()));
  ASSERT_FALSE(other->tree().refusals().empty());
  EXPECT_EQ(other->tree().refusals().back().call, "replace");
  EXPECT_NE(result.error.find(other->tree().refusals().back().reason), std::string::npos);
  EXPECT_EQ(other->commit().error, StoreError::kLocked);
}

TEST_F(StoreImport, OfOneRealDumpOverAnotherIsDiscardedWithoutATrace) {
  const char* const names[] = {"igd-bm632w.csv", "igd-w5-2100g.csv", "igd-ec220-g5-v2.csv"};
  for (const char* own : names) {
    if (dump_file(own).empty()) GTEST_SKIP() << own << " is not in the dump folder";
    ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_file(own)).ok);
    ASSERT_TRUE(store_->commit(own).ok());
    const WholeState before = state_of(store_->tree());
    for (const char* other : names) {
      ASSERT_TRUE(store_->begin_trial().ok());
      ASSERT_TRUE(host::import_csv_file(store_->tree(), dump_file(other)).ok);
      store_->discard();
      EXPECT_TRUE(state_of(store_->tree()) == before) << other << " over " << own;
    }
  }
}

TEST_F(StoreImport, OfEveryRealDumpSurvivesReopeningAndExport) {
  for (const char* name : {"igd-bm632w.csv", "igd-w5-2100g.csv", "igd-ec220-g5-v2.csv"}) {
    const std::string file = dump_file(name);
    if (file.empty()) GTEST_SKIP() << name << " is not in the dump folder";
    Tree expected;
    ASSERT_TRUE(host::import_csv_file(expected, file).ok);
    ASSERT_TRUE(host::import_csv_file(store_->tree(), file).ok);
    ASSERT_TRUE(store_->commit(name).ok());
    reopen();
    EXPECT_TRUE(state_of(store_->tree()) == state_of(expected)) << name;
    ASSERT_TRUE(host::export_csv_file(store_->tree(), dump_).ok);
    Tree copy;
    ASSERT_TRUE(host::import_csv_file(copy, dump_).ok);
    EXPECT_TRUE(state_of(copy) == state_of(expected)) << name;
  }
}

}  // namespace
