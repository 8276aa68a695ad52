/// Moving ports between the LAN bridge and a connection's own bridge.
#ifndef IGD_PORT_UPDATE_H
#define IGD_PORT_UPDATE_H

#include <string>
#include <vector>

#include "igd_types.h"

/// Brings bridges, ports and VLAN of a connection into line with a record. Ports that leave the
/// connection go back to the LAN bridge. Nothing is done without a tree, entry or record.
void _wan_port_update(wan_mib_info* mib_info, api_wan_info* info);

/// @param removed  elements of `before` that are not in `after`, duplicates kept
/// @param added    elements of `after` that are not in `before`, duplicates kept
void _diff_lists(const std::vector<std::string>& before, const std::vector<std::string>& after,
                 std::vector<std::string>& removed, std::vector<std::string>& added);

#endif  // IGD_PORT_UPDATE_H
