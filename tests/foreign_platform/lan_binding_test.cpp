// The list of bound ports that a connection's objects carry.
#include "gateway_test.h"

namespace foreign {
namespace {

class LanBinding : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    connection_ = add_connection(add_device("Ethernet"));
  }

  void save(const std::string& wan, api_wan_info& info) {
    follow([&](Script& s) { save_lan_binding(s, wan, info); },
           [&] { saveLanInterfaceToWanNode(wan, &info); });
  }

  std::string stored(const std::string& object) {
    return tree().get(object + "X_CT-COM_LanInterface");
  }

  Connection connection_;
};

TEST_F(LanBinding, JoinsLanSideAndWanSidePortsOnAllThreeObjects) {
  api_wan_info info;
  info.bind_lan = {"LAN1", "LAN3"};
  info.bind_wan = {"WLAN1"};
  save(connection_.wan, info);
  for (const std::string& object : {connection_.fixed, connection_.dhcp, connection_.ppp}) {
    EXPECT_EQ(stored(object), "LAN1,LAN3,WLAN1");
  }
}

TEST_F(LanBinding, PrintsAndWritesInOneFixedOrder) {
  run([&] { return _get_cache(connection_.wan); });
  api_wan_info info;
  info.bind_lan = {"LAN0", "LAN2"};
  info.bind_wan = {"LAN0", "3G0"};
  tree().set(connection_.dhcp + "X_CT-COM_LanInterface", "LAN2,3G0");
  run([&] { saveLanInterfaceToWanNode(connection_.wan, &info); });
  const std::string fixed = connection_.fixed + "X_CT-COM_LanInterface";
  const std::string dhcp = connection_.dhcp + "X_CT-COM_LanInterface";
  const std::string ppp = connection_.ppp + "X_CT-COM_LanInterface";
  const std::string value = "---value:LAN2,3G0------------";
  EXPECT_EQ(transcript(), lines({
                              "| ---index:" + connection_.wan + "--------",
                              "| ------phy:LAN0------------",
                              "| ------phy:LAN2------------",
                              "| ------phy:LAN0------------",
                              "| ------phy:3G0------------",
                              "| ---static_path:" + fixed + value,
                              "| ---dhcp_path:" + dhcp + value,
                              "| ---ppp_path:" + ppp + value,
                              "get " + fixed,
                              "set " + fixed + " = LAN2,3G0",
                              "get " + dhcp,
                              "get " + ppp,
                              "set " + ppp + " = LAN2,3G0",
                          }));
}

TEST_F(LanBinding, NeverListsTheEthernetUplink) {
  const struct {
    std::vector<std::string> bind_lan;
    std::vector<std::string> bind_wan;
    const char* value;
  } cases[] = {{{"LAN0", "LAN2"}, {}, "LAN2"},
               {{}, {"LAN0"}, ""},
               {{"LAN1"}, {"LAN0", "WIFIW0"}, "LAN1,WIFIW0"},
               {{"LAN2", "LAN2"}, {"LAN2"}, "LAN2,LAN2,LAN2"},
               {{"LAN01"}, {"lan0"}, "LAN01,lan0"},
               {{"", "LAN1"}, {}, "LAN1"},
               {{"LAN1", ""}, {}, "LAN1,"}};
  for (const auto& c : cases) {
    api_wan_info info;
    info.bind_lan = c.bind_lan;
    info.bind_wan = c.bind_wan;
    save(connection_.wan, info);
    EXPECT_EQ(stored(connection_.fixed), c.value);
  }
}

TEST_F(LanBinding, WritesOnTheFirstCallOnly) {
  api_wan_info info;
  info.bind_lan = {"LAN1"};
  save(connection_.wan, info);
  EXPECT_NE(writes_of(transcript()), "");
  save(connection_.wan, info);
  EXPECT_EQ(writes_of(transcript()), "");
}

TEST_F(LanBinding, OverwritesAnOldListWithNothing) {
  tree().set(connection_.ppp + "X_CT-COM_LanInterface", "LAN4");
  api_wan_info info;
  save(connection_.wan, info);
  EXPECT_EQ(stored(connection_.ppp), "");
  EXPECT_EQ(writes_of(transcript()), "set " + connection_.ppp + "X_CT-COM_LanInterface = \n");
}

TEST_F(LanBinding, ComparesTheWholeText) {
  tree().set(connection_.fixed + "X_CT-COM_LanInterface", "LAN1,LAN2");
  tree().set(connection_.dhcp + "X_CT-COM_LanInterface", "lan1");
  tree().set(connection_.ppp + "X_CT-COM_LanInterface", "LAN1");
  api_wan_info info;
  info.bind_lan = {"LAN1"};
  save(connection_.wan, info);
  EXPECT_EQ(writes_of(transcript()),
            lines({"set " + connection_.fixed + "X_CT-COM_LanInterface = LAN1",
                   "set " + connection_.dhcp + "X_CT-COM_LanInterface = LAN1"}));
}

TEST_F(LanBinding, UsesTheBareNameForAMissingObject) {
  tree().erase(connection_.fixed);
  api_wan_info info;
  info.bind_lan = {"LAN1"};
  save(connection_.wan, info);
  EXPECT_EQ(tree().get("X_CT-COM_LanInterface"), "LAN1");
  EXPECT_NE(transcript().find("| ---static_path:X_CT-COM_LanInterface---value:LAN1--------"),
            std::string::npos);
}

TEST_F(LanBinding, CachesTheConnection) {
  api_wan_info info;
  save(connection_.wan, info);
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(connection_.wan), 1u);
}

}  // namespace
}  // namespace foreign
