#include <string>

#include "host_platform.h"
#include "igd_vocabulary.h"

namespace host {
namespace {

// Adds an instance and returns its path. The tables used here always exist.
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
  tree.set_value(interface_path + "IPInterfaceAddressingType", igd::kStaticAddressing);
  tree.set_value(interface_path + "Enable", igd::kTrue);
}

void add_lan_bridge(Tree& tree) {
  const std::string bridge_path = added(tree, igd::kBridgeTable);
  tree.set_value(bridge_path + "BridgeName", igd::kLanBridgeName);
  tree.set_value(bridge_path + "BridgeStandard", igd::kUntaggedStandard);
  tree.set_value(bridge_path + "BridgeEnable", igd::kTrue);
  for (const char* port : igd::kBindablePorts) {
    const std::string port_path = added(tree, bridge_path + "Port.");
    // A port bound to no connection has no VLAN: libigd puts ports back in the same way.
    tree.set_value(port_path + "PVID", "");
    tree.set_value(port_path + "PortInterface", port);
    tree.set_value(port_path + "PortEnable", igd::kTrue);
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
