// The bench on which the tests stand: the porter's platform with an empty tree, small verbs that
// furnish it, and each record as a text.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "declarations.h"
#include "platform.h"

namespace foreign {

using Names = std::vector<std::string>;

inline const std::string kBridges = "InternetGatewayDevice.Layer2Bridging.Bridge.";
inline const std::string kForwarding = "InternetGatewayDevice.Layer3Forwarding.Forwarding.";
inline const std::string kDevices = "InternetGatewayDevice.WANDevice.";
inline const std::string kServer = "InternetGatewayDevice.ManagementServer.";
inline const std::string kWan = kDevices + "1.WANConnectionDevice.1.";

/// Every field of a record, for comparison.
std::string describe(const api_wan_info& info);
std::string describe(const wan_mib_info& mib);
std::string describe(const api_wan_status& status);
std::string describe(const api_route_info& route);
std::string describe(const api_mng_server_info& server);

/// What a caller asks for: a text of its own in every field that is written.
api_wan_info description(int connection_class, int connect_mode);

/// "a", "b" as "a\nb\n".
std::string lines(const Names& lines);

class GatewayTest : public ::testing::Test {
 protected:
  void SetUp() override;

  /// Holds that the platform had nothing to complain of and that every write reached the tree.
  void TearDown() override;

  static Tree& tree() { return Platform::instance().tree(); }

  /// Runs one call of the library and keeps what it printed; what it logged is in logged().
  template <typename Call>
  auto run(Call call) {
    using Result = decltype(call());
    if constexpr (std::is_void_v<Result>) {
      printed_ = Platform::instance().printed_by(call);
    } else {
      Result result{};
      printed_ = Platform::instance().printed_by([&] { result = call(); });
      return result;
    }
  }
  const std::string& printed() const { return printed_; }
  static const std::string& logged() { return Platform::instance().logged(); }

  // The operations of a connection's life.
  std::string create(const std::string& access_type, api_wan_info& info);
  void write(const std::string& wan, api_wan_info& info);
  api_wan_info read(const std::string& wan);
  void remove(const std::string& wan);

  /// The LAN bridge of a gateway as it leaves the factory, with these ports.
  static void add_lan_bridge(const Names& nodes);

 private:
  static void forget_all();  // what the library remembers between calls

  std::string printed_;
};

}  // namespace foreign
