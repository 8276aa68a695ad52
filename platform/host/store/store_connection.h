/// What a process has open of a store, and what becomes of it in a child after fork.
#ifndef PLATFORM_HOST_STORE_CONNECTION_H
#define PLATFORM_HOST_STORE_CONNECTION_H

#include <memory>
#include <string>

#include "host_store.h"
#include "store/shared_state.h"
#include "store/store_file.h"

namespace host {

/// The database and the state that processes share.
///
/// A child after fork inherits both, and can use neither: it opens them anew. Until then, and when
/// that failed, it has no file.
class StoreConnection {
 public:
  /// Opens nothing yet.
  StoreConnection(std::string path, StoreOptions options);
  StoreConnection(const StoreConnection&) = delete;
  StoreConnection& operator=(const StoreConnection&) = delete;
  ~StoreConnection();

  // Opening, in this order. Each throws StoreFailure.
  void open_shared_state();  ///< leaves what this process inherited to its parent
  void open_file();          ///< needs the commit lock
  void close_file() { file_.reset(); }
  void opened() { forks_ = forks_of_process; }  ///< all of it is this process's own now

  bool is_inherited() const { return forks_ != forks_of_process; }
  bool is_in_memory() const { return path_ == ":memory:"; }

  const std::string& path() const { return path_; }
  const StoreOptions& options() const { return options_; }
  SharedState& shared() const { return *shared_; }
  StoreFile& file() const { return *file_; }
  Database& database() const { return file_->database(); }

  /// Waits for the commit lock as long as the options allow.
  CommitLock locked() const { return {*shared_, deadline_of(options_)}; }

 private:
  void leave_file_to_parent();
  static void leave_files_to_parent();

  static int forks_of_process;  ///< how often it is the child of a fork, since the first store

  const std::string path_;
  const StoreOptions options_;
  std::unique_ptr<SharedState> shared_;
  std::unique_ptr<StoreFile> file_;
  int forks_;  ///< when it was opened
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_CONNECTION_H
