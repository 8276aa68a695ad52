#include <algorithm>
#include <map>
#include <optional>

#include "doctor/doctor_rules.h"
#include "gateway/bridge_names.h"
#include "igd_vocabulary.h"
#include "term/text.h"

namespace igdctl {

namespace {

std::string quoted_title(const ConnectionState& state) {
  return in_quotes(title_of(state.connection));
}

std::string wan_set(const Snapshot& snapshot, const ConnectionState& state,
                    const std::string& options) {
  return "wan set " + selector_of(snapshot, state.connection) + ' ' + options +
         consent_for(snapshot, state);
}

// A bridge that names the connection but has another name needs only its name back.
std::string fix_of_missing_bridge(const Snapshot& snapshot, const ConnectionState& state) {
  for (const Bridge& bridge : snapshot.bridges) {
    if (bridge.wan_path != state.connection.path || bridge.name == igd::kLanBridgeName) continue;
    return "tree set " + bridge.path + "BridgeName " + shell_word(state.connection.bridge_name);
  }
  return "bridge create " + selector_of(snapshot, state.connection) + consent_for(snapshot, state);
}

void examine_bridge(const Snapshot& snapshot, const ConnectionState& state, Findings* findings) {
  if (state.connection.has_bridge()) return;
  findings->push_back({"connection-without-bridge",
                       state.connection.path,
                       "connection " + quoted_title(state) + " has no bridge " +
                           in_quotes(state.connection.bridge_name),
                       "changing or removing it would affect the ports of every bridge",
                       {fix_of_missing_bridge(snapshot, state)}});
}

void examine_objects(const Snapshot& snapshot, const ConnectionState& state, Findings* findings) {
  const std::vector<std::string>& modes = state.enabled_modes;
  if (modes.empty()) {
    findings->push_back({"no-enabled-object",
                         state.connection.path,
                         "connection " + quoted_title(state) + " has no enabled object",
                         "it gets no address in any mode",
                         {wan_set(snapshot, state, "--mode dhcp")}});
  } else if (modes.size() > 1) {
    findings->push_back(
        {"several-enabled-objects",
         state.connection.path,
         "connection " + quoted_title(state) + " is enabled for " + joined(modes, " and "),
         "only one counts, and wan show and wan status differ on which",
         {wan_set(snapshot, state, "--mode " + modes.front())}});
  }
}

// Gives out free VLANs, each once.
class FreeVlans {
 public:
  explicit FreeVlans(const Snapshot& snapshot) : snapshot_(snapshot) {}
  std::string next() {
    while (is_taken(std::to_string(vlan_))) ++vlan_;
    return std::to_string(vlan_++);
  }

 private:
  bool is_taken(const std::string& vlan) const {
    return std::any_of(snapshot_.bridges.begin(), snapshot_.bridges.end(),
                       [&vlan](const Bridge& bridge) { return bridge.vlan == vlan; });
  }

  const Snapshot& snapshot_;
  int vlan_ = igd::kFirstSearchedVlan;
};

// 0 for an untagged bridge; none when the text is not a VLAN.
std::optional<long> vlan_of(const Bridge& bridge) {
  long vlan = 0;
  const bool valid = bridge.vlan.empty() || parse_number(bridge.vlan, 0, igd::kHighestVlan, &vlan);
  return valid ? std::optional<long>(vlan) : std::nullopt;
}

const Bridge* own_bridge(const Snapshot& snapshot, const ConnectionState& state) {
  if (!state.connection.has_bridge()) return nullptr;
  for (const Bridge& bridge : snapshot.bridges) {
    if (bridge.path == state.connection.bridge_path) return &bridge;
  }
  return nullptr;
}

Finding bad_vlan(const Bridge& bridge, const std::string& fix) {
  return {"bad-vlan",
          bridge.path,
          "the bridge " + in_quotes(title_of(bridge)) + " has the VLAN " + in_quotes(bridge.vlan),
          "VLANs end at " + std::to_string(igd::kHighestVlan) + ", so its frames reach no one",
          {fix}};
}

// Bridges that belong to no connection are to be removed or renamed first.
void examine_vlan_of_lan(const Snapshot& snapshot, Findings* findings) {
  const Bridge* const lan = find_lan_bridge(snapshot.bridges);
  if (lan == nullptr || vlan_of(*lan)) return;
  findings->push_back(bad_vlan(*lan, "tree set " + lan->path + "VLANID 0"));
}

void examine_vlans(const Snapshot& snapshot, Findings* findings) {
  std::map<long, const ConnectionState*> first;
  FreeVlans free(snapshot);
  for (const ConnectionState& state : snapshot.connections) {
    const Bridge* const bridge = own_bridge(snapshot, state);
    if (bridge == nullptr) continue;
    const std::optional<long> vlan = vlan_of(*bridge);
    if (!vlan) {
      findings->push_back(bad_vlan(*bridge, wan_set(snapshot, state, "--vlan " + free.next())));
      continue;
    }
    const auto [holder, is_first] = first.emplace(*vlan, &state);
    if (is_first) continue;
    const std::string tag = *vlan == 0 ? "no VLAN" : "VLAN " + bridge->vlan;
    findings->push_back({"vlan-twice",
                         bridge->path,
                         "connections " + quoted_title(*holder->second) + " and " +
                             quoted_title(state) + " both have " + tag,
                         "their frames cannot be told apart, and checks refuse changes to both",
                         {wan_set(snapshot, state, "--vlan " + free.next())}});
  }
}

void examine_marks(const Snapshot& snapshot, Findings* findings) {
  std::map<unsigned int, const ConnectionState*> first;
  for (const ConnectionState& state : snapshot.connections) {
    const auto [holder, is_first] = first.emplace(state.mark, &state);
    if (is_first) continue;
    const std::string selector = selector_of(snapshot, state.connection);
    findings->push_back(
        {"mark-twice",
         state.connection.path,
         "connections " + quoted_title(*holder->second) + " and " + quoted_title(state) +
             " both have the packet mark " + std::to_string(state.mark),
         "packets of one take the route of the other; before you remove one, save its "
         "description with igdctl wan show " +
             selector + " --json --show-secrets",
         {"wan remove " + selector + consent_for(snapshot, state)}});
  }
}

std::string unused_name(const Snapshot& snapshot, const std::string& name) {
  for (int number = 2;; ++number) {
    std::string candidate = name + std::to_string(number);
    const bool taken = std::any_of(
        snapshot.connections.begin(), snapshot.connections.end(),
        [&candidate](const ConnectionState& one) { return one.connection.name == candidate; });
    if (!taken) return candidate;
  }
}

void examine_names(const Snapshot& snapshot, Findings* findings) {
  std::map<std::string, const ConnectionState*> first;
  for (const ConnectionState& state : snapshot.connections) {
    const std::string& name = state.connection.name;
    if (name.empty() || first.emplace(name, &state).second) continue;
    const std::string new_name = unused_name(snapshot, name);
    findings->push_back({"name-twice",
                         state.connection.path,
                         "several connections are named " + in_quotes(name),
                         "selecting one by name always finds the first",
                         {wan_set(snapshot, state, "--name=" + shell_word(new_name))}});
  }
}

// The services that a connection keeps when it gives up the management service.
std::string other_services(const ConnectionState& state) {
  std::vector<std::string> others;
  for (const std::string& word : split_list(state.connection.service)) {
    if (!word.empty() && !carries_management(word)) others.push_back(word);
  }
  return others.empty() ? igd::kOtherService : joined(others, ",");
}

void examine_management(const Snapshot& snapshot, Findings* findings) {
  const ConnectionState* first = nullptr;
  for (const ConnectionState& state : snapshot.connections) {
    if (!carries_management(state)) continue;
    if (first == nullptr) {
      first = &state;
      continue;
    }
    findings->push_back(
        {"management-twice",
         state.connection.path,
         "connections " + quoted_title(*first) + " and " + quoted_title(state) +
             " both carry the management service",
         "the gateway is managed through one connection; checks refuse a second one",
         {wan_set(snapshot, state, "--service " + shell_word(other_services(state)))}});
  }
}

}  // namespace

void examine_connections(const Snapshot& snapshot, Findings* findings) {
  for (const ConnectionState& state : snapshot.connections) {
    examine_bridge(snapshot, state, findings);
    examine_objects(snapshot, state, findings);
  }
}

void examine_shared(const Snapshot& snapshot, Findings* findings) {
  examine_vlan_of_lan(snapshot, findings);
  examine_vlans(snapshot, findings);
  examine_marks(snapshot, findings);
  examine_names(snapshot, findings);
  examine_management(snapshot, findings);
}

}  // namespace igdctl
