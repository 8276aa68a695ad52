#include "backend/with_store/difference_view.h"

#include <nlohmann/json.hpp>

#include "gateway/secrets.h"
#include "term/text.h"

namespace igdctl {

namespace {

using Kind = host::WriteStep::Kind;

const char* verb_of(Kind kind) {
  switch (kind) {
    case Kind::kAdd:
      return "add";
    case Kind::kDelete:
      return "delete";
    case Kind::kSet:
      return "set";
    case Kind::kReplace:
      break;
  }
  return "replace";
}

// A changed secret must not look unchanged: the stars of both sides are the same.
std::string change_text(const std::string& name, const std::string& before,
                        const std::string& after, bool show_secrets) {
  const std::string new_text = in_quotes(shown_value(name, after, show_secrets));
  if (before == after) return " = " + new_text + ", as before";
  return " = " + new_text + ", was " + in_quotes(shown_value(name, before, show_secrets));
}

}  // namespace

std::vector<host::WriteStep> changing_steps(const std::vector<host::WriteStep>& plan) {
  std::vector<host::WriteStep> steps;
  for (const host::WriteStep& step : plan) {
    if (step.kind != Kind::kSet || step.before != step.after) steps.push_back(step);
  }
  return steps;
}

std::string text_of(const std::vector<host::WriteStep>& plan, bool show_secrets,
                    std::size_t left_out) {
  Table table;
  for (const host::WriteStep& step : plan) {
    std::string text = step.name;
    if (step.kind == Kind::kSet) {
      text += change_text(step.name, step.before, step.after, show_secrets);
    }
    table.rows.push_back({std::to_string(table.rows.size() + 1), verb_of(step.kind), text});
  }
  std::string text = "Writes, in order:\n" + (plan.empty() ? "none\n" : rendered(table, {}));
  if (left_out != 0) {
    text += std::to_string(left_out) + " more " + (left_out == 1 ? "changes" : "change") +
            " nothing; -v shows them\n";
  }
  return text;
}

std::string text_of(const host::Difference& difference, bool show_secrets) {
  std::string text = "Difference:\n";
  if (difference.empty()) return text + "none\n";
  for (const std::string& path : difference.added) text += "+ " + printable(path) + '\n';
  for (const std::string& path : difference.deleted) text += "- " + printable(path) + '\n';
  for (const host::ValueChange& value : difference.values) {
    text += "~ " + printable(value.name) +
            change_text(value.name, value.before, value.after, show_secrets) + '\n';
  }
  return text;
}

Json json_of(const std::vector<host::WriteStep>& plan, bool show_secrets) {
  Json steps = Json::array();
  for (const host::WriteStep& step : plan) {
    Json row = {{"do", verb_of(step.kind)}, {"name", step.name}};
    if (step.kind == Kind::kSet) {
      row["before"] = shown_value(step.name, step.before, show_secrets);
      row["after"] = shown_value(step.name, step.after, show_secrets);
    }
    steps.push_back(std::move(row));
  }
  return steps;
}

Json json_of(const host::Difference& difference, bool show_secrets) {
  Json values = Json::array();
  for (const host::ValueChange& value : difference.values) {
    values.push_back({{"name", value.name},
                      {"before", shown_value(value.name, value.before, show_secrets)},
                      {"after", shown_value(value.name, value.after, show_secrets)}});
  }
  return {{"added", difference.added}, {"deleted", difference.deleted}, {"values", values}};
}

}  // namespace igdctl
