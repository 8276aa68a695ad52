// Work on files: a durable commit of the store beside SQLite used directly, and opening a store
// beside loading the map.
#include <cstdlib>
#include <filesystem>
#include <unordered_map>

#include "benchmarks.h"
#include "counting_vfs.h"
#include "host_store.h"
#include "sqlite_file.h"

namespace bench {
namespace {

constexpr std::size_t kChanges = 60;

/// A folder that goes with the process.
class Folder {
 public:
  Folder() : path_((std::filesystem::temp_directory_path() / "tree_bench.XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) std::abort();
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }
  std::string new_file() { return path_ + "/" + std::to_string(++files_); }

 private:
  std::string path_;
  int files_ = 0;
};

std::string new_file() {
  static Folder folder;
  return folder.new_file();
}

/// The store of a workload.
class StoreOnDisk {
 public:
  explicit StoreOnDisk(const Workload& work) : path_(new_file()), store_(opened()) {
    fill(store_->tree(), work);
    end();
  }

  void close() { store_.reset(); }
  void reopen() { store_ = opened(); }
  void load() const { benchmark::DoNotOptimize(opened()); }

  void begin() {}
  void change(const std::string& name, const std::string& value) {
    store_->tree().set_value(name, value);
  }
  void end() {
    if (!store_->commit().ok()) std::abort();
  }

 private:
  std::unique_ptr<host::Store> opened() const {
    host::StoreOptions options;
    options.vfs = counting_vfs::kName;
    auto store = host::Store::open(path_, options, nullptr);
    if (store == nullptr) std::abort();
    return store;
  }

  std::string path_;
  std::unique_ptr<host::Store> store_;
};

/// The same names and values in a table.
class TableOnDisk {
 public:
  explicit TableOnDisk(const Workload& work)
      : path_(new_file()), table_(std::make_unique<SqliteFile>(path_, counting_vfs::kName)) {
    begin();
    for (const Entry& entry : work.entries) table_->insert(entry.name, entry.first);
    end();
  }

  void close() { table_.reset(); }
  void reopen() { table_ = std::make_unique<SqliteFile>(path_, counting_vfs::kName); }
  /// Into a map, which grows as the rows come, for nobody knows their number beforehand.
  void load() const {
    std::unordered_map<std::string, std::string> map;
    SqliteFile(path_, counting_vfs::kName).for_each([&map](std::string name, std::string value) {
      map.emplace(std::move(name), std::move(value));
    });
    benchmark::DoNotOptimize(map);
  }

  void begin() { table_->begin(); }
  void change(const std::string& name, const std::string& value) { table_->update(name, value); }
  void keep(const std::string& place, const std::string& change) { table_->keep(place, change); }
  void end() { table_->commit(); }

 private:
  std::string path_;
  std::unique_ptr<SqliteFile> table_;
};

/// The same with what the store writes beside it in one transaction: what undoes the change, kept
/// for the last twenty.
class UndoableTableOnDisk {
 public:
  explicit UndoableTableOnDisk(const Workload& work) : table_(work) {}

  void close() { table_.close(); }
  void reopen() { table_.reopen(); }

  void begin() {
    undo_.clear();
    table_.begin();
  }
  void change(const std::string& name, const std::string& value) {
    undo_.append(name, name.rfind('.')).append("=").append(value).append("\n");
    table_.change(name, value);
  }
  void end() {
    constexpr int kKept = 20;
    table_.keep(std::to_string(++changes_ % kKept), undo_);
    table_.end();
  }

 private:
  TableOnDisk table_;
  std::string undo_;
  int changes_ = 0;
};

/// The first parameters that can be written of the connection in the middle of a listing.
std::vector<Entry> changes_of(const Workload& work) {
  const std::size_t each = work.entries.size() / static_cast<std::size_t>(work.connections);
  const std::size_t first = each * static_cast<std::size_t>(work.connections / 2);
  std::vector<Entry> changes;
  for (std::size_t at = first; at < first + each && changes.size() < kChanges; ++at) {
    const Entry& entry = work.entries[at];
    if (entry.first != entry.second) changes.push_back(entry);
  }
  if (changes.size() != kChanges) std::abort();
  return changes;
}

/// A subject with its changes; made at first use and kept.
template <typename OnDisk>
struct Changing {
  explicit Changing(const Workload& work) : subject(work), changes(changes_of(work)) {
    subject.close();  // so that the log begins without the workload
    subject.reopen();
  }

  static Changing& of(const benchmark::State& state) {
    static std::map<long, std::unique_ptr<Changing>> made;
    auto& kept = made[state.range(0)];
    if (!kept) kept = std::make_unique<Changing>(workload(static_cast<int>(state.range(0))));
    return *kept;
  }

  OnDisk subject;
  std::vector<Entry> changes;
  bool second = true;  ///< which texts are not there now
};

template <typename OnDisk>
void commit(benchmark::State& state) {
  auto& [subject, changes, second] = Changing<OnDisk>::of(state);
  (void)counting_vfs::taken();
  for (auto iteration : state) {
    (void)iteration;
    subject.begin();
    for (const Entry& entry : changes) {
      subject.change(entry.name, second ? entry.second : entry.first);
    }
    subject.end();
    second = !second;
  }
  const counting_vfs::Counts counts = counting_vfs::taken();
  constexpr double kKibi = 1024;
  const auto commits = static_cast<double>(state.iterations());
  state.counters["syncs"] = counts.syncs / commits;
  state.counters["KiB"] = static_cast<double>(counts.bytes) / kKibi / commits;
}

/// With what it takes to let go of it again.
template <typename OnDisk>
void open(benchmark::State& state) {
  static std::map<long, std::unique_ptr<OnDisk>> closed;
  auto& subject = closed[state.range(0)];
  if (!subject) {
    subject = std::make_unique<OnDisk>(workload(static_cast<int>(state.range(0))));
    subject->close();
  }
  for (auto iteration : state) {
    (void)iteration;
    subject->load();
  }
}

template <typename OnDisk>
void register_commit(const std::string& name) {
  constexpr double kSeconds = 0.5;  // for some write-backs of the log
  counting_vfs::install();
  for (const int connections : kSizes) {
    benchmark::RegisterBenchmark(("commit/" + name).c_str(), commit<OnDisk>)
        ->Arg(connections)
        ->MinTime(kSeconds)
        ->UseRealTime();
  }
}

template <typename OnDisk>
void register_open(const std::string& name) {
  for (const int connections : kSizes) {
    benchmark::RegisterBenchmark(("open/" + name).c_str(), open<OnDisk>)->Arg(connections);
  }
}

}  // namespace

void register_durable() {
  register_commit<StoreOnDisk>("tree");
  register_commit<TableOnDisk>("table");
  register_commit<UndoableTableOnDisk>("undoable");
  register_open<StoreOnDisk>("tree");
  register_open<TableOnDisk>("map");
}

}  // namespace bench
