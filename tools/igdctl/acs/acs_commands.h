/// The group "acs".
#ifndef IGDCTL_ACS_COMMANDS_H
#define IGDCTL_ACS_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

void add_acs_commands(CLI::App& root, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_ACS_COMMANDS_H
