#include "gateway/bridge_names.h"

#include <nlohmann/json.hpp>

#include "igd_vocabulary.h"
#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

[[noreturn]] void fail_unknown(const std::vector<Bridge>& bridges, const std::string& selector) {
  std::vector<std::string> titles;
  for (const Bridge& bridge : bridges) titles.push_back(title_of(bridge));
  const std::string all =
      titles.empty() ? "there are no bridges" : "the bridges are " + quoted_list(titles);
  throw Failure(ExitCode::kNotFound, "there is no bridge " + in_quotes(selector),
                did_you_mean(selector, titles, all));
}

bool vlan_of(const Bridge& bridge, long* vlan) {
  return bridge.standard == igd::kTaggedStandard &&
         parse_number(bridge.vlan, igd::kLowestVlan, igd::kHighestVlan, vlan);
}

}  // namespace

const Bridge& find_bridge(const std::vector<Bridge>& bridges, const std::string& selector) {
  std::vector<const Bridge*> meant;
  std::vector<std::string> paths;
  for (const Bridge& bridge : bridges) {
    const bool matches =
        bridge.name == selector || bridge.path == selector || bridge.path == selector + '.';
    if (selector.empty() || !matches) continue;
    meant.push_back(&bridge);
    paths.push_back(bridge.path);
  }
  if (meant.empty()) fail_unknown(bridges, selector);
  if (meant.size() > 1) {
    throw Failure(ExitCode::kBadInput, in_quotes(selector) + " names several bridges",
                  "give the path of one: " + joined(paths, ", "));
  }
  return *meant.front();
}

const Bridge* find_lan_bridge(const std::vector<Bridge>& bridges) {
  for (const Bridge& bridge : bridges) {
    if (bridge.name == igd::kLanBridgeName) return &bridge;
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

std::string vlan_text(const Bridge& bridge) {
  long vlan = 0;
  return vlan_of(bridge, &vlan) ? std::to_string(vlan) : "untagged";
}

Json vlan_json(const Bridge& bridge) {
  long vlan = 0;
  return vlan_of(bridge, &vlan) ? Json(vlan) : Json(nullptr);
}

}  // namespace igdctl
