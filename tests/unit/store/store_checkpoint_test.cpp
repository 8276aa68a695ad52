// Going back to earlier states.
#include <ctime>

#include "store_bench.h"

namespace {

using namespace store_tests;
using host::Difference;

class StoreCheckpoint : public StoreBench {
 protected:
  StoreCheckpoint() : store_(opened()) {}

  void write_and_commit(const std::string& text) {
    EXPECT_EQ(store_->tree().set_value(kUrl, text), 0);
    EXPECT_TRUE(store_->commit("url " + text).ok());
  }

  std::unique_ptr<Store> store_;
};

TEST_F(StoreCheckpoint, BringsANamedStateBackInOneCommit) {
  write_and_commit("a");
  EXPECT_TRUE(store_->make_checkpoint("before-trip").ok());
  write_and_commit("b");
  const std::string path = added(store_->tree(), kBridges);
  store_->tree().delete_object(kBridges + "1.");
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_TRUE(store_->restore("before-trip").ok());
  EXPECT_EQ(store_->generation(), 5U);
  auto other = opened();
  EXPECT_EQ(other->tree().value(kUrl), "a");
  EXPECT_EQ(other->tree().value(kBridges + "1.Port.8.PortInterface"), "WLAN4");
  EXPECT_FALSE(other->tree().has_object(path));
}

TEST_F(StoreCheckpoint, ARestoreHandsNoInstanceNumberOutTwice) {
  EXPECT_TRUE(store_->make_checkpoint("early").ok());
  EXPECT_EQ(added(store_->tree(), kBridges), kBridges + "2.");
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_TRUE(store_->restore("early").ok());
  EXPECT_FALSE(store_->tree().has_object(kBridges + "2."));
  EXPECT_EQ(added(store_->tree(), kBridges), kBridges + "3.");
}

TEST_F(StoreCheckpoint, ARestoreTakesAnObjectAwayWithTheTablesInIt) {
  EXPECT_TRUE(store_->make_checkpoint("early").ok());
  added(store_->tree(), added(store_->tree(), kBridges) + "Port.");
  EXPECT_TRUE(store_->commit().ok());
  const StoreResult result = store_->restore("early");
  EXPECT_TRUE(result.ok()) << result.text;
  EXPECT_FALSE(store_->tree().has_object(kBridges + "2."));
}

TEST_F(StoreCheckpoint, EveryChangeKeepsTheStateBeforeIt) {
  for (int i = 2; i <= 30; ++i) write_and_commit(std::to_string(i));
  const auto listed = store_->checkpoints();
  ASSERT_EQ(listed.size(), 20U);
  EXPECT_EQ(listed.front().name, "@29");
  EXPECT_EQ(listed.front().label, "url 30");
  EXPECT_TRUE(listed.front().automatic);
  EXPECT_EQ(listed.back().name, "@10");
  EXPECT_EQ(store_->restore("@9").error, StoreError::kNoCheckpoint);
  EXPECT_TRUE(store_->restore("@10").ok());
  EXPECT_EQ(opened()->tree().value(kUrl), "10");
  EXPECT_EQ(store_->checkpoints().front().label, "restored @10");
}

TEST_F(StoreCheckpoint, TellsWhenItWasMade) {
  const std::int64_t start = std::time(nullptr);
  write_and_commit("a");
  EXPECT_TRUE(store_->make_checkpoint("named").ok());
  for (const auto& checkpoint : store_->checkpoints()) EXPECT_GE(checkpoint.time, start);
  run_sql(path_, "UPDATE change SET time = 1000 + generation; UPDATE checkpoint SET time = 5000");
  const auto listed = store_->checkpoints();
  ASSERT_EQ(listed.size(), 2U);
  EXPECT_EQ(listed[0].time, 1002);  // when the change was made that it precedes
  EXPECT_EQ(listed[1].time, 5000);
}

TEST_F(StoreCheckpoint, TellsTheDifferenceBetweenAnyTwo) {
  write_and_commit("a");
  EXPECT_TRUE(store_->make_checkpoint("a").ok());
  write_and_commit("b");
  added(store_->tree(), kBridges);
  Difference difference;
  EXPECT_TRUE(store_->difference("a", "", &difference).ok());
  EXPECT_EQ(difference.added, std::vector<std::string>{kBridges + "2."});
  ASSERT_EQ(difference.values.size(), 1U);
  EXPECT_EQ(difference.values[0].before, "a");
  EXPECT_EQ(difference.values[0].after, "b");
  EXPECT_TRUE(store_->difference("@2", "a", &difference).ok());
  EXPECT_TRUE(difference.empty());
  EXPECT_TRUE(store_->difference("a", "@1", &difference).ok());
  ASSERT_EQ(difference.values.size(), 1U);
  EXPECT_EQ(difference.values[0].after, "");
}

TEST_F(StoreCheckpoint, ListsAndDeletesNamedOnes) {
  EXPECT_TRUE(store_->make_checkpoint("b").ok());
  EXPECT_TRUE(store_->make_checkpoint("a").ok());
  auto listed = opened()->checkpoints();
  ASSERT_EQ(listed.size(), 2U);
  EXPECT_EQ(listed[0].name, "a");
  EXPECT_EQ(listed[1].generation, 1U);
  EXPECT_FALSE(listed[1].automatic);
  EXPECT_TRUE(store_->delete_checkpoint("a").ok());
  EXPECT_EQ(store_->delete_checkpoint("a").error, StoreError::kNoCheckpoint);
  EXPECT_EQ(store_->checkpoints().size(), 1U);
}

TEST_F(StoreCheckpoint, RefusesBadNamesAndChangesNothing) {
  const std::string bad[] = {"", "@1", "a b", "a/b", std::string(65, 'a'), "\xc3\xa4"};
  for (const std::string& name : bad) {
    EXPECT_EQ(store_->make_checkpoint(name).error, StoreError::kBadName) << name;
    EXPECT_EQ(store_->delete_checkpoint(name).error, StoreError::kBadName) << name;
  }
  EXPECT_TRUE(store_->make_checkpoint(std::string(64, 'a')).ok());
  const std::string unknown[] = {"", "@", "@0", "@01", "@1x", "@99", "@99999999999999999999", "no"};
  for (const std::string& name : unknown) {
    EXPECT_EQ(store_->restore(name).error, StoreError::kNoCheckpoint) << name;
  }
  Difference difference;
  difference.added = {"untouched"};
  EXPECT_EQ(store_->difference("no", "", &difference).error, StoreError::kNoCheckpoint);
  EXPECT_EQ(difference.added.size(), 1U);
  EXPECT_TRUE(store_->make_checkpoint("a").ok());
  EXPECT_EQ(store_->make_checkpoint("a").error, StoreError::kNameTaken);
  EXPECT_EQ(store_->generation(), 1U);
  EXPECT_TRUE(store_->commit().ok());
}

TEST_F(StoreCheckpoint, IsNotMadeNorRestoredInTheMidstOfABatch) {
  EXPECT_TRUE(store_->make_checkpoint("a").ok());
  store_->tree().set_value(kUrl, "x");
  EXPECT_EQ(store_->make_checkpoint("b").error, StoreError::kBatchOpen);
  EXPECT_EQ(store_->restore("a").error, StoreError::kBatchOpen);
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_EQ(store_->tree().value(kUrl), "x");
}

TEST_F(StoreCheckpoint, ARestoreInATrialIsAWriteOfTheTrial) {
  EXPECT_TRUE(store_->make_checkpoint("a").ok());
  write_and_commit("b");
  EXPECT_TRUE(store_->begin_trial().ok());
  EXPECT_TRUE(store_->restore("a").ok());
  EXPECT_EQ(store_->tree().value(kUrl), "");
  EXPECT_EQ(store_->difference().values.size(), 1U);
  store_->discard();
  EXPECT_EQ(store_->tree().value(kUrl), "b");
}

}  // namespace
