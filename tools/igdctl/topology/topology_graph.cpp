#include "topology/topology_graph.h"

#include <map>
#include <utility>

#include "igd_vocabulary.h"
#include "term/text.h"

namespace igdctl {

namespace {

class GraphBuilder {
 public:
  Graph build(const Topology& topology) {
    for (const Uplink& uplink : topology.uplinks) add_uplink(uplink);
    if (topology.has_lan) add_lan_bridge(topology);
    for (const OtherBridge& bridge : topology.others) {
      const std::size_t node = add(kBridgeColumn, {bridge.title, bridge.vlan, "no connection"});
      for (const std::string& port : bridge.ports) add_port(node, port, kNoColour, false);
    }
    return std::move(graph_);
  }

 private:
  std::size_t add(Column column, std::vector<std::string> lines, int colour = kNoColour) {
    std::vector<std::string> shown;
    for (const std::string& line : lines) {
      if (!line.empty()) shown.push_back(printable(line));
    }
    const std::size_t number = graph_.nodes.size();
    graph_.nodes.push_back({'n' + std::to_string(number), column, std::move(shown), colour});
    return number;
  }

  void add_uplink(const Uplink& uplink) {
    const std::size_t node =
        add(kUplinkColumn, {uplink.access + " uplink", "WAN device " + uplink.device});
    for (const Link& link : uplink.links) add_link(node, link);
  }

  void add_link(std::size_t uplink, const Link& link) {
    const Connection& connection = link.connection;
    const int colour = static_cast<int>(colours_.size());
    colours_.emplace(connection.path, std::make_pair(colour, title_of(connection)));
    const std::size_t node =
        add(kConnectionColumn,
            {title_of(connection), connection.id + "  " + link.kind, connection.service}, colour);
    graph_.edges.push_back({uplink, node, colour, false});
    if (!connection.has_bridge()) return;
    const std::size_t bridge = add(kBridgeColumn, {connection.bridge_name, link.vlan}, colour);
    graph_.edges.push_back({node, bridge, colour, false});
    for (const std::string& port : link.own_ports) {
      if (!igd::is_wan_side_port(port)) add_port(bridge, port, colour, false);
    }
  }

  void add_lan_bridge(const Topology& topology) {
    const std::size_t bridge = add(kBridgeColumn, {igd::kLanBridgeName, "LAN bridge"});
    for (const LanPort& port : topology.lan_ports) {
      const auto found = colours_.find(port.bound_to);
      const int colour = found == colours_.end() ? kNoColour : found->second.first;
      const std::size_t node = add_port(bridge, port.node, colour, !port.bound_to.empty());
      if (port.bound_to.empty()) continue;
      const std::string title =
          port.is_missing ? "a missing connection" : printable(found->second.second);
      graph_.nodes[node].lines.push_back("to " + title);
      if (!port.vlan.empty()) graph_.nodes[node].lines.push_back("VLAN " + printable(port.vlan));
    }
  }

  std::size_t add_port(std::size_t bridge, const std::string& port, int colour, bool bound) {
    const auto [entry, is_new] = ports_.emplace(port, graph_.nodes.size());
    if (is_new) (void)add(kPortColumn, {port.empty() ? "-" : port}, colour);
    graph_.edges.push_back({bridge, entry->second, colour, bound});
    return entry->second;
  }

  Graph graph_;
  std::map<std::string, std::size_t> ports_;                    // node name -> its box
  std::map<std::string, std::pair<int, std::string>> colours_;  // path -> colour and title
};

}  // namespace

Graph graph_of(const Topology& topology) { return GraphBuilder().build(topology); }

}  // namespace igdctl
