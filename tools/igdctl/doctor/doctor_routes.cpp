#include <algorithm>
#include <optional>

#include "doctor/doctor_rules.h"
#include "gateway/addresses.h"
#include "gateway/subnet.h"
#include "term/text.h"

namespace igdctl {

namespace {

bool is_missing(const Snapshot& snapshot, const std::string& wan_path) {
  return !wan_path.empty() && find_path(snapshot, wan_path) == nullptr;
}

// As igdctl route remove takes it, also when the texts are no addresses.
std::string destination_argument(const RouteState& route) {
  Subnet subnet;
  return parse_subnet(route.destination, route.mask, &subnet)
             ? text_of(subnet)
             : shell_word(route.destination) + ' ' + shell_word(route.mask);
}

std::string quoted_destination(const RouteState& route) {
  Subnet subnet;
  return in_quotes(parse_subnet(route.destination, route.mask, &subnet)
                       ? text_of(subnet)
                       : route.destination + ' ' + route.mask);
}

std::string removal_of(const RouteState& route) {
  return "route remove " + destination_argument(route);
}

// A route through a gateway works without its link; one through a connection has nothing else.
std::optional<Finding> broken_link(const Snapshot& snapshot, const RouteState& route) {
  const std::string title = "the route to " + quoted_destination(route);
  const bool by_gateway = !route.gateway.empty();
  const bool stale = is_missing(snapshot, route.interface);
  const std::string missing = stale ? route.interface : route.table;
  if (stale || (route.interface.empty() && is_missing(snapshot, route.table))) {
    const std::string parameter = stale ? "Interface" : "X_ZYN_RouteTable";
    return Finding{"route-to-missing-connection",
                   route.path,
                   title + " names the connection " + in_quotes(missing) + ", which does not exist",
                   by_gateway ? "a connection created at that path later would take it over"
                              : "it leads nowhere",
                   {by_gateway ? "tree set " + route.path + parameter + " ''" : removal_of(route)}};
  }
  if (by_gateway || !route.interface.empty() || !route.table.empty()) return std::nullopt;
  return Finding{"route-to-nowhere",
                 route.path,
                 title + " has neither a gateway nor a connection",
                 "it leads nowhere",
                 {removal_of(route)}};
}

bool has_twin(const Snapshot& snapshot, const std::string& address, const std::string& mask) {
  return std::any_of(snapshot.routes.begin(), snapshot.routes.end(), [&](const RouteState& route) {
    return route.destination == address && route.mask == mask;
  });
}

std::string addition_of(const Snapshot& snapshot, const RouteState& route, const Subnet& network) {
  const ConnectionState* const state = find_path(snapshot, route.interface);
  if (route.gateway.empty() && state == nullptr) return {};
  const std::string next = route.gateway.empty()
                               ? "--connection " + selector_of(snapshot, state->connection)
                               : "--gateway " + shell_word(route.gateway);
  return "route add " + text_of(network) + ' ' + next + (route.enabled ? "" : " --disabled");
}

void examine_host_bits(const Snapshot& snapshot, const RouteState& route, const Subnet& subnet,
                       Findings* findings) {
  if (!subnet.has_host_bits()) return;
  const Subnet network = {subnet.network(), subnet.mask};
  std::vector<std::string> fixes = {removal_of(route)};
  const bool twin = has_twin(snapshot, text_of_ipv4(network.address), text_of_ipv4(network.mask));
  const std::string addition = twin ? std::string() : addition_of(snapshot, route, network);
  if (!addition.empty()) fixes.push_back(addition);
  findings->push_back({"route-with-host-bits", route.path,
                       "the route to " + quoted_destination(route) +
                           " names a host instead of the network " + text_of(network),
                       "the system refuses such a route, so it is not in effect", fixes});
}

void examine_destination(const Snapshot& snapshot, const RouteState& route, Findings* findings) {
  Subnet subnet;
  if (parse_subnet(route.destination, route.mask, &subnet)) {
    return examine_host_bits(snapshot, route, subnet, findings);
  }
  findings->push_back({"malformed-route",
                       route.path,
                       "the route to " + quoted_destination(route) + " has no valid network",
                       "the system refuses such a route, so it is not in effect",
                       {removal_of(route)}});
}

}  // namespace

void examine_routes(const Snapshot& snapshot, Findings* findings) {
  for (const RouteState& route : snapshot.routes) {
    const std::optional<Finding> broken = broken_link(snapshot, route);
    if (broken) findings->push_back(*broken);
    const bool is_to_be_removed = broken && route.gateway.empty();
    if (!is_to_be_removed) examine_destination(snapshot, route, findings);
  }
}

}  // namespace igdctl
