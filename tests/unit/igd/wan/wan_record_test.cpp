#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "igd_api.h"
#include "transcript.h"

namespace {

std::string dump_of(api_wan_info info) {
  return support::printed_by([&] { (void)igd_wan_print_params(&info); });
}

bool has_line(const std::string& text, const std::string& line) {
  return ('\n' + text).find('\n' + line + '\n') != std::string::npos;
}

template <std::size_t N>
void expect_ascending(const void* const (&fields)[N]) {
  for (std::size_t i = 1; i < N; ++i) EXPECT_LT(fields[i - 1], fields[i]) << "field " << i + 1;
}

api_wan_info filled() {
  api_wan_info info;
  info.wan_info_name = "1_INTERNET";
  info.vlan_enable = 1;
  info.vlan_id = 100;
  info.vlan_priority = 5;
  info.connection_class = 3;
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN4"};
  info.service_type = "INTERNET";
  info.dhcp_trans = 7;
  info.nat_mode = 1;
  info.connect_mode = 2;
  info.pppoe_user_name = "user@isp";
  info.pppoe_password = "secret";
  info.pppoe_mtu = "1492";
  info.protocol = 1;
  info.ip_addr = "10.0.0.2";
  info.ip_mask = "255.0.0.0";
  info.ip_gw = "10.0.0.1";
  info.ip_dns_enable = 1;
  info.ip_dns1 = "9.9.9.9";
  info.ip_dns2 = "8.8.8.8";
  info.dhcp_option60 = "vendor";
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "yes";
  return info;
}

TEST(WanRecordDump, PrintsTheRecordLineByLine) {
  EXPECT_EQ(dump_of(filled()),
            "igd_wan_print_params start!!! igd_wan_print_params:601\n"
            "wan_info_name:1_INTERNET \n"
            "vlan_enable:1 \n"
            "vlan_id:100 \n"
            "vlan_priority:5 \n"
            "connection_class 1:Route,2:Bridge,3:Route&Bridge:[3] \n"
            "bind_lan:0 LAN1 \n"
            "bind_lan:1 WLAN1 \n"
            "bind_wan:0 LAN4 \n"
            "service_type: INTERNET \n"
            "dhcp_trans: 7 \n"
            "nat_mode: 7 \n"
            "connect_mode 1:dbcp,2:static,3:pppoe: [2] \n"
            "pppoe_user_name: user@isp \n"
            "pppoe_password: secret \n"
            "pppoe_mtu: 1492 \n"
            "protocol: 1 ipv4, 2 ipv6 [1] \n"
            "ip_addr: 10.0.0.2 \n"
            "ip_mask: 255.0.0.0 \n"
            "ip_gw: 10.0.0.1 \n"
            "ip_dns_enable: 1 \n"
            "ip_dns1: 9.9.9.9 \n"
            "ip_dns2: 8.8.8.8 \n"
            "dhcp_option60: vendor \n"
            "wan_enable: true \n"
            "wan_remote_management_enable: false \n"
            "stp_enable: yes \n"
            "igd_wan_print_params end!!! igd_wan_print_params:631\n");
}

TEST(WanRecordDump, ShowsDhcpTransOnTheNatLine) {
  api_wan_info info;
  info.dhcp_trans = 0;
  info.nat_mode = 1;
  EXPECT_TRUE(has_line(dump_of(info), "nat_mode: 0 "));
}

TEST(WanRecordDump, HasNoPortLinesForEmptyLists) {
  const std::string dump = dump_of({});
  EXPECT_EQ(dump.find("bind_lan"), std::string::npos);
  EXPECT_EQ(dump.find("bind_wan"), std::string::npos);
}

TEST(WanRecordDump, KeepsTheBlanksOfAnUnsetText) {
  const std::string dump = dump_of({});
  for (const char* line :
       {"wan_info_name: ", "service_type:  ", "pppoe_user_name:  ", "pppoe_password:  ",
        "pppoe_mtu:  ", "ip_addr:  ", "ip_mask:  ", "ip_gw:  ", "ip_dns1:  ", "ip_dns2:  ",
        "dhcp_option60:  ", "wan_enable:  ", "wan_remote_management_enable:  ", "stp_enable:  "}) {
    EXPECT_TRUE(has_line(dump, line)) << line;
  }
}

TEST(WanRecordDump, LeavesOutWhatIsOnlyReadBack) {
  api_wan_info info = filled();
  const std::string before = dump_of(info);
  info.static_mtu = info.dhcp_mtu = "1400";
  info.dhcp_dns_enable = info.static_dns_enable = 1;
  info.dhcp_dns1 = info.dhcp_dns2 = info.static_dns1 = info.static_dns2 = "7.7.7.7";
  info.port_option60["LAN1"] = "port vendor";
  info.lan_vlan_enable = info.lan_vlan_id = 44;
  EXPECT_EQ(dump_of(info), before);
}

TEST(WanRecordDump, ReturnsTheLengthOfItsLastLine) {
  api_wan_info info = filled();
  int result = 0;
  (void)support::printed_by([&] { result = igd_wan_print_params(&info); });
  const std::string last_line = "igd_wan_print_params end!!! igd_wan_print_params:631\n";
  EXPECT_EQ(result, static_cast<int>(last_line.size()));
}

TEST(WanRecordDump, DoesNotAskTheTree) {
  api_wan_info info = filled();
  const std::string transcript = support::transcript_of([&] { (void)igd_wan_print_params(&info); });
  EXPECT_EQ(transcript.find("| igd_wan_print_params start"), 0U);
  for (const char* call : {"\nget ", "\nopen ", "\nset ", "\nlog "}) {
    EXPECT_EQ(transcript.find(call), std::string::npos) << call;
  }
}

TEST(WanRecord, HasItsFieldsInTheirOrderAndNoMore) {
  api_wan_info r;
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13, f14, f15, f16, f17, f18, f19,
               f20, f21, f22, f23, f24, f25, f26, f27, f28, f29, f30, f31, f32, f33, f34, f35,
               f36] = r;
  EXPECT_EQ(&f1, &r.wan_info_name);
  EXPECT_EQ(&f36, &r.lan_vlan_id);
  expect_ascending({&r.wan_info_name,     &r.vlan_enable,
                    &r.vlan_id,           &r.vlan_priority,
                    &r.connection_class,  &r.bind_lan,
                    &r.bind_wan,          &r.service_type,
                    &r.dhcp_trans,        &r.nat_mode,
                    &r.connect_mode,      &r.pppoe_user_name,
                    &r.pppoe_password,    &r.pppoe_mtu,
                    &r.static_mtu,        &r.dhcp_mtu,
                    &r.protocol,          &r.ip_addr,
                    &r.ip_mask,           &r.ip_gw,
                    &r.ip_dns_enable,     &r.dhcp_dns_enable,
                    &r.dhcp_dns1,         &r.dhcp_dns2,
                    &r.static_dns_enable, &r.static_dns1,
                    &r.static_dns2,       &r.ip_dns1,
                    &r.ip_dns2,           &r.dhcp_option60,
                    &r.wan_enable,        &r.wan_remote_management_enable,
                    &r.stp_enable,        &r.port_option60,
                    &r.lan_vlan_enable,   &r.lan_vlan_id});
}

TEST(WanCacheRecord, HasItsFieldsInTheirOrderAndNoMore) {
  wan_mib_info r;
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9] = r;
  EXPECT_EQ(&f1, &r.wan_path);
  EXPECT_EQ(&f9, &r.connect_class);
  expect_ascending({&r.wan_path, &r.bridge_name, &r.static_path, &r.ppp_path, &r.dhcp_path,
                    &r.wan_bridge_path, &r.lan_bridge_path, &r.lan_bridge_name, &r.connect_class});
}

TEST(WanRecord, CodesItsFieldsAsCallersDo) {
  EXPECT_EQ(kIgdRouted, 1);
  EXPECT_EQ(kIgdBridged, 2);
  EXPECT_EQ(kIgdRoutedAndBridged, 3);
  EXPECT_EQ(kIgdDhcp, 1);
  EXPECT_EQ(kIgdStatic, 2);
  EXPECT_EQ(kIgdPppoe, 3);
  EXPECT_EQ(kIgdIpv4, 1);
  EXPECT_EQ(kIgdIpv6, 2);
}

}  // namespace
