#include "store/store_view.h"

#include <string>
#include <utility>
#include <vector>

#include "rows/tree_rows.h"

namespace host {

void StoreView::load() {
  StoreFile& file = connection_.file();
  TreeStore loaded;
  const Generation newest = file.generation();
  std::string reason;
  file.for_each_row([&](const std::string& name, const Row& row) {
    if (reason.empty()) reason = put_row(loaded, name, row);
  });
  if (!reason.empty()) throw StoreFailure(StoreError::kCorrupt, reason);
  read_pending();
  content() = std::move(loaded);
  generation_ = newest;
}

void StoreView::publish_counter() {
  seen_counter_ = counter_of(generation_);
  const bool is_in_doubt = connection_.shared().counter() % 2 != 0 &&
                           !result_of([this] { connection_.database().settle(); }).ok();
  connection_.shared().set_counter(is_in_doubt ? seen_counter_ | 1U : seen_counter_);
}

// A counter that does not fit is that of a commit which goes on, or wrong: a store that was put
// back from a backup, a process that died. Only the commit lock tells the two apart, and it is not
// waited for; without it the next read asks the database.
void StoreView::adopt_counter() {
  const std::uint32_t loaded = counter_of(generation_);
  const bool fits = connection_.shared().counter() == loaded;
  std::uint32_t counter = loaded;
  if (!fits && !result_of([&] { counter = counter_in_database(); }).ok()) counter = kUnknown;
  seen_counter_ = counter == loaded ? loaded : kUnknown;
}

// Sets the shared counter right, and decides what became of a commit that is in doubt. kUnknown
// while another process commits.
std::uint32_t StoreView::counter_in_database() {
  SharedState& shared = connection_.shared();
  const CommitLock lock(shared);
  if (!lock.taken()) return kUnknown;
  if (shared.counter() % 2 != 0) connection_.database().settle();
  const std::uint32_t counter = counter_of(connection_.file().generation());
  shared.set_counter(counter);
  return counter;
}

// While the counter stands still no change was committed; only that a pending one was confirmed
// does not count.
void StoreView::catch_up() {
  const std::uint32_t counter = repaired_counter();
  if (counter != seen_counter_ || pending_) read_changes();
  // A commit goes on, whose process may die before it tells, or the counter tells nothing.
  seen_counter_ = counter == counter_of(generation_) ? counter : kUnknown;
}

// The shared counter. A commit that its process did not live to finish leaves it odd; nobody
// commits while this one has the commit lock, so then the database tells what it should be.
std::uint32_t StoreView::repaired_counter() {
  const std::uint32_t counter = connection_.shared().counter();
  return counter % 2 == 0 ? counter : counter_in_database();
}

void StoreView::read_changes() {
  StoreFile& file = connection_.file();
  Transaction snapshot(file.database(), Transaction::kRead);
  read_pending();
  if (file.is_newest(generation_)) return;
  const Generation newest = file.generation();
  const std::optional<std::vector<Change>> changes =
      newest > generation_ ? file.changes_after(generation_) : std::nullopt;
  if (!changes) return load();
  for (const Change& change : *changes) {
    const std::string reason = apply_changes(content(), change.rows);
    if (!reason.empty()) return load();
    generation_ = change.generation;
  }
}

void StoreView::land(Transaction& transaction, const Change& change) {
  SharedState& shared = connection_.shared();
  const std::uint32_t counter = counter_of(change.generation);
  shared.set_counter(counter - 1);
  distrust_counter();  // a commit that fails may be in the file all the same
  const StoreResult written = result_of([&] {
    connection_.file().write(change);
    transaction.commit();
  });
  if (!written.ok()) {
    if (written.error != StoreError::kUncertain) shared.set_counter(counter - 2);
    throw StoreFailure(written);
  }
  const StoreOptions& options = connection_.options();
  if (options.between_commit_and_counter) options.between_commit_and_counter();
  shared.set_counter(counter);
}

void StoreView::contain(Generation generation, const std::optional<PendingRow>& pending) {
  generation_ = generation;
  seen_counter_ = counter_of(generation);
  pending_ = pending;
}

}  // namespace host
