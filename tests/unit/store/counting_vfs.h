/// Counts what SQLite writes and syncs.
#ifndef TESTS_STORE_COUNTING_VFS_H
#define TESTS_STORE_COUNTING_VFS_H

#include <cstdint>

namespace counting_vfs {

/// Name of the VFS: the usual one, which also counts.
inline constexpr const char* kName = "counting";

struct Counts {
  int syncs = 0;            ///< of all files
  std::int64_t bytes = 0;   ///< written to all files; the log's index is memory and not among them
  int database_writes = 0;  ///< of pages to the database itself, when the log is written back
};

/// Makes the VFS known to SQLite; again is harmless.
void install();

/// What happened since the last call.
Counts taken();

}  // namespace counting_vfs

#endif  // TESTS_STORE_COUNTING_VFS_H
