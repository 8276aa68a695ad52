// Trials: everything can be seen before it is accepted, and discarded without a trace.
#include "store_bench.h"

namespace {

using namespace store_tests;
using host::WriteStep;

class StoreTrial : public StoreBench {
 protected:
  StoreTrial() : store_(opened()) {}

  std::unique_ptr<Store> store_;
};

TEST_F(StoreTrial, HoldsCommitsBackUntilItIsAccepted) {
  auto other = opened();
  EXPECT_TRUE(store_->begin_trial().ok());
  EXPECT_TRUE(store_->in_trial());
  store_->tree().set_value(kUrl, "x");
  EXPECT_TRUE(store_->commit().ok());
  store_->tree().set_value(kUser, "y");
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_EQ(other->tree().value(kUrl), "");
  EXPECT_EQ(store_->tree().value(kUrl), "x");
  EXPECT_TRUE(store_->accept("both").ok());
  EXPECT_FALSE(store_->in_trial());
  EXPECT_EQ(other->tree().value(kUrl), "x");
  EXPECT_EQ(other->tree().value(kUser), "y");
  EXPECT_EQ(other->generation(), 2U);
}

TEST_F(StoreTrial, ListsItsWritesInOrderAndWhatTheyComeTo) {
  EXPECT_TRUE(store_->begin_trial().ok());
  const std::string path = added(store_->tree(), kBridges);
  store_->tree().set_value(path + "BridgeName", "a");
  (void)store_->commit();
  store_->tree().set_value(path + "BridgeName", "b");
  store_->tree().delete_object(kBridges + "1.");
  store_->tree().set_value("Enable", "refused");
  ASSERT_EQ(store_->plan().size(), 4U);
  EXPECT_EQ(store_->plan()[0].kind, WriteStep::Kind::kAdd);
  EXPECT_EQ(store_->plan()[2].before, "a");
  EXPECT_EQ(store_->plan()[2].after, "b");
  EXPECT_EQ(store_->plan()[3].kind, WriteStep::Kind::kDelete);
  const host::Difference difference = store_->difference();
  EXPECT_EQ(difference.added, std::vector<std::string>{path});
  ASSERT_EQ(difference.deleted.size(), 9U);  // the LAN bridge and its eight ports
  EXPECT_EQ(difference.deleted.front(), kBridges + "1.");
  ASSERT_EQ(difference.values.size(), 1U);
  EXPECT_EQ(difference.values[0].after, "b");
}

TEST_F(StoreTrial, IsDiscardedWithoutATrace) {
  const auto before = lines_of(store_->tree());
  EXPECT_TRUE(store_->begin_trial().ok());
  added(store_->tree(), kBridges);
  store_->tree().delete_object(kBridges + "1.");
  (void)store_->commit();
  store_->discard();
  EXPECT_FALSE(store_->in_trial());
  EXPECT_EQ(lines_of(store_->tree()), before);
  EXPECT_EQ(added(store_->tree(), kBridges), kBridges + "2.");
  store_->discard();
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_EQ(store_->generation(), 1U);
  EXPECT_TRUE(store_->plan().empty());
}

TEST_F(StoreTrial, HoldsTheWriteLockFromItsBeginning) {
  EXPECT_TRUE(store_->begin_trial().ok());
  options_.lock_timeout_ms = 20;
  auto other = opened();
  EXPECT_EQ(other->begin_trial().error, StoreError::kLocked);
  EXPECT_FALSE(other->in_trial());
  store_->discard();
  EXPECT_TRUE(other->begin_trial().ok());
}

TEST_F(StoreTrial, BeginsOnTheNewestState) {
  auto other = opened();
  const host::ReadHold hold(*other);
  store_->tree().set_value(kUrl, "x");
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_TRUE(other->begin_trial().ok());
  EXPECT_EQ(other->tree().value(kUrl), "x");
}

TEST_F(StoreTrial, IsNotBegunTwiceNorInTheMidstOfABatch) {
  EXPECT_EQ(store_->accept().error, StoreError::kNoTrial);
  EXPECT_TRUE(store_->begin_trial().ok());
  EXPECT_EQ(store_->begin_trial().error, StoreError::kTrialOpen);
  store_->discard();
  store_->tree().set_value(kUrl, "x");
  EXPECT_EQ(store_->begin_trial().error, StoreError::kBatchOpen);
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_EQ(store_->tree().value(kUrl), "x");
}

TEST_F(StoreTrial, ThatLostTheLockFailsEveryCommitAndIsNotAccepted) {
  options_.longest_silence_ms = 0;
  auto next = opened();
  EXPECT_TRUE(store_->begin_trial().ok());
  store_->tree().set_value(kUrl, "forgotten");
  next->tree().set_value(kUser, "next");
  EXPECT_TRUE(next->commit().ok());
  EXPECT_NE(store_->tree().set_value(kUrl, "more"), 0);
  EXPECT_EQ(store_->commit().error, StoreError::kMovedOn);
  EXPECT_EQ(store_->commit().error, StoreError::kMovedOn);
  EXPECT_NE(store_->tree().set_value(kUrl, "more"), 0);
  EXPECT_EQ(store_->accept().error, StoreError::kMovedOn);
  EXPECT_EQ(store_->tree().value(kUrl), "");
  EXPECT_EQ(store_->tree().value(kUser), "next");
}

}  // namespace
