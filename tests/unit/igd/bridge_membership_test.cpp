// Which interfaces belong to a bridge.
#include <string>
#include <utility>
#include <vector>

#include "gateway_test.h"
#include "igd_c_api.h"

namespace {

using support::wan_path;

class Membership : public support::GatewayTest {
 protected:
  /// Those of many names under which a port, alone in a bridge, belongs to it: "eth0 eth1 ".
  std::string names_of(const std::string& standard, const std::string& node,
                       const std::string& pvid) {
    const std::string bridge_path = add_bridge("br_1_1", wan_path(1, 1), "7", standard);
    (void)add_port(bridge_path, node, "", pvid);
    std::string found;
    for (const std::string ifname :
         {"", "LAN1", "ETH1", "eth0", "eth0.100", "eth1", "eth1.0", "eth1.7", "eth1.-1", "eth1.100",
          "eth1.4094", "eth1.4095", "ath3", "ath3.100", "ath4", "ath4.100", "usb0", "3g"}) {
      if (igd_c_check_belong_bridge("br_1_1", ifname.c_str()) == 1) found += ifname + ' ';
    }
    EXPECT_EQ(tree_.delete_object(bridge_path), 0);
    return found;
  }
};

TEST_F(Membership, InATaggedBridgeFollowsThePvid) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"100", "eth1.100 "}, {"4094", "eth1.4094 "}, {"4095", "eth1 "},       {"0", "eth1.0 "},
      {"", "eth1.0 "},      {"abc", "eth1.0 "},     {"100abc", "eth1.100 "}, {"-1", "eth1 "}};
  for (const auto& [pvid, names] : rows) EXPECT_EQ(names_of("802.1Q", "LAN1", pvid), names) << pvid;
}

TEST_F(Membership, InATaggedBridgeFollowsTheNode) {
  const std::vector<std::pair<std::string, std::string>> rows = {{"LAN0", "eth0.100 "},
                                                                 {"LAN_DEFAULT1", "eth1 "},
                                                                 {"WLAN4", "ath4 "},
                                                                 {"LAN5", "usb0 "},
                                                                 {"3G0", "3g "},
                                                                 {"LAN9", " "},
                                                                 {"", " "}};
  for (const auto& [node, names] : rows) EXPECT_EQ(names_of("802.1Q", node, "100"), names) << node;
}

TEST_F(Membership, InAnyOtherBridgeFollowsTheNode) {
  for (const char* standard : {"802.1D", "802.1q", "802.1Q ", ""}) {
    EXPECT_EQ(names_of(standard, "LAN1", "100"), "eth1 ") << standard;
    EXPECT_EQ(names_of(standard, "WIFIW0", "100"), "ath3 ") << standard;
    EXPECT_EQ(names_of(standard, "LAN9", "100"), " ") << standard;
  }
}

TEST_F(Membership, AsksEveryPortOfTheFirstBridgeOfTheName) {
  const std::string bridge_path = add_bridge("br", "", "0", "802.1Q");
  (void)add_port(bridge_path, "WLAN1", "", "1");
  (void)add_port(bridge_path, "LAN2", "", "200");
  (void)add_port(add_bridge("br", ""), "WLAN2");
  EXPECT_EQ(igd_c_check_belong_bridge("br", "eth1.200"), 1);
  EXPECT_EQ(igd_c_check_belong_bridge("br", "ath1"), 0);
}

TEST_F(Membership, IsRefusedForWhatIsMissing) {
  (void)add_bridge("empty", "");
  EXPECT_EQ(igd_c_check_belong_bridge("internet", nullptr), 0);
  EXPECT_EQ(igd_c_check_belong_bridge("unknown", "eth1"), 0);
  EXPECT_EQ(igd_c_check_belong_bridge("empty", "eth1"), 0);
  EXPECT_EQ(igd_c_check_belong_bridge("internet", "eth1"), 1);
}

TEST_F(Membership, IsLogged) {
  support::Transcript transcript;
  ASSERT_EQ(igd_c_check_belong_bridge("internet", "ath1"), 1);
  EXPECT_NE(transcript.text().find("log igd_api:# Matched Ifname ath1 in bridge=internet\n"),
            std::string::npos);
}

}  // namespace
