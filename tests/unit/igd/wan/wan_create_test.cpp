// Making a connection from a description.
#include <algorithm>

#include "gateway_test.h"
#include "stdout_capture.h"

namespace {

using support::kBridges;
using support::kWanDevices;
using support::routed_pppoe;
using support::wan_path;

constexpr char kAccessType[] = "WANCommonInterfaceConfig.WANAccessType";

class WanCreate : public support::GatewayTest {
 protected:
  std::string add_wan_device(const std::string& access_type) {
    const std::string device_path = add(kWanDevices);
    set(device_path + kAccessType, access_type);
    return device_path;
  }

  /// Creates the first connection of the gateway while the nth addObject fails.
  std::string create_failing(int nth) {
    support::FailingAdds failing(host::mib_access(), nth);
    const support::BehindSwitchboard behind(failing);
    const std::string path = create(routed_pppoe("1_INTERNET", 100));
    EXPECT_TRUE(failing.failed());
    return path;
  }

  /// What a connection device holds, each object with its mapping: "Static+DMZ DHCP+DMZ PPP+DMZ".
  std::string objects_of(const std::string& path) const {
    std::string text;
    for (const std::string& type : tree_.instances(kAddressingType)) {
      if (type.rfind(path, 0) != 0) continue;
      const std::string object_path = type.substr(0, type.rfind('.') + 1);
      text += get(type) + mapping_of(object_path) + ' ';
    }
    for (const std::string& object_path : tree_.instances(kPppConnection)) {
      if (object_path.rfind(path, 0) == 0) text += "PPP" + mapping_of(object_path) + ' ';
    }
    return text;
  }

  /// What was refused: writes to these bare parameter names, the object that has them missing.
  void expect_bare_writes(const std::vector<std::string>& names) {
    std::vector<std::string> calls;
    for (const std::string& name : names) calls.push_back("setValue " + name);
    EXPECT_EQ(take_refusals(), calls);
  }

  std::string mapping_of(const std::string& object_path) const {
    const std::string mapping_path = object_path + "PortMapping.1.";
    if (!tree_.has_object(mapping_path)) return {};
    EXPECT_EQ(get(mapping_path + "PortMappingProtocol"), "ALL");
    return '+' + get(mapping_path + "PortMappingDescription");
  }
};

TEST_F(WanCreate, MakesDeviceConnectionAndBridge) {
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100)), wan_path(1, 1));
  EXPECT_EQ(get(kWanDevices + "1." + kAccessType), "Ethernet");
  EXPECT_EQ(bridge_named("br_1_1"), kBridges + "2.");
  EXPECT_EQ(get(kBridges + "2.X_ZYN_WANName"), wan_path(1, 1));
  EXPECT_EQ(get(kBridges + "2.VLANID"), "100");
  EXPECT_EQ(ports_of(kBridges + "2."), std::vector<std::string>{"LAN0"});
}

TEST_F(WanCreate, GivesTheFirstIpConnectionToStaticAndTheSecondToDhcp) {
  const std::string path = create(routed_pppoe("1_INTERNET", 100));
  EXPECT_EQ(get(path + "WANIPConnection.1.AddressingType"), "Static");
  EXPECT_EQ(get(path + "WANIPConnection.2.AddressingType"), "DHCP");
  EXPECT_TRUE(tree_.has_object(path + "WANPPPConnection.1."));
}

TEST_F(WanCreate, MarksEveryConnectionObjectAsDmzTarget) {
  const std::string path = create(routed_pppoe("1_INTERNET", 100));
  EXPECT_EQ(objects_of(path), "Static+DMZ DHCP+DMZ PPP+DMZ ");
}

TEST_F(WanCreate, WritesTheDescription) {
  const std::string path = create(routed_pppoe("1_INTERNET", 100));
  for (const char* object : {"WANIPConnection.1.", "WANIPConnection.2.", "WANPPPConnection.1."}) {
    EXPECT_EQ(get(path + object + "Name"), "1_INTERNET") << object;
    EXPECT_EQ(get(path + object + "X_CT-COM_ServiceList"), "INTERNET") << object;
  }
  EXPECT_EQ(get(path + "WANPPPConnection.1.Username"), "user@isp");
  EXPECT_EQ(get(path + "WANPPPConnection.1.Enable"), "true");
  EXPECT_EQ(get(path + "WANIPConnection.1.Enable"), "false");
  EXPECT_EQ(get(path + "WANIPConnection.2.Enable"), "false");
}

TEST_F(WanCreate, BindsThePortsOfTheDescription) {
  (void)create(support::bridged("2_OTHER", 200, {"LAN2"}));
  EXPECT_EQ(ports_of(bridge_named("br_1_1")), (std::vector<std::string>{"LAN0", "LAN2"}));
}

TEST_F(WanCreate, PutsConnectionsOfOneAccessTypeBelowOneWanDevice) {
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100)), wan_path(1, 1));
  EXPECT_EQ(create(routed_pppoe("2_OTHER", 200)), wan_path(1, 2));
  EXPECT_FALSE(tree_.has_object(kWanDevices + "2."));
  EXPECT_EQ(objects_of(wan_path(1, 2)), "Static+DMZ DHCP+DMZ PPP+DMZ ");
}

TEST_F(WanCreate, MakesAWanDeviceForANewAccessType) {
  (void)create(routed_pppoe("1_INTERNET", 100), "Ethernet");
  EXPECT_EQ(create(routed_pppoe("2_BACKUP", 0), "3G"), wan_path(2, 1));
  EXPECT_EQ(get(kWanDevices + "1." + kAccessType), "Ethernet");
  EXPECT_EQ(get(kWanDevices + "2." + kAccessType), "3G");
  EXPECT_EQ(ports_of(bridge_named("br_2_1")), std::vector<std::string>{"3G0"});
}

TEST_F(WanCreate, UsesTheFirstWanDeviceOfTheAccessType) {
  for (const char* access_type : {"3G", "Ethernet", "Ethernet"}) (void)add_wan_device(access_type);
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100)), wan_path(2, 1));
  EXPECT_FALSE(tree_.has_object(kWanDevices + "4."));
}

TEST_F(WanCreate, ComparesAccessTypesExactly) {
  for (const char* access_type : {"ethernet", "Ethernet ", "Etherne"}) {
    (void)add_wan_device(access_type);
  }
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100), "Ethernet"), wan_path(4, 1));
}

TEST_F(WanCreate, TakesAnEmptyAccessTypeLikeAnyOther) {
  (void)add_wan_device("Ethernet");
  (void)add_wan_device("");
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100), ""), wan_path(2, 1));
}

TEST_F(WanCreate, MakesAConnectionWithoutUplinkForAnUnknownAccessType) {
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100), "DSL"), wan_path(1, 1));
  EXPECT_EQ(get(kWanDevices + "1." + kAccessType), "DSL");
  EXPECT_TRUE(ports_of(bridge_named("br_1_1")).empty());
}

TEST_F(WanCreate, ChecksNothing) {
  (void)create(routed_pppoe("1_INTERNET", 100));
  EXPECT_EQ(create(routed_pppoe("2_INTERNET", 100)), wan_path(1, 2));
  EXPECT_EQ(get(bridge_named("br_1_2") + "VLANID"), "100");
}

TEST_F(WanCreate, UpdatesTheConnectionThatHasTheName) {
  const std::string path = create(routed_pppoe("1_INTERNET", 100));
  api_wan_info info = routed_pppoe("1_INTERNET", 200);
  info.pppoe_user_name = "other@isp";
  EXPECT_EQ(create(info, "3G"), path);
  EXPECT_EQ(get(path + "WANPPPConnection.1.Username"), "other@isp");
  EXPECT_EQ(get(bridge_named("br_1_1") + "VLANID"), "200");
  EXPECT_EQ(tree_.instances(kWanConnectionDevice), std::vector<std::string>{path});
  EXPECT_EQ(tree_.instances(kWanAccessType).size(), 1U);
  EXPECT_EQ(tree_.instances(kBridgeName).size(), 2U);
}

TEST_F(WanCreate, TakesTheFirstNamelessConnectionForANamelessDescription) {
  (void)create(routed_pppoe("1_INTERNET", 100));
  EXPECT_EQ(create(routed_pppoe("", 200)), wan_path(1, 2));
  EXPECT_EQ(create(routed_pppoe("", 300)), wan_path(1, 2));
  EXPECT_EQ(get(bridge_named("br_1_2") + "VLANID"), "300");
}

// The cache outlives what it remembers; a new connection of that path is written where the entry
// says.
TEST_F(WanCreate, WritesToThePathsThatTheCacheHasKept) {
  (void)support::printed_by([] { (void)_get_cache(wan_path(1, 1)); });
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100)), wan_path(1, 1));
  EXPECT_EQ(get(wan_path(1, 1) + "WANPPPConnection.1.Enable"), "false");
  const std::vector<std::string> refused = take_refusals();
  EXPECT_NE(std::find(refused.begin(), refused.end(), "setValue Username"), refused.end());
}

TEST_F(WanCreate, DoesNotCommit) {
  support::Transcript transcript;
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  (void)igd_wan_create("Ethernet", &info);
  const std::string writes = transcript.writes();
  EXPECT_NE(writes.find("add " + kWanDevices + " -> 1\n"), std::string::npos);
  EXPECT_EQ(writes.find("commit"), std::string::npos);
}

TEST_F(WanCreate, GivesUpWithoutAWanDevice) {
  EXPECT_EQ(create_failing(1), "");
  EXPECT_TRUE(tree_.instances(kWanAccessType).empty());
  EXPECT_EQ(tree_.instances(kBridgeName).size(), 1U);
}

TEST_F(WanCreate, GivesUpWithoutAConnectionDeviceButKeepsTheWanDevice) {
  EXPECT_EQ(create_failing(2), "");
  EXPECT_EQ(get(kWanDevices + "1." + kAccessType), "Ethernet");
  EXPECT_TRUE(tree_.instances(kWanConnectionDevice).empty());
  EXPECT_EQ(tree_.instances(kBridgeName).size(), 1U);
}

TEST_F(WanCreate, GivesUpWithoutAConnectionDeviceBelowAnExistingWanDevice) {
  (void)add_wan_device("Ethernet");
  EXPECT_EQ(create_failing(1), "");
  EXPECT_TRUE(tree_.instances(kWanConnectionDevice).empty());
}

TEST_F(WanCreate, GoesOnWithoutAStaticConnection) {
  EXPECT_EQ(create_failing(3), wan_path(1, 1));
  EXPECT_EQ(objects_of(wan_path(1, 1)), "DHCP+DMZ PPP+DMZ ");
  EXPECT_EQ(get(wan_path(1, 1) + "WANIPConnection.1.Name"), "1_INTERNET");
  expect_bare_writes(
      {"Enable", "Name", "ConnectionType", "X_CT-COM_ServiceList", "NATEnabled", "MTU"});
}

TEST_F(WanCreate, GoesOnWithoutADhcpConnection) {
  EXPECT_EQ(create_failing(5), wan_path(1, 1));
  EXPECT_EQ(objects_of(wan_path(1, 1)), "Static+DMZ PPP+DMZ ");
  EXPECT_EQ(ports_of(bridge_named("br_1_1")), std::vector<std::string>{"LAN0"});
  expect_bare_writes({"Enable", "Name", "ConnectionType", "X_ZYN-COM_OPTION60",
                      "X_CT-COM_ServiceList", "NATEnabled", "MTU"});
}

TEST_F(WanCreate, GoesOnWithoutAPppConnection) {
  EXPECT_EQ(create_failing(7), wan_path(1, 1));
  EXPECT_EQ(objects_of(wan_path(1, 1)), "Static+DMZ DHCP+DMZ ");
  EXPECT_EQ(get(wan_path(1, 1) + "WANIPConnection.2.Name"), "1_INTERNET");
  expect_bare_writes({"Enable", "Name", "ConnectionType", "X_CT-COM_ServiceList", "NATEnabled",
                      "Username", "Password", "MTU", "DNSEnabled", "Enable"});
}

TEST_F(WanCreate, GoesOnWithoutTheStaticMapping) {
  EXPECT_EQ(create_failing(4), wan_path(1, 1));
  EXPECT_EQ(objects_of(wan_path(1, 1)), "Static DHCP+DMZ PPP+DMZ ");
}

TEST_F(WanCreate, GoesOnWithoutTheDhcpMapping) {
  EXPECT_EQ(create_failing(6), wan_path(1, 1));
  EXPECT_EQ(objects_of(wan_path(1, 1)), "Static+DMZ DHCP PPP+DMZ ");
}

TEST_F(WanCreate, GoesOnWithoutThePppMapping) {
  EXPECT_EQ(create_failing(8), wan_path(1, 1));
  EXPECT_EQ(objects_of(wan_path(1, 1)), "Static+DMZ DHCP+DMZ PPP ");
}

TEST_F(WanCreate, WritesTheDescriptionEvenWithoutABridge) {
  EXPECT_EQ(create_failing(9), wan_path(1, 1));
  EXPECT_EQ(tree_.instances(kBridgeName).size(), 1U);
  EXPECT_EQ(objects_of(wan_path(1, 1)), "Static+DMZ DHCP+DMZ PPP+DMZ ");
  EXPECT_EQ(get(wan_path(1, 1) + "WANPPPConnection.1.Username"), "user@isp");
  EXPECT_EQ(take_refusals().at(0), "setValue " + kBridges + "0.BridgeName");
}

TEST_F(WanCreate, GoesOnWithoutTheUplinksPort) {
  EXPECT_EQ(create_failing(10), wan_path(1, 1));
  EXPECT_TRUE(ports_of(kBridges + "2.").empty());
  EXPECT_EQ(get(kBridges + "2.BridgeEnable"), "true");
  EXPECT_EQ(get(wan_path(1, 1) + "WANPPPConnection.1.Enable"), "true");
  const std::string port_path = "setValue " + kBridges + "2.Port.0.";
  EXPECT_EQ(take_refusals(),
            (std::vector<std::string>{port_path + "PVID", port_path + "PortInterface",
                                      port_path + "PortEnable"}));
}

TEST_F(WanCreate, AddsTenObjectsForTheFirstConnection) {
  support::FailingAdds failing(host::mib_access(), 11);
  const support::BehindSwitchboard behind(failing);
  (void)create(routed_pppoe("1_INTERNET", 100));
  EXPECT_FALSE(failing.failed());
}

}  // namespace
