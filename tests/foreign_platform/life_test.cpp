// Whole lives of connections, from the empty name to the last port that is given back; what stands
// in the tree after each step is written down by hand.
#include "gateway_test.h"

namespace foreign {
namespace {

const Names kNodes = {"LAN1", "LAN2", "LAN3", "WLAN1"};

/// A port's line: of which bridge and with which number, its VLAN, node and owner.
std::string port(const std::string& number, const std::string& pvid, const std::string& node,
                 const std::string& owner = "") {
  return number + ".: PVID=" + pvid + " PortEnable=true PortInterface=" + node +
         " X_ZYN_DependWanName=" + owner;
}

/// The same with an option 60, which only members of a connection's own bridge have.
std::string member(const std::string& number, const std::string& pvid, const std::string& node,
                   const std::string& option) {
  return number + ".: PVID=" + pvid + " PortEnable=true PortInterface=" + node +
         " PortOption60=" + option + " X_ZYN_DependWanName=";
}

const std::string kLanBridge =
    "1.: BridgeEnable=true BridgeName=internet BridgeStandard=802.1D VLANID=0 X_ZYN_WANName=";
const std::string kDmz = "PortMapping.1.: PortMappingDescription=DMZ PortMappingProtocol=ALL";

class Life : public GatewayTest {
 protected:
  static std::string bridges() { return tree().shown(kBridges); }
  static std::string connections() { return tree().shown(kDevices); }
};

class RoutedLife : public Life {
 protected:
  void be_created();
  void be_changed();
  void be_removed();
};

// LAN1 and WLAN1 are bound in the LAN bridge, LAN2 is a member of the connection's own.
void RoutedLife::be_created() {
  add_lan_bridge(kNodes);
  api_wan_info info = description(1, 1);
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN2"};
  info.port_option60 = {{"LAN2", "cpe"}};
  ASSERT_EQ(create("Ethernet", info), kWan);
  const std::string c = "1.WANConnectionDevice.1.";
  EXPECT_EQ(connections(),
            lines({"1.:", "1.WANCommonInterfaceConfig.: WANAccessType=Ethernet",
                   c + ": X_CT-COM_Enable=true X_CT-COM_RemoteManagerEnable=false "
                       "X_CT-COM_STPEnable=true",
                   c + "WANEthernetLinkConfig.: X_CT-COM_Mode=0 X_CT-COM_Name=wan-one "
                       "X_CT-COM_VLANIDMark=0",
                   c + "WANIPConnection.1.: AddressingType=Static ConnectionType=IP_Routed "
                       "DNSEnabled=true Enable=false MTU=1501 NATEnabled=true Name=wan-one "
                       "X_CT-COM_LanInterface=LAN1,WLAN1,LAN2 X_CT-COM_ServiceList=INTERNET",
                   c + "WANIPConnection.1." + kDmz,
                   c + "WANIPConnection.2.: AddressingType=DHCP ConnectionType=IP_Routed "
                       "DNSEnabled=true DNSServers=1.1.1.1,2.2.2.2 Enable=true MTU=1502 "
                       "NATEnabled=true Name=wan-one X_CT-COM_LanInterface=LAN1,WLAN1,LAN2 "
                       "X_CT-COM_ServiceList=INTERNET X_ZYN-COM_OPTION60=vendor",
                   c + "WANIPConnection.2." + kDmz,
                   c + "WANPPPConnection.1.: ConnectionType=IP_Routed DNSEnabled=true "
                       "Enable=false MTU=1492 NATEnabled=true Name=wan-one Password=secret "
                       "Username=user X_CT-COM_LanInterface=LAN1,WLAN1,LAN2 "
                       "X_CT-COM_ServiceList=INTERNET",
                   c + "WANPPPConnection.1." + kDmz}));
  EXPECT_EQ(bridges(),
            lines({kLanBridge, port("1.Port.3", "", "LAN3"), port("1.Port.5", "4060", "LAN1", kWan),
                   port("1.Port.6", "4060", "WLAN1", kWan),
                   "2.: BridgeEnable=true BridgeName=br_1_1 BridgeStandard=802.1D VLANID=0 "
                   "X_ZYN_WANName=" +
                       kWan,
                   port("2.Port.1", "0", "LAN0"), member("2.Port.2", "0", "LAN2", "cpe")}));
}

// To static addressing, on a VLAN; LAN1 moves to the connection's own bridge, LAN2 is released.
void RoutedLife::be_changed() {
  api_wan_info info = read(kWan);
  info.connect_mode = 2;
  info.ip_addr = "10.0.0.2";
  info.ip_mask = "255.0.0.0";
  info.ip_gw = "10.0.0.1";
  info.ip_dns1 = "3.3.3.3";
  info.ip_dns2 = "";
  info.vlan_enable = 1;
  info.vlan_id = 100;
  info.vlan_priority = 5;
  info.bind_lan = {"WLAN1"};
  info.bind_wan = {"LAN1"};
  info.port_option60["LAN1"] = "tv";
  write(kWan, info);
  EXPECT_EQ(tree().shown(kWan + "WANIPConnection.1."),
            lines({": AddressingType=Static ConnectionType=IP_Routed DNSEnabled=true "
                   "DNSServers=3.3.3.3, DefaultGateway=10.0.0.1 Enable=true "
                   "ExternalIPAddress=10.0.0.2 MTU=1501 NATEnabled=true Name=wan-one "
                   "SubnetMask=255.0.0.0 X_CT-COM_LanInterface=WLAN1,LAN1 "
                   "X_CT-COM_ServiceList=INTERNET",
                   kDmz}));
  EXPECT_EQ(tree().shown(kWan + "WANEthernetLinkConfig."),
            ": X_CT-COM_Mode=1 X_CT-COM_Name=wan-one X_CT-COM_VLANIDMark=100\n");
  EXPECT_EQ(tree().get(kWan + "WANIPConnection.2.Enable"), "false");
  EXPECT_EQ(bridges(),
            lines({kLanBridge, port("1.Port.3", "", "LAN3"),
                   port("1.Port.6", "4060", "WLAN1", kWan), port("1.Port.7", "", "LAN2"),
                   "2.: BridgeEnable=true BridgeName=br_1_1 BridgeStandard=802.1Q "
                   "VLANID=100 X_ZYN_VLANPriority=5 X_ZYN_WANName=" +
                       kWan,
                   port("2.Port.1", "100", "LAN0"), member("2.Port.3", "100", "LAN1", "tv")}));
}

void RoutedLife::be_removed() {
  remove(kWan);
  EXPECT_EQ(connections(), lines({"1.:", "1.WANCommonInterfaceConfig.: WANAccessType=Ethernet"}));
  EXPECT_EQ(bridges(),
            lines({kLanBridge, port("1.Port.3", "", "LAN3"), port("1.Port.7", "", "LAN2"),
                   port("1.Port.8", "", "LAN1"), port("1.Port.9", "", "WLAN1")}));
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

TEST_F(RoutedLife, LeavesNothingButTheDeviceAndThePortsInTheLanBridge) {
  be_created();
  be_changed();
  be_removed();
}

TEST_F(Life, OfABridgedConnection) {
  add_lan_bridge(kNodes);
  api_wan_info info = description(2, 3);
  info.nat_mode = 0;
  info.vlan_enable = 1;
  info.vlan_id = 200;
  info.vlan_priority = 6;
  info.bind_wan = {"LAN3", "WLAN1"};
  ASSERT_EQ(create("3G", info), kWan);
  EXPECT_EQ(info.port_option60, (std::map<std::string, std::string>{{"LAN3", ""}, {"WLAN1", ""}}));
  EXPECT_EQ(tree().get(kDevices + "1.WANCommonInterfaceConfig.WANAccessType"), "3G");
  EXPECT_EQ(tree().shown(kWan + "WANPPPConnection.1."),
            lines({": ConnectionType=PPPoE_Bridged DNSEnabled=true DNSServers=1.1.1.1,2.2.2.2 "
                   "Enable=true MTU=1492 NATEnabled=false Name=wan-one Password=secret "
                   "Username=user X_CT-COM_LanInterface=LAN3,WLAN1 X_CT-COM_ServiceList=INTERNET",
                   kDmz}));
  EXPECT_EQ(tree().get(kWan + "WANIPConnection.1.ConnectionType"), "IP_Bridged");
  EXPECT_EQ(tree().get(kWan + "WANIPConnection.2.ConnectionType"), "IP_Bridged");
  EXPECT_EQ(bridges(),
            lines({kLanBridge, port("1.Port.1", "", "LAN1"), port("1.Port.2", "", "LAN2"),
                   "2.: BridgeEnable=true BridgeName=br_1_1 BridgeStandard=802.1Q "
                   "VLANID=200 X_ZYN_VLANPriority=6 X_ZYN_WANName=" +
                       kWan,
                   port("2.Port.1", "200", "3G0"), member("2.Port.2", "200", "LAN3", ""),
                   member("2.Port.3", "200", "WLAN1", "")}));

  remove(kWan);
  EXPECT_EQ(connections(), lines({"1.:", "1.WANCommonInterfaceConfig.: WANAccessType=3G"}));
  EXPECT_EQ(bridges(),
            lines({kLanBridge, port("1.Port.1", "", "LAN1"), port("1.Port.2", "", "LAN2"),
                   port("1.Port.5", "", "LAN3"), port("1.Port.6", "", "WLAN1")}));
}

// The first routed connection brings the LAN bridge along, with a VLAN of its own where the
// connection is tagged.
TEST_F(Life, OfARoutedConnectionOnAGatewayWithoutBridges) {
  api_wan_info info = description(1, 2);
  info.vlan_enable = 1;
  info.vlan_id = 100;
  info.vlan_priority = 3;
  info.bind_lan = {"LAN4"};
  ASSERT_EQ(create("Repeator", info), kWan);
  EXPECT_EQ(bridges(), lines({"1.: BridgeEnable=true BridgeName=br_1_1 BridgeStandard=802.1Q "
                              "VLANID=100 X_ZYN_VLANPriority=3 X_ZYN_WANName=" +
                                  kWan,
                              port("1.Port.1", "100", "WIFIW0"),
                              "2.: BridgeEnable=true BridgeName=internet BridgeStandard=802.1Q "
                              "VLANID=4060 X_ZYN_VLANPriority=3 X_ZYN_WANName=",
                              port("2.Port.1", "4060", "LAN4", kWan)}));
  EXPECT_EQ(tree().get(kWan + "WANEthernetLinkConfig.X_CT-COM_VLANIDMark"), "100");
  const api_wan_info seen = read(kWan);
  EXPECT_EQ(seen.lan_vlan_enable, 1);
  EXPECT_EQ(seen.lan_vlan_id, 4060);
  EXPECT_EQ(seen.bind_lan, Names{"LAN4"});
  remove(kWan);
  EXPECT_EQ(bridges(), lines({"2.: BridgeEnable=true BridgeName=internet BridgeStandard=802.1Q "
                              "VLANID=4060 X_ZYN_VLANPriority=3 X_ZYN_WANName=",
                              port("2.Port.2", "", "LAN4")}));
}

TEST_F(Life, EndsTheRoutesWithTheConnectionOrItsRouting) {
  add_lan_bridge(kNodes);
  const auto add_route = [&](const std::string& ip, const std::string& through) {
    const api_route_info route{ip, "255.255.255.0", 1, 2, through, ""};
    EXPECT_EQ(run([&] { return igd_set_static_route(1, route); }), 0);
  };
  const auto left = [&] {
    std::vector<api_route_info> routes;
    run([&] { return igd_get_static_route_list(routes); });
    std::string found;
    for (const api_route_info& route : routes) found += route.dest_ip + ">" + route.interface + ";";
    return found;
  };
  api_wan_info first = description(3, 2);
  ASSERT_EQ(create("Ethernet", first), kWan);
  api_wan_info second = description(1, 1);
  second.wan_info_name = "wan-two";
  const std::string other = kDevices + "1.WANConnectionDevice.2.";
  ASSERT_EQ(create("Ethernet", second), other);
  add_route("10.1.0.0", "wan-one");
  add_route("10.2.0.0", "wan-two");
  add_route("10.3.0.0", "nobody");
  EXPECT_EQ(left(), "10.1.0.0>" + kWan + ";10.2.0.0>" + other + ";10.3.0.0>;");
  first.connection_class = 2;
  write(kWan, first);
  EXPECT_EQ(left(), "10.2.0.0>" + other + ";10.3.0.0>;");
  remove(other);
  EXPECT_EQ(left(), "10.3.0.0>;");
}

/// What a reading gives back of a description that was written.
api_wan_info as_read(api_wan_info info) {
  info.dhcp_dns_enable = info.static_dns_enable = 1;
  if (info.connect_mode == 1) {
    info.dhcp_dns1 = info.ip_dns1;
    info.dhcp_dns2 = info.ip_dns2;
  } else {
    info.dhcp_option60 = "";
  }
  if (info.connect_mode == 2) {
    info.static_dns1 = info.ip_dns1;
    info.static_dns2 = info.ip_dns2;
  } else {
    info.ip_addr = info.ip_mask = info.ip_gw = "";
  }
  return info;
}

TEST_F(Life, OfEachClassAndModeIsReadAsItWasWritten) {
  const Names access_types = {"Ethernet", "3G", "Repeator"};
  int number = 0;
  for (int connection_class = 1; connection_class <= 3; ++connection_class) {
    for (int mode = 1; mode <= 3; ++mode) {
      SCOPED_TRACE(testing::Message() << connection_class << ' ' << mode);
      Platform::instance().reset();
      add_lan_bridge(kNodes);
      api_wan_info info = description(connection_class, mode);
      info.wan_info_name = "wan-" + std::to_string(++number);
      info.nat_mode = number % 3 == 0 ? 1 : 0;
      info.vlan_enable = number % 2;
      if (info.vlan_enable == 1) info.vlan_id = 100 + number;
      if (info.vlan_enable == 1) info.vlan_priority = number % 8;
      info.bind_lan = {"WLAN1"};
      info.bind_wan = {"LAN2", "LAN3"};
      info.port_option60 = {{"LAN2", "a"}, {"LAN3", "b"}};
      ASSERT_EQ(create(access_types[static_cast<std::size_t>(number) % 3], info), kWan);
      EXPECT_EQ(describe(read(kWan)), describe(as_read(info)));
      remove(kWan);
      EXPECT_EQ(tree().names_of(205).size(), kNodes.size());
      EXPECT_EQ(tree().names_of(196).size(), 1u);
    }
  }
}

}  // namespace
}  // namespace foreign
