// The dump of a connection record.
#include "gateway_test.h"

namespace foreign {
namespace {

using RecordDump = GatewayTest;

constexpr char kLastLine[] = "igd_wan_print_params end!!! igd_wan_print_params:631\n";

TEST_F(RecordDump, ShowsTheFieldsInTheirOrder) {
  api_wan_info info = description(3, 3);
  info.vlan_enable = 1;
  info.vlan_id = 100;
  info.vlan_priority = 5;
  info.bind_lan = {"LAN1", "WLAN2"};
  info.bind_wan = {"LAN3"};
  info.dhcp_trans = 7;
  const int result = run([&] { return igd_wan_print_params(&info); });
  EXPECT_EQ(transcript(), lines({
                              "| igd_wan_print_params start!!! igd_wan_print_params:601",
                              "| wan_info_name:wan-one ",
                              "| vlan_enable:1 ",
                              "| vlan_id:100 ",
                              "| vlan_priority:5 ",
                              "| connection_class 1:Route,2:Bridge,3:Route&Bridge:[3] ",
                              "| bind_lan:0 LAN1 ",
                              "| bind_lan:1 WLAN2 ",
                              "| bind_wan:0 LAN3 ",
                              "| service_type: INTERNET ",
                              "| dhcp_trans: 7 ",
                              "| nat_mode: 7 ",
                              "| connect_mode 1:dbcp,2:static,3:pppoe: [3] ",
                              "| pppoe_user_name: user ",
                              "| pppoe_password: secret ",
                              "| pppoe_mtu: 1492 ",
                              "| protocol: 1 ipv4, 2 ipv6 [1] ",
                              "| ip_addr: 10.0.0.2 ",
                              "| ip_mask: 255.0.0.0 ",
                              "| ip_gw: 10.0.0.1 ",
                              "| ip_dns_enable: 1 ",
                              "| ip_dns1: 1.1.1.1 ",
                              "| ip_dns2: 2.2.2.2 ",
                              "| dhcp_option60: vendor ",
                              "| wan_enable: true ",
                              "| wan_remote_management_enable: false ",
                              "| stp_enable: true ",
                              "| igd_wan_print_params end!!! igd_wan_print_params:631",
                          }));
  EXPECT_EQ(result, static_cast<int>(sizeof kLastLine - 1));
}

TEST_F(RecordDump, ShowsEmptyFieldsAsNothingAndEmptyListsNotAtAll) {
  api_wan_info info;
  run([&] { return igd_wan_print_params(&info); });
  EXPECT_EQ(transcript(), lines({
                              "| igd_wan_print_params start!!! igd_wan_print_params:601",
                              "| wan_info_name: ",
                              "| vlan_enable:0 ",
                              "| vlan_id:0 ",
                              "| vlan_priority:0 ",
                              "| connection_class 1:Route,2:Bridge,3:Route&Bridge:[0] ",
                              "| service_type:  ",
                              "| dhcp_trans: 0 ",
                              "| nat_mode: 0 ",
                              "| connect_mode 1:dbcp,2:static,3:pppoe: [0] ",
                              "| pppoe_user_name:  ",
                              "| pppoe_password:  ",
                              "| pppoe_mtu:  ",
                              "| protocol: 1 ipv4, 2 ipv6 [0] ",
                              "| ip_addr:  ",
                              "| ip_mask:  ",
                              "| ip_gw:  ",
                              "| ip_dns_enable: 0 ",
                              "| ip_dns1:  ",
                              "| ip_dns2:  ",
                              "| dhcp_option60:  ",
                              "| wan_enable:  ",
                              "| wan_remote_management_enable:  ",
                              "| stp_enable:  ",
                              "| igd_wan_print_params end!!! igd_wan_print_params:631",
                          }));
}

TEST_F(RecordDump, ShowsTheTransparentFlagInPlaceOfTheNatMode) {
  api_wan_info info;
  info.dhcp_trans = 0;
  info.nat_mode = 1;
  run([&] { return igd_wan_print_params(&info); });
  EXPECT_NE(transcript().find("\n| nat_mode: 0 \n"), std::string::npos);
  EXPECT_EQ(info.nat_mode, 1);
}

}  // namespace
}  // namespace foreign
