// Who is joined to what: the model, and its drawings with names that mean harm.
#include <gtest/gtest.h>

#include <cctype>

#include "igd_vocabulary.h"
#include "term/text.h"
#include "topology/topology_graph.h"
#include "topology/topology_model.h"

namespace {

using namespace igdctl;

constexpr char kFirst[] = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";
constexpr char kSecond[] = "InternetGatewayDevice.WANDevice.2.WANConnectionDevice.1.";
constexpr char kMissing[] = "InternetGatewayDevice.WANDevice.9.WANConnectionDevice.9.";

DescribedConnection connection(const std::string& name, const std::string& path,
                               const std::string& bridge) {
  DescribedConnection described;
  described.connection.path = path;
  described.connection.id = id_of_path(path);
  described.connection.name = name;
  described.connection.service = "INTERNET";
  described.connection.access = "Ethernet";
  described.connection.bridge_path = bridge.empty() ? "" : "Bridge." + bridge + '.';
  described.connection.bridge_name = bridge;
  described.kind = "routed dhcp";
  return described;
}

Bridge bridge(const std::string& name, const std::vector<std::string>& nodes) {
  Bridge bridge;
  bridge.path = "Bridge." + name + '.';
  bridge.name = name;
  bridge.standard = "802.1Q";
  bridge.vlan = "100";
  for (const std::string& node : nodes) {
    Port port;
    port.node = node;
    port.bridge_path = bridge.path;
    bridge.ports.push_back(port);
  }
  return bridge;
}

// Internet over one uplink, Mobile without a bridge over another; LAN1 bound to Internet.
Topology sample() {
  Bridge lan = bridge(igd::kLanBridgeName, {"LAN1", "LAN2", "LAN4"});
  lan.ports[0].depend_wan = kFirst;
  lan.ports[0].pvid = "4060";
  lan.ports[1].depend_wan = kMissing;
  DescribedConnection mobile = connection("Mobile", kSecond, "");
  mobile.connection.access = "3G";
  return join({connection("Internet", kFirst, "br_1_1"), mobile},
              {lan, bridge("br_1_1", {"LAN0", "LAN3"}), bridge("br_9_9", {"LAN4"})});
}

TEST(Topology, JoinsConnectionsToUplinksBridgesAndPorts) {
  const Topology topology = sample();
  ASSERT_EQ(topology.uplinks.size(), 2U);
  EXPECT_EQ(topology.uplinks[0].access, "Ethernet");
  EXPECT_EQ(topology.uplinks[1].device, "2");
  const Link& internet = topology.uplinks[0].links.at(0);
  EXPECT_EQ(internet.own_ports, (std::vector<std::string>{"LAN0", "LAN3"}));
  EXPECT_EQ(internet.vlan, "VLAN 100");
  ASSERT_EQ(internet.lan_ports.size(), 1U);
  EXPECT_EQ(internet.lan_ports[0].node, "LAN1");
  EXPECT_TRUE(topology.uplinks[1].links.at(0).own_ports.empty());
  ASSERT_EQ(topology.lan_ports.size(), 3U);
  EXPECT_TRUE(topology.lan_ports[1].is_missing);
  ASSERT_EQ(topology.others.size(), 1U);
  EXPECT_EQ(topology.others[0].title, "br_9_9");
}

TEST(Topology, AsTextWithBoxCharacters) {
  EXPECT_EQ(drawn_as_text(sample(), true, 0),
            "Ethernet uplink (WAN device 1)\n"
            "└─ Internet  [1.1, routed dhcp, INTERNET, VLAN 100]\n"
            "   ├─ own bridge br_1_1: LAN0, LAN3\n"
            "   └─ LAN bridge: LAN1 (VLAN 4060)\n"
            "\n"
            "3G uplink (WAN device 2)\n"
            "└─ Mobile  [2.1, routed dhcp, INTERNET]\n"
            "   └─ no bridge of its own (see igdctl doctor)\n"
            "\n"
            "LAN bridge \"internet\"\n"
            "├─ LAN1 ── Internet\n"
            "├─ LAN2 ── InternetGatewayDevice.WANDevice.9.WANConnectionDevice.9. (missing)\n"
            "└─ LAN4 ── not bound\n"
            "\n"
            "bridges without a connection (see igdctl doctor)\n"
            "└─ br_9_9  [VLAN 100]: LAN4\n");
}

TEST(Topology, AsTextInAscii) {
  const std::string text = drawn_as_text(sample(), false, 0);
  for (const char letter : text) EXPECT_EQ(letter & 0x80, 0) << text;
  EXPECT_NE(text.find("|- LAN1 -- Internet\n"), std::string::npos) << text;
  EXPECT_NE(text.find("   `- LAN bridge: LAN1"), std::string::npos) << text;
}

TEST(Topology, FitsATerminal) {
  const std::string text = drawn_as_text(sample(), true, 40);
  for (const std::string& line : split_list(text, '\n')) EXPECT_LE(display_width(line), 40U);
}

TEST(TopologyGraph, DrawsAPortOfTwoBridgesOnce) {
  const Graph graph = graph_of(sample());
  int boxes = 0;
  int lines = 0;
  for (const GraphNode& node : graph.nodes) boxes += node.lines.front() == "LAN4" ? 1 : 0;
  for (const GraphEdge& edge : graph.edges) {
    lines += graph.nodes[edge.to].lines.front() == "LAN4" ? 1 : 0;
    EXPECT_EQ(graph.nodes[edge.from].column + 1, graph.nodes[edge.to].column);
  }
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(lines, 2);
}

// NOLINTNEXTLINE(misc-misleading-bidirectional): hostile on purpose
constexpr char kHostile[] =
    "\"]; <script>&amp;</script> \\\n\x1b[31m\xff\xef\xbf\xbe'\xe2\x80\xae end";

Topology hostile() {
  DescribedConnection one = connection(kHostile, kFirst, kHostile);
  one.connection.service = kHostile;
  one.connection.access = kHostile;
  return join({one}, {bridge(kHostile, {kHostile}), bridge(igd::kLanBridgeName, {"LAN1"})});
}

bool has_control(const std::string& text) {
  for (const char letter : text) {
    if (letter != '\n' && std::iscntrl(static_cast<unsigned char>(letter)) != 0) return true;
  }
  return false;
}

// Every quoted text ends on its line, with nothing behind it but what igdctl itself writes.
bool is_quoted_well(const std::string& line) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (quoted && line[i] == '\\') {
      ++i;
    } else if (line[i] == '"') {
      quoted = !quoted;
    } else if (!quoted && (line[i] == '<' || line[i] == '&')) {
      return false;
    }
  }
  return !quoted;
}

TEST(TopologyDot, KeepsHostileNamesInsideTheirQuotes) {
  const std::string text = drawn_as_dot(hostile());
  EXPECT_FALSE(has_control(text)) << text;
  EXPECT_TRUE(is_utf8(text));
  for (const std::string& line : split_list(text, '\n')) EXPECT_TRUE(is_quoted_well(line)) << line;
  EXPECT_NE(text.find("\\\"]; <script>"), std::string::npos) << text;
}

// Elements open and close in pairs, "<" and "&" begin nothing else, attributes are quoted.
std::string fault_in_xml(const std::string& text) {
  std::vector<std::string> open;
  for (std::size_t i = text.find("?>") + 2; i < text.size(); ++i) {
    if (text[i] == '&') {
      const std::string entity = text.substr(i, text.find(';', i) - i + 1);
      if (entity != "&amp;" && entity != "&lt;" && entity != "&gt;") return "entity " + entity;
    }
    if (text[i] != '<') continue;
    const std::size_t end = text.find('>', i);
    if (end == std::string::npos) return "no end of tag";
    const std::string tag = text.substr(i + 1, end - i - 1);
    const bool closes = tag.front() == '/';
    const std::string name =
        tag.substr(closes ? 1 : 0, tag.find_first_of(" /", 1) - (closes ? 1 : 0));
    if (closes) {
      if (open.empty() || open.back() != tag.substr(1)) return "closes " + tag;
      open.pop_back();
    } else if (tag.back() != '/') {
      open.push_back(name);
    }
    i = end;
  }
  return open.empty() ? "" : "open " + open.back();
}

TEST(TopologySvg, TheCheckItselfSeesFaults) {
  EXPECT_EQ(fault_in_xml("<?xml?><a><b x=\"1\"/><c>t &amp; t</c></a>"), "");
  EXPECT_NE(fault_in_xml("<?xml?><a><b></a>"), "");
  EXPECT_NE(fault_in_xml("<?xml?><a>x & y</a>"), "");
  EXPECT_NE(fault_in_xml("<?xml?><a>"), "");
}

TEST(TopologySvg, IsWellFormedWhateverTheNamesAre) {
  for (const Topology& topology : {sample(), hostile(), Topology()}) {
    const std::string text = drawn_as_svg(topology);
    EXPECT_EQ(fault_in_xml(text), "") << text;
    EXPECT_FALSE(has_control(text)) << text;
    EXPECT_TRUE(is_utf8(text));
    EXPECT_EQ(text.find("<script"), std::string::npos);
    EXPECT_EQ(text.find("\xef\xbf\xbe"), std::string::npos);
  }
}

}  // namespace
