#include "store/store_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string_view>
#include <utility>

#include "rows/row_codec.h"
#include "rows/tree_rows.h"
#include "store/store_access.h"
#include "store/store_tables.h"
#include "tree/tree_access.h"

namespace host {
namespace {

constexpr std::int64_t kApplicationId = 0x49474453;  // "IGDS" tells a store from other databases
constexpr std::int64_t kFormat = 2;
constexpr std::int64_t kPageSize = 4096;
constexpr std::int64_t kLongestLog = 4 << 20;
constexpr std::int64_t kLongLog = 1 << 20;  // for a process that begins or ends
constexpr const char* kLog = "-wal";

// Honest files take a small part of these.
constexpr int kStepsForSchema = 1000000;
constexpr int kSteps = 100000000;

bool is_in_memory(const std::string& path) { return path == ":memory:"; }

// Size of a file, none when it is not there.
std::optional<std::int64_t> size_of(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return status.st_size;
}

// Makes the file, or takes an empty one over, for its owner alone whatever the umask. It is not
// opened for that: closing it again would end SQLite's locks of this process on it.
void make_private(const std::string& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly);
  if (file < 0 && errno != EEXIST) throw StoreFailure(error_of_system(errno), std::strerror(errno));
  if (file >= 0) (void)close(file);
  if (chmod(path.c_str(), kOwnerOnly) != 0) {
    throw StoreFailure(error_of_system(errno), std::strerror(errno));
  }
}

// Sees to it that the file is there with the right mode, and that one that SQLite takes for new
// really is: it would throw the log of a database away that lost its main file, and write over a
// single byte.
std::string prepared(const std::string& path, const StoreOptions& options, FileUse use) {
  if (is_in_memory(path) || !options.vfs.empty()) return path;
  const std::int64_t size = size_of(path).value_or(0);
  if (size == 1) throw StoreFailure(StoreError::kCorrupt, "the file is cut off");
  if (size == 0 && size_of(path + kLog).value_or(0) > 0) {
    throw StoreFailure(StoreError::kCorrupt, "the file is empty, but its log is not");
  }
  if (use != FileUse::kWrite) return name_for_reading(path, use);
  if (size == 0) make_private(path);
  return path;
}

// Renames a file that is there, durably.
bool renamed(const std::string& from, const std::string& to) {
  if (!size_of(from)) return true;
  if (std::rename(from.c_str(), to.c_str()) != 0) return false;
  const int folder = ::open(from.substr(0, from.rfind('/') + 1).c_str(), O_RDONLY | O_CLOEXEC);
  if (folder < 0) return false;
  const bool synced = fsync(folder) == 0;
  (void)close(folder);
  return synced;
}

// Where a change stands among those that are kept.
std::int64_t place_of(Generation generation) {
  return static_cast<std::int64_t>(generation % kChangesKept);
}

void require_kept(std::int64_t changes) {
  if (changes <= static_cast<std::int64_t>(kChangesKept)) return;
  throw StoreFailure(StoreError::kCorrupt, "the store has more changes than it keeps");
}

RowChanges checked(std::string_view bytes) {
  std::optional<RowChanges> changes = decoded(bytes);
  if (!changes) throw StoreFailure(StoreError::kCorrupt, "a change is damaged");
  return std::move(*changes);
}

}  // namespace

StoreFile::StoreFile(const std::string& path, const StoreOptions& options, FileUse use)
    : path_(path), use_(use), database_(prepared(path, options, use), options) {
  // What it holds stays as it is while the file may turn out to be no store.
  if (size_of(path + kLog).value_or(0) > 0) database_.leave_log();
  database_.limit_steps(kStepsForSchema);
  if (use == FileUse::kWrite && database_.is_read_only()) {
    throw StoreFailure(StoreError::kReadOnly, "the file cannot be written");
  }
  if (use != FileUse::kWrite) database_.leave_log();
  if (options.size_limit_bytes > 0) {
    const auto pages = static_cast<std::int64_t>(options.size_limit_bytes) / kPageSize;
    database_.set_pragma("max_page_count", std::max<std::int64_t>(pages, 1));
  }
  const bool is_empty =
      database_.number("PRAGMA application_id") == 0 && database_.number("PRAGMA page_count") == 0;
  if (is_empty) make_new();
  check_owner();
  require_own_tables(database_);
  database_.limit_steps(kSteps);
}

// A file that is in another mode, as a copy may be, is changed by this.
void StoreFile::keep_log() {
  if (use_ != FileUse::kWrite) return;
  const std::string mode = database_.text("PRAGMA journal_mode = WAL");
  if (mode != "wal" && mode != "memory") {
    throw StoreFailure(StoreError::kIo, "the file system cannot hold a write-ahead log");
  }
  database_.run("PRAGMA synchronous = FULL");  // durable at every commit, with one sync
  database_.set_pragma("wal_autocheckpoint", kLongestLog / kPageSize);
  database_.set_pragma("journal_size_limit", kLongestLog);
  database_.own_log();
}

bool StoreFile::keeps_log() { return database_.text("PRAGMA journal_mode") == "wal"; }

void StoreFile::shorten_log() {
  if (use_ != FileUse::kWrite || is_in_memory(path_)) return;
  if (size_of(path_ + kLog).value_or(0) <= kLongLog) return;
  const ShorterWait wait(database_, 0);
  database_.write_log_back();
}

void StoreFile::check_owner() {
  if (database_.number("PRAGMA application_id") != kApplicationId) {
    throw StoreFailure(StoreError::kForeign, "the file is another program's database");
  }
  const std::int64_t format = database_.number("PRAGMA user_version");
  if (format == kFormat) return;
  throw StoreFailure(StoreError::kUnknownFormat, "the store has format " + std::to_string(format) +
                                                     ", but this program supports " +
                                                     std::to_string(kFormat));
}

// One transaction, so that the file is a whole store or still empty whatever happens.
void StoreFile::make_new() {
  Transaction transaction(database_, Transaction::kWrite);
  if (database_.number("PRAGMA page_count") > 0 &&
      database_.number("SELECT count(*) FROM sqlite_master") > 0) {
    return;  // another process was faster
  }
  make_tables(database_);
  database_.set_pragma("application_id", kApplicationId);
  database_.set_pragma("user_version", kFormat);
  Tree factory = Tree::factory();
  const RowSet rows = rows_of(TreeAccess::store(factory));
  write({1, std::time(nullptr), "factory state", changes_between({}, rows)});
  transaction.commit();
}

void StoreFile::require_label(const std::string& label) {
  if (label.size() <= kLongestText) return;
  throw StoreFailure(StoreError::kTooLarge, "the label is longer than 16 MiB");
}

void StoreFile::require_sound() {
  const std::string verdict = database_.text("PRAGMA quick_check(1)");
  if (verdict == "ok") return;
  // A page that the disk does not give is among the findings.
  const bool unreadable = verdict.find("error code") != std::string::npos;
  throw StoreFailure(unreadable ? StoreError::kIo : StoreError::kCorrupt, verdict);
}

Generation StoreFile::generation() {
  Statement& newest = database_.statement(
      "SELECT max(generation), count(*) FROM (SELECT generation FROM change LIMIT ?)");
  const Reading reading(newest);
  newest.bind(0, static_cast<std::int64_t>(kChangesKept + 1));
  const auto generation = newest.next() ? static_cast<Generation>(newest.number(0)) : 0;
  require_kept(newest.number(1));
  if (generation == 0) throw StoreFailure(StoreError::kCorrupt, "the store has no generation");
  return generation;
}

std::int64_t StoreFile::generation_in_place_of(Generation generation) {
  Statement& kept = database_.statement("SELECT generation FROM change WHERE place = ?");
  kept.bind(0, place_of(generation));
  const std::int64_t found = kept.next() ? kept.number(0) : 0;
  kept.reset();
  return found;
}

bool StoreFile::is_newest(Generation generation) {
  const auto wanted = static_cast<std::int64_t>(generation);
  return generation != 0 && generation_in_place_of(generation) == wanted &&
         generation_in_place_of(generation + 1) < wanted;
}

std::vector<Change> StoreFile::read_changes(Generation after) {
  std::vector<Change> changes;
  Statement& kept = database_.statement(
      "SELECT generation, time, label, changes FROM change WHERE generation > ?");
  const Reading reading(kept);
  kept.bind(0, static_cast<std::int64_t>(after));
  while (kept.next()) {
    changes.push_back({static_cast<Generation>(kept.number(0)), kept.number(1), kept.text(2),
                       checked(kept.view(3))});
    require_kept(static_cast<std::int64_t>(changes.size()));
  }
  std::sort(changes.begin(), changes.end(), [](const Change& one, const Change& other) {
    return one.generation < other.generation;
  });
  return changes;
}

std::optional<std::vector<Change>> StoreFile::changes_after(Generation generation) {
  std::vector<Change> changes = read_changes(generation);
  if (!changes.empty() && changes.front().generation != generation + 1) return std::nullopt;
  return changes;
}

void StoreFile::write(const Change& change) {
  write_rows(change.rows);
  // In the place of the one that is too old now, so that a commit writes no other pages for it.
  database_
      .statement(
          "INSERT OR REPLACE INTO change(place, generation, time, label, changes)"
          " VALUES(?, ?, ?, ?, ?)")
      .bind(0, place_of(change.generation))
      .bind(1, static_cast<std::int64_t>(change.generation))
      .bind(2, change.time)
      .bind_text(3, change.label)
      .bind_bytes(4, encoded(change.rows))
      .run();
}

// The file goes before its log, and for good: a file without the log that belongs to it would look
// like a store that is whole, only older. A log without its file is refused.
void keep_aside(const std::string& path) {
  std::string aside;
  for (int n = 1; aside.empty() || size_of(aside) || size_of(aside + kLog); ++n) {
    aside = path + ".corrupt-" + std::to_string(n);
  }
  const bool moved = renamed(path, aside) && renamed(path + kLog, aside + kLog);
  (void)unlink((path + "-shm").c_str());  // the log's index; made anew from it
  if (!moved) {
    throw StoreFailure(StoreError::kNotOpened,
                       "the damaged file cannot be renamed: " + std::string(std::strerror(errno)));
  }
}

}  // namespace host
