// The state in which a gateway leaves the factory.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;

TEST(FactoryState, HasOneLanDeviceWithItsAddress) {
  const Tree tree = Tree::factory();
  const std::string interface_path =
      "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1.";
  EXPECT_EQ(tree.value("InternetGatewayDevice.LANDeviceNumberOfEntries"), "1");
  EXPECT_EQ(tree.value(interface_path + "IPInterfaceIPAddress"), "192.168.1.1");
  EXPECT_EQ(tree.value(interface_path + "IPInterfaceSubnetMask"), "255.255.255.0");
}

TEST(FactoryState, HasTheLanBridgeAlone) {
  const Tree tree = Tree::factory();
  ASSERT_EQ(tree.instances(kBridgeName), std::vector<std::string>{kBridges + "1.BridgeName"});
  EXPECT_EQ(tree.value(kBridges + "1.BridgeName"), "internet");
  EXPECT_EQ(tree.value(kBridges + "1.BridgeStandard"), "802.1D");
  EXPECT_EQ(tree.value(kBridges + "1.BridgeEnable"), "true");
  EXPECT_EQ(tree.value(kBridges + "1.VLANID"), "0");
  EXPECT_EQ(tree.value(kBridges + "1.X_ZYN_WANName"), "");
}

TEST(FactoryState, HoldsTheEightPortsUnboundInTheLanBridge) {
  const Tree tree = Tree::factory();
  std::vector<std::string> ports;
  for (const auto& name : tree.instances(kPortInterface)) ports.push_back(tree.value(name));
  const std::vector<std::string> expected = {"LAN1",  "LAN2",  "LAN3",  "LAN4",
                                             "WLAN1", "WLAN2", "WLAN3", "WLAN4"};
  EXPECT_EQ(ports, expected);
  for (const auto& name : tree.instances(kPortEnable)) EXPECT_EQ(tree.value(name), "true");
  for (const auto& name : tree.instances(kPortPvid)) EXPECT_EQ(tree.value(name), "");
  for (const auto& name : tree.instances(kPortDependWanName)) EXPECT_EQ(tree.value(name), "");
}

TEST(FactoryState, HasNoWanDeviceAndNoRoute) {
  const Tree tree = Tree::factory();
  EXPECT_EQ(tree.value("InternetGatewayDevice.WANDeviceNumberOfEntries"), "0");
  EXPECT_TRUE(tree.instances(kWanAccessType).empty());
  EXPECT_TRUE(tree.instances(kForwardingDestIpAddress).empty());
}

TEST(FactoryState, KnowsNoManagementServer) {
  const Tree tree = Tree::factory();
  for (const char* parameter : {"URL", "Username", "Password", "ConnectionRequestURL",
                                "ConnectionRequestUsername", "ConnectionRequestPassword"}) {
    const std::string name = std::string("InternetGatewayDevice.ManagementServer.") + parameter;
    EXPECT_TRUE(tree.has_parameter(name)) << name;
    EXPECT_EQ(tree.value(name), "") << name;
  }
}

TEST(FactoryState, WasMadeWithoutARefusal) { EXPECT_TRUE(Tree::factory().refusals().empty()); }

}  // namespace
