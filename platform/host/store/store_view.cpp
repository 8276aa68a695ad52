/// How a store follows the commits of other processes.
#include <utility>

#include "rows/tree_rows.h"
#include "store/store_impl.h"

namespace host {

/// Something may have happened: a commit, a fork, the loss of the write lock.
void Store::Impl::poll() {
  try {
    if (is_forked()) {
      open_anew_after_fork();
      return;
    }
    if (pending && is_too_late(*pending)) revert_when_too_late();
    if (is_current()) return;
    if (batch != 0 && !shared->owns(batch)) {
      poison({StoreError::kMovedOn, "the batch was silent for too long and another one went on"});
    }
    if (batch != 0 || holds > 0) return;
    const std::uint32_t counter = repaired_counter();
    catch_up();
    seen_counter = counter;
  } catch (const StoreFailure& failure) {
    if (last_trouble != failure.result().text) report(store_path + ": " + failure.result().text);
    last_trouble = failure.result().text;
  }
}

/// The shared counter. A commit that its process did not live to finish leaves it odd; nobody
/// commits while this one has the commit lock, so then the database tells what it should be.
std::uint32_t Store::Impl::repaired_counter() {
  const std::uint32_t counter = shared->counter();
  if (counter % 2 == 0) return counter;
  const CommitLock lock(*shared);
  if (!lock.taken()) return counter;
  const auto repaired = static_cast<std::uint32_t>(2 * file->generation());
  shared->set_counter(repaired);
  return repaired;
}

void Store::Impl::catch_up() {
  Transaction snapshot(file->database(), Transaction::kRead);
  pending = file->pending();
  if (file->is_newest(generation)) return;
  const Generation newest = file->generation();
  const std::optional<std::vector<Change>> changes =
      newest > generation ? file->changes_after(generation) : std::nullopt;
  if (!changes) {
    reload();
    return;
  }
  for (const Change& change : *changes) {
    const std::string reason = apply_changes(content(), change.rows);
    if (!reason.empty()) {
      reload();
      return;
    }
    generation = change.generation;
  }
}

void Store::Impl::reload() {
  TreeStore loaded;
  const Generation newest = file->generation();
  std::string reason;
  file->for_each_row([&](const std::string& name, const Row& row) {
    if (reason.empty()) reason = put_row(loaded, name, row);
  });
  if (!reason.empty()) throw StoreFailure(StoreError::kCorrupt, reason);
  pending = file->pending();
  content() = std::move(loaded);
  generation = newest;
}

}  // namespace host
