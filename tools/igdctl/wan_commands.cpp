#include "wan_commands.h"

#include "command_line.h"

namespace igdctl {

void add_wan_commands(CLI::App& root, Session& session) {
  CLI::App& group = add_group(root, "wan", "WAN connections: see, make, change, remove");
  add_wan_list(group, session);
  add_wan_show(group, session);
}

}  // namespace igdctl
