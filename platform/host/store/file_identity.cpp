#include "store/file_identity.h"

#include <sys/stat.h>

namespace host {

std::optional<FileIdentity> identity_of(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

}  // namespace host
