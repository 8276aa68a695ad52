/// A patch laid over what is there: the description to be written.
#ifndef IGDCTL_WAN_DRAFT_H
#define IGDCTL_WAN_DRAFT_H

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "wan/wan_patch.h"

namespace igdctl {

struct WanDraft : WanDescription {
  std::set<std::string> named;       ///< keys that the patch names
  std::set<std::string> changed;     ///< those of them that are different from what is there
  std::set<std::string> unreadable;  ///< those that the patch names with a wrong value
  bool names(const char* key) const { return named.count(key) != 0; }
  bool changes(const char* key) const { return changed.count(key) != 0; }
};

/// Sets the three DNS fields to those that the connection has for a mode.
using DnsOfMode = std::function<void(int mode, api_wan_info* info)>;

/// Lays a patch over the description of a connection. What it does not name stays as it is, also
/// texts of the tree in a form of their own (a flag that is empty, a server list without a comma).
/// With a new mode come the DNS servers of that mode's object.
WanDraft lay_over(const WanPatch& patch, const WanDescription& start, const DnsOfMode& dns_of_mode);

/// The description of a new connection: the patch over what most connections are. That is access
/// Ethernet, routed, DHCP, service INTERNET, untagged, enabled, NAT unless it is bridged, MTU 1500,
/// of PPPoE 1492.
WanDraft draft_new(const WanPatch& patch);

}  // namespace igdctl

#endif  // IGDCTL_WAN_DRAFT_H
