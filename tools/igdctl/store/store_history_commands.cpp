#include <memory>
#include <nlohmann/json.hpp>

#include "backend/with_store/difference_view.h"
#include "backend/with_store/store_failure.h"
#include "cli/command_line.h"
#include "cli/session.h"
#include "store/store_commands.h"
#include "term/text.h"
#include "term/times.h"

namespace igdctl {

namespace {

struct DiffOptions {
  std::string from;
  std::string to;
};

std::vector<host::Checkpoint> checkpoints_of(host::Store& store) {
  host::StoreResult result;
  std::vector<host::Checkpoint> checkpoints = store.checkpoints(&result);
  require(result);
  return checkpoints;
}

// The state before the last change; "" when there was none.
std::string before_the_last_change(host::Store& store) {
  const std::vector<host::Checkpoint> checkpoints = checkpoints_of(store);
  if (checkpoints.empty() || !checkpoints.front().automatic) return {};
  return checkpoints.front().name;
}

void require_difference(host::Store& store, const DiffOptions& options,
                        host::Difference* difference) {
  const host::StoreResult result = store.difference(options.from, options.to, difference);
  if (result.error != host::StoreError::kNoCheckpoint) return require(result);
  for (const host::Checkpoint& checkpoint : checkpoints_of(store)) {
    if (checkpoint.name == options.from) throw unknown_checkpoint(store, options.to);
  }
  throw unknown_checkpoint(store, options.from);
}

std::string title_of_state(const std::string& name) {
  return name.empty() ? "now" : "checkpoint " + in_quotes(name);
}

void diff(Session& session, DiffOptions options) {
  host::Store& store = store_of(session);
  if (options.from.empty()) options.from = before_the_last_change(store);
  host::Difference difference;
  require_difference(store, options, &difference);
  const bool secrets = session.options.show_secrets;
  Output& output = session.output();
  if (output.json()) {
    const Json now = nullptr;
    Json data = {{"from", options.from.empty() ? now : Json(options.from)},
                 {"to", options.to.empty() ? now : Json(options.to)},
                 {"difference", json_of(difference, secrets)}};
    return output.document("store.diff", data);
  }
  output.done("From " + title_of_state(options.from) + " to " + title_of_state(options.to));
  output.raw(text_of(difference, secrets));
}

Json json_of(const std::optional<host::PendingChange>& pending) {
  if (!pending) return nullptr;
  return {{"label", pending->label},
          {"generation", pending->generation},
          {"milliseconds_left", pending->milliseconds_left}};
}

void show_json(Output& output, const host::Store& store,
               const std::optional<host::PendingChange>& pending,
               const std::vector<host::Checkpoint>& checkpoints) {
  Json changes = Json::array();
  Json named = Json::array();
  for (const host::Checkpoint& checkpoint : checkpoints) {
    Json row = {{"time", utc_time_text(checkpoint.time)},
                {checkpoint.automatic ? "checkpoint" : "name", checkpoint.name},
                {"generation", checkpoint.generation}};
    if (checkpoint.automatic) row["label"] = checkpoint.label;
    (checkpoint.automatic ? changes : named).push_back(std::move(row));
  }
  output.document("store.history", {{"generation", store.generation()},
                                    {"pending", json_of(pending)},
                                    {"changes", changes},
                                    {"checkpoints", named}});
}

void show_text(Output& output, const std::optional<host::PendingChange>& pending,
               const std::vector<host::Checkpoint>& checkpoints) {
  Table changes{{"CHANGED", "BY", "STATE BEFORE"}, {}};
  Table named{{"CHECKPOINT", "SAVED"}, {}};
  for (const host::Checkpoint& checkpoint : checkpoints) {
    const std::string time = local_time_text(checkpoint.time);
    if (checkpoint.automatic) {
      changes.rows.push_back({time, checkpoint.label, checkpoint.name});
    } else {
      named.rows.push_back({checkpoint.name, time});
    }
  }
  if (pending) {
    constexpr std::int64_t kSecond = 1000;
    output.line("The change " + in_quotes(pending->label) + " will be reverted in " +
                std::to_string((pending->milliseconds_left + kSecond - 1) / kSecond) +
                " seconds unless you run: igdctl store confirm");
  }
  if (changes.rows.empty()) output.done("There have been no changes yet");
  if (!changes.rows.empty()) output.table(changes);
  if (named.rows.empty()) return;
  output.raw("\n");
  output.table(named);
}

void history(Session& session) {
  host::Store& store = store_of(session);
  const std::optional<host::PendingChange> pending = store.pending();
  const std::vector<host::Checkpoint> checkpoints = checkpoints_of(store);
  Output& output = session.output();
  if (output.json()) return show_json(output, store, pending, checkpoints);
  show_text(output, pending, checkpoints);
}

void end_pending(Session& session, host::StoreResult (host::Store::*end)(),
                 const std::string& verb) {
  host::Store& store = store_of(session);
  const std::optional<host::PendingChange> pending = store.pending();
  require((store.*end)());
  report_done(session.output(), verb + " the change " + in_quotes(pending ? pending->label : ""));
}

}  // namespace

void add_store_diff(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "diff", "Show the difference between two states",
                                  "store diff before-vlan");
  const auto options = std::make_shared<DiffOptions>();
  command
      .add_option("FROM", options->from,
                  "A checkpoint; if left out, the state before the last change")
      ->type_name("CHECKPOINT");
  command.add_option("TO", options->to, "A checkpoint; if left out, the present state")
      ->type_name("CHECKPOINT");
  command.callback(
      [&session, options] { session.on_run([&session, options] { diff(session, *options); }); });
}

void add_store_history(CLI::App& group, Session& session) {
  CLI::App& command = add_command(
      group, "history", "Show the last 20 changes, the checkpoints and any pending change",
      "store history");
  command.callback([&session] { session.on_run([&session] { history(session); }); });
}

void add_store_confirm(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "confirm", "Keep the change that waits for confirmation", "store confirm");
  command.callback([&session] {
    session.on_run([&session] { end_pending(session, &host::Store::confirm, "Confirmed"); });
  });
}

void add_store_revert(CLI::App& group, Session& session) {
  CLI::App& command = add_command(
      group, "revert", "Revert the change that waits for confirmation at once", "store revert");
  command.callback([&session] {
    session.on_run([&session] { end_pending(session, &host::Store::revert, "Reverted"); });
  });
}

}  // namespace igdctl
