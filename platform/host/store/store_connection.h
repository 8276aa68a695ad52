/// What a process has open of a store, and what becomes of it in a child after fork.
#ifndef PLATFORM_HOST_STORE_CONNECTION_H
#define PLATFORM_HOST_STORE_CONNECTION_H

#include <memory>
#include <optional>
#include <string>

#include "host_store.h"
#include "store/file_identity.h"
#include "store/shared_state.h"
#include "store/store_file.h"

namespace host {

/// The database and the state that processes share.
///
/// A child after fork inherits both, and can use neither: it opens them anew. So does a process
/// whose store was moved away or replaced. Until then, and when that failed, it has no file.
class StoreConnection {
 public:
  /// Opens nothing yet.
  StoreConnection(std::string path, StoreOptions options);
  StoreConnection(const StoreConnection&) = delete;
  StoreConnection& operator=(const StoreConnection&) = delete;
  ~StoreConnection();

  // Opening, in this order. Each throws StoreFailure.
  void open_shared_state();  ///< leaves what this process inherited to its parent
  void open_file();
  void close_file() { file_.reset(); }
  void opened() { forks_ = forks_of_process; }  ///< all of it is this process's own now

  bool is_inherited() const { return forks_ != forks_of_process; }  ///< or could not be opened
  bool is_of_parent() const { return is_inherited() && forks_ != kNotOpened; }

  bool is_to_be_made() const;  ///< whether some of the files are not there yet
  bool is_read_only() const { return !why_read_only_.empty(); }
  void require_writable() const;  ///< throws StoreFailure with kReadOnly when it is not
  bool is_gone() const { return !identity_of(path_); }  ///< whether no file has the name

  /// What became of the files under our feet: kReplaced when the store's name leads to another
  /// file, or to one that changed although it is read without a lock; kIo when the shared file was
  /// cut short, else kNone.
  StoreResult why_not_usable() const;
  void require_usable() const;  ///< throws what it says
  bool is_in_memory() const { return path_ == ":memory:"; }

  const std::string& path() const { return path_; }
  const StoreOptions& options() const { return options_; }
  SharedState& shared() const { return *shared_; }
  StoreFile& file() const { return *file_; }
  Database& database() const { return file_->database(); }

  /// Waits for the commit lock as long as the options allow.
  CommitLock locked() const {
    require_writable();
    return {*shared_, lock_deadline()};
  }
  SharedState::Deadline lock_deadline() const { return deadline_of(options_); }

  /// Writes in a transaction. When the disk is full the log, which may take most of it, is written
  /// back, and the step taken once more. Needs the commit lock.
  template <typename Step>
  void write(const Step& step) const {
    require_usable();
    const StoreResult result = result_of([&] { write_once(step); });
    if (result.ok()) return;
    if (result.error != StoreError::kFull) throw StoreFailure(result);
    database().write_log_back();
    write_once(step);
  }

 private:
  template <typename Step>
  void write_once(const Step& step) const {
    Transaction transaction(database(), Transaction::kWrite);
    step(transaction);
  }

  void leave_file();
  static void leave_files_to_parent();
  static void count_fork();

  static constexpr int kNotOpened = -1;  ///< as a number of forks
  static int forks_of_process;  ///< how often it is the child of a fork, since the first store

  const std::string path_;
  const StoreOptions options_;
  std::unique_ptr<SharedState> shared_;
  std::unique_ptr<StoreFile> file_;
  std::optional<FileIdentity> identity_;  ///< of the file when it was opened
  std::string why_read_only_;             ///< "" when it can be written
  std::optional<RestingState> at_rest_;   ///< as it was opened, when no lock keeps it so
  int forks_;                             ///< when it was opened
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_CONNECTION_H
