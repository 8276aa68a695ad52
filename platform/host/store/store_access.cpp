#include "store/store_access.h"

#include <unistd.h>

#include <algorithm>
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

}  // namespace host
