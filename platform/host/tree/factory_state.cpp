#include <string>

#include "host_platform.h"

namespace host {
namespace {

constexpr const char* kSwitchedPorts[] = {"LAN1",  "LAN2",  "LAN3",  "LAN4",
                                          "WLAN1", "WLAN2", "WLAN3", "WLAN4"};

/// Adds an instance and returns its path. The tables used here always exist.
std::string added(Tree& tree, const std::string& table_path) {
  int number = 0;
  tree.add_object(table_path, &number);
  return table_path + std::to_string(number) + ".";
}

void add_lan_side(Tree& tree) {
  const std::string device_path = added(tree, "InternetGatewayDevice.LANDevice.");
  const std::string interface_path =
      added(tree, device_path + "LANHostConfigManagement.IPInterface.");
  tree.set_value(interface_path + "IPInterfaceIPAddress", "192.168.1.1");
  tree.set_value(interface_path + "IPInterfaceSubnetMask", "255.255.255.0");
  tree.set_value(interface_path + "IPInterfaceAddressingType", "Static");
  tree.set_value(interface_path + "Enable", "true");
}

void add_lan_bridge(Tree& tree) {
  const std::string bridge_path = added(tree, "InternetGatewayDevice.Layer2Bridging.Bridge.");
  tree.set_value(bridge_path + "BridgeName", "internet");
  tree.set_value(bridge_path + "BridgeStandard", "802.1D");
  tree.set_value(bridge_path + "BridgeEnable", "true");
  for (const char* port : kSwitchedPorts) {
    const std::string port_path = added(tree, bridge_path + "Port.");
    // A port bound to no connection has no VLAN: libigd puts ports back in the same way.
    tree.set_value(port_path + "PVID", "");
    tree.set_value(port_path + "PortInterface", port);
    tree.set_value(port_path + "PortEnable", "true");
  }
}

}  // namespace

Tree Tree::factory() {
  Tree tree;
  add_lan_side(tree);
  add_lan_bridge(tree);
  return tree;
}

}  // namespace host
