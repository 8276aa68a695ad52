// Questions about bridges.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class BridgeQuery : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    device_ = add_device("Ethernet");
    connection_ = add_connection(device_);
  }

  int wan_bridge(const std::string& wan) {
    path_ = name_ = "untouched";
    return run([&] { return igd_wan_get_wan_bridge_info(wan, &path_, &name_); });
  }

  int lan_bridge() {
    path_ = name_ = "untouched";
    return run([&] { return igd_wan_get_lan_bridge_info(connection_.wan, &path_, &name_); });
  }

  int of_device(const std::string& device) {
    path_ = name_ = "untouched";
    return run([&] { return igd_wan_get_bridge_info_from_phy(device, &path_, &name_); });
  }

  int member(const char* bridge, const char* device) {
    return run([&] { return igd_c_check_belong_bridge(bridge, device); });
  }

  std::string device_, path_, name_;
  Connection connection_;
};

TEST_F(BridgeQuery, AnswersInternetForALanPathWithoutAskingTheTree) {
  add_bridge("other", "InternetGatewayDevice.LANDevice.1.");
  const std::string path = "InternetGatewayDevice.LANDevice.1.";
  EXPECT_EQ(run([&] { return igd_get_bridge_info(path); }), "internet");
  EXPECT_EQ(transcript(), "");
  EXPECT_EQ(run([&] { return igd_get_bridge_info("any LANDevice path"); }), "internet");
}

TEST_F(BridgeQuery, AnswersTheNameOfTheFirstBridgeWithThePath) {
  const std::string first = add_bridge("first", "elsewhere");
  const std::string second = add_bridge("second", connection_.wan);
  add_bridge("third", connection_.wan);
  EXPECT_EQ(run([&] { return igd_get_bridge_info(connection_.wan); }), "second");
  EXPECT_EQ(transcript(),
            lines({"open 197", "close", "get " + first + "X_ZYN_WANName",
                   "get " + second + "X_ZYN_WANName", "get " + second + "BridgeName"}));
  EXPECT_EQ(run([&] { return igd_get_bridge_info(device_); }), "");
  tree().erase(kBridges);
  EXPECT_EQ(run([&] { return igd_get_bridge_info(connection_.wan); }), "");
  EXPECT_EQ(transcript(), "open 197\n");
}

TEST_F(BridgeQuery, FindsTheLanBridgeAfterThreeIdleLookups) {
  const std::string first = add_bridge("first", "");
  const std::string lan = add_lan_bridge({});
  EXPECT_EQ(lan_bridge(), 0);
  EXPECT_EQ(path_, lan);
  EXPECT_EQ(name_, "internet");
  EXPECT_EQ(transcript(),
            lines({"open 1359", "close", "get " + connection_.fixed + "AddressingType", "open 1359",
                   "close", "get " + connection_.fixed + "AddressingType",
                   "get " + connection_.dhcp + "AddressingType", "open 1429", "close", "open 196",
                   "close", "get " + first + "BridgeName", "get " + lan + "BridgeName"}));
}

TEST_F(BridgeQuery, NamesTheLanBridgeEvenWhenThereIsNone) {
  EXPECT_EQ(lan_bridge(), 0);
  EXPECT_EQ(path_, "");
  EXPECT_EQ(name_, "internet");
}

TEST_F(BridgeQuery, TakesEachOutputOfTheLanBridgeAsOptional) {
  const std::string lan = add_lan_bridge({});
  std::string path, name;
  EXPECT_EQ(run([&] { return igd_wan_get_lan_bridge_info("", &path, nullptr); }), 0);
  EXPECT_EQ(run([&] { return igd_wan_get_lan_bridge_info("", nullptr, &name); }), 0);
  EXPECT_EQ(run([&] { return igd_wan_get_lan_bridge_info("", nullptr, nullptr); }), 0);
  EXPECT_EQ(path, lan);
  EXPECT_EQ(name, "internet");
}

TEST_F(BridgeQuery, FindsTheBridgeOfAConnectionByOwnerAndName) {
  const std::string lan = add_lan_bridge({});
  const std::string misnamed = add_bridge("br_1_2", connection_.wan);
  const std::string own = add_bridge("br_1_1", connection_.wan);
  EXPECT_EQ(wan_bridge(connection_.wan), 0);
  EXPECT_EQ(path_, own);
  EXPECT_EQ(name_, "br_1_1");
  EXPECT_EQ(transcript(),
            lines({"debug igd_api:# INDEX=" + connection_.wan, "open 197", "close",
                   "get " + lan + "X_ZYN_WANName", "get " + misnamed + "X_ZYN_WANName",
                   "get " + misnamed + "BridgeName", "get " + own + "X_ZYN_WANName",
                   "get " + own + "BridgeName"}));
}

TEST_F(BridgeQuery, NamesTheExpectedBridgeEvenWhenItIsMissing) {
  const struct {
    const char* wan;
    const char* name;
  } cases[] = {
      {"InternetGatewayDevice.WANDevice.1.WANConnectionDevice.12.", "br_1_12"},
      {"InternetGatewayDevice.WANDevice.23.WANConnectionDevice.4.", "br_23_4"},
      {"InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2", "br_1_2"},
      {"InternetGatewayDevice.WANDevice.01.WANConnectionDevice.x.", "br_01_x"},
      {"InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.WANIPConnection.3.", "br_1_2"},
      {"short", "br__"},
      {"", "br__"}};
  for (const auto& c : cases) {
    EXPECT_EQ(wan_bridge(c.wan), -1023) << c.wan;
    EXPECT_EQ(name_, c.name);
    EXPECT_EQ(path_, "untouched");
    EXPECT_EQ(transcript(), "debug igd_api:# INDEX=" + std::string(c.wan) + "\nopen 197\n");
  }
  add_bridge("br_1_1", "someone");
  EXPECT_EQ(wan_bridge(connection_.wan), -1023);
  EXPECT_EQ(path_, "untouched");
}

TEST_F(BridgeQuery, TakesEachOutputOfTheWanBridgeAsOptional) {
  const std::string own = add_bridge("br_1_1", connection_.wan);
  std::string path, name;
  EXPECT_EQ(run([&] { return igd_wan_get_wan_bridge_info(connection_.wan, &path, nullptr); }), 0);
  EXPECT_EQ(run([&] { return igd_wan_get_wan_bridge_info(connection_.wan, nullptr, &name); }), 0);
  EXPECT_EQ(run([&] { return igd_wan_get_wan_bridge_info(connection_.wan, nullptr, nullptr); }), 0);
  EXPECT_EQ(path, own);
  EXPECT_EQ(name, "br_1_1");
}

TEST_F(BridgeQuery, ListsPortsAndVlanOfAConnection) {
  const std::string own = add_wan_bridge(connection_, "br_1_1", {"LAN0", "LAN3"});
  add_port(add_bridge("other", ""), "LAN4");
  tag(own, 0);
  tree().set(own + "VLANID", "77 and more");
  Names ports = {"left over"};
  unsigned int vlan = 9;
  EXPECT_EQ(run([&] { return igd_wan_intf(connection_.wan, ports, vlan); }), "br_1_1");
  EXPECT_EQ(ports, (Names{"LAN0", "LAN3"}));
  EXPECT_EQ(vlan, 77u);
  EXPECT_EQ(transcript(),
            lines({"debug igd_api:# INDEX=" + connection_.wan, "open 197", "close",
                   "get " + own + "X_ZYN_WANName", "get " + own + "BridgeName", "open 205", "close",
                   "get " + own + "Port.1.PortInterface", "get " + own + "Port.2.PortInterface",
                   "get " + own + "VLANID", "get " + own + "BridgeName"}));
}

TEST_F(BridgeQuery, ListsThePortsOfEveryBridgeForAConnectionWithoutOne) {
  add_lan_bridge({"LAN1"});
  add_port(add_bridge("other", ""), "LAN4");
  tree().set("VLANID", "5");
  tree().set("BridgeName", "bare");
  Names ports;
  unsigned int vlan = 9;
  EXPECT_EQ(run([&] { return igd_wan_intf(connection_.wan, ports, vlan); }), "bare");
  EXPECT_EQ(ports, (Names{"LAN1", "LAN4"}));
  EXPECT_EQ(vlan, 5u);
}

TEST_F(BridgeQuery, TellsWhetherADeviceBelongsToABridge) {
  const std::string bridge = add_bridge("b", "");
  for (const char* node : {"LAN0", "WLAN1", "LAN2"}) add_port(bridge, node);
  EXPECT_EQ(member("b", "eth1"), 1);
  const std::string port = bridge + "Port.";
  EXPECT_EQ(transcript(), lines({"open 196", "close", "get " + bridge + "BridgeName",
                                 "get " + bridge + "BridgeStandard", "open 209", "close",
                                 "get " + port + "1.PVID", "get " + port + "1.PortInterface",
                                 "get " + port + "2.PVID", "get " + port + "2.PortInterface",
                                 "get " + port + "3.PVID", "get " + port + "3.PortInterface",
                                 "debug igd_api:# Matched Ifname eth1 in bridge=b"}));
  EXPECT_EQ(member("b", "eth0"), 1);
  EXPECT_EQ(member("b", "ath0"), 1);
  EXPECT_EQ(member("b", "ath1"), 0);
  EXPECT_EQ(lines_of(transcript()), "");
  EXPECT_EQ(member("b", "eth1.1"), 0);
  EXPECT_EQ(member("b", "eth"), 0);
}

TEST_F(BridgeQuery, KnowsTheTaggedDevicesOfAVlanBridgeByThePortsVlan) {
  const std::string bridge = add_bridge("b", "");
  const std::string port = add_port(bridge, "LAN2");
  tag(bridge, 7);
  const struct {
    const char* pvid;
    const char* device;
  } cases[] = {{"100", "eth1.100"}, {"4094", "eth1.4094"}, {"4095", "eth1"},
               {"", "eth1.0"},      {"-1", "eth1"},        {"12x", "eth1.12"}};
  for (const auto& c : cases) {
    tree().set(port + "PVID", c.pvid);
    EXPECT_EQ(member("b", c.device), 1) << c.pvid;
    EXPECT_EQ(member("b", "eth1.7"), 0) << c.pvid;
  }
  tree().set(port + "PVID", "4095");
  EXPECT_EQ(member("b", "eth1.4095"), 0);
  tree().set(port + "PVID", "100");
  EXPECT_EQ(member("b", "eth1"), 0);
}

TEST_F(BridgeQuery, FindsNoMemberOfAMissingOrEmptyBridge) {
  const std::string bridge = add_bridge("b", "");
  add_port(add_bridge("other", ""), "LAN2");
  EXPECT_EQ(member("none", "eth1"), 0);
  EXPECT_EQ(member("b", "eth1"), 0);
  EXPECT_EQ(member("b", nullptr), 0);
  EXPECT_EQ(transcript(), lines({"open 196", "close", "get " + bridge + "BridgeName"}));
}

TEST_F(BridgeQuery, MatchesAnEmptyDeviceNameWithAnUnknownNode) {
  const std::string bridge = add_bridge("b", "");
  add_port(bridge, "LAN2");
  EXPECT_EQ(member("b", ""), 0);
  add_port(bridge, "unknown");
  EXPECT_EQ(member("b", ""), 1);
}

TEST_F(BridgeQuery, FindsTheLastBridgeThatCarriesADevice) {
  const std::string first = add_bridge("first", "");
  add_port(first, "LAN1");
  const std::string second = add_bridge("second", "");
  add_port(second, "LAN2");
  add_port(add_bridge("third", ""), "WLAN1");
  EXPECT_EQ(of_device("eth1"), 0);
  EXPECT_EQ(path_, second);
  EXPECT_EQ(name_, "second");
  const std::string third = std::string(kBridges) + "3.";
  EXPECT_EQ(transcript(),
            lines({"open 205", "close", "get " + first + "Port.1.PortInterface",
                   "get " + first + "BridgeStandard", "get " + first + "VLANID",
                   "get " + first + "BridgeName", "get " + second + "Port.1.PortInterface",
                   "get " + second + "BridgeStandard", "get " + second + "VLANID",
                   "get " + second + "BridgeName", "get " + third + "Port.1.PortInterface",
                   "get " + third + "BridgeStandard", "get " + third + "VLANID"}));
}

TEST_F(BridgeQuery, UsesTheVlanOfTheBridgeAndNotOfThePort) {
  const std::string bridge = add_bridge("b", "");
  tree().set(add_port(bridge, "LAN2") + "PVID", "7");
  tag(bridge, 100);
  EXPECT_EQ(of_device("eth1.7"), 0);
  EXPECT_EQ(path_ + name_, "untoucheduntouched");
  EXPECT_EQ(of_device("eth1.100"), 0);
  EXPECT_EQ(path_, bridge);
}

}  // namespace
}  // namespace foreign
