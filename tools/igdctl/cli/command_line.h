/// The commands of igdctl, as CLI11 parses them.
#ifndef IGDCTL_COMMAND_LINE_H
#define IGDCTL_COMMAND_LINE_H

#include <CLI/App.hpp>
#include <string>

namespace igdctl {

class Session;

/// The root command with its global options and every group.
void build_command_line(CLI::App& root, Session& session);

/// Parses the arguments of a process. A failed parse and --help are done with when it returns.
/// @return true when the session has work to do; else `exit_code` is set
bool parse_command_line(CLI::App& root, int argc, const char* const* argv, int* exit_code);

/// Adds a group of commands, of which one must be given: "wan".
CLI::App& add_group(CLI::App& root, const std::string& name, const std::string& description);

/// Adds a command to a group. `example` stands below its --help, without "igdctl ".
CLI::App& add_command(CLI::App& group, const std::string& name, const std::string& description,
                      const std::string& example);

/// Adds the required argument CONNECTION: a name, a path or "<d>.<c>", for find_connection().
void add_connection_argument(CLI::App& command, std::string& words);

// One for each group; each stands in <group>_commands.cpp.
void add_wan_commands(CLI::App& root, Session& session);
void add_bridge_commands(CLI::App& root, Session& session);
void add_vlan_commands(CLI::App& root, Session& session);
void add_route_commands(CLI::App& root, Session& session);
void add_acs_commands(CLI::App& root, Session& session);
void add_lan_commands(CLI::App& root, Session& session);
void add_topology_command(CLI::App& root, Session& session);
void add_doctor_command(CLI::App& root, Session& session);
void add_tree_commands(CLI::App& root, Session& session);
void add_store_commands(CLI::App& root, Session& session);  ///< nothing on a gateway
void add_completion_commands(CLI::App& root, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_COMMAND_LINE_H
