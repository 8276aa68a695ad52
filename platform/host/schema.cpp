#include "schema.h"

#include <array>
#include <utility>

namespace host {
namespace {

constexpr std::array<std::pair<ValueType, std::string_view>, 8> kTypeNames = {{
    {kBoolean, "boolean"},
    {kInt, "int"},
    {kUnsignedInt, "unsignedInt"},
    {kString, "string"},
    {kDateTime, "dateTime"},
    {kIpAddress, "IPAddress"},
    {kMacAddress, "MACAddress"},
    {kAlias, "Alias"},
}};

/// The place of "WANDevice.{i}.WANConnectionDevice.{i}." below `root`, made as needed.
ObjectSchema& place_of(ObjectSchema& root, std::string_view pattern) {
  ObjectSchema* place = &root;
  while (!pattern.empty()) {
    const std::string_view name = pattern.substr(0, pattern.find('.'));
    pattern.remove_prefix(name.size() + 1);
    if (name == "{i}") continue;
    auto& child = place->children[std::string(name)];
    if (!child) child = std::make_unique<ObjectSchema>();
    place = child.get();
  }
  return *place;
}

void take_rows(ObjectSchema& root, SchemaRows rows) {
  ObjectSchema* object = &root;
  for (const SchemaRow& row : rows) {
    if (row.kind == kObjectRow || row.kind == kTableRow) {
      object = &place_of(root, row.name);
      object->row = &row;
    } else {
      object->parameters.push_back(&row);
    }
  }
}

ObjectSchema* make_data_model() {
  auto* root = new ObjectSchema;
  take_rows(*root, device_rows());
  take_rows(*root, wan_rows());
  take_rows(*root, bridging_rows());
  return root;
}

}  // namespace

const ObjectSchema& data_model() {
  static const ObjectSchema* const model = make_data_model();
  return *model;
}

std::string_view type_name(ValueType type) {
  for (const auto& [known, name] : kTypeNames) {
    if (known == type) return name;
  }
  return {};
}

ValueType type_from_dump(std::string_view text) {
  constexpr std::string_view kPrefix = "xsd:";
  if (text.substr(0, kPrefix.size()) != kPrefix) return kString;
  text.remove_prefix(kPrefix.size());
  for (const auto& [type, name] : kTypeNames) {
    if (name == text) return type;
  }
  return kString;
}

}  // namespace host
