#include "doctor/doctor.h"

#include <algorithm>
#include <string_view>

#include "doctor/doctor_rules.h"
#include "term/text.h"

namespace igdctl {

namespace {

bool is_plain(const std::string& text) {
  constexpr std::string_view kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./,:=@%+-";
  return !text.empty() && text.find_first_not_of(kPlain) == std::string::npos;
}

bool is_plain_argument(const std::string& text) { return is_plain(text) && text.front() != '-'; }

}  // namespace

std::string shell_word(const std::string& text) {
  if (is_plain(text)) return text;
  std::string quoted = "'";
  for (const char letter : text) {
    if (letter == '\'') {
      quoted += "'\\''";
    } else {
      quoted += letter;
    }
  }
  return quoted + '\'';
}

std::string selector_of(const Snapshot& snapshot, const Connection& connection) {
  for (const std::string* const selector : {&connection.name, &connection.id}) {
    const auto selected = std::count_if(snapshot.connections.begin(), snapshot.connections.end(),
                                        [selector](const ConnectionState& state) {
                                          return is_selected_by(state.connection, *selector);
                                        });
    if (selected == 1 && is_plain_argument(*selector)) return *selector;
  }
  return connection.path;
}

std::string selector_of(const Snapshot& snapshot, const Bridge& bridge) {
  const auto namesakes =
      std::count_if(snapshot.bridges.begin(), snapshot.bridges.end(),
                    [&bridge](const Bridge& other) { return other.name == bridge.name; });
  return namesakes == 1 && is_plain_argument(bridge.name) ? bridge.name : bridge.path;
}

const ConnectionState* find_path(const Snapshot& snapshot, const std::string& path) {
  for (const ConnectionState& state : snapshot.connections) {
    if (state.connection.path == path) return &state;
  }
  return nullptr;
}

bool carries_management(const ConnectionState& state) {
  return std::any_of(state.services.begin(), state.services.end(),
                     [](const std::string& list) { return carries_management(list); });
}

std::string consent_for(const Snapshot& snapshot, const ConnectionState& state) {
  if (!carries_management(state)) return {};
  return snapshot.has_store ? " --confirm 300" : " --yes";
}

std::vector<Finding> examine(const Snapshot& snapshot) {
  Findings findings;
  examine_bridges(snapshot, &findings);
  examine_ports(snapshot, &findings);
  examine_connections(snapshot, &findings);
  examine_shared(snapshot, &findings);
  examine_routes(snapshot, &findings);
  return findings;
}

}  // namespace igdctl
