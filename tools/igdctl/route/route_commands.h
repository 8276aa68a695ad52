/// The group "route".
#ifndef IGDCTL_ROUTE_COMMANDS_H
#define IGDCTL_ROUTE_COMMANDS_H

namespace CLI {
class App;
}

namespace igdctl {

class Session;

void add_route_commands(CLI::App& root, Session& session);

// Its parts.
void add_route_add(CLI::App& group, Session& session);
void add_route_remove(CLI::App& group, Session& session);
void add_route_clear(CLI::App& group, Session& session);

}  // namespace igdctl

#endif  // IGDCTL_ROUTE_COMMANDS_H
