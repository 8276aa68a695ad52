#include <string>

#include "connection_test.h"

namespace {

using support::routed_pppoe;

class WanWrite : public support::ConnectionTest {
 protected:
  int write(api_wan_info info) const {
    int result = -1;
    (void)support::printed_by([&] { result = igd_wan_set_params(wan_, &info); });
    return result;
  }

  std::string printed_writing(api_wan_info info) const {
    return support::printed_by([&] { (void)igd_wan_set_params(wan_, &info); });
  }

  // "dhcp static ppp": what the three objects hold, in the order they are written.
  std::string of_objects(const std::string& parameter) const {
    return get(dhcp_ + parameter) + ' ' + get(static_ + parameter) + ' ' + get(ppp_ + parameter);
  }
  void set_objects(const std::string& parameter, const std::string& value) {
    for (const std::string& path : {dhcp_, static_, ppp_}) set(path + parameter, value);
  }

  // A description with DNS servers and addresses, for one addressing mode.
  static api_wan_info addressed(int connect_mode) {
    api_wan_info info = routed_pppoe("1_INTERNET", 0);
    info.connect_mode = connect_mode;
    info.ip_addr = "10.0.0.2";
    info.ip_mask = "255.0.0.0";
    info.ip_gw = "10.0.0.1";
    info.ip_dns_enable = 1;
    info.ip_dns1 = "9.9.9.9";
    info.ip_dns2 = "8.8.8.8";
    return info;
  }
};

TEST_F(WanWrite, RefusesANullRecordSilently) {
  int result = 0;
  EXPECT_EQ(support::transcript_of([&] { result = igd_wan_set_params(wan_, nullptr); }), "");
  EXPECT_EQ(result, -1023);
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

TEST_F(WanWrite, DoesNotCommit) {
  api_wan_info info = routed_pppoe("1_INTERNET", 100);
  const std::string writes = support::writes_of([&] { (void)igd_wan_set_params(wan_, &info); });
  EXPECT_NE(writes.find("set " + ppp_ + "Enable = \"true\"\n"), std::string::npos);
  EXPECT_EQ(writes.find("commit"), std::string::npos);
  EXPECT_EQ(writes.find("apply"), std::string::npos);
}

TEST_F(WanWrite, WritesTheDeviceFlagsWhole) {
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  info.wan_remote_management_enable = std::string(300, 'r');
  info.wan_enable = std::string(300, 'e');
  info.stp_enable = std::string(300, 's');
  EXPECT_EQ(write(info), 0);
  EXPECT_EQ(get(wan_ + "X_CT-COM_RemoteManagerEnable"), info.wan_remote_management_enable);
  EXPECT_EQ(get(wan_ + "X_CT-COM_Enable"), info.wan_enable);
  EXPECT_EQ(get(wan_ + "X_CT-COM_STPEnable"), info.stp_enable);
}

TEST_F(WanWrite, CutsTheNameAt255Characters) {
  const struct {
    std::string name;
    std::string stored;
  } kCases[] = {
      {std::string(300, 'n'), std::string(255, 'n')},
      {std::string(256, 'n'), std::string(255, 'n')},
      {std::string(255, 'n'), std::string(255, 'n')},
      {std::string("ab\0cd", 5), "ab"},
      {"", ""},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(write(routed_pppoe(c.name, 0)), 0);
    EXPECT_EQ(of_objects("Name"), c.stored + ' ' + c.stored + ' ' + c.stored) << c.name;
    EXPECT_EQ(get(wan_ + "WANEthernetLinkConfig.X_CT-COM_Name"), c.stored) << c.name;
  }
}

TEST_F(WanWrite, CutsTheJoinedServersAt255Characters) {
  api_wan_info info = addressed(kIgdPppoe);
  info.ip_dns1 = std::string(200, '1');
  info.ip_dns2 = std::string(200, '2');
  EXPECT_EQ(write(info), 0);
  EXPECT_EQ(get(ppp_ + "DNSServers"), info.ip_dns1 + ',' + std::string(54, '2'));
}

TEST_F(WanWrite, StoresOtherTextsWhole) {
  api_wan_info info = addressed(kIgdStatic);
  const std::string text(300, 'x');
  info.pppoe_user_name = info.pppoe_password = info.pppoe_mtu = info.service_type = text;
  info.dhcp_option60 = info.ip_addr = info.ip_mask = info.ip_gw = text;
  EXPECT_EQ(write(info), 0);
  for (const std::string& name :
       {ppp_ + "Username", ppp_ + "Password", ppp_ + "MTU", ppp_ + "X_CT-COM_ServiceList",
        dhcp_ + "X_ZYN-COM_OPTION60", static_ + "ExternalIPAddress", static_ + "SubnetMask",
        static_ + "DefaultGateway"}) {
    EXPECT_EQ(get(name), text) << name;
  }
}

TEST_F(WanWrite, WritesTheConnectionTypeOfTheClass) {
  const struct {
    int connection_class;
    const char* types;
  } kCases[] = {
      {1, "IP_Routed IP_Routed IP_Routed"},
      {2, "IP_Bridged IP_Bridged PPPoE_Bridged"},
      {3, "IP_BridgeRouted IP_BridgeRouted IP_BridgeRouted"},
  };
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  for (const auto& c : kCases) {
    info.connection_class = c.connection_class;
    info.dhcp_option60 = "vendor " + std::to_string(c.connection_class);
    EXPECT_EQ(write(info), 0);
    EXPECT_EQ(of_objects("ConnectionType"), c.types) << c.connection_class;
    EXPECT_EQ(get(dhcp_ + "X_ZYN-COM_OPTION60"), info.dhcp_option60) << c.connection_class;
  }
}

TEST_F(WanWrite, WritesNeitherTypeNorOption60OfAnUnknownClass) {
  set_objects("ConnectionType", "IP_Routed");
  set(dhcp_ + "X_ZYN-COM_OPTION60", "old");
  api_wan_info info = support::dhcp_management("1_TR069", 0);
  for (const int connection_class : {0, 4, -1}) {
    info.connection_class = connection_class;
    EXPECT_EQ(write(info), 0);
    EXPECT_EQ(of_objects("ConnectionType"), "IP_Routed IP_Routed IP_Routed") << connection_class;
    EXPECT_EQ(get(dhcp_ + "X_ZYN-COM_OPTION60"), "old") << connection_class;
  }
}

TEST_F(WanWrite, WritesTheServiceListToAllObjects) {
  EXPECT_EQ(write(routed_pppoe("1_INTERNET", 0)), 0);
  EXPECT_EQ(of_objects("X_CT-COM_ServiceList"), "INTERNET INTERNET INTERNET");
}

TEST_F(WanWrite, TurnsNatOnForModeOneOnly) {
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  for (const int nat_mode : {1, 0, 2, -1}) {
    info.nat_mode = nat_mode;
    info.dhcp_trans = 1 - nat_mode;
    EXPECT_EQ(write(info), 0);
    EXPECT_EQ(of_objects("NATEnabled"), nat_mode == 1 ? "true true true" : "false false false")
        << nat_mode;
  }
}

TEST_F(WanWrite, WritesTheAccountAndTheMtuOfEachObject) {
  api_wan_info info = routed_pppoe("1_INTERNET", 0);
  info.pppoe_mtu = "1492";
  info.static_mtu = "1400";
  info.dhcp_mtu = "1300";
  EXPECT_EQ(write(info), 0);
  EXPECT_EQ(get(ppp_ + "Username"), "user@isp");
  EXPECT_EQ(get(ppp_ + "Password"), "secret");
  EXPECT_EQ(of_objects("MTU"), "1300 1400 1492");
}

TEST_F(WanWrite, EnablesTheObjectOfTheModeAndDisablesTheOthers) {
  const struct {
    int mode;
    const char* enabled;
  } kCases[] = {
      {1, "true false false"},  {2, "false true false"},  {3, "false false true"},
      {0, "false false false"}, {4, "false false false"}, {-1, "false false false"},
  };
  for (const auto& c : kCases) {
    set_objects("Enable", "true");
    EXPECT_EQ(write(addressed(c.mode)), 0);
    EXPECT_EQ(of_objects("Enable"), c.enabled) << c.mode;
  }
}

TEST_F(WanWrite, WritesTheServersOfTheModesObjectOnly) {
  const std::string servers = "9.9.9.9,8.8.8.8";
  const struct {
    int mode;
    std::string servers;
    const char* enabled;
  } kCases[] = {
      {1, servers + " old old", "true old old"}, {2, "old " + servers + " old", "old true old"},
      {3, "old old " + servers, "old old true"}, {0, "old old old", "old old old"},
      {4, "old old old", "old old old"},
  };
  for (const auto& c : kCases) {
    set_objects("DNSServers", "old");
    set_objects("DNSEnabled", "old");
    EXPECT_EQ(write(addressed(c.mode)), 0);
    EXPECT_EQ(of_objects("DNSServers"), c.servers) << c.mode;
    EXPECT_EQ(of_objects("DNSEnabled"), c.enabled) << c.mode;
  }
}

TEST_F(WanWrite, KeepsTheServersWhenTheirUseIsOff) {
  for (const int mode : {1, 2, 3}) {
    set_objects("DNSServers", "old");
    set_objects("DNSEnabled", "true");
    api_wan_info info = addressed(mode);
    info.ip_dns_enable = 0;
    EXPECT_EQ(write(info), 0);
    EXPECT_EQ(of_objects("DNSServers"), "old old old") << mode;
    EXPECT_NE(of_objects("DNSEnabled").find("false"), std::string::npos) << mode;
  }
}

TEST_F(WanWrite, WritesServersWithoutUsingThemForAnOddFlag) {
  api_wan_info info = addressed(kIgdStatic);
  info.ip_dns_enable = 2;
  EXPECT_EQ(write(info), 0);
  EXPECT_EQ(get(static_ + "DNSEnabled"), "false");
  EXPECT_EQ(get(static_ + "DNSServers"), "9.9.9.9,8.8.8.8");
}

TEST_F(WanWrite, KeepsTheCommaOfAMissingServer) {
  api_wan_info info = addressed(kIgdDhcp);
  info.ip_dns2 = "";
  EXPECT_EQ(write(info), 0);
  EXPECT_EQ(get(dhcp_ + "DNSServers"), "9.9.9.9,");
}

TEST_F(WanWrite, WritesAddressesToTheStaticObjectInStaticModeOnly) {
  for (const int mode : {1, 3, 0, 2}) {
    EXPECT_EQ(write(addressed(mode)), 0);
    EXPECT_EQ(get(static_ + "ExternalIPAddress"), mode == 2 ? "10.0.0.2" : "") << mode;
    EXPECT_EQ(get(static_ + "SubnetMask"), mode == 2 ? "255.0.0.0" : "") << mode;
    EXPECT_EQ(get(static_ + "DefaultGateway"), mode == 2 ? "10.0.0.1" : "") << mode;
    EXPECT_EQ(get(dhcp_ + "ExternalIPAddress") + get(ppp_ + "ExternalIPAddress"), "") << mode;
  }
}

TEST_F(WanWrite, PrintsTheDumpFirstAndThePasswordInClear) {
  const std::string printed = printed_writing(routed_pppoe("1_INTERNET", 0));
  EXPECT_EQ(printed.find("igd_wan_set_params  igd_wan_print_params(info) :1234\n"
                         "igd_wan_print_params start!!! igd_wan_print_params:601\n"),
            0U);
  EXPECT_NE(printed.find("  pppoe_password:secret \n"), std::string::npos);
}

TEST_F(WanWrite, PrintsEveryTextCutAt255Characters) {
  const struct {
    const char* label;
    std::string api_wan_info::*field;
  } kTraced[] = {
      {"wan_remote_management_enable", &api_wan_info::wan_remote_management_enable},
      {"wan_enable", &api_wan_info::wan_enable},
      {"stp_enable", &api_wan_info::stp_enable},
      {"info->wan_info_name", &api_wan_info::wan_info_name},
      {"wan_name", &api_wan_info::wan_info_name},
      {"dhcp_option60", &api_wan_info::dhcp_option60},
      {"service_type", &api_wan_info::service_type},
      {"pppoe_user_name", &api_wan_info::pppoe_user_name},
      {"pppoe_password", &api_wan_info::pppoe_password},
      {"pppoe_mtu", &api_wan_info::pppoe_mtu},
      {"ip_dns", &api_wan_info::ip_dns1},
      {"ip_addr", &api_wan_info::ip_addr},
      {"ip_mask", &api_wan_info::ip_mask},
      {"ip_gw", &api_wan_info::ip_gw},
  };
  for (const auto& c : kTraced) {
    api_wan_info info = addressed(kIgdStatic);
    info.*c.field = std::string(256, 'x');
    const std::string printed = printed_writing(info);
    const std::string kept = std::string("  ") + c.label + ':' + std::string(255, 'x') + " \n";
    EXPECT_NE(printed.find(kept), std::string::npos) << c.label;
  }
}

}  // namespace
