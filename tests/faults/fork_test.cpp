// A process that opened a store goes on as two.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>
#include <memory>

#include "child.h"
#include "host_store.h"
#include "temporary_folder.h"

namespace {

using namespace proof;
using host::Store;
using host::StoreError;
using host::StoreResult;

const std::string kRoot = "InternetGatewayDevice.";
const std::string kUrl = kRoot + "ManagementServer.URL";
const std::string kUser = kRoot + "ManagementServer.Username";
const std::string kPassword = kRoot + "ManagementServer.Password";

class Fork : public testing::Test {
 protected:
  std::unique_ptr<Store> opened() const {
    host::StoreOptions options;
    options.longest_silence_ms = 100000;
    options.lock_timeout_ms = 2000;
    return Store::open(path_, options, nullptr);
  }

  static bool writes(Store& store, const std::string& name, const std::string& text) {
    return store.tree().set_value(name, text) == 0 && store.commit().ok();
  }

  // What a child does after its parent is gone, with stores that its parent opened or its own.
  int outlives_parent(Store& one, Store& other) const {
    (void)one.tree().value(kUrl);
    (void)other.tree().value(kUrl);
    make(folder_.path() + "/child-reads");
    wait_for(folder_.path() + "/others-came-and-went");
    (void)one.tree().value(kUrl);  // what it read before is no longer so
    const bool is_done = writes(one, kUser, "child");
    return is_done && other.tree().value(kUser) == "child" ? 0 : 1;
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/gateway.db";
};

class ForkedFor : public Fork, public testing::WithParamInterface<const char*> {};

TEST_P(ForkedFor, AChildThatOutlivesItsParentLosesNoCommit) {
  const bool opens_own = std::string(GetParam()) == "AStoreOfItsOwn";
  const std::string result = folder_.path() + "/result";
  Child parent([&](int /*pipe*/) {
    const auto one = opened();
    const auto other = opened();
    if (!writes(*one, kUrl, "parent")) return 1;
    if (fork() == 0) {
      const auto own = opens_own ? opened() : nullptr;
      make(result + std::to_string(outlives_parent(opens_own ? *own : *one, *other)));
      _exit(0);
    }
    wait_for(folder_.path() + "/child-reads");
    _exit(0);  // without a word to the store, as when it is killed
  });
  EXPECT_EQ(parent.wait(), 0);
  {
    const auto store = opened();
    ASSERT_NE(store, nullptr);
    EXPECT_TRUE(writes(*store, kPassword, "other"));
  }
  make(folder_.path() + "/others-came-and-went");
  EXPECT_TRUE(is_made_soon(result + "0"));
  const auto store = opened();
  ASSERT_NE(store, nullptr);
  EXPECT_EQ(store->tree().value(kUrl), "parent");
  EXPECT_EQ(store->tree().value(kUser), "child");
  EXPECT_EQ(store->tree().value(kPassword), "other");
  EXPECT_EQ(integrity_of(path_), "ok");
}

INSTANTIATE_TEST_SUITE_P(All, ForkedFor, testing::Values("TheStoreOfItsParent", "AStoreOfItsOwn"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_F(Fork, AChildThatDiscardsLeavesItsParentsBatchAlone) {
  const auto store = opened();
  (void)store->tree().set_value(kUrl, "parent");
  Child child([&](int /*pipe*/) {
    store->discard();
    return store->tree().value(kUrl).empty() ? 0 : 1;
  });
  EXPECT_EQ(child.wait(), 0);
  const StoreResult result = store->commit();
  EXPECT_TRUE(result.ok()) << result.text;
  EXPECT_EQ(opened()->tree().value(kUrl), "parent");
}

TEST(ForkInMemory, AChildGoesOnWithAStoreOfItsOwn) {
  const auto store = Store::open(":memory:", {}, nullptr);
  ASSERT_TRUE(store->tree().set_value(kUrl, "parent") == 0 && store->commit().ok());
  (void)store->tree().set_value(kUser, "not committed yet");
  Child child([&](int /*pipe*/) {
    const bool has_all = store->tree().value(kUrl) == "parent" && store->commit().ok() &&
                         store->tree().value(kUser) == "not committed yet";
    return has_all && store->generation() == 3 ? 0 : 1;
  });
  EXPECT_EQ(child.wait(), 0);
  EXPECT_EQ(store->generation(), 2U);
}

TEST_F(Fork, ATrialOfItsParentIsNotTheChilds) {
  const auto store = opened();
  ASSERT_TRUE(store->begin_trial().ok());
  (void)store->tree().set_value(kUrl, "parent");
  Child accepts(
      [&](int /*pipe*/) { return store->accept().error == StoreError::kNoTrial ? 0 : 1; });
  EXPECT_EQ(accepts.wait(), 0);
  Child begins([&](int /*pipe*/) {
    return store->begin_trial().error == StoreError::kLocked ? 0 : 1;  // the parent has it
  });
  EXPECT_EQ(begins.wait(), 0);
  EXPECT_TRUE(store->accept().ok());
  EXPECT_EQ(opened()->tree().value(kUrl), "parent");
}

TEST_F(Fork, AChildThatCannotOpenTheFileAnewSaysSo) {
  const auto store = opened();
  Child child([&](int /*pipe*/) {
    (void)std::rename(path_.c_str(), (path_ + "-elsewhere").c_str());
    (void)mkdir(path_.c_str(), S_IRWXU);
    StoreResult listed;
    (void)store->checkpoints(&listed);
    const StoreError expected = StoreError::kNotOpened;
    const bool says_so =
        listed.error == expected && store->make_checkpoint("x").error == expected &&
        store->delete_checkpoint("x").error == expected &&
        store->difference("@1", "", nullptr).error == expected &&
        store->restore("x").error == expected && store->begin_trial().error == expected &&
        !store->pending() && store->tree().set_value(kUrl, "x") != 0 && !store->commit().ok();
    return says_so ? 0 : 1;
  });
  EXPECT_EQ(child.wait(), 0);
}

}  // namespace
