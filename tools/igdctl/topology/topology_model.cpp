#include "topology/topology_model.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "gateway/bridge_names.h"

namespace igdctl {

namespace {

std::string vlan_label(const Bridge& bridge) {
  const Json vlan = vlan_json(bridge);
  return vlan.is_null() ? vlan_text(bridge) : "VLAN " + vlan_text(bridge);
}

Link link_of(const DescribedConnection& described, const std::vector<Bridge>& bridges) {
  Link link;
  link.connection = described.connection;
  link.kind = described.kind;
  for (const Bridge& bridge : bridges) {
    if (bridge.path != link.connection.bridge_path) continue;
    link.vlan = vlan_label(bridge);
    link.own_ports = nodes_of(bridge);
  }
  return link;
}

Uplink& uplink_for(std::vector<Uplink>& uplinks, const Connection& connection) {
  const std::string device = device_of(connection);
  for (Uplink& uplink : uplinks) {
    if (uplink.device == device) return uplink;
  }
  uplinks.push_back({device, connection.access, {}});
  return uplinks.back();
}

void bind(Topology& topology, const LanPort& port) {
  for (Uplink& uplink : topology.uplinks) {
    for (Link& link : uplink.links) {
      if (link.connection.path == port.bound_to) link.lan_ports.push_back(port);
    }
  }
}

bool is_there(const std::vector<DescribedConnection>& connections, const std::string& path) {
  return std::any_of(
      connections.begin(), connections.end(),
      [&path](const DescribedConnection& one) { return one.connection.path == path; });
}

bool is_own(const std::vector<DescribedConnection>& connections, const Bridge& bridge) {
  return std::any_of(connections.begin(), connections.end(),
                     [&bridge](const DescribedConnection& one) {
                       return one.connection.bridge_path == bridge.path;
                     });
}

Json json_of(const LanPort& port) {
  return {{"port", port.node},
          {"vlan", port.vlan},
          {"bound_to_path", text_or_null(port.bound_to)},
          {"missing", port.is_missing}};
}

Json json_of(const std::vector<LanPort>& ports) {
  Json data = Json::array();
  for (const LanPort& port : ports) data.push_back(json_of(port));
  return data;
}

Json json_of(const Link& link) {
  const Connection& connection = link.connection;
  return {{"name", connection.name},
          {"id", connection.id},
          {"path", connection.path},
          {"kind", link.kind},
          {"service", connection.service},
          {"bridge", connection.has_bridge() ? Json(connection.bridge_name) : Json(nullptr)},
          {"vlan", link.vlan},
          {"own_ports", link.own_ports},
          {"lan_ports", json_of(link.lan_ports)}};
}

}  // namespace

Topology join(const std::vector<DescribedConnection>& connections,
              const std::vector<Bridge>& bridges) {
  Topology topology;
  for (const DescribedConnection& one : connections) {
    uplink_for(topology.uplinks, one.connection).links.push_back(link_of(one, bridges));
  }
  const Bridge* const lan = find_lan_bridge(bridges);
  for (const Bridge& bridge : bridges) {
    if (&bridge == lan || is_own(connections, bridge)) continue;
    topology.others.push_back(
        {title_of(bridge), bridge.path, vlan_label(bridge), nodes_of(bridge)});
  }
  if (lan == nullptr) return topology;
  topology.has_lan = true;
  topology.lan_path = lan->path;
  for (const Port& port : lan->ports) {
    const bool bound = !port.depend_wan.empty();
    const bool missing = bound && !is_there(connections, port.depend_wan);
    const LanPort joined = {port.node, bound ? port.pvid : "", port.depend_wan, missing};
    topology.lan_ports.push_back(joined);
    bind(topology, joined);
  }
  return topology;
}

std::string device_of(const Connection& connection) {
  return connection.id.substr(0, connection.id.find('.'));
}

Json json_of(const Topology& topology) {
  Json uplinks = Json::array();
  for (const Uplink& uplink : topology.uplinks) {
    Json links = Json::array();
    for (const Link& link : uplink.links) links.push_back(json_of(link));
    uplinks.push_back(
        {{"device", uplink.device}, {"access", uplink.access}, {"connections", links}});
  }
  Json others = Json::array();
  for (const OtherBridge& bridge : topology.others) {
    others.push_back({{"name", bridge.title},
                      {"path", bridge.path},
                      {"vlan", bridge.vlan},
                      {"ports", bridge.ports}});
  }
  Json lan = nullptr;
  if (topology.has_lan) {
    lan = {{"path", topology.lan_path}, {"ports", json_of(topology.lan_ports)}};
  }
  return {{"uplinks", uplinks}, {"lan_bridge", lan}, {"other_bridges", others}};
}

}  // namespace igdctl
