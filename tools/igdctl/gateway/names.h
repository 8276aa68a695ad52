/// Names of parameters and paths of objects. A path ends with a dot, a name does not.
#ifndef IGDCTL_NAMES_H
#define IGDCTL_NAMES_H

#include <string>
#include <string_view>

namespace igdctl {

/// "A.B.C" and "A.B.C." give "A.B."; "" when nothing is above.
std::string parent_of(std::string_view name);

/// "C" of "A.B.C"; of a path "".
std::string_view own_name_of(std::string_view name);

/// "Layer2Bridging.BridgeNumberOfEntries" is below the root as well, and stands for the full name.
std::string full_name_of(std::string_view name);

}  // namespace igdctl

#endif  // IGDCTL_NAMES_H
