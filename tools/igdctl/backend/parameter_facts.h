/// What is known about parameters beside their values.
///
/// With the reference platform's data model that is everything. On a gateway, whose platform tells
/// values only, each name counts as known, as of any type, and as writable.
/// parameter_facts_host.cpp or parameter_facts_gateway.cpp supplies these.
#ifndef IGDCTL_PARAMETER_FACTS_H
#define IGDCTL_PARAMETER_FACTS_H

#include <optional>
#include <string>
#include <vector>

#include "term/output.h"

namespace igdctl {

struct ParameterFacts {
  std::string type;  ///< "boolean", "unsignedInt", ...; "" when it is not known
  std::string initial;
  bool writable = true;  ///< whether a management server may set it
  bool derived = false;  ///< a count of instances, which the tree computes
  bool extension = false;
};

/// None for a name that is no parameter. Call Session::tree() before.
std::optional<ParameterFacts> facts_of(const std::string& name);

/// True for a path, with or without its last dot, of an object.
bool is_object_path(const std::string& path);

/// Names of parameters and paths of objects beside an unknown one that it may have meant.
std::vector<std::string> names_near(const std::string& name);

/// {"name", "value", "type", "writable", ...}; what is not known is left out. A secret has no
/// "value" but "secret": true and "set", unless `show_secrets`. A value that is no UTF-8 stands
/// under "value_hex".
Json json_of(const std::string& name, const std::string& value, const ParameterFacts& facts,
             bool show_secrets);

}  // namespace igdctl

#endif  // IGDCTL_PARAMETER_FACTS_H
