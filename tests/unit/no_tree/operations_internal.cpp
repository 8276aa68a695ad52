#include "bridges.h"
#include "data_model.h"
#include "operations.h"
#include "port_update.h"
#include "vlan.h"

namespace no_tree {
namespace {

const std::string kPortPath = "InternetGatewayDevice.Layer2Bridging.Bridge.1.Port.1.";

std::string create_bridge() {
  api_wan_info info;
  return '"' + _create_bridge("", igd::kLanBridge, 1, 100, &info) + '"';
}

std::string create_port() {
  api_wan_info info;
  _create_port("InternetGatewayDevice.Layer2Bridging.Bridge.1.", "", "LAN1", &info);
  return std::to_string(info.port_option60.size());
}

std::string add_instance() {
  const auto [added, path] = igd::add_instance("A.");
  return (added ? "added " : "not added ") + path;
}

std::string update_ports() {
  wan_mib_info mib;
  api_wan_info info;
  info.bind_lan = {"LAN1"};
  _wan_port_update(&mib, &info);
  return "";
}

}  // namespace

std::vector<Operation> asking_internal_operations() {
  return {
      {"_get_value", [] { return '"' + _get_value(kPortPath, "PVID") + '"'; }, "\"\"", "", ""},
      {"_set_value", [] { return _set_value(kPortPath, "PVID", "1"), std::string(); }, "", "", ""},
      {"_delete_port", [] { return _delete_port(kPortPath), std::string(); }, "", "", ""},
      {"_create_bridge", create_bridge, "\"\"", "", ""},
      {"_create_port", create_port, "0", "", ""},
      {"_find_vlan_id", [] { return _find_vlan_id(0, "", "x"); }, "4060", "", ""},
      {"_wan_port_update", update_ports, "", "", ""},
      {"add_instance", add_instance, "not added A.0.", "", ""},
      {"delete_object", [] { return igd::delete_object(kPortPath), std::string(); }, "", "", ""},
      {"commit", [] { return igd::commit(), std::string(); }, "", "", ""},
      {"commit_and_apply", [] { return igd::commit_and_apply(), std::string(); }, "", "", ""},
  };
}

}  // namespace no_tree
