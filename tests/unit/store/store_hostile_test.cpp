// Stores that somebody prepared: what stands in a file is data and never a program, and what does
// not end is refused at once. The file stays as it is.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bent_pages.h"
#include "dump/dump_format.h"
#include "rows/row_codec.h"
#include "store_bench.h"

namespace {

using namespace store_tests;

class StoreHostile : public StoreBench {
 protected:
  void expect_refused(StoreError expected) {
    const std::string before = content_of(path_);
    EXPECT_EQ(error_on_open(), expected);
    EXPECT_TRUE(content_of(path_) == before);
  }
};

struct Planted {
  const char* name;
  const char* sql;
};

std::ostream& operator<<(std::ostream& out, const Planted& planted) { return out << planted.name; }

const Planted kPlanted[] = {
    {"AViewInPlaceOfATable",
     "ALTER TABLE change RENAME TO kept; CREATE VIEW change AS SELECT * FROM kept"},
    {"AViewThatDoesNotEnd",
     "DROP TABLE change; CREATE VIEW change(place, generation, time, label, changes) AS"
     " WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n)"
     " SELECT x, x, x, 'x', x'' FROM n"},
    {"ATrigger", "CREATE TRIGGER planted AFTER INSERT ON change BEGIN DELETE FROM object; END"},
    {"AGeneratedColumn",
     "DROP TABLE pending; CREATE TABLE pending(only INTEGER PRIMARY KEY CHECK (only = 1),"
     " generation INTEGER NOT NULL, label TEXT AS (hex(zeroblob(1000000))), boot TEXT NOT NULL,"
     " started INTEGER NOT NULL, deadline INTEGER NOT NULL)"},
    {"AnIndexOfAnExpression", "CREATE INDEX planted ON object(length(rows))"},
    {"AnotherTable", "CREATE TABLE planted(x)"},
    {"AVirtualTable", "CREATE VIRTUAL TABLE planted USING fts4(x)"},
    {"ATableOfAnotherText",
     "PRAGMA writable_schema = ON;"
     "UPDATE sqlite_master SET sql = replace(sql, 'TEXT', 'text') WHERE name = 'pending'"},
    {"ATableLess", "DROP TABLE pending"},
};

class StoreWith : public StoreHostile, public testing::WithParamInterface<Planted> {};

TEST_P(StoreWith, IsRefusedAndStaysAsItIs) {
  opened();
  run_sql(path_, GetParam().sql);
  expect_refused(StoreError::kForeign);
}

INSTANTIATE_TEST_SUITE_P(Planted, StoreWith, testing::ValuesIn(kPlanted),
                         [](const auto& planted) { return std::string(planted.param.name); });

// As the first version made them; the text is compared letter by letter.
TEST_F(StoreHostile, TheTablesOfEveryStoreAreTaken) {
  const char* const tables =
      "CREATE TABLE object(number INTEGER PRIMARY KEY, path TEXT NOT NULL UNIQUE,"
      " rows BLOB NOT NULL);"
      "CREATE TABLE change(place INTEGER PRIMARY KEY, generation INTEGER NOT NULL,\n"
      "                      time INTEGER NOT NULL, label TEXT NOT NULL, changes BLOB NOT NULL);"
      "CREATE TABLE checkpoint(name TEXT PRIMARY KEY, generation INTEGER NOT NULL,\n"
      "                          time INTEGER NOT NULL, entries BLOB NOT NULL);"
      "CREATE TABLE pending(only INTEGER PRIMARY KEY CHECK (only = 1), generation INTEGER NOT NULL,"
      "\n                       label TEXT NOT NULL, boot TEXT NOT NULL, started INTEGER NOT "
      "NULL,\n"
      "                       deadline INTEGER NOT NULL);"
      "PRAGMA application_id = 1229407315; PRAGMA user_version = 2;"
      "INSERT INTO change VALUES(1, 1, 0, 'made', x'')";
  run_sql(path_, tables);
  EXPECT_EQ(lines_of(opened()->tree()), lines_of(host::Tree()));
}

// What the log of a refused store holds may be all that is left of it.
TEST_F(StoreHostile, ARefusedOneKeepsItsLog) {
  const std::string copy = folder_ + "/copy.db";
  opened();
  sqlite3* writer = nullptr;
  ASSERT_EQ(sqlite3_open(path_.c_str(), &writer), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(writer, "CREATE TABLE planted(x)", nullptr, nullptr, nullptr), SQLITE_OK);
  std::filesystem::copy(path_, copy);
  std::filesystem::copy(path_ + "-wal", copy + "-wal");
  sqlite3_close(writer);
  path_ = copy;
  const std::string log = content_of(copy + "-wal");
  expect_refused(StoreError::kForeign);
  EXPECT_TRUE(content_of(copy + "-wal") == log);
}

// The memory that a process takes for opening the store, in KiB.
long memory_to_open(const std::string& path, StoreError expected) {
  int ends[2] = {};
  EXPECT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    rusage before = {};
    rusage after = {};
    (void)getrusage(RUSAGE_SELF, &before);
    StoreResult result;
    const bool is_refused = Store::open(path, {}, &result) == nullptr && result.error == expected;
    (void)getrusage(RUSAGE_SELF, &after);
    const long taken = is_refused ? after.ru_maxrss - before.ru_maxrss : -1;
    _exit(write(ends[1], &taken, sizeof taken) == sizeof taken ? 0 : 1);
  }
  long taken = -1;
  EXPECT_EQ(read(ends[0], &taken, sizeof taken), static_cast<ssize_t>(sizeof taken));
  (void)close(ends[0]);
  (void)close(ends[1]);
  (void)waitpid(child, nullptr, 0);
  return taken;
}

TEST_F(StoreHostile, AGiganticRowIsRefusedWithoutMemoryForIt) {
  opened();
  run_sql(path_,
          "PRAGMA synchronous = OFF; PRAGMA journal_mode = MEMORY;"
          "INSERT INTO object(path, rows) VALUES('InternetGatewayDevice.A.', zeroblob(300000000))");
  const long taken = memory_to_open(path_, StoreError::kCorrupt);
  EXPECT_GE(taken, 0);
  EXPECT_LT(taken, 100000);
}

class EndlessStore : public StoreHostile, public testing::WithParamInterface<const char*> {};

TEST_P(EndlessStore, IsDamaged) {
  opened();
  Pages pages(path_);
  pages.make_endless(pages.root_of(GetParam()));
  pages.write_back();
  expect_refused(StoreError::kCorrupt);
}

INSTANTIATE_TEST_SUITE_P(Read, EndlessStore, testing::Values("change", "sqlite_autoindex_object_1"),
                         [](const auto& name) { return std::string(name.param); });

TEST_F(StoreHostile, AnEndlessSchemaIsDamage) {
  opened();
  Pages pages(path_);
  pages.make_schema_endless();
  pages.write_back();
  expect_refused(StoreError::kCorrupt);
}

TEST_F(StoreHostile, EndlessCheckpointsAreDamage) {
  ASSERT_TRUE(opened()->make_checkpoint("kept").ok());
  Pages pages(path_);
  pages.make_endless(pages.root_of("sqlite_autoindex_checkpoint_1"));
  pages.write_back();
  StoreResult result;
  EXPECT_TRUE(opened()->checkpoints(&result).empty());
  EXPECT_EQ(result.error, StoreError::kCorrupt);
}

TEST_F(StoreHostile, ObjectsThatAreNotInTheirOrderAreDamage) {
  opened();
  Pages pages(path_);
  pages.exchange_first_cells(pages.root_of("sqlite_autoindex_object_1"));
  pages.write_back();
  expect_refused(StoreError::kCorrupt);
}

// A small file could otherwise fill the memory many times over.
TEST_F(StoreHostile, ObjectsThatShareTheirBytesAreDamage) {
  constexpr std::size_t kLength = 999000;  // the rest of three rows of it fits into one page
  const auto planted = [](const std::string& path) {
    const host::RowSet rows = {{path, {"0", "object"}},
                               {path + "X", {std::string(kLength, 'x'), "rw string"}}};
    return "INSERT INTO object(path, rows) VALUES('" + path + "', x'" +
           host::hexadecimal(host::encoded(rows)) + "')";
  };
  {
    auto store = opened();
    store->tree() = host::Tree();
    ASSERT_TRUE(store->commit().ok());
  }
  run_sql(path_, "DELETE FROM object");
  for (const char* name : {"A.", "B.", "C."}) run_sql(path_, planted(kRoot + name).c_str());
  EXPECT_EQ(opened()->tree().value(kRoot + "C.X").size(), kLength);
  Pages pages(path_);
  pages.share_long_rows(pages.root_of("object"));
  pages.write_back();
  expect_refused(StoreError::kCorrupt);
}

TEST_F(StoreHostile, MoreChangesThanAreKeptAreDamage) {
  opened();
  run_sql(path_,
          "WITH RECURSIVE n(x) AS (SELECT 100 UNION ALL SELECT x + 1 FROM n WHERE x < 130)"
          " INSERT INTO change SELECT x, 1, 1, 'x', x'' FROM n");
  expect_refused(StoreError::kCorrupt);
}

}  // namespace
