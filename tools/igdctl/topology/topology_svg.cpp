#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "term/text.h"
#include "topology/topology_graph.h"
#include "topology/topology_model.h"

namespace igdctl {

namespace {

// Measures in pixels.
constexpr int kMargin = 20;
constexpr int kLineHeight = 17;
constexpr int kPadding = 9;
constexpr int kGap = 12;
constexpr int kBoxWidth = 190;
constexpr int kBoxRadius = 4;
constexpr int kPortRadius = 16;
constexpr int kColumnStep = 270;
constexpr std::size_t kLettersInBox = 26;

constexpr const char* kColours[] = {"#1b6ca8", "#c2410c", "#15803d", "#7e22ce",
                                    "#b91c1c", "#0f766e", "#a16207", "#be185d"};
constexpr char kGrey[] = "#57606a";

struct Box {
  int x = 0;
  int y = 0;
  int height = 0;
};

const char* colour_of(int colour) {
  if (colour == kNoColour) return kGrey;
  return kColours[static_cast<std::size_t>(colour) % std::size(kColours)];
}

bool begins_noncharacter(std::string_view text) {
  return text.substr(0, 3) == "\xef\xbf\xbe" || text.substr(0, 3) == "\xef\xbf\xbf";
}

// Printable text as content: XML has no place for U+FFFE and U+FFFF, even escaped.
std::string in_xml(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const bool noncharacter = begins_noncharacter(text);
    switch (text.front()) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += noncharacter ? '?' : text.front();
    }
    text.remove_prefix(noncharacter ? 3 : 1);
  }
  return escaped;
}

std::string attribute(const char* name, int value) {
  return std::string(" ") + name + "=\"" + std::to_string(value) + '"';
}

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

// Stacks every column, and centres it beside the tallest.
std::vector<Box> laid_out(const Graph& graph, int* height) {
  std::vector<Box> boxes(graph.nodes.size());
  int used[kColumnCount] = {};
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const GraphNode& node = graph.nodes[i];
    boxes[i].x = kMargin + kColumnStep * static_cast<int>(node.column);
    boxes[i].y = used[node.column];
    boxes[i].height = 2 * kPadding + kLineHeight * static_cast<int>(node.lines.size());
    used[node.column] += boxes[i].height + kGap;
  }
  const int tallest = *std::max_element(std::begin(used), std::end(used));
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    boxes[i].y += kMargin + (tallest - used[graph.nodes[i].column]) / 2;
  }
  *height = tallest + 2 * kMargin;
  return boxes;
}

std::string drawn(const GraphEdge& edge, const std::vector<Box>& boxes) {
  const Box& from = boxes[edge.from];
  const Box& to = boxes[edge.to];
  const int x1 = from.x + kBoxWidth;
  const int y1 = from.y + from.height / 2;
  const int y2 = to.y + to.height / 2;
  const int middle = (x1 + to.x) / 2;
  const auto point = [](int x, int y) { return std::to_string(x) + ' ' + std::to_string(y); };
  const std::string curve = 'M' + point(x1, y1) + " C" + point(middle, y1) + ", " +
                            point(middle, y2) + ", " + point(to.x, y2);
  return "  <path" + attribute("d", curve) + attribute("stroke", colour_of(edge.colour)) +
         (edge.bound ? attribute("stroke-dasharray", "6 4") : "") + "/>\n";
}

std::string drawn_box(const GraphNode& node, const Box& box) {
  return "  <rect" + attribute("x", box.x) + attribute("y", box.y) + attribute("width", kBoxWidth) +
         attribute("height", box.height) +
         attribute("rx", node.column == kPortColumn ? kPortRadius : kBoxRadius) +
         attribute("stroke", colour_of(node.colour)) + "/>\n";
}

std::string drawn_lines(const GraphNode& node, const Box& box) {
  constexpr int kBaseline = 4;  // letters stand this much above the end of their line
  std::string text;
  int y = box.y + kPadding - kBaseline;
  for (const std::string& line : node.lines) {
    y += kLineHeight;
    const bool title = &line == &node.lines.front();
    text += "  <text" + attribute("x", box.x + kBoxWidth / 2) + attribute("y", y) +
            attribute("fill", title ? colour_of(node.colour) : kGrey) +
            (title ? attribute("font-weight", "bold") : "") + '>' +
            in_xml(cut_to_width(line, kLettersInBox)) + "</text>\n";
  }
  return text;
}

std::string head_of(int width, int height) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
         attribute("width", width) + attribute("height", height) +
         attribute("viewBox", "0 0 " + std::to_string(width) + ' ' + std::to_string(height)) +
         attribute("role", "img") +
         ">\n<title>Uplinks, connections, bridges and ports</title>\n"
         "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
}

}  // namespace

std::string drawn_as_svg(const Topology& topology) {
  const Graph graph = graph_of(topology);
  int height = 0;
  const std::vector<Box> boxes = laid_out(graph, &height);
  const int width = 2 * kMargin + kBoxWidth + kColumnStep * static_cast<int>(kColumnCount - 1);
  std::string text = head_of(width, height);
  text += "<g fill=\"none\" stroke-width=\"2\">\n";
  for (const GraphEdge& edge : graph.edges) text += drawn(edge, boxes);
  text += "</g>\n<g fill=\"#f6f8fa\" stroke-width=\"2\">\n";
  for (std::size_t i = 0; i < boxes.size(); ++i) text += drawn_box(graph.nodes[i], boxes[i]);
  text += "</g>\n<g font-family=\"sans-serif\" font-size=\"13\" text-anchor=\"middle\">\n";
  for (std::size_t i = 0; i < boxes.size(); ++i) text += drawn_lines(graph.nodes[i], boxes[i]);
  return text + "</g>\n</svg>\n";
}

}  // namespace igdctl
