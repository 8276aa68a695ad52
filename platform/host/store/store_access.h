/// Who can use the files of a store: its owner alone, and some processes only for reading.
#ifndef PLATFORM_HOST_STORE_ACCESS_H
#define PLATFORM_HOST_STORE_ACCESS_H

#include <sys/stat.h>
#include <sys/types.h>

#include <optional>
#include <string>

namespace host {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

/// Throws StoreFailure with kNotPrivate unless the store's file, when it is there, is this user's
/// own, and it and its log belong to one owner alone. An administrator can use any owner's store.
void require_private(const std::string& path);

/// The same for one file of a store.
void require_private(const std::string& file, const struct stat& status, uid_t owner);

/// How a process uses a store's file.
enum class FileUse {
  kWrite,
  kRead,        ///< beside processes that may write
  kReadAtRest,  ///< without a lock: nobody has it open, and nothing of it is in a log
};

/// Why this process cannot write a store that is there: which of its files it can neither write nor
/// make. "" when it can.
std::string why_read_only(const std::string& path);

/// What no commit leaves as it is.
struct RestingState {
  off_t size;
  timespec modified;

  bool operator==(const RestingState& other) const {
    return size == other.size && modified.tv_sec == other.modified.tv_sec &&
           modified.tv_nsec == other.modified.tv_nsec;
  }
};

/// None while a process has the store open, or left a log.
std::optional<RestingState> resting_state_of(const std::string& path);

/// The name under which SQLite opens a file that it must not write. The log's index is made when
/// there is none; throws StoreFailure when it cannot be.
std::string name_for_reading(const std::string& path, FileUse use);

}  // namespace host

#endif  // PLATFORM_HOST_STORE_ACCESS_H
