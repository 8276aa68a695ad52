// Creating a connection.
#include "gateway_test.h"

namespace foreign {
namespace {

using CreateWan = GatewayTest;

const char* const kAccessTypes[] = {"Ethernet", "3G", "Repeator", "DSL", ""};

TEST_F(CreateWan, FollowsItsStepsForEveryAccessClassModeAndTagging) {
  add_lan_bridge({"LAN1", "LAN2", "WLAN1"});
  int number = 0;
  for (const char* access_type : kAccessTypes) {
    for (int connection_class = 1; connection_class <= 3; ++connection_class) {
      for (int mode = 1; mode <= 3; ++mode) {
        for (int tagged = 0; tagged <= 1; ++tagged) {
          SCOPED_TRACE(testing::Message()
                       << access_type << ' ' << connection_class << mode << tagged);
          api_wan_info info = description(connection_class, mode);
          info.wan_info_name = "wan-" + std::to_string(++number);
          info.vlan_enable = tagged;
          info.vlan_id = 200 + number;
          info.vlan_priority = 3;
          if (mode == 2) info.bind_wan = {"LAN2"};
          if (mode == 3) info.bind_lan = {"LAN1", "WLAN1"};
          info.port_option60 = {{"LAN2", "option"}};
          EXPECT_NE(create(access_type, info), "");
        }
      }
    }
  }
}

TEST_F(CreateWan, BuildsOneOfEverythingOnAnEmptyTree) {
  api_wan_info info = description(2, 1);
  EXPECT_EQ(run([&] { return igd_wan_create("Ethernet", &info); }),
            "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.");
  const std::string device = "InternetGatewayDevice.WANDevice.1.";
  const std::string wan = device + "WANConnectionDevice.1.";
  const std::string ip = wan + "WANIPConnection.";
  const std::string ppp = wan + "WANPPPConnection.";
  const std::string bridge = std::string(kBridges) + "1.";
  const std::string link = wan + "WANEthernetLinkConfig.";
  const std::string expected = lines({
      "add InternetGatewayDevice.WANDevice. 255: 1",
      "set " + device + "WANCommonInterfaceConfig.WANAccessType = Ethernet",
      "add " + device + "WANConnectionDevice. 255: 1",
      "add " + ip + " 255: 1",
      "set " + ip + "1.AddressingType = Static",
      "add " + ip + "1.PortMapping. 255: 1",
      "set " + ip + "1.PortMapping.1.PortMappingProtocol = ALL",
      "set " + ip + "1.PortMapping.1.PortMappingDescription = DMZ",
      "add " + ip + " 255: 2",
      "set " + ip + "2.AddressingType = DHCP",
      "add " + ip + "2.PortMapping. 255: 1",
      "set " + ip + "2.PortMapping.1.PortMappingProtocol = ALL",
      "set " + ip + "2.PortMapping.1.PortMappingDescription = DMZ",
      "add " + ppp + " 255: 1",
      "add " + ppp + "1.PortMapping. 255: 1",
      "set " + ppp + "1.PortMapping.1.PortMappingProtocol = ALL",
      "set " + ppp + "1.PortMapping.1.PortMappingDescription = DMZ",
      "add " + std::string(kBridges) + " 255: 1",
      "set " + bridge + "BridgeName = br_1_1",
      "set " + bridge + "BridgeStandard = 802.1D",
      "set " + bridge + "VLANID = 0",
      "set " + link + "X_CT-COM_VLANIDMark = 0",
      "set " + link + "X_CT-COM_Mode = 0",
      "set " + bridge + "X_ZYN_WANName = " + wan,
      "set " + bridge + "BridgeEnable = true",
      "add " + bridge + "Port. 255: 1",
      "set " + bridge + "Port.1.PVID = 0",
      "set " + bridge + "Port.1.PortInterface = LAN0",
      "set " + bridge + "Port.1.PortEnable = true",
      "set " + wan + "X_CT-COM_RemoteManagerEnable = false",
  });
  EXPECT_EQ(writes_of(transcript()).substr(0, expected.size()), expected);
  EXPECT_EQ(transcript().find("commit"), std::string::npos);
}

TEST_F(CreateWan, AsksTheTreeInAFixedOrder) {
  api_wan_info info = description(2, 1);
  info.vlan_enable = 1;
  info.vlan_id = 7;
  run([&] { return igd_wan_create("3G", &info); });
  const std::string device = "InternetGatewayDevice.WANDevice.1.";
  const std::string wan = device + "WANConnectionDevice.1.";
  const std::string expected = lines({
      "open 1351",
      "open 1437",
      "open 1007",
      "open 197",
      "get " + wan + "WANEthernetLinkConfig.X_CT-COM_Mode",
      "open 1007",
      "close",
      "get " + device + "WANCommonInterfaceConfig.WANAccessType",
      "get " + std::string(kBridges) + "1.BridgeName",
      "get " + std::string(kBridges) + "1.VLANID",
      "get " + std::string(kBridges) + "1.BridgeName",
  });
  EXPECT_EQ(reads_of(transcript()).substr(0, expected.size()), expected);
  EXPECT_EQ(tree().get(std::string(kBridges) + "1.Port.1.PortInterface"), "3G0");
}

TEST_F(CreateWan, TagsTheBridgeAndTheUplinkPort) {
  api_wan_info info = description(2, 1);
  info.vlan_enable = 1;
  info.vlan_id = 300;
  info.vlan_priority = 6;
  const std::string wan = create("Repeator", info);
  const std::string bridge = std::string(kBridges) + "1.";
  EXPECT_EQ(tree().get(bridge + "BridgeStandard"), "802.1Q");
  EXPECT_EQ(tree().get(bridge + "VLANID"), "300");
  EXPECT_EQ(tree().get(bridge + "X_ZYN_VLANPriority"), "6");
  EXPECT_EQ(tree().get(bridge + "Port.1.PortInterface"), "WIFIW0");
  EXPECT_EQ(tree().get(bridge + "Port.1.PVID"), "300");
  EXPECT_EQ(tree().values().count(bridge + "Port.1.PortOption60"), 0u);
  EXPECT_EQ(tree().get(wan + "WANEthernetLinkConfig.X_CT-COM_VLANIDMark"), "300");
  EXPECT_EQ(tree().get(wan + "WANEthernetLinkConfig.X_CT-COM_Mode"), "1");
}

TEST_F(CreateWan, GivesAnUnknownAccessTypeNoUplinkPort) {
  for (const char* access_type : {"DSL", "ethernet", "Repeater"}) {
    api_wan_info info = description(2, 1);
    info.wan_info_name = access_type;
    EXPECT_NE(create(access_type, info), "");
  }
  EXPECT_EQ(tree().names_of(196).size(), 3u);
  EXPECT_EQ(tree().names_of(205).size(), 0u);
}

TEST_F(CreateWan, SharesTheDeviceOfAnAccessType) {
  api_wan_info info = description(2, 1);
  EXPECT_EQ(create("Ethernet", info), "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.");
  info.wan_info_name = "second";
  EXPECT_EQ(create("Ethernet", info), "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.");
  info.wan_info_name = "third";
  EXPECT_EQ(create("3G", info), "InternetGatewayDevice.WANDevice.2.WANConnectionDevice.1.");
  info.wan_info_name = "fourth";
  EXPECT_EQ(create("Ethernet", info), "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.3.");
}

TEST_F(CreateWan, TakesTheFirstDeviceWithTheAccessType) {
  add_device("3G");
  const std::string first = add_device("Ethernet");
  add_device("Ethernet");
  api_wan_info info = description(2, 1);
  EXPECT_EQ(create("Ethernet", info), first + "WANConnectionDevice.1.");
}

TEST_F(CreateWan, FindsTheUplinkOfItsOwnDeviceAmongMany) {
  for (int i = 0; i < 10; ++i) add_device("3G");
  api_wan_info info = description(2, 1);
  EXPECT_EQ(create("Ethernet", info), "InternetGatewayDevice.WANDevice.11.WANConnectionDevice.1.");
  EXPECT_EQ(tree().get(std::string(kBridges) + "1.BridgeName"), "br_11_1");
  EXPECT_EQ(tree().get(std::string(kBridges) + "1.Port.1.PortInterface"), "LAN0");
}

TEST_F(CreateWan, UpdatesTheConnectionThatHasTheName) {
  api_wan_info info = description(1, 1);
  const std::string wan = create("Ethernet", info);
  info.connect_mode = 2;
  EXPECT_EQ(create("3G", info), wan);
  EXPECT_EQ(transcript().find("\nadd "), std::string::npos);
  EXPECT_EQ(tree().names_of(1273), std::vector<std::string>{wan});
  EXPECT_EQ(tree().get(wan + "WANIPConnection.1.Enable"), "true");
}

TEST_F(CreateWan, TakesAnEmptyNameForTheConnectionWithoutAName) {
  const std::string device = add_device("Ethernet");
  const Connection named = add_connection(device);
  for (const std::string& object : {named.fixed, named.dhcp, named.ppp}) {
    tree().set(object + "Name", "named");
  }
  const Connection nameless = add_connection(device);
  api_wan_info info = description(1, 1);
  info.wan_info_name = "";
  EXPECT_EQ(create("Ethernet", info), nameless.wan);
}

TEST_F(CreateWan, KeepsABridgeThatAlreadyBelongsToTheNewPath) {
  const std::string left_over =
      add_bridge("br_1_1", "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.");
  api_wan_info info = description(2, 1);
  info.vlan_enable = 1;
  info.vlan_id = 50;
  create("Ethernet", info);
  EXPECT_EQ(tree().names_of(196), std::vector<std::string>{left_over + "BridgeName"});
  EXPECT_EQ(tree().names_of(205).size(), 0u);
  EXPECT_EQ(transcript().find("BridgeEnable"), std::string::npos);
}

TEST_F(CreateWan, PassesOverABridgeWithAnotherName) {
  add_bridge("mine", "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.");
  api_wan_info info = description(2, 1);
  create("Ethernet", info);
  EXPECT_EQ(tree().get(std::string(kBridges) + "2.BridgeName"), "br_1_1");
}

TEST_F(CreateWan, MayFindAnEntryThatTheCacheKeptFromAnOlderConnection) {
  const std::string wan = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";
  follow([&](Script& s) { cached_paths(s, wan); }, [&] { return _get_cache(wan); });
  api_wan_info info = description(1, 1);
  EXPECT_EQ(create("Ethernet", info), wan);
  EXPECT_EQ(tree().get("Enable"), "true");
  EXPECT_EQ(tree().get(wan + "WANIPConnection.2.Enable"), "false");
}

}  // namespace
}  // namespace foreign
