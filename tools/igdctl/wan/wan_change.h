/// Makes, changes and removes connections, as the work of a Change.
#ifndef IGDCTL_WAN_CHANGE_H
#define IGDCTL_WAN_CHANGE_H

#include <string>
#include <vector>

#include "backend/change.h"
#include "gateway/connections.h"
#include "wan/wan_checks.h"
#include "wan/wan_wish.h"

namespace igdctl {

/// Each throws Failure before its first write: `faults` of the wish and its own (kBadInput), or an
/// objection (kRefused). After them it writes through the library.
class WanChanger {
 public:
  WanChanger(Session& session, Change& change);

  /// @return the new connection's path. Throws Failure (kPlatform) also when it could not be made
  std::string create(const WanWish& wish, std::vector<Fault> faults);

  /// Writes the wish over a connection, and nothing that the wish does not name.
  /// @return false when nothing was written, because all is as wished
  bool set(const Connection& connection, const WanWish& wish, std::vector<Fault> faults);

  void remove(const Connection& connection);

 private:
  void stop_or_go_on(const std::vector<Objection>& objections);

  Session& session_;
  Change& change_;
  MibAccess& tree_;
};

/// The proposal for a connection that is there.
WanProposal propose_change(MibAccess& tree, const Connection& connection, const WanWish& wish);

/// Writes a proposal over a connection with igd_wan_set_params, and puts back what that changed
/// beside the fields that are named.
void write_over(MibAccess& tree, const Connection& connection, WanProposal* proposal);

}  // namespace igdctl

#endif  // IGDCTL_WAN_CHANGE_H
