/// Changes that are reverted unless somebody confirms them in time.
#include <ctime>

#include "rows/tree_rows.h"
#include "store/store_impl.h"

namespace host {
namespace {

constexpr int kLongestWait = 24 * 60 * 60;

StoreResult nothing_pending() {
  return {StoreError::kNotPending, "no change waits for its confirmation"};
}

/// Throws unless the changed rows make a tree.
void require_tree(RowSet rows, const RowChanges& changes) {
  apply_changes(rows, changes);
  TreeStore tree;
  const std::string reason = tree_from(rows, tree);
  if (!reason.empty()) throw StoreFailure(StoreError::kCorrupt, reason);
}

}  // namespace

StoreResult Store::Impl::accept_pending(int seconds, const std::string& label) {
  if (seconds < 1 || seconds > kLongestWait) {
    return {StoreError::kBadDeadline, "the time to confirm is 1 second to 1 day"};
  }
  seconds_to_confirm = seconds;
  const StoreResult result = accept(label);
  seconds_to_confirm = 0;
  return result;
}

bool Store::Impl::is_too_late(const PendingRow& row) const {
  return time_left(row, now(options)) == 0;
}

/// The first one past the deadline reverts; the others find nothing pending any more.
void Store::Impl::revert_when_too_late() {
  const CommitLock lock(*shared, deadline_of(options));
  pending = file->pending();
  if (pending && is_too_late(*pending)) revert_pending(*pending);
}

/// The opposite of the pending change, which is the newest one because no other was let in. Nobody
/// asked for this write now, so that of a damaged file is refused.
RowChanges Store::Impl::revert_of(const PendingRow& row) {
  file->require_sound();
  const std::optional<std::vector<Change>> changes = file->changes_after(row.generation - 1);
  if (!changes || changes->size() != 1) {
    throw StoreFailure(StoreError::kCorrupt, "the pending change is not the newest one");
  }
  RowChanges rows = reversed(changes->front().rows);
  keep_counters(rows);
  require_tree(file->rows(), rows);
  return rows;
}

void Store::Impl::revert_pending(const PendingRow& row) {
  Transaction transaction(file->database(), Transaction::kWrite);
  const RowChanges rows = revert_of(row);
  file->clear_pending();
  land(transaction, {row.generation + 1, std::time(nullptr), "reverted: " + row.label, rows});
  report(store_path + ": reverted, because it was not confirmed: " + row.label);
  pending.reset();  // last, because it may be the row
}

StoreResult Store::Impl::end_pending(bool keep) {
  try {
    if (is_forked()) open_anew_after_fork();
    {
      const CommitLock lock(*shared, deadline_of(options));
      pending = file->pending();
      if (!pending) return nothing_pending();
      const bool too_late = is_too_late(*pending);
      if (keep && !too_late) {
        Transaction transaction(file->database(), Transaction::kWrite);
        file->clear_pending();
        transaction.commit();
        pending.reset();
        return {};
      }
      revert_pending(*pending);
      if (keep) return {StoreError::kNotPending, "the time to confirm is over"};
    }
    refresh();
  } catch (const StoreFailure& failure) {
    return failure.result();
  }
  return {};
}

std::optional<PendingChange> Store::Impl::pending_change() {
  refresh();
  try {
    if (!is_forked()) pending = file->pending();
  } catch (const StoreFailure&) {
    return std::nullopt;
  }
  if (!pending) return std::nullopt;
  return PendingChange{pending->generation, time_left(*pending, now(options)), pending->label};
}

}  // namespace host
