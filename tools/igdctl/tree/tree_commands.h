/// The parts of the group "tree", for tree_commands.cpp.
#ifndef IGDCTL_TREE_COMMANDS_H
#define IGDCTL_TREE_COMMANDS_H

#include <CLI/App.hpp>
#include <string>

#include "term/failure.h"

namespace igdctl {

class Session;

void add_tree_get(CLI::App& group, Session& session);
void add_tree_set(CLI::App& group, Session& session);

/// list, dump and find, which need the data model of the reference platform; nothing on a gateway.
void add_tree_model_commands(CLI::App& group, Session& session);

/// What is wrong with a name that facts_of() does not know.
Problem unknown_parameter(const std::string& name);

/// "name=value" for people and for tree set; of a secret that is set a comment with stars, unless
/// `show_secrets`.
std::string parameter_line(const std::string& name, const std::string& value, bool show_secrets);

}  // namespace igdctl

#endif  // IGDCTL_TREE_COMMANDS_H
