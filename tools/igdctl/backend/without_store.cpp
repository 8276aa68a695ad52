// What a gateway's build leaves out: it adds nothing.
#include "cli/command_line.h"
#include "help/completion.h"
#include "tree/tree_commands.h"

namespace igdctl {

void add_store_commands(CLI::App&, Session&) {}

void add_tree_model_commands(CLI::App&, Session&) {}

bool has_tree_to_read(const Session&) { return true; }

std::vector<Candidate> checkpoint_words() { return {}; }

std::vector<Candidate> parameter_words(const std::string&) { return {}; }

}  // namespace igdctl
