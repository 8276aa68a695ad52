#include "program.h"

#include <exception>

#include "acs/acs_commands.h"
#include "bridge/bridge_commands.h"
#include "cli/command_line.h"
#include "cli/trace.h"
#include "doctor/doctor_commands.h"
#include "help/help_commands.h"
#include "lan/lan_commands.h"
#include "route/route_commands.h"
#include "topology/topology_commands.h"
#include "tree/tree_commands.h"
#include "wan/wan_commands.h"

namespace igdctl {

namespace {

// In the order of the help.
constexpr AddCommands kOfEveryBuild[] = {
    add_wan_commands,     add_bridge_commands, add_vlan_commands,
    add_route_commands,   add_acs_commands,    add_lan_commands,
    add_topology_command, add_doctor_command,  add_tree_commands};

int run(int argc, char** argv, Backend& backend, const std::vector<AddCommands>& of_this_build) {
  Session session(backend);
  CLI::App root;
  build_root(root, session);
  for (const AddCommands add : kOfEveryBuild) add(root, session);
  for (const AddCommands add : of_this_build) add(root, session);
  add_help_commands(root, session);
  int exit_code = 0;
  if (!parse_command_line(root, argc, argv, &exit_code)) return exit_code;
  return session.run();
}

}  // namespace

int run_program(int argc, char** argv, Backend& backend,
                const std::vector<AddCommands>& of_this_build) {
  try {
    open_standard_streams();
    return run(argc, argv, backend, of_this_build);
  } catch (const std::exception& error) {
    report({ExitCode::kFailed, error.what(), "report it with the command"});
    return static_cast<int>(ExitCode::kFailed);
  }
}

}  // namespace igdctl
