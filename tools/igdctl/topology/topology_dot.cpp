#include <string>

#include "term/text.h"
#include "topology/topology_graph.h"
#include "topology/topology_model.h"

namespace igdctl {

namespace {

// Everything but quotes and backslashes is plain inside quotes; nothing else reaches here.
std::string in_dot_quotes(const std::string& text) {
  std::string quoted = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') quoted += '\\';
    quoted += letter;
  }
  return quoted + '"';
}

std::string label_of(const GraphNode& node) {
  std::string label;
  for (const std::string& line : node.lines) {
    const std::string quoted = in_dot_quotes(line);
    if (!label.empty()) label += "\\n";
    label += quoted.substr(1, quoted.size() - 2);
  }
  return '"' + label + '"';
}

const char* shape_of(const GraphNode& node) {
  switch (node.column) {
    case kUplinkColumn:
      return "house";
    case kConnectionColumn:
      return "box";
    case kBridgeColumn:
      return "hexagon";
    default:
      return "ellipse";
  }
}

}  // namespace

std::string drawn_as_dot(const Topology& topology) {
  const Graph graph = graph_of(topology);
  std::string text = "graph topology {\n  rankdir=LR;\n  node [fontname=\"sans-serif\"];\n";
  for (const GraphNode& node : graph.nodes) {
    text += "  " + node.id + " [shape=" + shape_of(node) + ", label=" + label_of(node) + "];\n";
  }
  for (const GraphEdge& edge : graph.edges) {
    text += "  " + graph.nodes[edge.from].id + " -- " + graph.nodes[edge.to].id +
            (edge.bound ? " [style=dashed];\n" : ";\n");
  }
  return text + "}\n";
}

}  // namespace igdctl
