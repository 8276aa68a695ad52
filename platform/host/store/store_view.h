/// The committed state of a store as one process knows it, and how it follows the others.
#ifndef PLATFORM_HOST_STORE_VIEW_H
#define PLATFORM_HOST_STORE_VIEW_H

#include <cstdint>
#include <optional>

#include "store/store_connection.h"
#include "store/store_reads.h"
#include "tree/tree_access.h"

namespace host {

/// Members throw StoreFailure unless they are const.
class StoreView {
 public:
  /// @param tree  its content becomes that of the store
  StoreView(StoreConnection& connection, Tree& tree) : connection_(connection), tree_(tree) {}

  /// Whether nothing happened since the last look at the file. Two comparisons, no system call.
  bool is_current() const {
    return !connection_.is_inherited() && connection_.shared().counter() == seen_counter_;
  }
  Generation generation() const { return generation_; }
  /// The change that waits for its confirmation, as last read; it may be confirmed meanwhile.
  const std::optional<PendingRow>& pending() const { return pending_; }
  TreeStore& content() const { return TreeAccess::store(tree_); }

  /// Before each use of the tree: what was read of it so far was this state.
  void note_reads() { reads_.note(tree_, generation_); }
  void forget_reads() { reads_.forget(tree_); }
  void outdate_reads() { reads_.outdate(); }  ///< they were of another file
  /// Whether what was read last, not long ago, has changed since.
  bool has_outdated_reads() const {
    return reads_.are_outdated(generation_, connection_.options().reads_count_ms);
  }

  void load();             ///< reads the whole file
  void publish_counter();  ///< sets the shared counter to what was read; needs the commit lock
  void adopt_counter();    ///< likewise, beside processes that may commit meanwhile
  void catch_up();         ///< takes over what other processes committed
  void read_pending() { pending_ = connection_.file().pending(); }
  void forget_pending() { pending_.reset(); }

  /// Commits a change and tells the other processes. Needs the commit lock. The content is as it
  /// was: catch_up() or contain() brings it there.
  void land(Transaction& transaction, const Change& change);

  /// The content has this change already, which may wait for its confirmation.
  void contain(Generation generation, const std::optional<PendingRow>& pending);

  /// The counter did not tell of a change: the next look asks the database.
  void distrust_counter() { seen_counter_ = kUnknown; }

 private:
  static constexpr std::uint32_t kUnknown = 1;  // a store's counter begins at 2

  static std::uint32_t counter_of(Generation generation) {
    return static_cast<std::uint32_t>(2 * generation);
  }
  std::uint32_t repaired_counter();
  std::uint32_t counter_in_database();
  void read_changes();

  StoreConnection& connection_;
  Tree& tree_;
  Generation generation_ = 0;
  std::uint32_t seen_counter_ = kUnknown;
  std::optional<PendingRow> pending_;
  StoreReads reads_;
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_VIEW_H
