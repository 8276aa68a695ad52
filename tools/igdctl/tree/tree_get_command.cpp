#include <memory>
#include <nlohmann/json.hpp>

#include "backend/parameter_facts.h"
#include "cli/command_line.h"
#include "cli/secrets.h"
#include "cli/session.h"
#include "tree/assignments.h"
#include "tree/tree_commands.h"

namespace igdctl {

namespace {

struct ReadParameter {
  Assignment text;
  ParameterFacts facts;
};

std::vector<ReadParameter> read(MibAccess& tree, const std::vector<std::string>& words) {
  std::vector<ReadParameter> parameters;
  std::vector<Problem> problems;
  for (const std::string& word : words) {
    const std::string name = full_name_of(word);
    const std::optional<ParameterFacts> facts = facts_of(name);
    if (facts) {
      parameters.push_back({{name, tree.getValue(name)}, *facts});
    } else {
      problems.push_back(unknown_parameter(name));
    }
  }
  if (!problems.empty()) throw Failure(ExitCode::kNotFound, problems);
  return parameters;
}

void get(Session& session, const std::vector<std::string>& words) {
  const std::vector<ReadParameter> parameters = read(session.tree(), words);
  const bool show_secrets = session.options.show_secrets;
  Output& output = session.output();
  Json data = Json::array();
  for (const ReadParameter& parameter : parameters) {
    const auto& [name, value] = parameter.text;
    if (output.json()) {
      data.push_back(json_of(name, value, parameter.facts, show_secrets));
    } else if (parameters.size() == 1) {
      output.line(shown_value(name, value, show_secrets));
    } else {
      output.raw(parameter_line(name, value, show_secrets) + '\n');
    }
  }
  if (output.json()) output.document("tree.get", data);
}

}  // namespace

void add_tree_get(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "get", "The value of a parameter, or NAME=VALUE of several",
                  "tree get InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName");
  const auto words = std::make_shared<std::vector<std::string>>();
  command.add_option("NAME", *words, "Full name; InternetGatewayDevice. may be left out")
      ->required()
      ->type_name("PARAMETER");
  command.callback(
      [&session, words] { session.on_run([&session, words] { get(session, *words); }); });
}

}  // namespace igdctl
