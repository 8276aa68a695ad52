// What deleting an object takes away, and what stays.
#include <gtest/gtest.h>

#include <string>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;

TEST(DeleteObject, RemovesTheInstanceWithEverythingBelow) {
  Tree tree;
  const std::string device_path = add_connection_device(tree);
  const std::string connection_path = added(tree, device_path + "WANPPPConnection.");
  const std::string mapping_path = added(tree, connection_path + "PortMapping.");
  EXPECT_EQ(tree.delete_object(device_path), 0);
  for (const std::string& path : {device_path, connection_path, mapping_path,
                                  connection_path + "Stats.", device_path + "WANIPConnection."}) {
    EXPECT_FALSE(tree.has_object(path)) << path;
  }
  EXPECT_FALSE(tree.has_parameter(mapping_path + "PortMappingProtocol"));
  EXPECT_EQ(tree.value(connection_path + "ConnectionTrigger"), "");
  EXPECT_TRUE(tree.has_object(kWanDevices + "1."));
}

TEST(DeleteObject, LeavesTheOtherInstancesAlone) {
  Tree tree;
  for (int i = 0; i < 11; ++i) added(tree, kBridges);
  tree.set_value(kBridges + "11.BridgeName", "stays");
  EXPECT_EQ(tree.delete_object(kBridges + "1."), 0);
  EXPECT_EQ(tree.value(kBridges + "11.BridgeName"), "stays");
}

TEST(DeleteObject, WorksOnceOnly) {
  Tree tree;
  added(tree, kBridges);
  EXPECT_EQ(tree.delete_object(kBridges + "1."), 0);
  EXPECT_NE(tree.delete_object(kBridges + "1."), 0);
}

TEST(DeleteObject, EmptiesTheTablesOfASingleObjectAndRestoresItsDefaults) {
  Tree tree;
  added(tree, kRoutes);
  added(tree, kRoutes);
  tree.set_value("InternetGatewayDevice.Layer3Forwarding.DefaultConnectionService", "some");
  EXPECT_EQ(tree.delete_object("InternetGatewayDevice.Layer3Forwarding."), 0);
  EXPECT_TRUE(tree.has_object(kRoutes));
  EXPECT_TRUE(tree.instances(kForwardingDestIpAddress).empty());
  EXPECT_EQ(tree.value("InternetGatewayDevice.Layer3Forwarding.ForwardNumberOfEntries"), "0");
  EXPECT_EQ(tree.value("InternetGatewayDevice.Layer3Forwarding.DefaultConnectionService"), "");
  EXPECT_TRUE(tree.refusals().empty());
}

TEST(DeleteObject, OnAnEmptySingleObjectIsNoFailure) {
  Tree tree;
  EXPECT_EQ(tree.delete_object("InternetGatewayDevice.Layer3Forwarding."), 0);
}

TEST(DeleteObject, OnASingleObjectKeepsTheCountersOfItsTables) {
  Tree tree;
  added(tree, kRoutes);
  tree.delete_object("InternetGatewayDevice.Layer3Forwarding.");
  EXPECT_EQ(added(tree, kRoutes), kRoutes + "2.");
}

TEST(DeleteObject, OnASingleObjectOfAnInstanceTouchesNothingElse) {
  Tree tree;
  const std::string device_path = add_connection_device(tree);
  tree.set_value(device_path + "WANEthernetLinkConfig.X_CT-COM_Mode", "1");
  tree.set_value(device_path + "X_CT-COM_Enable", "true");
  EXPECT_EQ(tree.delete_object(device_path + "WANEthernetLinkConfig."), 0);
  EXPECT_EQ(tree.value(device_path + "WANEthernetLinkConfig.X_CT-COM_Mode"), "0");
  EXPECT_EQ(tree.value(device_path + "X_CT-COM_Enable"), "true");
}

}  // namespace
