// The bench on which the tests stand: the porter's platform with an empty tree, and small verbs
// that furnish it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "declarations.h"
#include "platform.h"
#include "script.h"
#include "steps.h"
#include "transcript.h"

namespace foreign {

inline constexpr char kBridges[] = "InternetGatewayDevice.Layer2Bridging.Bridge.";
inline constexpr char kForwarding[] = "InternetGatewayDevice.Layer3Forwarding.Forwarding.";
inline constexpr char kDevices[] = "InternetGatewayDevice.WANDevice.";

/// A connection device with its three connection objects, as they stand in the tree.
struct Connection {
  std::string wan;
  std::string fixed;  ///< the static-addressing IP connection
  std::string dhcp;
  std::string ppp;
};

/// Every field of a record, one a line, for comparison.
std::string describe(const api_wan_info& info);
std::string describe(const wan_mib_info& mib);

/// A description with a text of its own in every field that is written.
api_wan_info description(int connection_class, int connect_mode);

/// "a", "b" as "a\nb\n".
std::string lines(const std::vector<std::string>& lines);

class GatewayTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  static void forget_all();  // what the library remembers between calls

  static Tree& tree() { return Platform::instance().tree(); }

  /// Runs one call of the library and keeps what happened in transcript().
  template <typename Call>
  auto run(Call call) {
    using Result = decltype(call());
    if constexpr (std::is_void_v<Result>) {
      transcript_ = Platform::instance().record(call);
    } else {
      Result result{};
      transcript_ = Platform::instance().record([&] { result = call(); });
      return result;
    }
  }
  const std::string& transcript() const { return transcript_; }

  /// As run(), and everything that happened, the tree and the cache must be what `steps` say.
  template <typename Steps, typename Call>
  auto follow(Steps steps, Call call) {
    script_.start_from(tree());
    steps(script_);
    if constexpr (std::is_void_v<decltype(call())>) {
      run(call);
      expect_as_scripted();
    } else {
      const auto result = run(call);
      expect_as_scripted();
      return result;
    }
  }

  // Whole operations, compared call by call and line by line.
  void set_params(const std::string& wan, api_wan_info& info);
  void get_params(const std::string& wan, api_wan_info& info);
  std::string create(const std::string& access_type, api_wan_info& info);
  void destroy(const std::string& wan);

  // Furniture.
  static std::string add(const std::string& table);
  static std::string add_device(const std::string& access_type);
  static Connection add_connection(const std::string& device);
  static std::string add_bridge(const std::string& name, const std::string& owner);
  static std::string add_port(const std::string& bridge, const std::string& interface,
                              const std::string& depend_wan = "");
  static std::string add_lan_bridge(const std::vector<std::string>& interfaces);
  /// The bridge of connection device <d>.<c>, named as the library names it.
  static std::string add_wan_bridge(const Connection& connection, const std::string& name,
                                    const std::vector<std::string>& interfaces);
  static void tag(const std::string& bridge, int vlan_id);
  static std::string add_route(const std::string& interface, const std::string& table);

  Script script_;

 private:
  void expect_as_scripted();

  std::string transcript_;
};

}  // namespace foreign
