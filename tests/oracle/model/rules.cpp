#include "rules.h"

#include <algorithm>
#include <map>

#include "igd_api.h"
#include "state.h"

namespace model {
namespace {

std::string object_of(const std::string& parameter) {
  return parameter.substr(0, parameter.rfind('.') + 1);
}

Holdings holdings_of(const host::Tree& tree) {
  Holdings all;
  for (const std::string& parameter : tree.instances(kPortInterface)) {
    const std::string bridge = parameter.substr(0, parameter.find(".Port.") + 1);
    all.push_back({tree.value(parameter), bridge, tree.value(bridge + "BridgeName"),
                   tree.value(bridge + "X_ZYN_WANName"),
                   tree.value(object_of(parameter) + "X_ZYN_DependWanName")});
  }
  return all;
}

/// No port stands twice.
bool is_tidy(const Holdings& holdings) {
  std::map<std::string, int> times;
  for (const Holding& holding : holdings) {
    if (!is_uplink_port(holding.node) && ++times[holding.node] > 1) return false;
  }
  return true;
}

bool has_lan_bridge(const host::Tree& tree) {
  for (const std::string& name : tree.instances(kBridgeName)) {
    if (tree.value(name) == "internet") return true;
  }
  return false;
}

bool is_bound(const Holding& holding, const std::string& path) { return holding.bound == path; }

bool is_own(const Holding& holding, const std::string& path) {
  return holding.owner == path && !is_uplink_port(holding.node);
}

bool is_free(const Holding& holding) {
  return holding.bridge_name == "internet" && holding.bound.empty();
}

std::string shown(const Holding& holding) {
  return holding.node + " in " + holding.bridge_name + " for \"" + holding.bound + '"';
}

/// Ports that a connection held before, and that it is not to hold any more.
std::string not_released(const std::string& path, const Holdings& before, const Holdings& after,
                         const Names& kept, RuleCounts& counts) {
  for (const Holding& held : before) {
    const bool was_held = is_bound(held, path) || is_own(held, path);
    if (!was_held || is_uplink_port(held.node) || is_among(kept, held.node)) continue;
    ++counts.released;
    int free = 0;
    for (const Holding& now : after) {
      if (now.node != held.node) continue;
      if (!is_free(now)) return shown(held) + " was released, and stands as " + shown(now);
      ++free;
    }
    if (free != 1) return shown(held) + " was released, and is not back in the LAN bridge";
  }
  return {};
}

std::string trace_of(const std::string& path, const host::Tree& tree) {
  if (tree.has_object(path)) return "it is still there";
  for (const int type : {kPortDependWanName, kBridgeWanName, kForwardingInterface}) {
    for (const std::string& name : tree.instances(type)) {
      if (tree.value(name) == path) return name + " names it";
    }
  }
  return g_wan_mibinfo_cache_list.count(path) != 0 ? "it is remembered" : "";
}

std::string broken_by_removal(const std::string& path, const Before& before, const host::Tree& tree,
                              RuleCounts& counts) {
  const auto owns = [&](const Holding& held) { return held.owner == path; };
  const bool had_bridge = std::any_of(before.holdings.begin(), before.holdings.end(), owns);
  if (!had_bridge) return {};  // then it takes the ports of all
  ++counts.gone;
  const std::string trace = trace_of(path, tree);
  if (!trace.empty()) return "a connection was removed, and " + trace;
  if (!has_lan_bridge(tree) || !is_tidy(before.holdings)) return {};
  return not_released(path, before.holdings, holdings_of(tree), {}, counts);
}

/// A description that puts no port to two places, and a connection whose bridges are all there.
bool is_plain(const api_wan_info& info, const std::string& path, const host::Tree& tree) {
  Names wanted = info.bind_lan;
  wanted.insert(wanted.end(), info.bind_wan.begin(), info.bind_wan.end());
  std::sort(wanted.begin(), wanted.end());
  if (std::adjacent_find(wanted.begin(), wanted.end()) != wanted.end()) return false;
  const auto found = g_wan_mibinfo_cache_list.find(path);
  return found != g_wan_mibinfo_cache_list.end() && tree.has_object(found->second->static_path) &&
         tree.has_object(found->second->wan_bridge_path) &&
         tree.has_object(found->second->lan_bridge_path);
}

std::string not_held(const api_wan_info& info, const std::string& path, const Holdings& after,
                     RuleCounts& counts) {
  const auto stands = [&](const std::string& node, bool own) {
    const auto is_it = [&](const Holding& now) {
      return now.node == node && (own ? now.owner == path : is_bound(now, path));
    };
    return std::any_of(after.begin(), after.end(), is_it);
  };
  for (const std::string& node : info.bind_wan) {
    if (!is_uplink_port(node) && !stands(node, true)) return node + " is not in the own bridge";
  }
  for (const std::string& node : info.bind_lan) {
    if (!stands(node, false)) return node + " is not bound in the LAN bridge";
  }
  for (const Holding& now : after) {
    if (is_own(now, path) && !is_among(info.bind_wan, now.node)) return "too many: " + shown(now);
    if (is_bound(now, path) && !is_among(info.bind_lan, now.node)) return "too many: " + shown(now);
  }
  ++counts.held;
  return {};
}

std::string broken_by_writing(const Step& step, const std::string& path, const Before& before,
                              const host::Tree& tree, RuleCounts& counts) {
  const api_wan_info info = record_of(step);
  if (!is_plain(info, path, tree)) return {};
  if (is_tidy(before.holdings)) {
    const Holdings after = holdings_of(tree);
    Names kept = info.bind_lan;
    kept.insert(kept.end(), info.bind_wan.begin(), info.bind_wan.end());
    std::string broken = not_held(info, path, after, counts);
    if (broken.empty()) broken = not_released(path, before.holdings, after, kept, counts);
    if (!broken.empty()) return broken;
  }
  if (info.connect_mode == 0 || info.connection_class == 0) return {};
  ++counts.read_back;
  return not_read_back(path, info);
}

}  // namespace

Before::Before(const host::Tree& tree, const std::string& path)
    : holdings(holdings_of(tree)), connection(igd_verify_wan_index_in_bridge(path) == 1) {}

std::string broken_rule(const Step& step, const std::string& path, const Before& before,
                        const host::Tree& tree, RuleCounts& counts) {
  if (step.operation == Operation::kRemove && before.connection) {
    return broken_by_removal(path, before, tree, counts);
  }
  const bool set =
      step.operation == Operation::kSet && before.connection && step.text(Field::kRecord) != "null";
  if (!set && step.operation != Operation::kCreate) return {};
  return broken_by_writing(step, path, before, tree, counts);
}

}  // namespace model
