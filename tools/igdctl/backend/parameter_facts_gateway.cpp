#include "backend/parameter_facts.h"

namespace igdctl {

std::optional<ParameterFacts> facts_of(const std::string& name) {
  if (is_object_path(name)) return std::nullopt;
  return ParameterFacts();
}

bool is_object_path(const std::string& path) { return !path.empty() && path.back() == '.'; }

std::vector<std::string> names_near(const std::string&) { return {}; }

}  // namespace igdctl
