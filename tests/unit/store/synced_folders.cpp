#include "synced_folders.h"

namespace store_tests {
namespace {

std::vector<ino_t>& all() {
  static std::vector<ino_t> folders;
  return folders;
}

}  // namespace

const std::vector<ino_t>& synced_folders() { return all(); }

}  // namespace store_tests

// The linker lets every call of fsync() come here (--wrap).
extern "C" int __real_fsync(int file);   // NOLINT(bugprone-reserved-identifier)
extern "C" int __wrap_fsync(int file);   // NOLINT(bugprone-reserved-identifier)
extern "C" int __wrap_fsync(int file) {  // NOLINT(bugprone-reserved-identifier)
  struct stat status = {};
  const bool is_folder = fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
  if (is_folder) store_tests::all().push_back(status.st_ino);
  return __real_fsync(file);
}
