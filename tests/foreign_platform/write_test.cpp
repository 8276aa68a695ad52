// Writing a record onto a connection: values, order and printed lines.
#include "write_bench.h"

namespace foreign {
namespace {

TEST_F(SetParams, RefusesAMissingRecordBeforeTheCacheIsAsked) {
  EXPECT_EQ(run([&] { return igd_wan_set_params(connection_.wan, nullptr); }), -1023);
  EXPECT_EQ(lines_of(transcript()) + writes_of(transcript()), "");
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

TEST_F(SetParams, WritesInOneFixedOrder) {
  api_wan_info info = description(1, 1);
  EXPECT_EQ(run([&] { return igd_wan_set_params(connection_.wan, &info); }), 0);
  const std::string dhcp = connection_.dhcp, ppp = connection_.ppp, fixed = connection_.fixed;
  const std::string wan = connection_.wan, own = wan_bridge_;
  const std::string link = wan + "WANEthernetLinkConfig.";
  EXPECT_EQ(writes_of(transcript()), lines({
                                         "set " + wan + "X_CT-COM_RemoteManagerEnable = false",
                                         "set " + wan + "X_CT-COM_Enable = true",
                                         "set " + wan + "X_CT-COM_STPEnable = true",
                                         "set " + dhcp + "Enable = false",
                                         "set " + fixed + "Enable = false",
                                         "set " + ppp + "Enable = false",
                                         "set " + own + "Port.1.PortEnable = false",
                                         "set " + own + "Port.1.PVID = 0",
                                         "set " + own + "BridgeStandard = 802.1D",
                                         "set " + own + "VLANID = 0",
                                         "set " + link + "X_CT-COM_VLANIDMark = 0",
                                         "set " + link + "X_CT-COM_Mode = 0",
                                         "set " + own + "Port.1.PortEnable = true",
                                         "set " + dhcp + "Name = wan-one",
                                         "set " + fixed + "Name = wan-one",
                                         "set " + ppp + "Name = wan-one",
                                         "set " + link + "X_CT-COM_Name = wan-one",
                                         "set " + dhcp + "ConnectionType = IP_Routed",
                                         "set " + fixed + "ConnectionType = IP_Routed",
                                         "set " + ppp + "ConnectionType = IP_Routed",
                                         "set " + dhcp + "X_ZYN-COM_OPTION60 = vendor",
                                         "set " + dhcp + "X_CT-COM_ServiceList = INTERNET",
                                         "set " + fixed + "X_CT-COM_ServiceList = INTERNET",
                                         "set " + ppp + "X_CT-COM_ServiceList = INTERNET",
                                         "set " + dhcp + "NATEnabled = true",
                                         "set " + fixed + "NATEnabled = true",
                                         "set " + ppp + "NATEnabled = true",
                                         "set " + ppp + "Username = user",
                                         "set " + ppp + "Password = secret",
                                         "set " + ppp + "MTU = 1492",
                                         "set " + fixed + "MTU = 1501",
                                         "set " + dhcp + "MTU = 1502",
                                         "set " + dhcp + "DNSEnabled = true",
                                         "set " + dhcp + "DNSServers = 1.1.1.1,2.2.2.2",
                                         "set " + dhcp + "Enable = true",
                                     }));
}

TEST_F(SetParams, PrintsInOneFixedOrder) {
  run([&] { return _get_cache(connection_.wan); });
  api_wan_info info = description(2, 2);
  info.bind_wan = {"LAN0"};
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  const std::string dhcp = connection_.dhcp, ppp = connection_.ppp, fixed = connection_.fixed;
  const std::string wan = connection_.wan;
  const std::string at = "| vornik igd_wan_set_params:#  ";
  const std::string pair = at + "info->connect_mode:2 \n" + at + "info->connection_class:2 ";
  const std::string dash = "| \n|  ------------- igd_api ";
  Script dump;
  print_record(dump, info);
  EXPECT_EQ(lines_of(transcript()),
            "| igd_wan_set_params  igd_wan_print_params(info) :1234\n" + dump.text() +
                lines({
                    pair,
                    "| vornik set_params bridge_name:br_1_1,connect_class:0,",
                    "|  dhcp_path:" + dhcp + ",",
                    "|  lan_bridge_name:internet,\t\tlan_bridge_path:" + lan_bridge_ +
                        ",ppp_path:" + ppp + ",",
                    "| static_path:" + fixed + ",",
                    "| wan_bridge_path:" + wan_bridge_ + ",",
                    "| wan_path:" + wan,
                    "| vornik: igd_wan_set_params wan_index " + wan,
                    pair,
                    "| ---index:" + wan + "--------",
                    "| ------phy:LAN0------------",
                    "| ---static_path:" + fixed + "X_CT-COM_LanInterface---value:------------",
                    "| ---dhcp_path:" + dhcp + "X_CT-COM_LanInterface---value:------------",
                    "| ---ppp_path:" + ppp + "X_CT-COM_LanInterface---value:------------",
                    "| vornik: igd_wan_set_params mib_info->bridge_name br_1_1",
                    "| vornik: igd_wan_set_params mib_info->wan_path " + wan,
                    pair,
                    at + "wan_remote_management_enable:false ",
                    at + "wan_enable:true ",
                    at + "stp_enable:true ",
                    pair,
                    pair,
                    at + "connection_type: ",
                    pair,
                    pair,
                    "| vornik _wan_port_update info->vlan_id = 0,old_vlan_id = 0",
                    "| vornik info->vlan_enable = 0",
                    dash + "1085: OLD INTERNET HAS LAN1 ",
                    dash + "1085: OLD INTERNET HAS LAN2 ",
                    dash + "1090: NEW BIND WAN HAS LAN0 ",
                    dash + "1102: NEW CREATE LAN0 ",
                    dash + "1106: NEW INTERNET LAN1 ",
                    dash + "1106: NEW INTERNET LAN2 ",
                    dash + "_wan_port_update 1110",
                    dash + "_wan_port_update 1129",
                    dash + "_wan_port_update 1146",
                    dash + "_wan_port_update 1165",
                    dash + "1174: LAN0 create bind_wan ",
                    dash + "_wan_port_update 1179",
                    dash + "_wan_port_update 1193",
                    dash + "_wan_port_update 1210 port:" + wan_bridge_ + "Port.1.PortEnable",
                    dash + "_wan_port_update 1210 port:" + wan_bridge_ + "Port.2.PortEnable",
                    pair,
                    at + "info->wan_info_name:wan-one ",
                    at + "wan_name:wan-one ",
                    at + "mib_info->dhcp_path:" + dhcp + " ",
                    at + "mib_info->static_path:" + fixed + " ",
                    at + "mib_info->ppp_path:" + ppp + " ",
                    pair,
                    at + "dhcp_option60:vendor ",
                    pair,
                    at + "service_type:INTERNET ",
                    pair,
                    pair,
                    at + "pppoe_user_name:user ",
                    at + "pppoe_password:secret ",
                    at + "pppoe_mtu:1492 ",
                    pair,
                    at + "ip_dns:1.1.1.1,2.2.2.2 ",
                    at + "ip_addr:10.0.0.2 ",
                    at + "ip_mask:255.0.0.0 ",
                    at + "ip_gw:10.0.0.1 ",
                    pair,
                }));
}

TEST_F(SetParams, FollowsItsStepsForEveryClassModeAndTagging) {
  for (int connection_class = 0; connection_class <= 4; ++connection_class) {
    for (int mode = 0; mode <= 4; ++mode) {
      for (int tagged = 0; tagged <= 2; ++tagged) {
        SCOPED_TRACE(testing::Message() << connection_class << ' ' << mode << ' ' << tagged);
        api_wan_info info = description(connection_class, mode);
        info.vlan_enable = tagged;
        info.vlan_id = 100 + mode;
        info.vlan_priority = mode;
        info.ip_dns_enable = tagged;
        set_params(connection_.wan, info);
      }
    }
  }
}

TEST_F(SetParams, DisablesAllThreeObjectsBeforeOneIsEnabled) {
  for (const std::string& object : {connection_.dhcp, connection_.fixed, connection_.ppp}) {
    tree().set(object + "Enable", "true");
  }
  const std::string expected[] = {"", connection_.dhcp, connection_.fixed, connection_.ppp};
  for (int mode = 1; mode <= 3; ++mode) {
    write(description(1, mode));
    for (int other = 1; other <= 3; ++other) {
      EXPECT_EQ(tree().get(expected[other] + "Enable"), other == mode ? "true" : "false");
    }
  }
}

TEST_F(SetParams, LeavesEveryObjectDisabledInAnUnknownMode) {
  for (int mode : {0, 4, -1}) {
    write(description(1, mode));
    for (const std::string& object : {connection_.dhcp, connection_.fixed, connection_.ppp}) {
      EXPECT_EQ(tree().get(object + "Enable"), "false");
      EXPECT_EQ(tree().get(object + "DNSServers"), "");
    }
    EXPECT_EQ(tree().get(connection_.fixed + "ExternalIPAddress"), "");
    EXPECT_EQ(transcript().find("DNSEnabled"), std::string::npos);
  }
}

TEST_F(SetParams, WritesTheAddressOnlyForStaticAddressing) {
  write(description(1, 1));
  write(description(1, 3));
  EXPECT_EQ(tree().get(connection_.fixed + "ExternalIPAddress"), "");
  write(description(1, 2));
  EXPECT_EQ(tree().get(connection_.fixed + "ExternalIPAddress"), "10.0.0.2");
  EXPECT_EQ(tree().get(connection_.fixed + "SubnetMask"), "255.0.0.0");
  EXPECT_EQ(tree().get(connection_.fixed + "DefaultGateway"), "10.0.0.1");
}

TEST_F(SetParams, WritesServersOnlyWhenDnsIsOn) {
  const std::string objects[] = {"", connection_.dhcp, connection_.fixed, connection_.ppp};
  for (int mode = 1; mode <= 3; ++mode) {
    const std::string& object = objects[mode];
    tree().set(object + "DNSServers", "old");
    api_wan_info info = description(1, mode);
    info.ip_dns_enable = 0;
    write(info);
    EXPECT_EQ(tree().get(object + "DNSEnabled"), "false");
    EXPECT_EQ(tree().get(object + "DNSServers"), "old");
    info.ip_dns_enable = 2;
    write(info);
    EXPECT_EQ(tree().get(object + "DNSEnabled"), "false");
    EXPECT_EQ(tree().get(object + "DNSServers"), "1.1.1.1,2.2.2.2");
    info.ip_dns_enable = 1;
    info.ip_dns1 = info.ip_dns2 = "";
    write(info);
    EXPECT_EQ(tree().get(object + "DNSEnabled"), "true");
    EXPECT_EQ(tree().get(object + "DNSServers"), ",");
  }
}

TEST_F(SetParams, NamesTheTypeOfEachObjectByTheClass) {
  const char* const types[][2] = {{"IP_Routed", "IP_Routed"},
                                  {"IP_Bridged", "PPPoE_Bridged"},
                                  {"IP_BridgeRouted", "IP_BridgeRouted"}};
  for (int connection_class = 1; connection_class <= 3; ++connection_class) {
    write(description(connection_class, 1));
    EXPECT_EQ(tree().get(connection_.dhcp + "ConnectionType"), types[connection_class - 1][0]);
    EXPECT_EQ(tree().get(connection_.fixed + "ConnectionType"), types[connection_class - 1][0]);
    EXPECT_EQ(tree().get(connection_.ppp + "ConnectionType"), types[connection_class - 1][1]);
  }
}

TEST_F(SetParams, WritesNeitherTypeNorOption60ForAnUnknownClass) {
  for (int connection_class : {0, 4, -1}) {
    write(description(connection_class, 1));
    EXPECT_EQ(tree().get(connection_.dhcp + "ConnectionType"), "");
    EXPECT_EQ(tree().get(connection_.dhcp + "X_ZYN-COM_OPTION60"), "");
    EXPECT_EQ(tree().get(connection_.dhcp + "X_CT-COM_ServiceList"), "INTERNET");
  }
}

TEST_F(SetParams, SwitchesNatOnForTheModeOneOnly) {
  for (int mode : {0, 1, 2, -1}) {
    api_wan_info info = description(1, 1);
    info.nat_mode = mode;
    write(info);
    for (const std::string& object : {connection_.dhcp, connection_.fixed, connection_.ppp}) {
      EXPECT_EQ(tree().get(object + "NATEnabled"), mode == 1 ? "true" : "false") << mode;
    }
  }
}

}  // namespace
}  // namespace foreign
