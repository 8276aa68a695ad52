#include "wan/wan_commands.h"

#include "cli/command_line.h"

namespace igdctl {

void add_wan_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "wan", "Show and change WAN connections");
  add_wan_list(group, session);
  add_wan_show(group, session);
  add_wan_status(group, session);
  add_wan_ports(group, session);
  add_wan_create(group, session);
  add_wan_set(group, session);
  add_wan_remove(group, session);
  add_wan_check(group, session);
  add_wan_ensure(group, session);
}

}  // namespace igdctl
