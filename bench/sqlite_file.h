/// SQLite used directly, durably: a table of names and values in a file.
#ifndef BENCH_SQLITE_FILE_H
#define BENCH_SQLITE_FILE_H

#include <sqlite3.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace bench {

/// A write-ahead log, one sync a commit, prepared statements, no locks between threads.
class SqliteFile {
 public:
  SqliteFile(const std::string& path, const char* vfs) {
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    check(sqlite3_open_v2(path.c_str(), &database_, kFlags, vfs));
    execute(
        "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
        "CREATE TABLE IF NOT EXISTS tree (name TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID;"
        "CREATE TABLE IF NOT EXISTS undo (place TEXT PRIMARY KEY, change TEXT) WITHOUT ROWID");
    insert_ = prepared("INSERT INTO tree VALUES (?1, ?2)");
    update_ = prepared("UPDATE tree SET value = ?2 WHERE name = ?1");
    keep_ = prepared("INSERT OR REPLACE INTO undo VALUES (?1, ?2)");
    begin_ = prepared("BEGIN IMMEDIATE");
    commit_ = prepared("COMMIT");
  }
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;
  ~SqliteFile() {
    for (sqlite3_stmt* statement : {insert_, update_, keep_, begin_, commit_})
      sqlite3_finalize(statement);
    sqlite3_close(database_);
  }

  void begin() { run(begin_); }
  void commit() { run(commit_); }
  void insert(const std::string& name, const std::string& value) { run(insert_, name, value); }
  void update(const std::string& name, const std::string& value) { run(update_, name, value); }

  /// What undoes a change, in the place of an older one.
  void keep(const std::string& place, const std::string& change) { run(keep_, place, change); }

  template <typename Visit>
  void for_each(const Visit& visit) {
    sqlite3_stmt* rows = prepared("SELECT name, value FROM tree");
    while (sqlite3_step(rows) == SQLITE_ROW) visit(text(rows, 0), text(rows, 1));
    sqlite3_finalize(rows);
  }

 private:
  static void check(int result) {
    if (result != SQLITE_OK) std::abort();
  }
  void execute(const char* sql) { check(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr)); }
  sqlite3_stmt* prepared(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr));
    return statement;
  }
  static std::string text(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
  }
  static void run(sqlite3_stmt* statement) {
    if (sqlite3_step(statement) != SQLITE_DONE) std::abort();
    sqlite3_reset(statement);
  }
  static void run(sqlite3_stmt* statement, const std::string& name, const std::string& value) {
    const auto bind = [statement](int place, const std::string& text) {
      check(sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()),
                              SQLITE_STATIC));
    };
    bind(1, name);
    bind(2, value);
    run(statement);
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt *insert_ = nullptr, *update_ = nullptr, *keep_ = nullptr;
  sqlite3_stmt *begin_ = nullptr, *commit_ = nullptr;
};

}  // namespace bench

#endif  // BENCH_SQLITE_FILE_H
