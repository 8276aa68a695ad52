// SQLite used directly: one table in memory, prepared statements, one transaction.
#include <sqlite3.h>

#include <cstdlib>

#include "benchmarks.h"

namespace bench {
namespace {

class SqliteSubject {
 public:
  explicit SqliteSubject(const Workload& work) : names_(work.enumerated) {
    check(sqlite3_open(":memory:", &database_));
    execute("CREATE TABLE tree (name TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID; BEGIN");
    read_ = prepared("SELECT value FROM tree WHERE name = ?1");
    write_ = prepared("UPDATE tree SET value = ?2 WHERE name = ?1");
    insert_ = prepared("INSERT INTO tree VALUES (?1, ?2)");
    remove_ = prepared("DELETE FROM tree WHERE name >= ?1 AND name < ?2");
    for (const Entry& entry : work.entries) run(insert_, entry.name, entry.first);
  }
  SqliteSubject(const SqliteSubject&) = delete;
  SqliteSubject& operator=(const SqliteSubject&) = delete;
  ~SqliteSubject() {
    for (sqlite3_stmt* statement : {read_, write_, insert_, remove_}) sqlite3_finalize(statement);
    sqlite3_close(database_);
  }

  static std::string key(const std::string& name) { return name; }
  std::string get(const std::string& key) {
    bind(read_, 1, key);
    std::string value;
    if (sqlite3_step(read_) == SQLITE_ROW) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(read_, 0));
      value.assign(text, static_cast<std::size_t>(sqlite3_column_bytes(read_, 0)));
    }
    sqlite3_reset(read_);
    return value;
  }
  void set(const std::string& key, const std::string& value) { run(write_, key, value); }
  std::vector<std::string> enumerate_values() {
    std::vector<std::string> values;
    values.reserve(names_.size());
    for (const std::string& name : names_) values.push_back(get(name));
    return values;
  }
  std::string add() {
    std::string path = kAddedTable + std::to_string(++last_number_) + ".";
    for (const Entry& entry : added_parameters()) run(insert_, path + entry.name, "");
    return path;
  }
  void remove(const std::string& path) {
    std::string end = path;
    ++end.back();
    run(remove_, path, end);
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
  static void bind(sqlite3_stmt* statement, int place, const std::string& text) {
    check(sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()),
                            SQLITE_STATIC));
  }
  static void run(sqlite3_stmt* statement, const std::string& first, const std::string& second) {
    bind(statement, 1, first);
    bind(statement, 2, second);
    if (sqlite3_step(statement) != SQLITE_DONE) std::abort();
    sqlite3_reset(statement);
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt *read_ = nullptr, *write_ = nullptr, *insert_ = nullptr, *remove_ = nullptr;
  std::vector<std::string> names_;
  int last_number_ = 0;
};

}  // namespace

void register_sqlite() { register_subject<SqliteSubject>("sqlite"); }

}  // namespace bench
