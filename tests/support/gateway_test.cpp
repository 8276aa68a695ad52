#include "gateway_test.h"

#include "stdout_capture.h"

namespace support {

std::string wan_path(int device, int connection) {
  return kWanDevices + std::to_string(device) + ".WANConnectionDevice." +
         std::to_string(connection) + '.';
}

api_wan_info routed_pppoe(const std::string& name, int vlan) {
  api_wan_info info;
  info.wan_info_name = name;
  info.vlan_enable = vlan != 0 ? 1 : 0;
  info.vlan_id = vlan;
  info.connection_class = kIgdRouted;
  info.service_type = "INTERNET";
  info.nat_mode = 1;
  info.connect_mode = kIgdPppoe;
  info.pppoe_user_name = "user@isp";
  info.pppoe_password = "secret";
  info.pppoe_mtu = "1492";
  info.static_mtu = "1500";
  info.dhcp_mtu = "1500";
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "false";
  return info;
}

api_wan_info dhcp_management(const std::string& name, int vlan) {
  api_wan_info info = routed_pppoe(name, vlan);
  info.service_type = "TR069";
  info.connect_mode = kIgdDhcp;
  info.nat_mode = 0;
  info.dhcp_option60 = "gateway";
  info.wan_remote_management_enable = "true";
  return info;
}

api_wan_info bridged(const std::string& name, int vlan, const std::vector<std::string>& ports) {
  api_wan_info info = routed_pppoe(name, vlan);
  info.connection_class = kIgdBridged;
  info.connect_mode = kIgdDhcp;
  info.service_type = "OTHER";
  info.nat_mode = 0;
  info.bind_wan = ports;
  return info;
}

GatewayTest::GatewayTest(host::Tree tree) : tree_(std::move(tree)) {
  host::exchange_active_tree(&tree_);
}

GatewayTest::~GatewayTest() {
  std::vector<std::string> none;
  _rebuid_cache(none);
  g_l3_ifname_table.clear();
  host::exchange_active_tree(nullptr);
}

void GatewayTest::TearDown() {
  for (const host::Refusal& refusal : tree_.refusals()) {
    ADD_FAILURE() << "refused: " << refusal.call << ' ' << refusal.name << ": " << refusal.reason;
  }
}

void GatewayTest::set(const std::string& name, const std::string& value) {
  ASSERT_EQ(tree_.set_value(name, value), 0) << name;
}

std::string GatewayTest::add(const std::string& table_path) {
  int instance = 0;
  EXPECT_EQ(tree_.add_object(table_path, &instance), 0) << table_path;
  return table_path + std::to_string(instance) + '.';
}

std::string GatewayTest::create(api_wan_info info, const std::string& access_type) {
  const StdoutCapture dropped;
  return igd_wan_create(access_type, &info);
}

std::string GatewayTest::add_connection_device(int device,
                                               const std::vector<std::string>& objects) {
  const std::string device_path = kWanDevices + std::to_string(device) + '.';
  while (!tree_.has_object(device_path)) (void)add(kWanDevices);
  const std::string path = add(device_path + "WANConnectionDevice.");
  for (const std::string& object : objects) {
    if (object == "PPP") {
      (void)add(path + "WANPPPConnection.");
    } else {
      set(add(path + "WANIPConnection.") + "AddressingType", object);
    }
  }
  return path;
}

std::string GatewayTest::add_service(const std::string& service_list) {
  const std::string path = add_connection_device(1, {"PPP"});
  set(path + "WANPPPConnection.1.X_CT-COM_ServiceList", service_list);
  return path;
}

std::string GatewayTest::add_bridge(const std::string& name, const std::string& wan_path,
                                    const std::string& vlan, const std::string& standard) {
  const std::string bridge_path = add(kBridges);
  set(bridge_path + "BridgeName", name);
  set(bridge_path + "BridgeStandard", standard);
  set(bridge_path + "VLANID", vlan);
  set(bridge_path + "X_ZYN_WANName", wan_path);
  return bridge_path;
}

std::string GatewayTest::add_port(const std::string& bridge_path, const std::string& node,
                                  const std::string& depend_wan, const std::string& pvid) {
  const std::string port_path = add(bridge_path + "Port.");
  set(port_path + "PortInterface", node);
  set(port_path + "X_ZYN_DependWanName", depend_wan);
  set(port_path + "PVID", pvid);
  return port_path;
}

std::vector<std::string> GatewayTest::ports_of(const std::string& bridge_path) const {
  std::vector<std::string> nodes;
  for (const std::string& name : tree_.instances(kPortInterface)) {
    if (name.rfind(bridge_path, 0) == 0) nodes.push_back(tree_.value(name));
  }
  return nodes;
}

std::string GatewayTest::bridge_named(const std::string& name) const {
  for (const std::string& parameter : tree_.instances(kBridgeName)) {
    if (tree_.value(parameter) == name) return parameter.substr(0, parameter.rfind('.') + 1);
  }
  return {};
}

std::vector<std::string> GatewayTest::take_refusals() {
  std::vector<std::string> calls;
  for (const host::Refusal& refusal : tree_.refusals()) {
    calls.push_back(refusal.call + ' ' + refusal.name);
  }
  tree_.clear_refusals();
  return calls;
}

}  // namespace support
