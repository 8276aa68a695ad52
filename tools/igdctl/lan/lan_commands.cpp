#include "lan/lan_commands.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/bridge_names.h"
#include "gateway/bridges.h"
#include "gateway/connections.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr char kHost[] = "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.";

struct Lan {
  std::string address;
  std::string mask;
  std::string addressing;
  bool enabled = false;
  bool dhcp_server = false;
  std::string first;  // of the addresses that the DHCP server gives out
  std::string last;
};

Lan read_lan(MibAccess& tree) {
  const std::string host = kHost;
  const std::string interface = host + "IPInterface.1.";
  Lan lan;
  lan.address = igd_c_get_lan_ipaddr();
  lan.mask = value_in(tree, interface, "IPInterfaceSubnetMask");
  lan.addressing = value_in(tree, interface, "IPInterfaceAddressingType");
  lan.enabled = value_in(tree, interface, "Enable") == "true";
  lan.dhcp_server = value_in(tree, host, "DHCPServerEnable") == "true";
  lan.first = value_in(tree, host, "MinAddress");
  lan.last = value_in(tree, host, "MaxAddress");
  return lan;
}

std::vector<std::string> nodes_of(const Bridge* bridge) {
  std::vector<std::string> nodes;
  if (bridge == nullptr) return nodes;
  for (const Port& port : bridge->ports) nodes.push_back(port.node);
  return nodes;
}

Cell switch_cell(bool on) { return {on ? "on" : "off", on ? Style::kGood : Style::kMuted}; }

void show(Session& session) {
  MibAccess& tree = session.tree();
  const Lan lan = read_lan(tree);
  const std::vector<Bridge> bridges = read_bridges(tree);
  const Bridge* const bridge = find_lan_bridge(bridges);
  Output& output = session.output();
  if (output.json()) {
    output.document("lan.show", {{"address", lan.address},
                                 {"mask", lan.mask},
                                 {"addressing", lan.addressing},
                                 {"enabled", lan.enabled},
                                 {"dhcp_server", lan.dhcp_server},
                                 {"dhcp_first", lan.first},
                                 {"dhcp_last", lan.last},
                                 {"bridge", bridge == nullptr ? Json(nullptr) : Json(bridge->path)},
                                 {"ports", nodes_of(bridge)}});
    return;
  }
  output.table({{},
                {{"address", lan.address},
                 {"mask", lan.mask},
                 {"addressing", lan.addressing},
                 {"enabled", switch_cell(lan.enabled)},
                 {"DHCP server", switch_cell(lan.dhcp_server)},
                 {"DHCP range", lan.first.empty() ? "" : lan.first + " - " + lan.last},
                 {"bridge", bridge == nullptr ? "" : bridge->name},
                 {"ports", joined(nodes_of(bridge), " ")}}});
}

}  // namespace

void add_lan_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "lan", "The household's side: its address and ports");
  CLI::App& command = add_command(group, "show", "Address, DHCP server and ports", "lan show");
  command.callback([&session] { session.on_run([&session] { show(session); }); });
}

}  // namespace igdctl
