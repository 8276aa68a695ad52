// Port options, the VLANs of bound ports, and the trace of a port move.
#include "write_bench.h"

namespace foreign {
namespace {

using Options = std::map<std::string, std::string>;

class PortOptions : public SetParams {
 protected:
  std::string option_of(const std::string& port) { return tree().get(port + "PortOption60"); }
};

TEST_F(PortOptions, AreWrittenToNewPortsOfTheConnectionsBridge) {
  api_wan_info info = description(2, 1);
  info.bind_wan = {"LAN1", "LAN2"};
  info.port_option60 = {{"LAN1", "one"}};
  set_params(connection_.wan, info);
  EXPECT_EQ(option_of(wan_bridge_ + "Port.2."), "one");
  EXPECT_EQ(tree().values().count(wan_bridge_ + "Port.3.PortOption60"), 1u);
  EXPECT_EQ(option_of(wan_bridge_ + "Port.3."), "");
  EXPECT_EQ(info.port_option60, (Options{{"LAN1", "one"}, {"LAN2", ""}}));
}

TEST_F(PortOptions, AreNeverWrittenToAnUplinkThatIsCreated) {
  api_wan_info info = description(2, 1);
  info.bind_wan = {"3G0", "WIFIW0"};
  set_params(connection_.wan, info);
  EXPECT_EQ(transcript().find("PortOption60"), std::string::npos);
  EXPECT_EQ(info.port_option60, Options{});
}

TEST_F(PortOptions, AreNotWrittenToPortsOfTheLanBridge) {
  add_port(wan_bridge_, "LAN3");
  api_wan_info info = description(1, 1);
  info.bind_lan = {"LAN1"};
  info.port_option60 = {{"LAN1", "one"}, {"LAN3", "three"}};
  set_params(connection_.wan, info);
  EXPECT_EQ(transcript().find("PortOption60"), std::string::npos);
}

TEST_F(PortOptions, AreWrittenAgainToThePortsThatStay) {
  const std::string port = add_port(wan_bridge_, "LAN3");
  tree().set(port + "PortOption60", "old");
  api_wan_info info = description(2, 1);
  info.bind_wan = {"LAN3"};
  info.port_option60 = {{"LAN0", "uplink"}, {"LAN3", "three"}, {"LAN4", "four"}};
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  EXPECT_EQ(option_of(port), "three");
  const std::string own = wan_bridge_ + "Port.";
  const std::string trace = "| \n|  ------------- igd_api _wan_port_update 1210 port:";
  const std::size_t begin = transcript().find("set " + own + "1.PortEnable = true\n");
  ASSERT_NE(begin, std::string::npos);
  const std::string expected = lines({
      "set " + own + "1.PortEnable = true",
      trace + own + "1.PortEnable",
      "get " + own + "1.PortInterface",
      "set " + own + "1.PortOption60 = uplink",
      "set " + own + "2.PortEnable = true",
      trace + own + "2.PortEnable",
      "get " + own + "2.PortInterface",
      "get " + own + "2.PortInterface",
      "set " + own + "2.PortOption60 = three",
  });
  EXPECT_EQ(transcript().substr(begin, expected.size()), expected);
}

TEST_F(PortOptions, KeepThePortsOldTextWhenTheRecordHasNone) {
  const std::string port = add_port(wan_bridge_, "LAN3");
  tree().set(port + "PortOption60", "old");
  api_wan_info info = description(2, 1);
  info.bind_wan = {"LAN3"};
  info.port_option60 = {{"LAN4", "four"}};
  set_params(connection_.wan, info);
  EXPECT_EQ(option_of(port), "old");
}

class BoundVlans : public SetParams {
 protected:
  std::string bind(const std::vector<std::string>& interfaces) {
    api_wan_info info = description(1, 1);
    info.bind_lan = interfaces;
    set_params(connection_.wan, info);
    std::string vlans;
    for (const std::string& name : tree().names_of(204)) {
      if (tree().get(name) == connection_.wan) vlans += tree().get(parent_of(name) + "PVID") + ",";
    }
    return vlans;
  }
};

TEST_F(BoundVlans, StartAt4060AndAreSharedByEthernetPorts) {
  EXPECT_EQ(bind({"LAN1", "LAN2", "WLAN1"}), "4060,4060,4060,");
}

TEST_F(BoundVlans, AreNotLentByAWirelessPort) {
  EXPECT_EQ(bind({"WLAN1", "WLAN2", "LAN1", "LAN2"}), "4060,4061,4062,4062,");
}

TEST_F(BoundVlans, FillTheLowestGap) {
  tree().set(lan_bridge_ + "Port.1.PVID", "4060");
  tree().set(lan_bridge_ + "Port.2.PVID", "4062");
  const std::string elsewhere = add_port(add_bridge("other", ""), "WDS1");
  tree().set(elsewhere + "PVID", "4061 and text");
  EXPECT_EQ(bind({"WLAN1"}), "4063,");
  tree().set(elsewhere + "PVID", "1");
  EXPECT_EQ(bind({"WLAN1", "WLAN2"}), "4063,4061,");
}

TEST_F(BoundVlans, ReuseTheTextOfTheBoundEthernetPortAsItIs) {
  tree().set(add_port(lan_bridge_, "WLAN3", connection_.wan) + "PVID", "4071");
  tree().set(add_port(lan_bridge_, "LAN3", connection_.wan) + "PVID", "4065 x");
  tree().set(add_port(lan_bridge_, "LAN4", connection_.wan) + "PVID", "4066");
  EXPECT_EQ(bind({"WLAN3", "LAN3", "LAN4", "LAN1"}), "4071,4065 x,4066,4065 x,");
  EXPECT_NE(transcript().find("debug igd_api:82 FIND vlan_id = 4065 x, ifname=(LAN3,eth1), "
                              "for bind_wan=" +
                              connection_.wan + "\n"),
            std::string::npos);
  EXPECT_NE(transcript().find("\ndebug igd_api:667 CREATE VLAN = 4065 x\n"), std::string::npos);
}

TEST_F(BoundVlans, ReuseAnEmptyText) {
  tree().set(add_port(lan_bridge_, "LAN3", connection_.wan) + "PVID", "");
  EXPECT_EQ(bind({"LAN3", "LAN4"}), ",,");
}

TEST_F(BoundVlans, FallBackTo789WhenAllAreTaken) {
  const std::string other = add_bridge("other", "");
  for (int vlan = 4060; vlan <= 4080; ++vlan) {
    tree().set(add_port(other, "WDS1") + "PVID", std::to_string(vlan));
  }
  EXPECT_EQ(bind({"WLAN1"}), "789,");
  EXPECT_NE(transcript().find("\ndebug igd_api:108 NO VALID VLAN ID\n"
                              "debug igd_api:667 CREATE VLAN = 789\n"),
            std::string::npos);
}

TEST_F(BoundVlans, AreTakenUpTo4080) {
  const std::string other = add_bridge("other", "");
  for (int vlan = 4060; vlan < 4080; ++vlan) {
    tree().set(add_port(other, "WDS1") + "PVID", std::to_string(vlan));
  }
  EXPECT_EQ(bind({"WLAN1"}), "4080,");
}

TEST_F(SetParams, CreatesABoundPortInAFixedOrder) {
  write(description(1, 1));
  api_wan_info info = description(1, 1);
  info.bind_lan = {"LAN4"};
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  const std::string port = lan_bridge_ + "Port.3.";
  const std::string begin_line = "|  ------------- igd_api _wan_port_update 1179\n";
  const std::size_t begin = transcript().find(begin_line);
  ASSERT_NE(begin, std::string::npos);
  const std::string expected =
      begin_line + lines({
                       "get " + lan_bridge_ + "BridgeName",
                       "open 204",
                       "close",
                       "get " + lan_bridge_ + "Port.1.X_ZYN_DependWanName",
                       "get " + lan_bridge_ + "Port.2.X_ZYN_DependWanName",
                       "open 209",
                       "close",
                       "get " + lan_bridge_ + "Port.1.PVID",
                       "get " + lan_bridge_ + "Port.2.PVID",
                       "get " + wan_bridge_ + "Port.1.PVID",
                       "get 0",
                       "debug igd_api:667 CREATE VLAN = 4060",
                       "add " + lan_bridge_ + "Port. 255: 3",
                       "set " + port + "PVID = 4060",
                       "set " + port + "PortInterface = LAN4",
                       "set " + port + "X_ZYN_DependWanName = " + connection_.wan,
                       "set " + port + "PortEnable = true",
                       "| ",
                       "|  ------------- igd_api 1188: LAN4 create bind_lan ",
                   });
  EXPECT_EQ(transcript().substr(begin, expected.size()), expected);
}

TEST_F(SetParams, TracesEveryMoveOfAPort) {
  add_port(lan_bridge_, "LAN3", connection_.wan);
  add_port(wan_bridge_, "LAN4");
  api_wan_info info = description(1, 1);
  info.bind_lan = {"LAN4"};
  info.bind_wan = {"LAN1", "WLAN1"};
  run([&] { return igd_wan_set_params(connection_.wan, &info); });
  std::string traces;
  const std::string dash = "|  ------------- igd_api ";
  for (std::size_t at = 0; (at = transcript().find(dash, at)) != std::string::npos;) {
    const std::size_t end = transcript().find('\n', at);
    traces += transcript().substr(at + dash.size(), end - at - dash.size()) + "\n";
    at = end;
  }
  const std::string own = wan_bridge_ + "Port.";
  EXPECT_EQ(traces, lines({
                        "1075: OLD BIND WAN HAS LAN4 ",
                        "1080: OLD BIND LAN HAS LAN3 ",
                        "1085: OLD INTERNET HAS LAN1 ",
                        "1085: OLD INTERNET HAS LAN2 ",
                        "1090: NEW BIND WAN HAS LAN1 ",
                        "1090: NEW BIND WAN HAS WLAN1 ",
                        "1095: NEW BIND LAN HAS LAN4 ",
                        "1102: NEW CREATE WLAN1 ",
                        "1106: NEW INTERNET LAN3 ",
                        "1106: NEW INTERNET LAN2 ",
                        "_wan_port_update 1110",
                        "1123: LAN1 remove from internet ",
                        "_wan_port_update 1129",
                        "1140: LAN3 remove from bind_lan ",
                        "_wan_port_update 1146",
                        "1157: LAN4 remove from bind_wan ",
                        "_wan_port_update 1165",
                        "1174: LAN1 create bind_wan ",
                        "1174: WLAN1 create bind_wan ",
                        "_wan_port_update 1179",
                        "1188: LAN4 create bind_lan ",
                        "_wan_port_update 1193",
                        "1202: LAN3 create internet ",
                        "_wan_port_update 1210 port:" + own + "1.PortEnable",
                        "_wan_port_update 1210 port:" + own + "3.PortEnable",
                        "_wan_port_update 1210 port:" + own + "4.PortEnable",
                    }));
}

}  // namespace
}  // namespace foreign
