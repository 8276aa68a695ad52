#include "connection_test.h"

namespace support {
namespace {

std::string object_of(const std::string& parameter) {
  return parameter.substr(0, parameter.rfind('.') + 1);
}

}  // namespace

ConnectionTest::ConnectionTest()
    : wan_(add_connection_device(1, {"Static", "DHCP", "PPP"})),
      bridge_(add_bridge("br_1_1", wan_)) {
  set(add_port(bridge_, "LAN0", "", "0") + "PortEnable", "true");
}

std::string ConnectionTest::lan_ports_of(const std::string& depend_wan) const {
  std::string nodes;
  for (const std::string& name : tree_.instances(kPortInterface)) {
    if (name.rfind(lan_bridge_, 0) != 0) continue;
    if (tree_.value(object_of(name) + "X_ZYN_DependWanName") != depend_wan) continue;
    nodes += (nodes.empty() ? "" : " ") + tree_.value(name);
  }
  return nodes;
}

std::string ConnectionTest::port_in(const std::string& bridge_path, const std::string& node) const {
  for (const std::string& name : tree_.instances(kPortInterface)) {
    if (name.rfind(bridge_path, 0) == 0 && tree_.value(name) == node) return object_of(name);
  }
  return {};
}

void ConnectionTest::remove(const std::string& object_path) {
  ASSERT_EQ(tree_.delete_object(object_path), 0) << object_path;
}

}  // namespace support
