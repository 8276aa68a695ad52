/// igdctl as a whole, but for what only one of its builds has.
#ifndef IGDCTL_PROGRAM_H
#define IGDCTL_PROGRAM_H

#include <CLI/App.hpp>
#include <vector>

#include "cli/session.h"

namespace igdctl {

/// Adds groups of commands, or commands to a group that is there.
using AddCommands = void (*)(CLI::App& root, Session& session);

/// Parses, runs, and maps what came of it to an exit code. First and only thing in main().
///
/// @param of_this_build  commands beside those of every build, added in this order behind them
int run_program(int argc, char** argv, Backend& backend,
                const std::vector<AddCommands>& of_this_build);

}  // namespace igdctl

#endif  // IGDCTL_PROGRAM_H
