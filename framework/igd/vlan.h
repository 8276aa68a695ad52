/// VLAN identifiers: choosing a free one, and writing one to a bridge and its connection.
#ifndef IGD_VLAN_H
#define IGD_VLAN_H

#include <string>

/// Chooses the VLAN of a LAN-side port or bridge of a connection: the PVID of an Ethernet port that
/// is already bound to it, else the first free identifier of the private range.
///
/// @param vlan_id      the connection's own VLAN, 0 for none
/// @param bridge_path  where to look for the bound port; "" for every bridge
/// @param bind_wan     the connection; "" skips that search
/// @return decimal text; the bound port's PVID is returned as it was read, even empty
std::string _find_vlan_id(int vlan_id, std::string bridge_path, std::string bind_wan);

namespace igd {

/// Makes a bridge untagged, and the link of its connection with it.
void write_untagged(const std::string& bridge_path, const std::string& wan_path);

/// Writes a VLAN to a bridge and to the link of its connection. The link's mode turns from "0" to
/// "1"; any other mode was set by somebody else and stays.
void write_vlan(const std::string& bridge_path, const std::string& wan_path,
                const std::string& vlan);

}  // namespace igd

#endif  // IGD_VLAN_H
