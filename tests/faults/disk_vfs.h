// SQLite on a Disk.
#ifndef TESTS_PROOF_DISK_VFS_H
#define TESTS_PROOF_DISK_VFS_H

#include "disk.h"

namespace proof {

// The name for StoreOptions::vfs. It behaves as SQLite's own one for Linux does: a log or journal
// that was made is synced together with its name, and nothing else syncs names but a deletion that
// asks for it.
inline constexpr const char* kDiskVfs = "proof-disk";

// The disk that files are opened on from now; open ones stay where they are. Makes the VFS known at
// its first call.
void use_disk(Disk& disk);

}  // namespace proof

#endif  // TESTS_PROOF_DISK_VFS_H
