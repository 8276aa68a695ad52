// Commit and discard: all of a batch or nothing.
#include <random>

#include "store_bench.h"

namespace {

using namespace store_tests;
using host::Parameter;
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

TEST_F(StoreCommit, OfTheLongestTextIsFoundAgain) {
  const std::string text(host::kLongestText, 'x');
  const std::string label(host::kLongestText, 'y');
  {
    auto store = opened();
    EXPECT_EQ(store->tree().set_value(kUrl, text), 0);
    EXPECT_TRUE(store->commit(label).ok());
  }
  auto store = opened();
  EXPECT_TRUE(store->tree().value(kUrl) == text);
  EXPECT_TRUE(store->checkpoints().front().label == label);
}

// A length of 2^28 is the first one that the file's rows cannot hold.
TEST_F(StoreCommit, OfATextThatNobodyCouldReadAgainIsRefusedBeforehand) {
  constexpr std::size_t kTooLong = std::size_t{1} << 28U;
  {
    auto store = opened();
    EXPECT_NE(store->tree().set_value(kUrl, std::string(kTooLong, 'x')), 0);
    EXPECT_EQ(store->tree().set_value(kUser, "x"), 0);
    EXPECT_TRUE(store->commit().ok());
  }
  auto store = opened();
  ASSERT_NE(store, nullptr);
  EXPECT_EQ(store->tree().value(kUser), "x");
}

TEST_F(StoreCommit, WithALongerLabelFailsAndLeavesTheOldTree) {
  const std::string label(host::kLongestText + 1, 'x');
  auto store = opened();
  store->tree().set_value(kUrl, "x");
  EXPECT_EQ(store->commit(label).error, StoreError::kTooLarge);
  EXPECT_EQ(store->tree().value(kUrl), "");
  ASSERT_TRUE(store->begin_trial().ok());
  store->tree().set_value(kUrl, "x");
  EXPECT_EQ(store->accept_pending(60, label).error, StoreError::kTooLarge);
  EXPECT_EQ(store->tree().value(kUrl), "");
  EXPECT_FALSE(store->pending());
  EXPECT_EQ(opened()->generation(), 1U);
}

// What undoes a change has a longer label than the change.
TEST_F(StoreCommit, WithTheLongestLabelCanBeReverted) {
  auto store = opened();
  ASSERT_TRUE(store->begin_trial().ok());
  store->tree().set_value(kUrl, "x");
  ASSERT_TRUE(store->accept_pending(60, std::string(host::kLongestText, 'x')).ok());
  EXPECT_TRUE(store->revert().ok());
  EXPECT_EQ(opened()->tree().value(kUrl), "");
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

// Objects in the file: what a change does not name stays in them.
class StoreObjects : public StoreBench {
 protected:
  StoreObjects() : store_(opened()) {
    EXPECT_TRUE(host::import_csv_file(store_->tree(), TEST_DATA_DIR "/gateway.csv").ok);
    EXPECT_TRUE(store_->commit().ok());
  }

  std::size_t below(std::size_t bound) { return random_() % bound; }

  /// One of the parameters that can be written becomes a text that is often its default.
  void set_one() {
    const std::vector<Parameter> parameters = store_->tree().parameters();
    const Parameter& chosen = parameters[below(parameters.size())];
    const char* const texts[] = {"", "0", "1", "true", "false", "ten letters", "802.1D"};
    store_->tree().set_value(chosen.name, texts[below(std::size(texts))]);
  }

  void change_something() {
    Tree& tree = store_->tree();
    const std::size_t kind = below(10);
    if (kind == 0) {
      added(tree, kBridges);
    } else if (kind == 1) {
      tree.delete_object(kBridges + std::to_string(below(12)) + ".");
    } else {
      set_one();
    }
  }

  std::unique_ptr<Store> store_;
  std::mt19937 random_{1};
};

TEST_F(StoreObjects, AreFoundAsManyChangesLeftThem) {
  for (int round = 0; round < 200; ++round) {
    for (std::size_t changes = 1 + below(6); changes > 0; --changes) change_something();
    ASSERT_TRUE(store_->commit().ok());
    if (round % 10 == 0) {
      ASSERT_EQ(lines_of(opened()->tree()), lines_of(store_->tree())) << round;
    }
  }
}

TEST_F(StoreObjects, LoseTheirEntryWithTheirLastRow) {
  const std::string bridge = added(store_->tree(), kBridges);
  EXPECT_TRUE(store_->commit().ok());
  EXPECT_TRUE(opened()->tree().has_object(bridge));
  store_->tree().delete_object(bridge);
  EXPECT_TRUE(store_->commit().ok());
  const auto reopened = opened();
  EXPECT_FALSE(reopened->tree().has_object(bridge));
  EXPECT_EQ(lines_of(reopened->tree()), lines_of(store_->tree()));
}

TEST_F(StoreObjects, TakeTextsLongerThanAPage) {
  const std::string name = added(store_->tree(), kBridges) + "BridgeName";
  const std::string bridge = name.substr(0, name.rfind('.') + 1);
  for (const std::size_t size : {70000U, 3U, 5000U}) {
    store_->tree().set_value(name, std::string(size, 'x'));
    EXPECT_TRUE(store_->commit().ok());
    store_->tree().set_value(bridge + "BridgeEnable", size == 3 ? "0" : "1");
    EXPECT_TRUE(store_->commit().ok());
    EXPECT_EQ(lines_of(opened()->tree()), lines_of(store_->tree())) << size;
  }
}

}  // namespace
