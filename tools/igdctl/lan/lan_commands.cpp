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
#include "igd_vocabulary.h"
#include "term/text.h"

namespace igdctl {

namespace {

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
  const std::string host = igd::kLanHostConfig;
  const std::string interface = igd::kLanIpInterface;
  Lan lan;
  lan.address = igd_c_get_lan_ipaddr();
  lan.mask = value_in(tree, interface, "IPInterfaceSubnetMask");
  lan.addressing = value_in(tree, interface, "IPInterfaceAddressingType");
  lan.enabled = is_true(value_in(tree, interface, "Enable"));
  lan.dhcp_server = is_true(value_in(tree, host, "DHCPServerEnable"));
  lan.first = value_in(tree, host, "MinAddress");
  lan.last = value_in(tree, host, "MaxAddress");
  return lan;
}

void show(Session& session) {
  MibAccess& tree = session.tree();
  const Lan lan = read_lan(tree);
  const std::vector<Bridge> bridges = read_bridges(tree);
  const Bridge* const bridge = find_lan_bridge(bridges);
  const std::vector<std::string> ports =
      bridge == nullptr ? std::vector<std::string>() : nodes_of(*bridge);
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
                                 {"ports", ports}});
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
                 {"ports", joined(ports, " ")}}});
}

}  // namespace

void add_lan_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "lan", "Show the LAN side: its address, DHCP server and ports");
  CLI::App& command =
      add_command(group, "show", "Show the LAN address, DHCP server and ports", "lan show");
  command.callback([&session] { session.on_run([&session] { show(session); }); });
}

}  // namespace igdctl
