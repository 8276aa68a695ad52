// A batch builds on what its process read: no update is lost without a word.
#include <chrono>
#include <functional>
#include <thread>

#include "store_bench.h"

namespace {

using namespace store_tests;
using host::Tree;

class StoreReads : public StoreBench {
 protected:
  StoreReads() {
    options_.lock_timeout_ms = 20;
    one_ = opened();
    other_ = opened();
  }

  static void write_and_commit(Store& store, const std::string& name, const std::string& text) {
    EXPECT_EQ(store.tree().set_value(name, text), 0);
    const StoreResult result = store.commit();
    EXPECT_TRUE(result.ok()) << result.text;
  }

  std::unique_ptr<Store> one_, other_;
};

TEST_F(StoreReads, AWriteOnWhatAnotherProcessChangedSinceIsRefusedAndNothingLands) {
  EXPECT_EQ(one_->tree().value(kUrl), "");
  write_and_commit(*other_, kUrl, "1");
  EXPECT_NE(one_->tree().set_value(kUrl, "also 1"), 0);
  EXPECT_NE(one_->tree().set_value(kUser, "x"), 0);
  EXPECT_EQ(one_->commit().error, StoreError::kMovedOn);
  EXPECT_TRUE(is_reported("last read"));
  EXPECT_EQ(one_->tree().value(kUrl), "1");
  EXPECT_EQ(one_->tree().value(kUser), "");
  write_and_commit(*one_, kUrl, "2");
  EXPECT_EQ(other_->tree().value(kUrl), "2");
}

TEST_F(StoreReads, ReadsThroughAKeptReferenceCount) {
  Tree& tree = one_->tree();
  EXPECT_EQ(tree.value(kUrl), "");
  write_and_commit(*other_, kUrl, "1");
  EXPECT_NE(tree.set_value(kUrl, "also 1"), 0);
  EXPECT_EQ(one_->commit().error, StoreError::kMovedOn);
}

TEST_F(StoreReads, TheLastReadCountsNotTheOnesBefore) {
  EXPECT_EQ(one_->tree().value(kUrl), "");
  write_and_commit(*other_, kUrl, "1");
  EXPECT_EQ(one_->tree().value(kUrl), "1");
  write_and_commit(*one_, kUrl, "2");
}

TEST_F(StoreReads, AWriteWithoutAReadGoesThrough) {
  write_and_commit(*other_, kUrl, "1");
  write_and_commit(*one_, kUser, "x");
  EXPECT_EQ(one_->tree().value(kUrl), "1");
}

TEST_F(StoreReads, AnOldReadDoesNotCount) {
  options_.reads_count_ms = 30;
  auto slow = opened();
  EXPECT_EQ(slow->tree().value(kUrl), "");
  write_and_commit(*other_, kUrl, "1");
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  write_and_commit(*slow, kUser, "x");
}

TEST_F(StoreReads, WhatWasReadForABatchDoesNotCountForTheNext) {
  EXPECT_EQ(one_->tree().value(kUrl), "");
  write_and_commit(*one_, kUrl, "1");
  write_and_commit(*other_, kUrl, "2");
  write_and_commit(*one_, kUser, "x");
  EXPECT_EQ(one_->tree().value(kUrl), "2");
  one_->tree().set_value(kUser, "y");
  one_->discard();
  write_and_commit(*other_, kUrl, "3");
  write_and_commit(*one_, kUser, "z");
}

// A commit that has nothing to commit ends no batch.
TEST_F(StoreReads, WhatWasReadBeforeAnEmptyCommitStillCounts) {
  EXPECT_EQ(one_->tree().value(kUrl), "");
  EXPECT_TRUE(one_->commit().ok());
  write_and_commit(*other_, kUrl, "1");
  EXPECT_NE(one_->tree().set_value(kUrl, "also 1"), 0);
}

TEST_F(StoreReads, EveryWayToLookAtTheTreeCounts) {
  const std::function<void(const Tree&)> ways[] = {
      [](const Tree& tree) { (void)tree.value(kUrl); },
      [](const Tree& tree) { (void)tree.instances(kForwardingInterface); },
      [](const Tree& tree) { (void)tree.has_object(kBridges + "1."); },
      [](const Tree& tree) { (void)tree.has_parameter(kUrl); },
      [](const Tree& tree) { (void)tree.describe(kUrl); },
      [](const Tree& tree) { (void)tree.parameters(kUrl); },
      [](const Tree& tree) { (void)tree.objects(); },
      [](const Tree& tree) { const Tree copy(tree); },
  };
  int n = 0;
  for (const auto& look : ways) {
    look(one_->tree());
    write_and_commit(*other_, kUrl, std::to_string(++n));
    EXPECT_NE(one_->tree().set_value(kUser, "x"), 0) << "way " << n;
    EXPECT_EQ(one_->commit().error, StoreError::kMovedOn) << "way " << n;
  }
}

TEST_F(StoreReads, RefusalsAndGenerationAreNoReads) {
  (void)one_->tree().refusals();
  (void)one_->generation();
  write_and_commit(*other_, kUrl, "1");
  write_and_commit(*one_, kUser, "x");
}

TEST_F(StoreReads, WhatThisProcessRevertedItselfIsNoSurprise) {
  EXPECT_TRUE(one_->begin_trial().ok());
  one_->tree().set_value(kUrl, "tried");
  EXPECT_TRUE(one_->accept_pending(60).ok());
  EXPECT_EQ(one_->tree().value(kUrl), "tried");
  EXPECT_TRUE(one_->revert().ok());
  write_and_commit(*one_, kUser, "x");
}

TEST_F(StoreReads, BeginShowsTheNewestStateAndNobodyComesBetween) {
  EXPECT_EQ(one_->tree().value(kUrl), "");
  write_and_commit(*other_, kUrl, "1");
  ASSERT_TRUE(one_->begin().ok());
  EXPECT_EQ(one_->tree().value(kUrl), "1");
  EXPECT_NE(other_->tree().set_value(kUrl, "between"), 0);
  EXPECT_EQ(other_->commit().error, StoreError::kLocked);
  write_and_commit(*one_, kUrl, "2");
  EXPECT_EQ(other_->tree().value(kUrl), "2");
}

TEST_F(StoreReads, ABegunBatchEndsWithItsCommitOrDiscard) {
  ASSERT_TRUE(one_->begin().ok());
  EXPECT_EQ(one_->begin().error, StoreError::kBatchOpen);
  EXPECT_EQ(one_->begin_trial().error, StoreError::kBatchOpen);
  EXPECT_TRUE(one_->commit().ok());
  EXPECT_EQ(one_->generation(), 1U);
  ASSERT_TRUE(one_->begin().ok());
  one_->discard();
  write_and_commit(*other_, kUrl, "1");
}

TEST_F(StoreReads, BeginIsRefusedWhereABatchCouldNotLand) {
  ASSERT_TRUE(one_->begin_trial().ok());
  EXPECT_EQ(one_->begin().error, StoreError::kTrialOpen);
  EXPECT_EQ(other_->begin().error, StoreError::kLocked);
  one_->tree().set_value(kUrl, "tried");
  EXPECT_TRUE(one_->accept_pending(60).ok());
  EXPECT_EQ(other_->begin().error, StoreError::kPending);
  EXPECT_TRUE(other_->confirm().ok());
  EXPECT_TRUE(other_->begin().ok());
}

}  // namespace
