// Opening a store: what is made, what is refused, what is never touched.
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "dump/dump_format.h"
#include "rows/row_codec.h"
#include "store/store_error.h"
#include "store_bench.h"

namespace {

using namespace store_tests;
using host::RowChanges;
using host::RowSet;
using host::Tree;

using StoreOpen = StoreBench;

/// A statement that gives an object these bytes.
std::string object_put(const std::string& path, const std::string& bytes) {
  return "INSERT OR REPLACE INTO object(path, rows) VALUES('" + path + "', x'" +
         host::hexadecimal(bytes) + "')";
}

TEST_F(StoreOpen, MakesAFileInFactoryStateForItsOwnerAlone) {
  auto store = opened();
  EXPECT_EQ(lines_of(store->tree()), lines_of(Tree::factory()));
  EXPECT_EQ(store->generation(), 1U);
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    struct stat status = {};
    ASSERT_EQ(stat(entry.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U) << entry.path();
  }
}

TEST_F(StoreOpen, FindsWhatWasCommitted) {
  {
    auto store = opened();
    Tree& tree = store->tree();
    tree.delete_object(added(tree, kBridges));
    tree.set_value(kUrl, std::string("a\0b\xff", 4));
    EXPECT_TRUE(store->commit().ok());
  }
  auto store = opened();
  EXPECT_EQ(store->tree().value(kUrl), std::string("a\0b\xff", 4));
  EXPECT_EQ(store->generation(), 2U);
  EXPECT_EQ(added(store->tree(), kBridges), kBridges + "3.");
}

TEST_F(StoreOpen, FindsExtensionsWithTheirTypes) {
  const char* dump = TEST_DATA_DIR "/gateway.csv";
  Tree expected;
  {
    auto store = opened();
    ASSERT_TRUE(host::import_csv_file(store->tree(), dump).ok);
    ASSERT_TRUE(store->commit().ok());
    ASSERT_TRUE(host::import_csv_file(expected, dump).ok);
  }
  auto store = opened();
  EXPECT_EQ(lines_of(store->tree()), lines_of(expected));
  std::size_t extensions = 0;
  for (const auto& parameter : expected.parameters()) {
    const auto wanted = expected.describe(parameter.name);
    const auto found = store->tree().describe(parameter.name);
    ASSERT_TRUE(found) << parameter.name;
    EXPECT_EQ(found->type, wanted->type) << parameter.name;
    EXPECT_EQ(found->writable, wanted->writable) << parameter.name;
    EXPECT_EQ(found->extension, wanted->extension) << parameter.name;
    if (wanted->extension) ++extensions;
  }
  EXPECT_GT(extensions, 0U);
}

TEST_F(StoreOpen, InMemoryLeavesNoFile) {
  StoreResult result;
  auto store = Store::open(":memory:", {}, &result);
  ASSERT_NE(store, nullptr) << result.text;
  store->tree().set_value(kUrl, "x");
  EXPECT_TRUE(store->commit().ok());
  EXPECT_FALSE(std::filesystem::exists(":memory:"));
  EXPECT_FALSE(std::filesystem::exists(":memory:-shared"));
}

TEST_F(StoreOpen, RefusesAPlaceThatIsNoFile) {
  path_ = folder_;
  EXPECT_EQ(error_on_open(), StoreError::kNotOpened);
  EXPECT_FALSE(std::filesystem::exists(path_ + "-shared"));
  path_ = folder_ + "/no/folder/gateway.db";
  EXPECT_EQ(error_on_open(), StoreError::kNotOpened);
  path_ = "";
  EXPECT_EQ(error_on_open(), StoreError::kNotOpened);
}

TEST_F(StoreOpen, SaysWhichFileFailedAndWhy) {
  ASSERT_TRUE(std::filesystem::create_directory(path_ + "-shared"));
  StoreResult result;
  EXPECT_EQ(Store::open(path_, {}, &result), nullptr);
  EXPECT_EQ(result.error, StoreError::kNotOpened);
  const std::string shared = std::filesystem::canonical(path_ + "-shared");
  EXPECT_EQ(result.text, path_ + ": " + shared + ": " + std::strerror(EISDIR));
}

TEST_F(StoreOpen, RefusesASizeBelowThatOfAnEmptyStore) {
  StoreOptions options;
  options.size_limit_bytes = 1;
  EXPECT_EQ(error_on_open(options), StoreError::kFull);
}

TEST_F(StoreOpen, LeavesWhatIsNoDatabaseAsItIs) {
  const std::string letter(5000, 'x');
  write_file(path_, letter);
  EXPECT_EQ(error_on_open(), StoreError::kCorrupt);
  EXPECT_EQ(content_of(path_), letter);
}

TEST_F(StoreOpen, LeavesTheDatabaseOfSomethingElseAsItIs) {
  run_sql(path_, "CREATE TABLE recipe(name); INSERT INTO recipe VALUES('soup')");
  const std::string before = content_of(path_);
  StoreOptions options;
  EXPECT_EQ(error_on_open(options), StoreError::kForeign);
  options.keep_corrupt_aside = true;
  EXPECT_EQ(error_on_open(options), StoreError::kForeign);
  EXPECT_EQ(content_of(path_), before);
}

TEST_F(StoreOpen, LeavesAnOlderOrNewerFormatAsItIs) {
  for (const char* format : {"PRAGMA user_version = 1", "PRAGMA user_version = 3"}) {
    std::filesystem::remove(path_);
    opened();
    run_sql(path_, format);
    const std::string before = content_of(path_);
    StoreOptions options;
    options.keep_corrupt_aside = true;
    EXPECT_EQ(error_on_open(options), StoreError::kUnknownFormat) << format;
    EXPECT_EQ(content_of(path_), before);
  }
}

TEST_F(StoreOpen, LeavesDamagedContentInWhateverModeAsItIs) {
  opened();
  run_sql(path_, "PRAGMA journal_mode = DELETE; DELETE FROM change");
  const std::string before = content_of(path_);
  EXPECT_EQ(error_on_open(), StoreError::kCorrupt);
  EXPECT_EQ(content_of(path_), before);
}

TEST_F(StoreOpen, KeepsALogForACopyWithoutOne) {
  opened();
  run_sql(path_, "PRAGMA journal_mode = DELETE");
  auto store = opened();
  store->tree().set_value(kUrl, "x");
  EXPECT_TRUE(store->commit().ok());
  EXPECT_TRUE(std::filesystem::exists(path_ + "-wal"));
}

TEST_F(StoreOpen, RefusesDamagedContent) {
  const std::string device = "InternetGatewayDevice.DeviceInfo.";
  const host::Row row = {"x", ""};
  const auto bringing = [&row](const std::string& name) {
    return host::encoded(RowSet{{name, row}});
  };
  const std::string sound = bringing(device + "Manufacturer");
  const std::string damages[] = {
      "DELETE FROM change",
      object_put("Nowhere.At.", bringing("Nowhere.At.All")),
      object_put("InternetGatewayDevice.WANDevice.01.",
                 host::encoded(RowSet{{"InternetGatewayDevice.WANDevice.01.", {"1", "object"}}})),
      object_put(device, sound.substr(0, sound.size() - 1)),
      object_put(device, sound + "x"),
      object_put(device, bringing(kUrl)),  // of another object
      object_put(device, bringing(device)),
      object_put(device, bringing(device + "X.Y")),
      object_put(device, host::encoded(RowChanges{{device + "Manufacturer", row, row}})),
      object_put(device, host::encoded(RowChanges{{device + "Manufacturer", row, std::nullopt}})),
  };
  for (const std::string& damage : damages) {
    std::filesystem::remove(path_);
    opened();
    run_sql(path_, damage.c_str());
    EXPECT_EQ(error_on_open(), StoreError::kCorrupt) << damage;
  }
}

TEST_F(StoreOpen, TakesAnEntryOfASoundObject) {
  const std::string name = "InternetGatewayDevice.DeviceInfo.Manufacturer";
  opened();
  const std::string bytes = host::encoded(RowSet{{name, {"x", ""}}});
  run_sql(path_, object_put("InternetGatewayDevice.DeviceInfo.", bytes).c_str());
  EXPECT_EQ(opened()->tree().value(name), "x");
}

TEST_F(StoreOpen, RefusesAFileThatLostEverythingButItsLog) {
  write_file(path_ + "-wal", "log");
  write_file(path_, "");
  EXPECT_EQ(error_on_open(), StoreError::kCorrupt);
  EXPECT_EQ(content_of(path_ + "-wal"), "log");
}

// SQLite takes a file of one byte for a new one.
TEST_F(StoreOpen, RefusesAFileOfOneByte) {
  write_file(path_, "x");
  EXPECT_EQ(error_on_open(), StoreError::kCorrupt);
  EXPECT_EQ(content_of(path_), "x");
}

// While a change waits, the first write looks at the file, and here it reads all of it anew.
TEST_F(StoreOpen, WritesToWhatItReadAnew) {
  {
    auto store = opened();
    ASSERT_TRUE(store->begin_trial().ok());
    store->tree().set_value(kUrl, "http://waits");
    ASSERT_TRUE(store->accept_pending(60, "waits").ok());
  }
  run_sql(path_, "UPDATE change SET place = -place");
  auto store = opened();
  EXPECT_EQ(store->tree().set_value(kUrl, "http://new"), 0);
  EXPECT_EQ(store->tree().value(kUrl), "http://new");
}

TEST_F(StoreOpen, KeepsADamagedFileAsideOnlyWhenAsked) {
  write_file(path_, "damaged");
  write_file(path_ + ".corrupt-1", "an older one");
  EXPECT_EQ(error_on_open(), StoreError::kCorrupt);
  options_.keep_corrupt_aside = true;
  auto store = opened();
  EXPECT_EQ(lines_of(store->tree()), lines_of(Tree::factory()));
  EXPECT_EQ(content_of(path_ + ".corrupt-1"), "an older one");
  EXPECT_EQ(content_of(path_ + ".corrupt-2"), "damaged");
}

TEST_F(StoreOpen, GoesOnWithADamagedFileThatIsOnlyHalfAside) {
  write_file(path_ + ".corrupt-1", "damaged");
  write_file(path_ + "-wal", "its log");
  EXPECT_EQ(error_on_open(), StoreError::kCorrupt);
  options_.keep_corrupt_aside = true;
  auto store = opened();
  EXPECT_EQ(lines_of(store->tree()), lines_of(Tree::factory()));
  EXPECT_EQ(content_of(path_ + ".corrupt-1"), "damaged");
  EXPECT_EQ(content_of(path_ + ".corrupt-2-wal"), "its log");
}

TEST(StoreErrors, HaveTheirNames) {
  const char* const names[] = {
      "kNone",       "kNotOpened",   "kNotPrivate", "kReadOnly",  "kFull",          "kTooLarge",
      "kIo",         "kUncertain",   "kCorrupt",    "kForeign",   "kUnknownFormat", "kLocked",
      "kMovedOn",    "kReplaced",    "kBatchOpen",  "kTrialOpen", "kNoTrial",       "kPending",
      "kNotPending", "kBadDeadline", "kBadName",    "kNameTaken", "kNoCheckpoint",  ""};
  int error = 0;
  for (const char* const name : names) {
    EXPECT_STREQ(host::name_of(static_cast<StoreError>(error++)), name);
  }
  EXPECT_STREQ(host::name_of(static_cast<StoreError>(-1)), "");
}

TEST(StoreErrors, TellAFullOrReadOnlyDiskFromOtherFailuresOfTheSystem) {
  EXPECT_EQ(host::error_of_system(ENOSPC), StoreError::kFull);
  EXPECT_EQ(host::error_of_system(EDQUOT), StoreError::kFull);
  EXPECT_EQ(host::error_of_system(EROFS), StoreError::kReadOnly);
  EXPECT_EQ(host::error_of_system(EACCES), StoreError::kNotOpened);
}

}  // namespace
