#include <algorithm>
#include <memory>
#include <set>

#include "cli/change.h"
#include "cli/command_line.h"
#include "cli/input_file.h"
#include "cli/passwords.h"
#include "cli/session.h"
#include "gateway/management.h"
#include "gateway/names.h"
#include "gateway/secrets.h"
#include "term/text.h"
#include "tree/assignments.h"
#include "tree/parameter_types.h"
#include "tree/tree_commands.h"

namespace igdctl {

namespace {

struct SetOptions {
  std::vector<std::string> assignments;
  std::string from;
  std::string value_file;
  bool prompt = false;
  ChangeOptions change;
};

bool takes_value_from_elsewhere(const SetOptions& options) {
  return options.prompt || !options.value_file.empty();
}

// Other users can read command lines in the list of processes.
void refuse_secret(const Assignment& assignment, std::vector<Problem>& problems) {
  if (!is_secret_parameter(assignment.name) || assignment.value.empty()) return;
  problems.push_back(
      {in_quotes(assignment.name) + " is a secret, and other users can read the command line",
       "give its value with --value-file FILE or --prompt"});
}

void read_arguments(const std::vector<std::string>& arguments, std::vector<Assignment>& assignments,
                    std::vector<Problem>& problems) {
  if (arguments.size() == 2 && arguments[0].find('=') == std::string::npos) {
    assignments.push_back({full_name_of(arguments[0]), arguments[1]});
    refuse_secret(assignments.back(), problems);
    return;
  }
  for (const std::string& argument : arguments) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos || equals == 0) {
      problems.push_back(
          {in_quotes(argument) + " is not NAME=VALUE", "give NAME VALUE, or NAME=VALUE ..."});
      continue;
    }
    assignments.push_back({full_name_of(argument.substr(0, equals)), argument.substr(equals + 1)});
    refuse_secret(assignments.back(), problems);
  }
}

std::string value_from_elsewhere(const SetOptions& options, const std::string& name) {
  if (options.prompt) return password_from_prompt("Value of " + printable(name));
  if (is_secret_parameter(name)) return password_from_file(options.value_file);
  std::string value = content_of_file(options.value_file);
  if (!value.empty() && value.back() == '\n') value.pop_back();
  return value;
}

std::vector<Assignment> assignments_of(const SetOptions& options, std::vector<Problem>& problems) {
  std::vector<Assignment> assignments;
  if (!options.from.empty()) {
    assignments =
        read_assignments(content_of_file(options.from), source_name_of(options.from), problems);
  }
  if (!takes_value_from_elsewhere(options)) {
    read_arguments(options.assignments, assignments, problems);
  } else if (options.assignments.size() == 1 &&
             options.assignments[0].find('=') == std::string::npos) {
    const std::string name = full_name_of(options.assignments[0]);
    assignments.push_back({name, value_from_elsewhere(options, name)});
  } else {
    problems.push_back({"--value-file and --prompt set one parameter",
                        "give the name of that parameter and nothing else"});
  }
  if (assignments.empty() && problems.empty()) {
    problems.push_back(
        {"there is nothing to set", "give NAME VALUE, NAME=VALUE ... or --from FILE"});
  }
  return assignments;
}

/// Checks assignments against the tree, all of them before the first is written.
class SetCheck {
 public:
  SetCheck(Session& session, bool force)
      : tree_(session.tree()), backend_(session.backend()), force_(force) {}

  void look_at(const Assignment& assignment) {
    const auto& [name, value] = assignment;
    if (!names_.insert(name).second) {
      problems_.push_back({in_quotes(name) + " has two values", "give one value"});
    }
    const std::optional<ParameterFacts> facts = backend_.facts_of(name);
    if (!facts) {
      unknown_.push_back(unknown_parameter(backend_, name));
    } else if (tree_.getValue(name) != value) {
      look_at(assignment, *facts);
      changes_.push_back(assignment);
    }
  }

  /// Throws what was found. Bad values come before access: --force does not override them.
  void finish() {
    std::vector<Problem> all = problems_;
    all.insert(all.end(), unknown_.begin(), unknown_.end());
    if (all.empty()) return;
    if (!force_) {
      for (const std::string& name : read_only_) all.push_back({why_not(name), kForceIt});
    }
    throw Failure(problems_.empty() ? ExitCode::kNotFound : ExitCode::kBadInput, all);
  }

  const std::vector<Assignment>& changes() const { return changes_; }

  void ask_for_force(Change& change) const {
    if (read_only_.empty()) return;
    std::vector<std::string> names;
    for (const std::string& name : read_only_) names.push_back(why_not(name));
    change.override_or_fail(joined(names, "; "), "leave it out");
  }

 private:
  static constexpr char kForceIt[] = "leave it out, or override this check with --force";

  static std::string why_not(const std::string& name) { return in_quotes(name) + " is read-only"; }

  void look_at(const Assignment& assignment, const ParameterFacts& facts) {
    const auto& [name, value] = assignment;
    if (facts.derived) {
      problems_.push_back(
          {in_quotes(name) + " is a count of instances", "leave it out: the tree computes it"});
      return;
    }
    if (value.size() > facts.longest) {
      problems_.push_back({"the value for " + in_quotes(name) + " is too long",
                           "give at most " + std::to_string(facts.longest) + " bytes"});
      return;
    }
    if (!facts.writable) read_only_.push_back(name);
    const std::string wanted = wanted_by_type(facts.type, name, value);
    if (wanted.empty() || value == facts.initial) return;
    problems_.push_back(
        {in_quotes(name) + " cannot be " + in_quotes(shown_value(name, value, false)),
         "give " + wanted});
  }

  MibAccess& tree_;
  const Backend& backend_;
  bool force_;
  std::set<std::string> names_;
  std::vector<Problem> problems_;
  std::vector<Problem> unknown_;
  std::vector<std::string> read_only_;
  std::vector<Assignment> changes_;
};

void write(Session& session, const std::vector<Assignment>& assignments) {
  MibAccess& tree = session.tree();
  for (const Assignment& assignment : assignments) {
    const int result = tree.setValue(assignment.name, assignment.value, 0);
    // With a store the refusal is known with its reason, and ends the change later.
    if (result == 0 || session.backend().has_store()) continue;
    throw Failure(ExitCode::kPlatform, "the platform refused to set " + in_quotes(assignment.name),
                  "nothing was committed; values that were set before it may be in effect");
  }
}

void check_and_write(Session& session, const SetOptions& options,
                     const std::vector<Assignment>& assignments, Change& change) {
  MibAccess& tree = session.tree();
  SetCheck check(session, options.change.force);
  for (const Assignment& assignment : assignments) check.look_at(assignment);
  check.finish();
  check.ask_for_force(change);
  if (check.changes().empty()) return change.makes_no_difference();
  const std::vector<ManagementPlace> places = management_places(tree);
  for (const Assignment& assignment : check.changes()) {
    const std::string why = why_at_stake(places, assignment.name);
    if (!why.empty()) change.needs_consent(why);
  }
  write(session, check.changes());
}

std::string what_was_set(const std::vector<Assignment>& assignments, bool show_secrets) {
  if (assignments.size() != 1) return "Set " + std::to_string(assignments.size()) + " parameters";
  const auto& [name, value] = assignments.front();
  return "Set " + name + " to " + in_quotes(shown_value(name, value, show_secrets));
}

void set(Session& session, const SetOptions& options) {
  std::vector<Problem> problems;
  const std::vector<Assignment> assignments = assignments_of(options, problems);
  fail_on(problems);
  Change change(session, options.change);
  const std::string label =
      "tree set " + (assignments.size() == 1 ? assignments.front().name
                                             : std::to_string(assignments.size()) + " parameters");
  const ChangeOutcome outcome =
      change.run(label, [&] { check_and_write(session, options, assignments, change); });
  change.report(outcome, what_was_set(assignments, session.options.show_secrets));
}

}  // namespace

void add_tree_set(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "set", "Set parameters: all of them or none",
                  "tree set InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeEnable true");
  const auto options = std::make_shared<SetOptions>();
  command
      .add_option("ASSIGNMENT", options->assignments,
                  "NAME VALUE, or one or more NAME=VALUE; InternetGatewayDevice. may be left out")
      ->type_name("PARAMETER");
  CLI::Option* const value_file =
      command.add_option("--value-file", options->value_file,
                         "Read the value of one parameter from a file, - for standard input");
  value_file->type_name("FILE");
  CLI::Option* const prompt = command.add_flag("--prompt", options->prompt,
                                               "Ask for the value of one parameter, without echo");
  prompt->excludes(value_file);
  command
      .add_option(
          "--from", options->from,
          "Read lines NAME=VALUE, as tree dump prints them, from a file, - for standard input")
      ->type_name("FILE")
      ->excludes(value_file)
      ->excludes(prompt);
  add_change_options(command, session, options->change);
  add_force_option(command, options->change);
  command.callback(
      [&session, options] { session.on_run([&session, options] { set(session, *options); }); });
}

}  // namespace igdctl
