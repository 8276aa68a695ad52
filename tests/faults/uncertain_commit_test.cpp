// A disk that fails in the sync at the end of a commit: the change may have landed or not. The
// store says so, and whoever reads next decides it for everybody.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cerrno>
#include <memory>
#include <string>

#include "disk.h"
#include "disk_vfs.h"
#include "state.h"
#include "temporary_folder.h"

namespace {

using namespace proof;
using host::Store;
using host::StoreError;
using host::StoreResult;

const std::string kUrl = "InternetGatewayDevice.ManagementServer.URL";

class UncertainCommit : public testing::Test {
 protected:
  UncertainCommit() {
    options_.vfs = kDiskVfs;
    options_.lock_timeout_ms = 1000;
    options_.clock = [] { return host::BootTime{"boot", 1000}; };
    use_disk(disk_);
    store_ = opened();
    EXPECT_TRUE(committed("old").ok());
  }

  std::unique_ptr<Store> opened() {
    StoreResult result;
    auto store = Store::open(path_, options_, &result);
    EXPECT_EQ(result.text, "");
    return store;
  }

  StoreResult committed(const std::string& url) {
    (void)store_->tree().set_value(kUrl, url);
    return store_->commit(url);
  }

  static std::string url_in(Store& store) { return store.tree().value(kUrl); }

  // Each sync fails from now on.
  void break_disk() { disk_.arm({kSync, kSync, 1, SQLITE_IOERR_FSYNC, EIO, true}); }
  void repair_disk() { disk_.arm({}); }

  // What is found when all processes are dead, or when the power was cut besides.
  std::string url_on(std::unique_ptr<Disk> left) {
    use_disk(*left);
    std::string url;
    {
      host::StoreFile file(path_, options_);
      url = state_of(file).rows[kUrl].text;
    }
    use_disk(disk_);
    return url;
  }
  std::string url_left() { return url_on(disk_.copy()); }

  void expect_after_any_power_cut(const std::string& url) {
    constexpr std::uint32_t kSeeds = 50;
    for (std::uint32_t seed = 0; seed < kSeeds; ++seed) {
      EXPECT_EQ(url_on(disk_.after_power_cut(seed)), url) << seed;
    }
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/gateway.db";
  host::StoreOptions options_;
  Disk disk_;
  std::unique_ptr<Store> store_;
};

TEST_F(UncertainCommit, SaysThatItMayOrMayNotHaveLanded) {
  break_disk();
  const StoreResult result = committed("new");
  EXPECT_EQ(result.error, StoreError::kUncertain);
  EXPECT_NE(result.text.find("may or may not"), std::string::npos) << result.text;
  EXPECT_EQ(result.text.find("discarded"), std::string::npos) << result.text;
  EXPECT_EQ(url_left(), "new");  // so it might
}

TEST_F(UncertainCommit, HasNotLandedWhenTheNextReadSaysSo) {
  break_disk();
  EXPECT_EQ(committed("new").error, StoreError::kUncertain);
  repair_disk();
  EXPECT_EQ(url_in(*store_), "old");
  EXPECT_EQ(url_left(), "old");
  expect_after_any_power_cut("old");
  EXPECT_TRUE(committed("newer").ok());
  expect_after_any_power_cut("newer");
}

TEST_F(UncertainCommit, IsDecidedByAnotherProcessToo) {
  const auto other = opened();
  break_disk();
  EXPECT_EQ(committed("new").error, StoreError::kUncertain);
  store_.reset();
  repair_disk();
  EXPECT_EQ(url_in(*other), "old");
  EXPECT_EQ(url_left(), "old");
  expect_after_any_power_cut("old");
}

TEST_F(UncertainCommit, IsDecidedByWhoeverOpensTheStoreWhileAnotherHasIt) {
  const auto other = opened();
  break_disk();
  EXPECT_EQ(committed("new").error, StoreError::kUncertain);
  store_.reset();
  repair_disk();
  store_ = opened();
  EXPECT_EQ(url_in(*store_), "old");
  EXPECT_EQ(url_left(), "old");
  EXPECT_EQ(url_in(*other), "old");
}

// A sync that failed is not tried again by the system: what it did not write counts as written.
TEST_F(UncertainCommit, HasLandedForGoodWhenItIsFoundByAProcessThatIsAlone) {
  break_disk();
  EXPECT_EQ(committed("new").error, StoreError::kUncertain);
  store_.reset();
  repair_disk();
  store_ = opened();
  EXPECT_EQ(url_in(*store_), "new");
  expect_after_any_power_cut("new");
  EXPECT_TRUE(committed("newer").ok());
  expect_after_any_power_cut("newer");
}

TEST_F(UncertainCommit, ShowsTheOldTreeWhileTheDiskFails) {
  break_disk();
  EXPECT_EQ(committed("new").error, StoreError::kUncertain);
  EXPECT_EQ(url_in(*store_), "old");
  EXPECT_NE(store_->tree().set_value(kUrl, "newer"), 0);
  EXPECT_FALSE(store_->commit().ok());
  repair_disk();
  EXPECT_TRUE(committed("newest").ok());
  EXPECT_EQ(url_left(), "newest");
}

TEST_F(UncertainCommit, CanBeOpenedForReadingWhileTheDiskFails) {
  break_disk();
  EXPECT_EQ(committed("new").error, StoreError::kUncertain);
  store_.reset();
  store_ = opened();
  EXPECT_EQ(url_in(*store_), "new");
  repair_disk();
  EXPECT_EQ(url_in(*store_), "new");
  expect_after_any_power_cut("new");
}

TEST_F(UncertainCommit, OfACheckpointAConfirmationAndARevert) {
  break_disk();
  EXPECT_EQ(store_->make_checkpoint("kept").error, StoreError::kUncertain);
  repair_disk();
  ASSERT_TRUE(store_->begin_trial().ok());
  (void)store_->tree().set_value(kUrl, "pending");
  ASSERT_TRUE(store_->accept_pending(60, "pending").ok());
  break_disk();
  EXPECT_EQ(store_->confirm().error, StoreError::kUncertain);
  repair_disk();
  EXPECT_TRUE(store_->pending().has_value());
  EXPECT_FALSE(url_left().empty());
  break_disk();
  EXPECT_EQ(store_->revert().error, StoreError::kUncertain);
  repair_disk();
  EXPECT_EQ(url_in(*store_), "pending");
  EXPECT_TRUE(store_->revert().ok());
  EXPECT_EQ(url_in(*store_), "old");
}

}  // namespace
