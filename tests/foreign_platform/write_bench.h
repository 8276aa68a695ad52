// A connection between its own bridge and the LAN bridge, to be written to.
#pragma once

#include "gateway_test.h"

namespace foreign {

class SetParams : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    device_ = add_device("Ethernet");
    connection_ = add_connection(device_);
    lan_bridge_ = add_lan_bridge({"LAN1", "LAN2"});
    wan_bridge_ = add_wan_bridge(connection_, "br_1_1", {"LAN0"});
  }

  void write(api_wan_info info) { set_params(connection_.wan, info); }

  /// Empties the cache, as a restart of the library's process would.
  void forget() {
    _destory_cache(connection_.wan);
    script_.cache.clear();
  }

  std::string device_;
  Connection connection_;
  std::string lan_bridge_;
  std::string wan_bridge_;
};

}  // namespace foreign
