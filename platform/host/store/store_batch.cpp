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
    begin();
  }
}

// Takes the write lock, then catches up: what this batch changes is what the last one left. The
// commit asks the database again.
void StoreBatch::begin() {
  number_ = connection_.shared().begin_batch(connection_.options());
  view_.catch_up();
  if (!pending_.is_overdue()) return;
  pending_.revert_overdue();
  view_.catch_up();
}

void StoreBatch::require_lock() const {
  if (connection_.shared().owns(number_)) return;
  throw StoreFailure(StoreError::kMovedOn,
                     "the batch was silent for too long and another one went on");
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
  throw StoreFailure(StoreError::kBatchOpen, "there are writes that are not committed");
}

StoreResult StoreBatch::commit(const std::string& label, int seconds_to_confirm) {
  StoreResult result = result_of([&] {
    if (connection_.is_inherited()) reopen_();
    if (!poisoned_.ok()) throw StoreFailure(poisoned_);
    if (has_lock() && !in_trial_) write(label, seconds_to_confirm);
  });
  if (in_trial_) return result;
  if (!result.ok()) {
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
  Transaction transaction(connection_.database(), Transaction::kWrite);
  // The database has the last word on whether this change follows the one before.
  if (!connection_.file().is_newest(view_.generation())) {
    view_.distrust_counter();
    throw StoreFailure(StoreError::kMovedOn, "another process committed meanwhile");
  }
  if (connection_.file().pending()) {
    throw StoreFailure(StoreError::kPending, "another change waits for its confirmation");
  }
  const Change change = {view_.generation() + 1, std::time(nullptr), label, std::move(rows)};
  std::optional<PendingRow> waiting;
  if (seconds_to_confirm > 0) {
    waiting = pending_.wait_for(change.generation, label, seconds_to_confirm);
  }
  view_.land(transaction, change);
  view_.contain(change.generation, waiting);
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

// Undoes what was written and gives the write lock back.
void StoreBatch::drop() {
  log_.undo(view_.content());
  poisoned_ = {};
  if (has_lock()) connection_.shared().end_batch(number_);
  number_ = kNone;
}

void StoreBatch::begin_trial() {
  if (connection_.is_inherited()) reopen_();
  if (in_trial_) throw StoreFailure(StoreError::kTrialOpen, "a trial is open already");
  require_none();
  const StoreResult result = result_of([this] {
    begin();
    if (!view_.pending()) return;
    throw StoreFailure(StoreError::kPending, "a change waits for its confirmation");
  });
  if (!result.ok()) {
    drop();
    throw StoreFailure(result);
  }
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
