/// The group "lan".
#ifndef IGDCTL_LAN_COMMANDS_H
#define IGDCTL_LAN_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

void add_lan_commands(CLI::App& root, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_LAN_COMMANDS_H
