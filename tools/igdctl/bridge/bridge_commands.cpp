#include "bridge/bridge_commands.h"

#include <nlohmann/json.hpp>

#include "cli/command_line.h"
#include "cli/session.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "term/failure.h"

namespace igdctl {

namespace {

// The result of the search when nothing is free; this VLAN may itself be taken.
constexpr int kNoneFree = 3999;

std::string searched_range() {
  return "from " + std::to_string(igd::kFirstSearchedVlan) + " to " +
         std::to_string(igd::kFirstPrivateVlan - 1);
}

void show_free_vlan(Session& session) {
  MibAccess& tree = session.tree();
  const int vlan = igd_wan_get_unused_vlan();
  std::vector<std::string> names;
  (void)igd_tool_loop_instance("", kBridgeVlanId, names);
  for (const std::string& name : names) {
    if (vlan == kNoneFree && tree.getValue(name) == std::to_string(vlan)) {
      throw Failure(ExitCode::kNotFound, "no VLAN " + searched_range() + " is free",
                    "igdctl bridge list shows which bridges have them");
    }
  }
  Output& output = session.output();
  if (output.json()) {
    output.document("vlan.free", {{"vlan", vlan}});
  } else {
    output.line(std::to_string(vlan));
  }
}

}  // namespace

void add_bridge_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "bridge", "Show and repair bridges");
  add_bridge_list(group, session);
  add_bridge_show(group, session);
  add_bridge_of(group, session);
  add_bridge_create(group, session);
  add_bridge_remove(group, session);
  add_bridge_move(group, session);
}

void add_vlan_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "vlan", "Find a free VLAN");
  CLI::App& command =
      add_command(group, "free", "Show the lowest VLAN " + searched_range() + " that no bridge has",
                  "vlan free");
  command.callback([&session] { session.on_run([&session] { show_free_vlan(session); }); });
}

}  // namespace igdctl
