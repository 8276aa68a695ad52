/// A SQLite database, as far as the store needs one.
#ifndef PLATFORM_HOST_DATABASE_H
#define PLATFORM_HOST_DATABASE_H

#include <sqlite3.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "host_store.h"
#include "store/file_size_signal.h"
#include "store/store_error.h"

namespace host {

/// Bytes of the largest thing that a store keeps in one piece: the rows of an object, a change, a
/// checkpoint.
inline constexpr std::size_t kLargestPiece = std::size_t{256} << 20U;

/// A prepared statement that one caller at a time fills and runs. Places and columns count from 0.
/// What is bound must stay where it is until the statement has run.
class Statement {
 public:
  Statement(sqlite3* connection, const char* sql);
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { sqlite3_finalize(statement_); }

  Statement& reset();
  Statement& bind(int place, std::int64_t number);
  Statement& bind_text(int place, std::string_view text);
  Statement& bind_bytes(int place, std::string_view bytes);  ///< kLargestPiece at most

  bool next();  ///< runs on to the next row; false past the last
  void run();   ///< runs to the end

  std::int64_t number(int column);
  std::string_view view(int column);  ///< of text or bytes, until the next row
  std::string text(int column) { return std::string(view(column)); }

 private:
  void check(int code);

  sqlite3* connection_;
  sqlite3_stmt* statement_ = nullptr;
};

/// Resets a statement when its rows have been read, also when they turn out to be damaged.
class Reading {
 public:
  explicit Reading(Statement& statement) : statement_(statement) {}
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;
  ~Reading() { statement_.reset(); }

 private:
  Statement& statement_;
};

/// Every member but the destructor throws StoreFailure. What stands in the file is data: nothing in
/// it makes SQLite run a function, take more memory than a store needs, or go on without end.
class Database {
 public:
  /// @param path  or a name that begins with "file:" and says how the file is opened
  Database(const std::string& path, const StoreOptions& options);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  void run(const char* sql);
  std::int64_t number(const char* sql);  ///< the first column of the first row
  std::string text(const char* sql);
  void set_pragma(const std::string& name, std::int64_t number);

  /// Prepared once for each text, which must be a literal, and handed out fresh.
  Statement& statement(const char* sql);

  void wait_for_locks(int milliseconds) { (void)sqlite3_busy_timeout(connection_, milliseconds); }
  int usual_wait_ms() const { return usual_wait_ms_; }

  /// From now on a statement that takes more steps of SQLite's machine fails with kCorrupt.
  void limit_steps(int most);
  std::int64_t size();  ///< bytes of all pages, as the statement that is being read sees them

  /// From now on closing it only gives its locks back, and leaves the log to others.
  void leave_log();
  /// From now on commits go to a log, and closing writes it back when nobody else is there.
  void own_log();

  /// Tries to write the log back and empty it, so that it takes no room on the disk.
  void write_log_back();

  /// Decides what became of a commit that is in doubt, for everybody: what is in effect now stays,
  /// also when the power goes. When it stands in the log but not in the log's index, as after a
  /// sync that failed, whoever reads the log after the last process died would take it for done.
  /// Needs the commit lock.
  void settle();
  /// Whether the step that just failed may have left a commit in the log all the same.
  bool may_have_landed() const;
  /// What to do when a commit is in doubt and stays so.
  void on_doubt(std::function<void()> action) { on_doubt_ = std::move(action); }

  bool is_read_only() const { return sqlite3_db_readonly(connection_, "main") == 1; }

 private:
  friend class Transaction;

  const int usual_wait_ms_;
  sqlite3* connection_ = nullptr;
  std::map<const char*, std::unique_ptr<Statement>> statements_;
  bool owns_log_ = false;
  std::function<void()> on_doubt_;
};

/// While one lives, the database waits less for the locks of others.
class ShorterWait {
 public:
  ShorterWait(Database& database, int milliseconds) : database_(database) {
    database_.wait_for_locks(std::min(milliseconds, database_.usual_wait_ms()));
  }
  ShorterWait(const ShorterWait&) = delete;
  ShorterWait& operator=(const ShorterWait&) = delete;
  ~ShorterWait() { database_.wait_for_locks(database_.usual_wait_ms()); }

 private:
  Database& database_;
};

/// A transaction that is rolled back unless it is committed, also when the commit fails. One that
/// fails in the last sync may have landed all the same; then it is kUncertain, unless it could be
/// settled that it has not.
class Transaction {
 public:
  enum Kind { kRead, kWrite };
  Transaction(Database& database, Kind kind);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();
  void commit();

 private:
  friend class Database;
  void commit_once();
  void roll_back();
  void settle_or_doubt(const StoreFailure& failure);

  const FileSizeSignal no_signal_;
  Database& database_;
  bool open_ = true;
};

}  // namespace host

#endif  // PLATFORM_HOST_DATABASE_H
