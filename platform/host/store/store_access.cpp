#include "store/store_access.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "store/store_error.h"

namespace host {
namespace {

constexpr const char* kLog = "-wal";
constexpr const char* kIndex = "-shm";
constexpr const char* kJournal = "-journal";

constexpr std::string_view kPlainCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-";

bool is_plain(char c) { return kPlainCharacters.find(c) != std::string_view::npos; }

// As a shell takes it for one word.
std::string shell_word(const std::string& text) {
  if (std::all_of(text.begin(), text.end(), is_plain)) return text;
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
}

// As the path in a name that begins with "file:".
std::string escaped(const std::string& path) {
  std::string text;
  for (const char c : path) {
    if (c == '%') {
      text += "%25";
    } else if (c == '?') {
      text += "%3F";
    } else if (c == '#') {
      text += "%23";
    } else {
      text += c;
    }
  }
  return text;
}

bool can_write(const std::string& path) {
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

// 0 also when it is not there.
off_t size_of(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? status.st_size : 0;
}

bool is_there(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0;
}

// With the mode that the next process needs to write it. SQLite gives an empty one the mode of the
// database, and begins anew with any other that nobody has open.
void make_index(const std::string& path) {
  const std::string index = path + kIndex;
  const int file =
      open(index.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kOwnerOnly);
  const int number = errno;
  if (file >= 0) {
    (void)fchmod(file, kOwnerOnly);
    (void)ftruncate(file, 1);
    (void)close(file);
  } else if (number != EEXIST) {
    throw StoreFailure(StoreError::kReadOnly,
                       "its log has content that cannot be read without an index, and " + index +
                           " cannot be made: " + std::strerror(number));
  }
}

}  // namespace

void require_private(const std::string& file, const struct stat& status, uid_t owner) {
  if (status.st_uid != owner) {
    const std::string needed = std::to_string(owner);
    throw StoreFailure(StoreError::kNotPrivate,
                       file + " belongs to user " + std::to_string(status.st_uid) + ", not " +
                           needed + "; as root, type: chown " + needed + " " + shell_word(file));
  }
  if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
    throw StoreFailure(StoreError::kNotPrivate,
                       file + " is accessible to other users; if it belongs to your store, type:" +
                           " chmod 600 " + shell_word(file));
  }
}

void require_private(const std::string& path) {
  uid_t owner = geteuid();
  struct stat status = {};
  if (stat(path.c_str(), &status) == 0) {
    if (owner == 0) owner = status.st_uid;
    const bool is_to_be_made = status.st_size == 0 && status.st_uid == owner;
    if (!is_to_be_made) require_private(path, status, owner);
  }
  for (const char* end : {kLog, kIndex, kJournal}) {
    const std::string companion = path + end;
    if (lstat(companion.c_str(), &status) != 0) continue;
    if (!S_ISREG(status.st_mode)) {
      throw StoreFailure(StoreError::kNotOpened, companion + " is not a file");
    }
    require_private(companion, status, owner);
  }
}

std::string why_read_only(const std::string& path) {
  if (!is_there(path)) return {};
  for (const char* end : {"", kLog, kIndex, "-shared"}) {
    const std::string file = path + end;
    const std::string needed = is_there(file) ? file : path.substr(0, path.rfind('/') + 1);
    if (!can_write(needed)) return needed + ": " + std::strerror(errno);
  }
  return {};
}

// Whoever writes makes a log first, and keeps it and its index as long as the file is open.
std::optional<RestingState> resting_state_of(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  const bool has_log =
      size_of(path + kLog) > 0 || (is_there(path + kLog) && is_there(path + kIndex));
  if (has_log || size_of(path + kJournal) > 0) return std::nullopt;
  return RestingState{status.st_size, status.st_mtim};
}

std::string name_for_reading(const std::string& path, FileUse use) {
  if (size_of(path) == 0) {
    throw StoreFailure(StoreError::kReadOnly, "the file is empty, and it cannot be written");
  }
  const std::string name = "file:" + escaped(path) + "?mode=ro";
  if (use == FileUse::kReadAtRest) return name + "&immutable=1";
  if (size_of(path + kLog) > 0) make_index(path);
  return name;
}

}  // namespace host
