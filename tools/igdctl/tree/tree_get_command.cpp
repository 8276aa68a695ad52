#include <memory>
#include <nlohmann/json.hpp>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/names.h"
#include "gateway/secrets.h"
#include "tree/assignments.h"
#include "tree/parameter_json.h"
#include "tree/tree_commands.h"

namespace igdctl {

namespace {

struct ReadParameter {
  Assignment text;
  ParameterFacts facts;
};

std::vector<ReadParameter> read(Session& session, const std::vector<std::string>& names) {
  MibAccess& tree = session.tree();
  const Backend& backend = session.backend();
  std::vector<ReadParameter> parameters;
  std::vector<Problem> problems;
  for (const std::string& short_name : names) {
    const std::string name = full_name_of(short_name);
    const std::optional<ParameterFacts> facts = backend.facts_of(name);
    if (facts) {
      parameters.push_back({{name, tree.getValue(name)}, *facts});
    } else {
      problems.push_back(unknown_parameter(backend, name));
    }
  }
  if (!problems.empty()) throw Failure(ExitCode::kNotFound, problems);
  return parameters;
}

void get(Session& session, const std::vector<std::string>& names) {
  const std::vector<ReadParameter> parameters = read(session, names);
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
      add_command(group, "get", "Show the value of a parameter, or NAME=VALUE for several",
                  "tree get InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName");
  const auto names = std::make_shared<std::vector<std::string>>();
  command.add_option("NAME", *names, "Full name; InternetGatewayDevice. may be left out")
      ->required()
      ->type_name("PARAMETER");
  command.callback(
      [&session, names] { session.on_run([&session, names] { get(session, *names); }); });
}

}  // namespace igdctl
