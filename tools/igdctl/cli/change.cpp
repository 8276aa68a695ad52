#include "cli/change.h"

#include <CLI/App.hpp>
#include <nlohmann/json.hpp>

#include "cli/session.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr long kLongestConfirmation = 86400;

int seconds_from(const std::string& text) {
  long seconds = 0;
  if (parse_number(text, 1, kLongestConfirmation, &seconds)) return static_cast<int>(seconds);
  throw CLI::ValidationError("--confirm", "give a whole number of seconds from 1 to " +
                                              std::to_string(kLongestConfirmation));
}

Json report_of(ChangeOutcome outcome, const std::string& what, const std::string& path,
               const std::vector<std::string>& overridden, const Json* shown) {
  Json data = {{"result", name_of(outcome)}, {"what", what}, {"overridden", overridden}};
  if (!path.empty()) data["path"] = path;
  if (shown != nullptr) data.update(*shown);
  return data;
}

}  // namespace

void add_change_options(CLI::App& command, const Session& session, ChangeOptions& options) {
  const std::string without = session.backend().has_store() ? "" : " (not in this build)";
  command.add_flag("--dry-run", options.dry_run,
                   "Show the writes in order and the difference, but change nothing" + without);
  command
      .add_option_function<std::string>(  // numbers of CLI11 may be octal, "true" is one, too
          "--confirm",
          [&options](const std::string& text) { options.confirm = seconds_from(text); },
          "Revert the change unless it is confirmed in time" + without)
      ->type_name("SECONDS");
  command.add_flag("--yes", options.yes, "Go ahead even if you may lose access to the gateway");
}

void add_force_option(CLI::App& command, ChangeOptions& options) {
  command.add_flag("--force", options.force,
                   "Override checks that fail, where that cannot damage data");
}

const char* name_of(ChangeOutcome outcome) {
  switch (outcome) {
    case ChangeOutcome::kNothing:
      return "no-change";
    case ChangeOutcome::kDone:
      return "done";
    case ChangeOutcome::kPending:
      return "pending";
    case ChangeOutcome::kShown:
      break;
  }
  return "dry-run";
}

Change::Change(Session& session, const ChangeOptions& options)
    : session_(session), options_(options) {}

void Change::override_or_fail(const std::string& message, const std::string& hint) {
  override_or_fail({{message, hint}});
}

void Change::override_or_fail(const std::vector<Problem>& reasons) {
  if (!options_.force && !reasons.empty()) {
    std::vector<Problem> problems = reasons;
    for (Problem& problem : problems) problem.hint += "; or override this check with --force";
    throw Failure(ExitCode::kRefused, problems);
  }
  for (const Problem& reason : reasons) {
    session_.output().warn("--force overrides this: " + reason.message);
    overridden_.push_back(reason.message);
  }
}

bool Change::has_store() const { return session_.backend().has_store(); }

void Change::refuse_what_needs_a_store() const {
  if (has_store() || (!options_.dry_run && options_.confirm == 0)) return;
  throw Failure(ExitCode::kUnsupported,
                std::string(options_.dry_run ? "--dry-run" : "--confirm") +
                    " needs a store, and the platform of a gateway has none",
                "try the change on a workstation first, where igdctl has a store");
}

void Change::needs_consent(const std::string& why) {
  consent_ = why;
  if (!has_store()) require_consent();
}

void Change::require_consent() const {
  if (consent_.empty() || options_.yes || options_.confirm != 0) return;
  throw Failure(ExitCode::kNeedsConsent, consent_,
                has_store()
                    ? "add --confirm SECONDS, then run igdctl store confirm if you can still "
                      "reach the gateway; or go ahead at once with --yes"
                    : "go ahead with --yes");
}

ChangeOutcome Change::run(const std::string& label, const std::function<void()>& work) {
  refuse_what_needs_a_store();
  (void)session_.tree();
  const std::unique_ptr<Transaction> transaction = session_.backend().begin_change();
  work();
  const std::optional<ChangeEffect> effect =
      transaction->effect(session_.options.show_secrets, session_.options.output.verbose);
  const bool no_difference = no_difference_ || (effect && effect->empty);
  if (options_.dry_run) {
    keep_for_report(*effect);
    return ChangeOutcome::kShown;
  }
  if (no_difference) return ChangeOutcome::kNothing;
  require_consent();
  transaction->land(label, options_.confirm);
  return options_.confirm == 0 ? ChangeOutcome::kDone : ChangeOutcome::kPending;
}

void Change::keep_for_report(const ChangeEffect& effect) {
  shown_text_ = effect.text;
  for (const auto& [key, value] : effect.json->items()) add_detail(key, value);
}

void Change::add_detail(const std::string& key, const Json& value) {
  if (shown_json_ == nullptr) shown_json_ = std::make_shared<Json>(Json::object());
  (*shown_json_)[key] = value;
}

void Change::report(ChangeOutcome outcome, const std::string& what, const std::string& path) {
  Output& output = session_.output();
  if (output.json()) {
    output.document("change", report_of(outcome, what, path, overridden_, shown_json_.get()));
    return;
  }
  output.raw(shown_text_);
  switch (outcome) {
    case ChangeOutcome::kNothing:
      output.done("No change: everything is already as requested");
      break;
    case ChangeOutcome::kShown:
      output.done("Dry run: nothing was changed");
      break;
    case ChangeOutcome::kDone:
      output.done(what);
      break;
    case ChangeOutcome::kPending:
      output.done(what + "; it will be reverted in " + std::to_string(options_.confirm) +
                  " seconds unless you run: igdctl store confirm");
      break;
  }
}

}  // namespace igdctl
