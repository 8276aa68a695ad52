#include "store/store_path.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "store/store_error.h"

namespace host {
namespace {

std::string folder_of(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

// Where a symbolic link leads, which may be nowhere yet; none when it is no link.
std::optional<std::string> target_of(const std::string& path) {
  char buffer[PATH_MAX];
  const ssize_t size = readlink(path.c_str(), buffer, sizeof buffer);
  if (size <= 0) return std::nullopt;
  const std::string target(buffer, static_cast<std::size_t>(size));
  return target.front() == '/' ? target : folder_of(path) + target;
}

// The path of a file that is still to be made.
std::string resolved_folder_of(const std::string& path) {
  char buffer[PATH_MAX];
  struct stat status = {};
  const std::string folder = folder_of(path);
  const std::size_t slash = path.rfind('/');
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  const bool is_folder = realpath(folder.c_str(), buffer) != nullptr &&
                         stat(buffer, &status) == 0 && S_ISDIR(status.st_mode);
  if (!is_folder || name.empty()) {
    throw StoreFailure(StoreError::kNotOpened, "the folder of the store does not exist");
  }
  return std::string(buffer) + "/" + name;
}

}  // namespace

std::string resolved(const std::string& path) {
  if (path == ":memory:") return path;
  struct stat status = {};
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    throw StoreFailure(StoreError::kNotOpened, "it is not a file");
  }
  char buffer[PATH_MAX];
  if (realpath(path.c_str(), buffer) != nullptr) return buffer;
  if (errno == ELOOP) throw StoreFailure(StoreError::kNotOpened, std::strerror(ELOOP));
  std::string file = path;
  for (auto target = target_of(file); target; target = target_of(file)) file = *target;
  return resolved_folder_of(file);
}

}  // namespace host
