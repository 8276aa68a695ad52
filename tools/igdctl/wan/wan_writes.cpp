#include "wan/wan_writes.h"

#include <algorithm>
#include <set>

#include "gateway/connection_objects.h"
#include "gateway/tree_reader.h"
#include "gateway/tree_writer.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "term/failure.h"
#include "term/text.h"
#include "wan/wan_description.h"

namespace igdctl {

namespace {

bool is_in(const Place& place, const WanObject& object) {
  if (place.where == object.where) return true;
  return place.where == Where::kEachObject &&
         (object.where == Where::kDhcpObject || object.where == Where::kStaticObject ||
          object.where == Where::kPppObject);
}

bool is_there(const std::string& port_path) {
  const std::vector<std::string> names = instances_below(igd::kBridgeTable, kPortInterface);
  return std::any_of(names.begin(), names.end(), [&port_path](const std::string& name) {
    return parent_of(name) == port_path;
  });
}

}  // namespace

std::vector<WanObject> objects_of(MibAccess& tree, const Connection& connection) {
  const std::string& path = connection.path;
  const ConnectionObjects paths = connection_objects(path);
  std::vector<WanObject> objects = {{Where::kDevice, path, {}},
                                    {Where::kDhcpObject, paths.dhcp, {}},
                                    {Where::kStaticObject, paths.fixed, {}},
                                    {Where::kPppObject, paths.ppp, {}},
                                    {Where::kOwnBridge, connection.bridge_path, {}}};
  objects.erase(std::remove_if(objects.begin(), objects.end(),
                               [](const WanObject& object) { return object.path.empty(); }),
                objects.end());
  if (!connection.has_bridge()) return objects;
  for (const std::string& name : instances_below(connection.bridge_path, kPortInterface)) {
    objects.push_back({Where::kOwnPorts, parent_of(name), tree.getValue(name)});
  }
  return objects;
}

bool has_place(const std::vector<WanObject>& objects, const WanField& field,
               const WanDescription& draft) {
  for (const Place& place : field.places) {
    for (const WanObject& object : objects) {
      if (is_in(place, object) && place.text(draft, object, {}).has_value()) return true;
    }
  }
  return false;
}

WanWrites::WanWrites(MibAccess& tree, const Connection& connection, const WanDraft& draft)
    : tree_(tree), connection_(connection), draft_(draft) {
  const std::vector<WanObject> objects = objects_of(tree, connection);
  for (const WanField& field : kWanFields) {
    if (field.structural && draft.changes(field.key)) structural_ = true;
    for (const Place& place : field.places) {
      for (const WanObject& object : objects) {
        if (is_in(place, object)) add(field, place, object);
      }
    }
  }
}

// Two fields can share a parameter; the text that a named one gives it counts.
void WanWrites::add(const WanField& field, const Place& place, const WanObject& object) {
  Parameter& parameter = parameter_at(object, place.parameter);
  if (!draft_.names(field.key)) return;
  parameter.after = place.text(draft_, object, parameter.before);
  const bool differs = parameter.after.has_value() && *parameter.after != parameter.before;
  if (field.structural && differs) structural_ = true;
}

WanWrites::Parameter& WanWrites::parameter_at(const WanObject& object, const char* name) {
  for (Parameter& parameter : parameters_) {
    if (parameter.object_path == object.path && std::string_view(parameter.name) == name) {
      return parameter;
    }
  }
  const std::string text = value_in(tree_, object.path, name);
  parameters_.push_back({object.path, name, object.where == Where::kOwnPorts, text, text});
  return parameters_.back();
}

bool WanWrites::empty() const {
  return !structural_ &&
         std::all_of(parameters_.begin(), parameters_.end(), [](const Parameter& parameter) {
           return !parameter.after.has_value() || *parameter.after == parameter.before;
         });
}

void WanWrites::run() {
  if (structural_) write_structure();
  for (const Parameter& parameter : parameters_) {
    if (!parameter.after.has_value()) continue;
    if (parameter.of_port && structural_ && !is_there(parameter.object_path)) continue;
    if (value_in(tree_, parameter.object_path, parameter.name) == *parameter.after) continue;
    write_value(tree_, parameter.object_path, parameter.name, *parameter.after);
  }
  for (const char* key : {"bind_lan", "bind_wan"}) require_ports(key);
}

void WanWrites::write_structure() {
  if (igd_wan_set_params(connection_.path, &draft_.info) == kIgdOk) return;
  throw Failure(ExitCode::kPlatform,
                "connection " + in_quotes(title_of(connection_)) + " could not be written",
                "igdctl wan list shows what is there");
}

// The library moves ports without looking at what comes of it.
void WanWrites::require_ports(const char* key) {
  if (!draft_.changes(key)) return;
  const auto ports_of = [key](const WanDescription& description) {
    const Names names = std::get<Names>(field_of(key).value(description));
    return std::set<std::string>(names.begin(), names.end());
  };
  const WanDescription now{read_description(tree_, connection_), connection_.access};
  if (ports_of(now) == ports_of(draft_)) return;
  throw Failure(ExitCode::kPlatform,
                std::string("the platform did not assign the ports of ") + key + " to connection " +
                    in_quotes(title_of(connection_)),
                "igdctl wan ports shows where they are");
}

}  // namespace igdctl
