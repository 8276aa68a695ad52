// Calls that a tree refuses: a result that is not 0, a noted reason, and nothing changed.
#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace host {
bool operator==(const Parameter& left, const Parameter& right) {
  return left.name == right.name && left.value == right.value;
}
}  // namespace host

namespace {

using namespace host_tests;
using host::Tree;

struct RefusalCase {
  std::string call;
  std::string name;
  std::string reason;
};

int called(Tree& tree, const RefusalCase& refusal, int& instance) {
  if (refusal.call == "addObject") return tree.add_object(refusal.name, &instance);
  if (refusal.call == "deleteObject") return tree.delete_object(refusal.name);
  return tree.set_value(refusal.name, "written");
}

const std::string kNoDot = "the path of an object ends in a dot";
const std::string kNoObject = "no such object";
const std::string kNoParameter = "no such parameter";

const RefusalCase kRefusals[] = {
    {"addObject", "", "the path is empty"},
    {"addObject", "InternetGatewayDevice.", "this object is not a table"},
    {"addObject", "InternetGatewayDevice", kNoDot},
    {"addObject", "InternetGatewayDevice.Layer3Forwarding.", "this object is not a table"},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge", kNoDot},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge.1.", "this object is not a table"},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge.0.Port.", kNoObject},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge.9.Port.", kNoObject},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge.01.Port.", kNoObject},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge.-1.Port.", kNoObject},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge.4294967297.Port.", kNoObject},
    {"addObject", "InternetGatewayDevice.Layer2Bridging.Bridge..", kNoObject},
    {"addObject", "InternetGatewayDevice.User.", kNoObject},
    {"addObject", "Layer2Bridging.Bridge.", kNoObject},
    {"addObject", "PortMapping.", kNoObject},
    {"addObject", "InternetGatewayDevice.ManagementServer.URL",
     "this is a parameter, not an object"},

    {"deleteObject", "", "the path is empty"},
    {"deleteObject", ".", kNoObject},
    {"deleteObject", "InternetGatewayDevice.", "the root cannot be deleted"},
    {"deleteObject", "InternetGatewayDevice.Layer2Bridging.Bridge.",
     "a table cannot be deleted, only its instances"},
    {"deleteObject", "InternetGatewayDevice.Layer2Bridging.Bridge.1", kNoDot},
    {"deleteObject", "InternetGatewayDevice.Layer2Bridging.Bridge.0.", kNoObject},
    {"deleteObject", "InternetGatewayDevice.Layer2Bridging.Bridge.01.", kNoObject},
    {"deleteObject", "InternetGatewayDevice.Layer2Bridging.Bridge.2.", kNoObject},
    {"deleteObject", "InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName",
     "this is a parameter, not an object"},
    {"deleteObject", "Device.", kNoObject},

    {"setValue", "", kNoParameter},
    {"setValue", "Enable", kNoParameter},
    {"setValue", "X_CT-COM_LanInterface", kNoParameter},
    {"setValue", "InternetGatewayDevice.", "this is an object, not a parameter"},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge.",
     "this is an object, not a parameter"},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge", kNoParameter},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge.0.BridgeName", kNoParameter},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge.01.BridgeName", kNoParameter},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge.2.BridgeName", kNoParameter},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge.1.PVID", kNoParameter},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge.1.bridgename", kNoParameter},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName.", kNoParameter},
    {"setValue", "InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries",
     "the number of instances is computed"},
    {"setValue", "InternetGatewayDevice.UserNumberOfEntries",
     "the number of instances is computed"},
};

class RefusedCall : public testing::TestWithParam<RefusalCase> {};

TEST_P(RefusedCall, IsNotedAndChangesNothing) {
  const RefusalCase& refusal = GetParam();
  Tree tree;
  added(tree, kBridges);
  const auto before = tree.parameters();
  int instance = -7;
  EXPECT_NE(called(tree, refusal, instance), 0);
  EXPECT_EQ(instance, -7);
  EXPECT_TRUE(tree.parameters() == before);
  ASSERT_EQ(tree.refusals().size(), 1U);
  EXPECT_EQ(tree.refusals()[0].call, refusal.call);
  EXPECT_EQ(tree.refusals()[0].name, refusal.name);
  EXPECT_EQ(tree.refusals()[0].reason, refusal.reason);
  EXPECT_EQ(added(tree, kBridges), kBridges + "2.");  // no number was used up
}

// "setValue_29_InternetGatewayDevice_": names of tests take letters, digits and "_" only.
std::string test_name(const testing::TestParamInfo<RefusalCase>& refusal) {
  std::string name = refusal.param.call + "_" + std::to_string(refusal.index) + "_";
  for (const char c : refusal.param.name) name += std::isalnum(c) != 0 ? c : '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Tree, RefusedCall, testing::ValuesIn(kRefusals), test_name);

TEST(AddObject, WithoutAPlaceForTheNumberIsRefused) {
  Tree tree;
  EXPECT_NE(tree.add_object(kBridges, nullptr), 0);
  EXPECT_FALSE(tree.has_object(kBridges + "1."));
  ASSERT_EQ(tree.refusals().size(), 1U);
  EXPECT_EQ(tree.refusals()[0].reason, "the pointer to the instance number is null");
}

TEST(SetValue, OfALongerTextThanTheLongestIsRefused) {
  Tree tree;
  const std::string name = kRoot + "ManagementServer.URL";
  EXPECT_EQ(tree.set_value(name, std::string(host::kLongestText, 'x')), 0);
  EXPECT_NE(tree.set_value(name, std::string(host::kLongestText + 1, 'y')), 0);
  EXPECT_TRUE(tree.value(name) == std::string(host::kLongestText, 'x'));
  ASSERT_EQ(tree.refusals().size(), 1U);
  EXPECT_EQ(tree.refusals()[0].name, name);
  EXPECT_EQ(tree.refusals()[0].reason, "the text is longer than 16 MiB");
}

TEST(Refusals, StandInTheOrderOfTheCalls) {
  Tree tree;
  tree.set_value("first", "");
  tree.delete_object("second.");
  ASSERT_EQ(tree.refusals().size(), 2U);
  EXPECT_EQ(tree.refusals()[0].name, "first");
  EXPECT_EQ(tree.refusals()[1].name, "second.");
}

TEST(Refusals, CanBeCleared) {
  Tree tree;
  tree.set_value("first", "");
  tree.clear_refusals();
  EXPECT_TRUE(tree.refusals().empty());
}

TEST(Refusals, AreNotMadeByCallsThatSucceed) {
  Tree tree;
  const std::string bridge_path = added(tree, kBridges);
  tree.set_value(bridge_path + "BridgeName", "internet");
  tree.delete_object(bridge_path);
  EXPECT_TRUE(tree.refusals().empty());
}

TEST(Refusals, KeepTheNewestAndDoNotGrowWithoutEnd) {
  Tree tree;
  constexpr int kCalls = 45000;
  for (int i = 1; i <= kCalls; ++i) tree.set_value(std::to_string(i), "");
  const auto& refusals = tree.refusals();
  ASSERT_GE(refusals.size(), 10000U);
  EXPECT_LE(refusals.size(), 20000U);
  for (std::size_t i = 0; i < refusals.size(); ++i) {
    EXPECT_EQ(refusals[refusals.size() - 1 - i].name, std::to_string(kCalls - static_cast<int>(i)));
  }
}

}  // namespace
