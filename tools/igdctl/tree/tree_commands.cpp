#include "tree/tree_commands.h"

#include "backend/backend.h"
#include "cli/command_line.h"
#include "gateway/secrets.h"
#include "term/text.h"
#include "tree/assignments.h"

namespace igdctl {

void add_tree_commands(CLI::App& root, Session& session) {
  CLI::App& group =
      add_group(root, "tree", "Show and change single parameters of the configuration tree");
  add_tree_get(group, session);
  add_tree_set(group, session);
}

Problem unknown_parameter(const Backend& backend, const std::string& name) {
  if (backend.is_object_path(name)) {
    return {in_quotes(name) + " is an object and has no value",
            "igdctl tree list shows what it contains"};
  }
  return {"there is no parameter " + in_quotes(name),
          did_you_mean(backend.names_near(name),
                       "igdctl tree find searches names, igdctl tree list shows an object")};
}

std::string parameter_line(const std::string& name, const std::string& value, bool show_secrets) {
  const std::string shown = shown_value(name, value, show_secrets);
  return (shown == value ? "" : "# ") + line_of({name, shown});
}

}  // namespace igdctl
