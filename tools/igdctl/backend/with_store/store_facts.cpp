// What the data model of the reference platform says about names.
#include "backend/with_store/store_backend.h"
#include "gateway/names.h"
#include "term/text.h"

namespace igdctl {

namespace {

std::string without_dot(std::string path) {
  if (!path.empty() && path.back() == '.') path.pop_back();
  return path;
}

std::string with_dot(const std::string& path) {
  return !path.empty() && path.back() == '.' ? path : path + '.';
}

// The deepest object above a name that is there.
std::string nearest_object(const std::string& name) {
  std::string path = parent_of(name);
  while (!path.empty() && !host::active_tree().has_object(path)) path = parent_of(path);
  return path;
}

std::vector<std::string> children_of(const std::string& path) {
  std::vector<std::string> names;
  for (const host::Object& object : host::active_tree().objects()) {
    if (parent_of(object.path) == path) names.push_back(object.path);
  }
  for (const host::Parameter& parameter : host::active_tree().parameters(path)) {
    if (parent_of(parameter.name) == path) names.push_back(parameter.name);
  }
  return names;
}

}  // namespace

std::optional<ParameterFacts> StoreBackend::facts_of(const std::string& name) const {
  const std::optional<host::ParameterInfo> info = host::active_tree().describe(name);
  if (!info) return std::nullopt;
  return ParameterFacts{info->type,    info->initial,   info->writable,
                        info->derived, info->extension, host::kLongestText};
}

bool StoreBackend::is_object_path(const std::string& path) const {
  return host::active_tree().has_object(with_dot(path));
}

// Compares the part below the nearest object, so that a long common path does not make all alike.
std::vector<std::string> StoreBackend::names_near(const std::string& name) const {
  const std::string path = nearest_object(name);
  std::vector<std::string> last_parts;
  for (const std::string& child : children_of(path)) {
    last_parts.push_back(without_dot(child.substr(path.size())));
  }
  const std::string below = name.substr(path.size());
  const std::size_t dot = below.find('.');
  std::vector<std::string> near;
  for (const std::string& part : near_names(below.substr(0, dot), last_parts)) {
    near.push_back(path + part);
  }
  return near;
}

}  // namespace igdctl
