// What a commit costs the flash: counts of syncs and bytes, no times.
#include <algorithm>

#include "counting_vfs.h"
#include "store_bench.h"

namespace {

using namespace store_tests;
using host::Parameter;

class StoreCommitCost : public StoreBench {
 protected:
  static constexpr int kConnections = 100;
  static constexpr std::size_t kChanges = 60;

  StoreCommitCost() {
    counting_vfs::install();
    options_.vfs = counting_vfs::kName;
    store_ = opened();
    host::Tree& tree = store_->tree();
    const std::string wan_path = added(tree, kWanDevices);
    for (int i = 0; i < kConnections; ++i) {
      const std::string device_path = added(tree, wan_path + "WANConnectionDevice.");
      added(tree, device_path + "WANIPConnection.");
      added(tree, device_path + "WANPPPConnection.");
    }
    for (const Parameter& parameter : tree.parameters(wan_path)) {
      if (!tree.describe(parameter.name)->derived) tree.set_value(parameter.name, "before");
    }
    EXPECT_TRUE(store_->commit().ok());
    for (const Parameter& parameter : tree.parameters(wan_path + "WANConnectionDevice.57.")) {
      if (tree.describe(parameter.name)->derived || names_.size() == kChanges) continue;
      names_.push_back(parameter.name);
    }
    EXPECT_EQ(names_.size(), kChanges);
    store_.reset();  // so that the log begins without all this
    store_ = opened();
    for (int i = 0; i < 40; ++i) commit_changes(i);  // until no change is the first of its kind
    (void)counting_vfs::taken();
  }

  /// Other texts for the parameters of one connection, as long as a gateway's usually are.
  counting_vfs::Counts commit_changes(int round) {
    for (const std::string& name : names_) {
      store_->tree().set_value(name, "value " + std::to_string(100000 + round));
    }
    EXPECT_TRUE(store_->commit().ok());
    return counting_vfs::taken();
  }

  std::unique_ptr<Store> store_;
  std::vector<std::string> names_;
};

TEST_F(StoreCommitCost, IsOneSyncAndFewPages) {
  int plain_commits = 0;
  bool log_begins_anew = true;  // unknown at the start
  for (int i = 0; i < 100; ++i) {
    const counting_vfs::Counts counts = commit_changes(i);
    const bool log_written_back = counts.database_writes > 0;
    if (!log_written_back && !log_begins_anew) {
      ++plain_commits;
      EXPECT_EQ(counts.syncs, 1) << i;
      EXPECT_LE(counts.bytes, 32 * 1024) << i;
    }
    log_begins_anew = log_written_back;
  }
  EXPECT_GE(plain_commits, 90);
}

TEST_F(StoreCommitCost, OfWritingTheLogBackIsRareAndSmall) {
  constexpr int kCommits = 500;
  int write_backs = 0;
  int syncs = 0;
  for (int i = 0; i < kCommits; ++i) {
    const counting_vfs::Counts counts = commit_changes(i);
    syncs += counts.syncs;
    if (counts.database_writes == 0) continue;
    ++write_backs;
    EXPECT_LE(counts.bytes, 512 * 1024) << i;
  }
  EXPECT_GT(write_backs, 0);
  EXPECT_LE(write_backs, kCommits / 100);
  // Each syncs the log and the database, and the log again when it begins anew.
  EXPECT_LE(syncs, kCommits + 3 * write_backs);
}

TEST_F(StoreCommitCost, KeepsTheAutomaticCheckpointWithoutMoreSyncs) {
  (void)commit_changes(1);
  const auto checkpoints = store_->checkpoints();
  ASSERT_EQ(checkpoints.size(), 20U);
  EXPECT_EQ(checkpoints.front().generation, store_->generation() - 1);
  EXPECT_TRUE(store_->restore(checkpoints.back().name).ok());
  EXPECT_EQ(store_->tree().value(names_.front()), "value 100020");  // 20 of 41 commits ago
}

TEST_F(StoreCommitCost, OfNothingIsNothing) {
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_EQ(counting_vfs::taken().syncs, 0);
}

TEST_F(StoreCommitCost, KeepsTheLogBoundedWhileAnotherHoldsItsView) {
  constexpr std::uintmax_t kBound = 5U << 20U;
  auto reader = opened();
  const std::string seen = reader->tree().value(names_.front());
  const host::ReadHold hold(*reader);
  std::uintmax_t largest = 0;
  for (int i = 0; i < 600; ++i) {
    (void)commit_changes(i);
    largest = std::max(largest, std::filesystem::file_size(path_ + "-wal"));
  }
  EXPECT_LT(largest, kBound);
  EXPECT_EQ(reader->tree().value(names_.front()), seen);
}

}  // namespace
