#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "bridge/bridge_commands.h"
#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/bridge_names.h"
#include "gateway/bridges.h"
#include "gateway/connections.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "igd_c_api.h"
#include "igd_vocabulary.h"
#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

Json json_of(const Port& port, const std::vector<Connection>& connections) {
  return {{"port", port.node},
          {"path", port.path},
          {"pvid", port.pvid},
          {"bound_to", text_or_null(title_of_path(connections, port.depend_wan))},
          {"bound_to_path", text_or_null(port.depend_wan)},
          {"enabled", port.enabled}};
}

Json json_of(const Bridge& bridge, const std::vector<Connection>& connections) {
  Json ports = Json::array();
  for (const Port& port : bridge.ports) ports.push_back(json_of(port, connections));
  const Connection* const owner = owner_of(bridge, connections);
  return {{"name", bridge.name},
          {"path", bridge.path},
          {"lan", bridge.name == igd::kLanBridgeName},
          {"connection", owner == nullptr ? Json(nullptr) : Json(title_of(*owner))},
          {"connection_path", text_or_null(bridge.wan_path)},
          {"standard", bridge.standard},
          {"vlan", vlan_json(bridge)},
          {"priority", bridge.priority},
          {"enabled", bridge.enabled},
          {"ports", ports}};
}

// Its owner; also a connection that it names but that has another bridge, or is missing.
Cell owner_cell(const Bridge& bridge, const std::vector<Connection>& connections) {
  const Connection* const owner = owner_of(bridge, connections);
  if (owner != nullptr) return title_of(*owner);
  if (bridge.wan_path.empty()) return "";
  return {title_of_path(connections, bridge.wan_path) + " (see igdctl doctor)", Style::kWarning};
}

void list(Session& session) {
  MibAccess& tree = session.tree();
  const std::vector<Connection> connections = list_connections(tree);
  Json data = Json::array();
  Table table{{"BRIDGE", "CONNECTION", "STANDARD", "VLAN", "ENABLED", "PORTS"}, {}};
  for (const Bridge& bridge : read_bridges(tree)) {
    data.push_back(json_of(bridge, connections));
    table.rows.push_back({title_of(bridge), owner_cell(bridge, connections), bridge.standard,
                          vlan_text(bridge), switch_cell(bridge.enabled),
                          joined(nodes_of(bridge), " ")});
  }
  Output& output = session.output();
  if (output.json()) {
    output.document("bridge.list", data);
  } else if (table.rows.empty()) {
    output.done("There are no bridges");
  } else {
    output.table(table);
  }
}

Table port_table(const Bridge& bridge, const std::vector<Connection>& connections) {
  Table table{{"PORT", "VLAN", "BOUND TO", "ENABLED", "PATH"}, {}};
  for (const Port& port : bridge.ports) {
    table.rows.push_back({port.node, port.pvid, title_of_path(connections, port.depend_wan),
                          switch_cell(port.enabled), port.path});
  }
  return table;
}

void show(Session& session, const std::string& selector) {
  MibAccess& tree = session.tree();
  const std::vector<Bridge> bridges = read_bridges(tree);
  const Bridge& bridge = find_bridge(bridges, selector);
  const std::vector<Connection> connections = list_connections(tree);
  Output& output = session.output();
  if (output.json()) {
    output.document("bridge.show", json_of(bridge, connections));
    return;
  }
  output.table({{},
                {{"name", bridge.name},
                 {"path", bridge.path},
                 {"connection", owner_cell(bridge, connections)},
                 {"standard", bridge.standard},
                 {"VLAN", vlan_text(bridge)},
                 {"priority", bridge.priority},
                 {"enabled", switch_cell(bridge.enabled)}}});
  if (bridge.ports.empty()) return;
  output.line("");
  output.table(port_table(bridge, connections));
}

bool has_port(const Bridge& bridge, const std::string& node) {
  return std::any_of(bridge.ports.begin(), bridge.ports.end(),
                     [&node](const Port& port) { return port.node == node; });
}

// A port ("LAN1"), a device of the system ("eth1.100"), or the path of a connection.
std::vector<const Bridge*> bridges_of(const std::vector<Bridge>& bridges,
                                      const std::string& interface) {
  std::string device_bridge;
  (void)igd_wan_get_bridge_info_from_phy(interface, &device_bridge, nullptr);
  const bool is_path = begins_with(interface, igd::kRootObject);
  const std::string served = is_path ? igd_get_bridge_info(interface) : std::string();
  std::vector<const Bridge*> found;
  for (const Bridge& bridge : bridges) {
    const bool joined_here = has_port(bridge, interface) || bridge.path == device_bridge ||
                             (!served.empty() && bridge.name == served) ||
                             igd_c_check_belong_bridge(bridge.name.c_str(), interface.c_str()) != 0;
    if (joined_here) found.push_back(&bridge);
  }
  return found;
}

[[noreturn]] void fail_unjoined(const std::vector<Bridge>& bridges, const std::string& interface) {
  std::vector<std::string> nodes;
  for (const Bridge& bridge : bridges) {
    for (const std::string& node : nodes_of(bridge)) {
      if (std::find(nodes.begin(), nodes.end(), node) == nodes.end()) nodes.push_back(node);
    }
  }
  throw Failure(ExitCode::kNotFound, "no bridge has the interface " + in_quotes(interface),
                did_you_mean(interface, nodes,
                             "give a port (" + joined(nodes, ", ") +
                                 "), a device such as eth1.100, or the path of a connection"));
}

void of(Session& session, const std::string& interface) {
  MibAccess& tree = session.tree();
  // A device without a row in the node table has an empty name, and would match.
  if (interface.empty()) {
    throw Failure(ExitCode::kBadInput, "the interface is empty",
                  "give a port such as LAN1, or a device");
  }
  const std::vector<Bridge> bridges = read_bridges(tree);
  const std::vector<const Bridge*> found = bridges_of(bridges, interface);
  if (found.empty()) fail_unjoined(bridges, interface);
  const std::vector<Connection> connections = list_connections(tree);
  Json data = {{"interface", interface}, {"bridges", Json::array()}};
  Table table{{"BRIDGE", "CONNECTION", "VLAN", "PATH"}, {}};
  for (const Bridge* const bridge : found) {
    data["bridges"].push_back(json_of(*bridge, connections));
    table.rows.push_back(
        {title_of(*bridge), owner_cell(*bridge, connections), vlan_text(*bridge), bridge->path});
  }
  Output& output = session.output();
  if (output.json()) {
    output.document("bridge.of", data);
  } else {
    output.table(table);
  }
}

}  // namespace

void add_bridge_list(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "list", "List the bridges, one per line", "bridge list");
  command.callback([&session] { session.on_run([&session] { list(session); }); });
}

void add_bridge_show(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "show", "Show one bridge and its ports", "bridge show internet");
  const auto selector = std::make_shared<std::string>();
  add_bridge_argument(command, *selector);
  command.callback(
      [&session, selector] { session.on_run([&session, selector] { show(session, *selector); }); });
}

void add_bridge_of(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "of", "Show which bridges an interface belongs to", "bridge of LAN1");
  const auto interface = std::make_shared<std::string>();
  command
      .add_option("INTERFACE", *interface,
                  "A port (LAN1), a device (eth1.100), or the path of a connection")
      ->required();
  command.callback([&session, interface] {
    session.on_run([&session, interface] { of(session, *interface); });
  });
}

}  // namespace igdctl
