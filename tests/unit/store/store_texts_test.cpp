// What people read when a call to a store fails.
#include "store_bench.h"

namespace {

using namespace store_tests;

class StoreTexts : public StoreBench {
 protected:
  StoreTexts() {
    options_.clock = [this] { return time_; };
    options_.longest_silence_ms = 0;  // whoever comes takes the lock over
    store_ = opened();
  }

  std::string text_on_open() const {
    StoreResult result;
    EXPECT_EQ(Store::open(path_, options_, &result), nullptr);
    return result.text;
  }

  std::string discarded(const std::string& reason) const {
    return store_->path() + ": the writes since the last commit are discarded: " + reason;
  }

  host::BootTime time_ = {"this-boot", 5000000};
  std::unique_ptr<Store> store_;
};

TEST_F(StoreTexts, NameTheCheckpoint) {
  EXPECT_EQ(store_->make_checkpoint("a b").text,
            "a checkpoint's name must be 1 to 64 letters, digits, . _ and -");
  EXPECT_TRUE(store_->make_checkpoint("a").ok());
  EXPECT_EQ(store_->make_checkpoint("a").text, "there is already a checkpoint a");
  EXPECT_EQ(store_->restore("b").text, "there is no checkpoint b");
}

TEST_F(StoreTexts, TellATrialFromABatch) {
  EXPECT_EQ(store_->accept().text, "no trial is open");
  EXPECT_TRUE(store_->begin_trial().ok());
  EXPECT_EQ(store_->begin_trial().text, "a trial is already open");
  EXPECT_EQ(store_->make_checkpoint("a").text, "there are uncommitted writes");
}

TEST_F(StoreTexts, TellWhatWaitsForItsConfirmation) {
  EXPECT_EQ(store_->confirm().text, "no change is waiting for confirmation");
  EXPECT_TRUE(store_->begin_trial().ok());
  store_->tree().set_value(kUrl, "x");
  EXPECT_EQ(store_->accept_pending(0).text, "the time to confirm must be 1 second to 1 day");
  EXPECT_TRUE(store_->accept_pending(1).ok());
  EXPECT_EQ(store_->begin_trial().text, "a change is waiting for confirmation");
  store_->tree().set_value(kUrl, "y");
  EXPECT_EQ(store_->commit().text, discarded("another change is waiting for confirmation"));
  time_.milliseconds += 1000;
  EXPECT_EQ(store_->confirm().text, "the time to confirm is over");
}

TEST_F(StoreTexts, TellWhyABatchIsDiscarded) {
  auto other = opened();
  store_->tree().set_value(kUrl, "x");
  other->tree().set_value(kUrl, "y");
  const std::string text =
      discarded("the batch wrote nothing for too long and lost its lock to another one");
  EXPECT_EQ(store_->commit().text, text);
  EXPECT_EQ(reported_, std::vector<std::string>{text});
  options_.longest_silence_ms = 100000;
  options_.lock_timeout_ms = 20;
  EXPECT_EQ(opened()->begin_trial().text, "another process keeps the store locked");
}

TEST_F(StoreTexts, TellWhatTheFileIs) {
  store_.reset();
  const std::pair<const char*, const char*> files[] = {
      {"PRAGMA user_version = 3", "the store has format 3, but this program supports 2"},
      {"PRAGMA application_id = 7", "the file is another program's database"},
      {"DELETE FROM change", "the store has no generation"}};
  for (const auto& [statement, text] : files) {
    std::filesystem::remove(path_);
    opened();
    run_sql(path_, statement);
    EXPECT_EQ(text_on_open(), path_ + ": " + text);
  }
  write_file(path_, "x");
  EXPECT_EQ(text_on_open(), path_ + ": the file is cut off");
  write_file(path_, "");
  write_file(path_ + "-wal", "log");
  EXPECT_EQ(text_on_open(), path_ + ": the file is empty, but its log is not");
}

TEST_F(StoreTexts, TellThatAPlaceHoldsNoFile) {
  path_ = folder_;
  EXPECT_EQ(text_on_open(), path_ + ": it is not a file");
  path_ = folder_ + "/no/folder/gateway.db";
  EXPECT_EQ(text_on_open(), path_ + ": the folder of the store does not exist");
}

}  // namespace
