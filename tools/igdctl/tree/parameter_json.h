/// Parameters for programs.
#ifndef IGDCTL_PARAMETER_JSON_H
#define IGDCTL_PARAMETER_JSON_H

#include <string>

#include "backend/backend.h"

namespace igdctl {

/// {"name", "value", "type", "writable", ...}; what is not known is left out. A secret has no
/// "value" but "secret": true and "set", unless `show_secrets`. A value that is not UTF-8 stands
/// under "value_hex".
Json json_of(const std::string& name, const std::string& value, const ParameterFacts& facts,
             bool show_secrets);

}  // namespace igdctl

#endif  // IGDCTL_PARAMETER_JSON_H
