/// The command "topology".
#ifndef IGDCTL_TOPOLOGY_COMMANDS_H
#define IGDCTL_TOPOLOGY_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

void add_topology_command(CLI::App& root, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_TOPOLOGY_COMMANDS_H
