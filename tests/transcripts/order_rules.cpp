#include "order_rules.h"

#include <algorithm>
#include <utility>

#include "form/pattern.h"

namespace transcripts {
namespace {

const std::string kAnyBridge = R"(InternetGatewayDevice\.Layer2Bridging\.Bridge\.[0-9]+\.)";

bool starts_with(const std::string& line, const std::string& start) {
  return line.rfind(start, 0) == 0;
}

bool is_change(const std::string& line) {
  return starts_with(line, "add ") || starts_with(line, "set ") || starts_with(line, "delete ");
}

// First group of a pattern in the first line that has it; "" when none has.
std::string captured(const Lines& lines, const std::string& pattern) {
  const Pattern searched(pattern);
  for (const std::string& line : lines) {
    const std::vector<std::string> groups = searched.groups_of(line);
    if (!groups.empty()) return groups[1];
  }
  return {};
}

std::size_t position(const Lines& lines, const std::string& line) {
  return static_cast<std::size_t>(std::find(lines.begin(), lines.end(), line) - lines.begin());
}

// What a write of a description says about itself before it begins.
struct Write {
  explicit Write(const Lines& lines)
      : mode(captured(lines, R"(\| connect_mode 1:dbcp,2:static,3:pppoe: \[(-?[0-9]+)\] )")),
        dhcp_path(captured(lines, R"(\|  dhcp_path:(.*),)")),
        static_path(captured(lines, R"(\| static_path:(.*),)")),
        ppp_path(captured(lines, R"(\|  lan_bridge_name:.*ppp_path:(.*),)")) {}

  std::string mode, dhcp_path, static_path, ppp_path;
};

bool is_write(const Lines& lines) {
  const std::string first = "| igd_wan_set_params  igd_wan_print_params(info) :1234";
  return std::find(lines.begin(), lines.end(), first) != lines.end();
}

// Names of the parameters that are set below a path from a line on, up to and with `last`.
std::string names_set(const Lines& lines, std::size_t from, const std::string& path,
                      const std::string& last) {
  std::string names;
  for (std::size_t i = from; i < lines.size(); ++i) {
    if (!starts_with(lines[i], "set " + path)) continue;
    const std::size_t start = 4 + path.size();
    const std::string name = lines[i].substr(start, lines[i].find(" = ") - start);
    names += name + ' ';
    if (name == last) break;
  }
  return names;
}

struct Kind {
  Pattern pattern;
  char letter;
};

// One letter for each change: which kind of object it concerns.
std::string kinds_of(const Lines& lines) {
  static const Kind kKinds[] = {
      {Pattern(R"(add .*\.WANDevice\. -> [0-9]+)"), 'W'},
      {Pattern(R"(add .*\.WANConnectionDevice\. -> [0-9]+)"), 'C'},
      {Pattern(R"(add .*\.WANIPConnection\. -> [0-9]+)"), 'I'},
      {Pattern(R"(add .*\.WANPPPConnection\. -> [0-9]+)"), 'P'},
      {Pattern(R"(add .*\.PortMapping\. -> [0-9]+)"), 'M'},
      {Pattern(R"(add .*\.Bridge\. -> [0-9]+)"), 'B'},
      {Pattern(R"(add .*\.Port\. -> [0-9]+)"), 'N'},
      {Pattern(R"(add .* failed)"), '!'},
      {Pattern(R"(delete .*\.Forwarding\.[0-9]+\.)"), 'r'},
      {Pattern(R"(delete .*\.WANConnectionDevice\.[0-9]+\.)"), 'c'},
      {Pattern("delete " + kAnyBridge + R"(Port\.[0-9]+\.)"), 'p'},
      {Pattern("delete (" + kAnyBridge + ")?"), 'b'},
      {Pattern("commit 1"), '.'},
  };
  std::string kinds;
  for (const std::string& line : lines) {
    for (const Kind& kind : kKinds) {
      if (!kind.pattern.matches(line)) continue;
      kinds += kind.letter;
      break;
    }
  }
  return kinds;
}

// The transcripts of a kind must have their changes in one order.
Finding kinds_in_order(const Lines& lines, char about, const Pattern& order) {
  const std::string kinds = kinds_of(lines);
  if (kinds.find(about) == std::string::npos || kinds.find('!') != std::string::npos) return {};
  if (order.matches(kinds)) return {1, {}};
  return {1, {kinds}};
}

// Every object of a kind that is added must have its parameters written in one order.
Finding parameters_in_order(const Lines& lines, const Pattern& add, const std::string& last,
                            const Pattern& order) {
  Finding finding;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::vector<std::string> added = add.groups_of(lines[i]);
    if (added.empty()) continue;
    ++finding.checked;
    const std::string path = added[1].append(added[2]).append(".");
    const std::string names = names_set(lines, i, path, last);
    if (order.matches(names)) continue;
    finding.broken.push_back(path);
    finding.broken.back().append(": ").append(names);
  }
  return finding;
}

}  // namespace

Finding removals_before_creations(const Lines& lines) {
  static const Pattern kRemoval(R"(\|  -+ igd_api [0-9]+: .* remove from [a-z_]+ )");
  static const Pattern kCreation(R"(\|  -+ igd_api [0-9]+: .* create [a-z_]+ )");
  Finding finding;
  bool created = false;
  for (const std::string& line : lines) {
    created = created || kCreation.matches(line);
    if (!kRemoval.matches(line)) continue;
    ++finding.checked;
    if (created) finding.broken.push_back(line);
  }
  return finding;
}

Finding groups_in_their_order(const Lines& lines) {
  static const Pattern kTrace(R"(\|  -+ igd_api (_wan_port_update )?([0-9]+)(:| port:|$).*)");
  Finding finding;
  int before = 0;
  for (const std::string& line : lines) {
    const std::vector<std::string> groups = kTrace.groups_of(line);
    if (groups.empty()) continue;
    const int number = std::stoi(groups[2]);
    ++finding.checked;
    if (number < before) finding.broken.push_back(line);
    before = number;
  }
  return finding;
}

Finding objects_disabled_before_named(const Lines& lines) {
  if (!is_write(lines)) return {};
  const Write write(lines);
  const auto disabled_from = [&](const std::string& path, std::size_t from) {
    const Lines rest(lines.begin() + static_cast<std::ptrdiff_t>(from), lines.end());
    return from + position(rest, "set " + path + "Enable = \"false\"");
  };
  const std::size_t dhcp = disabled_from(write.dhcp_path, 0);
  const std::size_t fixed = std::min(dhcp + 1, lines.size());
  const std::size_t ppp_from = std::min(disabled_from(write.static_path, fixed) + 1, lines.size());
  const std::size_t ppp = disabled_from(write.ppp_path, ppp_from);
  const auto named = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return starts_with(line, "set " + write.dhcp_path + "Name = ");
  });
  const bool in_order = ppp < static_cast<std::size_t>(named - lines.begin());
  return in_order ? Finding{1, {}} : Finding{1, {"the objects of mode " + write.mode}};
}

Finding active_object_enabled_last(const Lines& lines) {
  if (!is_write(lines)) return {};
  const Write write(lines);
  const std::string path = write.mode == "1"   ? write.dhcp_path
                           : write.mode == "2" ? write.static_path
                                               : write.ppp_path;
  const auto last = std::find_if(lines.rbegin(), lines.rend(), is_change);
  const bool some_mode = write.mode == "1" || write.mode == "2" || write.mode == "3";
  const bool enabled = last != lines.rend() && *last == "set " + path + "Enable = \"true\"";
  if (enabled == some_mode) return {1, {}};
  return {1, {"mode " + write.mode + ", last change: " + (last == lines.rend() ? "" : *last)}};
}

Finding commit_last(const Lines& lines) {
  Finding finding;
  const std::size_t commit = position(lines, "commit 1");
  if (commit == lines.size()) return finding;
  finding.checked = 1;
  for (std::size_t i = commit + 1; i < lines.size(); ++i) {
    const bool told_directly_after = lines[i] == "apply \"\"" && i == commit + 1;
    const bool writes =
        is_change(lines[i]) || starts_with(lines[i], "commit ") || starts_with(lines[i], "apply ");
    if (writes && !told_directly_after) finding.broken.push_back(lines[i]);
  }
  return finding;
}

Finding ports_switched_off_before_deleted(const Lines& lines) {
  static const Pattern kDelete("delete (" + kAnyBridge + R"(Port\.[0-9]+\.))");
  Finding finding;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::vector<std::string> deleted = kDelete.groups_of(lines[i]);
    if (deleted.empty()) continue;
    ++finding.checked;
    const std::string off = "set " + deleted[1] + "PortEnable = \"false\"";
    if (i == 0 || lines[i - 1] != off) finding.broken.push_back(lines[i]);
  }
  return finding;
}

Finding new_ports_written_in_order(const Lines& lines) {
  static const Pattern kAdd("add (" + kAnyBridge + R"(Port\.) -> ([0-9]+))");
  static const Pattern kOrder(
      "PVID PortInterface (PortOption60 |X_ZYN_DependWanName )?PortEnable ");
  return parameters_in_order(lines, kAdd, "PortEnable", kOrder);
}

Finding new_bridges_enabled_last(const Lines& lines) {
  static const Pattern kAdd(R"(add (InternetGatewayDevice\.Layer2Bridging\.Bridge\.) -> ([0-9]+))");
  static const Pattern kOrder(
      "BridgeName BridgeStandard VLANID (X_ZYN_VLANPriority )?(X_ZYN_WANName )?BridgeEnable ");
  return parameters_in_order(lines, kAdd, "BridgeEnable", kOrder);
}

Finding adds_of_a_creation_in_order(const Lines& lines) {
  static const Pattern kOrder("W?CIMIMPMBN*p*N*");
  return kinds_in_order(lines, 'C', kOrder);
}

Finding removal_in_order(const Lines& lines) {
  static const Pattern kOrder(R"(r*cp*bp*N*\.)");
  return kinds_in_order(lines, 'c', kOrder);
}

}  // namespace transcripts
