// The management server, the LAN address and the table of layer-3 interface names.
#include <cstring>

#include "gateway_test.h"

namespace foreign {
namespace {

constexpr char kServer[] = "InternetGatewayDevice.ManagementServer.";

class ManagementServer : public GatewayTest {
 protected:
  static std::string server(const char* parameter) { return std::string(kServer) + parameter; }
};

TEST_F(ManagementServer, IsWrittenInOneFixedOrderWithoutACommit) {
  api_mng_server_info info{"http://acs/", "user", "", "http://cpe/", "peer", "secret"};
  EXPECT_EQ(run([&] { return igd_mng_server_set_params(&info); }), 0);
  EXPECT_EQ(transcript(), lines({"set " + server("URL = http://acs/"),
                                 "set " + server("Username = user"), "set " + server("Password = "),
                                 "set " + server("ConnectionRequestURL = http://cpe/"),
                                 "set " + server("ConnectionRequestUsername = peer"),
                                 "set " + server("ConnectionRequestPassword = secret")}));
}

TEST_F(ManagementServer, OverwritesAnOldPasswordWithNothing) {
  tree().set(server("Password"), "old");
  api_mng_server_info info;
  EXPECT_EQ(run([&] { return igd_mng_server_set_params(&info); }), 0);
  EXPECT_EQ(tree().get(server("Password")), "");
}

TEST_F(ManagementServer, ReadsBackWhatWasWritten) {
  api_mng_server_info written{"1", "2", "3", "4", "5", "6"};
  EXPECT_EQ(run([&] { return igd_mng_server_set_params(&written); }), 0);
  api_mng_server_info info;
  EXPECT_EQ(run([&] { return igd_mng_server_get_params(&info); }), 0);
  EXPECT_EQ(
      transcript(),
      lines({"get " + server("URL"), "get " + server("Username"), "get " + server("Password"),
             "get " + server("ConnectionRequestURL"), "get " + server("ConnectionRequestUsername"),
             "get " + server("ConnectionRequestPassword")}));
  EXPECT_EQ(info.url + info.username + info.password, "123");
  EXPECT_EQ(info.connection_request_url + info.connection_request_username +
                info.connection_request_password,
            "456");
}

TEST_F(ManagementServer, ReadsNothingAsEmpty) {
  api_mng_server_info info{"1", "2", "3", "4", "5", "6"};
  EXPECT_EQ(run([&] { return igd_mng_server_get_params(&info); }), 0);
  EXPECT_EQ(info.url + info.username + info.password + info.connection_request_url +
                info.connection_request_username + info.connection_request_password,
            "");
}

TEST_F(ManagementServer, RefusesAMissingRecord) {
  EXPECT_EQ(run([] { return igd_mng_server_get_params(nullptr); }), -1022);
  EXPECT_EQ(transcript(), "");
  EXPECT_EQ(run([] { return igd_mng_server_set_params(nullptr); }), -1022);
  EXPECT_EQ(transcript(), "");
}

using LanAddress = GatewayTest;

TEST_F(LanAddress, IsThatOfTheFirstInterfaceOfTheFirstDevice) {
  const std::string name =
      "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1."
      "IPInterfaceIPAddress";
  EXPECT_EQ(run([] { return igd_c_get_lan_ipaddr(); }), "");
  tree().set(name, "192.168.1.1");
  EXPECT_EQ(run([] { return igd_c_get_lan_ipaddr(); }), "192.168.1.1");
  EXPECT_EQ(transcript(), "get " + name + "\n");
}

class L3Names : public GatewayTest {
 protected:
  /// The 8 bytes that are left in a buffer of '#', zero bytes shown as '0'.
  std::string get(const char* key, std::size_t size) {
    char buffer[8];
    std::memset(buffer, '#', sizeof buffer);
    run([&] { igd_c_get_l3_name(key, buffer, size); });
    EXPECT_EQ(transcript(), "");
    std::string seen(buffer, sizeof buffer);
    for (char& c : seen) {
      if (c == '\0') c = '0';
    }
    return seen;
  }
};

TEST_F(L3Names, AreStoredAndReplaced) {
  run([] { igd_c_set_l3_name("wan1", "ppp0"); });
  EXPECT_EQ(transcript(), "");
  EXPECT_EQ(g_l3_ifname_table.at("wan1"), "ppp0");
  EXPECT_EQ(get("wan1", 8), "ppp0000#");
  igd_c_set_l3_name("wan1", "nas1");
  EXPECT_EQ(get("wan1", 8), "nas1000#");
  igd_c_set_l3_name("wan1", "");
  EXPECT_EQ(get("wan1", 8), "0000000#");
  EXPECT_EQ(g_l3_ifname_table.size(), 1u);
}

TEST_F(L3Names, AreNotStoredForMissingTexts) {
  igd_c_set_l3_name(nullptr, "ppp0");
  igd_c_set_l3_name("wan1", nullptr);
  EXPECT_TRUE(g_l3_ifname_table.empty());
}

TEST_F(L3Names, AreAddedByALookup) {
  EXPECT_EQ(get("wan1", 4), "000#####");
  ASSERT_EQ(g_l3_ifname_table.count("wan1"), 1u);
  EXPECT_EQ(g_l3_ifname_table.at("wan1"), "");
}

TEST_F(L3Names, AreCutWithoutATerminator) {
  g_l3_ifname_table["wan1"] = "abcdef";
  EXPECT_EQ(get("wan1", 8), "abcdef0#");
  EXPECT_EQ(get("wan1", 7), "abcdef##");
  EXPECT_EQ(get("wan1", 4), "abc#####");
  EXPECT_EQ(get("wan1", 2), "a#######");
  EXPECT_EQ(get("wan1", 1), "########");
}

TEST_F(L3Names, AnswerAMissingKeyWithAnEmptyText) {
  EXPECT_EQ(get(nullptr, 8), "0#######");
  EXPECT_EQ(get(nullptr, 1), "0#######");
  EXPECT_EQ(get(nullptr, 0), "########");
  igd_c_get_l3_name(nullptr, nullptr, 8);
  EXPECT_TRUE(g_l3_ifname_table.empty());
}

TEST_F(L3Names, AreNotLookedUpWithoutABuffer) {
  igd_c_get_l3_name("wan1", nullptr, 8);
  EXPECT_EQ(get("wan1", 0), "########");
  EXPECT_TRUE(g_l3_ifname_table.empty());
}

}  // namespace
}  // namespace foreign
