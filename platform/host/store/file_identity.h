/// Which file stands under a name.
#ifndef PLATFORM_HOST_FILE_IDENTITY_H
#define PLATFORM_HOST_FILE_IDENTITY_H

#include <sys/types.h>

#include <optional>
#include <string>

namespace host {

struct FileIdentity {
  dev_t device;
  ino_t inode;

  bool operator==(const FileIdentity& other) const {
    return device == other.device && inode == other.inode;
  }
  bool operator!=(const FileIdentity& other) const { return !(*this == other); }
};

/// None when there is no file.
std::optional<FileIdentity> identity_of(const std::string& path);

}  // namespace host

#endif  // PLATFORM_HOST_FILE_IDENTITY_H
