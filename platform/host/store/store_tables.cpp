#include "store/store_tables.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace host {
namespace {

// Letter by letter, blanks included, what every store has: another text is no store's.
constexpr const char* kObject =
    "CREATE TABLE object(number INTEGER PRIMARY KEY, path TEXT NOT NULL UNIQUE,"
    " rows BLOB NOT NULL)";
constexpr const char* kChange =
    R"(CREATE TABLE change(place INTEGER PRIMARY KEY, generation INTEGER NOT NULL,
                      time INTEGER NOT NULL, label TEXT NOT NULL, changes BLOB NOT NULL))";
constexpr const char* kCheckpoint =
    R"(CREATE TABLE checkpoint(name TEXT PRIMARY KEY, generation INTEGER NOT NULL,
                          time INTEGER NOT NULL, entries BLOB NOT NULL))";
constexpr const char* kPending =
    R"(CREATE TABLE pending(only INTEGER PRIMARY KEY CHECK (only = 1), generation INTEGER NOT NULL,
                       label TEXT NOT NULL, boot TEXT NOT NULL, started INTEGER NOT NULL,
                       deadline INTEGER NOT NULL))";

// A row of SQLite's own table of all that a file has.
struct Entry {
  std::string_view type;
  std::string_view name;
  std::string_view table;
  std::string_view sql;

  bool operator==(const Entry& other) const {
    return type == other.type && name == other.name && table == other.table && sql == other.sql;
  }
};

constexpr Entry kEntries[] = {
    // by name
    {"table", "change", "change", kChange},
    {"table", "checkpoint", "checkpoint", kCheckpoint},
    {"table", "object", "object", kObject},
    {"table", "pending", "pending", kPending},
    {"index", "sqlite_autoindex_checkpoint_1", "checkpoint", {}},
    {"index", "sqlite_autoindex_object_1", "object", {}},
};

bool has_own_tables(Database& database) {
  Statement& found =
      database.statement("SELECT type, name, tbl_name, sql FROM sqlite_master ORDER BY name");
  const Reading reading(found);
  return std::all_of(std::begin(kEntries), std::end(kEntries),
                     [&found](const Entry& entry) {
                       return found.next() && entry == Entry{found.view(0), found.view(1),
                                                             found.view(2), found.view(3)};
                     }) &&
         !found.next();
}

}  // namespace

void make_tables(Database& database) {
  for (const char* table : {kObject, kChange, kCheckpoint, kPending}) database.run(table);
}

void require_own_tables(Database& database) {
  if (has_own_tables(database)) return;
  throw StoreFailure(StoreError::kForeign, "the file has other tables than a store");
}

}  // namespace host
