/// The connection over which the gateway is managed, for changes that may cut it off.
#ifndef IGDCTL_MANAGEMENT_H
#define IGDCTL_MANAGEMENT_H

#include <string>
#include <string_view>
#include <vector>

#include "common_util.h"

namespace igdctl {

/// Why a change of a connection that carries the management service needs consent.
std::string management_reason(const std::string& title);

struct ManagementPlace {
  std::string title;  ///< of the connection
  std::string path;   ///< of the connection, or of its bridge
};

/// Where the connections that carry the management service stand, and their bridges.
std::vector<ManagementPlace> management_places(MibAccess& tree);

/// Why a change of this parameter or object may cut off who manages the gateway; "" when it does
/// not.
std::string why_at_stake(const std::vector<ManagementPlace>& places, std::string_view name);

}  // namespace igdctl

#endif  // IGDCTL_MANAGEMENT_H
