/// The group "tree", and its parts.
#ifndef IGDCTL_TREE_COMMANDS_H
#define IGDCTL_TREE_COMMANDS_H

#include <CLI/App.hpp>
#include <string>

#include "term/failure.h"

namespace igdctl {

class Backend;
class Session;

/// The group "tree" with get and set.
void add_tree_commands(CLI::App& root, Session& session);

/// Adds list, dump and find to it, which need the data model of the reference platform.
void add_tree_model_commands(CLI::App& root, Session& session);

void add_tree_get(CLI::App& group, Session& session);
void add_tree_set(CLI::App& group, Session& session);

/// What is wrong with a name that the backend does not know.
Problem unknown_parameter(const Backend& backend, const std::string& name);

/// "name=value" for people and for tree set; of a secret that is set a comment with stars, unless
/// `show_secrets`.
std::string parameter_line(const std::string& name, const std::string& value, bool show_secrets);

}  // namespace igdctl

#endif  // IGDCTL_TREE_COMMANDS_H
