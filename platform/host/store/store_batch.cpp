#include "store/store_batch.h"

#include <ctime>
#include <utility>

#include "rows/tree_rows.h"

namespace host {

// Asked before every write, and only for one that the tree itself allows.
TreeObserver::Admission StoreBatch::admit() {
  const bool goes_on = may_go_on();
  if (!goes_on) {
    const StoreResult result = result_of([this] { begin_or_go_on(); });
    if (!result.ok()) poison(result);
    if (!poisoned_.ok()) return {poisoned_.text.c_str(), false};
  }
  connection_.shared().note_activity();
  return {nullptr, !goes_on};
}

void StoreBatch::begin_or_go_on() {
  if (connection_.is_inherited()) reopen_();
  if (!poisoned_.ok()) throw StoreFailure(poisoned_);
  if (has_lock()) {
    require_lock();
  } else {
    begin_on_what_was_read();
  }
}

// A write follows from what was read before it. When that is not so any more, it is no longer what
// its program wanted to write.
void StoreBatch::begin_on_what_was_read() {
  view_.note_reads();
  take_lock();
  if (!view_.has_outdated_reads()) return;
  throw StoreFailure(StoreError::kMovedOn,
                     "another process committed after this one last read the store");
}

// Takes the write lock, then catches up: what this batch changes is what the last one left. The
// commit asks the database again.
void StoreBatch::take_lock() {
  connection_.require_writable();
  number_ = connection_.shared().begin_batch(connection_.options());
  view_.catch_up();
  if (!pending_.is_overdue()) return;
  pending_.revert_overdue();
  view_.catch_up();
}

void StoreBatch::require_lock() const {
  connection_.require_usable();
  if (connection_.shared().owns(number_)) return;
  throw StoreFailure(StoreError::kMovedOn,
                     "the batch wrote nothing for too long and lost its lock to another one");
}

void StoreBatch::poison_without_lock() {
  if (!has_lock()) return;
  const StoreResult result = result_of([this] { require_lock(); });
  if (!result.ok()) poison(result);
}

void StoreBatch::poison(const StoreResult& reason) {
  drop();
  poisoned_ = reason;
}

void StoreBatch::require_none() const {
  if (!has_lock() && poisoned_.ok()) return;
  throw StoreFailure(StoreError::kBatchOpen, "there are uncommitted writes");
}

StoreResult StoreBatch::commit(const std::string& label, int seconds_to_confirm) {
  StoreResult result = result_of([&] {
    if (connection_.is_inherited()) reopen_();
    if (!poisoned_.ok()) throw StoreFailure(poisoned_);
    if (has_lock() && !in_trial_) write(label, seconds_to_confirm);
  });
  if (in_trial_) return result;
  if (!result.ok()) {
    view_.distrust_counter();
    const bool is_uncertain = result.error == StoreError::kUncertain;
    const char* fate = is_uncertain ? "" : "the writes since the last commit are discarded: ";
    result.text = connection_.path() + ": " + fate + result.text;
    report(result.text);
  }
  drop();
  return result;
}

void StoreBatch::write(const std::string& label, int seconds_to_confirm) {
  RowChanges rows = log_.net(view_.content());
  if (!rows.empty()) land(std::move(rows), label, seconds_to_confirm);
  log_.clear();
}

void StoreBatch::land(RowChanges rows, const std::string& label, int seconds_to_confirm) {
  StoreFile::require_label(label);
  const CommitLock lock = connection_.locked();
  require_lock();
  const Change change = {view_.generation() + 1, std::time(nullptr), label, std::move(rows)};
  std::optional<PendingRow> waiting;
  connection_.write([&](Transaction& transaction) {
    require_newest();
    if (seconds_to_confirm > 0) {
      waiting = pending_.wait_for(change.generation, label, seconds_to_confirm);
    }
    view_.land(transaction, change);
  });
  view_.contain(change.generation, waiting);
}

// The database has the last word on whether this change follows the one before.
void StoreBatch::require_newest() const {
  if (!connection_.file().is_newest(view_.generation())) {
    throw StoreFailure(StoreError::kMovedOn, "another process committed meanwhile");
  }
  if (connection_.file().pending()) {
    throw StoreFailure(StoreError::kPending, "another change is waiting for confirmation");
  }
}

void StoreBatch::restore(const RowSet& target) {
  if (admit().refusal != nullptr) return;
  const RowSet before = rows_of(view_.content());
  RowChanges changes = changes_between(before, target);
  keep_counters(changes);
  const std::string reason = apply_changes(view_.content(), changes);
  log_.replaced(before, rows_of(view_.content()));
  if (!reason.empty()) poison({StoreError::kCorrupt, reason});
}

void StoreBatch::discard() {
  if (connection_.is_inherited()) return leave_to_parent();
  in_trial_ = false;
  drop();
}

void StoreBatch::leave_to_parent() {
  number_ = kNone;  // the lock is the parent's, too
  in_trial_ = false;
  drop();
}

// Undoes what was written and gives the write lock back. What was read for this batch does not
// count for the next one.
void StoreBatch::drop() {
  if (has_lock() || !poisoned_.ok()) view_.forget_reads();
  log_.undo(view_.content());
  poisoned_ = {};
  if (has_lock()) connection_.shared().end_batch(number_);
  number_ = kNone;
}

// What counts is what is read from now on.
void StoreBatch::begin() {
  if (connection_.is_inherited()) reopen_();
  if (in_trial_) throw StoreFailure(StoreError::kTrialOpen, "a trial is already open");
  require_none();
  const StoreResult result = result_of([this] {
    take_lock();
    if (!view_.pending()) return;
    throw StoreFailure(StoreError::kPending, "a change is waiting for confirmation");
  });
  if (result.ok()) return;
  drop();
  throw StoreFailure(result);
}

void StoreBatch::begin_trial() {
  begin();
  in_trial_ = true;
}

StoreResult StoreBatch::accept(const std::string& label, int seconds_to_confirm) {
  const StoreResult is_open = result_of([this] {
    if (connection_.is_inherited()) reopen_();
    if (!in_trial_) throw StoreFailure(StoreError::kNoTrial, "no trial is open");
  });
  if (!is_open.ok()) return is_open;
  in_trial_ = false;
  return commit(label, seconds_to_confirm);
}

}  // namespace host
