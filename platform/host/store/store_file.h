/// The store's file: what its tables hold and what a commit writes.
#ifndef PLATFORM_HOST_STORE_FILE_H
#define PLATFORM_HOST_STORE_FILE_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "rows/row.h"
#include "store/database.h"
#include "store/store_access.h"

namespace host {

using Generation = std::uint64_t;

/// Undoing the changes that are kept gives each of the states before them.
inline constexpr Generation kChangesKept = 20;

/// One committed change.
struct Change {
  Generation generation;
  std::int64_t time;  ///< seconds since 1970
  std::string label;
  RowChanges rows;
};

/// The change that waits for its confirmation.
struct PendingRow {
  Generation generation;
  std::string label;
  std::string boot;       ///< the boot that the times belong to
  std::int64_t started;   ///< milliseconds of boot time
  std::int64_t deadline;  ///< the same
};

/// Every member but the destructor throws StoreFailure. What writes needs a write transaction.
class StoreFile {
 public:
  /// Opens and checks the file; makes it in factory state when it is empty or absent. Reads no
  /// table before it is known that the file has a store's tables and nothing else.
  StoreFile(const std::string& path, const StoreOptions& options, FileUse use = FileUse::kWrite);

  /// From now on a commit is written to a log. For a file that was read and is sound. Does nothing
  /// for one that is only read, as shorten_log() does.
  void keep_log();
  bool keeps_log();

  /// Writes a long log back and empties it, unless another process uses it just now. A process that
  /// ends without closing the store leaves it its log, and the next one goes on behind that.
  void shorten_log();

  Database& database() { return database_; }

  static void require_label(const std::string& label);  ///< one that is not too long
  void require_sound();                                 ///< reads the whole file
  Generation generation();
  bool is_newest(Generation generation);  ///< without a look at all that are kept
  RowSet rows();
  /// All rows, an object before all that is in it, without keeping them.
  void for_each_row(const std::function<void(const std::string& name, const Row& row)>& visit);

  /// The changes after a generation, oldest first; none when they are not all kept any more.
  std::optional<std::vector<Change>> changes_after(Generation generation);

  /// All that are kept, oldest first.
  std::vector<Change> kept_changes() { return read_changes(0); }

  std::vector<Checkpoint> named_checkpoints();
  std::optional<RowSet> named_rows(const std::string& name);
  void add_named(const Checkpoint& checkpoint, const RowSet& rows);
  bool delete_named(const std::string& name);  ///< false when there is none

  std::optional<PendingRow> pending();
  void set_pending(const PendingRow& row);
  void clear_pending();

  /// Writes one change and forgets the one that is too old now.
  void write(const Change& change);

 private:
  void write_rows(const RowChanges& changes);
  std::vector<Change> read_changes(Generation after);
  void check_owner();
  std::int64_t generation_in_place_of(Generation generation);
  void make_new();

  const std::string path_;
  const FileUse use_;
  Database database_;
};

/// Renames a damaged store and its log, so that a new one can take its place.
void keep_aside(const std::string& path);

}  // namespace host

#endif  // PLATFORM_HOST_STORE_FILE_H
