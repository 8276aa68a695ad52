#include <algorithm>

#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "term/text.h"
#include "wan/wan_checks.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

using About = Objection::About;

const std::string& path_of(const Surroundings& around) {
  static const std::string none;
  return around.connection == nullptr ? none : around.connection->path;
}

bool has_lan_bridge(const Surroundings& around) {
  return std::any_of(around.bridges.begin(), around.bridges.end(),
                     [](const Bridge& bridge) { return bridge.name == kLanBridge; });
}

Objection no_bridge(const Connection& connection) {
  return {About::kBridge,
          "connection " + in_quotes(title_of(connection)) +
              " has no bridge of its own: the library would act on the ports of every bridge",
          "igdctl doctor tells why and how to mend it", false, false};
}

Objection no_lan_bridge() {
  return {About::kBridge,
          "there is no bridge named \"internet\": ports that become free would be lost",
          "igdctl doctor tells how to mend it", false, false};
}

bool has_object_of(const Connection& connection, int mode) {
  if (mode == kIgdPppoe) return !instances_below(connection.path, kPppConnection).empty();
  const char* const addressing = mode == kIgdStatic ? "Static" : "DHCP";
  return mode == 0 || !igd_tool_loop_fullname(connection.path, kAddressingType, addressing).empty();
}

void object_to_mode(const WanProposal& proposal, const Surroundings& around,
                    std::vector<Objection>* objections) {
  const int mode = proposal.info.connect_mode;
  if (around.connection == nullptr || has_object_of(*around.connection, mode)) return;
  objections->push_back({About::kObject,
                         "connection " + in_quotes(title_of(*around.connection)) +
                             " has no object for mode " + word_of_mode(mode),
                         "choose another mode, or remove the connection and make it anew", false,
                         false});
}

std::string owner_of(const Port& port, const Surroundings& around) {
  for (const Bridge& bridge : around.bridges) {
    if (bridge.path == port.bridge_path && !bridge.wan_path.empty()) return bridge.wan_path;
  }
  return port.depend_wan;
}

// Who else holds a port, in words; "" when nobody does.
std::string holder_of(const std::string& node, const Surroundings& around) {
  for (const Bridge& bridge : around.bridges) {
    for (const Port& port : bridge.ports) {
      if (port.node != node) continue;
      const std::string owner = owner_of(port, around);
      if (owner.empty() || owner == path_of(around)) continue;
      return in_quotes(title_of_path(around.connections, owner));
    }
  }
  return {};
}

Objection port_held(const std::string& node, const std::string& holder, bool was_there) {
  return {About::kPort, "port " + node + " belongs to connection " + holder,
          "take it off that connection first, or leave it out", false, was_there};
}

void object_to_ports(const WanProposal& proposal, const Surroundings& around,
                     std::vector<Objection>* objections) {
  const auto judge = [&](const char* key, const Names& ports) {
    for (const std::string& node : ports) {
      const std::string holder = holder_of(node, around);
      if (holder.empty()) continue;
      const bool was_there = around.connection != nullptr && !proposal.changes(key);
      objections->push_back(port_held(node, holder, was_there));
    }
  };
  judge("bind_lan", proposal.info.bind_lan);
  judge("bind_wan", proposal.info.bind_wan);
}

void object_to_second_management(const WanProposal& proposal, const Surroundings& around,
                                 std::vector<Objection>* objections) {
  if (!carries_management(proposal.info.service_type)) return;
  const bool was_there = around.connection != nullptr && !proposal.changes("service");
  for (const Connection& other : around.connections) {
    if (other.path == path_of(around) || !carries_management(other.service)) continue;
    objections->push_back({About::kManagement,
                           "connection " + in_quotes(title_of(other)) +
                               " carries the management service TR069 already",
                           "give this one another service, or change that one first", true,
                           was_there});
    return;
  }
}

std::string holder_of_vlan(const api_wan_info& info, const Surroundings& around) {
  for (const Bridge& bridge : around.bridges) {
    if (bridge.name == kLanBridge || bridge.vlan != std::to_string(info.vlan_id)) continue;
    if (!bridge.wan_path.empty() && bridge.wan_path == path_of(around)) continue;
    const std::string owner = title_of_path(around.connections, bridge.wan_path);
    return "bridge " + in_quotes(bridge.name) +
           (owner.empty() ? "" : " of connection " + in_quotes(owner));
  }
  return "another bridge";
}

Objection vlan_taken(const WanProposal& proposal, const Surroundings& around, bool untagged) {
  api_wan_info info = proposal.info;
  if (info.vlan_enable == 0) info.vlan_id = 0;
  const bool was_there = around.connection != nullptr && !proposal.changes("vlan");
  const std::string holder = holder_of_vlan(info, around);
  if (untagged) {
    return {About::kVlan, holder + " is untagged, and only one connection can be",
            "give this one a VLAN: igdctl vlan free names one that is free", true, was_there};
  }
  return {About::kVlan, holder + " carries VLAN " + std::to_string(info.vlan_id) + " already",
          "give another one: igdctl vlan free names one that is free", true, was_there};
}

Objection no_port_left(const WanProposal& proposal, const Surroundings& around) {
  const bool was_there =
      around.connection != nullptr && !proposal.changes("bind_wan") && !proposal.changes("class");
  return {About::kLastPort, "no port would be left to the household",
          "leave one out of bind_wan, or take one off another connection", true, was_there};
}

// Every port that the device has, as a mask.
int mask_of_all_ports(const Surroundings& around) {
  int mask = 0;
  for (const std::string& node : assignable_nodes(around.bridges)) {
    mask |= igd_tool_get_port_value(node);
  }
  return mask;
}

Objection words_for(int verdict, const WanProposal& proposal, const Surroundings& around) {
  switch (verdict) {
    case kIgdVlanTaken:
    case kIgdUntaggedTaken:
      return vlan_taken(proposal, around, verdict == kIgdUntaggedTaken);
    case kIgdRoutedBridgeLeavesNoPort:
    case kIgdBridgeLeavesNoPort:
      return no_port_left(proposal, around);
    case kIgdManagementExists:
      return {About::kManagement, "another connection carries the management service TR069 already",
              "give this one another service, or change that one first", true, false};
    default:
      return {About::kPort, "a port belongs to another connection",
              "igdctl wan ports shows which; leave it out, or take it off first", false, false};
  }
}

// A verdict adds nothing where igdctl's own check named who is in the way.
void ask_library(const WanProposal& proposal, const Surroundings& around,
                 std::vector<Objection>* objections, int* verdict) {
  api_wan_info copy = proposal.info;  // the check may change its vlan_id
  const int result =
      igd_verify_new_wan_info_valid(path_of(around), &copy, mask_of_all_ports(around));
  if (verdict != nullptr) *verdict = result;
  if (result == kIgdAcceptable) return;
  Objection objection = words_for(result, proposal, around);
  const bool told =
      std::any_of(objections->begin(), objections->end(),
                  [&objection](const Objection& other) { return other.about == objection.about; });
  if (!told) objections->push_back(std::move(objection));
}

// The library counts connections of a kind; that for management is none of those.
const char* why_it_stays(const std::string& service) {
  const auto carries = [&service](const char* word) {
    return service.find(word) != std::string::npos;
  };
  if (carries("INTERNET")) return " is the last one with the service INTERNET";
  if (carries("TR069") || carries("MME")) {
    return " stays: fewer than two connections carry anything but management";
  }
  return " is the last one that is not for management: its service would be gone";
}

}  // namespace

Surroundings read_surroundings(MibAccess& tree, const Connection* connection) {
  Surroundings around{connection, list_connections(tree), read_bridges(tree), {}};
  for (const ObjectType type : {kIpConnectionName, kPppConnectionName}) {
    for (const std::string& name : instances_below(kWanDeviceTable, type)) {
      const bool own = connection != nullptr && begins_with(name, connection->path);
      if (!own) around.object_names.insert(tree.getValue(name));
    }
  }
  return around;
}

std::vector<Objection> objections_to(const WanProposal& proposal, const Surroundings& around,
                                     int* verdict) {
  std::vector<Objection> objections;
  if (around.connection != nullptr && !around.connection->has_bridge()) {
    objections.push_back(no_bridge(*around.connection));
  }
  object_to_mode(proposal, around, &objections);
  // A routed connection gets the LAN bridge made by the library.
  if (!has_lan_bridge(around) && proposal.info.connection_class != kIgdRouted) {
    objections.push_back(no_lan_bridge());
  }
  object_to_ports(proposal, around, &objections);
  object_to_second_management(proposal, around, &objections);
  ask_library(proposal, around, &objections, verdict);
  return objections;
}

std::vector<Objection> objections_to_removal(const Connection& connection,
                                             const Surroundings& around) {
  std::vector<Objection> objections;
  if (!connection.has_bridge()) objections.push_back(no_bridge(connection));
  if (!has_lan_bridge(around)) objections.push_back(no_lan_bridge());
  if (igd_verify_can_remove_wan(connection.path) == 0) {
    objections.push_back(
        {About::kLastService,
         "connection " + in_quotes(title_of(connection)) + why_it_stays(connection.service),
         "make another one first", true, false});
  }
  return objections;
}

}  // namespace igdctl
