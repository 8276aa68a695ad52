#include "gateway.h"

#include "igd_api.h"
#include "igd_c_api.h"
#include "shown.h"

namespace model {
namespace {

std::string object_of(const std::string& parameter) {
  return parameter.substr(0, parameter.rfind('.') + 1);
}

bool has_record(const Step& step) { return step.text(Field::kRecord) != "null"; }

const char* text_or_null(const std::string& text) {
  return text == "null" ? nullptr : text.c_str();
}

std::string node_of(const Step& step, const std::string& path) {
  const std::string object = step.text(Field::kObject);
  const std::string parameter = step.text(Field::kParameter);
  if (object == "static") return path + "WANIPConnection.1." + parameter;
  if (object == "dhcp") return path + "WANIPConnection.2." + parameter;
  if (object == "ppp") return path + "WANPPPConnection.1." + parameter;
  return "InternetGatewayDevice.ManagementServer." + parameter;
}

std::string bridge_texts(const Step& step, const std::string& path) {
  std::string all;
  for (const auto ask : {igd_c_get_wan_bridge_pvid_name, igd_c_get_wan_bridge_vlanid_name,
                         igd_c_get_wan_bridge_vlanpriority_name}) {
    char buffer[16] = "untouched";
    ask(path.c_str(), buffer, static_cast<std::size_t>(step.number(Field::kSize)));
    all += (all.empty() && ask == igd_c_get_wan_bridge_pvid_name ? "" : "|") + std::string(buffer);
  }
  return all;
}

std::string l3_name(const Step& step) {
  std::string buffer(16, '~');
  igd_c_get_l3_name(text_or_null(step.text(Field::kKey)), buffer.data(),
                    static_cast<std::size_t>(step.number(Field::kSize)));
  return buffer;
}

std::string shown_routes() {
  std::vector<api_route_info> routes = {{"old", "old", 1, 1, "old", "old"}};
  std::string all = std::to_string(igd_get_static_route_list(routes));
  for (const api_route_info& route : routes) all += shown(route);
  return all;
}

}  // namespace

Gateway::Gateway() { host::exchange_active_tree(&tree_); }

Gateway::~Gateway() {
  std::vector<std::string> none;
  _rebuid_cache(none);
  g_l3_ifname_table.clear();
  host::exchange_active_tree(nullptr);
}

std::string Gateway::perform(const Step& step, const std::string& path) {
  tree_.clear_refusals();
  if (step.operation <= Operation::kSaveBinding) return perform_on_connection(step, path);
  if (step.operation <= Operation::kStatus) return perform_lookup(step, path);
  if (step.operation <= Operation::kSetPvid) return perform_bridge(step, path);
  if (step.operation <= Operation::kGetL3Name) return perform_setting(step);
  return perform_beside(step, path);
}

std::string Gateway::perform_on_connection(const Step& step, const std::string& path) {
  api_wan_info info = record_of(step);
  api_wan_info* record = has_record(step) ? &info : nullptr;
  std::vector<std::string> names = {"old"};
  switch (step.operation) {
    case Operation::kCreate: {
      const std::string made = igd_wan_create(step.text(Field::kUplink), &info);
      return made + shown(info);
    }
    case Operation::kCheck: {
      const int mask = step.number(Field::kDevicePorts);
      const int verdict = igd_verify_new_wan_info_valid(path, &info, mask);
      return std::to_string(verdict) + ' ' + std::to_string(info.vlan_id);
    }
    case Operation::kSet: {
      const int result = igd_wan_set_params(path, record);
      return std::to_string(result) + (record == nullptr ? "" : shown(info));
    }
    case Operation::kGet: {
      info = unread_record();
      const int result = igd_wan_get_params(path, record);
      return std::to_string(result) + (record == nullptr ? "" : shown(info));
    }
    case Operation::kRemove:
      igd_wan_destory(path);
      return {};
    case Operation::kMayRemove:
      return std::to_string(igd_verify_can_remove_wan(path));
    case Operation::kList: {
      const int count = igd_wan_list(names);
      return std::to_string(count) + ' ' + shown(names);
    }
    default:
      saveLanInterfaceToWanNode(path, &info);
      return {};
  }
}

std::string Gateway::perform_lookup(const Step& step, const std::string& path) {
  std::vector<std::string> names = {"old"};
  switch (step.operation) {
    case Operation::kFindName:
      return igd_wan_get_id_by_name(step.text(Field::kName));
    case Operation::kIsIndex:
      return std::to_string(igd_verify_is_wan_index(path)) + ' ' +
             std::to_string(igd_verify_wan_index_in_bridge(path));
    case Operation::kIsBridgeParameter: {
      const std::string bridge = bridge_named(step.text(Field::kBridge));
      return std::to_string(igd_check_wan_index(bridge + "X_ZYN_WANName"));
    }
    case Operation::kSetAll:
      igd_set_wan_all_value(path, node_of(step, path), step.text(Field::kValue));
      return {};
    case Operation::kUsedPorts: {
      const int result = igd_get_used_port_list(path, names);
      return std::to_string(result) + ' ' + shown(names);
    }
    default: {
      api_wan_status status = unread_status();
      const int result = igd_wan_status(path, has_record(step) ? &status : nullptr);
      return std::to_string(result) + (has_record(step) ? shown(status) : "");
    }
  }
}

std::string Gateway::perform_bridge(const Step& step, const std::string& path) {
  std::string bridge = "untouched", name = "untouched", lan, lan_name;
  std::vector<std::string> names = {"old"};
  unsigned int vlan = 77;
  switch (step.operation) {
    case Operation::kNameBridge:
      return igd_get_bridge_info(path);
    case Operation::kFindBridge: {
      const int own = igd_wan_get_wan_bridge_info(path, &bridge, &name);
      const int lan_result = igd_wan_get_lan_bridge_info(path, &lan, &lan_name);
      return std::to_string(own) + ' ' + bridge + ' ' + name + ' ' + std::to_string(lan_result) +
             ' ' + lan + ' ' + lan_name;
    }
    case Operation::kShowBridge: {
      const std::string shown_name = igd_wan_intf(path, names, vlan);
      return shown_name + ' ' + std::to_string(vlan) + ' ' + shown(names);
    }
    case Operation::kBelongs:
      return std::to_string(igd_c_check_belong_bridge(step.text(Field::kBridge).c_str(),
                                                      step.text(Field::kPhysical).c_str()));
    case Operation::kFindPhysical: {
      const int result =
          igd_wan_get_bridge_info_from_phy(step.text(Field::kPhysical), &bridge, &name);
      return std::to_string(result) + ' ' + bridge + ' ' + name;
    }
    case Operation::kFreeVlan:
      return std::to_string(igd_wan_get_unused_vlan());
    case Operation::kBridgeTexts:
      return bridge_texts(step, path);
    default: {
      api_wan_info info = record_of(step);
      return std::to_string(igd_c_set_bridge_pvid(step.text(Field::kBridge).c_str(), &info));
    }
  }
}

std::string Gateway::perform_setting(const Step& step) {
  api_mng_server_info info = management_of(step);
  api_mng_server_info* record = has_record(step) ? &info : nullptr;
  switch (step.operation) {
    case Operation::kSetRoute:
      return std::to_string(igd_set_static_route(step.number(Field::kRouteCode), route_of(step)));
    case Operation::kListRoutes:
      return shown_routes();
    case Operation::kClearRoutes:
      return std::to_string(igd_clear_static_route());
    case Operation::kSetManagement:
      return std::to_string(igd_mng_server_set_params(record));
    case Operation::kGetManagement: {
      const int result = igd_mng_server_get_params(record);
      if (record == nullptr) return std::to_string(result);
      return std::to_string(result) + ' ' + shown(info) + ' ' + igd_c_get_lan_ipaddr();
    }
    case Operation::kSetL3Name:
      igd_c_set_l3_name(text_or_null(step.text(Field::kKey)), step.text(Field::kValue).c_str());
      return {};
    default:
      return l3_name(step);
  }
}

std::string Gateway::perform_beside(const Step& step, const std::string& path) {
  switch (step.operation) {
    case Operation::kRemember:
      (void)_get_cache(path);
      break;
    case Operation::kForget:
      return std::to_string(_destory_cache(path));
    case Operation::kLoseLanBridge:
      (void)tree_.delete_object(bridge_named("internet"));
      break;
    case Operation::kLoseBridge: {
      std::string bridge;
      (void)igd_wan_get_wan_bridge_info(path, &bridge, nullptr);
      (void)tree_.delete_object(bridge);
      break;
    }
    case Operation::kLoseConnection:
      if (igd_verify_is_wan_index(path) == 1) (void)tree_.delete_object(path);
      break;
    case Operation::kMoveRoute: {
      const std::vector<std::string> routes = tree_.instances(kForwardingDestIpAddress);
      if (routes.empty() || igd_verify_is_wan_index(path) == 0) break;
      (void)tree_.set_value(object_of(routes.front()) + "Interface", "");
      (void)tree_.set_value(object_of(routes.front()) + "X_ZYN_RouteTable", path);
      break;
    }
    default:
      if (igd_verify_is_wan_index(path) == 1) line_up(path, step.text(Field::kEnabled));
  }
  // Only the library's own calls are judged.
  tree_.clear_refusals();
  return {};
}

void Gateway::line_up(const std::string& path, const std::string& enabled) {
  const std::string address = enabled == "0" ? "" : "192.0.2.9";
  const std::string objects[] = {path + "WANIPConnection.1.", path + "WANIPConnection.2.",
                                 path + "WANPPPConnection.1."};
  for (int i = 0; i < 3; ++i) {
    (void)tree_.set_value(objects[i] + "Stats.EthernetBytesSent", std::to_string(i));
    (void)tree_.set_value(objects[i] + "MACAddress", "02:00:00:00:00:0" + std::to_string(i));
  }
  (void)tree_.set_value(objects[0] + "X_CT-COM_ActiveExternalIPAddress", address);
  (void)tree_.set_value(objects[1] + "X_CT-COM_ActiveExternalIPAddress", address);
  (void)tree_.set_value(objects[1] + "ExternalIPAddress", address);
  (void)tree_.set_value(objects[2] + "ExternalIPAddress", enabled == "7" ? "0.0.0.0" : address);
  (void)tree_.set_value(objects[2] + "RemoteIPAddress", address);
  (void)tree_.set_value(objects[2] + "X_ZYN_COM_LastConnectionError", "ERROR_" + enabled);
}

std::string Gateway::bridge_named(const std::string& name) const {
  for (const std::string& parameter : tree_.instances(kBridgeName)) {
    if (tree_.value(parameter) == name) return object_of(parameter);
  }
  return {};
}

}  // namespace model
