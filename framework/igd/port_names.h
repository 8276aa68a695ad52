// Sets of node names with a meaning of their own. They overlap by accident, not by design.
#ifndef IGD_PORT_NAMES_H
#define IGD_PORT_NAMES_H

#include <string>

namespace igd {

inline constexpr char kEthernetUplink[] = "LAN0";
inline constexpr char kMobileUplink[] = "3G0";
inline constexpr char kRepeaterUplink[] = "WIFIW0";

/// A connection's own entry into its bridge: not a bound port, carries no option 60, and never
/// goes back to the LAN bridge.
inline constexpr const char* kWanSidePorts[] = {kEthernetUplink, kMobileUplink, kRepeaterUplink};
inline bool is_wan_side_port(const std::string& node) {
  for (const char* port : kWanSidePorts) {
    if (node == port) return true;
  }
  return false;
}

/// The uplink and the undivided switch: every connection may name them, and they never count as
/// taken.
inline bool is_shared_device(const std::string& node) {
  return node == kEthernetUplink || node == "LAN_DEFAULT1";
}

}  // namespace igd

#endif  // IGD_PORT_NAMES_H
