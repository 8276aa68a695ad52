// Questions about bridges, and PVIDs of a whole bridge.
#include <array>

#include "scenario.h"

namespace transcripts {
namespace {

using ReadIntoBuffer = void (*)(const char*, char*, std::size_t);

std::string connection_with_ports(Gateway& gateway) {
  return gateway.create(support::bridged("1_OTHER", 100, {"LAN2", "WLAN1"}));
}

void name_of_connections_bridge(Gateway& gateway) {
  const std::string path = connection_with_ports(gateway);
  gateway.record(IGD_OPERATION(igd_get_bridge_info), path);
}

void name_of_lan_bridge(Gateway& gateway) {
  gateway.record(IGD_OPERATION(igd_get_bridge_info), "InternetGatewayDevice.LANDevice.1.");
}

void lan_bridge(Gateway& gateway) {
  const std::string path = connection_with_ports(gateway);
  gateway.record(IGD_OPERATION(igd_wan_get_lan_bridge_info), path, nullptr, nullptr);
}

void wan_bridge(Gateway& gateway) {
  const std::string path = connection_with_ports(gateway);
  gateway.record(IGD_OPERATION(igd_wan_get_wan_bridge_info), path, nullptr, nullptr);
}

void wan_bridge_of_two_that_name_the_connection(Gateway& gateway) {
  const std::string path = support::wan_path(1, 2);
  (void)gateway.add_bridge("br_7_7", path);
  (void)gateway.add_bridge("br_1_2", path);
  gateway.record(IGD_OPERATION(igd_wan_get_wan_bridge_info), path, nullptr, nullptr);
}

void wan_bridge_missing(Gateway& gateway) {
  gateway.record(IGD_OPERATION(igd_wan_get_wan_bridge_info), support::wan_path(1, 2), nullptr,
                 nullptr);
}

void record_ports(Gateway& gateway, const std::string& path) {
  std::vector<std::string> ports;
  unsigned int vlan_id = 0;
  gateway.record(IGD_OPERATION(igd_wan_intf), path, ports, vlan_id);
}

void ports(Gateway& gateway) { record_ports(gateway, connection_with_ports(gateway)); }

void ports_without_bridge(Gateway& gateway) { record_ports(gateway, support::wan_path(1, 2)); }

void member_of_tagged_bridge(Gateway& gateway) {
  (void)connection_with_ports(gateway);
  gateway.record(IGD_OPERATION(igd_c_check_belong_bridge), "br_1_1", "eth1.100");
}

void member_of_no_bridge(Gateway& gateway) {
  gateway.record(IGD_OPERATION(igd_c_check_belong_bridge), "br_1_1", "eth1.100");
}

void no_member(Gateway& gateway) {
  gateway.record(IGD_OPERATION(igd_c_check_belong_bridge), "internet", "usb0");
}

void bridge_of_device(Gateway& gateway) {
  (void)connection_with_ports(gateway);
  std::string bridge_path;
  std::string bridge_name;
  gateway.record(IGD_OPERATION(igd_wan_get_bridge_info_from_phy), "eth1.100", &bridge_path,
                 &bridge_name);
}

// The LAN bridge stands first and is owned by nobody, so it answers.
void record_read(Gateway& gateway, const char* name, ReadIntoBuffer read) {
  const std::string path = connection_with_ports(gateway);
  std::array<char, 16> buffer = {};
  gateway.record(name, read, path.c_str(), buffer.data(), buffer.size());
}

void read_vlanid_without_lan_bridge(Gateway& gateway) {
  const std::string path = connection_with_ports(gateway);
  gateway.remove(gateway.bridge_named("internet"));
  std::array<char, 16> buffer = {};
  gateway.record(IGD_OPERATION(igd_c_get_wan_bridge_vlanid_name),
                 (path + "WANIPConnection.1.").c_str(), buffer.data(), buffer.size());
}

void record_set_pvid(Gateway& gateway, const char* bridge_name) {
  api_wan_info info;
  info.vlan_id = 300;
  gateway.record(IGD_OPERATION(igd_c_set_bridge_pvid), bridge_name, &info);
}

void set_pvid(Gateway& gateway) {
  (void)connection_with_ports(gateway);
  record_set_pvid(gateway, "br_1_1");
}

void set_pvid_without_ports(Gateway& gateway) {
  (void)gateway.add_bridge("empty", "");
  record_set_pvid(gateway, "empty");
}

void set_pvid_of_unknown_bridge(Gateway& gateway) { record_set_pvid(gateway, "br_9_9"); }

void unused_vlan(Gateway& gateway) {
  (void)gateway.create(support::routed_pppoe("1_INTERNET", 1000));
  gateway.record(IGD_OPERATION(igd_wan_get_unused_vlan));
}

}  // namespace

Scenarios bridge_scenarios() {
  return {
      {"bridge_name_of_connection", name_of_connections_bridge},
      {"bridge_name_of_lan", name_of_lan_bridge},
      {"bridge_lan", lan_bridge},
      {"bridge_wan", wan_bridge},
      {"bridge_wan_of_two_that_name_the_connection", wan_bridge_of_two_that_name_the_connection},
      {"bridge_wan_missing", wan_bridge_missing},
      {"bridge_ports", ports},
      {"bridge_ports_without_bridge", ports_without_bridge},
      {"bridge_member_when_tagged", member_of_tagged_bridge},
      {"bridge_member_of_no_bridge", member_of_no_bridge},
      {"bridge_no_member", no_member},
      {"bridge_of_device", bridge_of_device},
      {"bridge_read_pvid",
       [](Gateway& gw) { record_read(gw, IGD_OPERATION(igd_c_get_wan_bridge_pvid_name)); }},
      {"bridge_read_vlan_id",
       [](Gateway& gw) { record_read(gw, IGD_OPERATION(igd_c_get_wan_bridge_vlanid_name)); }},
      {"bridge_read_vlan_priority",
       [](Gateway& gw) { record_read(gw, IGD_OPERATION(igd_c_get_wan_bridge_vlanpriority_name)); }},
      {"bridge_read_vlan_id_without_lan_bridge", read_vlanid_without_lan_bridge},
      {"bridge_set_pvid", set_pvid},
      {"bridge_set_pvid_without_ports", set_pvid_without_ports},
      {"bridge_set_pvid_of_unknown_bridge", set_pvid_of_unknown_bridge},
      {"bridge_unused_vlan", unused_vlan},
  };
}

}  // namespace transcripts
