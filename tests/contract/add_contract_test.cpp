// addObject: numbers, and what an instance comes with.
#include <algorithm>
#include <string>

#include "contract_test.h"

namespace contract {
namespace {

class AddObject : public Contract {};

TEST_P(AddObject, NumbersTheInstancesOfANewTableFromOneUpwards) {
  const std::string ports = add(kBridges) + "Port.";
  for (int expected = 1; expected <= 11; ++expected) EXPECT_EQ(number_of_added(ports), expected);
}

TEST_P(AddObject, NumbersEveryTableOnItsOwn) {
  const std::string first = add(kBridges) + "Port.";
  const std::string second = add(kBridges) + "Port.";
  EXPECT_EQ(number_of_added(first), 1);
  EXPECT_EQ(number_of_added(first), 2);
  EXPECT_EQ(number_of_added(second), 1);
}

TEST_P(AddObject, GivesHigherNumbersThanEverBefore) {
  const int first = number_of_added(kBridges);
  const int second = number_of_added(kBridges);
  EXPECT_GT(second, first);
}

TEST_P(AddObject, NeverUsesANumberAgain) {
  const std::string ports = add(kBridges) + "Port.";
  for (int i = 0; i < 3; ++i) add(ports);
  remove(ports + "1.");
  remove(ports + "3.");
  EXPECT_EQ(number_of_added(ports), 4);
  remove(ports + "2.");
  remove(ports + "4.");
  EXPECT_EQ(number_of_added(ports), 5);
}

TEST_P(AddObject, KeepsCountingInATableThatWasEmptiedFromAbove) {
  const int before = number_of_added(kRoutes);
  remove(kRouting);
  EXPECT_GT(number_of_added(kRoutes), before);
}

TEST_P(AddObject, StartsTheTablesOfANewInstanceEmpty) {
  const Gateway first = add_one_of_each();
  const std::string bridge = add(kBridges);
  EXPECT_EQ(walk_mine(kPortInterface), Names{first.port + "PortInterface"});
  EXPECT_EQ(number_of_added(bridge + "Port."), 1);
}

TEST_P(AddObject, LeavesEverythingElseAsItWas) {
  const std::string name = add(kBridges) + "BridgeName";
  set(name, "stays");
  const Names before = walk(kBridgeName);
  add(kBridges);
  EXPECT_EQ(get(name), "stays");
  Names after = walk(kBridgeName);
  after.pop_back();
  EXPECT_EQ(after, before);
}

TEST_P(AddObject, ThatFailsLeavesTheNumberAndUsesNoneUp) {
  const std::string ports = add(kBridges) + "Port.";
  EXPECT_EQ(number_of_added(ports), 1);
  for (const int untouched : {0, -7, 42}) {
    int number = untouched;
    expect_refused("addObject", "Port.");
    EXPECT_NE(mib().addObject("Port.", &number, kInternalLevel), 0);
    EXPECT_EQ(number, untouched);
  }
  EXPECT_EQ(number_of_added(ports), 2);
}

INSTANTIATE_TEST_SUITE_P(Platform, AddObject, testing::ValuesIn(platforms()), platform_name);

// A parameter that libigd finds or writes in an instance it has just added.
struct Parameter {
  const char* name;  // of the test
  std::string Gateway::*owner;
  const char* parameter;
};
std::ostream& operator<<(std::ostream& out, const Parameter& row) { return out << row.name; }

const Parameter kParameters[] = {
    {"AccessType", &Gateway::wan_device, "WANCommonInterfaceConfig.WANAccessType"},
    {"DeviceEnable", &Gateway::connection_device, "X_CT-COM_Enable"},
    {"DeviceRemoteManager", &Gateway::connection_device, "X_CT-COM_RemoteManagerEnable"},
    {"DeviceStp", &Gateway::connection_device, "X_CT-COM_STPEnable"},
    {"LinkName", &Gateway::connection_device, "WANEthernetLinkConfig.X_CT-COM_Name"},
    {"LinkMode", &Gateway::connection_device, "WANEthernetLinkConfig.X_CT-COM_Mode"},
    {"LinkVlan", &Gateway::connection_device, "WANEthernetLinkConfig.X_CT-COM_VLANIDMark"},
    {"IpEnable", &Gateway::ip, "Enable"},
    {"IpName", &Gateway::ip, "Name"},
    {"IpConnectionType", &Gateway::ip, "ConnectionType"},
    {"IpAddressingType", &Gateway::ip, "AddressingType"},
    {"IpAddress", &Gateway::ip, "ExternalIPAddress"},
    {"IpMask", &Gateway::ip, "SubnetMask"},
    {"IpGateway", &Gateway::ip, "DefaultGateway"},
    {"IpNat", &Gateway::ip, "NATEnabled"},
    {"IpDnsEnabled", &Gateway::ip, "DNSEnabled"},
    {"IpDnsServers", &Gateway::ip, "DNSServers"},
    {"IpMtu", &Gateway::ip, "MTU"},
    {"IpServiceList", &Gateway::ip, "X_CT-COM_ServiceList"},
    {"IpLanInterface", &Gateway::ip, "X_CT-COM_LanInterface"},
    {"IpOption60", &Gateway::ip, "X_ZYN-COM_OPTION60"},
    {"PppEnable", &Gateway::ppp, "Enable"},
    {"PppName", &Gateway::ppp, "Name"},
    {"PppConnectionType", &Gateway::ppp, "ConnectionType"},
    {"PppUser", &Gateway::ppp, "Username"},
    {"PppPassword", &Gateway::ppp, "Password"},
    {"PppNat", &Gateway::ppp, "NATEnabled"},
    {"PppDnsEnabled", &Gateway::ppp, "DNSEnabled"},
    {"PppDnsServers", &Gateway::ppp, "DNSServers"},
    {"PppMtu", &Gateway::ppp, "MTU"},
    {"PppServiceList", &Gateway::ppp, "X_CT-COM_ServiceList"},
    {"PppLanInterface", &Gateway::ppp, "X_CT-COM_LanInterface"},
    {"MappingProtocol", &Gateway::mapping, "PortMappingProtocol"},
    {"MappingDescription", &Gateway::mapping, "PortMappingDescription"},
    {"BridgeName", &Gateway::bridge, "BridgeName"},
    {"BridgeStandard", &Gateway::bridge, "BridgeStandard"},
    {"BridgeEnable", &Gateway::bridge, "BridgeEnable"},
    {"BridgeVlan", &Gateway::bridge, "VLANID"},
    {"BridgePriority", &Gateway::bridge, "X_ZYN_VLANPriority"},
    {"BridgeConnection", &Gateway::bridge, "X_ZYN_WANName"},
    {"PortEnable", &Gateway::port, "PortEnable"},
    {"PortInterface", &Gateway::port, "PortInterface"},
    {"PortPvid", &Gateway::port, "PVID"},
    {"PortConnection", &Gateway::port, "X_ZYN_DependWanName"},
    {"PortOption60", &Gateway::port, "PortOption60"},
    {"RouteEnable", &Gateway::route, "Enable"},
    {"RouteAddress", &Gateway::route, "DestIPAddress"},
    {"RouteMask", &Gateway::route, "DestSubnetMask"},
    {"RouteGateway", &Gateway::route, "GatewayIPAddress"},
    {"RouteInterface", &Gateway::route, "Interface"},
    {"RouteTable", &Gateway::route, "X_ZYN_RouteTable"},
};

class ParameterOfANewInstance : public ContractRow<Parameter> {};

TEST_P(ParameterOfANewInstance, CanBeWrittenAndRead) {
  const Gateway gateway = add_one_of_each();
  const std::string name = gateway.*row().owner + row().parameter;
  set(name, "some text");
  EXPECT_EQ(get(name), "some text");
}

INSTANTIATE_TEST_SUITE_P(Platform, ParameterOfANewInstance,
                         testing::Combine(testing::ValuesIn(platforms()),
                                          testing::ValuesIn(kParameters)),
                         row_name<Parameter>);

// What libigd takes a parameter to be that nobody has written yet.
struct Initial {
  const char* name;
  std::string Gateway::*owner;
  const char* parameter;
  const char* value;
};
std::ostream& operator<<(std::ostream& out, const Initial& row) { return out << row.name; }

const Initial kInitials[] = {
    {"LinkIsUntagged", &Gateway::connection_device, "WANEthernetLinkConfig.X_CT-COM_Mode", "0"},
    {"LinkHasNoVlan", &Gateway::connection_device, "WANEthernetLinkConfig.X_CT-COM_VLANIDMark",
     "0"},
    {"BridgeIsUntagged", &Gateway::bridge, "BridgeStandard", "802.1D"},
    {"BridgeHasNoVlan", &Gateway::bridge, "VLANID", "0"},
    {"BridgeIsOff", &Gateway::bridge, "BridgeEnable", "false"},
    {"BridgeBelongsToNobody", &Gateway::bridge, "X_ZYN_WANName", ""},
    {"PortIsOff", &Gateway::port, "PortEnable", "false"},
    {"PortIsBoundToNobody", &Gateway::port, "X_ZYN_DependWanName", ""},
    {"PortHasNoOption", &Gateway::port, "PortOption60", ""},
    {"IpConnectionIsOff", &Gateway::ip, "Enable", "false"},
    {"IpConnectionHasNoName", &Gateway::ip, "Name", ""},
    {"PppConnectionIsOff", &Gateway::ppp, "Enable", "false"},
    {"PppConnectionHasNoName", &Gateway::ppp, "Name", ""},
    {"PppConnectionHasNoService", &Gateway::ppp, "X_CT-COM_ServiceList", ""},
    {"RouteIsOff", &Gateway::route, "Enable", "false"},
    {"RouteHasNoTable", &Gateway::route, "X_ZYN_RouteTable", ""},
};

class NewInstance : public ContractRow<Initial> {};

TEST_P(NewInstance, StartsInTheStateThatLibigdCountsOn) {
  const Gateway gateway = add_one_of_each();
  EXPECT_EQ(get(gateway.*row().owner + row().parameter), row().value);
}

INSTANTIATE_TEST_SUITE_P(Platform, NewInstance,
                         testing::Combine(testing::ValuesIn(platforms()),
                                          testing::ValuesIn(kInitials)),
                         row_name<Initial>);

}  // namespace
}  // namespace contract
