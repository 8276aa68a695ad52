#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/bridges.h"
#include "gateway/connections.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "term/text.h"
#include "wan/wan_commands.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

// All connections, or the one that is named.
std::vector<Connection> chosen(Session& session, const std::string& words) {
  MibAccess& tree = session.tree();
  if (words.empty()) return list_connections(tree);
  return {find_connection(tree, words)};
}

Json json_of(const Connection& connection, const api_wan_status& status) {
  const std::string mode = word_of_mode(status.connect_mode);
  return {{"path", connection.path},
          {"id", connection.id},
          {"name", connection.name},
          {"connected", status.connected == 1},
          {"mode", mode.empty() ? Json() : Json(mode)},
          {"mac_address", status.mac_address},
          {"service", split_list(status.service_list)},
          {"connection_type", status.connection_type},
          {"address", status.ip_addr},
          {"mask", status.ip_mask},
          {"gateway", status.ip_gw},
          {"dns", split_list(status.ip_dns)},
          {"bytes_sent", status.bytes_sent},
          {"bytes_received", status.bytes_received},
          {"packets_sent", status.packets_sent},
          {"packets_received", status.packets_received},
          {"uptime", status.uptime},
          {"last_error", status.last_connection_error}};
}

Cell state_of(const api_wan_status& status) {
  if (status.connect_mode == 0) return {"off", Style::kMuted};
  if (status.connected == 1) return {"connected", Style::kGood};
  return {"not connected", Style::kBad};
}

std::vector<Cell> row_of(const Connection& connection, const api_wan_status& status) {
  return {connection.name,       connection.id,
          state_of(status),      word_of_mode(status.connect_mode),
          status.ip_addr,        status.ip_gw,
          status.uptime,         status.bytes_sent,
          status.bytes_received, status.last_connection_error};
}

void show_status(Session& session, const std::string& words) {
  Json data = Json::array();
  Table table{{"NAME", "ID", "STATE", "MODE", "ADDRESS", "GATEWAY", "UPTIME", "SENT", "RECEIVED",
               "LAST ERROR"},
              {}};
  for (const Connection& connection : chosen(session, words)) {
    api_wan_status status;
    (void)igd_wan_status(connection.path, &status);
    data.push_back(json_of(connection, status));
    table.rows.push_back(row_of(connection, status));
  }
  Output& output = session.output();
  if (output.json()) {
    output.document("wan.status", data);
  } else if (table.rows.empty()) {
    output.done("There are no connections. Create one with igdctl wan create");
  } else {
    output.table(table);
  }
}

struct PortUse {
  std::string how;         // "bind_lan", "bind_wan", "uplink", "free"
  std::string connection;  // path; "" for a free port
};

PortUse use_of(const Bridge& bridge, const Port& port) {
  if (!bridge.wan_path.empty()) {
    return {igd::is_wan_side_port(port.node) ? "uplink" : "bind_wan", bridge.wan_path};
  }
  if (!port.depend_wan.empty()) return {"bind_lan", port.depend_wan};
  return {"free", ""};
}

Json json_of(const Bridge& bridge, const Port& port, const PortUse& use, const std::string& title) {
  return {{"port", port.node},
          {"use", use.how},
          {"connection", title.empty() ? Json() : Json(title)},
          {"connection_path", title.empty() ? Json() : Json(use.connection)},
          {"bridge", bridge.name},
          {"path", port.path},
          {"pvid", port.pvid},
          {"enabled", port.enabled}};
}

void show_ports(Session& session, const std::string& words) {
  MibAccess& tree = session.tree();
  const std::string wanted = words.empty() ? "" : find_connection(tree, words).path;
  const std::vector<Connection> connections = list_connections(tree);
  Json data = Json::array();
  Table table{{"PORT", "USE", "CONNECTION", "BRIDGE", "PVID", "ENABLED"}, {}};
  for (const Bridge& bridge : read_bridges(tree)) {
    for (const Port& port : bridge.ports) {
      const PortUse use = use_of(bridge, port);
      if (!wanted.empty() && use.connection != wanted) continue;
      const std::string title = title_of_path(connections, use.connection);
      table.rows.push_back(
          {port.node, use.how, title, bridge.name, port.pvid, switch_cell(port.enabled)});
      data.push_back(json_of(bridge, port, use, title));
    }
  }
  Output& output = session.output();
  if (output.json()) {
    output.document("wan.ports", data);
  } else if (table.rows.empty()) {
    output.done("There are no ports");
  } else {
    output.table(table);
  }
}

using Work = void (*)(Session&, const std::string&);

void add_work(CLI::App& command, Session& session, Work work) {
  const auto words = std::make_shared<std::string>();
  command.add_option("CONNECTION", *words, "Only this connection: its name, path, or <d>.<c>");
  command.callback([&session, words, work] {
    session.on_run([&session, words, work] { work(session, *words); });
  });
}

}  // namespace

void add_wan_status(CLI::App& group, Session& session) {
  add_work(
      add_command(group, "status", "Show whether connections are up, their addresses and counters",
                  "wan status Internet"),
      session, show_status);
}

void add_wan_ports(CLI::App& group, Session& session) {
  add_work(add_command(group, "ports", "Show which port belongs to which connection", "wan ports"),
           session, show_ports);
}

}  // namespace igdctl
