// Who may write and when: the lock of a batch, the commit lock, and SQLite's own behind them.
#include <chrono>
#include <functional>
#include <utility>

#include "store/shared_state.h"
#include "store/store_error.h"
#include "store_bench.h"

namespace {

using namespace store_tests;
using host::CommitLock;
using host::SharedState;

// The usual VFS, but that others act while SQLite sleeps until a lock is free.
constexpr const char* kSleepless = "sleepless";
std::function<void()> while_asleep;

int sleep_no_time(sqlite3_vfs* /*vfs*/, int microseconds) {
  if (while_asleep) std::exchange(while_asleep, nullptr)();
  return microseconds;
}

void install_sleepless() {
  static sqlite3_vfs vfs = [] {
    sqlite3_vfs made = *sqlite3_vfs_find(nullptr);
    made.zName = kSleepless;
    made.pNext = nullptr;
    made.xSleep = sleep_no_time;
    return made;
  }();
  (void)sqlite3_vfs_register(&vfs, 0);
}

// Somebody who writes to the database with other tools.
class OtherTool {
 public:
  explicit OtherTool(const std::string& path) {
    EXPECT_EQ(sqlite3_open(path.c_str(), &connection_), SQLITE_OK);
  }
  OtherTool(const OtherTool&) = delete;
  OtherTool& operator=(const OtherTool&) = delete;
  ~OtherTool() { (void)sqlite3_close(connection_); }

  void run(const char* sql) {
    EXPECT_EQ(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  }

 private:
  sqlite3* connection_ = nullptr;
};

class StoreLock : public StoreBench {
 protected:
  StoreLock() {
    options_.longest_silence_ms = 0;  // whoever comes takes the lock over
    one_ = opened();
    other_ = opened();
  }
  ~StoreLock() override { while_asleep = nullptr; }

  std::unique_ptr<Store> impatient() {
    options_.longest_silence_ms = 100000;
    options_.lock_timeout_ms = 20;
    return opened();
  }

  std::unique_ptr<Store> sleepless() {
    install_sleepless();
    options_.vfs = kSleepless;
    return opened();
  }

  static bool is_written(Store& store, const std::string& text) {
    return store.tree().set_value(kUrl, text) == 0;
  }

  std::unique_ptr<Store> one_, other_;
};

// The database would not tell: nobody has committed since the batch began.
TEST_F(StoreLock, ABatchThatLostItLandsNothingThoughNobodyCommitted) {
  EXPECT_TRUE(is_written(*one_, "lost"));
  EXPECT_TRUE(is_written(*other_, "has it"));
  EXPECT_EQ(one_->commit().error, StoreError::kMovedOn);
  EXPECT_EQ(one_->tree().value(kUrl), "");
  EXPECT_TRUE(other_->commit().ok());
  EXPECT_EQ(opened()->tree().value(kUrl), "has it");
}

TEST_F(StoreLock, ABatchThatLostItLeavesItToWhoeverHasIt) {
  EXPECT_TRUE(is_written(*one_, "lost"));
  EXPECT_TRUE(is_written(*other_, "has it"));
  one_->discard();
  auto late = impatient();
  EXPECT_FALSE(is_written(*late, "too early"));
  EXPECT_EQ(late->commit().error, StoreError::kLocked);
  EXPECT_TRUE(other_->commit().ok());
}

TEST_F(StoreLock, IsFreeAfterADiscardAndAfterACommit) {
  auto late = impatient();
  EXPECT_TRUE(is_written(*one_, "x"));
  one_->discard();
  EXPECT_TRUE(is_written(*late, "y"));
  EXPECT_TRUE(late->commit().ok());
  EXPECT_TRUE(is_written(*late, "z"));
  late->discard();
}

TEST_F(StoreLock, ACommitWaitsWhileAnotherToolHasTheDatabase) {
  auto store = sleepless();
  EXPECT_TRUE(is_written(*store, "x"));
  OtherTool tool(path_);
  tool.run("BEGIN IMMEDIATE");
  while_asleep = [&tool] { tool.run("ROLLBACK"); };
  const StoreResult result = store->commit();
  EXPECT_TRUE(result.ok()) << result.text;
  EXPECT_EQ(other_->tree().value(kUrl), "x");
}

TEST_F(StoreLock, ACommitThatWaitedSeesWhatTheOtherToolCommitted) {
  auto store = sleepless();
  EXPECT_TRUE(is_written(*store, "x"));
  OtherTool tool(path_);
  tool.run("BEGIN IMMEDIATE; INSERT INTO change VALUES(2, 2, 0, 'other tool', x'')");
  while_asleep = [&tool] { tool.run("COMMIT"); };
  EXPECT_EQ(store->commit().error, StoreError::kMovedOn);
  EXPECT_EQ(opened()->generation(), 2U);
}

TEST_F(StoreLock, ACommitGivesUpWhenTheOtherToolKeepsTheDatabase) {
  auto store = sleepless();
  EXPECT_TRUE(is_written(*store, "x"));
  OtherTool tool(path_);
  tool.run("BEGIN IMMEDIATE");
  EXPECT_EQ(store->commit().error, StoreError::kLocked);
  tool.run("ROLLBACK");
  EXPECT_EQ(store->tree().value(kUrl), "");
}

TEST_F(StoreLock, EveryWriteKeepsItFromThoseWhoWait) {
  options_.longest_silence_ms = 100000;
  SharedState shared(path_);
  const SharedState::Batch batch = shared.begin_batch(options_);
  EXPECT_TRUE(shared.owns(batch));
  SharedState waiting(path_);
  options_.lock_timeout_ms = 20;
  EXPECT_THROW((void)waiting.begin_batch(options_), host::StoreFailure);
  EXPECT_TRUE(shared.owns(batch));
  waiting.end_batch(batch + 1);
  EXPECT_TRUE(shared.owns(batch));
  shared.end_batch(batch);
  EXPECT_TRUE(waiting.owns(waiting.begin_batch(options_)));
}

TEST_F(StoreLock, EveryWriteIsAnActivity) {
  const auto activity = [this] {  // the third of four words
    const std::string words = content_of(path_ + "-shared");
    return words.substr(8, 4);
  };
  EXPECT_TRUE(is_written(*one_, "x"));
  const std::string first = activity();
  EXPECT_TRUE(is_written(*one_, "y"));
  EXPECT_NE(activity(), first);
}

TEST_F(StoreLock, NoBatchHasTheNumberOfNone) {
  write_file(path_ + "-shared", std::string(12, '\0') + std::string(4, '\xff'));
  SharedState shared(path_);
  EXPECT_EQ(shared.begin_batch(options_), 1U);
}

TEST(StoreLockSilence, BeginsAnewWithEachWriteAndEachOwner) {
  constexpr std::chrono::milliseconds kSecond{1000};
  const std::chrono::steady_clock::time_point start;
  host::Silence silence;
  EXPECT_EQ(silence.length(1, 7, start), 0 * kSecond);
  EXPECT_EQ(silence.length(1, 7, start + 4 * kSecond), 4 * kSecond);
  EXPECT_EQ(silence.length(1, 8, start + 5 * kSecond), 0 * kSecond);
  EXPECT_EQ(silence.length(1, 8, start + 7 * kSecond), 2 * kSecond);
  EXPECT_EQ(silence.length(2, 8, start + 8 * kSecond), 0 * kSecond);
  EXPECT_EQ(silence.length(2, 8, start + 9 * kSecond), 1 * kSecond);
}

// The reader came while the commit was going on, and its process died before it told the others.
TEST_F(StoreLock, ACounterThatStaysOddSendsReadersToTheDatabaseAgain) {
  SharedState shared(path_);
  {
    const CommitLock lock(shared);
    shared.set_counter(3);
    EXPECT_EQ(other_->tree().value(kUrl), "");
    EXPECT_EQ(shared.counter(), 3U);  // whoever commits sets it
  }
  EXPECT_TRUE(is_written(*one_, "x"));
  EXPECT_TRUE(one_->commit().ok());
  shared.set_counter(3);
  EXPECT_EQ(other_->tree().value(kUrl), "x");
  EXPECT_EQ(shared.counter(), 4U);
}

}  // namespace
