#include <string>
#include <utility>

#include "connection_test.h"

namespace {

class WanRead : public support::ConnectionTest {
 protected:
  // Reads a connection over what the caller's record held before.
  static api_wan_info read(const std::string& wan_index, api_wan_info info = {}) {
    int result = -1;
    (void)support::printed_by([&] { result = igd_wan_get_params(wan_index, &info); });
    EXPECT_EQ(result, 0) << wan_index;
    return info;
  }
  api_wan_info read(api_wan_info info = {}) const { return read(wan_, std::move(info)); }

  std::string printed_reading() const {
    api_wan_info info;
    return support::printed_by([&] { (void)igd_wan_get_params(wan_, &info); });
  }

  void enable(const std::string& object_path) { set(object_path + "Enable", "true"); }

  // The same parameter of the three objects, told apart by the value.
  void set_each(const std::string& parameter) {
    set(static_ + parameter, "of static");
    set(dhcp_ + parameter, "of dhcp");
    set(ppp_ + parameter, "of ppp");
  }
};

TEST_F(WanRead, RefusesANullRecordSilently) {
  int result = 0;
  EXPECT_EQ(support::transcript_of([&] { result = igd_wan_get_params(wan_, nullptr); }), "");
  EXPECT_EQ(result, -1023);
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

TEST_F(WanRead, ReadsTheAccountOfThePppObjectAndTheMtuOfEach) {
  set(ppp_ + "Username", "user@isp");
  set(ppp_ + "Password", "secret");
  set_each("MTU");
  const api_wan_info info = read();
  EXPECT_EQ(info.pppoe_user_name + ' ' + info.pppoe_password, "user@isp secret");
  EXPECT_EQ(info.pppoe_mtu, "of ppp");
  EXPECT_EQ(info.static_mtu, "of static");
  EXPECT_EQ(info.dhcp_mtu, "of dhcp");
}

TEST_F(WanRead, ReadsTheAddressesOfTheStaticObjectWhateverIsEnabled) {
  enable(dhcp_);
  for (const std::string& path : {static_, dhcp_}) {
    const std::string host = path == static_ ? "2" : "9";
    set(path + "ExternalIPAddress", "10.0.0." + host);
    set(path + "SubnetMask", "255.0.0." + host);
    set(path + "DefaultGateway", "10.1.0." + host);
  }
  const api_wan_info info = read();
  EXPECT_EQ(info.ip_addr, "10.0.0.2");
  EXPECT_EQ(info.ip_mask, "255.0.0.2");
  EXPECT_EQ(info.ip_gw, "10.1.0.2");
}

TEST_F(WanRead, CopiesTheDeviceFlagsAsTheyAre) {
  set(wan_ + "X_CT-COM_Enable", "true");
  set(wan_ + "X_CT-COM_RemoteManagerEnable", "Yes ");
  set(wan_ + "X_CT-COM_STPEnable", "");
  const api_wan_info info = read(support::routed_pppoe("old", 0));
  EXPECT_EQ(info.wan_enable, "true");
  EXPECT_EQ(info.wan_remote_management_enable, "Yes ");
  EXPECT_EQ(info.stp_enable, "");
}

TEST_F(WanRead, TakesTheModeOfTheEnabledObjectDhcpBeforePppBeforeStatic) {
  const struct {
    const char* dhcp;
    const char* ppp;
    const char* fixed;
    int mode;
  } kCases[] = {
      {"true", "false", "false", 1}, {"false", "true", "false", 3}, {"false", "false", "true", 2},
      {"true", "true", "false", 1},  {"true", "true", "true", 1},   {"true", "false", "true", 1},
      {"false", "true", "true", 3},  {"TRUE", "1", "true", 2},      {"true ", "true", "", 3},
      {"false", "", "False", 77},
  };
  for (const auto& c : kCases) {
    set(dhcp_ + "Enable", c.dhcp);
    set(ppp_ + "Enable", c.ppp);
    set(static_ + "Enable", c.fixed);
    api_wan_info before;
    before.connect_mode = 77;
    EXPECT_EQ(read(before).connect_mode, c.mode) << c.dhcp << '/' << c.ppp << '/' << c.fixed;
  }
}

TEST_F(WanRead, PrintsTheEnableTextsItFound) {
  set(dhcp_ + "Enable", "TRUE");
  enable(ppp_);
  set(static_ + "Enable", "");
  EXPECT_NE(printed_reading().find("vornik dhcp_path TRUE\n"
                                   "vornik _get_value(mib_info->dhcp_path,\"Enable\") = 0\n"
                                   "vornik ppp_path true\n"
                                   "vornik static_path \n"),
            std::string::npos);
}

TEST_F(WanRead, AnnouncesTheDumpWithItsLine) {
  EXPECT_NE(printed_reading().find("\nigd_wan_get_params  igd_wan_print_params(info) :565\n"
                                   "igd_wan_print_params start!!! igd_wan_print_params:601\n"),
            std::string::npos);
}

TEST_F(WanRead, WritesNothing) {
  enable(dhcp_);
  api_wan_info info;
  EXPECT_EQ(support::writes_of([&] { (void)igd_wan_get_params(wan_, &info); }), "");
}

TEST_F(WanRead, ReadsTypeNameServiceAndNatOfTheEnabledObject) {
  for (const char* parameter : {"Name", "X_CT-COM_ServiceList"}) set_each(parameter);
  const struct {
    std::string path;
    const char* value;
  } kCases[] = {{static_, "of static"}, {ppp_, "of ppp"}, {dhcp_, "of dhcp"}};
  for (const auto& c : kCases) {  // the later ones outrank the earlier
    enable(c.path);
    set(c.path + "NATEnabled", "true");
    set(c.path + "ConnectionType", "IP_BridgeRouted");
    const api_wan_info info = read();
    EXPECT_EQ(info.wan_info_name, c.value);
    EXPECT_EQ(info.service_type, c.value);
    EXPECT_EQ(info.nat_mode, 1) << c.value;
    EXPECT_EQ(info.connection_class, 3) << c.value;
    set(c.path + "NATEnabled", "false");
    EXPECT_EQ(read().nat_mode, 0) << c.value;
  }
}

TEST_F(WanRead, FallsBackToTheStaticObjectWhenNoneIsEnabled) {
  set_each("Name");
  set_each("X_CT-COM_ServiceList");
  set(static_ + "NATEnabled", "true");
  set(static_ + "ConnectionType", "IP_Bridged");
  const api_wan_info info = read();
  EXPECT_EQ(info.wan_info_name, "of static");
  EXPECT_EQ(info.service_type, "of static");
  EXPECT_EQ(info.nat_mode, 1);
  EXPECT_EQ(info.connection_class, 2);
}

TEST_F(WanRead, ReadsTheServersOfTheEnabledObject) {
  set_each("DNSServers");
  const struct {
    std::string path;
    const char* value;
  } kCases[] = {{static_, "of static"}, {ppp_, "of ppp"}, {dhcp_, "of dhcp"}};
  for (const auto& c : kCases) {  // the later ones outrank the earlier
    enable(c.path);
    EXPECT_EQ(read().ip_dns1, c.value);
    EXPECT_EQ(read().ip_dns_enable, 1) << c.value;
    set(c.path + "DNSEnabled", "false");
    EXPECT_EQ(read().ip_dns_enable, 0) << c.value;
  }
}

TEST_F(WanRead, SplitsTheServersIntoTwoFields) {
  const struct {
    const char* servers;
    const char* first;
    const char* second;
  } kCases[] = {
      {"1.1.1.1,2.2.2.2", "1.1.1.1", "2.2.2.2"},
      {"1.1.1.1", "1.1.1.1", ""},
      {"1.1.1.1,", "1.1.1.1", ""},
      {",2.2.2.2", "", "2.2.2.2"},
      {"1.1.1.1,2.2.2.2,3.3.3.3", "1.1.1.1", "2.2.2.2"},
      {"1.1.1.1,,3.3.3.3", "1.1.1.1", ""},
      {"1.1.1.1, 2.2.2.2", "1.1.1.1", " 2.2.2.2"},
      {"", "", ""},
  };
  enable(static_);
  api_wan_info before;
  before.ip_dns1 = before.ip_dns2 = "old";
  for (const auto& c : kCases) {
    set(static_ + "DNSServers", c.servers);
    const api_wan_info info = read(before);
    EXPECT_EQ(info.ip_dns1, c.first) << c.servers;
    EXPECT_EQ(info.ip_dns2, c.second) << c.servers;
    EXPECT_EQ(info.static_dns1, c.first) << c.servers;
    EXPECT_EQ(info.static_dns2, c.second) << c.servers;
  }
}

TEST_F(WanRead, FillsTheDhcpAndStaticServersAlsoWhenPppIsEnabled) {
  enable(ppp_);
  set(dhcp_ + "DNSServers", "1.1.1.1,2.2.2.2");
  set(static_ + "DNSServers", "3.3.3.3,4.4.4.4");
  set(static_ + "DNSEnabled", "True");
  const api_wan_info info = read();
  EXPECT_EQ(info.dhcp_dns_enable, 1);
  EXPECT_EQ(info.dhcp_dns1 + ' ' + info.dhcp_dns2, "1.1.1.1 2.2.2.2");
  EXPECT_EQ(info.static_dns_enable, 0);
  EXPECT_EQ(info.static_dns1 + ' ' + info.static_dns2, "3.3.3.3 4.4.4.4");
}

TEST_F(WanRead, LeavesTheServersToTheCallerWhenNothingIsEnabled) {
  set_each("DNSServers");
  api_wan_info before;
  before.ip_dns_enable = before.dhcp_dns_enable = before.static_dns_enable = 5;
  before.ip_dns1 = before.dhcp_dns1 = before.static_dns1 = "old";
  const api_wan_info info = read(before);
  EXPECT_EQ(info.ip_dns1 + info.dhcp_dns1 + info.static_dns1, "oldoldold");
  EXPECT_EQ(info.ip_dns_enable + info.dhcp_dns_enable + info.static_dns_enable, 15);
}

TEST_F(WanRead, ReadsOption60OnlyWhenDhcpIsEnabled) {
  set(dhcp_ + "X_ZYN-COM_OPTION60", "vendor");
  api_wan_info before;
  before.dhcp_option60 = "old";
  EXPECT_EQ(read(before).dhcp_option60, "old");
  enable(ppp_);
  EXPECT_EQ(read(before).dhcp_option60, "old");
  enable(dhcp_);
  EXPECT_EQ(read(before).dhcp_option60, "vendor");
}

TEST_F(WanRead, DerivesTheClassFromTheConnectionType) {
  const struct {
    const char* type;
    int connection_class;
  } kCases[] = {
      {"IP_Bridged", 2},    {"IP_Routed", 1}, {"PPPoE_Bridged", 2}, {"IP_BridgeRouted", 3},
      {"Unconfigured", 77}, {"", 77},         {"ip_routed", 77},    {"IP_Routed ", 77},
  };
  for (const auto& c : kCases) {
    set(static_ + "ConnectionType", c.type);
    api_wan_info before;
    before.connection_class = 77;
    EXPECT_EQ(read(before).connection_class, c.connection_class) << c.type;
  }
}

TEST_F(WanRead, LooksAtTheAddressesLengthForTheProtocol) {
  const std::string long_text = "2001:db8::1:2:34";  // 16 characters
  const struct {
    std::string address, mask, gateway;
    int protocol;
  } kCases[] = {
      {"0.0.0.0", "", "", 1},
      {"", "", "", 1},
      {"255.255.255.255", "255.255.255.255", "255.255.255.255", 1},
      {"2001:db8::1", "64", "fe80::1", 1},
      {long_text, "255.0.0.0", "10.0.0.1", 2},
      {"10.0.0.2", long_text, "10.0.0.1", 2},
      {"10.0.0.2", "255.0.0.0", long_text, 2},
  };
  for (const auto& c : kCases) {
    set(static_ + "ExternalIPAddress", c.address);
    set(static_ + "SubnetMask", c.mask);
    set(static_ + "DefaultGateway", c.gateway);
    EXPECT_EQ(read().protocol, c.protocol) << c.address << ' ' << c.mask << ' ' << c.gateway;
  }
}

TEST_F(WanRead, LeavesDhcpTransToTheCaller) {
  api_wan_info before;
  before.dhcp_trans = 5;
  EXPECT_EQ(read(before).dhcp_trans, 5);
}

TEST_F(WanRead, FillsEmptyTextsAndZerosForAPathThatNamesNoConnection) {
  api_wan_info before = support::routed_pppoe("old", 100);
  before.ip_dns1 = "9.9.9.9";
  const api_wan_info info = read(support::wan_path(9, 9), before);
  EXPECT_EQ(info.wan_info_name + info.service_type + info.pppoe_user_name + info.pppoe_password,
            "");
  EXPECT_EQ(info.pppoe_mtu + info.static_mtu + info.dhcp_mtu, "");
  EXPECT_EQ(info.wan_enable + info.wan_remote_management_enable + info.stp_enable, "");
  EXPECT_EQ(info.nat_mode, 0);
  EXPECT_EQ(info.protocol, 1);
  EXPECT_EQ(info.ip_dns1, "9.9.9.9");
  EXPECT_EQ(info.connect_mode, 3);
  EXPECT_EQ(info.connection_class, 1);
}

TEST_F(WanRead, AsksForBareNamesWhereThereIsNoObject) {
  api_wan_info info;
  const std::string transcript =
      support::transcript_of([&] { (void)igd_wan_get_params(support::wan_path(9, 9), &info); });
  for (const char* name : {"Username", "MTU", "ExternalIPAddress", "Enable", "Name", "VLANID"}) {
    EXPECT_NE(transcript.find("\nget " + std::string(name) + " -> \"\"\n"), std::string::npos)
        << name;
  }
}

}  // namespace
