#include "tree/parameter_json.h"

#include <nlohmann/json.hpp>

#include "gateway/secrets.h"
#include "term/text.h"

namespace igdctl {

Json json_of(const std::string& name, const std::string& value, const ParameterFacts& facts,
             bool show_secrets) {
  Json data = {{"name", name}};
  if (is_secret_parameter(name)) {
    data["secret"] = true;
    data["set"] = !value.empty();
  }
  if (show_secrets || !is_secret_parameter(name)) {
    if (is_utf8(value)) {
      data["value"] = value;
    } else {
      data["value_hex"] = hexadecimal(value);
    }
  }
  if (facts.type.empty()) return data;
  data["type"] = facts.type;
  data["writable"] = facts.writable;
  data["derived"] = facts.derived;
  data["extension"] = facts.extension;
  return data;
}

}  // namespace igdctl
