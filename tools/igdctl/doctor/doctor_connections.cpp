#include <algorithm>
#include <map>

#include "doctor/doctor_rules.h"
#include "term/text.h"

namespace igdctl {

namespace {

std::string quoted_title(const ConnectionState& state) {
  return in_quotes(title_of(state.connection));
}

std::string wan_set(const Snapshot& snapshot, const ConnectionState& state,
                    const std::string& options) {
  return "wan set " + word_of(snapshot, state.connection) + ' ' + options +
         consent_for(snapshot, state);
}

// A bridge that names the connection under another name can be its bridge again.
std::string fix_of_missing_bridge(const Snapshot& snapshot, const ConnectionState& state) {
  for (const Bridge& bridge : snapshot.bridges) {
    if (bridge.wan_path != state.connection.path || bridge.name == kLanBridge) continue;
    return "tree set " + bridge.path + "BridgeName " + shell_word(state.connection.bridge_name);
  }
  return "bridge create " + word_of(snapshot, state.connection) + consent_for(snapshot, state);
}

void examine_bridge(const Snapshot& snapshot, const ConnectionState& state, Findings* findings) {
  if (state.connection.has_bridge()) return;
  findings->push_back({"connection-without-bridge",
                       state.connection.path,
                       "connection " + quoted_title(state) + " has no bridge " +
                           in_quotes(state.connection.bridge_name),
                       "changing or removing it as it is would act on the ports of every bridge",
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
         "only one counts, and which one differs between reading and status",
         {wan_set(snapshot, state, "--mode " + modes.front())}});
  }
}

bool is_vlan_taken(const Snapshot& snapshot, long vlan) {
  return std::any_of(snapshot.bridges.begin(), snapshot.bridges.end(),
                     [vlan](const Bridge& bridge) { return bridge.vlan == std::to_string(vlan); });
}

// Gives out free VLANs, each once.
class FreeVlans {
 public:
  explicit FreeVlans(const Snapshot& snapshot) : snapshot_(snapshot) {}
  std::string next() {
    while (is_vlan_taken(snapshot_, vlan_)) ++vlan_;
    return std::to_string(vlan_++);
  }

 private:
  static constexpr long kFirst = 1000;
  const Snapshot& snapshot_;
  long vlan_ = kFirst;
};

std::string vlan_of(const Snapshot& snapshot, const Connection& connection) {
  constexpr long kLargestVlan = 4095;
  long number = 0;
  for (const Bridge& bridge : snapshot.bridges) {
    if (bridge.path != connection.bridge_path) continue;
    (void)parse_number(bridge.vlan, 0, kLargestVlan, &number);
  }
  return std::to_string(number);
}

void examine_vlans(const Snapshot& snapshot, Findings* findings) {
  std::map<std::string, const ConnectionState*> first;
  FreeVlans free(snapshot);
  for (const ConnectionState& state : snapshot.connections) {
    if (!state.connection.has_bridge()) continue;
    const std::string vlan = vlan_of(snapshot, state.connection);
    const auto [holder, is_first] = first.emplace(vlan, &state);
    if (is_first) continue;
    const std::string tag = vlan == "0" ? "no VLAN" : "VLAN " + vlan;
    findings->push_back({"vlan-twice",
                         state.connection.bridge_path,
                         "connections " + quoted_title(*holder->second) + " and " +
                             quoted_title(state) + " both have " + tag,
                         "their frames cannot be told apart, and the checks refuse changes to both",
                         {wan_set(snapshot, state, "--vlan " + free.next())}});
  }
}

void examine_marks(const Snapshot& snapshot, Findings* findings) {
  std::map<unsigned int, const ConnectionState*> first;
  for (const ConnectionState& state : snapshot.connections) {
    const auto [holder, is_first] = first.emplace(state.mark, &state);
    if (is_first) continue;
    const std::string words = word_of(snapshot, state.connection);
    findings->push_back({"mark-twice",
                         state.connection.path,
                         "connections " + quoted_title(*holder->second) + " and " +
                             quoted_title(state) + " both have the packet mark " +
                             std::to_string(state.mark),
                         "packets of one go the way of the other; keep the description of the one "
                         "that goes with igdctl wan show " +
                             words + " --json --show-secrets",
                         {"wan remove " + words + consent_for(snapshot, state)}});
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
                         "whoever asks for it by name gets the first",
                         {wan_set(snapshot, state, "--name=" + shell_word(new_name))}});
  }
}

// What a service list carries beside the management service.
std::string other_services(const ConnectionState& state) {
  std::vector<std::string> others;
  for (const std::string& word : split_list(state.connection.service)) {
    if (!word.empty() && !carries_management(word)) others.push_back(word);
  }
  return others.empty() ? "OTHER" : joined(others, ",");
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
         "the gateway is to be managed through one; the checks let no other take it over",
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
  examine_vlans(snapshot, findings);
  examine_marks(snapshot, findings);
  examine_names(snapshot, findings);
  examine_management(snapshot, findings);
}

}  // namespace igdctl
