#include <algorithm>

#include "gateway/connection_objects.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "term/text.h"
#include "wan/wan_checks.h"
#include "wan/wan_words.h"
#include "wan/wan_writes.h"

namespace igdctl {

namespace {

using About = Conflict::About;

const std::string& path_of(const GatewayState& gateway) {
  static const std::string none;
  return gateway.connection == nullptr ? none : gateway.connection->path;
}

bool has_lan_bridge(const GatewayState& gateway) {
  return std::any_of(gateway.bridges.begin(), gateway.bridges.end(),
                     [](const Bridge& bridge) { return bridge.name == igd::kLanBridgeName; });
}

Conflict no_bridge(const Connection& connection) {
  return {About::kBridge,
          "connection " + in_quotes(title_of(connection)) +
              " has no bridge of its own: the library would act on the ports of every bridge",
          "igdctl doctor shows why, and how to fix it", false, false};
}

Conflict no_lan_bridge() {
  return {About::kBridge, "there is no bridge named \"internet\": released ports would be lost",
          "igdctl doctor shows how to fix it", false, false};
}

bool has_object_of(const Connection& connection, int mode) {
  return mode == 0 || !object_of_mode(connection_objects(connection.path), mode).empty();
}

void add_mode_conflicts(const WanDraft& draft, const GatewayState& gateway,
                        std::vector<Conflict>* conflicts) {
  const int mode = draft.info.connect_mode;
  if (gateway.connection == nullptr || has_object_of(*gateway.connection, mode)) return;
  conflicts->push_back({About::kObject,
                        "connection " + in_quotes(title_of(*gateway.connection)) +
                            " has no object for mode " + word_of_mode(mode),
                        "choose another mode, or remove the connection and create it again", false,
                        false});
}

// A tree that the library did not make can lack objects.
void add_object_conflicts(const WanDraft& draft, const GatewayState& gateway,
                          std::vector<Conflict>* conflicts) {
  if (gateway.connection == nullptr) return;
  for (const WanField& field : kWanFields) {
    const bool of_objects = !field.structural && field.places.front().where != Where::kOwnPorts;
    if (!of_objects || !draft.changes(field.key)) continue;
    if (has_place(gateway.objects, field, draft)) continue;
    conflicts->push_back({About::kObject,
                          "connection " + in_quotes(title_of(*gateway.connection)) +
                              " has no object that can store " + field.key,
                          "leave it out, or remove the connection and create it again", false,
                          false});
  }
}

std::string owner_of(const Port& port, const GatewayState& gateway) {
  for (const Bridge& bridge : gateway.bridges) {
    if (bridge.path == port.bridge_path && !bridge.wan_path.empty()) return bridge.wan_path;
  }
  return port.depend_wan;
}

// Who else holds a port, in words; "" when nobody does.
std::string holder_of(const std::string& node, const GatewayState& gateway) {
  for (const Bridge& bridge : gateway.bridges) {
    for (const Port& port : bridge.ports) {
      if (port.node != node) continue;
      const std::string owner = owner_of(port, gateway);
      if (owner.empty() || owner == path_of(gateway)) continue;
      return in_quotes(title_of_path(gateway.connections, owner));
    }
  }
  return {};
}

Conflict port_held(const std::string& node, const std::string& holder, bool was_there) {
  return {About::kPort, "port " + node + " belongs to connection " + holder,
          "remove it from that connection first, or leave it out", false, was_there};
}

void add_ports_conflicts(const WanDraft& draft, const GatewayState& gateway,
                         std::vector<Conflict>* conflicts) {
  const auto judge = [&](const char* key, const Names& ports) {
    for (const std::string& node : ports) {
      const std::string holder = holder_of(node, gateway);
      if (holder.empty()) continue;
      const bool was_there = gateway.connection != nullptr && !draft.changes(key);
      conflicts->push_back(port_held(node, holder, was_there));
    }
  };
  judge("bind_lan", draft.info.bind_lan);
  judge("bind_wan", draft.info.bind_wan);
}

void add_second_management_conflicts(const WanDraft& draft, const GatewayState& gateway,
                                     std::vector<Conflict>* conflicts) {
  if (!carries_management(draft.info.service_type)) return;
  const bool was_there = gateway.connection != nullptr && !draft.changes("service");
  for (const Connection& other : gateway.connections) {
    if (other.path == path_of(gateway) || !carries_management(other.service)) continue;
    conflicts->push_back({About::kManagement,
                          "connection " + in_quotes(title_of(other)) +
                              " already carries the management service TR069",
                          "give this one a different service, or change that one first", true,
                          was_there});
    return;
  }
}

std::string holder_of_vlan(const api_wan_info& info, const GatewayState& gateway) {
  for (const Bridge& bridge : gateway.bridges) {
    if (bridge.name == igd::kLanBridgeName || bridge.vlan != std::to_string(info.vlan_id)) continue;
    if (!bridge.wan_path.empty() && bridge.wan_path == path_of(gateway)) continue;
    const std::string owner = title_of_path(gateway.connections, bridge.wan_path);
    return "bridge " + in_quotes(bridge.name) +
           (owner.empty() ? "" : " of connection " + in_quotes(owner));
  }
  return "another bridge";
}

Conflict vlan_taken(const WanDraft& draft, const GatewayState& gateway, bool untagged) {
  api_wan_info info = draft.info;
  if (info.vlan_enable == 0) info.vlan_id = 0;
  const bool was_there = gateway.connection != nullptr && !draft.changes("vlan");
  const std::string holder = holder_of_vlan(info, gateway);
  if (untagged) {
    return {About::kVlan, holder + " is untagged, and only one connection can be",
            "give this one a VLAN: igdctl vlan free shows a free one", true, was_there};
  }
  return {About::kVlan, holder + " already has VLAN " + std::to_string(info.vlan_id),
          "choose another VLAN: igdctl vlan free shows a free one", true, was_there};
}

Conflict no_port_left(const WanDraft& draft, const GatewayState& gateway) {
  const bool was_there =
      gateway.connection != nullptr && !draft.changes("bind_wan") && !draft.changes("class");
  return {About::kLastPort, "no port would be left in the LAN bridge",
          "leave one out of bind_wan, or remove one from another connection", true, was_there};
}

// Every port that the device has, as a mask.
int mask_of_all_ports(const GatewayState& gateway) {
  int mask = 0;
  for (const std::string& node : assignable_nodes(gateway.bridges)) {
    mask |= igd_tool_get_port_value(node);
  }
  return mask;
}

Conflict words_for(int verdict, const WanDraft& draft, const GatewayState& gateway) {
  switch (verdict) {
    case kIgdVlanTaken:
    case kIgdUntaggedTaken:
      return vlan_taken(draft, gateway, verdict == kIgdUntaggedTaken);
    case kIgdRoutedBridgeLeavesNoPort:
    case kIgdBridgeLeavesNoPort:
      return no_port_left(draft, gateway);
    case kIgdManagementExists:
      return {About::kManagement, "another connection already carries the management service TR069",
              "give this one a different service, or change that one first", true, false};
    default:
      return {About::kPort, "a port belongs to another connection",
              "igdctl wan ports shows which; leave it out, or remove it from that connection first",
              false, false};
  }
}

// A verdict adds nothing where igdctl's own check named who is in the way.
void ask_library(const WanDraft& draft, const GatewayState& gateway,
                 std::vector<Conflict>* conflicts, int* verdict) {
  api_wan_info copy = draft.info;  // the check may change its vlan_id
  const int result =
      igd_verify_new_wan_info_valid(path_of(gateway), &copy, mask_of_all_ports(gateway));
  if (verdict != nullptr) *verdict = result;
  if (result == kIgdAcceptable) return;
  Conflict conflict = words_for(result, draft, gateway);
  const bool told =
      std::any_of(conflicts->begin(), conflicts->end(),
                  [&conflict](const Conflict& other) { return other.about == conflict.about; });
  if (!told) conflicts->push_back(std::move(conflict));
}

// The library counts connections of a kind; that for management is none of those.
const char* why_it_stays(const std::string& service) {
  const auto carries = [&service](const char* word) {
    return service.find(word) != std::string::npos;
  };
  if (carries(igd::kInternetService)) return " is the last one with the service INTERNET";
  if (carries(igd::kManagementService) || carries(igd::kMmeService)) {
    return " stays: fewer than two connections carry anything but management";
  }
  return " is the last one that is not for management, so its service would be lost";
}

}  // namespace

GatewayState read_gateway_state(MibAccess& tree, const Connection* connection) {
  GatewayState gateway{connection, list_connections(tree), read_bridges(tree), {}, {}};
  if (connection != nullptr) gateway.objects = objects_of(tree, *connection);
  for (const ObjectType type : {kIpConnectionName, kPppConnectionName}) {
    for (const std::string& name : instances_below(igd::kWanDeviceTable, type)) {
      const bool own = connection != nullptr && begins_with(name, connection->path);
      if (!own) gateway.object_names.insert(tree.getValue(name));
    }
  }
  return gateway;
}

std::vector<Conflict> conflicts_of(const WanDraft& draft, const GatewayState& gateway,
                                   int* verdict) {
  std::vector<Conflict> conflicts;
  if (gateway.connection != nullptr && !gateway.connection->has_bridge()) {
    conflicts.push_back(no_bridge(*gateway.connection));
  }
  add_mode_conflicts(draft, gateway, &conflicts);
  if (conflicts.empty()) add_object_conflicts(draft, gateway, &conflicts);
  // A routed connection gets the LAN bridge made by the library.
  if (!has_lan_bridge(gateway) && draft.info.connection_class != kIgdRouted) {
    conflicts.push_back(no_lan_bridge());
  }
  add_ports_conflicts(draft, gateway, &conflicts);
  add_second_management_conflicts(draft, gateway, &conflicts);
  ask_library(draft, gateway, &conflicts, verdict);
  return conflicts;
}

std::vector<Conflict> conflicts_of_removal(const Connection& connection,
                                           const GatewayState& gateway) {
  std::vector<Conflict> conflicts;
  if (!connection.has_bridge()) conflicts.push_back(no_bridge(connection));
  if (!has_lan_bridge(gateway)) conflicts.push_back(no_lan_bridge());
  if (igd_verify_can_remove_wan(connection.path) == 0) {
    conflicts.push_back(
        {About::kLastService,
         "connection " + in_quotes(title_of(connection)) + why_it_stays(connection.service),
         "create another one first", true, false});
  }
  return conflicts;
}

}  // namespace igdctl
