// Several users of one store: what each of them sees, and when.
//
// Two Store objects in one process are as strange to each other as two processes: nothing but the
// files connects them.
#include <chrono>

#include "store/shared_state.h"
#include "store_bench.h"

namespace {

using namespace store_tests;
using host::ReadHold;
using host::SharedState;
using host::Tree;

class StoreSharing : public StoreBench {
 protected:
  StoreSharing() {
    options_.longest_silence_ms = 100000;
    one_ = opened();
    other_ = opened();
  }

  // Another user that does not wait long, for a lock that is taken.
  std::unique_ptr<Store> impatient() {
    options_.lock_timeout_ms = 20;
    return opened();
  }

  // Another user that takes the lock over from whoever is silent.
  std::unique_ptr<Store> successor() {
    options_.longest_silence_ms = 20;
    return opened();
  }

  static void write(Store& store, const std::string& name, const std::string& text) {
    EXPECT_EQ(store.tree().set_value(name, text), 0);
  }

  static void write_and_commit(Store& store, const std::string& name, const std::string& text) {
    write(store, name, text);
    const StoreResult result = store.commit();
    EXPECT_TRUE(result.ok()) << result.text;
  }

  std::unique_ptr<Store> one_, other_;
};

TEST_F(StoreSharing, ShowsACommitToTheNextReadOfOthersAndNothingBefore) {
  write(*one_, kUrl, "x");
  EXPECT_EQ(other_->tree().value(kUrl), "");
  EXPECT_TRUE(one_->commit().ok());
  EXPECT_EQ(other_->tree().value(kUrl), "x");
  EXPECT_EQ(other_->generation(), 2U);
}

TEST_F(StoreSharing, CatchesUpOverMoreChangesThanAreKept) {
  for (int i = 0; i < 25; ++i) write_and_commit(*one_, kUrl, std::to_string(i));
  added(one_->tree(), kBridges);
  one_->tree().delete_object(kBridges + "1.");
  EXPECT_TRUE(one_->commit().ok());
  EXPECT_EQ(lines_of(other_->tree()), lines_of(one_->tree()));
}

TEST_F(StoreSharing, CatchesUpChangeByChange) {
  added(one_->tree(), kBridges);
  EXPECT_TRUE(one_->commit().ok());
  one_->tree().set_value(kBridges + "2.BridgeName", "second");
  EXPECT_TRUE(one_->commit().ok());
  one_->tree().delete_object(kBridges + "1.");
  EXPECT_TRUE(one_->commit().ok());
  EXPECT_EQ(lines_of(other_->tree()), lines_of(one_->tree()));
  EXPECT_EQ(added(other_->tree(), kBridges), kBridges + "3.");
}

TEST_F(StoreSharing, ANameThatAnotherOneMadeCanBeWrittenAtOnce) {
  Tree& tree = other_->tree();
  added(one_->tree(), kBridges);
  EXPECT_TRUE(one_->commit().ok());
  EXPECT_EQ(other_->tree().set_value(kBridges + "2.BridgeName", "x"), 0);
  EXPECT_TRUE(other_->commit().ok());
  EXPECT_EQ(&tree, &other_->tree());
}

// A kept reference still has what its batch then finds gone.
TEST_F(StoreSharing, AWriteIsJudgedOnWhatAnotherOneCommitted) {
  Tree& tree = other_->tree();
  EXPECT_TRUE(one_->tree().delete_object(kBridges + "1.") == 0 && one_->commit().ok());
  EXPECT_NE(tree.set_value(kBridges + "1.BridgeName", "x"), 0);
  other_->discard();
  const std::string bridge_path = added(one_->tree(), kBridges);
  EXPECT_TRUE(one_->commit().ok());
  (void)other_->tree();  // catches up
  EXPECT_TRUE(one_->tree().delete_object(bridge_path) == 0 && one_->commit().ok());
  EXPECT_EQ(added(tree, bridge_path + "Port."), "");
  other_->discard();
  const std::string last_path = added(one_->tree(), kBridges);
  EXPECT_TRUE(one_->commit().ok());
  (void)other_->tree();
  EXPECT_TRUE(one_->tree().delete_object(last_path) == 0 && one_->commit().ok());
  EXPECT_NE(tree.delete_object(last_path), 0);
  EXPECT_EQ(tree.refusals().size(), 3U);
  EXPECT_TRUE(other_->commit().ok());
}

TEST_F(StoreSharing, ReportsOnceThatItCannotFollow) {
  Tree& tree = other_->tree();
  write_and_commit(*one_, kUrl, "x");
  run_sql(path_, "DROP TABLE pending");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(&other_->tree(), &tree);
  EXPECT_EQ(tree.value(kUrl), "");  // as it was
  EXPECT_EQ(reported_, std::vector<std::string>{other_->path() + ": no such table: pending"});
}

// A tree can be large, and what changes in it is little.
TEST_F(StoreSharing, CatchesUpWithoutReadingTheTreeAnew) {
  write_and_commit(*one_, kUrl, "x");
  run_sql(path_, "DROP TABLE object");
  EXPECT_EQ(other_->tree().value(kUrl), "x");
  EXPECT_TRUE(reported_.empty());
}

TEST_F(StoreSharing, GoesBackWithAFileThatWentBack) {
  write_and_commit(*one_, kUrl, "x");
  EXPECT_EQ(other_->tree().value(kUrl), "x");
  run_sql(path_, "DELETE FROM change WHERE generation = 2");
  SharedState(path_).set_counter(2);
  (void)other_->tree();
  EXPECT_EQ(other_->generation(), 1U);
}

TEST_F(StoreSharing, AHoldFreezesTheView) {
  {
    const ReadHold hold(*other_);
    write_and_commit(*one_, kUrl, "x");
    EXPECT_EQ(other_->tree().value(kUrl), "");
  }
  EXPECT_EQ(other_->tree().value(kUrl), "x");
}

TEST_F(StoreSharing, AHoldBeginsWithTheNewestState) {
  write_and_commit(*one_, kUrl, "x");
  const ReadHold hold(*other_);
  EXPECT_EQ(other_->tree().value(kUrl), "x");
}

TEST_F(StoreSharing, TheFirstWriteBuildsOnTheNewestStateEvenUnderAHold) {
  const ReadHold hold(*other_);
  const std::string bridge_path = added(one_->tree(), kBridges);
  EXPECT_TRUE(one_->commit().ok());
  EXPECT_EQ(added(other_->tree(), kBridges), kBridges + "3.");
  EXPECT_TRUE(other_->commit().ok());
  EXPECT_TRUE(one_->tree().has_object(bridge_path));
  EXPECT_TRUE(one_->tree().has_object(kBridges + "3."));
}

TEST_F(StoreSharing, ALockedStoreRefusesTheWholeBatchAtOnceAndSaysSo) {
  auto late = impatient();
  write(*one_, kUrl, "x");
  EXPECT_NE(late->tree().set_value(kUser, "y"), 0);
  EXPECT_EQ(late->tree().refusals().size(), 1U);
  EXPECT_EQ(late->make_checkpoint("midst").error, StoreError::kBatchOpen);
  EXPECT_EQ(late->begin_trial().error, StoreError::kBatchOpen);
  one_->discard();
  EXPECT_NE(late->tree().set_value(kUser, "y"), 0);  // though the lock is free now
  EXPECT_EQ(late->commit().error, StoreError::kLocked);
  EXPECT_TRUE(is_reported("discarded"));
  EXPECT_EQ(late->tree().value(kUser), "");
  write_and_commit(*late, kUser, "y");
  EXPECT_EQ(one_->tree().value(kUser), "y");
}

TEST_F(StoreSharing, LaterWritesOfAPoisonedBatchDoNotWait) {
  options_.lock_timeout_ms = 300;
  auto late = opened();
  write(*one_, kUrl, "x");
  EXPECT_NE(late->tree().set_value(kUser, "y"), 0);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 100; ++i) EXPECT_NE(late->tree().set_value(kUser, "y"), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));  // not 100 waits
}

TEST_F(StoreSharing, ASilentBatchIsDiscardedAsAWholeWhenAnotherOneWaits) {
  auto next = successor();
  added(one_->tree(), kBridges);
  write(*one_, kUrl, "forgotten");
  write_and_commit(*next, kUser, "next");
  EXPECT_NE(one_->tree().set_value(kUrl, "more"), 0);
  EXPECT_EQ(one_->commit().error, StoreError::kMovedOn);
  EXPECT_EQ(lines_of(one_->tree()), lines_of(next->tree()));
  EXPECT_EQ(one_->tree().value(kUser), "next");
  EXPECT_EQ(one_->tree().value(kUrl), "");
}

TEST_F(StoreSharing, ASilentBatchThatCommitsTooLateLandsNothing) {
  auto next = successor();
  write(*one_, kUrl, "forgotten");
  write_and_commit(*next, kUser, "next");
  EXPECT_EQ(one_->commit().error, StoreError::kMovedOn);
  EXPECT_EQ(other_->tree().value(kUrl), "");
  EXPECT_EQ(other_->tree().value(kUser), "next");
}

TEST_F(StoreSharing, ASilentBatchIsGoneFromReadsOnceAnotherOneCommitted) {
  auto next = successor();
  write(*one_, kUrl, "forgotten");
  write_and_commit(*next, kUser, "next");
  EXPECT_EQ(one_->tree().value(kUrl), "");
  EXPECT_EQ(one_->tree().value(kUser), "next");
  EXPECT_EQ(one_->commit().error, StoreError::kMovedOn);
}

TEST_F(StoreSharing, ASilentBatchThatNobodyWaitsForStays) {
  options_.longest_silence_ms = 0;
  auto quiet = opened();
  write(*quiet, kUrl, "x");
  EXPECT_TRUE(quiet->commit().ok());
  EXPECT_EQ(one_->tree().value(kUrl), "x");
}

TEST_F(StoreSharing, AnOddCounterSendsReadersToTheDatabase) {
  SharedState shared(path_);
  write_and_commit(*one_, kUrl, "x");
  shared.set_counter(3);  // as if that commit's process had died before it told anybody
  EXPECT_EQ(other_->tree().value(kUrl), "x");
  EXPECT_EQ(shared.counter(), 4U);
}

TEST_F(StoreSharing, ACounterIsPutRightByWhoeverOpens) {
  SharedState shared(path_);
  shared.set_counter(77);
  opened();
  EXPECT_EQ(shared.counter(), 2U);
}

TEST_F(StoreSharing, TheDatabaseRefusesABatchThatDoesNotFollowTheLastOne) {
  write(*one_, kUrl, "x");
  std::filesystem::remove(path_ + "-shared");  // the worst that can happen to the lock
  auto next = opened();
  write_and_commit(*next, kUser, "next");
  EXPECT_EQ(one_->commit().error, StoreError::kMovedOn);
  EXPECT_EQ(opened()->tree().value(kUser), "next");
  write_and_commit(*one_, kUrl, "after it");
  EXPECT_EQ(one_->tree().value(kUser), "next");
}

}  // namespace
