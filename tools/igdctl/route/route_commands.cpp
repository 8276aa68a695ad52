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
  const bool by_gateway = route.route_type == kIgdRouteByGateway;
  return {destination_of(route), by_gateway ? "gateway" : "connection",
          by_gateway ? route.gateway : title_of_path(connections, route.interface),
          switch_cell(route.enable != 0)};
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
    output.done("There are no static routes. Add one with igdctl route add");
  } else {
    output.table(table);
  }
}

}  // namespace

void add_route_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "route", "Show and change the static routes");
  CLI::App& command =
      add_command(group, "list", "List the static routes, one per line", "route list");
  command.callback([&session] { session.on_run([&session] { list(session); }); });
  add_route_add(group, session);
  add_route_remove(group, session);
  add_route_clear(group, session);
}

}  // namespace igdctl
