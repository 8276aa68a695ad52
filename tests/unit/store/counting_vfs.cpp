#include "counting_vfs.h"

#include <sqlite3.h>

#include <utility>

namespace counting_vfs {
namespace {

Counts counts;

/// The methods of the files of the usual VFS, with those that count in place of its own. Files of a
/// database and others may have different ones.
struct Methods {
  sqlite3_io_methods counting;
  const sqlite3_io_methods* usual;
};

sqlite3_vfs* usual_vfs() {
  static sqlite3_vfs* const usual = sqlite3_vfs_find(nullptr);
  return usual;
}

template <bool kIsDatabase>
Methods& methods() {
  static Methods kept = {};
  return kept;
}

template <bool kIsDatabase>
int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  counts.bytes += count;
  if (kIsDatabase) ++counts.database_writes;
  return methods<kIsDatabase>().usual->xWrite(file, bytes, count, offset);
}

template <bool kIsDatabase>
int sync(sqlite3_file* file, int flags) {
  ++counts.syncs;
  return methods<kIsDatabase>().usual->xSync(file, flags);
}

template <bool kIsDatabase>
void count_in(sqlite3_file* file) {
  Methods& kept = methods<kIsDatabase>();
  kept.usual = file->pMethods;
  kept.counting = *file->pMethods;
  kept.counting.xWrite = write<kIsDatabase>;
  kept.counting.xSync = sync<kIsDatabase>;
  file->pMethods = &kept.counting;
}

/// The usual VFS opens the file as its own; only its table of methods is exchanged.
int open(sqlite3_vfs* /*vfs*/, const char* name, sqlite3_file* file, int flags, int* out_flags) {
  const int result = usual_vfs()->xOpen(usual_vfs(), name, file, flags, out_flags);
  if (file->pMethods == nullptr) return result;
  if ((flags & SQLITE_OPEN_MAIN_DB) != 0) {
    count_in<true>(file);
  } else {
    count_in<false>(file);
  }
  return result;
}

}  // namespace

void install() {
  static sqlite3_vfs vfs = [] {
    sqlite3_vfs made = *usual_vfs();
    made.zName = kName;
    made.pNext = nullptr;
    made.xOpen = open;
    return made;
  }();
  (void)sqlite3_vfs_register(&vfs, 0);
}

Counts taken() { return std::exchange(counts, {}); }

}  // namespace counting_vfs
