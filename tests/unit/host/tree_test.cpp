// Instances, values, copies and listings of a tree.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;

std::vector<std::string> names_of(const std::vector<host::Parameter>& parameters) {
  std::vector<std::string> names;
  for (const auto& parameter : parameters) names.push_back(parameter.name);
  return names;
}

TEST(NewTree, HasTheSingleObjectsAndEmptyTables) {
  const Tree tree;
  EXPECT_TRUE(tree.has_object("InternetGatewayDevice."));
  EXPECT_TRUE(tree.has_object("InternetGatewayDevice.ManagementServer."));
  EXPECT_TRUE(tree.has_object(kWanDevices));
  EXPECT_TRUE(tree.has_object(kBridges));
  EXPECT_FALSE(tree.has_object(kWanDevices + "1."));
  EXPECT_FALSE(tree.has_object(kBridges + "1."));
}

TEST(NewTree, HasTheParametersOfItsSingleObjects) {
  const Tree tree;
  EXPECT_TRUE(tree.has_parameter("InternetGatewayDevice.ManagementServer.URL"));
  EXPECT_EQ(tree.value("InternetGatewayDevice.ManagementServer.URL"), "");
  EXPECT_EQ(tree.value("InternetGatewayDevice.DeviceInfo.SpecVersion"), "1.0");
}

TEST(AddObject, NumbersInstancesFromOneUpwards) {
  Tree tree;
  EXPECT_EQ(added(tree, kWanDevices), kWanDevices + "1.");
  EXPECT_EQ(added(tree, kWanDevices), kWanDevices + "2.");
  EXPECT_EQ(added(tree, kWanDevices), kWanDevices + "3.");
}

TEST(AddObject, NumbersEveryTableOnItsOwn) {
  Tree tree;
  const std::string first = added(tree, kBridges);
  const std::string second = added(tree, kBridges);
  EXPECT_EQ(added(tree, first + "Port."), first + "Port.1.");
  EXPECT_EQ(added(tree, first + "Port."), first + "Port.2.");
  EXPECT_EQ(added(tree, second + "Port."), second + "Port.1.");
}

TEST(AddObject, NeverUsesANumberAgain) {
  Tree tree;
  for (int i = 0; i < 3; ++i) added(tree, kBridges);
  ASSERT_EQ(tree.delete_object(kBridges + "2."), 0);
  ASSERT_EQ(tree.delete_object(kBridges + "3."), 0);
  EXPECT_EQ(added(tree, kBridges), kBridges + "4.");
}

TEST(AddObject, GivesTheInstanceItsParametersWithTheirDefaults) {
  Tree tree;
  const std::string port_path = added(tree, added(tree, kBridges) + "Port.");
  EXPECT_EQ(tree.value(port_path + "PortEnable"), "false");
  EXPECT_EQ(tree.value(port_path + "PVID"), "1");
  EXPECT_TRUE(tree.has_parameter(port_path + "X_ZYN_DependWanName"));
  EXPECT_EQ(tree.value(port_path + "X_ZYN_DependWanName"), "");
}

TEST(AddObject, GivesTheInstanceItsSingleObjects) {
  Tree tree;
  const std::string device_path = add_connection_device(tree);
  EXPECT_TRUE(tree.has_parameter(kWanDevices + "1.WANCommonInterfaceConfig.WANAccessType"));
  EXPECT_EQ(tree.value(device_path + "WANEthernetLinkConfig.X_CT-COM_Mode"), "0");
  EXPECT_EQ(tree.value(device_path + "WANEthernetLinkConfig.X_CT-COM_VLANIDMark"), "0");
  const std::string connection_path = added(tree, device_path + "WANIPConnection.");
  EXPECT_TRUE(tree.has_parameter(connection_path + "Stats.EthernetBytesSent"));
}

TEST(AddObject, LeavesTheTablesOfTheInstanceEmpty) {
  Tree tree;
  const std::string device_path = add_connection_device(tree);
  EXPECT_TRUE(tree.has_object(device_path + "WANIPConnection."));
  EXPECT_FALSE(tree.has_object(device_path + "WANIPConnection.1."));
}

TEST(AddObject, GivesABridgeNoPvid) {
  Tree tree;
  const std::string bridge_path = added(tree, kBridges);
  EXPECT_FALSE(tree.has_parameter(bridge_path + "PVID"));
  EXPECT_EQ(tree.value(bridge_path + "PVID"), "");
}

TEST(SetValue, StoresAnyTextInAnyKnownParameter) {
  Tree tree;
  added(tree, kWanDevices);
  const std::string read_only = kWanDevices + "1.WANCommonInterfaceConfig.WANAccessType";
  const std::string unsigned_int = kWanDevices + "1.WANCommonInterfaceConfig.TotalBytesSent";
  const std::string odd = std::string("a,\"b\"\n\0\xff", 8);
  for (const std::string& text : {std::string("3G"), std::string(), odd}) {
    EXPECT_EQ(tree.set_value(read_only, text), 0);
    EXPECT_EQ(tree.value(read_only), text);
    EXPECT_EQ(tree.set_value(unsigned_int, text), 0);
    EXPECT_EQ(tree.value(unsigned_int), text);
  }
}

TEST(SetValue, ReplacesTextsOfEveryLengthByTextsOfEveryOther) {
  Tree tree;
  const std::string name = added(tree, kBridges) + "BridgeName";
  constexpr std::size_t kLongest = 70;
  for (std::size_t before = 0; before <= kLongest; ++before) {
    for (std::size_t after = 0; after <= kLongest; ++after) {
      ASSERT_EQ(tree.set_value(name, std::string(before, 'b')), 0);
      ASSERT_EQ(tree.set_value(name, std::string(after, 'a')), 0);
      ASSERT_EQ(tree.value(name), std::string(after, 'a')) << before;
    }
  }
}

TEST(SetValue, TakesTheDefaultAndTheEmptyTextLikeAnyOther) {
  Tree tree;
  const std::string name = added(tree, kBridges) + "BridgeStandard";
  for (const char* text : {"802.1Q", "802.1D", "", "802.1D", "802.1Q"}) {
    EXPECT_EQ(tree.set_value(name, text), 0);
    EXPECT_EQ(tree.value(name), text);
  }
}

TEST(SetValue, TouchesNoOtherParameter) {
  Tree tree;
  added(tree, kBridges);
  const std::string bridge_path = added(tree, kBridges);
  auto expected = tree.parameters(kBridges);
  for (auto& parameter : expected) {
    if (tree.describe(parameter.name)->derived) continue;
    parameter.value = "of " + parameter.name;
    EXPECT_EQ(tree.set_value(parameter.name, parameter.value), 0);
  }
  const auto listed = tree.parameters(kBridges);
  ASSERT_EQ(listed.size(), expected.size());
  for (std::size_t i = 0; i < listed.size(); ++i) {
    EXPECT_EQ(listed[i].name, expected[i].name);
    EXPECT_EQ(listed[i].value, expected[i].value);
    EXPECT_EQ(tree.value(expected[i].name), expected[i].value);
  }
}

TEST(Value, OfAnUnknownNameIsEmptyAndNoRefusal) {
  const Tree tree;
  EXPECT_EQ(tree.value("Enable"), "");
  EXPECT_EQ(tree.value(""), "");
  EXPECT_EQ(tree.value("InternetGatewayDevice."), "");
  EXPECT_TRUE(tree.refusals().empty());
}

TEST(Count, IsTheNumberOfInstances) {
  Tree tree;
  const std::string count = "InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries";
  EXPECT_EQ(tree.value(count), "0");
  for (int i = 0; i < 11; ++i) added(tree, kBridges);
  EXPECT_EQ(tree.value(count), "11");
  tree.delete_object(kBridges + "4.");
  EXPECT_EQ(tree.value(count), "10");
}

TEST(Count, OfATableThatTheDataModelLacksIsZero) {
  const Tree tree;
  EXPECT_EQ(tree.value("InternetGatewayDevice.UserNumberOfEntries"), "0");
}

TEST(Copy, IsIndependent) {
  Tree tree;
  const std::string bridge_path = added(tree, kBridges);
  tree.set_value(bridge_path + "BridgeName", "first");
  Tree copy = tree;
  copy.set_value(bridge_path + "BridgeName", "second");
  tree.delete_object(bridge_path);
  EXPECT_EQ(copy.value(bridge_path + "BridgeName"), "second");
  EXPECT_EQ(copy.instances(kBridgeName).size(), 1U);
  EXPECT_EQ(copy.value("InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries"), "1");
}

TEST(Copy, GoesOnCountingWhereTheOriginalWas) {
  Tree tree;
  added(tree, kBridges);
  tree.delete_object(kBridges + "1.");
  Tree copy = tree;
  EXPECT_EQ(added(copy, kBridges), kBridges + "2.");
}

TEST(Copy, CanBeAssignedOverAnotherTreeAndItself) {
  Tree tree;
  added(tree, kBridges);
  Tree other;
  added(other, kWanDevices);
  other = tree;
  other = *&other;
  EXPECT_TRUE(other.has_object(kBridges + "1."));
  EXPECT_FALSE(other.has_object(kWanDevices + "1."));
}

TEST(Parameters, ListsAnObjectsOwnInByteOrderThenThoseBelow) {
  const Tree tree;
  const auto listed = names_of(tree.parameters("InternetGatewayDevice.Layer3Forwarding."));
  const std::vector<std::string> expected = {
      "InternetGatewayDevice.Layer3Forwarding.DefaultConnectionService",
      "InternetGatewayDevice.Layer3Forwarding.ForwardNumberOfEntries"};
  EXPECT_EQ(listed, expected);
}

TEST(Parameters, ListsInstancesInNumericOrder) {
  Tree tree;
  for (int i = 0; i < 10; ++i) added(tree, kRoutes);
  std::vector<std::string> order;
  for (const auto& name : names_of(tree.parameters(kRoutes))) {
    const std::string number = name.substr(kRoutes.size(), name.rfind('.') - kRoutes.size());
    if (order.empty() || order.back() != number) order.push_back(number);
  }
  const std::vector<std::string> expected = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
  EXPECT_EQ(order, expected);
}

TEST(Parameters, TakesThePrefixAsPlainText) {
  Tree tree;
  for (int i = 0; i < 10; ++i) added(tree, kRoutes);
  const std::size_t one = tree.parameters(kRoutes + "1.").size();
  EXPECT_GT(one, 0U);
  EXPECT_EQ(tree.parameters(kRoutes + "1").size(), 2 * one);  // 1 and 10
  EXPECT_EQ(names_of(tree.parameters(kRoutes + "1.Enable")),
            std::vector<std::string>{kRoutes + "1.Enable"});
  EXPECT_EQ(tree.parameters("Internet").size(), tree.parameters().size());
  EXPECT_TRUE(tree.parameters("Device.").empty());
}

TEST(Parameters, ShowsComputedCounts) {
  Tree tree;
  added(tree, kRoutes);
  const auto listed = tree.parameters("InternetGatewayDevice.Layer3Forwarding.ForwardNumber");
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed.front().value, "1");
}

}  // namespace
