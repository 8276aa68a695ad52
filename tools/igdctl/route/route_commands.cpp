#include "route/route_commands.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/connections.h"
#include "gateway/subnet.h"
#include "igd_api.h"

namespace igdctl {

namespace {

Json text_or_null(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Json json_of(const api_route_info& route, const std::vector<Connection>& connections) {
  Subnet subnet;
  const bool valid = parse_subnet(route.dest_ip, route.dest_mask, &subnet);
  return {{"destination", route.dest_ip},
          {"mask", route.dest_mask},
          {"prefix", valid ? Json(prefix_length(subnet.mask)) : Json(nullptr)},
          {"via", route.route_type == kIgdRouteByGateway ? "gateway" : "connection"},
          {"gateway", text_or_null(route.gateway)},
          {"connection", text_or_null(title_of_path(connections, route.interface))},
          {"connection_path", text_or_null(route.interface)},
          {"enabled", route.enable != 0}};
}

std::string destination_of(const api_route_info& route) {
  Subnet subnet;
  const bool valid = parse_subnet(route.dest_ip, route.dest_mask, &subnet);
  return valid ? text_of(subnet) : route.dest_ip + ' ' + route.dest_mask;
}

std::vector<Cell> row_of(const api_route_info& route, const std::vector<Connection>& connections) {
  const bool enabled = route.enable != 0;
  const bool by_gateway = route.route_type == kIgdRouteByGateway;
  return {destination_of(route),
          by_gateway ? "gateway" : "connection",
          by_gateway ? route.gateway : title_of_path(connections, route.interface),
          {enabled ? "on" : "off", enabled ? Style::kGood : Style::kMuted}};
}

void list(Session& session) {
  MibAccess& tree = session.tree();
  const std::vector<Connection> connections = list_connections(tree);
  std::vector<api_route_info> routes;
  (void)igd_get_static_route_list(routes);
  Json data = Json::array();
  Table table{{"DESTINATION", "VIA", "NEXT", "ENABLED"}, {}};
  for (const api_route_info& route : routes) {
    data.push_back(json_of(route, connections));
    table.rows.push_back(row_of(route, connections));
  }
  Output& output = session.output();
  if (output.json()) {
    output.document("route.list", data);
  } else if (table.rows.empty()) {
    output.done("There are no static routes. Make one with igdctl route add");
  } else {
    output.table(table);
  }
}

}  // namespace

void add_route_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "route", "Static routes: see, add, remove");
  CLI::App& command = add_command(group, "list", "One line for each static route", "route list");
  command.callback([&session] { session.on_run([&session] { list(session); }); });
  add_route_add(group, session);
  add_route_remove(group, session);
  add_route_clear(group, session);
}

}  // namespace igdctl
