/// @file
/// The node table: the names of ports for callers ("LAN2", "WLAN1") and in the system ("eth1",
/// "ath0"), and the translation between the two.
#ifndef IGD_COMMON_H
#define IGD_COMMON_H

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "common_util.h"
#include "igd_vocabulary.h"

namespace igd {

/// A port and its names.
struct Node {
  const char* name;      ///< its name for callers
  const char* physical;  ///< its name in the system
  int vlan;              ///< number of the switch port behind it, -1 for none
  bool taggable;         ///< the physical name takes a VLAN suffix
};

/// The four LAN ports share the switch device eth1 and are distinguished by their VLAN numbers.
inline constexpr Node kNodes[] = {
    {kEthernetUplink, "eth0", -1, true}, {kUndividedSwitch, "eth1", -1, false},
    {"LAN1", "eth1", 1, true},           {"LAN2", "eth1", 2, true},
    {"LAN3", "eth1", 3, true},           {"LAN4", "eth1", 4, true},
    {"LAN5", "usb0", -1, false},         {"WLAN1", "ath0", -1, false},
    {"WLAN2", "ath1", -1, false},        {"WLAN3", "ath2", -1, false},
    {"WLAN4", "ath4", -1, false},        {kRepeaterUplink, "ath3", -1, false},
    {"REP0", "ath5", -1, false},         {kMobileUplink, "3g", -1, false},
    {"WDS1", "ath5", -1, false},         {"WDS2", "ath6", -1, false},
    {"WDS3", "ath7", -1, false},         {"STA1", "ath5", -1, false},
};

/// Size of the buffer that getPhyName returns, including the terminator: names are cut at 14
/// characters.
inline constexpr std::size_t kPhysicalNameSize = 15;

/// Name of this source unit in the debug log.
inline constexpr char kCommonUnit[] = "framework/igd/inc/igd_common";
inline constexpr int kPhysicalNameLine = 401;  ///< fixed: field tools look for it

/// Finds a port.
/// @param name  its name for callers
/// @return its row, or null
inline const Node* find_node(std::string_view name) {
  for (const Node& node : kNodes) {
    if (name == node.name) return &node;
  }
  return nullptr;
}

/// Checks whether a port's physical name gets a VLAN suffix.
/// @param node           the port
/// @param suffix_wanted  whether the caller wants one
/// @param vlan           the VLAN of the suffix
/// @return whether it does
inline bool takes_vlan_suffix(const Node& node, bool suffix_wanted, int vlan) {
  return suffix_wanted && node.taggable && 0 <= vlan && vlan <= kHighestVlan;
}

/// Returns the system's name for a node, with the suffix ".<vlan>" if it takes one.
/// @param node           the port
/// @param suffix_wanted  whether the caller wants a suffix
/// @param vlan           the VLAN of the suffix
/// @return the name, cut at 14 characters
inline std::string physical_name(const Node& node, bool suffix_wanted, int vlan) {
  std::string name = node.physical;
  if (takes_vlan_suffix(node, suffix_wanted, vlan)) name += '.' + std::to_string(vlan);
  return name.substr(0, kPhysicalNameSize - 1);
}

/// The same by name.
/// @param node_name      the port's name for callers
/// @param suffix_wanted  whether the caller wants a suffix
/// @param vlan           the VLAN of the suffix
/// @return the name, cut at 14 characters; empty for an unknown node
inline std::string physical_name(std::string_view node_name, bool suffix_wanted, int vlan) {
  const Node* node = find_node(node_name);
  return node == nullptr ? std::string() : physical_name(*node, suffix_wanted, vlan);
}

}  // namespace igd

/// Translates a node name to the physical device name.
///
/// @param node           node name; null gives the empty text
/// @param suffix_wanted  non-zero: a taggable device with 0 <= vlan < 4095 gets ".<vlan>"
/// @param vlan           the VLAN of the suffix
/// @param vlan_out       set to the node's own VLAN number, -1 for none; untouched for an unknown
///                       node; may be null
/// @return a buffer that the next call overwrites; empty for an unknown node
/// Logs one line if it adds the suffix. Does not use the tree.
inline const char* getPhyName(const char* node, int suffix_wanted, int vlan, int* vlan_out) {
  static char buffer[igd::kPhysicalNameSize];
  buffer[0] = '\0';
  if (node == nullptr) return buffer;
  const igd::Node* row = igd::find_node(node);
  if (row == nullptr) return buffer;
  if (vlan_out != nullptr) *vlan_out = row->vlan;
  if (igd::takes_vlan_suffix(*row, suffix_wanted != 0, vlan)) {
    c_debug_out(igd::kCommonUnit, igd::kPhysicalNameLine, "***** GET PHYNAME,VLANID=%d,phy=%s ",
                vlan, row->physical);
  }
  const std::string name = igd::physical_name(*row, suffix_wanted != 0, vlan);
  std::memcpy(buffer, name.c_str(), name.size() + 1);
  return buffer;
}

#endif  // IGD_COMMON_H
