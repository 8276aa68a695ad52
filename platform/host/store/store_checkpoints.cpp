#include "store/store_checkpoints.h"

#include <algorithm>
#include <ctime>
#include <optional>
#include <utility>

#include "rows/tree_rows.h"

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

[[noreturn]] void no_checkpoint(const std::string& name) {
  throw StoreFailure(StoreError::kNoCheckpoint, "there is no checkpoint " + name);
}

// The generation in "@17", 0 for anything else.
Generation generation_in(const std::string& name) {
  constexpr std::size_t kMostDigits = 18;
  const std::string digits = name.substr(1);
  if (digits.empty() || digits.size() > kMostDigits || digits.front() == '0') return 0;
  if (digits.find_first_not_of("0123456789") != std::string::npos) return 0;
  return std::stoull(digits);
}

}  // namespace

void StoreCheckpoints::require_name(const std::string& name) {
  if (is_good_name(name)) return;
  throw StoreFailure(StoreError::kBadName,
                     "a checkpoint's name must be 1 to 64 letters, digits, . _ and -");
}

void StoreCheckpoints::make(const std::string& name) {
  StoreFile& file = connection_.file();
  const CommitLock lock = connection_.locked();
  connection_.write([&](Transaction& transaction) {
    if (file.named_rows(name)) {
      throw StoreFailure(StoreError::kNameTaken, "there is already a checkpoint " + name);
    }
    file.add_named({name, file.generation(), std::time(nullptr), {}, false}, file.rows());
    transaction.commit();
  });
}

void StoreCheckpoints::remove(const std::string& name) {
  const CommitLock lock = connection_.locked();
  connection_.write([&](Transaction& transaction) {
    if (!connection_.file().delete_named(name)) no_checkpoint(name);
    transaction.commit();
  });
}

std::vector<Checkpoint> StoreCheckpoints::list() const {
  StoreFile& file = connection_.file();
  Transaction snapshot(file.database(), Transaction::kRead);
  std::vector<Checkpoint> listed;
  for (const Change& change : file.kept_changes()) {
    if (change.generation == 1) continue;  // there was nothing before it
    const Generation kept = change.generation - 1;
    listed.push_back({kAutomatic + std::to_string(kept), kept, change.time, change.label, true});
  }
  std::reverse(listed.begin(), listed.end());
  for (Checkpoint& named : file.named_checkpoints()) listed.push_back(std::move(named));
  return listed;
}

RowSet StoreCheckpoints::rows_at(const std::string& name) const {
  Transaction snapshot(connection_.database(), Transaction::kRead);
  std::optional<RowSet> rows = name[0] == kAutomatic ? rows_of_generation(generation_in(name))
                                                     : connection_.file().named_rows(name);
  if (!rows) no_checkpoint(name);
  return std::move(*rows);
}

// None when the changes since then are not all kept any more.
std::optional<RowSet> StoreCheckpoints::rows_of_generation(Generation generation) const {
  StoreFile& file = connection_.file();
  if (generation == 0 || generation > file.generation()) return std::nullopt;
  const std::optional<std::vector<Change>> later = file.changes_after(generation);
  if (!later) return std::nullopt;
  RowSet rows = file.rows();
  for (auto change = later->rbegin(); change != later->rend(); ++change) {
    apply_changes(rows, reversed(change->rows));
  }
  return rows;
}

}  // namespace host
