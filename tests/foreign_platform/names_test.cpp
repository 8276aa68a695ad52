// Node names, port numbers, port bits and physical device names.
#include "gateway_test.h"

namespace foreign {
namespace {

class NodeNames : public GatewayTest {
 protected:
  // The device name that a node has on bridge `bridge`, or "" when none of `candidates` is it.
  std::string bridge_of(const std::string& device) {
    std::string path = "none";
    EXPECT_EQ(run([&] { return igd_wan_get_bridge_info_from_phy(device, &path, nullptr); }), 0);
    return path;
  }
};

TEST_F(NodeNames, GiveEachPortItsBitAndItsNumber) {
  struct Port {
    const char* node;
    int bit;
    int number;
  };
  const Port ports[] = {{"LAN1", 1, 1},   {"LAN2", 2, 2},   {"LAN3", 4, 3},    {"LAN4", 8, 4},
                        {"WLAN1", 16, 5}, {"WLAN2", 32, 6}, {"WLAN3", 64, 7},  {"WLAN4", 128, 8},
                        {"LAN0", 0, -1},  {"LAN5", 0, -1},  {"WIFIW0", 0, -1}, {"3G0", 0, -1},
                        {"lan1", 0, -1},  {"LAN1 ", 0, -1}, {"LAN11", 0, -1},  {"", 0, -1}};
  for (const Port& port : ports) {
    EXPECT_EQ(run([&] { return igd_tool_get_port_value(port.node); }), port.bit) << port.node;
    EXPECT_EQ(run([&] { return igd_tool_get_port_index(port.node); }), port.number) << port.node;
    EXPECT_EQ(transcript(), "");
  }
}

TEST_F(NodeNames, AreWirelessWhenTheyContainACapitalW) {
  for (const char* node : {"WLAN1", "WIFIW0", "WDS1", "LANW"}) EXPECT_TRUE(isWlan(node)) << node;
  for (const char* node : {"LAN1", "3G0", "wlan1", ""}) EXPECT_FALSE(isWlan(node)) << node;
}

TEST_F(NodeNames, AreTheInterfaceNamesToo) {
  for (const char* name : {"LAN1", "WLAN4", "eth1", "anything at all", ""}) {
    EXPECT_EQ(getLanIndexByPhy(name), name);
    EXPECT_EQ(getWlanIndexByPhy(name), name);
    EXPECT_EQ(igd_transe_node_2_lan_interfac(name), name);
    EXPECT_EQ(igd_trans_lan_interface_2_node(name), name);
  }
}

struct Device {
  const char* node;
  const char* plain;
  const char* tagged;  // on a VLAN bridge with VLAN 100
};

constexpr Device kDevices18[] = {
    {"LAN0", "eth0", "eth0.100"}, {"LAN_DEFAULT1", "eth1", "eth1"},
    {"LAN1", "eth1", "eth1.100"}, {"LAN2", "eth1", "eth1.100"},
    {"LAN3", "eth1", "eth1.100"}, {"LAN4", "eth1", "eth1.100"},
    {"LAN5", "usb0", "usb0"},     {"WLAN1", "ath0", "ath0"},
    {"WLAN2", "ath1", "ath1"},    {"WLAN3", "ath2", "ath2"},
    {"WLAN4", "ath4", "ath4"},    {"WIFIW0", "ath3", "ath3"},
    {"REP0", "ath5", "ath5"},     {"3G0", "3g", "3g"},
    {"WDS1", "ath5", "ath5"},     {"WDS2", "ath6", "ath6"},
    {"WDS3", "ath7", "ath7"},     {"STA1", "ath5", "ath5"},
};

TEST_F(NodeNames, HaveAPhysicalDevice) {
  const std::string bridge = add_bridge("b", "");
  const std::string port = add_port(bridge, "");
  for (const Device& device : kDevices18) {
    tree().set(port + "PortInterface", device.node);
    EXPECT_EQ(bridge_of(device.plain), bridge) << device.node;
    EXPECT_EQ(bridge_of(std::string(device.plain) + ".100"), "none") << device.node;
  }
}

TEST_F(NodeNames, CarryTheVlanOnAVlanBridgeWhereTheDeviceTakesOne) {
  const std::string bridge = add_bridge("b", "");
  const std::string port = add_port(bridge, "");
  tag(bridge, 100);
  for (const Device& device : kDevices18) {
    tree().set(port + "PortInterface", device.node);
    EXPECT_EQ(bridge_of(device.tagged), bridge) << device.node;
    const bool takes_vlan = std::string(device.plain) != device.tagged;
    EXPECT_EQ(bridge_of(device.plain), takes_vlan ? "none" : bridge) << device.node;
  }
}

TEST_F(NodeNames, CarryVlansFrom0To4094Only) {
  const std::string bridge = add_bridge("b", "");
  add_port(bridge, "LAN2");
  struct {
    const char* vlan;
    const char* device;
  } const cases[] = {{"0", "eth1.0"},     {"4094", "eth1.4094"}, {"4095", "eth1"},
                     {"-1", "eth1"},      {"abc", "eth1.0"},     {"", "eth1.0"},
                     {"12xy", "eth1.12"}, {" 7", "eth1.7"},      {"99999999999", "eth1"},
                     {"007", "eth1.7"},   {"+3", "eth1.3"}};
  tree().set(bridge + "BridgeStandard", "802.1Q");
  for (const auto& c : cases) {
    tree().set(bridge + "VLANID", c.vlan);
    EXPECT_EQ(bridge_of(c.device), bridge) << c.vlan;
  }
}

TEST_F(NodeNames, OutsideTheTableHaveAnEmptyDeviceName) {
  const std::string bridge = add_bridge("b", "");
  add_port(bridge, "LAN9");
  EXPECT_EQ(bridge_of("LAN9"), "none");
  EXPECT_EQ(bridge_of(""), bridge);
}

}  // namespace
}  // namespace foreign
