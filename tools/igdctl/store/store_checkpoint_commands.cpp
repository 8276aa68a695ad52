#include <memory>
#include <nlohmann/json.hpp>

#include "backend/with_store/store_failure.h"
#include "cli/change.h"
#include "cli/command_line.h"
#include "cli/session.h"
#include "store/store_commands.h"
#include "term/text.h"
#include "term/times.h"

namespace igdctl {

namespace {

struct RestoreOptions {
  std::string name;
  ChangeOptions change;
};

void require_checkpoint(host::Store& store, const std::string& name,
                        const host::StoreResult& result) {
  if (result.error == host::StoreError::kNoCheckpoint) throw unknown_checkpoint(store, name);
  require(result);
}

void make(Session& session, const std::string& name) {
  require(store_of(session).make_checkpoint(name));
  report_done(session.output(), "Saved the present state as checkpoint " + in_quotes(name));
}

void list(Session& session) {
  host::StoreResult result;
  const std::vector<host::Checkpoint> checkpoints = store_of(session).checkpoints(&result);
  require(result);
  Json data = Json::array();
  Table table{{"NAME", "SAVED", "GENERATION"}, {}};
  for (const host::Checkpoint& checkpoint : checkpoints) {
    if (checkpoint.automatic) continue;
    data.push_back({{"name", checkpoint.name},
                    {"time", utc_time_text(checkpoint.time)},
                    {"generation", checkpoint.generation}});
    table.rows.push_back(
        {checkpoint.name, local_time_text(checkpoint.time), std::to_string(checkpoint.generation)});
  }
  Output& output = session.output();
  if (output.json()) return output.document("store.checkpoints", data);
  if (table.rows.empty()) {
    return output.done("There are no checkpoints. Save one with igdctl store checkpoint NAME");
  }
  output.table(table);
}

void remove(Session& session, const std::string& name) {
  host::Store& store = store_of(session);
  const host::StoreResult result = store.delete_checkpoint(name);
  if (result.error == host::StoreError::kBadName && !name.empty() && name[0] == '@') {
    throw Failure(ExitCode::kBadInput, in_quotes(name) + " is an automatic checkpoint",
                  "automatic checkpoints are deleted after 20 newer changes");
  }
  require_checkpoint(store, name, result);
  report_done(session.output(), "Deleted checkpoint " + in_quotes(name));
}

void restore(Session& session, const RestoreOptions& options) {
  Change change(session, options.change);
  const ChangeOutcome outcome = change.run("store restore " + options.name, [&] {
    replace_tree(session, change, [&](host::Store& store) {
      require_checkpoint(store, options.name, store.restore(options.name));
    });
  });
  change.report(outcome, "Restored checkpoint " + in_quotes(options.name));
}

void add_list_and_delete(CLI::App& command, Session& session) {
  CLI::App& all =
      add_command(command, "list", "List the named checkpoints", "store checkpoint list");
  all.callback([&session] { session.on_run([&session] { list(session); }); });
  CLI::App& gone =
      add_command(command, "delete", "Delete a checkpoint", "store checkpoint delete before-vlan");
  const auto name = std::make_shared<std::string>();
  gone.add_option("CHECKPOINT", *name, "Its name")->required();
  gone.callback([&session, name] { session.on_run([&session, name] { remove(session, *name); }); });
}

}  // namespace

void add_store_checkpoint(CLI::App& group, Session& session) {
  CLI::App& command = add_command(
      group, "checkpoint", "Save the present state as a checkpoint, list or delete checkpoints",
      "store checkpoint before-vlan");
  command.require_subcommand(0, 1);
  const auto name = std::make_shared<std::string>();
  command.add_option("NAME", *name, "1 to 64 letters, digits, dots, underscores and hyphens");
  add_list_and_delete(command, session);
  command.callback([&session, &command, name] {
    const bool listed_or_deleted = !command.get_subcommands().empty();
    if (listed_or_deleted && name->empty()) return;
    if (listed_or_deleted) throw CLI::ExtrasError(command.get_name(), {*name});
    if (name->empty()) throw CLI::RequiredError("NAME, list or delete");
    session.on_run([&session, name] { make(session, *name); });
  });
}

void add_store_restore(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "restore", "Restore the state of a checkpoint, as a new change",
                  "store restore before-vlan --dry-run");
  const auto options = std::make_shared<RestoreOptions>();
  command.add_option("CHECKPOINT", options->name, "Its name, or @N for an automatic one")
      ->required();
  add_change_options(command, session, options->change);
  command.callback(
      [&session, options] { session.on_run([&session, options] { restore(session, *options); }); });
}

}  // namespace igdctl
