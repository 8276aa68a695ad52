#include "wan/wan_options.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iterator>
#include <nlohmann/json.hpp>

#include "cli/input_file.h"
#include "cli/passwords.h"
#include "term/text.h"
#include "wan/fields.h"

namespace igdctl {

namespace {

Json number_of(const std::string& text) {
  constexpr long kLargest = 999999999;
  long number = 0;
  return parse_number(text, 0, kLargest, &number) ? Json(number) : Json(text);
}

Json list_of(const std::vector<std::string>& values) {
  Json list = Json::array();
  for (const std::string& value : values) {
    for (const std::string& part : split_list(value)) list.push_back(part);
  }
  return list;
}

Json map_of(const WanField& field, const std::vector<std::string>& values,
            std::vector<Problem>* problems) {
  Json map = Json::object();
  for (const std::string& value : values) {
    const std::size_t equals = value.find('=');
    if (equals == std::string::npos) {
      problems->push_back({option_of(field) + " is " + in_quotes(value), hint_to_give(field)});
    } else {
      map[value.substr(0, equals)] = value.substr(equals + 1);
    }
  }
  return map;
}

Json value_of(const WanField& field, const std::vector<std::string>& values,
              std::vector<Problem>* problems) {
  switch (field.kind) {
    case FieldKind::kNumber:
      return number_of(values.back());
    case FieldKind::kWords:
    case FieldKind::kPorts:
    case FieldKind::kServers:
      return list_of(values);
    case FieldKind::kTextsByPort:
      return map_of(field, values, problems);
    default:
      return values.back();
  }
}

void lay_options_over(const WanOptions& options, Json* description,
                      std::vector<Problem>* problems) {
  for (const WanField& field : kWanFields) {
    const auto given = options.values.find(field.key);
    if (given == options.values.end() || given->second.empty()) continue;
    (*description)[field.key] = value_of(field, given->second, problems);
  }
  if (!options.password_file.empty()) {
    (*description)["password"] = password_from_file(options.password_file);
  } else if (options.password_prompt) {
    (*description)["password"] = password_from_prompt("Password");
  }
}

bool has_options(const WanOptions& options) {
  for (const auto& entry : options.values) {
    if (!entry.second.empty()) return true;
  }
  return options.password_prompt || !options.password_file.empty();
}

// What `wan show --json` printed is read with its envelope, or without.
Json without_envelope(Json json) {
  if (!json.is_object() || !json.contains("format") || !json.contains("data")) return json;
  if (json["format"] != kJsonFormat) {
    throw Failure(ExitCode::kBadInput, "the format of the document is not 1",
                  "use the version of igdctl that wrote it");
  }
  const Json& kind = json["kind"];
  if (kind != "wan.show" && kind != "wan.list") {
    throw Failure(ExitCode::kBadInput, "the document describes no connections",
                  "give what igdctl wan show --json prints");
  }
  return json["data"];
}

// Values are copied and freed by recursion, so depth costs stack.
bool refuse_depth(int depth, Json::parse_event_t, Json&) {
  constexpr int kDeepest = 16;
  if (depth <= kDeepest) return true;
  throw Failure(ExitCode::kBadInput, "the JSON is nested too deeply for a description",
                "igdctl wan show --json prints a description to start from");
}

Json read_json(const std::string& file) {
  const std::string text = content_of_file(file);
  try {
    return without_envelope(Json::parse(text, refuse_depth));
  } catch (const Json::parse_error& error) {
    throw Failure(ExitCode::kBadInput,
                  in_quotes(file) + " is not JSON: error at byte " + std::to_string(error.byte),
                  "igdctl wan show --json prints a description to start from");
  } catch (const Json::out_of_range&) {
    throw Failure(ExitCode::kBadInput, in_quotes(file) + " has a number that is too large",
                  "igdctl wan show --json prints a description to start from");
  }
}

}  // namespace

void add_wan_options(CLI::App& command, WanOptions& options) {
  for (const WanField& field : kWanFields) {
    if (field.kind == FieldKind::kSecret) continue;
    CLI::Option& option =
        *command.add_option(option_of(field), options.values[field.key], help_of(field))
             ->type_name(field.value_name);
    option.allow_extra_args(false);  // one value each time, so that no CONNECTION is taken for one
    option.group("Description");
  }
  CLI::Option* const file =
      command
          .add_option("--password-file", options.password_file,
                      "Password of the account, from a file; - for standard input")
          ->type_name("FILE")
          ->group("Description");
  command
      .add_flag("--password-prompt", options.password_prompt,
                "Ask for the password on the terminal")
      ->excludes(file)
      ->group("Description");
  command
      .add_option("--from", options.from,
                  "Read a JSON description, which options override; - for standard input")
      ->type_name("FILE")
      ->group("Description");
}

std::vector<Json> descriptions_of(const WanOptions& options, std::vector<Problem>* problems) {
  if (options.from == "-" && options.password_file == "-") {
    throw Failure(ExitCode::kBadInput, "--from and --password-file both read standard input",
                  "put one of them into a file");
  }
  Json read = options.from.empty() ? Json::object() : read_json(options.from);
  std::vector<Json> descriptions;
  if (read.is_array()) {
    descriptions.assign(read.begin(), read.end());
  } else {
    descriptions.push_back(std::move(read));
  }
  if (!has_options(options)) return descriptions;
  if (descriptions.size() != 1) {
    throw Failure(ExitCode::kBadInput, "options cannot be combined with several descriptions",
                  "leave out the options, or give a file with one description");
  }
  if (descriptions.front().is_object()) lay_options_over(options, &descriptions.front(), problems);
  return descriptions;
}

Json description_of(const WanOptions& options, std::vector<Problem>* problems) {
  std::vector<Json> descriptions = descriptions_of(options, problems);
  if (descriptions.size() == 1) return std::move(descriptions.front());
  throw Failure(
      ExitCode::kBadInput,
      in_quotes(options.from) + " holds " + std::to_string(descriptions.size()) + " descriptions",
      "give a single one, or use igdctl wan ensure");
}

}  // namespace igdctl
