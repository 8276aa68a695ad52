// Changes that stay only when they are confirmed in time.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>

#include "store_bench.h"

namespace {

using namespace store_tests;

constexpr int kMinute = 60;

class StorePending : public StoreBench {
 protected:
  StorePending() {
    options_.clock = [this] { return time_; };
    store_ = opened();
  }

  void pass(int seconds) { time_.milliseconds += std::int64_t{1000} * seconds; }

  StoreResult accept(Store& store, const std::string& text) {
    EXPECT_TRUE(store.begin_trial().ok());
    store.tree().set_value(kUrl, text);
    return store.accept_pending(kMinute, "url");
  }

  host::BootTime time_ = {"this-boot", 5000000};
  std::unique_ptr<Store> store_;
};

TEST_F(StorePending, IsInEffectUntilTheDeadlineAndThenReverted) {
  auto other = opened();
  EXPECT_TRUE(accept(*store_, "x").ok());
  EXPECT_EQ(other->tree().value(kUrl), "x");
  EXPECT_EQ(other->pending()->milliseconds_left, 60000);
  EXPECT_EQ(other->pending()->label, "url");
  pass(kMinute - 1);
  EXPECT_EQ(store_->tree().value(kUrl), "x");
  pass(1);
  EXPECT_EQ(other->tree().value(kUrl), "");
  EXPECT_EQ(store_->tree().value(kUrl), "");
  const std::string reverted = store_->path() + ": reverted, because it was not confirmed: url";
  EXPECT_EQ(reported_, std::vector<std::string>{reverted});  // one of them did it
  EXPECT_FALSE(store_->pending());
  EXPECT_EQ(store_->generation(), 3U);
}

// Its content is sound, but the change would bring back a parameter that cannot be.
TEST_F(StorePending, LeavesAFileAsItIsWhoseRevertIsDamaged) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  store_.reset();
  run_sql(path_,
          "UPDATE change SET changes = X'000A4E6F77686572652E417401017800' WHERE generation = 2");
  pass(kMinute);
  const std::string before = content_of(path_);
  EXPECT_EQ(error_on_open(options_), StoreError::kCorrupt);
  EXPECT_EQ(content_of(path_), before);
  options_.keep_corrupt_aside = true;
  EXPECT_EQ(opened()->generation(), 1U);
  EXPECT_EQ(content_of(path_ + ".corrupt-1"), before);
}

// Another tool wrote behind it: its revert would not bring the state before it back.
TEST_F(StorePending, IsNotRevertedBelowAnotherChange) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  store_.reset();
  run_sql(path_, "INSERT INTO change VALUES(3, 3, 0, 'other tool', x'')");
  pass(kMinute);
  EXPECT_EQ(error_on_open(options_), StoreError::kCorrupt);
}

// No counter tells of it.
TEST_F(StorePending, ThatWasConfirmedElsewhereHoldsNoTrialUp) {
  auto other = opened();
  EXPECT_TRUE(accept(*store_, "x").ok());
  EXPECT_TRUE(other->confirm().ok());
  EXPECT_TRUE(store_->begin_trial().ok());
}

TEST_F(StorePending, LeavesADamagedFileInItsMode) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  store_.reset();
  run_sql(path_, "PRAGMA journal_mode = DELETE; UPDATE change SET changes = X'00'");
  pass(kMinute);
  const std::string before = content_of(path_);
  EXPECT_EQ(error_on_open(options_), StoreError::kCorrupt);
  EXPECT_TRUE(content_of(path_) == before);  // too long to be printed
}

// The checkpoints are damaged, of which opening the store and the revert read nothing.
TEST_F(StorePending, IsNotRevertedInAFileThatIsDamagedAnywhere) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  store_.reset();
  run_sql(path_,
          "PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage ="
          " (SELECT rootpage FROM sqlite_master WHERE name = 'change') WHERE name = 'checkpoint'");
  pass(kMinute);
  const std::string before = content_of(path_);
  EXPECT_EQ(error_on_open(options_), StoreError::kCorrupt);
  EXPECT_TRUE(content_of(path_) == before);  // too long to be printed
}

TEST_F(StorePending, StaysWhenAnyProcessConfirms) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  EXPECT_TRUE(opened()->confirm().ok());
  pass(2 * kMinute);
  EXPECT_EQ(store_->tree().value(kUrl), "x");
  EXPECT_FALSE(store_->pending());
  store_->tree().set_value(kUser, "later");
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_TRUE(reported_.empty());
}

TEST_F(StorePending, CannotBeConfirmedTooLate) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  pass(kMinute);
  EXPECT_EQ(store_->confirm().error, StoreError::kNotPending);
  EXPECT_EQ(store_->tree().value(kUrl), "");
}

TEST_F(StorePending, IsRevertedByWhoeverOpensAfterTheDeadline) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  store_.reset();
  pass(kMinute);
  auto store = opened();
  EXPECT_EQ(store->generation(), 3U);
  EXPECT_EQ(store->tree().value(kUrl), "");
  EXPECT_TRUE(is_reported("reverted"));
}

TEST_F(StorePending, IsRevertedAfterARestartHoweverSoon) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  store_.reset();
  time_ = {"next-boot", 5000001};
  EXPECT_EQ(opened()->tree().value(kUrl), "");
}

TEST_F(StorePending, IsRevertedWhereTheBootHasNoName) {
  time_.boot = "";
  EXPECT_TRUE(accept(*store_, "x").ok());
  EXPECT_EQ(store_->tree().value(kUrl), "");
}

TEST_F(StorePending, IsRevertedWhenTheClockCannotBeRight) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  time_.milliseconds -= 1;  // before it was accepted, in the same boot
  EXPECT_EQ(store_->tree().value(kUrl), "");
}

TEST_F(StorePending, IsRevertedThoughItsProcessDied) {
  const pid_t child = fork();
  if (child == 0) {
    auto store = opened();
    (void)accept(*store, "x");
    (void)raise(SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(store_->tree().value(kUrl), "x");
  pass(kMinute);
  EXPECT_EQ(store_->tree().value(kUrl), "");
}

TEST_F(StorePending, LetsNoOtherChangeInAndRevertsNobodyElsesWork) {
  auto other = opened();
  EXPECT_TRUE(accept(*store_, "x").ok());
  other->tree().set_value(kUser, "y");
  EXPECT_EQ(other->commit().error, StoreError::kPending);
  EXPECT_EQ(other->tree().value(kUser), "");
  EXPECT_EQ(other->begin_trial().error, StoreError::kPending);
  EXPECT_FALSE(other->in_trial());
  EXPECT_TRUE(store_->confirm().ok());
  other->tree().set_value(kUser, "y");
  EXPECT_TRUE(other->commit().ok());
}

TEST_F(StorePending, ATrialThatItRefusesHoldsNobodyUp) {
  auto other = opened();
  EXPECT_TRUE(accept(*store_, "x").ok());
  EXPECT_EQ(other->begin_trial().error, StoreError::kPending);
  EXPECT_TRUE(store_->confirm().ok());
  options_.lock_timeout_ms = 20;
  const StoreResult begun = opened()->begin_trial();
  EXPECT_TRUE(begun.ok()) << begun.text;
}

TEST_F(StorePending, TheFirstWriteAfterTheDeadlineBuildsOnTheRevertedState) {
  auto other = opened();
  host::Tree& tree = other->tree();
  EXPECT_TRUE(accept(*store_, "x").ok());
  pass(kMinute);
  tree.set_value(kUser, "y");
  EXPECT_TRUE(other->commit().ok());
  EXPECT_EQ(store_->tree().value(kUrl), "");
  EXPECT_EQ(store_->tree().value(kUser), "y");
}

TEST_F(StorePending, IsRevertedUnderAHoldButNotShown) {
  EXPECT_TRUE(accept(*store_, "x").ok());
  auto other = opened();
  const host::ReadHold hold(*other);
  pass(kMinute);
  EXPECT_EQ(other->tree().value(kUrl), "x");
  EXPECT_EQ(store_->tree().value(kUrl), "");
  EXPECT_EQ(reported_.size(), 1U);
}

TEST_F(StorePending, GoesAtOnceWhenAsked) {
  const std::int64_t start = std::time(nullptr);
  EXPECT_TRUE(accept(*store_, "x").ok());
  EXPECT_TRUE(store_->revert().ok());
  EXPECT_EQ(store_->generation(), 3U);
  EXPECT_EQ(store_->tree().value(kUrl), "");
  EXPECT_EQ(store_->checkpoints().front().label, "reverted: url");
  EXPECT_GE(store_->checkpoints().front().time, start);
  EXPECT_EQ(store_->revert().error, StoreError::kNotPending);
  EXPECT_EQ(store_->confirm().error, StoreError::kNotPending);
}

TEST_F(StorePending, NamesTheRevertedChangeHoweverLongItsLabel) {
  const std::string label(1000, 'x');
  EXPECT_TRUE(store_->begin_trial().ok());
  store_->tree().set_value(kUrl, "x");
  EXPECT_TRUE(store_->accept_pending(1, label).ok());
  EXPECT_TRUE(store_->revert().ok());
  EXPECT_TRUE(is_reported("reverted, because it was not confirmed: " + label));
}

TEST_F(StorePending, BringsDeletedObjectsBack) {
  const auto before = lines_of(store_->tree());
  EXPECT_TRUE(store_->begin_trial().ok());
  store_->tree().delete_object(kBridges + "1.");
  added(store_->tree(), kBridges);
  EXPECT_TRUE(store_->accept_pending(1).ok());
  pass(1);
  EXPECT_EQ(lines_of(store_->tree()), before);
  EXPECT_EQ(lines_of(opened()->tree()), before);
  EXPECT_EQ(added(store_->tree(), kBridges), kBridges + "3.");
}

// The counters of its tables must not stay in the file without it.
TEST_F(StorePending, TakesANewObjectAwayWithTheTablesInIt) {
  EXPECT_TRUE(store_->begin_trial().ok());
  added(store_->tree(), added(store_->tree(), kBridges) + "Port.");
  EXPECT_TRUE(store_->accept_pending(1).ok());
  const StoreResult result = store_->revert();
  EXPECT_TRUE(result.ok()) << result.text;
  EXPECT_FALSE(opened()->tree().has_object(kBridges + "2."));
}

TEST_F(StorePending, RefusesBadTimesAndKeepsTheTrial) {
  EXPECT_EQ(store_->accept_pending(kMinute).error, StoreError::kNoTrial);
  EXPECT_TRUE(store_->begin_trial().ok());
  store_->tree().set_value(kUrl, "x");
  for (const int seconds : {0, -1, 24 * 60 * kMinute + 1}) {
    EXPECT_EQ(store_->accept_pending(seconds).error, StoreError::kBadDeadline) << seconds;
  }
  EXPECT_TRUE(store_->in_trial());
  EXPECT_TRUE(store_->accept_pending(24 * 60 * kMinute).ok());
  EXPECT_EQ(store_->tree().value(kUrl), "x");
}

TEST_F(StorePending, TheMachinesOwnClockNamesItsBoot) {
  options_.clock = nullptr;
  auto store = opened();
  EXPECT_TRUE(accept(*store, "x").ok());
  const auto pending = store->pending();
  ASSERT_TRUE(pending);
  EXPECT_GT(pending->milliseconds_left, 0);
  EXPECT_LE(pending->milliseconds_left, 60000);
  EXPECT_TRUE(store->confirm().ok());
}

}  // namespace
