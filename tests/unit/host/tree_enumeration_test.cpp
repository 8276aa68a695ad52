// What each object type enumerates, and in which order.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;
using Names = std::vector<std::string>;

struct TypeCase {
  int type;
  int number;
  const char* name;  // below the root, in the tree of `one_of_each`
};

const TypeCase kTypes[] = {
    {kForwardingDestIpAddress, 171, "Layer3Forwarding.Forwarding.1.DestIPAddress"},
    {kForwardingInterface, 177, "Layer3Forwarding.Forwarding.1.Interface"},
    {kBridgeName, 196, "Layer2Bridging.Bridge.1.BridgeName"},
    {kBridgeWanName, 197, "Layer2Bridging.Bridge.1.X_ZYN_WANName"},
    {kBridgeVlanId, 199, "Layer2Bridging.Bridge.1.VLANID"},
    {kPortEnable, 203, "Layer2Bridging.Bridge.1.Port.1.PortEnable"},
    {kPortDependWanName, 204, "Layer2Bridging.Bridge.1.Port.1.X_ZYN_DependWanName"},
    {kPortInterface, 205, "Layer2Bridging.Bridge.1.Port.1.PortInterface"},
    {kPortPvid, 209, "Layer2Bridging.Bridge.1.Port.1.PVID"},
    {kWanAccessType, 1007, "WANDevice.1.WANCommonInterfaceConfig.WANAccessType"},
    {kWanConnectionDevice, 1273, "WANDevice.1.WANConnectionDevice.1."},
    {kIpConnectionName, 1351, "WANDevice.1.WANConnectionDevice.1.WANIPConnection.1.Name"},
    {kAddressingType, 1359, "WANDevice.1.WANConnectionDevice.1.WANIPConnection.1.AddressingType"},
    {kPppConnection, 1429, "WANDevice.1.WANConnectionDevice.1.WANPPPConnection.1."},
    {kPppConnectionName, 1437, "WANDevice.1.WANConnectionDevice.1.WANPPPConnection.1.Name"},
    {kServiceList, 1887,
     "WANDevice.1.WANConnectionDevice.1.WANPPPConnection.1.X_CT-COM_ServiceList"},
};

Tree one_of_each() {
  Tree tree;
  const std::string device_path = add_connection_device(tree);
  added(tree, device_path + "WANIPConnection.");
  added(tree, device_path + "WANPPPConnection.");
  added(tree, added(tree, kBridges) + "Port.");
  added(tree, kRoutes);
  return tree;
}

TEST(Instances, OfEachTypeAreWhatItsNumberMeans) {
  const Tree tree = one_of_each();
  for (const TypeCase& expected : kTypes) {
    EXPECT_EQ(expected.type, expected.number) << expected.name;
    EXPECT_EQ(tree.instances(expected.number), Names{kRoot + expected.name}) << expected.number;
  }
}

TEST(Instances, OfEveryTypeAreNoneInANewTree) {
  const Tree tree;
  for (const TypeCase& expected : kTypes) {
    EXPECT_TRUE(tree.instances(expected.number).empty()) << expected.number;
  }
}

TEST(Instances, OfANumberThatIsNoTypeAreNone) {
  const Tree tree = one_of_each();
  for (const int number : {-1, 0, 1, 172, 100000}) {
    EXPECT_TRUE(tree.instances(number).empty()) << number;
  }
}

TEST(Instances, ComeInNumericOrderAtEveryLevel) {
  Tree tree;
  for (int i = 0; i < 11; ++i) added(tree, kBridges);
  // Made out of order: the last bridge's ports first.
  for (const int bridge : {11, 2, 1}) {
    for (int i = 0; i < 10; ++i) added(tree, kBridges + std::to_string(bridge) + ".Port.");
  }
  Names expected;
  for (const int bridge : {1, 2, 11}) {
    for (int port = 1; port <= 10; ++port) {
      expected.push_back(kBridges + std::to_string(bridge) + ".Port." + std::to_string(port) +
                         ".PVID");
    }
  }
  EXPECT_EQ(tree.instances(kPortPvid), expected);
}

TEST(Instances, IncludeParametersNeverWritten) {
  Tree tree;
  added(tree, kBridges);
  EXPECT_EQ(tree.instances(kBridgeWanName), Names{kBridges + "1.X_ZYN_WANName"});
}

TEST(Instances, LoseWhatIsDeleted) {
  Tree tree = one_of_each();
  tree.delete_object(kWanDevices + "1.");
  tree.delete_object("InternetGatewayDevice.Layer2Bridging.");
  tree.delete_object(kRoutes + "1.");
  for (const TypeCase& expected : kTypes) {
    EXPECT_TRUE(tree.instances(expected.number).empty()) << expected.number;
  }
}

TEST(Instances, OfTheServiceListAreOnePerPppConnection) {
  Tree tree;
  const std::string device_path = add_connection_device(tree);
  added(tree, device_path + "WANIPConnection.");
  added(tree, device_path + "WANIPConnection.");
  EXPECT_TRUE(tree.instances(kServiceList).empty());
  added(tree, device_path + "WANPPPConnection.");
  EXPECT_EQ(tree.instances(kServiceList).size(), 1U);
}

TEST(Instances, OfACopyPointIntoTheCopy) {
  Names copied;
  {
    Tree copy;
    {
      const Tree tree = one_of_each();
      copy = tree;
    }
    copied = copy.instances(kPortInterface);
  }
  EXPECT_EQ(copied, Names{kBridges + "1.Port.1.PortInterface"});
}

}  // namespace
