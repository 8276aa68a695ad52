#include "disk_vfs.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <string>

namespace proof {
namespace {

constexpr int kSectorSize = 4096;  // what SQLite's own VFS says of every disk
constexpr int kLongestName = 512;

Disk* current_disk = nullptr;

// SQLite keeps it in memory of its own.
struct OpenFile {
  sqlite3_file base;
  Disk* disk;
  Disk::FileRef file;
  bool syncs_names;  // at its next sync
  bool is_mapped;
};

OpenFile& of(sqlite3_file* file) { return *reinterpret_cast<OpenFile*>(file); }

int level_of(const Sharing& sharing, const void* holder) {
  const auto found = sharing.levels.find(holder);
  return found != sharing.levels.end() ? found->second : SQLITE_LOCK_NONE;
}

int highest_of_others(const Sharing& sharing, const void* holder) {
  int highest = SQLITE_LOCK_NONE;
  for (const auto& [other, level] : sharing.levels) {
    if (other != holder) highest = std::max(highest, level);
  }
  return highest;
}

int x_read(sqlite3_file* base, void* data, int size, sqlite3_int64 offset) {
  return of(base).disk->read(of(base).file, static_cast<std::size_t>(offset),
                             static_cast<char*>(data), static_cast<std::size_t>(size));
}

int x_write(sqlite3_file* base, const void* data, int size, sqlite3_int64 offset) {
  return of(base).disk->write(of(base).file, static_cast<std::size_t>(offset),
                              {static_cast<const char*>(data), static_cast<std::size_t>(size)});
}

int x_truncate(sqlite3_file* base, sqlite3_int64 size) {
  return of(base).disk->set_length(of(base).file, static_cast<std::size_t>(size));
}

int x_sync(sqlite3_file* base, int /*flags*/) {
  OpenFile& open = of(base);
  const int code = open.disk->sync(open.file);
  if (code != SQLITE_OK || !open.syncs_names) return code;
  open.syncs_names = false;
  return open.disk->sync_names();
}

int x_file_size(sqlite3_file* base, sqlite3_int64* size) {
  *size = static_cast<sqlite3_int64>(of(base).file->content.size());
  return SQLITE_OK;
}

int x_lock(sqlite3_file* base, int level) {
  Sharing& sharing = of(base).file->sharing;
  if (level_of(sharing, base) >= level) return SQLITE_OK;
  const int others = highest_of_others(sharing, base);
  const bool allowed = level == SQLITE_LOCK_SHARED     ? others < SQLITE_LOCK_PENDING
                       : level == SQLITE_LOCK_RESERVED ? others < SQLITE_LOCK_RESERVED
                                                       : others == SQLITE_LOCK_NONE;
  if (allowed) sharing.levels[base] = level;
  return allowed ? SQLITE_OK : SQLITE_BUSY;
}

int x_unlock(sqlite3_file* base, int level) {
  Sharing& sharing = of(base).file->sharing;
  if (level == SQLITE_LOCK_NONE) {
    sharing.levels.erase(base);
  } else if (level_of(sharing, base) > level) {
    sharing.levels[base] = level;
  }
  return SQLITE_OK;
}

int x_check_reserved_lock(sqlite3_file* base, int* reserved) {
  const Sharing& sharing = of(base).file->sharing;
  *reserved =
      std::max(highest_of_others(sharing, base), level_of(sharing, base)) >= SQLITE_LOCK_RESERVED
          ? 1
          : 0;
  return SQLITE_OK;
}

int x_file_control(sqlite3_file* /*base*/, int /*operation*/, void* /*argument*/) {
  return SQLITE_NOTFOUND;
}

int x_sector_size(sqlite3_file* /*base*/) { return kSectorSize; }

int x_device_characteristics(sqlite3_file* /*base*/) { return SQLITE_IOCAP_POWERSAFE_OVERWRITE; }

int x_shm_map(sqlite3_file* base, int region, int size, int extend, void volatile** memory) {
  OpenFile& open = of(base);
  Sharing& sharing = open.file->sharing;
  if (!open.is_mapped) ++sharing.mappings;
  open.is_mapped = true;
  *memory = nullptr;
  const auto wanted = static_cast<std::size_t>(region);
  while (extend != 0 && sharing.regions.size() <= wanted) {
    if (open.disk->grow_shared_memory() != SQLITE_OK) return SQLITE_IOERR_SHMSIZE;
    sharing.regions.push_back(std::make_unique<char[]>(static_cast<std::size_t>(size)));
  }
  if (wanted < sharing.regions.size()) *memory = sharing.regions[wanted].get();
  return SQLITE_OK;
}

bool takes_shm_lock(Sharing& sharing, const void* holder, int lock, bool is_shared) {
  const void* const exclusive = sharing.exclusive_locks[lock];
  if (exclusive != nullptr && exclusive != holder) return false;
  return is_shared || sharing.shared_locks[lock] == 0;
}

int x_shm_lock(sqlite3_file* base, int first, int count, int flags) {
  Sharing& sharing = of(base).file->sharing;
  const bool is_shared = (flags & SQLITE_SHM_SHARED) != 0;
  const bool is_taking = (flags & SQLITE_SHM_LOCK) != 0;
  for (int lock = first; is_taking && lock < first + count; ++lock) {
    if (!takes_shm_lock(sharing, base, lock, is_shared)) return SQLITE_BUSY;
  }
  for (int lock = first; lock < first + count; ++lock) {
    if (is_shared) {
      sharing.shared_locks[lock] += is_taking ? 1 : -1;
    } else {
      sharing.exclusive_locks[lock] = is_taking ? base : nullptr;
    }
  }
  return SQLITE_OK;
}

void x_shm_barrier(sqlite3_file* /*base*/) {}

int x_shm_unmap(sqlite3_file* base, int /*delete_it*/) {
  OpenFile& open = of(base);
  if (!open.is_mapped) return SQLITE_OK;
  open.is_mapped = false;
  Sharing& sharing = open.file->sharing;
  if (--sharing.mappings == 0) sharing.regions.clear();
  return SQLITE_OK;
}

int x_close(sqlite3_file* base) {
  (void)x_shm_unmap(base, 0);
  OpenFile& open = of(base);
  open.file->sharing.levels.erase(base);
  open.~OpenFile();
  return SQLITE_OK;
}

const sqlite3_io_methods kMethods = {2,
                                     x_close,
                                     x_read,
                                     x_write,
                                     x_truncate,
                                     x_sync,
                                     x_file_size,
                                     x_lock,
                                     x_unlock,
                                     x_check_reserved_lock,
                                     x_file_control,
                                     x_sector_size,
                                     x_device_characteristics,
                                     x_shm_map,
                                     x_shm_lock,
                                     x_shm_barrier,
                                     x_shm_unmap,
                                     nullptr,
                                     nullptr};

int x_open(sqlite3_vfs* /*vfs*/, const char* name, sqlite3_file* base, int flags, int* out_flags) {
  base->pMethods = nullptr;
  Disk& disk = *current_disk;
  const std::string file_name = name != nullptr ? name : "";
  Disk::FileRef file = file_name.empty() ? std::make_shared<File>() : disk.find(file_name);
  const bool is_new = file == nullptr;
  if (is_new && (flags & SQLITE_OPEN_CREATE) == 0) return SQLITE_CANTOPEN;
  if (is_new && disk.make(file_name, file) != SQLITE_OK) return SQLITE_CANTOPEN;
  const bool is_journal = (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL)) != 0;
  const bool syncs_names = is_journal && (flags & SQLITE_OPEN_CREATE) != 0;
  new (base) OpenFile{{&kMethods}, &disk, std::move(file), syncs_names, false};
  if (out_flags != nullptr) *out_flags = flags;
  return SQLITE_OK;
}

int x_delete(sqlite3_vfs* /*vfs*/, const char* name, int sync_names) {
  return current_disk->remove(name, sync_names != 0);
}

// An empty file counts as none, as with SQLite's own VFS.
int x_access(sqlite3_vfs* /*vfs*/, const char* name, int flags, int* result) {
  const Disk::FileRef file = current_disk->find(name);
  const bool is_there =
      file != nullptr && (flags != SQLITE_ACCESS_EXISTS || !file->content.empty());
  *result = is_there ? 1 : 0;
  return SQLITE_OK;
}

int x_full_pathname(sqlite3_vfs* /*vfs*/, const char* name, int size, char* full) {
  (void)sqlite3_snprintf(size, full, "%s", name);
  return SQLITE_OK;
}

int x_randomness(sqlite3_vfs* /*vfs*/, int size, char* bytes) {
  std::memset(bytes, 0, static_cast<std::size_t>(size));
  return size;
}

int x_sleep(sqlite3_vfs* /*vfs*/, int microseconds) { return microseconds; }

int x_current_time_int64(sqlite3_vfs* /*vfs*/, sqlite3_int64* milliseconds) {
  *milliseconds = 0;
  return SQLITE_OK;
}

int x_get_last_error(sqlite3_vfs* /*vfs*/, int /*size*/, char* /*text*/) {
  return current_disk->system_code();
}

sqlite3_vfs made_vfs() {
  sqlite3_vfs vfs = {};
  vfs.iVersion = 2;
  vfs.szOsFile = sizeof(OpenFile);
  vfs.mxPathname = kLongestName;
  vfs.zName = kDiskVfs;
  vfs.xOpen = x_open;
  vfs.xDelete = x_delete;
  vfs.xAccess = x_access;
  vfs.xFullPathname = x_full_pathname;
  vfs.xRandomness = x_randomness;
  vfs.xSleep = x_sleep;
  vfs.xGetLastError = x_get_last_error;
  vfs.xCurrentTimeInt64 = x_current_time_int64;
  return vfs;
}

}  // namespace

void use_disk(Disk& disk) {
  static sqlite3_vfs vfs = made_vfs();
  static const int registered = sqlite3_vfs_register(&vfs, 0);
  (void)registered;
  current_disk = &disk;
}

}  // namespace proof
