// What getContext() hands out: the tree as other programs see it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common_util.h"
#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;

class Context : public testing::Test {
 protected:
  Context() : before_(host::exchange_active_tree(&tree_)) {}
  ~Context() override { host::exchange_active_tree(before_); }

  static MibAccess& mib() { return *getContext()->mibAccess(); }

  Tree tree_;

 private:
  Tree* before_;
};

TEST_F(Context, IsOneForTheWholeProcess) {
  ASSERT_NE(getContext(), nullptr);
  EXPECT_EQ(getContext(), getContext());
  EXPECT_EQ(getContext()->mibAccess(), getContext()->mibAccess());
  EXPECT_EQ(getContext()->mibAccess(), &host::mib_access());
}

TEST_F(Context, HasNoSecondService) { EXPECT_EQ(getContext()->secondService(), nullptr); }

TEST_F(Context, ReachesTheActiveTree) {
  int number = 0;
  EXPECT_EQ(mib().addObject(kBridges, &number, 255), 0);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(mib().setValue(kBridges + "1.BridgeName", "internet", 0), 0);
  EXPECT_EQ(mib().getValue(kBridges + "1.BridgeName"), "internet");
  EXPECT_EQ(tree_.value(kBridges + "1.BridgeName"), "internet");
  EXPECT_EQ(mib().deleteObject(kBridges + "1."), 0);
  EXPECT_FALSE(tree_.has_object(kBridges + "1."));
}

TEST_F(Context, ReportsRefusalsAndNotesThemInTheTree) {
  int number = 0;
  EXPECT_NE(mib().addObject("nowhere.", &number, 255), 0);
  EXPECT_NE(mib().addObject(kBridges, nullptr, 255), 0);
  EXPECT_NE(mib().setValue("Enable", "false", 0), 0);
  EXPECT_NE(mib().deleteObject(""), 0);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(tree_.refusals().size(), 4U);
}

TEST_F(Context, CommitsAndAppliesWithoutFailure) {
  EXPECT_EQ(mib().commit(1), 0);
  EXPECT_EQ(mib().applyChanges(""), 0);
}

TEST_F(Context, KeepsItsMibAccessWhenTheTreeIsExchanged) {
  MibAccess& access = mib();
  Tree other;
  added(other, kRoutes);
  EXPECT_EQ(host::exchange_active_tree(&other), &tree_);
  EXPECT_EQ(getContext()->mibAccess(), &access);
  EXPECT_EQ(access.getValue("InternetGatewayDevice.Layer3Forwarding.ForwardNumberOfEntries"), "1");
  EXPECT_EQ(host::exchange_active_tree(&tree_), &other);
}

TEST_F(Context, GoesBackToTheProcessesOwnTree) {
  EXPECT_EQ(host::exchange_active_tree(nullptr), &tree_);
  Tree& own = host::active_tree();
  EXPECT_NE(&own, &tree_);
  EXPECT_EQ(host::exchange_active_tree(&tree_), &own);
}

TEST_F(Context, StartsInFactoryState) {
  host::exchange_active_tree(nullptr);
  EXPECT_EQ(mib().getValue(kBridges + "1.BridgeName"), "internet");
  host::exchange_active_tree(&tree_);
}

TEST_F(Context, SeesATreeThatIsAssigned) {
  host::active_tree() = Tree::factory();
  EXPECT_EQ(mib().getValue(kBridges + "1.BridgeName"), "internet");
}

TEST_F(Context, OpensNoWalkWhenThereIsNoInstance) {
  EXPECT_EQ(mib().openInstanceIterator(kBridgeName), nullptr);
  EXPECT_EQ(mib().openInstanceIterator(0), nullptr);
}

TEST_F(Context, OpensAWalkThatStandsOnTheFirstInstance) {
  added(tree_, kBridges);
  added(tree_, kBridges);
  InstanceIterator* walk = mib().openInstanceIterator(kBridgeName);
  ASSERT_NE(walk, nullptr);
  EXPECT_EQ(walk->fullName(), kBridges + "1.BridgeName");
  EXPECT_NE(walk->next(), 0);
  EXPECT_EQ(walk->fullName(), kBridges + "2.BridgeName");
  EXPECT_EQ(walk->next(), 0);
  EXPECT_EQ(walk->next(), 0);
  EXPECT_EQ(walk->fullName(), "");
  mib().closeInstanceIterator(walk);
}

TEST_F(Context, LetsAWalkSurviveWrites) {
  for (int i = 0; i < 3; ++i) added(tree_, kBridges);
  InstanceIterator* walk = mib().openInstanceIterator(kBridgeName);
  ASSERT_NE(walk, nullptr);
  std::vector<std::string> walked;
  do {
    walked.push_back(walk->fullName());
    tree_.delete_object(kBridges + "1.");
    tree_.delete_object(kBridges + "2.");
    added(tree_, kBridges);
  } while (walk->next() != 0);
  mib().closeInstanceIterator(walk);
  const std::vector<std::string> expected = {kBridges + "1.BridgeName", kBridges + "2.BridgeName",
                                             kBridges + "3.BridgeName"};
  EXPECT_EQ(walked, expected);
}

TEST_F(Context, WalksTwiceAtATime) {
  added(tree_, kBridges);
  InstanceIterator* first = mib().openInstanceIterator(kBridgeName);
  InstanceIterator* second = mib().openInstanceIterator(kBridgeVlanId);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(first->next(), 0);
  EXPECT_EQ(second->fullName(), kBridges + "1.VLANID");
  mib().closeInstanceIterator(first);
  mib().closeInstanceIterator(second);
}

TEST_F(Context, ClosesNoWalkWithoutHarm) { mib().closeInstanceIterator(nullptr); }

}  // namespace
