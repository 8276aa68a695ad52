/// A SQLite database, as far as the store needs one.
#ifndef PLATFORM_HOST_DATABASE_H
#define PLATFORM_HOST_DATABASE_H

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "host_store.h"
#include "store/file_size_signal.h"
#include "store/store_error.h"

namespace host {

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
  Statement& bind_bytes(int place, std::string_view bytes);

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

/// Every member but the destructor throws StoreFailure.
class Database {
 public:
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

  /// From now on closing it only gives its locks back, and leaves the log to others.
  void leave_log();

  /// Tries to write the log back and empty it. A commit whose sync failed may stand in the log
  /// whole; whoever reads the log after this process died would take it for done.
  void empty_log();

  bool is_read_only() const { return sqlite3_db_readonly(connection_, "main") == 1; }

 private:
  sqlite3* connection_ = nullptr;
  std::map<const char*, std::unique_ptr<Statement>> statements_;
};

/// A transaction that is rolled back unless it is committed, also when the commit fails.
class Transaction {
 public:
  enum Kind { kRead, kWrite };
  Transaction(Database& database, Kind kind);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();
  void commit();

 private:
  void roll_back();

  const FileSizeSignal no_signal_;
  Database& database_;
  bool open_ = true;
};

}  // namespace host

#endif  // PLATFORM_HOST_DATABASE_H
