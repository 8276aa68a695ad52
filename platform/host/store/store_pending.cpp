#include "store/store_pending.h"

#include <algorithm>
#include <ctime>
#include <vector>

#include "rows/tree_rows.h"
#include "store/boot_clock.h"

namespace host {
namespace {

constexpr int kLongestWait = 24 * 60 * 60;
constexpr int kShortWaitMs = 100;
constexpr std::chrono::seconds kLongestPause{60};

void require_tree(RowSet rows, const RowChanges& changes) {
  apply_changes(rows, changes);
  TreeStore tree;
  const std::string reason = tree_from(rows, tree);
  if (!reason.empty()) throw StoreFailure(StoreError::kCorrupt, reason);
}

}  // namespace

void StorePending::require_time(int seconds) {
  if (seconds >= 1 && seconds <= kLongestWait) return;
  throw StoreFailure(StoreError::kBadDeadline, "the time to confirm must be 1 second to 1 day");
}

PendingRow StorePending::wait_for(Generation generation, const std::string& label, int seconds) {
  PendingRow row = pending_row(generation, label, now(connection_.options()), seconds);
  connection_.file().set_pending(row);
  return row;
}

bool StorePending::is_too_late(const PendingRow& row) const {
  return time_left(row, now(connection_.options())) == 0;
}

bool StorePending::is_overdue() const { return view_.pending() && is_too_late(*view_.pending()); }

// The opposite of the pending change, which is the newest one because no other was let in. Nobody
// asked for this write now, so that of a damaged file is refused.
RowChanges StorePending::opposite_of(const PendingRow& row) {
  StoreFile& file = connection_.file();
  file.require_sound();
  const std::optional<std::vector<Change>> changes = file.changes_after(row.generation - 1);
  if (!changes || changes->size() != 1) {
    throw StoreFailure(StoreError::kCorrupt, "the pending change is not the newest one");
  }
  RowChanges rows = reversed(changes->front().rows);
  keep_counters(rows);
  require_tree(file.rows(), rows);
  return rows;
}

void StorePending::require_revertible() { (void)opposite_of(*view_.pending()); }

void StorePending::revert_overdue() {
  const CommitLock lock = connection_.locked();
  view_.read_pending();
  if (is_overdue()) revert_under_lock();
}

// Whoever reads must not wait as long as a writer may hold the lock, nor with every read.
void StorePending::try_to_revert() {
  if (!is_overdue() || Clock::now() < next_try_) return;
  next_try_ = Clock::now() + pause_;
  pause_ = std::min(2 * pause_, kLongestPause);
  if (connection_.is_read_only()) {
    throw StoreFailure(StoreError::kReadOnly,
                       "cannot be reverted, because the store can only be read, although it was "
                       "not confirmed: " +
                           view_.pending()->label);
  }
  const ShorterWait wait(connection_.database(), kShortWaitMs);
  const CommitLock lock(connection_.shared(),
                        Clock::now() + std::chrono::milliseconds(kShortWaitMs));
  view_.read_pending();
  if (is_overdue()) revert_under_lock();
  pause_ = std::chrono::seconds(1);
}

void StorePending::revert_under_lock() {
  const PendingRow row = *view_.pending();
  connection_.write([&](Transaction& transaction) {
    const RowChanges rows = opposite_of(row);
    connection_.file().clear_pending();
    view_.land(transaction,
               {row.generation + 1, std::time(nullptr), "reverted: " + row.label, rows});
  });
  report(connection_.path() + ": reverted, because it was not confirmed: " + row.label);
  view_.forget_pending();
}

void StorePending::require_pending() {
  view_.read_pending();
  if (view_.pending()) return;
  throw StoreFailure(StoreError::kNotPending, "no change is waiting for confirmation");
}

void StorePending::confirm() {
  const CommitLock lock = connection_.locked();
  require_pending();
  if (is_overdue()) {
    revert_under_lock();
    throw StoreFailure(StoreError::kNotPending, "the time to confirm is over");
  }
  connection_.write([this](Transaction& transaction) {
    connection_.file().clear_pending();
    transaction.commit();
  });
  view_.forget_pending();
}

void StorePending::revert() {
  const CommitLock lock = connection_.locked();
  require_pending();
  revert_under_lock();
}

std::optional<PendingChange> StorePending::description() {
  view_.read_pending();
  const std::optional<PendingRow>& row = view_.pending();
  if (!row) return std::nullopt;
  return PendingChange{row->generation, time_left(*row, now(connection_.options())), row->label};
}

}  // namespace host
