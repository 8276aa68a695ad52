#include "store/store_connection.h"

#include <pthread.h>
#include <sys/stat.h>

#include <set>
#include <utility>

namespace host {
namespace {

std::set<StoreConnection*>& all_connections() {
  static auto* const connections = new std::set<StoreConnection*>;
  return *connections;
}

}  // namespace

int StoreConnection::forks_of_process = 0;

StoreConnection::StoreConnection(std::string path, StoreOptions options)
    : path_(std::move(path)), options_(std::move(options)), forks_(kNotOpened) {
  static const int counting = pthread_atfork(nullptr, nullptr, count_fork);
  (void)counting;
  all_connections().insert(this);
}

StoreConnection::~StoreConnection() {
  if (is_inherited() || !why_not_usable().ok()) leave_file();
  all_connections().erase(this);
}

// A child that lives on keeps no lock that its parent had, when that one dies.
void StoreConnection::count_fork() {
  ++forks_of_process;
  for (StoreConnection* const connection : all_connections()) {
    if (connection->shared_ != nullptr) connection->shared_->leave_to_parent();
  }
}

// Gives back only this process's own locks, and leaves the log, which SQLite knows by its name
// only, to whom it belongs now.
void StoreConnection::leave_file() {
  if (file_ == nullptr || is_in_memory()) return;
  database().leave_log();
  file_.reset();
}

// In a child SQLite would go on to count the parent's locks as held and take none, and others
// would throw the log away under its feet. So before a child opens a file it closes every one that
// it has from its parent, whichever store they belong to.
void StoreConnection::leave_files_to_parent() {
  for (StoreConnection* const connection : all_connections()) {
    if (connection->is_inherited()) connection->leave_file();
  }
}

void StoreConnection::open_shared_state() {
  forks_ = kNotOpened;
  leave_files_to_parent();
  why_read_only_.clear();
  if (!is_in_memory()) require_private(path_);
  if (!is_in_memory() && options_.vfs.empty()) why_read_only_ = why_read_only(path_);
  shared_ =
      std::make_unique<SharedState>(path_, is_read_only() ? SharedFile::kRead : SharedFile::kWrite);
}

// The file is not opened to see: closing it again would end SQLite's locks of this process on it.
bool StoreConnection::is_to_be_made() const {
  if (is_read_only()) return false;
  struct stat status = {};
  return shared_->is_new() || stat(path_.c_str(), &status) != 0 || status.st_size == 0;
}

// SQLite opens the file by its name, too: a file that changed place meanwhile may be either.
void StoreConnection::open_file() {
  const std::optional<FileIdentity> before = identity_of(path_);
  at_rest_ = is_read_only() ? resting_state_of(path_) : std::nullopt;
  const FileUse for_reading = at_rest_ ? FileUse::kReadAtRest : FileUse::kRead;
  file_ =
      std::make_unique<StoreFile>(path_, options_, is_read_only() ? for_reading : FileUse::kWrite);
  // An odd counter sends every process to the database, and the first one settles it.
  database().on_doubt([this] { shared_->set_counter(shared_->counter() | 1U); });
  identity_ = identity_of(path_);
  if (!before || before == identity_) return;
  leave_file();
  throw StoreFailure(StoreError::kReplaced, "the file was replaced while it was opened");
}

StoreResult StoreConnection::why_not_usable() const {
  if (is_in_memory()) return {};
  const std::optional<FileIdentity> found = identity_of(path_);
  if (identity_ && !found) {
    return {StoreError::kReplaced, "the file of the store was moved away or deleted"};
  }
  if (identity_ && *found != *identity_) {
    return {StoreError::kReplaced, "another file stands in the place of the store now"};
  }
  if (at_rest_ && !(resting_state_of(path_) == at_rest_)) {
    return {StoreError::kReplaced, "the file, which can only be read, was changed"};
  }
  if (!is_read_only() && shared_->is_cut()) {
    return {StoreError::kIo, path_ + "-shared was cut short"};
  }
  return {};
}

void StoreConnection::require_writable() const {
  if (!is_read_only()) return;
  throw StoreFailure(StoreError::kReadOnly, "the store can only be read: " + why_read_only_);
}

void StoreConnection::require_usable() const {
  const StoreResult result = why_not_usable();
  if (!result.ok()) throw StoreFailure(result);
}

}  // namespace host
