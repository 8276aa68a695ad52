#include <algorithm>

#include "doctor/doctor_rules.h"
#include "gateway/bridge_names.h"
#include "igd_vocabulary.h"
#include "term/text.h"

namespace igdctl {

namespace {

std::string quoted_title(const Bridge& bridge) { return in_quotes(title_of(bridge)); }

std::string quoted_title(const Connection& connection) { return in_quotes(title_of(connection)); }

Finding orphan(const Snapshot& snapshot, const Bridge& bridge) {
  const std::string whose =
      bridge.wan_path.empty()
          ? "names no connection"
          : "names the connection " + in_quotes(bridge.wan_path) + ", which does not exist";
  return {"orphan-bridge",
          bridge.path,
          "the bridge " + quoted_title(bridge) + ' ' + whose,
          "its ports serve no connection, and its VLAN counts as taken",
          {"bridge remove " + selector_of(snapshot, bridge)}};
}

Finding linked_lan_bridge(const Bridge& bridge) {
  return {"misnamed-bridge",
          bridge.path,
          "the LAN bridge names the connection " + in_quotes(bridge.wan_path),
          "every LAN port counts as a port of that connection",
          {"tree set " + bridge.path + "X_ZYN_WANName ''"}};
}

// Of several bridges that name one connection only the first can get its name.
bool has_namesake_before(const Snapshot& snapshot, const Bridge& bridge) {
  for (const Bridge& other : snapshot.bridges) {
    if (other.path == bridge.path) return false;
    if (other.wan_path == bridge.wan_path) return true;
  }
  return false;
}

// A connection needs one bridge under its own name; any other one is of no use.
Finding misnamed(const Snapshot& snapshot, const Bridge& bridge, const Connection& connection) {
  const std::string message = "the bridge " + quoted_title(bridge) + " names connection " +
                              quoted_title(connection) + ", whose bridge is " +
                              in_quotes(connection.bridge_name);
  const bool is_spare = connection.has_bridge() || has_namesake_before(snapshot, bridge);
  const std::string fix =
      is_spare ? "bridge remove " + selector_of(snapshot, bridge)
               : "tree set " + bridge.path + "BridgeName " + shell_word(connection.bridge_name);
  return {"misnamed-bridge",
          bridge.path,
          message,
          "a bridge belongs to a connection only if both its X_ZYN_WANName and its name say so",
          {fix}};
}

// Where a port most likely belongs: with the connection that owns a bridge it is in, else in the
// LAN bridge.
const Bridge& best_bridge(const Snapshot& snapshot, const std::vector<const Bridge*>& bridges) {
  for (const Bridge* const bridge : bridges) {
    const ConnectionState* const state = find_path(snapshot, bridge->wan_path);
    if (state != nullptr && state->connection.bridge_path == bridge->path) return *bridge;
  }
  const Bridge* const lan = find_lan_bridge(snapshot.bridges);
  return lan != nullptr ? *lan : *bridges.front();
}

bool is_household_node(const std::string& node) { return !node.empty() && !is_shared_node(node); }

std::string consent_of(const Snapshot& snapshot, const std::vector<const Bridge*>& bridges) {
  for (const Bridge* const bridge : bridges) {
    const ConnectionState* const state = find_path(snapshot, bridge->wan_path);
    if (state != nullptr && carries_management(*state)) return consent_for(snapshot, *state);
  }
  return {};
}

// The bridges that hold a port, once for each time that they do.
std::vector<const Bridge*> bridges_with(const Snapshot& snapshot, const std::string& node) {
  std::vector<const Bridge*> bridges;
  for (const Bridge& bridge : snapshot.bridges) {
    for (const Port& port : bridge.ports) {
      if (port.node == node) bridges.push_back(&bridge);
    }
  }
  return bridges;
}

// The same for every finding about a port, so that none undoes the fix of another.
std::string fix_of(const Snapshot& snapshot, const std::string& node) {
  const std::vector<const Bridge*> bridges = bridges_with(snapshot, node);
  return "bridge move " + shell_word(node) + ' ' +
         selector_of(snapshot, best_bridge(snapshot, bridges)) + consent_of(snapshot, bridges);
}

void examine_node(const Snapshot& snapshot, const Port& port, Findings* findings) {
  const std::vector<const Bridge*> bridges = bridges_with(snapshot, port.node);
  if (bridges.size() < 2) return;
  std::vector<std::string> titles;
  for (const Bridge* const bridge : bridges) titles.push_back(quoted_title(*bridge));
  findings->push_back(
      {"port-in-two-bridges",
       port.path,
       "the port " + in_quotes(port.node) + " is in the bridges " + joined(titles, " and "),
       "checks look only at the first, and frames pass between the bridges",
       {fix_of(snapshot, port.node)}});
}

void examine_binding(const Snapshot& snapshot, const Port& port, Findings* findings) {
  if (port.depend_wan.empty() || find_path(snapshot, port.depend_wan) != nullptr) return;
  const bool can_move =
      find_lan_bridge(snapshot.bridges) != nullptr && is_household_node(port.node);
  findings->push_back({"stale-binding",
                       port.path,
                       "the port " + in_quotes(port.node) + " is bound to the connection " +
                           in_quotes(port.depend_wan) + ", which does not exist",
                       "it reaches nothing, and no connection can use it",
                       {can_move ? fix_of(snapshot, port.node)
                                 : "tree set " + port.path + "X_ZYN_DependWanName ''"}});
}

}  // namespace

void examine_bridges(const Snapshot& snapshot, Findings* findings) {
  for (const Bridge& bridge : snapshot.bridges) {
    if (bridge.name == igd::kLanBridgeName) {
      if (!bridge.wan_path.empty()) findings->push_back(linked_lan_bridge(bridge));
      continue;
    }
    const ConnectionState* const state = find_path(snapshot, bridge.wan_path);
    if (state == nullptr) {
      findings->push_back(orphan(snapshot, bridge));
    } else if (state->connection.bridge_path != bridge.path) {
      findings->push_back(misnamed(snapshot, bridge, state->connection));
    }
  }
}

void examine_ports(const Snapshot& snapshot, Findings* findings) {
  std::vector<std::string> seen;
  for (const Bridge& bridge : snapshot.bridges) {
    for (const Port& port : bridge.ports) {
      const bool known = std::find(seen.begin(), seen.end(), port.node) != seen.end();
      if (known || !is_household_node(port.node)) continue;
      seen.push_back(port.node);
      examine_node(snapshot, port, findings);
    }
  }
  for (const Bridge& bridge : snapshot.bridges) {
    for (const Port& port : bridge.ports) examine_binding(snapshot, port, findings);
  }
}

}  // namespace igdctl
