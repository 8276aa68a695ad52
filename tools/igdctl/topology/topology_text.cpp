#include <string>
#include <utility>
#include <vector>

#include "igd_vocabulary.h"
#include "term/text.h"
#include "topology/topology_model.h"

namespace igdctl {

namespace {

struct Branch {
  std::string text;
  std::vector<Branch> twigs;
};

struct Pen {
  const char* fork;
  const char* end;
  const char* trunk;
  const char* line;  ///< between a port and whom it is bound to
};

constexpr Pen kBox = {"├─ ", "└─ ", "│  ", " ── "};
constexpr Pen kAscii = {"|- ", "`- ", "|  ", " -- "};

std::string title_of_bound(const Topology& topology, const LanPort& port) {
  for (const Uplink& uplink : topology.uplinks) {
    for (const Link& link : uplink.links) {
      if (link.connection.path == port.bound_to) return title_of(link.connection);
    }
  }
  return port.bound_to + " (missing)";
}

std::string with_vlan(const LanPort& port) {
  return port.vlan.empty() ? port.node : port.node + " (VLAN " + port.vlan + ')';
}

std::string ports_of(const std::vector<std::string>& ports) {
  return ports.empty() ? "no ports" : joined(ports, ", ");
}

Branch branch_of(const Link& link) {
  const Connection& connection = link.connection;
  std::vector<std::string> details = {connection.id};
  for (const std::string* const detail : {&link.kind, &connection.service, &link.vlan}) {
    if (!detail->empty()) details.push_back(*detail);
  }
  Branch branch = {title_of(connection) + "  [" + joined(details, ", ") + ']', {}};
  if (connection.has_bridge()) {
    branch.twigs.push_back(
        {"own bridge " + connection.bridge_name + ": " + ports_of(link.own_ports), {}});
  } else {
    branch.twigs.push_back({"no bridge of its own (see igdctl doctor)", {}});
  }
  std::vector<std::string> ports;
  for (const LanPort& port : link.lan_ports) ports.push_back(with_vlan(port));
  if (!ports.empty()) branch.twigs.push_back({"LAN bridge: " + joined(ports, ", "), {}});
  return branch;
}

Branch branch_of_lan(const Topology& topology, const Pen& pen) {
  Branch branch = {"LAN bridge " + in_quotes(igd::kLanBridgeName), {}};
  std::vector<std::string> unbound;
  for (const LanPort& port : topology.lan_ports) {
    if (port.bound_to.empty()) {
      unbound.push_back(port.node);
    } else {
      branch.twigs.push_back({port.node + pen.line + title_of_bound(topology, port), {}});
    }
  }
  if (!unbound.empty()) {
    branch.twigs.push_back({joined(unbound, ", ") + pen.line + "not bound", {}});
  }
  return branch;
}

std::vector<Branch> branches_of(const Topology& topology, const Pen& pen) {
  std::vector<Branch> branches;
  for (const Uplink& uplink : topology.uplinks) {
    branches.push_back({uplink.access + " uplink (WAN device " + uplink.device + ')', {}});
    for (const Link& link : uplink.links) branches.back().twigs.push_back(branch_of(link));
  }
  if (topology.has_lan) branches.push_back(branch_of_lan(topology, pen));
  if (topology.others.empty()) return branches;
  branches.push_back({"bridges without a connection (see igdctl doctor)", {}});
  for (const OtherBridge& bridge : topology.others) {
    branches.back().twigs.push_back(
        {bridge.title + "  [" + bridge.vlan + "]: " + ports_of(bridge.ports), {}});
  }
  return branches;
}

class Drawing {
 public:
  Drawing(const Pen& pen, std::size_t width) : pen_(pen), width_(width) {}

  void draw(const Branch& branch, const std::string& left, const std::string& left_below) {
    const std::string line = left + printable(branch.text);
    text_ += (width_ == 0 ? line : cut_to_width(line, width_)) + '\n';
    for (const Branch& twig : branch.twigs) {
      const bool last = &twig == &branch.twigs.back();
      draw(twig, left_below + (last ? pen_.end : pen_.fork),
           left_below + (last ? "   " : pen_.trunk));
    }
  }
  void blank_line() { text_ += '\n'; }
  std::string text() { return std::move(text_); }

 private:
  const Pen& pen_;
  std::size_t width_;
  std::string text_;
};

}  // namespace

std::string drawn_as_text(const Topology& topology, bool box_characters, std::size_t width) {
  const Pen& pen = box_characters ? kBox : kAscii;
  Drawing drawing(pen, width);
  const std::vector<Branch> branches = branches_of(topology, pen);
  for (const Branch& branch : branches) {
    if (&branch != &branches.front()) drawing.blank_line();
    drawing.draw(branch, "", "");
  }
  return drawing.text();
}

}  // namespace igdctl
