// Short words for building trees in tests.
#ifndef TESTS_HOST_TREE_BUILDER_H
#define TESTS_HOST_TREE_BUILDER_H

#include <string>

#include "host_platform.h"

namespace host_tests {

inline const std::string kRoot = "InternetGatewayDevice.";
inline const std::string kWanDevices = kRoot + "WANDevice.";
inline const std::string kBridges = kRoot + "Layer2Bridging.Bridge.";
inline const std::string kRoutes = kRoot + "Layer3Forwarding.Forwarding.";

// Adds an instance; returns its path, or "" when it was refused.
inline std::string added(host::Tree& tree, const std::string& table_path) {
  int number = 0;
  if (tree.add_object(table_path, &number) != 0) return {};
  return table_path + std::to_string(number) + ".";
}

// A WAN device with one connection device; returns the connection device's path.
inline std::string add_connection_device(host::Tree& tree) {
  return added(tree, added(tree, kWanDevices) + "WANConnectionDevice.");
}

}  // namespace host_tests

#endif  // TESTS_HOST_TREE_BUILDER_H
