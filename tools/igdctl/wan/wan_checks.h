/// What igdctl checks of a connection before the library is called, and the library's own checks in
/// words.
#ifndef IGDCTL_WAN_CHECKS_H
#define IGDCTL_WAN_CHECKS_H

#include <set>
#include <string>
#include <vector>

#include "gateway/bridges.h"
#include "gateway/connections.h"
#include "term/failure.h"
#include "wan/wan_draft.h"

namespace igdctl {

/// What is there beside the connection that is made or changed.
struct GatewayState {
  const Connection* connection = nullptr;  ///< the one being changed; null for a new one
  std::vector<Connection> connections;     ///< all
  std::vector<Bridge> bridges;
  /// Names of single objects of other connections. A connection goes by that of its enabled object;
  /// the library finds it by each of them, and igd_wan_create would write over it.
  std::set<std::string> object_names;
  std::vector<WanObject> objects;  ///< those of the connection being changed
};

GatewayState read_gateway_state(MibAccess& tree, const Connection* connection);

/// Finds what is wrong with a draft by its values: bad input, whatever the library would say.
/// Values that are there already and are not changed are not judged.
std::vector<Problem> problems_of(const WanDraft& draft, const GatewayState& gateway);

/// A reason against a change that follows from the state of the gateway.
struct Conflict {
  enum class About { kBridge, kObject, kPort, kManagement, kVlan, kLastPort, kLastService };
  About about;
  std::string message;
  std::string hint;
  bool can_be_forced = false;  ///< going on loses no data
  bool was_there = false;      ///< it rests on nothing that is changed: worth a warning only
};

/// Asks igd_verify_new_wan_info_valid and says its verdict in words; before that, reasons of
/// igdctl's own: no bridge, no LAN bridge, a port of another connection, a second management
/// service. The library lets some of these pass.
/// @param verdict  set to the library's IgdWanVerdict; may be null
std::vector<Conflict> conflicts_of(const WanDraft& draft, const GatewayState& gateway,
                                   int* verdict = nullptr);

/// Reasons against removing a connection, igd_verify_can_remove_wan among them.
std::vector<Conflict> conflicts_of_removal(const Connection& connection,
                                           const GatewayState& gateway);

}  // namespace igdctl

#endif  // IGDCTL_WAN_CHECKS_H
