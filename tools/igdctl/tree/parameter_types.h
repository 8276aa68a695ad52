/// What a parameter can hold: by its declared type, and as a VLAN.
#ifndef IGDCTL_PARAMETER_TYPES_H
#define IGDCTL_PARAMETER_TYPES_H

#include <string>
#include <string_view>

namespace igdctl {

/// Checks a value against the data model's name of a type ("boolean", "unsignedInt", "int",
/// "IPAddress", "MACAddress", "dateTime", "Alias"; every other one takes any text). An address may
/// be empty: that is how the tree says that there is none. Parameters that hold several addresses
/// (DNSServers, ...) take them separated by commas. Parameters that hold a VLAN take none beyond
/// 4094, whatever their type.
///
/// @param name  full name of the parameter, or its own
/// @return "" when it fits, else what the parameter takes: "true or false"
std::string wanted_by_type(std::string_view type, std::string_view name, std::string_view value);

}  // namespace igdctl

#endif  // IGDCTL_PARAMETER_TYPES_H
