// A gateway with one untagged connection, built piece by piece rather than by the library.
#ifndef IGD_TESTS_CONNECTION_TEST_H
#define IGD_TESTS_CONNECTION_TEST_H

#include <string>

#include "gateway_test.h"

namespace support {

/// Connection device 1 of WAN device 1 with its three objects, all disabled, and its own bridge
/// "br_1_1", which holds the uplink's port LAN0 alone. No connection type is written yet.
class ConnectionTest : public GatewayTest {
 protected:
  ConnectionTest();

  /// "LAN1 LAN2": node names of the LAN bridge's ports whose X_ZYN_DependWanName is this.
  std::string lan_ports_of(const std::string& depend_wan) const;

  /// Path of the first port with this node in a bridge; "" when there is none.
  std::string port_in(const std::string& bridge_path, const std::string& node) const;

  /// Deletes an object; must not be refused.
  void remove(const std::string& object_path);

  const std::string lan_bridge_ = kBridges + "1.";
  const std::string wan_;
  const std::string static_ = wan_ + "WANIPConnection.1.";
  const std::string dhcp_ = wan_ + "WANIPConnection.2.";
  const std::string ppp_ = wan_ + "WANPPPConnection.1.";
  const std::string bridge_;
};

}  // namespace support

#endif  // IGD_TESTS_CONNECTION_TEST_H
