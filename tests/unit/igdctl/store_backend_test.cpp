// A change with a store: what was refused fails it, and what was not landed leaves no trace.
#include "backend/with_store/store_backend.h"

#include <gtest/gtest.h>

#include "igd_vocabulary.h"
#include "term/failure.h"

namespace igdctl {
namespace {

const std::string kLanBridge = std::string(igd::kBridgeTable) + "1.";

class StoreBackendTest : public ::testing::Test {
 protected:
  StoreBackendTest() : tree_(backend_.open_tree(":memory:")) { backend_.end_read_hold(); }

  std::string bridge_name() { return tree_.getValue(kLanBridge + "BridgeName"); }
  void rename(const std::string& name) {
    ASSERT_EQ(tree_.setValue(kLanBridge + "BridgeName", name, 0), 0);
  }

  StoreBackend backend_;
  MibAccess& tree_;
};

TEST_F(StoreBackendTest, AWriteThatTheTreeRefusesFailsTheChange) {
  const auto change = backend_.begin_change();
  rename("lan");
  EXPECT_NE(tree_.setValue(kLanBridge + "NoSuchParameter", "1", 0), 0);
  try {
    (void)change->effect(false, false);
    FAIL() << "the refused write was passed over";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code, ExitCode::kPlatform);
    ASSERT_EQ(failure.problems.size(), 1U);
    EXPECT_NE(failure.problems[0].message.find("NoSuchParameter"), std::string::npos);
  }
}

TEST_F(StoreBackendTest, ABareNameOfAMissingObjectDoesNot) {
  const auto change = backend_.begin_change();
  rename("lan");
  EXPECT_NE(tree_.setValue("Enable", "true", 0), 0);
  const std::optional<ChangeEffect> effect = change->effect(false, false);
  ASSERT_TRUE(effect.has_value());
  EXPECT_FALSE(effect->empty);
}

TEST_F(StoreBackendTest, AChangeThatIsNotLandedIsDiscarded) {
  {
    const auto change = backend_.begin_change();
    rename("lan");
  }
  EXPECT_EQ(bridge_name(), igd::kLanBridgeName);
  const auto next = backend_.begin_change();
  const std::optional<ChangeEffect> effect = next->effect(false, false);
  ASSERT_TRUE(effect.has_value());
  EXPECT_TRUE(effect->empty);
}

TEST_F(StoreBackendTest, RefusalsOfBeforeAreNotThoseOfTheChange) {
  EXPECT_NE(tree_.setValue(kLanBridge + "NoSuchParameter", "1", 0), 0);
  const auto change = backend_.begin_change();
  EXPECT_NO_THROW((void)change->effect(false, false));
}

}  // namespace
}  // namespace igdctl
