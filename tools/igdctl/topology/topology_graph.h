/// A topology as boxes in four columns and lines between them, for pictures.
#ifndef IGDCTL_TOPOLOGY_GRAPH_H
#define IGDCTL_TOPOLOGY_GRAPH_H

#include <cstddef>
#include <string>
#include <vector>

#include "topology/topology_model.h"

namespace igdctl {

enum Column : std::size_t { kUplinkColumn, kConnectionColumn, kBridgeColumn, kPortColumn };
inline constexpr std::size_t kColumnCount = 4;
inline constexpr int kNoColour = -1;

struct GraphNode {
  std::string id;                  ///< "n3": unique, a plain word
  std::size_t column;              ///< a Column
  std::vector<std::string> lines;  ///< printable; the first is its title
  int colour;                      ///< number of the connection it is of, or kNoColour
};

struct GraphEdge {
  std::size_t from;  ///< indices of nodes, in neighbouring columns
  std::size_t to;
  int colour;
  bool bound;  ///< a port of the LAN bridge that is bound to a connection
};

struct Graph {
  std::vector<GraphNode> nodes;  ///< column by column is top down
  std::vector<GraphEdge> edges;
};

/// A port that is in two bridges is one box with two lines.
Graph graph_of(const Topology& topology);

}  // namespace igdctl

#endif  // IGDCTL_TOPOLOGY_GRAPH_H
