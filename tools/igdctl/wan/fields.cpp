#include "wan/fields.h"

#include <algorithm>
#include <cstdlib>

#include "term/text.h"

namespace igdctl {

namespace {

Names sorted(Names names) {
  std::sort(names.begin(), names.end());
  return names;
}

TextsByPort without_empty(TextsByPort texts) {
  for (auto entry = texts.begin(); entry != texts.end();) {
    entry = entry->second.empty() ? texts.erase(entry) : std::next(entry);
  }
  return texts;
}

}  // namespace

const WanField* find_field(std::string_view key) {
  const auto* const found = std::find_if(kWanFields.begin(), kWanFields.end(),
                                         [key](const WanField& field) { return field.key == key; });
  return found == kWanFields.end() ? nullptr : found;
}

const WanField& field_of(std::string_view key) {
  const WanField* const found = find_field(key);
  if (found == nullptr) std::abort();
  return *found;
}

bool is_same(const WanField& field, const Value& left, const Value& right) {
  if (left.index() != right.index()) return false;
  const bool any_order = field.kind == FieldKind::kWords || field.kind == FieldKind::kPorts;
  if (any_order) return sorted(std::get<Names>(left)) == sorted(std::get<Names>(right));
  if (field.kind != FieldKind::kTextsByPort) return left == right;
  return without_empty(std::get<TextsByPort>(left)) == without_empty(std::get<TextsByPort>(right));
}

std::string option_of(const WanField& field) {
  std::string option = std::string("--") + field.key;
  std::replace(option.begin(), option.end(), '_', '-');
  return option;
}

std::string hint_to_give(const WanField& field) {
  const std::string option = option_of(field);
  if (field.kind != FieldKind::kSecret) return "give " + option + ' ' + field.value_name;
  return "give " + option + "-file FILE or " + option + "-prompt";
}

std::string help_of(const WanField& field) {
  std::string help = field.help;
  if (field.kind != FieldKind::kNumber) return help;
  help += ", " + std::to_string(field.low) + " to " + std::to_string(field.high);
  if (field.lowest == nullptr) return help;
  return help + "; " + std::to_string(field.low) + " is " + field.lowest;
}

std::vector<std::string> words_of(const WanField& field) {
  return split_list(field.value_name, '|');
}

std::string choices_of(const WanField& field) {
  std::vector<std::string> words = words_of(field);
  const std::string last = words.back();
  words.pop_back();
  return joined(words, ", ") + " or " + last;
}

std::string shown_text(const WanField& field, const Value& value) {
  if (const bool* const on = std::get_if<bool>(&value)) return *on ? "on" : "off";
  if (const int* const number = std::get_if<int>(&value)) {
    const bool has_name = field.lowest != nullptr && *number == field.low;
    return has_name ? field.lowest : std::to_string(*number);
  }
  if (const auto* const names = std::get_if<Names>(&value)) return joined(*names, " ");
  if (const auto* const text = std::get_if<std::string>(&value)) return *text;
  const auto* const texts = std::get_if<TextsByPort>(&value);
  if (texts == nullptr) return {};
  std::vector<std::string> parts;
  for (const auto& [port, text] : *texts) parts.emplace_back(port).append("=").append(text);
  return joined(parts, " ");
}

}  // namespace igdctl
