/// The group "completion", and hidden commands for completion and manual pages.
#ifndef IGDCTL_HELP_COMMANDS_H
#define IGDCTL_HELP_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

/// To be called when the root has all other commands: they are what is completed and explained.
void add_help_commands(CLI::App& root, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_HELP_COMMANDS_H
