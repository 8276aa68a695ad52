// LMDB: a memory map, all in one write transaction, in which reads are direct.
#include <lmdb.h>
#include <stdlib.h>

#include <cstdlib>
#include <filesystem>

#include "benchmarks.h"

namespace bench {
namespace {

class LmdbSubject {
 public:
  explicit LmdbSubject(const Workload& work) : names_(work.enumerated) {
    std::string folder = (std::filesystem::temp_directory_path() / "tree_bench.XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) std::abort();
    folder_ = folder;
    check(mdb_env_create(&environment_));
    check(mdb_env_set_mapsize(environment_, std::size_t{256} << 20));
    check(mdb_env_open(environment_, folder.c_str(), MDB_WRITEMAP | MDB_NOSYNC | MDB_NOLOCK, 0600));
    check(mdb_txn_begin(environment_, nullptr, 0, &transaction_));
    check(mdb_dbi_open(transaction_, nullptr, 0, &database_));
    for (const Entry& entry : work.entries) put(entry.name, entry.first);
  }
  LmdbSubject(const LmdbSubject&) = delete;
  LmdbSubject& operator=(const LmdbSubject&) = delete;
  ~LmdbSubject() {
    mdb_txn_abort(transaction_);
    mdb_env_close(environment_);
    std::filesystem::remove_all(folder_);
  }

  static std::string key(const std::string& name) { return name; }
  std::string get(const std::string& key) {
    MDB_val name = value_of(key);
    MDB_val value = {};
    if (mdb_get(transaction_, database_, &name, &value) != 0) return {};
    return {static_cast<const char*>(value.mv_data), value.mv_size};
  }
  void set(const std::string& key, const std::string& value) { put(key, value); }
  std::vector<std::string> enumerate_values() {
    std::vector<std::string> values;
    values.reserve(names_.size());
    for (const std::string& name : names_) values.push_back(get(name));
    return values;
  }
  std::string add() {
    std::string path = kAddedTable + std::to_string(++last_number_) + ".";
    for (const Entry& entry : added_parameters()) put(path + entry.name, "");
    return path;
  }
  void remove(const std::string& path) {
    for (const Entry& entry : added_parameters()) {
      const std::string full_name = path + entry.name;
      MDB_val name = value_of(full_name);
      check(mdb_del(transaction_, database_, &name, nullptr));
    }
  }

 private:
  static void check(int result) {
    if (result != 0) std::abort();
  }
  // LMDB's values are not const, though it does not write to them.
  static MDB_val value_of(const std::string& text) {
    return {text.size(), const_cast<char*>(text.data())};
  }
  void put(const std::string& key, const std::string& text) {
    MDB_val name = value_of(key);
    MDB_val value = value_of(text);
    check(mdb_put(transaction_, database_, &name, &value, 0));
  }

  std::filesystem::path folder_;
  MDB_env* environment_ = nullptr;
  MDB_txn* transaction_ = nullptr;
  MDB_dbi database_ = 0;
  std::vector<std::string> names_;
  int last_number_ = 0;
};

}  // namespace

// Without a figure for memory: its pages are a file's, not the allocator's.
void register_lmdb() { register_subject<LmdbSubject>("lmdb"); }

}  // namespace bench
