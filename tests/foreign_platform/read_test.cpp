// Reading a connection into a record.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class GetParams : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    connection_ = add_connection(add_device("Ethernet"));
    lan_bridge_ = add_lan_bridge({"LAN1", "LAN2"});
    wan_bridge_ = add_wan_bridge(connection_, "br_1_1", {"LAN0"});
  }

  void enable(const std::string& object) { tree().set(object + "Enable", "true"); }

  api_wan_info read() {
    api_wan_info info;
    get_params(connection_.wan, info);
    return info;
  }

  Connection connection_;
  std::string lan_bridge_;
  std::string wan_bridge_;
};

TEST_F(GetParams, RefusesAMissingRecordBeforeTheCacheIsAsked) {
  EXPECT_EQ(run([&] { return igd_wan_get_params(connection_.wan, nullptr); }), -1023);
  EXPECT_EQ(lines_of(transcript()), "");
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

TEST_F(GetParams, ReadsTheAccountAndTheMtus) {
  tree().set(connection_.ppp + "Username", "user");
  tree().set(connection_.ppp + "Password", "secret");
  tree().set(connection_.ppp + "MTU", "1492");
  tree().set(connection_.fixed + "MTU", "1501");
  tree().set(connection_.dhcp + "MTU", "1502");
  const api_wan_info info = read();
  EXPECT_EQ(info.pppoe_user_name, "user");
  EXPECT_EQ(info.pppoe_password, "secret");
  EXPECT_EQ(info.pppoe_mtu, "1492");
  EXPECT_EQ(info.static_mtu, "1501");
  EXPECT_EQ(info.dhcp_mtu, "1502");
}

TEST_F(GetParams, ReadsTheStaticAddressWhateverTheMode) {
  tree().set(connection_.fixed + "ExternalIPAddress", "10.0.0.2");
  tree().set(connection_.fixed + "SubnetMask", "255.0.0.0");
  tree().set(connection_.fixed + "DefaultGateway", "10.0.0.1");
  tree().set(connection_.dhcp + "ExternalIPAddress", "192.0.2.7");
  enable(connection_.dhcp);
  const api_wan_info info = read();
  EXPECT_EQ(info.ip_addr, "10.0.0.2");
  EXPECT_EQ(info.ip_mask, "255.0.0.0");
  EXPECT_EQ(info.ip_gw, "10.0.0.1");
}

TEST_F(GetParams, CopiesTheFlagsOfTheDeviceAsTheyAre) {
  tree().set(connection_.wan + "X_CT-COM_Enable", "TRUE");
  tree().set(connection_.wan + "X_CT-COM_RemoteManagerEnable", "1");
  tree().set(connection_.wan + "X_CT-COM_STPEnable", "false");
  const api_wan_info info = read();
  EXPECT_EQ(info.wan_enable, "TRUE");
  EXPECT_EQ(info.wan_remote_management_enable, "1");
  EXPECT_EQ(info.stp_enable, "false");
}

TEST_F(GetParams, LetsDhcpDecideBeforePppBeforeStatic) {
  enable(connection_.fixed);
  EXPECT_EQ(read().connect_mode, 2);
  enable(connection_.ppp);
  EXPECT_EQ(read().connect_mode, 3);
  enable(connection_.dhcp);
  EXPECT_EQ(read().connect_mode, 1);
  tree().set(connection_.ppp + "Enable", "false");
  EXPECT_EQ(read().connect_mode, 1);
}

TEST_F(GetParams, TakesOnlyTheTextTrueAsEnabled) {
  tree().set(connection_.dhcp + "Enable", "TRUE");
  tree().set(connection_.ppp + "Enable", "1");
  enable(connection_.fixed);
  EXPECT_EQ(read().connect_mode, 2);
}

TEST_F(GetParams, ReadsDnsOfTheEnabledObjectAndOfBothIpConnections) {
  tree().set(connection_.dhcp + "DNSServers", "1.1.1.1,1.1.1.2");
  tree().set(connection_.fixed + "DNSServers", "2.2.2.1,2.2.2.2,2.2.2.3");
  tree().set(connection_.ppp + "DNSServers", "3.3.3.1");
  tree().set(connection_.dhcp + "DNSEnabled", "false");
  tree().set(connection_.dhcp + "X_ZYN-COM_OPTION60", "vendor");
  enable(connection_.ppp);
  api_wan_info info = read();
  EXPECT_EQ(info.ip_dns_enable, 1);
  EXPECT_EQ(info.ip_dns1, "3.3.3.1");
  EXPECT_EQ(info.ip_dns2, "");
  EXPECT_EQ(info.dhcp_dns_enable, 0);
  EXPECT_EQ(info.dhcp_dns1, "1.1.1.1");
  EXPECT_EQ(info.dhcp_dns2, "1.1.1.2");
  EXPECT_EQ(info.static_dns_enable, 1);
  EXPECT_EQ(info.static_dns1, "2.2.2.1");
  EXPECT_EQ(info.static_dns2, "2.2.2.2");
  EXPECT_EQ(info.dhcp_option60, "");

  tree().set(connection_.ppp + "Enable", "false");
  enable(connection_.fixed);
  info = read();
  EXPECT_EQ(info.ip_dns1 + "," + info.ip_dns2, "2.2.2.1,2.2.2.2");
  EXPECT_EQ(info.dhcp_option60, "");

  enable(connection_.dhcp);
  info = read();
  EXPECT_EQ(info.ip_dns_enable, 0);
  EXPECT_EQ(info.ip_dns1 + "," + info.ip_dns2, "1.1.1.1,1.1.1.2");
  EXPECT_EQ(info.dhcp_option60, "vendor");
}

TEST_F(GetParams, SplitsTheServersAtTheirComma) {
  enable(connection_.dhcp);
  const struct {
    const char* servers;
    const char* first;
    const char* second;
  } cases[] = {{"", "", ""},
               {"1.1.1.1", "1.1.1.1", ""},
               {"1.1.1.1,", "1.1.1.1", ""},
               {",2.2.2.2", "", "2.2.2.2"},
               {"1.1.1.1,,3.3.3.3", "1.1.1.1", ""}};
  for (const auto& c : cases) {
    tree().set(connection_.dhcp + "DNSServers", c.servers);
    api_wan_info info;
    info.ip_dns1 = info.ip_dns2 = info.dhcp_dns1 = info.dhcp_dns2 = "left over";
    get_params(connection_.wan, info);
    EXPECT_EQ(info.ip_dns1, c.first) << c.servers;
    EXPECT_EQ(info.ip_dns2, c.second) << c.servers;
    EXPECT_EQ(info.dhcp_dns1, c.first) << c.servers;
    EXPECT_EQ(info.dhcp_dns2, c.second) << c.servers;
  }
}

TEST_F(GetParams, KeepsTheOption60OfTheCallerUnlessDhcpIsEnabled) {
  tree().set(connection_.dhcp + "X_ZYN-COM_OPTION60", "vendor");
  enable(connection_.fixed);
  api_wan_info info;
  info.dhcp_option60 = "caller";
  get_params(connection_.wan, info);
  EXPECT_EQ(info.dhcp_option60, "caller");
}

TEST_F(GetParams, LeavesModeAndDnsAsTheyAreWhenNothingIsEnabled) {
  tree().set(connection_.fixed + "Name", "static name");
  tree().set(connection_.fixed + "ConnectionType", "IP_Routed");
  tree().set(connection_.fixed + "DNSServers", "2.2.2.1,2.2.2.2");
  tree().set(connection_.dhcp + "Name", "dhcp name");
  api_wan_info info;
  info.connect_mode = 3;
  info.ip_dns_enable = info.dhcp_dns_enable = info.static_dns_enable = 9;
  info.ip_dns1 = info.ip_dns2 = info.static_dns1 = info.dhcp_dns1 = "kept";
  info.dhcp_option60 = "kept";
  api_wan_info expected = info;
  script_.start_from(tree());
  read_params(script_, connection_.wan, expected);
  EXPECT_EQ(run([&] { return igd_wan_get_params(connection_.wan, &info); }), 0);
  const char* const progress = "| vornik igd_wan_get_params:";
  EXPECT_EQ(without(transcript(), progress), without(script_.text(), progress));
  EXPECT_EQ(describe(info), describe(expected));
  EXPECT_EQ(info.connect_mode, 3);
  EXPECT_EQ(info.static_dns_enable, 9);
  EXPECT_EQ(info.ip_dns1 + info.ip_dns2 + info.static_dns1 + info.dhcp_dns1, "keptkeptkeptkept");
  EXPECT_EQ(info.dhcp_option60, "kept");
  EXPECT_EQ(info.wan_info_name, "static name");
  EXPECT_EQ(info.connection_class, 1);
}

TEST_F(GetParams, ReadsNameServiceAndNatOfTheEnabledObject) {
  tree().set(connection_.ppp + "Name", "ppp name");
  tree().set(connection_.ppp + "X_CT-COM_ServiceList", "TR069,INTERNET");
  tree().set(connection_.ppp + "NATEnabled", "true");
  tree().set(connection_.fixed + "Name", "static name");
  enable(connection_.ppp);
  api_wan_info info = read();
  EXPECT_EQ(info.wan_info_name, "ppp name");
  EXPECT_EQ(info.service_type, "TR069,INTERNET");
  EXPECT_EQ(info.nat_mode, 1);
  tree().set(connection_.ppp + "NATEnabled", "True");
  EXPECT_EQ(read().nat_mode, 0);
}

TEST_F(GetParams, NamesTheClassByTheConnectionType) {
  enable(connection_.dhcp);
  const struct {
    const char* type;
    int connection_class;
  } cases[] = {{"IP_Bridged", 2},   {"IP_Routed", 1}, {"PPPoE_Bridged", 2}, {"IP_BridgeRouted", 3},
               {"Unconfigured", 8}, {"", 8},          {"ip_routed", 8}};
  for (const auto& c : cases) {
    tree().set(connection_.dhcp + "ConnectionType", c.type);
    api_wan_info info;
    info.connection_class = 8;
    get_params(connection_.wan, info);
    EXPECT_EQ(info.connection_class, c.connection_class) << c.type;
  }
}

TEST_F(GetParams, DoesNotTouchWhatTheTreeDoesNotHold) {
  api_wan_info info;
  info.dhcp_trans = 5;
  get_params(connection_.wan, info);
  EXPECT_EQ(info.dhcp_trans, 5);
}

TEST_F(GetParams, TellsIpv4FromIpv6ByLength) {
  const struct {
    const char* address;
    const char* mask;
    const char* gateway;
    int protocol;
  } cases[] = {{"", "", "", 1},
               {"0.0.0.0", "255.255.255.255", "123.123.123.123", 1},
               {"2001:db8::1:2:34", "", "", 2},
               {"", "ffff:ffff:ffff:0", "", 2},
               {"10.0.0.2", "255.0.0.0", "fe80::1:2:3:4:55", 2},
               {"2001:db8::1", "", "", 1}};
  for (const auto& c : cases) {
    tree().set(connection_.fixed + "ExternalIPAddress", c.address);
    tree().set(connection_.fixed + "SubnetMask", c.mask);
    tree().set(connection_.fixed + "DefaultGateway", c.gateway);
    EXPECT_EQ(read().protocol, c.protocol) << c.address << ' ' << c.mask << ' ' << c.gateway;
  }
}

}  // namespace
}  // namespace foreign
