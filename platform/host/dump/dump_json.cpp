// A tree as JSON.
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "dump/dump_format.h"
#include "host_platform.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormat = 1;
constexpr int kIndent = 1;

const char* kind_name(Object::Kind kind) {
  if (kind == Object::Kind::kTable) return "table";
  return kind == Object::Kind::kInstance ? "instance" : "object";
}

bool is_utf8(const std::string& text) {
  try {
    (void)Json(text).dump();
    return true;
  } catch (const Json::type_error&) {
    return false;
  }
}

// Texts of the tree are bytes, those of JSON are Unicode: what is no UTF-8 stands as hexadecimal
// digits under another key, so that no reader takes it for the text.
void put_text(Json& object, const std::string& key, const std::string& text) {
  if (is_utf8(text)) {
    object[key] = text;
  } else {
    object[key + "_hex"] = hexadecimal(text);
  }
}

Json json_of(const Object& object) {
  Json json;
  put_text(json, "path", object.path);
  json["kind"] = kind_name(object.kind);
  json["writable"] = object.writable;
  json["extension"] = object.extension;
  if (object.kind == Object::Kind::kTable) json["highest_instance"] = object.highest;
  return json;
}

Json json_of(const Parameter& parameter, const ParameterInfo& info) {
  Json json;
  put_text(json, "name", parameter.name);
  put_text(json, "value", parameter.value);
  json["type"] = info.type;
  json["writable"] = info.writable;
  json["extension"] = info.extension;
  json["derived"] = info.derived;
  return json;
}

}  // namespace

ExportResult export_json(const Tree& tree, std::ostream& output) {
  Json json = {{"format", kFormat}, {"objects", Json::array()}, {"parameters", Json::array()}};
  for (const Object& object : tree.objects()) json["objects"].push_back(json_of(object));
  for (const Parameter& parameter : tree.parameters()) {
    json["parameters"].push_back(json_of(parameter, tree.describe(parameter.name).value()));
  }
  output << json.dump(kIndent) << '\n';
  ExportResult result;
  result.ok = !output.flush().fail();
  if (!result.ok) result.error = "the output cannot be written";
  result.objects = json["objects"].size();
  result.parameters = json["parameters"].size();
  return result;
}

}  // namespace host
