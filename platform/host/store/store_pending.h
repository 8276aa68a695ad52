/// Changes that are reverted unless somebody confirms them in time.
#ifndef PLATFORM_HOST_STORE_PENDING_H
#define PLATFORM_HOST_STORE_PENDING_H

#include <chrono>
#include <optional>
#include <string>

#include "store/store_view.h"

namespace host {

/// Members throw StoreFailure. One change at most is pending, and while it is no other is let in.
class StorePending {
 public:
  StorePending(StoreConnection& connection, StoreView& view)
      : connection_(connection), view_(view) {}

  /// Throws unless a change may wait that long.
  static void require_time(int seconds);

  /// Writes down that a change waits from now on, in the transaction that commits it.
  PendingRow wait_for(Generation generation, const std::string& label, int seconds);

  bool is_overdue() const;    ///< of what the view has
  void require_revertible();  ///< needs a pending change, and a file that holds what it replaced
  void revert_overdue();      ///< unless another process did, or somebody confirmed
  void try_to_revert();       ///< the same without a long wait, and not too often
  void revert_under_lock();   ///< needs a pending change and the commit lock
  void confirm();
  void revert();
  std::optional<PendingChange> description();

 private:
  bool is_too_late(const PendingRow& row) const;
  RowChanges opposite_of(const PendingRow& row);
  void require_pending();

  using Clock = std::chrono::steady_clock;

  StoreConnection& connection_;
  StoreView& view_;
  Clock::time_point next_try_;
  std::chrono::seconds pause_{1};  ///< after a try that fails
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_PENDING_H
