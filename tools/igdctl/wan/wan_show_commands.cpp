#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "term/text.h"
#include "wan/fields.h"
#include "wan/wan_commands.h"
#include "wan/wan_description.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

std::vector<Cell> list_row(const Connection& connection, const api_wan_info& info) {
  const bool enabled = is_true(info.wan_enable);
  return {info.wan_info_name,
          connection.id,
          word_of_class(info.connection_class),
          word_of_mode(info.connect_mode),
          info.vlan_enable != 0 ? std::to_string(info.vlan_id) : "untagged",
          info.service_type,
          joined(info.bind_lan, " "),
          joined(info.bind_wan, " "),
          switch_cell(enabled)};
}

void list(Session& session) {
  MibAccess& tree = session.tree();
  Json data = Json::array();
  Table table{
      {"NAME", "ID", "CLASS", "MODE", "VLAN", "SERVICE", "LAN PORTS", "OWN PORTS", "ENABLED"}, {}};
  for (const Connection& connection : list_connections(tree)) {
    const api_wan_info info = read_description(tree, connection);
    data.push_back(json_of(connection, info, session.options.show_secrets));
    table.rows.push_back(list_row(connection, info));
  }
  Output& output = session.output();
  if (output.json()) {
    output.document("wan.list", data);
  } else if (table.rows.empty()) {
    output.done("There are no connections. Create one with igdctl wan create");
  } else {
    output.table(table);
  }
}

void show(Session& session, const std::string& words) {
  MibAccess& tree = session.tree();
  const Connection connection = find_connection(tree, words);
  const api_wan_info info = read_description(tree, connection);
  const bool show_secrets = session.options.show_secrets;
  Output& output = session.output();
  if (output.json()) {
    output.document("wan.show", json_of(connection, info, show_secrets));
  } else {
    output.table(table_of(connection, info, show_secrets));
  }
}

}  // namespace

void add_wan_list(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "list", "List the connections, one per line", "wan list");
  command.callback([&session] { session.on_run([&session] { list(session); }); });
}

void add_wan_show(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "show", "Show all settings of a connection", "wan show Internet");
  const auto words = std::make_shared<std::string>();
  add_connection_argument(command, *words);
  command.callback(
      [&session, words] { session.on_run([&session, words] { show(session, *words); }); });
}

}  // namespace igdctl
