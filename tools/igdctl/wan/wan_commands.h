/// The group "wan".
#ifndef IGDCTL_WAN_COMMANDS_H
#define IGDCTL_WAN_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

void add_wan_commands(CLI::App& root, Session& session);

// Its parts.
void add_wan_list(CLI::App& group, Session& session);
void add_wan_show(CLI::App& group, Session& session);
void add_wan_status(CLI::App& group, Session& session);
void add_wan_ports(CLI::App& group, Session& session);
void add_wan_create(CLI::App& group, Session& session);
void add_wan_set(CLI::App& group, Session& session);
void add_wan_remove(CLI::App& group, Session& session);
void add_wan_check(CLI::App& group, Session& session);
void add_wan_ensure(CLI::App& group, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_WAN_COMMANDS_H
