// Names, paths, bridges and ports that callers ask for.
#include <algorithm>

#include "model.h"
#include "shown.h"

namespace model {
namespace {

constexpr int kNoWan = -1023;
constexpr int kFirstVlan = 1000;
constexpr int kVlansEnd = 4060;
constexpr int kNoVlanLeft = 3999;
constexpr int kSuffixesEnd = 4095;

/// The system's name of a port that carries a VLAN.
std::string device_with_vlan(const std::string& node, bool tagged, int vlan) {
  const bool suffix = tagged && takes_suffix(node) && 0 <= vlan && vlan < kSuffixesEnd;
  return device_of(node) + (suffix ? '.' + std::to_string(vlan) : "");
}

Answer found_or_not(bool found, const std::string& text) {
  return {found ? "found" : "not found", text};
}

Answer yes_or_no(bool yes) { return yes ? Answer{"yes", "1"} : Answer{"no", "0"}; }

}  // namespace

Answer Model::list() {
  Names paths;
  for (const auto& [id, connection] : state_.connections) paths.push_back(path_of(id));
  for (auto entry = state_.remembered.begin(); entry != state_.remembered.end();) {
    entry = is_among(paths, entry->first) ? std::next(entry) : state_.remembered.erase(entry);
  }
  return {paths.empty() ? "none there" : "listed",
          std::to_string(paths.size()) + ' ' + shown(paths)};
}

/// IP connections of all are asked before PPP connections.
ConnectionId Model::connection_named(const std::string& name) const {
  for (const auto& [id, connection] : state_.connections) {
    for (const Kind kind : {kStatic, kDhcp}) {
      if (text_of(connection.objects[kind], "Name") == name) return id;
    }
  }
  for (const auto& [id, connection] : state_.connections) {
    if (text_of(connection.objects[kPpp], "Name") == name) return id;
  }
  return {};
}

/// The first object of that kind whose name begins so.
ConnectionId Model::owner_of_object(const std::string& prefix, Kind kind) const {
  for (const auto& [id, connection] : state_.connections) {
    const std::string name = object_path(id, kind) + (kind == kPpp ? "" : "AddressingType");
    if (begins_with(name, prefix)) return id;
  }
  return {};
}

Answer Model::find_name(const std::string& name) const {
  const ConnectionId id = connection_named(name);
  return found_or_not(id.first != 0, id.first == 0 ? "" : path_of(id));
}

Answer Model::is_index(const std::string& path) const {
  Answer answer = yes_or_no(is_connection(path));
  answer.text += ' ' + answer.text;  // two operations tell the same
  return answer;
}

Answer Model::is_bridge_parameter(const Step& step) const {
  return yes_or_no(bridge_named(step.text(Field::kBridge)) != 0);
}

Answer Model::used_ports(const std::string& path) const {
  Names nodes;
  for (const auto& [number, bridge] : state_.bridges) {
    for (const Port& port : bridge.ports) {
      const std::string& owner = bridge.wan.empty() ? port.wan : bridge.wan;
      if (port.node != "LAN0" && !owner.empty() && owner != path) nodes.push_back(port.node);
    }
  }
  return {nodes.empty() ? "none" : "some", "0 " + shown(nodes)};
}

Answer Model::name_bridge(const std::string& path) const {
  for (const auto& [number, bridge] : state_.bridges) {
    if (bridge.wan == path) return found_or_not(true, bridge.name);
  }
  return found_or_not(false, "");
}

Answer Model::find_bridge(const std::string& path) const {
  const int own = own_bridge(path);
  const std::string result = std::to_string(own == 0 ? kNoWan : 0);
  const std::string found = own == 0 ? "untouched" : bridge_path(own);
  return found_or_not(own != 0, result + ' ' + found + ' ' + bridge_name_for(path) + " 0 " +
                                    bridge_path(lan_bridge()) + " internet");
}

Answer Model::show_bridge(const std::string& path) const {
  const int own = own_bridge(path);
  Names nodes;
  for (const Port* port : ports_in(own)) nodes.push_back(port->node);
  const Bridge none;
  const Bridge& bridge = own == 0 ? none : state_.bridges.at(own);
  const auto vlan = static_cast<unsigned int>(leading_number(bridge.vlan));
  return found_or_not(own != 0, bridge.name + ' ' + std::to_string(vlan) + ' ' + shown(nodes));
}

Answer Model::belongs(const Step& step) const {
  const int number = bridge_named(step.text(Field::kBridge));
  if (number == 0) return yes_or_no(false);
  const Bridge& bridge = state_.bridges.at(number);
  const bool tagged = bridge.standard == "802.1Q";
  for (const Port& port : bridge.ports) {
    const std::string device = device_with_vlan(port.node, tagged, leading_number(port.vlan));
    if (device == step.text(Field::kPhysical)) return yes_or_no(true);
  }
  return yes_or_no(false);
}

Answer Model::find_physical(const Step& step) const {
  std::string last = "untouched untouched";
  bool found = false;
  for (const auto& [number, bridge] : state_.bridges) {
    const bool tagged = bridge.standard == "802.1Q";
    for (const Port& port : bridge.ports) {
      const std::string device = device_with_vlan(port.node, tagged, leading_number(bridge.vlan));
      if (device != step.text(Field::kPhysical)) continue;
      last = bridge_path(number) + ' ' + bridge.name;
      found = true;
    }
  }
  return found_or_not(found, "0 " + last);
}

Answer Model::free_vlan() const {
  int vlan = kFirstVlan;
  const auto is_used = [&](const auto& numbered) {
    return leading_number(numbered.second.vlan) == vlan;
  };
  while (vlan < kVlansEnd && std::any_of(state_.bridges.begin(), state_.bridges.end(), is_used)) {
    ++vlan;
  }
  if (vlan == kVlansEnd) vlan = kNoVlanLeft;
  return {vlan == kFirstVlan ? "lowest" : "a higher one", std::to_string(vlan)};
}

/// A bridge of no connection serves every path.
Answer Model::bridge_texts(const Step& step, const std::string& path) const {
  const int size = step.number(Field::kSize);
  const auto cut = [size](const std::string& text) {
    return size == 0 ? "untouched" : text.substr(0, static_cast<std::size_t>(size) - 1);
  };
  Bridge served;
  bool found = false;
  for (const auto& [number, bridge] : state_.bridges) {
    if (found || !begins_with(path, bridge.wan)) continue;
    served = bridge;
    found = true;
  }
  return found_or_not(found, cut("") + '|' + cut(served.vlan) + '|' + cut(served.priority));
}

Answer Model::set_pvid(const Step& step) {
  const int number = bridge_named(step.text(Field::kBridge));
  if (number == 0) return found_or_not(false, "0");
  for (Port& port : state_.bridges.at(number).ports) port.vlan = step.text(Field::kVlan);
  return {"written", "0"};
}

}  // namespace model
