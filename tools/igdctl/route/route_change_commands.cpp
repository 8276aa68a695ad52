#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/change.h"
#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/addresses.h"
#include "gateway/connections.h"
#include "gateway/subnet.h"
#include "igd_api.h"
#include "route/route_commands.h"
#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

struct RouteOptions {
  std::string destination;
  std::string mask;
  std::string gateway;
  std::string connection;
  bool by_gateway = false;
  bool by_connection = false;
  bool disabled = false;
  ChangeOptions change;
};

std::vector<api_route_info> static_routes() {
  std::vector<api_route_info> routes;
  (void)igd_get_static_route_list(routes);
  return routes;
}

// The route with these two texts, as the library looks for it; null when there is none.
const api_route_info* find_route(const std::vector<api_route_info>& routes,
                                 const std::string& destination, const std::string& mask) {
  for (const api_route_info& route : routes) {
    if (route.dest_ip == destination && route.dest_mask == mask) return &route;
  }
  return nullptr;
}

void check_next(const RouteOptions& options, std::vector<Problem>* problems) {
  if (options.by_gateway == options.by_connection) {
    problems->push_back({options.by_gateway ? "the route has both a gateway and a connection"
                                            : "the route has neither a gateway nor a connection",
                         "give one of --gateway ADDRESS and --connection CONNECTION"});
  }
  std::uint32_t address = 0;
  if (!options.by_gateway) return;
  const bool valid = parse_ipv4(options.gateway, &address) && is_host_address(address);
  if (valid) return;
  problems->push_back({in_quotes(options.gateway) + " is not the address of a gateway",
                       "give the IPv4 address of a host, such as 192.0.2.1"});
}

// The route that the user wants; every problem that needs no tree is found at once.
api_route_info wanted_route(const RouteOptions& options) {
  std::vector<Problem> problems;
  Subnet subnet;
  const bool valid = read_subnet(options.destination, options.mask, &subnet, &problems);
  if (valid && subnet.has_host_bits()) {
    problems.push_back(
        {"the destination " + text_of(subnet) + " is not a network: it has host bits",
         "give its network, " + text_of({subnet.network(), subnet.mask})});
  }
  check_next(options, &problems);
  fail_on(problems);
  api_route_info route;
  route.dest_ip = text_of_ipv4(subnet.address);
  route.dest_mask = text_of_ipv4(subnet.mask);
  route.enable = options.disabled ? 0 : 1;
  route.route_type = options.by_gateway ? kIgdRouteByGateway : kIgdRouteByInterface;
  route.gateway = options.gateway;
  return route;
}

// The library finds the connection of a route by its name, and takes the first that has it.
void set_connection(const Connection& connection, api_route_info* route) {
  const bool found =
      !connection.name.empty() && igd_wan_get_id_by_name(connection.name) == connection.path;
  if (!found) {
    throw Failure(ExitCode::kRefused,
                  "a route refers to its connection by name, and " +
                      in_quotes(title_of(connection)) + " has no name of its own",
                  "name it with igdctl wan set " + connection.id + " --name NAME");
  }
  route->interface = connection.name;
}

bool is_same(const api_route_info& old, const api_route_info& route, const std::string& wan_path) {
  return old.enable == route.enable && old.route_type == route.route_type &&
         old.gateway == route.gateway && old.interface == wan_path;
}

void add(Session& session, const RouteOptions& options) {
  api_route_info route = wanted_route(options);
  const std::string destination = route.dest_ip + ' ' + route.dest_mask;
  Change change(session, options.change);
  const ChangeOutcome outcome = change.run("route add " + destination, [&] {
    MibAccess& tree = session.tree();
    std::string wan_path;
    if (options.by_connection) {
      const Connection connection = find_connection(tree, options.connection);
      set_connection(connection, &route);
      wan_path = connection.path;
    }
    const std::vector<api_route_info> routes = static_routes();
    const api_route_info* const old = find_route(routes, route.dest_ip, route.dest_mask);
    if (old != nullptr && is_same(*old, route, wan_path)) {
      change.makes_no_difference();
      return;
    }
    (void)igd_set_static_route(kIgdRouteSet, route);
  });
  change.report(outcome, "Set the route to " + destination);
}

[[noreturn]] void fail_without_route(const std::vector<api_route_info>& routes,
                                     const std::string& destination) {
  std::vector<std::string> names;
  for (const api_route_info& route : routes) {
    names.push_back(route.dest_ip + ' ' + route.dest_mask);
  }
  throw Failure(
      ExitCode::kNotFound, "there is no route to " + destination,
      names.empty() ? "there are no static routes" : "the routes are " + quoted_list(names));
}

// As the tree spells it, so that a route with an unusual text can go; else as a subnet.
api_route_info unwanted_route(const RouteOptions& options,
                              const std::vector<api_route_info>& routes) {
  const api_route_info* const literal = find_route(routes, options.destination, options.mask);
  if (literal != nullptr) return *literal;
  std::vector<Problem> problems;
  Subnet wanted;
  (void)read_subnet(options.destination, options.mask, &wanted, &problems);
  fail_on(problems);
  for (const api_route_info& route : routes) {
    Subnet subnet;
    const bool same = parse_subnet(route.dest_ip, route.dest_mask, &subnet) &&
                      subnet.address == wanted.address && subnet.mask == wanted.mask;
    if (same) return route;
  }
  fail_without_route(routes, text_of(wanted));
}

void remove(Session& session, const RouteOptions& options) {
  Change change(session, options.change);
  std::string destination;
  const ChangeOutcome outcome = change.run("route remove " + options.destination, [&] {
    (void)session.tree();
    const api_route_info route = unwanted_route(options, static_routes());
    destination = route.dest_ip + ' ' + route.dest_mask;
    (void)igd_set_static_route(kIgdRouteDelete, route);
  });
  change.report(outcome, "Removed the route to " + destination);
}

void clear(Session& session, const ChangeOptions& options) {
  Change change(session, options);
  std::size_t count = 0;
  const ChangeOutcome outcome = change.run("route clear", [&] {
    (void)session.tree();
    count = static_routes().size();
    if (count == 0) {
      change.makes_no_difference();
      return;
    }
    change.needs_consent("this removes all " + std::to_string(count) + " static routes");
    if (igd_clear_static_route() == 0) return;
    throw Failure(ExitCode::kPlatform, "the platform refused to clear the routes",
                  "igdctl route list shows what is left");
  });
  change.report(outcome, "Removed all static routes: " + std::to_string(count));
}

void add_destination(CLI::App& command, RouteOptions& options) {
  command
      .add_option("DESTINATION", options.destination,
                  "A network: 198.51.100.0/24, or its address followed by a mask")
      ->required();
  command.add_option("MASK", options.mask,
                     "255.255.255.0; only if the destination has no prefix length");
}

}  // namespace

void add_route_add(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "add", "Add a route, or change the one to the same network",
                  "route add 198.51.100.0/24 --gateway 192.0.2.1");
  const auto options = std::make_shared<RouteOptions>();
  add_destination(command, *options);
  CLI::Option* const gateway =
      command.add_option("--gateway", options->gateway, "Address of the next hop")
          ->type_name("ADDRESS");
  CLI::Option* const connection =
      command.add_option("--connection", options->connection, "The connection that carries it")
          ->type_name("CONNECTION");
  command.add_flag("--disabled", options->disabled, "Add the route disabled");
  add_change_options(command, session, options->change);
  command.callback([&session, options, gateway, connection] {
    options->by_gateway = gateway->count() > 0;
    options->by_connection = connection->count() > 0;
    session.on_run([&session, options] { add(session, *options); });
  });
}

void add_route_remove(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "remove", "Remove the route to a network", "route remove 198.51.100.0/24");
  const auto options = std::make_shared<RouteOptions>();
  add_destination(command, *options);
  add_change_options(command, session, options->change);
  command.callback(
      [&session, options] { session.on_run([&session, options] { remove(session, *options); }); });
}

void add_route_clear(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "clear", "Remove all static routes", "route clear --yes");
  const auto options = std::make_shared<ChangeOptions>();
  add_change_options(command, session, *options);
  command.callback(
      [&session, options] { session.on_run([&session, options] { clear(session, *options); }); });
}

}  // namespace igdctl
