/// Who can use the files of a store: its owner alone.
#ifndef PLATFORM_HOST_STORE_ACCESS_H
#define PLATFORM_HOST_STORE_ACCESS_H

#include <sys/stat.h>
#include <sys/types.h>

#include <string>

namespace host {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

/// Throws StoreFailure with kNotPrivate unless the store's file, when it is there, is this user's
/// own, and it and its log belong to one owner alone. An administrator can use any owner's store.
void require_private(const std::string& path);

/// The same for one file of a store.
void require_private(const std::string& file, const struct stat& status, uid_t owner);

}  // namespace host

#endif  // PLATFORM_HOST_STORE_ACCESS_H
