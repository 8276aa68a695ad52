// Enumerations: what each object type yields, how names are formed, and in which order.
#include <string>

#include "contract_test.h"

namespace contract {
namespace {

struct Enumeration {
  const char* name;  // of the test
  int type;
  int number;  // what the gateway's programs were built with
  std::string Gateway::*owner;
  const char* parameter;  // "" when the object itself is enumerated
};
std::ostream& operator<<(std::ostream& out, const Enumeration& row) { return out << row.name; }

const Enumeration kEnumerations[] = {
    {"RouteAddress", kForwardingDestIpAddress, 171, &Gateway::route, "DestIPAddress"},
    {"RouteInterface", kForwardingInterface, 177, &Gateway::route, "Interface"},
    {"BridgeName", kBridgeName, 196, &Gateway::bridge, "BridgeName"},
    {"BridgeConnection", kBridgeWanName, 197, &Gateway::bridge, "X_ZYN_WANName"},
    {"BridgeVlan", kBridgeVlanId, 199, &Gateway::bridge, "VLANID"},
    {"PortEnable", kPortEnable, 203, &Gateway::port, "PortEnable"},
    {"PortConnection", kPortDependWanName, 204, &Gateway::port, "X_ZYN_DependWanName"},
    {"PortInterface", kPortInterface, 205, &Gateway::port, "PortInterface"},
    {"PortPvid", kPortPvid, 209, &Gateway::port, "PVID"},
    {"AccessType", kWanAccessType, 1007, &Gateway::wan_device,
     "WANCommonInterfaceConfig.WANAccessType"},
    {"ConnectionDevice", kWanConnectionDevice, 1273, &Gateway::connection_device, ""},
    {"IpName", kIpConnectionName, 1351, &Gateway::ip, "Name"},
    {"IpAddressingType", kAddressingType, 1359, &Gateway::ip, "AddressingType"},
    {"PppConnection", kPppConnection, 1429, &Gateway::ppp, ""},
    {"PppName", kPppConnectionName, 1437, &Gateway::ppp, "Name"},
    {"ServiceList", kServiceList, 1887, &Gateway::ppp, "X_CT-COM_ServiceList"},
};

class EnumerationOf : public ContractRow<Enumeration> {};

TEST_P(EnumerationOf, HasItsNumber) { EXPECT_EQ(row().type, row().number); }

TEST_P(EnumerationOf, YieldsTheFullNameInANewInstance) {
  const Gateway gateway = add_one_of_each();
  EXPECT_EQ(walk_mine(row().number), Names{gateway.*row().owner + row().parameter});
}

TEST_P(EnumerationOf, StandsOnTheFirstInstanceAndEndsAfterTheLast) {
  add_one_of_each();
  const std::size_t instances = walk(row().number).size();
  InstanceIterator* iterator = mib().openInstanceIterator(row().number);
  ASSERT_NE(iterator, nullptr);
  for (std::size_t i = 1; i < instances; ++i) EXPECT_NE(iterator->next(), 0);
  EXPECT_EQ(iterator->next(), 0);
  mib().closeInstanceIterator(iterator);
}

TEST_P(EnumerationOf, GivesTheSameNameUntilItMoves) {
  add_one_of_each();
  InstanceIterator* iterator = mib().openInstanceIterator(row().number);
  ASSERT_NE(iterator, nullptr);
  const std::string name = iterator->fullName();
  EXPECT_NE(name, "");
  EXPECT_EQ(iterator->fullName(), name);
  mib().closeInstanceIterator(iterator);
}

TEST_P(EnumerationOf, NamesWhatCanBeRead) {
  const Gateway gateway = add_one_of_each();
  const bool is_object = row().parameter[0] == '\0';
  if (is_object) return;
  set(gateway.*row().owner + row().parameter, "found");
  ASSERT_EQ(walk_mine(row().number).size(), 1U);
  EXPECT_EQ(get(walk_mine(row().number).front()), "found");
}

TEST_P(EnumerationOf, IsNoWalkWhenThereIsNoInstance) {
  if (!walk(row().number).empty()) GTEST_SKIP() << "the start state has instances of this type";
  EXPECT_EQ(mib().openInstanceIterator(row().number), nullptr);
  const Gateway gateway = add_one_of_each();
  for (const std::string& path : {gateway.wan_device, gateway.bridge, gateway.route}) remove(path);
  EXPECT_EQ(mib().openInstanceIterator(row().number), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Platform, EnumerationOf,
                         testing::Combine(testing::ValuesIn(platforms()),
                                          testing::ValuesIn(kEnumerations)),
                         row_name<Enumeration>);

class Walks : public Contract {};

TEST_P(Walks, OfANumberThatIsNoTypeAreNone) {
  add_one_of_each();
  for (const int number : {-1, 0, 2147483647}) {
    EXPECT_EQ(mib().openInstanceIterator(number), nullptr) << number;
  }
}

TEST_P(Walks, PutTenAfterNine) {
  const std::string ports = add(kBridges) + "Port.";
  Names expected;
  for (int i = 1; i <= 12; ++i) expected.push_back(add(ports) + "PortInterface");
  EXPECT_EQ(walk_mine(kPortInterface), expected);
}

TEST_P(Walks, OrderTheInstancesOfOneTable) {
  Names expected;
  for (int i = 0; i < 11; ++i) expected.push_back(add(kBridges) + "BridgeName");
  EXPECT_EQ(walk_mine(kBridgeName), expected);
}

TEST_P(Walks, OrderTheOuterLevelBeforeTheInner) {
  Names bridges;
  for (int i = 0; i < 11; ++i) bridges.push_back(add(kBridges));
  // The last bridge gets its ports first.
  for (auto bridge = bridges.rbegin(); bridge != bridges.rend(); ++bridge) {
    for (int i = 0; i < 2; ++i) add(*bridge + "Port.");
  }
  Names expected;
  for (const std::string& bridge : bridges) {
    for (const char* port : {"1", "2"}) expected.push_back(bridge + "Port." + port + ".PVID");
  }
  EXPECT_EQ(walk_mine(kPortPvid), expected);
}

TEST_P(Walks, OrderAllThreeLevelsOfConnections) {
  Names devices;
  for (int i = 0; i < 2; ++i) devices.push_back(add(kWanDevices));
  const std::string second = add(devices[1] + "WANConnectionDevice.");
  Names expected;
  for (int i = 0; i < 10; ++i) {
    const std::string connections = add(devices[0] + "WANConnectionDevice.") + "WANIPConnection.";
    for (int j = 0; j < 2; ++j) expected.push_back(add(connections) + "AddressingType");
  }
  expected.push_back(add(second + "WANIPConnection.") + "AddressingType");
  EXPECT_EQ(walk_mine(kAddressingType), expected);
}

TEST_P(Walks, DoNotDependOnValues) {
  const std::string ports = add(kBridges) + "Port.";
  Names expected;
  for (const char* value : {"zebra", "", "apple"}) {
    expected.push_back(add(ports) + "PortInterface");
    set(expected.back(), value);
  }
  EXPECT_EQ(walk_mine(kPortInterface), expected);
}

TEST_P(Walks, KeepTheirOrderAroundAGap) {
  const std::string ports = add(kBridges) + "Port.";
  for (int i = 0; i < 11; ++i) add(ports);
  remove(ports + "2.");
  remove(ports + "10.");
  Names expected;
  for (const int left : {1, 3, 4, 5, 6, 7, 8, 9, 11}) {
    expected.push_back(ports + std::to_string(left) + ".PortEnable");
  }
  EXPECT_EQ(walk_mine(kPortEnable), expected);
}

TEST_P(Walks, MayEndEarly) {
  const std::string ports = add(kBridges) + "Port.";
  for (int i = 0; i < 3; ++i) add(ports);
  for (int i = 0; i < 100; ++i) {
    InstanceIterator* iterator = mib().openInstanceIterator(kPortEnable);
    ASSERT_NE(iterator, nullptr);
    (void)iterator->next();
    mib().closeInstanceIterator(iterator);
  }
  EXPECT_EQ(walk_mine(kPortEnable).size(), 3U);
}

INSTANTIATE_TEST_SUITE_P(Platform, Walks, testing::ValuesIn(platforms()), platform_name);

}  // namespace
}  // namespace contract
