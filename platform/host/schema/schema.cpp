#include "schema/schema.h"

#include <algorithm>
#include <array>
#include <unordered_map>
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

// The place of "WANDevice.{i}.WANConnectionDevice.{i}." below `root`, made as needed.
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

// Puts the parameters of an object, and of all below it, into order.
void arrange(ObjectSchema& object) {
  auto& parameters = object.parameters;
  std::sort(parameters.begin(), parameters.end(),
            [](const SchemaRow* left, const SchemaRow* right) { return left->name < right->name; });
  std::vector<std::string_view> names;
  names.reserve(parameters.size());
  for (const SchemaRow* row : parameters) names.push_back(row->name);
  object.places = NameTable(names);
  for (auto& [name, child] : object.children) arrange(*child);
}

struct DataModel {
  ObjectSchema root;
  std::unordered_map<int, Enumeration> enumerations;

  DataModel() {
    take_rows(root, device_rows());
    take_rows(root, wan_rows());
    take_rows(root, bridging_rows());
    arrange(root);
    enumerate(root);
  }

  void enumerate(ObjectSchema& object) {
    enumerate(object, object.row->identifier, {});
    for (const SchemaRow* row : object.parameters) enumerate(object, row->identifier, row->name);
    for (auto& [name, child] : object.children) enumerate(*child);
  }

  void enumerate(ObjectSchema& object, int identifier, std::string_view parameter) {
    if (identifier == 0) return;
    object.enumerated = true;
    enumerations[identifier] = {&object, parameter};
  }
};

const DataModel& model() {
  static const auto* const made = new DataModel;
  return *made;
}

}  // namespace

const ObjectSchema& data_model() { return model().root; }

const Enumeration* enumeration_of(int object_type) {
  const auto found = model().enumerations.find(object_type);
  return found != model().enumerations.end() ? &found->second : nullptr;
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
