// commit, applyChanges, and the context that leads to the tree.
#include <string>

#include "contract_test.h"

namespace contract {
namespace {

class Commit : public Contract {};

TEST_P(Commit, OfNothingHasResultZero) {
  EXPECT_EQ(mib().commit(1), 0);
  EXPECT_EQ(mib().commit(1), 0);
}

TEST_P(Commit, OfABatchHasResultZeroAndKeepsWhatWasWritten) {
  const Gateway gateway = add_one_of_each();
  set(gateway.bridge + "BridgeName", "kept");
  remove(gateway.port);
  EXPECT_EQ(mib().commit(1), 0);
  EXPECT_EQ(get(gateway.bridge + "BridgeName"), "kept");
  EXPECT_EQ(walk_mine(kBridgeName), Names{gateway.bridge + "BridgeName"});
  EXPECT_EQ(walk_mine(kPortEnable), Names{});
}

TEST_P(Commit, IsNotNeededToSeeOnesOwnWrites) {
  const std::string bridge = add(kBridges);
  set(bridge + "BridgeName", "seen");
  EXPECT_EQ(get(bridge + "BridgeName"), "seen");
  EXPECT_EQ(walk_mine(kBridgeName), Names{bridge + "BridgeName"});
  remove(bridge);
  EXPECT_EQ(walk_mine(kBridgeName), Names{});
}

TEST_P(Commit, SucceedsAfterARefusedName) {
  const std::string name = add(kBridges) + "BridgeName";
  expect_refused("setValue", "Enable");
  (void)mib().setValue("Enable", "true", 0);
  set(name, "kept");
  EXPECT_EQ(mib().commit(1), 0);
  EXPECT_EQ(get(name), "kept");
}

TEST_P(Commit, LeavesNumbersToCountOn) {
  const std::string ports = add(kBridges) + "Port.";
  add(ports);
  EXPECT_EQ(mib().commit(1), 0);
  remove(ports + "1.");
  EXPECT_EQ(mib().commit(1), 0);
  EXPECT_EQ(number_of_added(ports), 2);
}

TEST_P(Commit, MayBeFollowedByApplyChanges) {
  const std::string route = add(kRoutes);
  EXPECT_EQ(mib().commit(1), 0);
  EXPECT_EQ(mib().applyChanges(""), 0);
  EXPECT_EQ(walk_mine(kForwardingInterface), Names{route + "Interface"});
}

INSTANTIATE_TEST_SUITE_P(Platform, Commit, testing::ValuesIn(platforms()), platform_name);

TEST(Context, IsOneForTheWholeProcessAndSoIsItsTree) {
  PlatformContext* const context = getContext();
  ASSERT_NE(context, nullptr);
  EXPECT_EQ(getContext(), context);
  MibAccess* const tree = context->mibAccess();
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(context->mibAccess(), tree);
  (void)context->secondService();
}

TEST(DebugLog, TakesALine) { c_debug_out("igd_api", 1, "contract suite: %s %d", "text", 7); }

}  // namespace
}  // namespace contract
