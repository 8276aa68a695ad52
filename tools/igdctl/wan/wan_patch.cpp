#include "wan/wan_patch.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "gateway/addresses.h"
#include "igd_vocabulary.h"
#include "term/text.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

bool has_control_characters(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte < ' ' || byte == '\x7f';
  });
}

bool is_service_word(const std::string& word) {
  constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-.";
  return !word.empty() && word.find_first_not_of(kLetters) == std::string::npos;
}

bool is_ipv4_mask(const std::string& text) {
  std::uint32_t bits = 0;
  return parse_ipv4(text, &bits) && is_mask(bits);
}

// Not the whole of a list or an object: it can be as large and as deep as its writer likes.
std::string short_text_of(const Json& value) {
  if (value.is_string()) return in_quotes(value.get<std::string>().substr(0, igd::kLongestText));
  if (value.is_structured()) return value.is_array() ? "a list" : "an object";
  return value.dump();
}

// Reads the value of one field. What is wrong becomes a problem, and no value.
class FieldReader {
 public:
  FieldReader(const WanField& field, const Json& json, std::vector<Problem>* problems)
      : field_(field), key_(field.key), json_(json), problems_(*problems) {}

  Value run() {
    switch (field_.kind) {
      case FieldKind::kText:
        return text(&FieldReader::is_sound);
      case FieldKind::kSecret:
        return text(&FieldReader::is_sound_secret);
      case FieldKind::kNumber:
        return number();
      case FieldKind::kSwitch:
        return on_or_off();
      case FieldKind::kWord:
        return word();
      case FieldKind::kAddress:
        return address(is_ipv4, "give an IPv4 address, such as 192.0.2.10");
      case FieldKind::kMask:
        return address(is_ipv4_mask, "give ones followed by zeros, such as 255.255.255.0");
      case FieldKind::kWords:
        return words();
      case FieldKind::kPorts:
        return names();
      case FieldKind::kServers:
        return servers();
      case FieldKind::kTextsByPort:
        break;
    }
    return texts_by_port();
  }

 private:
  Value text(bool (FieldReader::*is_right)(const std::string&));
  Value number();
  Value on_or_off();
  Value word();
  Value address(bool (*is_right)(const std::string&), const char* hint);
  Value names();
  Value words();
  Value servers();
  Value texts_by_port();

  bool is_sound(const std::string& text);
  bool is_sound_secret(const std::string& text);
  Value problem(const std::string& what, const std::string& hint) {
    problems_.push_back({what, hint});
    return {};
  }

  const WanField& field_;
  const std::string key_;
  const Json& json_;
  std::vector<Problem>& problems_;
};

bool FieldReader::is_sound(const std::string& text) {
  if (text.size() > igd::kLongestText) {
    problem(key_ + " has " + std::to_string(text.size()) + " bytes",
            "use at most " + std::to_string(igd::kLongestText) + " bytes");
    return false;
  }
  if (has_control_characters(text) || !is_utf8(text)) {
    problem(key_ + " contains characters that are not allowed: " + in_quotes(text),
            "use text in UTF-8 without control characters");
    return false;
  }
  return true;
}

// No message has the secret.
bool FieldReader::is_sound_secret(const std::string& text) {
  if (text.size() <= igd::kLongestText && !has_control_characters(text)) return true;
  problem("the " + key_ + " is too long or has control characters",
          "use at most " + std::to_string(igd::kLongestText) + " plain bytes");
  return false;
}

Value FieldReader::text(bool (FieldReader::*is_right)(const std::string&)) {
  if (!json_.is_string()) return problem(key_ + " is not text", "give it as text");
  auto text = json_.get<std::string>();
  return (this->*is_right)(text) ? Value(std::move(text)) : Value();
}

Value FieldReader::number() {
  if (json_.is_null()) return field_.low;
  const bool fits = json_.is_number_unsigned()
                        ? json_.get<std::uint64_t>() <= static_cast<std::uint64_t>(field_.high)
                        : json_.is_number_integer() && json_.get<std::int64_t>() <= field_.high;
  if (fits && json_.get<std::int64_t>() >= field_.low) return json_.get<int>();
  return problem(key_ + " is " + short_text_of(json_), "give a whole number from " +
                                                           std::to_string(field_.low) + " to " +
                                                           std::to_string(field_.high));
}

Value FieldReader::on_or_off() {
  if (json_.is_boolean()) return json_.get<bool>();
  bool on = false;
  if (json_.is_string() && parse_switch(json_.get<std::string>(), &on)) return on;
  return problem(key_ + " is neither on nor off", "give on or off, or in JSON true or false");
}

Value FieldReader::word() {
  const Value given = text(&FieldReader::is_sound);
  const auto* const text = std::get_if<std::string>(&given);
  if (text == nullptr) return {};
  for (const std::string& word : words_of(field_)) {
    if (lower_case(word) == lower_case(*text)) return word;
  }
  if (text->empty() && field_.may_be_empty) return given;
  return problem(key_ + " is " + in_quotes(*text), "give " + choices_of(field_));
}

Value FieldReader::address(bool (*is_right)(const std::string&), const char* hint) {
  Value given = text(&FieldReader::is_sound);
  const auto* const text = std::get_if<std::string>(&given);
  if (text == nullptr || text->empty() || is_right(*text)) return given;
  return problem(key_ + " is " + in_quotes(*text), hint);
}

Value FieldReader::names() {
  Names result;
  bool sound = json_.is_array() && json_.size() <= kMostElements;
  if (sound) {
    for (const Json& element : json_) {
      sound = sound && element.is_string();
      if (sound) result.push_back(element.get<std::string>());
    }
  }
  if (!sound) {
    return problem(key_ + " is not a list of at most " + std::to_string(kMostElements) + " texts",
                   R"(give a list, such as ["LAN1", "LAN2"])");
  }
  for (const std::string& name : result) {
    if (!is_sound(name)) return {};
  }
  return result;
}

Value FieldReader::words() {
  Value given = names();
  const auto* const list = std::get_if<Names>(&given);
  if (list == nullptr) return {};
  if (std::all_of(list->begin(), list->end(), is_service_word) &&
      joined(*list, ",").size() <= igd::kLongestText) {
    return given;
  }
  return problem(key_ + " is " + in_quotes(joined(*list, ",")),
                 R"(use words of letters, digits, "_", "-" and ".", such as INTERNET,VOIP)");
}

Value FieldReader::servers() {
  Value given = names();
  const auto* const list = std::get_if<Names>(&given);
  if (list == nullptr) return {};
  if (list->size() > kMostServers) {
    problem(key_ + " has " + std::to_string(list->size()) + " servers", "give at most two");
  }
  for (const std::string& server : *list) {
    if (is_ipv4(server) || is_ipv6(server)) continue;
    problem(key_ + " has " + in_quotes(server), "give addresses, such as 192.0.2.1,192.0.2.2");
  }
  return given;
}

Value FieldReader::texts_by_port() {
  TextsByPort result;
  bool sound = json_.is_object() && json_.size() <= kMostElements;
  if (sound) {
    for (const auto& item : json_.items()) {
      sound = sound && item.value().is_string();
      if (sound) result[item.key()] = item.value().get<std::string>();
    }
  }
  if (!sound) {
    return problem(key_ + " does not assign a text to each port",
                   R"(give PORT=TEXT, or in JSON {"LAN4": "text"})");
  }
  for (const auto& entry : result) {
    if (!is_sound(entry.first) || !is_sound(entry.second)) return {};
  }
  return result;
}

bool is_shown_only(const std::string& key) {
  if (std::find(std::begin(kShownKeys), std::end(kShownKeys), key) != std::end(kShownKeys)) {
    return true;
  }
  return std::any_of(kWanFields.begin(), kWanFields.end(), [&key](const WanField& field) {
    return field.kind == FieldKind::kSecret && key_of_presence(field) == key;
  });
}

void refuse_unknown_keys(const Json& json, std::vector<Problem>* problems) {
  Names known;
  for (const WanField& field : kWanFields) known.emplace_back(field.key);
  for (const auto& item : json.items()) {
    const std::string& key = item.key();
    if (find_field(key) != nullptr || is_shown_only(key)) continue;
    const Names near = near_names(key, known);
    problems->push_back(
        {"a connection has no " + in_quotes(key),
         near.empty() ? "it has " + joined(known, ", ") : "did you mean " + near.front() + "?"});
  }
}

}  // namespace

const Value* WanPatch::find(const WanField& field) const {
  const auto found = values_.find(&field);
  return found == values_.end() ? nullptr : &found->second;
}

std::string WanPatch::text(std::string_view key) const {
  const Value* const value = find(field_of(key));
  return value == nullptr ? std::string() : std::get<std::string>(*value);
}

std::string key_of_presence(const WanField& secret) { return std::string(secret.key) + "_set"; }

WanPatch read_patch(const Json& json, std::vector<Problem>* problems) {
  WanPatch patch;
  if (!json.is_object()) {
    problems->push_back(
        {"a description is not a JSON object", R"(give {"name": "Internet", ...})"});
    return patch;
  }
  refuse_unknown_keys(json, problems);
  for (const WanField& field : kWanFields) {
    const auto found = json.find(field.key);
    if (found == json.end() || (found->is_null() && field.lowest == nullptr)) continue;
    Value value = FieldReader(field, *found, problems).run();
    if (std::holds_alternative<std::monostate>(value)) {
      patch.note_unreadable(field.key);  // so that it is not told a second time, as missing
    } else {
      patch[field.key] = std::move(value);
    }
  }
  return patch;
}

}  // namespace igdctl
