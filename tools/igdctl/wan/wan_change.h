/// Makes, changes and removes connections, as the work of a Change.
#ifndef IGDCTL_WAN_CHANGE_H
#define IGDCTL_WAN_CHANGE_H

#include <string>
#include <vector>

#include "cli/change.h"
#include "gateway/connections.h"
#include "wan/wan_checks.h"
#include "wan/wan_patch.h"

namespace igdctl {

/// Each throws Failure before its first write: `problems` of the patch and its own (kBadInput), or
/// an conflict (kRefused). After them it writes through the library.
class WanChanger {
 public:
  WanChanger(Session& session, Change& change);

  /// @return the new connection's path. Throws Failure (kPlatform) also when it could not be made
  std::string create(const WanPatch& patch, std::vector<Problem> problems);

  /// Writes the patch over a connection, and nothing that the patch does not name.
  /// @return false when nothing was written, because all is as wished
  bool set(const Connection& connection, const WanPatch& patch, std::vector<Problem> problems);

  void remove(const Connection& connection);

 private:
  void stop_or_go_on(const std::vector<Conflict>& conflicts);

  Session& session_;
  Change& change_;
  MibAccess& tree_;
};

/// The draft for a connection that is there.
WanDraft draft_change(MibAccess& tree, const Connection& connection, const WanPatch& patch);

}  // namespace igdctl

#endif  // IGDCTL_WAN_CHANGE_H
