#include "store/store_connection.h"

#include <pthread.h>

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
    : path_(std::move(path)), options_(std::move(options)), forks_(forks_of_process) {
  static const int counting = pthread_atfork(nullptr, nullptr, [] { ++forks_of_process; });
  (void)counting;
  all_connections().insert(this);
}

StoreConnection::~StoreConnection() {
  if (is_inherited()) leave_file_to_parent();
  all_connections().erase(this);
}

// Gives back only the child's own locks, of which it has none: the parent keeps its.
void StoreConnection::leave_file_to_parent() {
  if (file_ == nullptr || is_in_memory()) return;
  database().leave_log();
  file_.reset();
}

// In a child SQLite would go on to count the parent's locks as held and take none, and others
// would throw the log away under its feet. So before a child opens a file it closes every one that
// it has from its parent, whichever store they belong to.
void StoreConnection::leave_files_to_parent() {
  for (StoreConnection* const connection : all_connections()) {
    if (connection->is_inherited()) connection->leave_file_to_parent();
  }
}

void StoreConnection::open_shared_state() {
  leave_files_to_parent();
  shared_ = std::make_unique<SharedState>(path_);
}

void StoreConnection::open_file() {
  file_ = std::make_unique<StoreFile>(path_, options_);
  // An odd counter sends every process to the database, and the first one settles it.
  database().on_doubt([this] { shared_->set_counter(shared_->counter() | 1U); });
}

}  // namespace host
