// A gateway in factory state for each test, and the small verbs that bring it into others.
#ifndef IGD_TESTS_GATEWAY_TEST_H
#define IGD_TESTS_GATEWAY_TEST_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host_platform.h"
#include "igd_api.h"
#include "igd_c_api.h"
#include "test_platform.h"
#include "transcript.h"

namespace support {

inline const std::string kBridges = "InternetGatewayDevice.Layer2Bridging.Bridge.";
inline const std::string kRoutes = "InternetGatewayDevice.Layer3Forwarding.Forwarding.";
inline const std::string kWanDevices = "InternetGatewayDevice.WANDevice.";

/// "InternetGatewayDevice.WANDevice.<device>.WANConnectionDevice.<connection>."
std::string wan_path(int device, int connection);

/// Ready descriptions; tests change what they are about.
api_wan_info routed_pppoe(const std::string& name, int vlan);  ///< tagged unless vlan is 0
api_wan_info dhcp_management(const std::string& name, int vlan);
api_wan_info bridged(const std::string& name, int vlan, const std::vector<std::string>& ports);

/// Everything a test leaves behind in the process is cleared after it: cache, L3 names, tree. A
/// refusal that the test did not expect fails it.
class GatewayTest : public ::testing::Test {
 protected:
  explicit GatewayTest(host::Tree tree = host::Tree::factory());
  ~GatewayTest() override;
  void TearDown() override;

  std::string get(const std::string& name) const { return tree_.value(name); }
  void set(const std::string& name, const std::string& value);  ///< must not be refused

  /// Adds an instance and returns its path.
  std::string add(const std::string& table_path);

  /// Creates a connection, its trace dropped.
  std::string create(api_wan_info info, const std::string& access_type = "Ethernet");

  /// Adds a connection device with the named objects ("Static", "DHCP", "PPP"), without bridge.
  std::string add_connection_device(int device, const std::vector<std::string>& objects);

  /// Adds a connection device to WAN device 1 with one PPP connection that has this service list.
  std::string add_service(const std::string& service_list);

  std::string add_bridge(const std::string& name, const std::string& wan_path,
                         const std::string& vlan = "0", const std::string& standard = "802.1D");
  std::string add_port(const std::string& bridge_path, const std::string& node,
                       const std::string& depend_wan = "", const std::string& pvid = "");

  /// Node names of a bridge's ports, in the tree's order.
  std::vector<std::string> ports_of(const std::string& bridge_path) const;

  /// Path of the first bridge with this name; "" when there is none.
  std::string bridge_named(const std::string& name) const;

  /// "call name" of every refused call, and forgets them: the test expected these.
  std::vector<std::string> take_refusals();

  host::Tree tree_;
};

}  // namespace support

#endif  // IGD_TESTS_GATEWAY_TEST_H
