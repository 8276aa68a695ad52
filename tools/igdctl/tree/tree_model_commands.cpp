// Commands that need the data model of the reference platform.
#include <fnmatch.h>

#include <memory>
#include <nlohmann/json.hpp>

#include "cli/command_line.h"
#include "cli/session.h"
#include "gateway/names.h"
#include "gateway/secrets.h"
#include "host_platform.h"
#include "term/text.h"
#include "tree/parameter_json.h"
#include "tree/tree_commands.h"

namespace igdctl {

namespace {

const char* name_of(host::Object::Kind kind) {
  switch (kind) {
    case host::Object::Kind::kTable:
      return "table";
    case host::Object::Kind::kInstance:
      return "instance";
    case host::Object::Kind::kSingle:
      break;
  }
  return "object";
}

std::string existing_object(const Backend& backend, const std::string& word) {
  std::string path = full_name_of(word);
  if (path.back() != '.') path += '.';
  if (host::active_tree().has_object(path)) return path;
  path.pop_back();
  if (backend.facts_of(path)) {
    throw Failure(ExitCode::kNotFound, in_quotes(path) + " is a parameter, not an object",
                  "igdctl tree get shows its value");
  }
  throw Failure(ExitCode::kNotFound, "there is no object " + in_quotes(path + '.'),
                did_you_mean(backend.names_near(path),
                             "igdctl tree list shows the objects from the root down"));
}

Json json_of(const host::Object& object) {
  Json data = {{"path", object.path},
               {"kind", name_of(object.kind)},
               {"writable", object.writable},
               {"extension", object.extension}};
  if (object.kind == host::Object::Kind::kTable) data["highest_instance"] = object.highest;
  return data;
}

void list(Session& session, const std::string& word) {
  (void)session.tree();
  const std::string path = existing_object(session.backend(), word);
  const bool secrets = session.options.show_secrets;
  Json data = {{"path", path}, {"objects", Json::array()}, {"parameters", Json::array()}};
  Table table{{"NAME", "TYPE", "ACCESS", "VALUE"}, {}};
  for (const host::Parameter& parameter : host::active_tree().parameters(path)) {
    if (parent_of(parameter.name) != path) continue;
    const ParameterFacts facts =
        session.backend().facts_of(parameter.name).value_or(ParameterFacts());
    data["parameters"].push_back(json_of(parameter.name, parameter.value, facts, secrets));
    table.rows.push_back({parameter.name.substr(path.size()), facts.type,
                          facts.writable ? "write" : "read",
                          shown_value(parameter.name, parameter.value, secrets)});
  }
  for (const host::Object& object : host::active_tree().objects()) {
    if (parent_of(object.path) != path) continue;
    data["objects"].push_back(json_of(object));
    table.rows.push_back({object.path.substr(path.size()), name_of(object.kind),
                          object.writable ? "write" : "read", ""});
  }
  Output& output = session.output();
  if (output.json()) return output.document("tree.list", data);
  if (table.rows.empty()) return output.done(path + " is empty");
  output.table(table);
}

void show_all(Session& session, const std::string& kind,
              const std::vector<host::Parameter>& parameters) {
  const bool secrets = session.options.show_secrets;
  Output& output = session.output();
  Json data = Json::array();
  for (const auto& [name, value] : parameters) {
    if (output.json()) {
      const std::optional<ParameterFacts> facts = session.backend().facts_of(name);
      data.push_back(json_of(name, value, facts.value_or(ParameterFacts()), secrets));
    } else {
      output.raw(parameter_line(name, value, secrets) + '\n');
    }
  }
  if (output.json()) output.document(kind, data);
}

void dump(Session& session, const std::string& prefix) {
  (void)session.tree();
  const std::string full_prefix = prefix.empty() ? std::string() : full_name_of(prefix);
  const std::vector<host::Parameter> parameters = host::active_tree().parameters(full_prefix);
  if (parameters.empty()) {
    throw Failure(ExitCode::kNotFound, "no parameter begins with " + in_quotes(full_prefix),
                  "igdctl tree find searches any part of a name");
  }
  show_all(session, "tree.dump", parameters);
}

// A pattern with wildcards is for the whole text, one without for any part, in either case.
bool matches(const std::string& pattern, const std::string& text) {
  if (pattern.find_first_of("*?[") == std::string::npos) {
    return lower_case(text).find(lower_case(pattern)) != std::string::npos;
  }
  return fnmatch(pattern.c_str(), text.c_str(), 0) == 0;
}

struct FindOptions {
  std::string name;
  std::string value;
  bool by_value = false;
};

// The value of a hidden secret must not be found out by asking.
bool is_meant(const host::Parameter& parameter, const FindOptions& options, bool show_secrets) {
  if (!matches(options.name, parameter.name) &&
      !matches(full_name_of(options.name), parameter.name)) {
    return false;
  }
  if (!options.by_value) return true;
  if (is_secret_parameter(parameter.name) && !show_secrets) return false;
  return options.value.empty() ? parameter.value.empty() : matches(options.value, parameter.value);
}

void find(Session& session, const FindOptions& options) {
  (void)session.tree();
  std::vector<host::Parameter> found;
  for (host::Parameter& parameter : host::active_tree().parameters()) {
    if (is_meant(parameter, options, session.options.show_secrets)) {
      found.push_back(std::move(parameter));
    }
  }
  if (found.empty()) {
    throw Failure(ExitCode::kNotFound, "no parameter matches",
                  "a pattern without * ? [ matches any part of a name; secrets are found by value "
                  "only with --show-secrets");
  }
  show_all(session, "tree.find", found);
}

void add_list(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "list", "List what an object contains, like ls",
                                  "tree list Layer2Bridging.Bridge.1");
  const auto path = std::make_shared<std::string>("InternetGatewayDevice.");
  command.add_option("PATH", *path, "The object; the root if left out")->type_name("OBJECT");
  command.callback(
      [&session, path] { session.on_run([&session, path] { list(session, *path); }); });
}

void add_dump(CLI::App& group, Session& session) {
  CLI::App& command =
      add_command(group, "dump", "Print every parameter as NAME=VALUE, for tree set --from",
                  "tree dump InternetGatewayDevice.Layer2Bridging. > bridging.txt");
  const auto prefix = std::make_shared<std::string>();
  command.add_option("PREFIX", *prefix, "Only names with this beginning")->type_name("PARAMETER");
  command.callback(
      [&session, prefix] { session.on_run([&session, prefix] { dump(session, *prefix); }); });
}

void add_find(CLI::App& group, Session& session) {
  CLI::App& command = add_command(group, "find", "Find parameters by name, or by name and value",
                                  "tree find '*.X_ZYN_DependWanName' --value '*Device.1.'");
  const auto options = std::make_shared<FindOptions>();
  command
      .add_option("PATTERN", options->name,
                  "Any part of the name; with * ? [ a pattern for the whole name")
      ->required();
  CLI::Option* const value =
      command.add_option("--value", options->value, "The same for the value; '' finds empty ones");
  command.callback([&session, options, value] {
    options->by_value = value->count() > 0;
    session.on_run([&session, options] { find(session, *options); });
  });
}

}  // namespace

void add_tree_model_commands(CLI::App& root, Session& session) {
  CLI::App& group = *root.get_subcommand("tree");
  add_list(group, session);
  add_dump(group, session);
  add_find(group, session);
}

}  // namespace igdctl
