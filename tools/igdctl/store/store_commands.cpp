#include "store/store_commands.h"

#include <filesystem>
#include <nlohmann/json.hpp>

#include "backend/with_store/store_backend.h"
#include "cli/command_line.h"
#include "cli/session.h"
#include "term/text.h"

namespace igdctl {

namespace {

void show_path(Session& session) {
  const std::string path = store_path(session.options.store);
  std::error_code error;
  const bool exists = std::filesystem::exists(path, error);
  Output& output = session.output();
  if (output.json()) {
    output.document("store.path", {{"path", path}, {"exists", exists}});
  } else {
    output.line(path);
  }
}

void add_path(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "path", "Show where the store is, without opening it", "store path");
  command.callback([&session] { session.on_run([&session] { show_path(session); }); });
}

}  // namespace

void add_store_commands(CLI::App& root, Session& session) {
  CLI::App& group =
      add_group(root, "store", "Export, import and restore the tree, confirm changes");
  add_path(group, session);
  add_store_import(group, session);
  add_store_export(group, session);
  add_store_checkpoint(group, session);
  add_store_restore(group, session);
  add_store_diff(group, session);
  add_store_history(group, session);
  add_store_confirm(group, session);
  add_store_revert(group, session);
}

host::Store& store_of(Session& session) {
  (void)session.tree();
  session.backend().end_read_hold();
  return *host::process_store();
}

void report_done(Output& output, const std::string& what) {
  if (!output.json()) return output.done(what);
  output.document("change", {{"result", "done"}, {"what", what}, {"overridden", Json::array()}});
}

Failure unknown_checkpoint(host::Store& store, const std::string& name) {
  std::vector<std::string> names;
  for (const host::Checkpoint& checkpoint : store.checkpoints()) names.push_back(checkpoint.name);
  return {ExitCode::kNotFound, "there is no checkpoint " + in_quotes(name),
          did_you_mean(name, names, "igdctl store history lists the checkpoints")};
}

}  // namespace igdctl
