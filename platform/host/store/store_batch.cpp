/// The writes of a store, from the first one to the commit.
#include <ctime>
#include <utility>

#include "store/store_impl.h"

namespace host {

/// Asked before every write, and only for one that the tree itself allows.
TreeObserver::Admission Store::Impl::admit() {
  bool moved = is_forked();
  try {
    if (moved) open_anew_after_fork();
    if (!poisoned.ok()) return {poisoned.text.c_str(), false};
    if (batch == 0) {
      begin_batch();
      moved = true;
    } else if (!shared->owns(batch)) {
      throw StoreFailure(StoreError::kMovedOn,
                         "the batch was silent for too long and another one went on");
    }
  } catch (const StoreFailure& failure) {
    poison(failure.result());
    return {poisoned.text.c_str(), false};
  }
  shared->note_activity();
  return {nullptr, moved};
}

/// Takes the write lock, then catches up: what this batch changes is what the last one left. While
/// the counter stands still there is nothing to catch up with, and the commit asks the database
/// again; only that a change was confirmed does not count.
void Store::Impl::begin_batch() {
  batch = shared->begin_batch(options);
  const std::uint32_t counter = repaired_counter();
  if (counter != seen_counter || pending) catch_up();
  seen_counter = counter;
  if (pending && is_too_late(*pending)) {
    revert_when_too_late();
    catch_up();
  }
}

void Store::Impl::poison(const StoreResult& reason) {
  drop_batch();
  poisoned = reason;
}

StoreResult Store::Impl::commit(const std::string& label) {
  StoreResult result;
  try {
    if (is_forked()) open_anew_after_fork();
    result = poisoned;
    if (trial) return result;
    if (result.ok() && batch != 0) write_batch(label);
  } catch (const StoreFailure& failure) {
    result = failure.result();
  }
  if (!result.ok()) {
    result.text = store_path + ": the writes since the last commit are discarded: " + result.text;
    report(result.text);
  }
  drop_batch();
  return result;
}

void Store::Impl::write_batch(const std::string& label) {
  RowChanges rows = log.net(content());
  if (!rows.empty()) {
    const CommitLock lock(*shared, deadline_of(options));
    if (!shared->owns(batch)) {
      throw StoreFailure(StoreError::kMovedOn,
                         "the batch was silent for too long and another one went on");
    }
    Transaction transaction(file->database(), Transaction::kWrite);
    // The database has the last word on whether this change follows the one before.
    if (!file->is_newest(generation)) {
      seen_counter = 1;  // the counter did not tell
      throw StoreFailure(StoreError::kMovedOn, "another process committed meanwhile");
    }
    if (file->pending()) {
      throw StoreFailure(StoreError::kPending, "another change waits for its confirmation");
    }
    const Change change = {generation + 1, std::time(nullptr), label, std::move(rows)};
    std::optional<PendingRow> waiting;
    if (seconds_to_confirm > 0) {
      waiting = pending_row(change.generation, label, now(options), seconds_to_confirm);
      file->set_pending(*waiting);
    }
    land(transaction, change);
    generation = change.generation;
    seen_counter = static_cast<std::uint32_t>(2 * generation);
    pending = waiting;
  }
  log.clear();
}

/// Commits a change and tells the other processes. Needs the commit lock.
void Store::Impl::land(Transaction& transaction, const Change& change) {
  const auto counter = static_cast<std::uint32_t>(2 * change.generation);
  shared->set_counter(counter - 1);
  seen_counter = 1;  // until it is known, the database has to be asked
  try {
    file->write(change);
    transaction.commit();
  } catch (const StoreFailure&) {
    shared->set_counter(counter - 2);
    throw;
  }
  if (options.between_commit_and_counter) options.between_commit_and_counter();
  shared->set_counter(counter);
}

void Store::Impl::discard() {
  if (is_forked()) {
    leave_batch_to_parent();
    return;
  }
  trial = false;
  drop_batch();
}

/// Undoes what was written and gives the write lock back.
void Store::Impl::drop_batch() {
  log.undo(content());
  poisoned = {};
  if (batch != 0) shared->end_batch(batch);
  batch = 0;
}

}  // namespace host
