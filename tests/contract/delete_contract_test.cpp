// deleteObject: what it takes away, and what stays.
#include <string>

#include "contract_test.h"

namespace contract {
namespace {

class DeleteObject : public Contract {};

TEST_P(DeleteObject, RemovesTheInstanceFromEveryEnumeration) {
  const Gateway gateway = add_one_of_each();
  remove(gateway.port);
  for (const int type : {kPortEnable, kPortDependWanName, kPortInterface, kPortPvid}) {
    EXPECT_EQ(walk_mine(type), Names{}) << type;
  }
  EXPECT_EQ(walk_mine(kBridgeName), Names{gateway.bridge + "BridgeName"});
}

TEST_P(DeleteObject, RemovesEverythingBelow) {
  const Gateway gateway = add_one_of_each();
  const Names below = {gateway.ip + "Name", gateway.ppp + "Username",
                       gateway.mapping + "PortMappingProtocol",
                       gateway.connection_device + "WANEthernetLinkConfig.X_CT-COM_Name"};
  for (const std::string& name : below) set(name, "text");
  remove(gateway.connection_device);
  for (const std::string& name : below) EXPECT_EQ(get(name), "") << name;
  for (const int type : {kWanConnectionDevice, kIpConnectionName, kAddressingType, kPppConnection,
                         kPppConnectionName, kServiceList}) {
    EXPECT_EQ(walk_mine(type), Names{}) << type;
  }
  EXPECT_EQ(walk_mine(kWanAccessType).size(), 1U);
}

TEST_P(DeleteObject, LeavesNothingThatCanBeWritten) {
  const std::string bridge = add(kBridges);
  const std::string port = add(bridge + "Port.");
  remove(bridge);
  for (const std::string& name : {bridge + "BridgeName", port + "PortEnable"}) {
    expect_refused("setValue", name);
    EXPECT_NE(mib().setValue(name, "text", 0), 0) << name;
    EXPECT_EQ(get(name), "") << name;
  }
}

TEST_P(DeleteObject, LeavesTheOtherInstances) {
  const std::string ports = add(kBridges) + "Port.";
  for (int i = 0; i < 11; ++i) add(ports);
  set(ports + "10.PortInterface", "LAN2");
  set(ports + "11.PortInterface", "LAN3");
  remove(ports + "1.");
  EXPECT_EQ(get(ports + "10.PortInterface"), "LAN2");
  EXPECT_EQ(get(ports + "11.PortInterface"), "LAN3");
  EXPECT_EQ(walk_mine(kPortInterface).size(), 10U);
}

TEST_P(DeleteObject, OfLayer3ForwardingRemovesAllRoutesWithResultZero) {
  for (int i = 0; i < 3; ++i) add(kRoutes);
  remove(kRouting);
  EXPECT_EQ(walk(kForwardingDestIpAddress), Names{});
  EXPECT_EQ(walk(kForwardingInterface), Names{});
}

TEST_P(DeleteObject, OfLayer3ForwardingWithoutRoutesHasResultZero) {
  remove(kRouting);
  remove(kRouting);
}

TEST_P(DeleteObject, OfLayer3ForwardingKeepsTheTableOpen) {
  remove(kRouting);
  const std::string route = add(kRoutes);
  set(route + "DestIPAddress", "10.0.0.0");
  EXPECT_EQ(walk(kForwardingDestIpAddress), Names{route + "DestIPAddress"});
}

TEST_P(DeleteObject, OfLayer3ForwardingTouchesNothingElse) {
  const Gateway gateway = add_one_of_each();
  set(gateway.bridge + "BridgeName", "stays");
  remove(kRouting);
  EXPECT_EQ(get(gateway.bridge + "BridgeName"), "stays");
  EXPECT_EQ(walk_mine(kWanConnectionDevice), Names{gateway.connection_device});
}

TEST_P(DeleteObject, WorksOnceOnly) {
  const std::string bridge = add(kBridges);
  remove(bridge);
  const std::string before = everything();
  expect_refused("deleteObject", bridge);
  EXPECT_NE(mib().deleteObject(bridge), 0);
  EXPECT_EQ(everything(), before);
}

INSTANTIATE_TEST_SUITE_P(Platform, DeleteObject, testing::ValuesIn(platforms()), platform_name);

}  // namespace
}  // namespace contract
