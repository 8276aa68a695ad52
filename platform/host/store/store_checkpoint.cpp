/// Going back: named checkpoints, and the automatic ones that the kept changes make.
#include <algorithm>
#include <ctime>
#include <utility>

#include "rows/tree_rows.h"
#include "store/store_impl.h"

namespace host {
namespace {

constexpr std::size_t kLongestName = 64;
constexpr char kAutomatic = '@';

bool is_good_name(const std::string& name) {
  if (name.empty() || name.size() > kLongestName) return false;
  return std::all_of(name.begin(), name.end(), [](char c) {
    const bool is_letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return is_letter || (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '-';
  });
}

StoreResult bad_name() {
  return {StoreError::kBadName, "a checkpoint's name is 1 to 64 letters, digits, . _ and -"};
}

StoreResult batch_open() {
  return {StoreError::kBatchOpen, "there are writes that are not committed"};
}

[[noreturn]] void no_checkpoint(const std::string& name) {
  throw StoreFailure(StoreError::kNoCheckpoint, "there is no checkpoint " + name);
}

/// The generation in "@17", 0 for anything else.
Generation generation_in(const std::string& name) {
  constexpr std::size_t kMostDigits = 18;
  const std::string digits = name.substr(std::min<std::size_t>(1, name.size()));
  if (digits.empty() || digits.size() > kMostDigits || digits.front() == '0') return 0;
  if (digits.find_first_not_of("0123456789") != std::string::npos) return 0;
  return std::stoull(digits);
}

}  // namespace

StoreResult Store::Impl::make_checkpoint(const std::string& name) {
  if (!is_good_name(name)) return bad_name();
  refresh();
  if (batch != 0 || !poisoned.ok()) return batch_open();
  try {
    require_own_file();
    const CommitLock lock(*shared, deadline_of(options));
    Transaction transaction(file->database(), Transaction::kWrite);
    if (file->named_rows(name)) {
      return {StoreError::kNameTaken, "there is a checkpoint " + name + " already"};
    }
    file->add_named({name, file->generation(), std::time(nullptr), {}, false}, file->rows());
    transaction.commit();
  } catch (const StoreFailure& failure) {
    return failure.result();
  }
  return {};
}

StoreResult Store::Impl::delete_checkpoint(const std::string& name) {
  if (!is_good_name(name)) return bad_name();
  refresh();
  try {
    require_own_file();
    const CommitLock lock(*shared, deadline_of(options));
    Transaction transaction(file->database(), Transaction::kWrite);
    if (!file->delete_named(name)) no_checkpoint(name);
    transaction.commit();
  } catch (const StoreFailure& failure) {
    return failure.result();
  }
  return {};
}

std::vector<Checkpoint> Store::Impl::checkpoints(StoreResult* result) {
  refresh();
  std::vector<Checkpoint> listed;
  StoreResult done;
  try {
    require_own_file();
    Transaction snapshot(file->database(), Transaction::kRead);
    for (const Change& change : file->kept_changes()) {
      if (change.generation == 1) continue;  // there was nothing before it
      const Generation kept = change.generation - 1;
      listed.push_back({kAutomatic + std::to_string(kept), kept, change.time, change.label, true});
    }
    std::reverse(listed.begin(), listed.end());
    for (Checkpoint& named : file->named_checkpoints()) listed.push_back(std::move(named));
  } catch (const StoreFailure& failure) {
    listed.clear();
    done = failure.result();
  }
  if (result != nullptr) *result = done;
  return listed;
}

/// The rows of a checkpoint, or those of now for "".
RowSet Store::Impl::rows_at(const std::string& checkpoint) {
  if (checkpoint.empty()) return rows_of(content());
  require_own_file();
  Transaction snapshot(file->database(), Transaction::kRead);
  if (checkpoint.front() != kAutomatic) {
    std::optional<RowSet> rows = file->named_rows(checkpoint);
    if (!rows) no_checkpoint(checkpoint);
    return std::move(*rows);
  }
  const Generation wanted = generation_in(checkpoint);
  const bool is_there = wanted > 0 && wanted <= file->generation();
  const std::optional<std::vector<Change>> later =
      is_there ? file->changes_after(wanted) : std::nullopt;
  if (!later) no_checkpoint(checkpoint);
  RowSet rows = file->rows();
  for (auto change = later->rbegin(); change != later->rend(); ++change) {
    apply_changes(rows, reversed(change->rows));
  }
  return rows;
}

StoreResult Store::Impl::difference(const std::string& from, const std::string& to,
                                    Difference* difference) {
  refresh();
  try {
    const RowSet before = rows_at(from);
    Difference found = difference_of(changes_between(before, rows_at(to)));
    if (difference != nullptr) *difference = std::move(found);
  } catch (const StoreFailure& failure) {
    return failure.result();
  }
  return {};
}

StoreResult Store::Impl::restore(const std::string& name) {
  refresh();
  if (!trial && (batch != 0 || !poisoned.ok())) return batch_open();
  try {
    if (name.empty()) no_checkpoint(name);
    const RowSet target = rows_at(name);
    const Admission admission = admit();
    if (admission.refusal != nullptr) return commit({});
    const RowSet before = rows_of(content());
    RowChanges changes = changes_between(before, target);
    keep_counters(changes);
    const std::string reason = apply_changes(content(), changes);
    log.replaced(before, rows_of(content()));
    if (!reason.empty()) {
      poison({StoreError::kCorrupt, reason});
      return commit({});
    }
  } catch (const StoreFailure& failure) {
    if (!trial) drop_batch();
    return failure.result();
  }
  return commit("restored " + name);
}

}  // namespace host
