/// How people name bridges, and whose they are.
#ifndef IGDCTL_BRIDGE_NAMES_H
#define IGDCTL_BRIDGE_NAMES_H

#include <string>
#include <vector>

#include "gateway/bridges.h"
#include "gateway/connections.h"
#include "term/output.h"

namespace igdctl {

/// The bridge with this name or path (the last dot may be left out). Throws Failure: kNotFound,
/// with similar names, or kBadInput when several match.
const Bridge& find_bridge(const std::vector<Bridge>& bridges, const std::string& selector);

/// The bridge named "internet" that joins the household's ports; null when there is none.
const Bridge* find_lan_bridge(const std::vector<Bridge>& bridges);

/// The connection whose own bridge this is, by link and by name; null when there is none.
const Connection* owner_of(const Bridge& bridge, const std::vector<Connection>& connections);

/// Its name or, without one, its path.
std::string title_of(const Bridge& bridge);

/// "untagged", or the VLAN of an 802.1Q bridge.
std::string vlan_text(const Bridge& bridge);

/// The VLAN of an 802.1Q bridge as a number, null without one.
Json vlan_json(const Bridge& bridge);

}  // namespace igdctl

#endif  // IGDCTL_BRIDGE_NAMES_H
