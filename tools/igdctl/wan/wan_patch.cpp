#include "wan/wan_patch.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "gateway/addresses.h"
#include "term/text.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

constexpr const char* kReadOnlyKeys[] = {"path", "id", "bridge", "password_set"};
constexpr std::size_t kMostServers = 2;
constexpr std::size_t kMostElements = 64;

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

// Not the whole of a list or an object: it can be as large and as deep as its writer likes.
std::string short_text_of(const Json& value) {
  if (value.is_string()) return in_quotes(value.get<std::string>().substr(0, kLongestText));
  if (value.is_structured()) return value.is_array() ? "a list" : "an object";
  return value.dump();
}

class PatchReader {
 public:
  PatchReader(const Json& json, std::vector<Problem>* problems)
      : json_(json), problems_(*problems) {}

  void refuse_unknown_keys();
  std::optional<std::string> text(const char* key);
  std::optional<int> number(const char* key, int low, int high);
  std::optional<bool> on_or_off(const char* key);
  std::optional<Names> names(const char* key);
  std::optional<std::map<std::string, std::string>> texts_by_port(const char* key);

  std::optional<std::string> access();
  std::optional<int> word(const char* key, int (*code_of_word)(std::string_view));
  std::optional<int> vlan();
  std::optional<std::string> address(const char* key);
  std::optional<std::string> mask();
  std::optional<Names> service();
  std::optional<Names> dns();

 private:
  const Json* find(const char* key) const;
  bool is_sound(const std::string& key, const std::string& text);
  void problem(const std::string& what, const std::string& hint) {
    problems_.push_back({what, hint});
  }

  const Json& json_;
  std::vector<Problem>& problems_;
};

void PatchReader::refuse_unknown_keys() {
  for (const auto& item : json_.items()) {
    const std::string& key = item.key();
    const Names& known = wan_keys();
    if (std::find(known.begin(), known.end(), key) != known.end()) continue;
    if (std::find(std::begin(kReadOnlyKeys), std::end(kReadOnlyKeys), key) !=
        std::end(kReadOnlyKeys)) {
      continue;
    }
    const Names near = near_names(key, known);
    problem("a connection has no " + in_quotes(key),
            near.empty() ? "it has " + joined(known, ", ") : "did you mean " + near.front() + "?");
  }
}

const Json* PatchReader::find(const char* key) const {
  const auto found = json_.find(key);
  return found == json_.end() || found->is_null() ? nullptr : &*found;
}

bool PatchReader::is_sound(const std::string& key, const std::string& text) {
  if (text.size() > kLongestText) {
    problem(key + " has " + std::to_string(text.size()) + " bytes", "use at most 255 bytes");
    return false;
  }
  if (has_control_characters(text) || !is_utf8(text)) {
    problem(key + " has characters that no setting can hold: " + in_quotes(text),
            "use text in UTF-8 without control characters");
    return false;
  }
  return true;
}

std::optional<std::string> PatchReader::text(const char* key) {
  const Json* const value = find(key);
  if (value == nullptr) return {};
  if (!value->is_string()) {
    problem(std::string(key) + " is no text", "give it as text");
    return {};
  }
  auto result = value->get<std::string>();
  const bool secret = std::string_view(key) == "password";
  if (secret && (result.size() > kLongestText || has_control_characters(result))) {
    problem("the password is too long or has control characters", "use at most 255 plain bytes");
    return {};
  }
  if (!secret && !is_sound(key, result)) return {};
  return result;
}

std::optional<int> PatchReader::number(const char* key, int low, int high) {
  const Json* const value = find(key);
  if (value == nullptr) return {};
  const bool fits = value->is_number_unsigned()
                        ? value->get<std::uint64_t>() <= static_cast<std::uint64_t>(high)
                        : value->is_number_integer() && value->get<std::int64_t>() <= high;
  if (fits && value->get<std::int64_t>() >= low) return value->get<int>();
  problem(std::string(key) + " is " + short_text_of(*value),
          "give a whole number from " + std::to_string(low) + " to " + std::to_string(high));
  return {};
}

std::optional<bool> PatchReader::on_or_off(const char* key) {
  const Json* const value = find(key);
  if (value == nullptr) return {};
  if (value->is_boolean()) return value->get<bool>();
  bool on = false;
  if (value->is_string() && parse_switch(value->get<std::string>(), &on)) return on;
  problem(std::string(key) + " is neither on nor off", "give on or off, in JSON true or false");
  return {};
}

std::optional<Names> PatchReader::names(const char* key) {
  const Json* const value = find(key);
  if (value == nullptr) return {};
  Names result;
  bool sound = value->is_array() && value->size() <= kMostElements;
  if (sound) {
    for (const Json& element : *value) {
      sound = sound && element.is_string();
      if (sound) result.push_back(element.get<std::string>());
    }
  }
  if (!sound) {
    problem(std::string(key) + " is no list of at most 64 texts",
            R"(give a list, as ["LAN1", "LAN2"])");
    return {};
  }
  for (const std::string& name : result) {
    if (!is_sound(key, name)) return {};
  }
  return result;
}

std::optional<std::map<std::string, std::string>> PatchReader::texts_by_port(const char* key) {
  const Json* const value = find(key);
  if (value == nullptr) return {};
  std::map<std::string, std::string> result;
  bool sound = value->is_object() && value->size() <= kMostElements;
  if (sound) {
    for (const auto& item : value->items()) {
      sound = sound && item.value().is_string();
      if (sound) result[item.key()] = item.value().get<std::string>();
    }
  }
  if (!sound) {
    problem(std::string(key) + " is no list of ports with a text each",
            R"(give PORT=TEXT, in JSON {"LAN4": "text"})");
    return {};
  }
  for (const auto& entry : result) {
    if (!is_sound(key, entry.first) || !is_sound(key, entry.second)) return {};
  }
  return result;
}

std::optional<std::string> PatchReader::access() {
  const std::optional<std::string> word = text("access");
  if (!word) return {};
  const std::string access = access_of_word(*word);
  if (access.empty() && !word->empty()) {
    problem("access is " + in_quotes(*word), "give " + choices_text("access"));
    return {};
  }
  return access;
}

std::optional<int> PatchReader::word(const char* key, int (*code_of_word)(std::string_view)) {
  const std::optional<std::string> word = text(key);
  if (!word) return {};
  const int code = code_of_word(*word);
  if (code != 0) return code;
  problem(std::string(key) + " is " + in_quotes(*word), "give " + choices_text(key));
  return {};
}

std::optional<int> PatchReader::vlan() {
  const auto found = json_.find("vlan");
  if (found != json_.end() && found->is_null()) return 0;
  return number("vlan", 0, kLargestVlan);
}

std::optional<std::string> PatchReader::address(const char* key) {
  std::optional<std::string> value = text(key);
  if (!value || value->empty() || is_ipv4(*value)) return value;
  problem(std::string(key) + " is " + in_quotes(*value), "give an IPv4 address, as 192.0.2.10");
  return {};
}

std::optional<std::string> PatchReader::mask() {
  std::optional<std::string> value = text("mask");
  std::uint32_t bits = 0;
  if (!value || value->empty() || (parse_ipv4(*value, &bits) && is_mask(bits))) return value;
  problem("mask is " + in_quotes(*value), "give ones then zeros, as 255.255.255.0");
  return {};
}

std::optional<Names> PatchReader::service() {
  std::optional<Names> words = names("service");
  if (!words) return {};
  if (!std::all_of(words->begin(), words->end(), is_service_word) ||
      joined(*words, ",").size() > kLongestText) {
    problem("service is " + in_quotes(joined(*words, ",")),
            R"(give words of letters, digits, "_", "-" and ".", as INTERNET,VOIP)");
    return {};
  }
  return words;
}

std::optional<Names> PatchReader::dns() {
  std::optional<Names> servers = names("dns");
  if (!servers) return {};
  if (servers->size() > kMostServers) {
    problem("dns has " + std::to_string(servers->size()) + " servers", "give at most two");
  }
  for (const std::string& server : *servers) {
    if (is_ipv4(server) || is_ipv6(server)) continue;
    problem("dns has " + in_quotes(server), "give addresses, as 192.0.2.1,192.0.2.2");
  }
  return servers;
}

// So that a wrong value is not told a second time, as a missing one.
void note_unreadable_texts(const Json& json, WanPatch* patch) {
  const std::pair<const char*, bool> texts[] = {
      {"name", patch->name.has_value()},         {"user", patch->user.has_value()},
      {"password", patch->password.has_value()}, {"address", patch->address.has_value()},
      {"mask", patch->mask.has_value()},         {"gateway", patch->gateway.has_value()}};
  for (const auto& [key, was_read] : texts) {
    const auto found = json.find(key);
    if (!was_read && found != json.end() && !found->is_null()) patch->unreadable.insert(key);
  }
}

}  // namespace

WanPatch read_patch(const Json& json, std::vector<Problem>* problems) {
  WanPatch patch;
  if (!json.is_object()) {
    problems->push_back({"a description is no JSON object", R"(give {"name": "Internet", ...})"});
    return patch;
  }
  PatchReader reader(json, problems);
  reader.refuse_unknown_keys();
  patch.access = reader.access();
  patch.name = reader.text("name");
  patch.connection_class = reader.word("class", class_of_word);
  patch.mode = reader.word("mode", mode_of_word);
  patch.vlan = reader.vlan();
  patch.priority = reader.number("priority", 0, kLargestPriority);
  patch.service = reader.service();
  patch.bind_lan = reader.names("bind_lan");
  patch.bind_wan = reader.names("bind_wan");
  patch.nat = reader.on_or_off("nat");
  patch.user = reader.text("user");
  patch.password = reader.text("password");
  patch.address = reader.address("address");
  patch.mask = reader.mask();
  patch.gateway = reader.address("gateway");
  patch.dns = reader.dns();
  patch.mtu = reader.number("mtu", kSmallestMtu, kLargestMtu);
  patch.option60 = reader.text("option60");
  patch.port_option60 = reader.texts_by_port("port_option60");
  patch.enable = reader.on_or_off("enable");
  patch.remote_management = reader.on_or_off("remote_management");
  patch.stp = reader.on_or_off("stp");
  note_unreadable_texts(json, &patch);
  return patch;
}

}  // namespace igdctl
