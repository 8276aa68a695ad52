// A walk over the instances of a type, as libigd makes it, while the tree changes.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;
using Names = std::vector<std::string>;

class TreeWalk : public testing::Test {
 protected:
  TreeWalk() : before_(host::exchange_active_tree(&tree_)) {
    for (int i = 1; i <= 4; ++i) tree_.set_value(added(tree_, kBridges) + "BridgeName", name_of(i));
  }
  ~TreeWalk() override { host::exchange_active_tree(before_); }

  static std::string name_of(int number) { return "bridge " + std::to_string(number); }
  static std::string bridge(int number) { return kBridges + std::to_string(number) + "."; }

  InstanceIterator* opened(int type) { return access_.openInstanceIterator(type); }
  std::string value(InstanceIterator* walk) { return access_.getValue(walk->fullName()); }

  /// The values that the rest of a walk finds; closes it.
  Names rest(InstanceIterator* walk) {
    Names values;
    do {
      values.push_back(value(walk));
    } while (walk->next() != 0);
    access_.closeInstanceIterator(walk);
    return values;
  }

  Names expected(int first) const {
    Names values;
    for (int i = first; i <= 4; ++i) values.push_back(name_of(i));
    return values;
  }

  Tree tree_;
  Tree* before_;
  MibAccess& access_ = host::mib_access();
};

TEST_F(TreeWalk, FindsEachValueAgainAndAgain) {
  for (int i = 0; i < 3; ++i) EXPECT_EQ(rest(opened(kBridgeName)), expected(1));
}

TEST_F(TreeWalk, FindsValuesOutOfTurn) {
  InstanceIterator* walk = opened(kBridgeName);
  EXPECT_EQ(tree_.value(bridge(3) + "BridgeName"), name_of(3));
  EXPECT_EQ(value(walk), name_of(1));
  EXPECT_EQ(value(walk), name_of(1));
  EXPECT_NE(walk->next(), 0);
  EXPECT_NE(walk->next(), 0);
  EXPECT_EQ(rest(walk), expected(3));
}

TEST_F(TreeWalk, SeesWhatIsWrittenOnTheWay) {
  InstanceIterator* walk = opened(kBridgeName);
  tree_.set_value(bridge(1) + "BridgeName", "new");
  EXPECT_EQ(value(walk), "new");
  EXPECT_NE(walk->next(), 0);
  tree_.set_value(walk->fullName(), "newer");
  EXPECT_EQ(value(walk), "newer");
  EXPECT_NE(walk->next(), 0);
  EXPECT_EQ(rest(walk), expected(3));
}

TEST_F(TreeWalk, GoesOnOverTheNamesThereWereWhenObjectsGo) {
  InstanceIterator* walk = opened(kBridgeName);
  EXPECT_EQ(value(walk), name_of(1));
  tree_.delete_object(bridge(1));
  tree_.delete_object(bridge(3));
  EXPECT_EQ(value(walk), "");
  EXPECT_NE(walk->next(), 0);
  EXPECT_EQ(rest(walk), (Names{name_of(2), "", name_of(4)}));
  EXPECT_EQ(rest(opened(kBridgeName)), (Names{name_of(2), name_of(4)}));
}

TEST_F(TreeWalk, OpenedAnewHasWhatCameMeanwhile) {
  InstanceIterator* walk = opened(kBridgeName);
  tree_.set_value(added(tree_, kBridges) + "BridgeName", name_of(5));
  EXPECT_EQ(rest(walk), expected(1));
  EXPECT_EQ(rest(opened(kBridgeName)).back(), name_of(5));
}

TEST_F(TreeWalk, IsNotDisturbedByAnother) {
  InstanceIterator* outer = opened(kBridgeName);
  Names values;
  do {
    EXPECT_EQ(rest(opened(kBridgeVlanId)).size(), 4U);
    EXPECT_EQ(rest(opened(kBridgeName)), expected(1));
    values.push_back(value(outer));
  } while (outer->next() != 0);
  access_.closeInstanceIterator(outer);
  EXPECT_EQ(values, expected(1));
}

TEST_F(TreeWalk, OverObjectsFindsTheirParameters) {
  InstanceIterator* walk = opened(kWanConnectionDevice);
  EXPECT_EQ(walk, nullptr);
  const std::string device_path = add_connection_device(tree_);
  walk = opened(kWanConnectionDevice);
  ASSERT_NE(walk, nullptr);
  EXPECT_EQ(walk->fullName(), device_path);
  EXPECT_EQ(access_.getValue(walk->fullName()), "");
  EXPECT_EQ(access_.getValue(walk->fullName() + "WANIPConnectionNumberOfEntries"), "0");
  access_.closeInstanceIterator(walk);
}

TEST_F(TreeWalk, OfACopyAndOfAMovedTreeFindsTheirOwnValues) {
  InstanceIterator* walk = opened(kBridgeName);
  Tree copy = tree_;
  copy.set_value(bridge(1) + "BridgeName", "of the copy");
  EXPECT_EQ(copy.value(bridge(1) + "BridgeName"), "of the copy");
  EXPECT_EQ(value(walk), name_of(1));
  tree_ = std::move(copy);
  EXPECT_EQ(value(walk), "of the copy");
  EXPECT_NE(walk->next(), 0);
  EXPECT_EQ(rest(walk), expected(2));
}

TEST_F(TreeWalk, OutlivesItsTree) {
  InstanceIterator* walk = nullptr;
  {
    Tree other = tree_;
    host::exchange_active_tree(&other);
    walk = opened(kBridgeName);
    host::exchange_active_tree(&tree_);
  }
  EXPECT_EQ(rest(walk), expected(1));
}

}  // namespace
