/// The commands of igdctl, as CLI11 parses them.
#ifndef IGDCTL_COMMAND_LINE_H
#define IGDCTL_COMMAND_LINE_H

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace igdctl {

class Session;

/// Makes the root command, with its global options and without any group.
void build_root(CLI::App& root, Session& session);

/// Parses the arguments of a process. A failed parse and --help are done with when it returns.
/// @return true when the session has work to do; else `exit_code` is set
bool parse_command_line(CLI::App& root, int argc, const char* const* argv, int* exit_code);

/// Adds a group of commands, of which one must be given: "wan".
CLI::App& add_group(CLI::App& root, const std::string& name, const std::string& description);

/// Adds a command to a group. `example` stands below its --help, without "igdctl ".
CLI::App& add_command(CLI::App& group, const std::string& name, const std::string& description,
                      const std::string& example);

/// Adds the required argument CONNECTION: a name, a path or "<d>.<c>", for find_connection().
void add_connection_argument(CLI::App& command, std::string& selector);

/// Adds the required argument BRIDGE, for find_bridge().
void add_bridge_argument(CLI::App& command, std::string& selector);

/// "igdctl wan list", as it is typed.
std::string command_path(const CLI::App& command);

/// The groups or commands below this one that help shows.
std::vector<const CLI::App*> shown_commands(const CLI::App& command);

}  // namespace igdctl

#endif  // IGDCTL_COMMAND_LINE_H
