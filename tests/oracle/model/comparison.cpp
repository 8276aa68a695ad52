#include "comparison.h"

#include <unordered_map>

#include "igd_api.h"
#include "shown.h"

namespace model {
namespace {

using Parameters = std::vector<std::pair<std::string, std::string>>;

constexpr const char* kManagement[] = {"URL",
                                       "Username",
                                       "Password",
                                       "ConnectionRequestURL",
                                       "ConnectionRequestUsername",
                                       "ConnectionRequestPassword"};

std::string object_of(const std::string& parameter) {
  return parameter.substr(0, parameter.rfind('.') + 1);
}

std::string unequal(const std::string& what, const std::string& is, const std::string& expected) {
  return is == expected ? "" : what + " is \"" + is + "\", expected \"" + expected + '"';
}

/// Which objects there are, by the names of one kind.
std::string objects_differ(const std::vector<std::string>& is, const Names& expected) {
  return unequal("the list of objects", shown(is), shown(expected));
}

std::string different_objects(const State& state, const host::Tree& tree) {
  Names uplinks, connections, ip_objects, ppp_objects, bridges;
  for (const auto& [number, uplink] : state.uplinks) {
    uplinks.push_back(uplink_path(number) + "WANCommonInterfaceConfig.WANAccessType");
  }
  for (const auto& [id, connection] : state.connections) {
    connections.push_back(path_of(id));
    ip_objects.push_back(object_path(id, kStatic) + "AddressingType");
    ip_objects.push_back(object_path(id, kDhcp) + "AddressingType");
    ppp_objects.push_back(object_path(id, kPpp));
  }
  for (const auto& [number, bridge] : state.bridges) {
    bridges.push_back(bridge_path(number) + "BridgeName");
  }
  const std::pair<int, const Names*> lists[] = {{kWanAccessType, &uplinks},
                                                {kWanConnectionDevice, &connections},
                                                {kAddressingType, &ip_objects},
                                                {kPppConnection, &ppp_objects},
                                                {kBridgeName, &bridges}};
  for (const auto& [type, expected] : lists) {
    const std::string found = objects_differ(tree.instances(type), *expected);
    if (!found.empty()) return found;
  }
  return {};
}

/// Ports have no numbers in the model: what counts is their order in their bridge.
std::string different_ports(const State& state, const host::Tree& tree) {
  Names is, expected;
  for (const std::string& parameter : tree.instances(kPortInterface)) {
    const std::size_t start = bridge_path(1).size() - 2;
    const std::string bridge = parameter.substr(start, parameter.find('.', start) - start);
    is.push_back(bridge + ':' + tree.value(parameter));
  }
  for (const auto& [number, bridge] : state.bridges) {
    for (const Port& port : bridge.ports) {
      expected.push_back(std::to_string(number) + ':' + port.node);
    }
  }
  return unequal("which bridge has which port", shown(is), shown(expected));
}

void add(Parameters& all, const std::string& path, const Texts& texts) {
  for (const auto& [name, value] : texts) all.emplace_back(path + name, value);
}

void add_connections(Parameters& all, const State& state) {
  const Texts mapping = {{"PortMappingProtocol", "ALL"}, {"PortMappingDescription", "DMZ"}};
  for (const auto& [id, connection] : state.connections) {
    add(all, path_of(id), connection.flags);
    add(all, path_of(id) + "WANEthernetLinkConfig.", connection.link);
    for (const Kind kind : kKinds) {
      add(all, object_path(id, kind), connection.objects[kind]);
      add(all, object_path(id, kind) + "PortMapping.1.", mapping);
    }
  }
  for (const auto& [number, uplink] : state.uplinks) {
    all.emplace_back(uplink_path(number) + "WANCommonInterfaceConfig.WANAccessType", uplink.access);
  }
}

void add_bridges(Parameters& all, const State& state, const host::Tree& tree) {
  const std::vector<std::string> ports = tree.instances(kPortInterface);
  std::size_t i = 0;
  for (const auto& [number, bridge] : state.bridges) {
    add(all, bridge_path(number),
        {{"BridgeName", bridge.name},
         {"BridgeStandard", bridge.standard},
         {"VLANID", bridge.vlan},
         {"X_ZYN_VLANPriority", bridge.priority},
         {"X_ZYN_WANName", bridge.wan},
         {"BridgeEnable", "true"}});
    for (const Port& port : bridge.ports) {
      add(all, object_of(ports[i++]),
          {{"PortInterface", port.node},
           {"PVID", port.vlan},
           {"PortOption60", port.option60},
           {"X_ZYN_DependWanName", port.wan},
           {"PortEnable", port.enabled ? "true" : "false"}});
    }
  }
}

void add_routes(Parameters& all, const State& state, const host::Tree& tree) {
  const std::vector<std::string> routes = tree.instances(kForwardingDestIpAddress);
  for (std::size_t i = 0; i < routes.size(); ++i) {
    const Route& route = state.routes[i];
    add(all, object_of(routes[i]),
        {{"DestIPAddress", route.destination},
         {"DestSubnetMask", route.netmask},
         {"Interface", route.interface},
         {"GatewayIPAddress", route.gateway},
         {"X_ZYN_RouteTable", route.table},
         {"Enable", route.enabled ? "true" : "false"}});
  }
}

/// All that the model knows, by full name. The objects must be those of the model.
Parameters expected_parameters(const State& state, const host::Tree& tree) {
  Parameters all;
  add_connections(all, state);
  add_bridges(all, state, tree);
  add_routes(all, state, tree);
  for (std::size_t i = 0; i < state.management.size(); ++i) {
    all.emplace_back(std::string("InternetGatewayDevice.ManagementServer.") + kManagement[i],
                     state.management[i]);
  }
  return all;
}

std::string paths_of(const Entry& entry, const std::string& path) {
  std::string all = path + ' ' + entry.bridge_name + ' ' + bridge_path(entry.own_bridge) + ' ' +
                    bridge_path(entry.lan_bridge) + " internet";
  for (const Kind kind : kKinds) all += ' ' + object_path(entry.objects[kind], kind);
  return all + ' ' + std::to_string(entry.connect_class);
}

std::string different_memory(const State& state) {
  std::string is, expected;
  for (const auto& [path, entry] : g_wan_mibinfo_cache_list) {
    is += path + ": " + entry->wan_path + ' ' + entry->bridge_name + ' ' + entry->wan_bridge_path +
          ' ' + entry->lan_bridge_path + ' ' + entry->lan_bridge_name + ' ' + entry->static_path +
          ' ' + entry->dhcp_path + ' ' + entry->ppp_path + ' ' +
          std::to_string(entry->connect_class) + '\n';
  }
  for (const auto& [path, entry] : state.remembered) {
    expected += path + ": " + paths_of(entry, path) + '\n';
  }
  const std::string found = unequal("what is remembered", is, expected);
  if (!found.empty()) return found;
  return g_l3_ifname_table == state.l3_names ? "" : "the names of layer-3 interfaces differ";
}

std::string different_refusals(const State& state, const host::Tree& tree) {
  const bool refused = !tree.refusals().empty();
  if (refused == state.refused) return {};
  if (!refused) return "the tree was expected to refuse a call, and refused none";
  const host::Refusal& first = tree.refusals().front();
  return "the tree refused " + first.call + ' ' + first.name + ": " + first.reason;
}

bool is_ours(const std::string& name) {
  for (const char* part : {"WANDevice.", "Layer2Bridging.Bridge.", "Layer3Forwarding.Forwarding.",
                           "ManagementServer."}) {
    if (begins_with(name, std::string("InternetGatewayDevice.") + part)) return true;
  }
  return false;
}

}  // namespace

std::string difference(const State& state, const host::Tree& tree) {
  std::string found = different_objects(state, tree);
  if (found.empty()) found = different_ports(state, tree);
  if (!found.empty()) return found;
  const std::size_t routes = tree.instances(kForwardingDestIpAddress).size();
  if (routes != state.routes.size()) return "there are " + std::to_string(routes) + " routes";
  for (const auto& [name, value] : expected_parameters(state, tree)) {
    found = unequal(name, tree.value(name), value);
    if (!found.empty()) return found;
  }
  found = different_memory(state);
  return found.empty() ? different_refusals(state, tree) : found;
}

std::string difference_anywhere(const State& state, const host::Tree& tree) {
  static const host::Tree factory = host::Tree::factory();
  std::unordered_map<std::string, std::string> expected;
  for (const auto& [name, value] : expected_parameters(state, tree)) expected[name] = value;
  for (const host::Parameter& parameter : tree.parameters()) {
    const std::optional<host::ParameterInfo> info = tree.describe(parameter.name);
    if (info->derived) continue;
    const auto known = expected.find(parameter.name);
    const bool unwritten = known == expected.end();
    const std::string stays =
        is_ours(parameter.name) ? info->initial : factory.value(parameter.name);
    const std::string found =
        unequal(parameter.name, parameter.value, unwritten ? stays : known->second);
    if (!found.empty()) return found;
  }
  return {};
}

}  // namespace model
