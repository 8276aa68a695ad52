// How connections come, change and go.
#include "model.h"
#include "shown.h"

namespace model {
namespace {

constexpr int kNoWan = -1023;

/// Which port is a connection's own entry into its bridge.
std::string uplink_port(const std::string& access) {
  if (access == "Ethernet") return "LAN0";
  if (access == "3G") return "3G0";
  return access == "Repeator" ? "WIFIW0" : "";
}

bool has_parameter(Kind kind, const std::string& parameter) {
  return parameter != "Nowhere" && (kind == kPpp || parameter != "Username");
}

}  // namespace

Answer Model::create(const Step& step) {
  api_wan_info info = record_of(step);
  ConnectionId id = connection_named(info.wan_info_name);
  Answer answer{"updated", {}};
  if (id.first == 0) {
    const std::string access = step.text(Field::kUplink);
    bool new_uplink = false;
    id = add_connection(access, &new_uplink);
    answer.outcome = new_uplink ? "made on a new uplink" : "made";
    const std::string path = path_of(id);
    const int bridge = make_bridge(bridge_name_for(path), path, info, info.vlan_id);
    state_.bridges[bridge].wan = path;
    const std::string port = uplink_port(access);
    if (!port.empty()) make_port(bridge, "", port, &info);
  }
  write_record(path_of(id), info);
  answer.text = path_of(id) + shown(info);
  return answer;
}

ConnectionId Model::add_connection(const std::string& access, bool* new_uplink) {
  int number = 0;
  for (const auto& [candidate, uplink] : state_.uplinks) {
    if (number == 0 && uplink.access == access) number = candidate;
  }
  *new_uplink = number == 0;
  if (number == 0) number = ++state_.last_uplink;
  Uplink& uplink = state_.uplinks[number];
  uplink.access = access;
  const ConnectionId id(number, ++uplink.last);
  state_.connections[id].objects[kStatic]["AddressingType"] = "Static";
  state_.connections[id].objects[kDhcp]["AddressingType"] = "DHCP";
  return id;
}

Answer Model::set(const Step& step, const std::string& path) {
  if (step.text(Field::kRecord) == "null") return {"no record", std::to_string(kNoWan)};
  api_wan_info info = record_of(step);
  const bool known = is_connection(path);
  write_record(path, info);
  return {known ? "written" : "no such connection", "0" + shown(info)};
}

Answer Model::save_binding(const Step& step, const std::string& path) {
  const bool known = is_connection(path);
  write_binding(entry_of(path), record_of(step));
  return {known ? "written" : "no such connection", {}};
}

Answer Model::remove(const std::string& path) {
  const bool known = is_connection(path);
  forget_routes_of(path);
  for (const Kind kind : kKinds) write(owner_of_object(path, kind), kind, "Enable", "false");
  delete_object(path);
  const int own = own_bridge(path);
  Names released;
  for (const Port* port : ports_in(own)) {
    if (!is_uplink_port(port->node)) released.push_back(port->node);
  }
  release_all_ports(own);
  if (state_.bridges.erase(own) == 0) state_.refused = true;
  const int lan = lan_bridge();
  for (const std::string& node : release_bound_ports(lan, path)) released.push_back(node);
  state_.remembered.erase(path);
  for (const std::string& node : released) make_port(lan, "", node, nullptr);
  return {known ? "removed" : "no such connection", {}};
}

void Model::delete_object(const std::string& path) {
  for (auto uplink = state_.uplinks.begin(); uplink != state_.uplinks.end(); ++uplink) {
    if (uplink_path(uplink->first) != path) continue;
    const int number = uplink->first;
    state_.connections.erase(state_.connections.lower_bound({number, 0}),
                             state_.connections.lower_bound({number + 1, 0}));
    state_.uplinks.erase(uplink);
    return;
  }
  if (state_.connections.erase(id_of(path)) == 0) {
    state_.refused = true;
  } else {
    state_.gone = path;
  }
}

void Model::forget_routes_of(const std::string& path) {
  std::vector<Route> kept;
  for (const Route& route : state_.routes) {
    const std::string& owner = route.interface.empty() ? route.table : route.interface;
    if (owner != path) kept.push_back(route);
  }
  state_.routes = kept;
}

Answer Model::set_all(const Step& step, const std::string& path) {
  std::array<ConnectionId, 3> owners;
  for (const Kind kind : kKinds) {
    owners[kind] = owner_of_object(path, kind);
    if (owners[kind].first == 0) return {"no such connection", {}};
  }
  // Only a name below one of the connection's own objects has a place in all three.
  const std::string parameter = step.text(Field::kParameter);
  if (step.text(Field::kObject) == "outside" || !is_connection(path)) return {"outside", {}};
  for (const Kind kind : kKinds) {
    if (has_parameter(kind, parameter)) {
      write(owners[kind], kind, parameter, step.text(Field::kValue));
    } else {
      state_.refused = true;
    }
  }
  return {"written", {}};
}

}  // namespace model
