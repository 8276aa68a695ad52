// What a gateway's build leaves out: it adds nothing.
#include "command_line.h"
#include "tree_commands.h"

namespace igdctl {

void add_store_commands(CLI::App&, Session&) {}

void add_tree_model_commands(CLI::App&, Session&) {}

}  // namespace igdctl
