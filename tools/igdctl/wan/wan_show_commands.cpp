#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/secrets.h"
#include "igd_api.h"
#include "term/text.h"
#include "wan/wan_commands.h"
#include "wan/wan_description.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

std::string vlan_words(const api_wan_info& info) {
  return info.vlan_enable != 0 ? std::to_string(info.vlan_id) : "untagged";
}

std::string switch_word(const std::string& text) { return text == "true" ? "on" : "off"; }

std::string port_options_of(const api_wan_info& info) {
  std::vector<std::string> parts;
  for (const auto& [port, option60] : info.port_option60) {
    parts.emplace_back(port).append("=").append(option60);
  }
  return joined(parts, " ");
}

std::vector<Cell> list_row(const Connection& connection, const api_wan_info& info) {
  const bool enabled = info.wan_enable == "true";
  return {info.wan_info_name,
          connection.id,
          word_of_class(info.connection_class),
          word_of_mode(info.connect_mode),
          vlan_words(info),
          info.service_type,
          joined(info.bind_lan, " "),
          joined(info.bind_wan, " "),
          {enabled ? "on" : "off", enabled ? Style::kGood : Style::kMuted}};
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
    output.done("There are no connections. Make one with igdctl wan create");
  } else {
    output.table(table);
  }
}

Table description_table(const Connection& connection, const api_wan_info& info, bool show_secrets) {
  return {{},
          {{"name", info.wan_info_name},
           {"id", connection.id},
           {"path", connection.path},
           {"access", connection.access},
           {"enabled", switch_word(info.wan_enable)},
           {"class", word_of_class(info.connection_class)},
           {"mode", word_of_mode(info.connect_mode)},
           {"service", info.service_type},
           {"VLAN", vlan_words(info)},
           {"priority", std::to_string(info.vlan_priority)},
           {"bridge", connection.has_bridge() ? connection.bridge_name : ""},
           {"LAN ports", joined(info.bind_lan, " ")},
           {"own ports", joined(info.bind_wan, " ")},
           {"NAT", info.nat_mode == 1 ? "on" : "off"},
           {"user", info.pppoe_user_name},
           {"password", shown_secret(info.pppoe_password, show_secrets)},
           {"address", info.ip_addr},
           {"mask", info.ip_mask},
           {"gateway", info.ip_gw},
           {"DNS", joined(dns_servers_of(info), " ")},
           {"MTU", mtu_of(info)},
           {"option 60", info.dhcp_option60},
           {"port option 60", port_options_of(info)},
           {"remote management", switch_word(info.wan_remote_management_enable)},
           {"STP", switch_word(info.stp_enable)}}};
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
    output.table(description_table(connection, info, show_secrets));
  }
}

}  // namespace

void add_wan_list(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "list", "One line for each connection", "wan list");
  command.callback([&session] { session.on_run([&session] { list(session); }); });
}

void add_wan_show(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "show", "Everything about one connection", "wan show Internet");
  const auto words = std::make_shared<std::string>();
  add_connection_argument(command, *words);
  command.callback(
      [&session, words] { session.on_run([&session, words] { show(session, *words); }); });
}

}  // namespace igdctl
