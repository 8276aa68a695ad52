#include "port_rules.h"

#include <algorithm>
#include <map>

#include "harness.h"
#include "igd_api.h"

namespace fuzz {
namespace {

using Names = std::vector<std::string>;

std::string object_of(const std::string& parameter) {
  return parameter.substr(0, parameter.rfind('.') + 1);
}

bool is_among(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// The ports through which connections enter their own bridges.
bool is_uplink(const std::string& node) {
  return node == "LAN0" || node == "3G0" || node == "WIFIW0";
}

bool is_bound(const Holding& holding, const std::string& path) { return holding.bound == path; }

bool is_own(const Holding& holding, const std::string& path) {
  return holding.owner == path && !is_uplink(holding.node);
}

bool is_free(const Holding& holding) {
  return holding.bridge_name == "internet" && holding.bound.empty();
}

bool has_lan_bridge(const host::Tree& tree) {
  const Names names = tree.instances(kBridgeName);
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& name) { return tree.value(name) == "internet"; });
}

std::string shown(const Holding& holding) {
  return holding.node + " in " + holding.bridge_name + " for \"" + holding.bound + '"';
}

void require_released(const std::string& path, const Holdings& before, const Holdings& after,
                      const Names& kept) {
  for (const Holding& held : before) {
    if (!is_bound(held, path) && !is_own(held, path)) continue;
    if (is_uplink(held.node) || is_among(kept, held.node)) continue;
    std::string places;
    for (const Holding& now : after) {
      if (now.node == held.node) places += is_free(now) ? "free" : shown(now);
    }
    require_same(places, "free", "a port that was given up is back in the LAN bridge, once");
  }
}

}  // namespace

Holdings holdings_of(const host::Tree& tree) {
  Holdings all;
  for (const std::string& parameter : tree.instances(kPortInterface)) {
    const std::string bridge = parameter.substr(0, parameter.find(".Port.") + 1);
    all.push_back({tree.value(parameter), tree.value(bridge + "BridgeName"),
                   tree.value(bridge + "X_ZYN_WANName"),
                   tree.value(object_of(parameter) + "X_ZYN_DependWanName")});
  }
  return all;
}

bool is_tidy(const Holdings& holdings) {
  std::map<std::string, int> times;
  for (const Holding& holding : holdings) {
    const bool enters = is_uplink(holding.node) && !holding.owner.empty();
    if (!enters && ++times[holding.node] > 1) return false;
  }
  return true;
}

void require_removed(const std::string& path, const Holdings& before, const host::Tree& tree) {
  const auto owns = [&](const Holding& held) { return held.owner == path; };
  // Without a bridge of its own a connection takes the ports of all with it.
  if (std::none_of(before.begin(), before.end(), owns)) return;
  require(!tree.has_object(path), "a connection goes");
  for (const int type : {kPortDependWanName, kBridgeWanName, kForwardingInterface}) {
    for (const std::string& name : tree.instances(type)) {
      require_same(tree.value(name) == path ? name : "", "",
                   "a removed connection is named nowhere");
    }
  }
  require(g_wan_mibinfo_cache_list.count(path) == 0, "a removed connection is forgotten");
  if (!has_lan_bridge(tree) || !is_tidy(before)) return;
  require_released(path, before, holdings_of(tree), {});
}

void require_held(const std::string& path, const api_wan_info& info, const Holdings& before,
                  const host::Tree& tree) {
  Names kept = info.bind_lan;
  kept.insert(kept.end(), info.bind_wan.begin(), info.bind_wan.end());
  Names own = info.bind_wan;
  own.erase(std::remove_if(own.begin(), own.end(), is_uplink), own.end());
  Names bound = info.bind_lan;
  Names is_own_now, is_bound_now;
  const Holdings after = holdings_of(tree);
  for (const Holding& now : after) {
    if (is_own(now, path)) is_own_now.push_back(now.node);
    if (is_bound(now, path)) is_bound_now.push_back(now.node);
    require(!is_free(now) || !is_among(kept, now.node), "a port that is taken is not free as well");
  }
  for (Names* const names : {&own, &bound, &is_own_now, &is_bound_now}) {
    std::sort(names->begin(), names->end());
  }
  require(is_own_now == own, "the own bridge has the ports of the description, and no others");
  require(is_bound_now == bound, "the LAN bridge has those bound there, and no others");
  require_released(path, before, after, kept);
}

}  // namespace fuzz
