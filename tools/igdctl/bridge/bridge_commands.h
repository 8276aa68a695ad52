/// The groups "bridge" and "vlan".
#ifndef IGDCTL_BRIDGE_COMMANDS_H
#define IGDCTL_BRIDGE_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

void add_bridge_commands(CLI::App& root, Session& session);
void add_vlan_commands(CLI::App& root, Session& session);

// Its parts.
void add_bridge_list(CLI::App& group, Session& session);
void add_bridge_show(CLI::App& group, Session& session);
void add_bridge_of(CLI::App& group, Session& session);

void add_bridge_create(CLI::App& group, Session& session);
void add_bridge_remove(CLI::App& group, Session& session);
void add_bridge_move(CLI::App& group, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_BRIDGE_COMMANDS_H
