#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "bridge/bridge_commands.h"
#include "bridge/bridge_repair.h"
#include "cli/change.h"
#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/bridge_names.h"
#include "gateway/management.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "term/failure.h"
#include "term/text.h"
#include "wan/wan_description.h"

namespace igdctl {

namespace {

struct CreateOptions {
  std::string connection;
  ChangeOptions change;
};

struct RemoveOptions {
  std::string bridge;
  ChangeOptions change;
};

struct MoveOptions {
  std::string port;
  std::string bridge;
  ChangeOptions change;
};

// Another bridge that names the connection, under a name that is not its own.
const Bridge* misnamed_bridge(const std::vector<Bridge>& bridges, const Connection& connection) {
  for (const Bridge& bridge : bridges) {
    if (bridge.wan_path == connection.path && bridge.path != connection.bridge_path) return &bridge;
  }
  return nullptr;
}

std::string renaming_of(const Bridge& bridge, const Connection& connection) {
  return "igdctl tree set " + bridge.path + "BridgeName " + connection.bridge_name;
}

void create(Session& session, const CreateOptions& options) {
  Change change(session, options.change);
  Connection connection;
  std::string path;
  const ChangeOutcome outcome = change.run("bridge create " + options.connection, [&] {
    MibAccess& tree = session.tree();
    connection = find_connection(tree, options.connection);
    if (connection.has_bridge()) {
      path = connection.bridge_path;
      change.makes_no_difference();
      return;
    }
    const std::vector<Bridge> bridges = read_bridges(tree);
    const Bridge* const misnamed = misnamed_bridge(bridges, connection);
    if (misnamed != nullptr) {
      throw Failure(ExitCode::kRefused,
                    "the bridge " + in_quotes(title_of(*misnamed)) +
                        " belongs to this connection, but has the wrong name",
                    "rename it with " + renaming_of(*misnamed, connection));
    }
    if (carries_management(connection.service)) {
      change.needs_consent(management_reason(title_of(connection)));
    }
    path = make_own_bridge(tree, connection);
  });
  change.report(outcome, "Created the bridge " + in_quotes(connection.bridge_name), path);
}

void refuse_bridges_in_use(Change& change, const Bridge& bridge,
                           const std::vector<Connection>& connections) {
  if (bridge.name == igd::kLanBridgeName) {
    throw Failure(ExitCode::kRefused, "the LAN bridge cannot be removed",
                  "move ports out of it with igdctl bridge move");
  }
  for (const Connection& connection : connections) {
    if (connection.path != bridge.wan_path) continue;
    if (connection.bridge_path == bridge.path) {
      throw Failure(ExitCode::kRefused,
                    in_quotes(title_of(bridge)) + " is the bridge of connection " +
                        in_quotes(title_of(connection)),
                    "remove both with igdctl wan remove " + connection.id);
    }
    if (connection.has_bridge()) continue;
    change.override_or_fail(
        "connection " + in_quotes(title_of(connection)) + " has no other bridge",
        "rename this one with " + renaming_of(bridge, connection));
  }
}

void remove(Session& session, const RemoveOptions& options) {
  Change change(session, options.change);
  std::string title;
  const ChangeOutcome outcome = change.run("bridge remove " + options.bridge, [&] {
    MibAccess& tree = session.tree();
    const std::vector<Bridge> bridges = read_bridges(tree);
    const Bridge& bridge = find_bridge(bridges, options.bridge);
    title = title_of(bridge);
    refuse_bridges_in_use(change, bridge, list_connections(tree));
    take_bridge_away(tree, bridge, bridges);
  });
  change.report(outcome, "Removed the bridge " + in_quotes(title));
}

void check_port(const std::vector<Bridge>& bridges, const std::string& node) {
  if (is_shared_node(node)) {
    throw Failure(ExitCode::kBadInput,
                  in_quotes(node) + " is shared by several bridges and cannot be moved",
                  "give a LAN or WLAN port: " + joined(assignable_nodes(bridges), ", "));
  }
  const std::vector<std::string> nodes = assignable_nodes(bridges);
  if (std::find(nodes.begin(), nodes.end(), node) != nodes.end()) return;
  throw Failure(ExitCode::kNotFound, "there is no port " + in_quotes(node),
                did_you_mean(node, nodes, "the ports are " + joined(nodes, ", ")));
}

// The connections that lose the port or get it.
std::vector<Connection> affected_by(const std::vector<Connection>& connections,
                                    const std::vector<Bridge>& bridges, const std::string& node,
                                    const Bridge& target) {
  std::vector<Connection> affected;
  const std::vector<Port> ports = ports_with_node(bridges, node);
  for (const Connection& connection : connections) {
    const bool concerned =
        connection.bridge_path == target.path ||
        std::any_of(ports.begin(), ports.end(), [&connection](const Port& port) {
          return port.depend_wan == connection.path || port.bridge_path == connection.bridge_path;
        });
    if (concerned) affected.push_back(connection);
  }
  return affected;
}

void move(Session& session, const MoveOptions& options) {
  Change change(session, options.change);
  std::string title;
  const ChangeOutcome outcome = change.run("bridge move " + options.port, [&] {
    MibAccess& tree = session.tree();
    const std::vector<Bridge> bridges = read_bridges(tree);
    check_port(bridges, options.port);
    const Bridge& target = find_bridge(bridges, options.bridge);
    title = title_of(target);
    if (is_in_place(options.port, target, bridges)) {
      change.makes_no_difference();
      return;
    }
    const std::vector<Connection> affected =
        affected_by(list_connections(tree), bridges, options.port, target);
    for (const Connection& connection : affected) {
      if (carries_management(connection.service)) {
        change.needs_consent(management_reason(title_of(connection)));
      }
    }
    move_port(tree, options.port, target, bridges);
    // Each connection notes its ports a second time.
    for (const Connection& connection : affected) {
      api_wan_info info = read_description(tree, connection);
      saveLanInterfaceToWanNode(connection.path, &info);
    }
  });
  change.report(outcome, "Moved " + options.port + " to the bridge " + in_quotes(title));
}

}  // namespace

void add_bridge_create(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "create", "Create the bridge that a connection lacks",
                                  "bridge create Internet");
  const auto options = std::make_shared<CreateOptions>();
  add_connection_argument(command, options->connection);
  add_change_options(command, session, options->change);
  command.callback(
      [&session, options] { session.on_run([&session, options] { create(session, *options); }); });
}

void add_bridge_remove(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "remove", "Remove a bridge that no connection owns",
                                  "bridge remove br_1_9");
  const auto options = std::make_shared<RemoveOptions>();
  add_bridge_argument(command, options->bridge);
  add_change_options(command, session, options->change);
  add_force_option(command, options->change);
  command.callback(
      [&session, options] { session.on_run([&session, options] { remove(session, *options); }); });
}

void add_bridge_move(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "move", "Move a port to one bridge, out of all others",
                                  "bridge move LAN1 internet");
  const auto options = std::make_shared<MoveOptions>();
  command.add_option("PORT", options->port, "A LAN or WLAN port, such as LAN1")->required();
  add_bridge_argument(command, options->bridge);
  add_change_options(command, session, options->change);
  command.callback(
      [&session, options] { session.on_run([&session, options] { move(session, *options); }); });
}

}  // namespace igdctl
