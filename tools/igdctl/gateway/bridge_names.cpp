#include "gateway/bridge_names.h"

#include <nlohmann/json.hpp>

#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr long kHighestVlan = 4095;

[[noreturn]] void fail_unknown(const std::vector<Bridge>& bridges, const std::string& words) {
  std::vector<std::string> titles;
  for (const Bridge& bridge : bridges) titles.push_back(title_of(bridge));
  std::vector<std::string> near = near_names(words, titles);
  const bool found_near = !near.empty();
  if (!found_near) near = titles;
  for (std::string& name : near) name = in_quotes(name);
  std::string hint = "there is none at all";
  if (found_near) hint = "did you mean " + joined(near, " or ") + "?";
  if (!found_near && !near.empty()) hint = "there are " + joined(near, ", ");
  throw Failure(ExitCode::kNotFound, "there is no bridge " + in_quotes(words), hint);
}

bool vlan_of(const Bridge& bridge, long* vlan) {
  return bridge.standard == "802.1Q" && parse_number(bridge.vlan, 1, kHighestVlan, vlan);
}

}  // namespace

const Bridge& find_bridge(const std::vector<Bridge>& bridges, const std::string& words) {
  std::vector<const Bridge*> meant;
  std::vector<std::string> paths;
  for (const Bridge& bridge : bridges) {
    const bool matches = bridge.name == words || bridge.path == words || bridge.path == words + '.';
    if (words.empty() || !matches) continue;
    meant.push_back(&bridge);
    paths.push_back(bridge.path);
  }
  if (meant.empty()) fail_unknown(bridges, words);
  if (meant.size() > 1) {
    throw Failure(ExitCode::kBadInput, in_quotes(words) + " means several bridges",
                  "name one by its path: " + joined(paths, ", "));
  }
  return *meant.front();
}

const Bridge* find_lan_bridge(const std::vector<Bridge>& bridges) {
  for (const Bridge& bridge : bridges) {
    if (bridge.name == kLanBridge) return &bridge;
  }
  return nullptr;
}

const Connection* owner_of(const Bridge& bridge, const std::vector<Connection>& connections) {
  for (const Connection& connection : connections) {
    if (connection.bridge_path == bridge.path) return &connection;
  }
  return nullptr;
}

std::string title_of(const Bridge& bridge) {
  return bridge.name.empty() ? bridge.path : bridge.name;
}

std::string vlan_words(const Bridge& bridge) {
  long vlan = 0;
  return vlan_of(bridge, &vlan) ? std::to_string(vlan) : "untagged";
}

Json vlan_json(const Bridge& bridge) {
  long vlan = 0;
  return vlan_of(bridge, &vlan) ? Json(vlan) : Json(nullptr);
}

}  // namespace igdctl
