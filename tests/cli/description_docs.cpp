// The schema of a connection's description and its table in docs/igdctl-json.md, from the rows of
// the fields:
//
//   description_docs check DOCS   whether the files in this folder are today's
//   description_docs write DOCS   brings them there
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "igd_vocabulary.h"
#include "term/text.h"
#include "wan/fields.h"
#include "wan/wan_patch.h"

namespace {

using namespace igdctl;

Json reference(const std::string& definition) { return {{"$ref", "#/$defs/" + definition}}; }

Json list_of(std::size_t most, Json items) {
  return {{"type", {"array", "null"}}, {"maxItems", most}, {"items", std::move(items)}};
}

Json words_schema(const WanField& field) {
  Json words = words_of(field);
  if (field.may_be_empty) words.push_back("");
  words.push_back(nullptr);
  return {{"enum", words}};
}

// What a description may give.
Json taken_schema(const WanField& field) {
  switch (field.kind) {
    case FieldKind::kNumber:
      return {{"type", {"integer", "null"}}, {"minimum", field.low}, {"maximum", field.high}};
    case FieldKind::kSwitch:
      return {{"type", {"boolean", "null"}}};
    case FieldKind::kWord:
      return words_schema(field);
    case FieldKind::kWords: {
      Json word = reference("plain");
      word["pattern"] = "^[A-Za-z0-9_.-]+$";
      return list_of(kMostElements, word);
    }
    case FieldKind::kPorts:
      return list_of(kMostElements, reference("plain"));
    case FieldKind::kServers:
      return list_of(kMostServers, reference("plain"));
    case FieldKind::kTextsByPort:
      return {{"type", {"object", "null"}},
              {"maxProperties", kMostElements},
              {"additionalProperties", reference("plain")}};
    default:
      return {{"anyOf", {reference("plain"), {{"type", "null"}}}}};
  }
}

// What `wan show` may show: the tree may hold numbers and texts that no description may give.
Json shown_schema(const WanField& field) {
  const Json text = {{"type", "string"}};
  switch (field.kind) {
    case FieldKind::kNumber:
      return {{"type", {"integer", "null"}}};
    case FieldKind::kSwitch:
      return {{"type", "boolean"}};
    case FieldKind::kWord:
      return field.may_be_empty ? text : words_schema(field);
    case FieldKind::kWords:
    case FieldKind::kPorts:
    case FieldKind::kServers:
      return {{"type", "array"}, {"items", text}};
    case FieldKind::kTextsByPort:
      return {{"type", "object"}, {"additionalProperties", text}};
    case FieldKind::kSecret:
      return {{"description", "Only with --show-secrets."}, {"type", "string"}};
    default:
      return text;
  }
}

Json taken_definition() {
  Json properties = Json::object();
  for (const char* key : kShownKeys) properties[key] = {{"description", "Ignored."}};
  for (const WanField& field : kWanFields) {
    if (field.kind == FieldKind::kSecret) {
      properties[key_of_presence(field)] = {{"description", "Ignored."}};
    }
    properties[field.key] = taken_schema(field);
  }
  return {{"description",
           "A missing or null key leaves its setting alone; a vlan of null is untagged."},
          {"type", "object"},
          {"additionalProperties", false},
          {"properties", properties}};
}

Json shown_definition() {
  Json properties = {{"path", {{"$ref", "common.json#/$defs/path"}}},
                     {"id", {{"$ref", "common.json#/$defs/id"}}},
                     {"bridge", {{"type", {"string", "null"}}}}};
  Json required = {"path", "id", "bridge"};
  for (const WanField& field : kWanFields) {
    const bool secret = field.kind == FieldKind::kSecret;
    if (secret) properties[key_of_presence(field)] = {{"type", "boolean"}};
    properties[field.key] = shown_schema(field);
    required.push_back(secret ? key_of_presence(field) : field.key);
  }
  return {{"description", "As shown: the tree may contain values that are refused as input."},
          {"type", "object"},
          {"required", required},
          {"additionalProperties", false},
          {"properties", properties}};
}

Json one_or_several() {
  return {reference("description"), {{"type", "array"}, {"items", reference("description")}}};
}

Json document_definition() {
  return {{"type", "object"},
          {"required", {"format", "kind", "data"}},
          {"additionalProperties", false},
          {"properties",
           {{"format", {{"const", kJsonFormat}}},
            {"kind", {{"enum", {"wan.show", "wan.list"}}}},
            {"data", {{"oneOf", one_or_several()}}}}}};
}

Json plain_definition() {
  return {{"description", "No control characters."},
          {"type", "string"},
          {"maxLength", igd::kLongestText},
          {"not", {{"pattern", std::string("[\x00-\x1f]", 5)}}}};
}

std::string schema() {
  Json forms = one_or_several();
  forms.push_back(reference("document"));
  const Json all = {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                    {"title", "Input for --from FILE of igdctl wan create, set, check and ensure"},
                    {"$comment", "Written by description_docs from the fields of a connection."},
                    {"description", "igdctl also checks the tree and the other connections."},
                    {"oneOf", forms},
                    {"$defs",
                     {{"document", document_definition()},
                      {"description", taken_definition()},
                      {"shown", shown_definition()},
                      {"plain", plain_definition()}}}};
  return all.dump(2, ' ', true) + '\n';
}

// ---- The page ----------------------------------------------------------------------------------

std::string code(const std::string& text) { return '`' + text + '`'; }

std::string form_of(const WanField& field) {
  switch (field.kind) {
    case FieldKind::kNumber:
      return std::to_string(field.low) + " to " + std::to_string(field.high);
    case FieldKind::kSwitch:
      return "true or false";
    case FieldKind::kWord: {
      std::vector<std::string> words = words_of(field);
      for (std::string& word : words) word = code('"' + word + '"');
      return joined(words, ", ");
    }
    case FieldKind::kWords:
      return "list of words";
    case FieldKind::kPorts:
      return "list of ports";
    case FieldKind::kServers:
      return "list of addresses";
    case FieldKind::kTextsByPort:
      return "object: text by port";
    default:
      return "text";
  }
}

std::string meaning_of(const WanField& field) {
  std::string text = field.help;
  if (field.lowest != nullptr) text += "; " + std::to_string(field.low) + ": " + field.lowest;
  if (field.kind == FieldKind::kSecret) {
    text += "; shown only with `--show-secrets`; " + code(key_of_presence(field)) +
            " says whether there is one";
  }
  return text;
}

std::string table() {
  std::string text = "| Key | Value | Meaning |\n|---|---|---|\n";
  for (const WanField& field : kWanFields) {
    text += "| " + code(field.key) + " | " + form_of(field) + " | " + meaning_of(field) + " |\n";
  }
  return text;
}

constexpr char kTableBegins[] = "<!-- written by description_docs -->\n";
constexpr char kTableEnds[] = "<!-- end -->\n";

// ---- Files -------------------------------------------------------------------------------------

std::string text_of_file(const std::string& file) {
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

// The page with the table of today; "" when it has no place for it.
std::string page_of_today(const std::string& page) {
  const std::size_t begin = page.find(kTableBegins);
  const std::size_t end = page.find(kTableEnds);
  if (begin == std::string::npos || end == std::string::npos) return {};
  return page.substr(0, begin) + kTableBegins + table() + page.substr(end);
}

bool settle(const std::string& file, const std::string& text, bool write) {
  if (text_of_file(file) == text) return true;
  if (write && !text.empty() && (std::ofstream(file) << text).flush()) return true;
  (void)std::fprintf(stderr, "%s is not what the fields give: description_docs write DOCS\n",
                     file.c_str());
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string verb = argc == 3 ? argv[1] : "";
  if (verb != "check" && verb != "write") {
    (void)std::fputs("description_docs check|write DOCS\n", stderr);
    return 2;
  }
  const std::string docs = argv[2];
  const std::string page = docs + "/igdctl-json.md";
  const bool schema_is_right =
      settle(docs + "/schemas/description.json", schema(), verb == "write");
  const bool page_is_right = settle(page, page_of_today(text_of_file(page)), verb == "write");
  return schema_is_right && page_is_right ? 0 : 1;
}
