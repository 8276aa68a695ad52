// Commit and discard: all of a batch or nothing.
#include "store_bench.h"

namespace {

using namespace store_tests;
using host::Tree;

using StoreCommit = StoreBench;

TEST_F(StoreCommit, OfNothingMakesNoGeneration) {
  auto store = opened();
  EXPECT_TRUE(store->commit().ok());
  store->tree().set_value(kUrl, "x");
  store->tree().set_value(kUrl, "");
  EXPECT_TRUE(store->commit().ok());
  EXPECT_EQ(store->generation(), 1U);
}

TEST_F(StoreCommit, LandsTogetherWithRefusedNames) {
  auto store = opened();
  store->tree().set_value(kUrl, "x");
  EXPECT_NE(store->tree().set_value("Enable", "true"), 0);
  EXPECT_NE(store->tree().delete_object(""), 0);
  EXPECT_TRUE(store->commit().ok());
  EXPECT_EQ(opened()->tree().value(kUrl), "x");
}

TEST_F(StoreCommit, WithoutItNothingLastsAndThatIsReported) {
  {
    auto store = opened();
    store->tree().set_value(kUrl, "x");
    EXPECT_EQ(opened()->tree().value(kUrl), "");
  }
  EXPECT_EQ(opened()->tree().value(kUrl), "");
  EXPECT_TRUE(is_reported("1 writes were not committed and are lost"));
}

TEST_F(StoreCommit, DiscardBringsTheLastCommitBack) {
  auto store = opened();
  store->tree().set_value(kUrl, "kept");
  EXPECT_TRUE(store->commit().ok());
  const auto before = lines_of(store->tree());
  store->tree().set_value(kUrl, "dropped");
  store->tree().delete_object(kBridges + "1.");
  store->tree() = Tree();
  store->discard();
  EXPECT_EQ(lines_of(store->tree()), before);
  EXPECT_TRUE(store->commit().ok());
  EXPECT_EQ(store->generation(), 2U);
}

TEST_F(StoreCommit, AnAssignmentLandsLikeAnyWrite) {
  auto store = opened();
  store->tree() = Tree();
  EXPECT_TRUE(store->commit().ok());
  EXPECT_EQ(lines_of(opened()->tree()), lines_of(Tree()));
}

TEST_F(StoreCommit, OnAFullStoreFailsDiscardsAllAndLeavesTheOldTree) {
  opened();
  options_.size_limit_bytes = std::filesystem::file_size(path_) + 8192;
  auto store = opened();
  const auto before = lines_of(store->tree());
  store->tree().set_value(kUser, "small");
  store->tree().set_value(kUrl, std::string(100000, 'x'));
  const StoreResult result = store->commit();
  EXPECT_EQ(result.error, StoreError::kFull) << result.text;
  EXPECT_TRUE(is_reported("discarded"));
  EXPECT_EQ(lines_of(store->tree()), before);
  store->tree().set_value(kUser, "small");
  EXPECT_TRUE(store->commit().ok());
  EXPECT_EQ(opened()->tree().value(kUser), "small");
}

TEST_F(StoreCommit, KeepsTheLogBounded) {
  auto store = opened();
  for (int i = 0; i < 400; ++i) {
    store->tree().set_value(kUrl, std::string(20000, static_cast<char>('a' + i % 26)));
    ASSERT_TRUE(store->commit().ok());
  }
  EXPECT_LT(std::filesystem::file_size(path_ + "-wal"), 5U << 20U);
}

// It grows while a reader of an old state keeps it from being written back.
TEST_F(StoreCommit, CutsALogThatGrewBeyondItsBound) {
  constexpr std::uintmax_t kBound = 4U << 20U;
  auto store = opened();
  const auto commit = [&store](char filling) {
    store->tree().set_value(kUrl, std::string(1U << 20U, filling));
    ASSERT_TRUE(store->commit().ok());
  };
  sqlite3* reader = nullptr;
  ASSERT_EQ(sqlite3_open(path_.c_str(), &reader), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT * FROM object", nullptr, nullptr, nullptr), 0);
  for (char filling = 'a'; filling < 'g'; ++filling) commit(filling);
  EXPECT_GT(std::filesystem::file_size(path_ + "-wal"), 2 * kBound);
  (void)sqlite3_close(reader);
  for (char filling = 'g'; filling < 'j'; ++filling) commit(filling);
  EXPECT_LE(std::filesystem::file_size(path_ + "-wal"), 2 * kBound);
}

}  // namespace
