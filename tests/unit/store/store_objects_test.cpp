// Objects in the file: what a change does not name stays in them.
#include <random>

#include "store_bench.h"

namespace {

using namespace store_tests;
using host::Parameter;
using host::Tree;

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
