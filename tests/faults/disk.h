// A disk in memory that can lose power, fill up, fail, and lie about what it has synced.
#ifndef TESTS_PROOF_DISK_H
#define TESTS_PROOF_DISK_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace proof {

enum Kind : unsigned {
  kRead = 1,
  kWrite = 2,  // of data, and what makes a file longer or shorter
  kSync = 4,
  kName = 8,  // a file is made or deleted
  kChanges = kWrite | kSync | kName,
  kEverything = kRead | kChanges,
};

// The nth operation of the counted kinds fails, and with `lasts` all of the failing kinds after it.
struct Fault {
  unsigned counted = 0;
  unsigned failing = 0;
  int nth = 0;
  int code = 0;  // of SQLite
  int system_code = 0;
  bool lasts = false;
};

// What happens to syncs.
enum class Honesty {
  kHonest,
  kSyncsNothing,  // says done and does not
  kSyncsNoNames,  // data is synced, what became of names is not
};

// Memory and locks that the users of one file share.
struct Sharing {
  static constexpr int kLocks = 8;
  std::map<const void*, int> levels;  // by open file: SQLite's lock levels, none is not there
  std::vector<std::unique_ptr<char[]>> regions;
  int mappings = 0;
  int shared_locks[kLocks] = {};
  const void* exclusive_locks[kLocks] = {};
};

struct File {
  // A piece of data at an offset, or a new length.
  struct Change {
    bool is_length;
    std::size_t offset;
    std::string data;
  };
  std::string content;           // as its users see it
  std::string synced;            // what a power cut leaves for sure
  std::vector<Change> unsynced;  // what may be on the disk or not
  Sharing sharing;
};

class Disk {
 public:
  using FileRef = std::shared_ptr<File>;

  void set_honesty(Honesty honesty) { honesty_ = honesty; }

  // Arms a fault. One without a kind counts nothing and fails nothing.
  void arm(const Fault& fault);
  // The power goes at the nth change from now: from then on everything fails.
  void cut_power_at(int nth);
  bool is_struck() const { return struck_; }  // the fault has come
  int counted() const { return counted_; }    // operations since a fault was armed
  int system_code() const { return system_code_; }

  FileRef find(const std::string& name) const;
  // Each returns a result code of SQLite.
  int make(const std::string& name, FileRef& file);
  int remove(const std::string& name, bool sync_names);
  int read(const FileRef& file, std::size_t offset, char* data, std::size_t size);
  int write(const FileRef& file, std::size_t offset, std::string_view data);
  int set_length(const FileRef& file, std::size_t length);
  int sync(const FileRef& file);
  int sync_names();
  int grow_shared_memory() { return admit(kWrite); }

  // The disk as a power cut may leave it: of what was not synced some reached it, in pieces of a
  // sector. Which, its seed decides alone.
  std::unique_ptr<Disk> after_power_cut(std::uint32_t seed) const;

  // The disk as its users see it, but nobody has anything open on it.
  std::unique_ptr<Disk> copy() const;
  std::map<std::string, std::string> contents() const;

 private:
  using Names = std::map<std::string, FileRef>;
  struct NameChange {
    std::string name;
    FileRef file;  // null: the name went
  };

  int admit(Kind kind);
  void put_unsynced(File& file, File::Change change);

  Names names_;
  Names synced_names_;
  std::vector<NameChange> unsynced_names_;
  Honesty honesty_ = Honesty::kHonest;
  Fault fault_;
  int counted_ = 0;
  bool struck_ = false;
  bool losing_power_ = false;
  int system_code_ = 0;
};

}  // namespace proof

#endif  // TESTS_PROOF_DISK_H
