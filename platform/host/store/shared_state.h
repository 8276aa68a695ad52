/// What the processes of one store tell each other: a small file that each of them maps.
///
/// Nothing in it has to survive: the database decides, and whoever opens the store or finds the
/// counter odd puts it right.
#ifndef PLATFORM_HOST_SHARED_STATE_H
#define PLATFORM_HOST_SHARED_STATE_H

#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "host_store.h"
#include "store/shared_file.h"

namespace host {

/// 32 bits each, because the gateways' processors have no wider ones without a lock.
struct SharedWords {
  std::atomic<std::uint32_t> counter;     ///< twice the generation; odd while a commit is going on
  std::atomic<std::uint32_t> owner;       ///< the batch that holds the write lock, 0 for none
  std::atomic<std::uint32_t> activity;    ///< counts the owner's writes
  std::atomic<std::uint32_t> last_batch;  ///< number of the newest batch
};
static_assert(std::atomic<std::uint32_t>::is_always_lock_free);

/// How long the owner of the write lock has written nothing, as one sees it who waits for it.
class Silence {
 public:
  /// @param owner     the batch that has the lock now
  /// @param activity  its count of writes now
  std::chrono::steady_clock::duration length(std::uint32_t owner, std::uint32_t activity,
                                             std::chrono::steady_clock::time_point now);

 private:
  std::uint32_t owner_ = 0;
  std::uint32_t activity_ = 0;
  std::chrono::steady_clock::time_point since_;
};

/// Every member that waits throws StoreFailure with kLocked when it took too long.
class SharedState {
 public:
  using Deadline = std::chrono::steady_clock::time_point;
  using Batch = std::uint32_t;

  /// For ":memory:" it is this object's own. Throws StoreFailure.
  /// @param use  with kRead no lock can be taken, and the counter is 0 when there is no file
  explicit SharedState(const std::string& store_path, SharedFile::Use use = SharedFile::kWrite);

  /// Whether the file was made just now; reserve() then needs the commit lock.
  bool is_new() const { return file_.has_value() && !file_->is_reserved(); }
  void reserve() {
    if (file_.has_value()) file_->reserve();
  }

  /// In a child after fork: nothing is locked for it any more, and nothing can be.
  void leave_to_parent() {
    if (!file_.has_value()) return;
    words_ = &own_words_;
    file_->close_all();
  }

  /// Whether the file was cut short, or is new: the counter is never 0 else.
  bool is_cut() const { return counter() == 0; }

  std::uint32_t counter() const { return words_->counter.load(std::memory_order_acquire); }
  void set_counter(std::uint32_t counter) {
    words_->counter.store(counter, std::memory_order_release);
  }

  /// Takes the write lock for a batch. A batch whose process ended, or that wrote nothing for as
  /// long as the options allow while this one waited, loses it.
  Batch begin_batch(const StoreOptions& options);
  bool owns(Batch batch) const { return words_->owner.load(std::memory_order_acquire) == batch; }
  void note_activity() { words_->activity.fetch_add(1, std::memory_order_relaxed); }
  void end_batch(Batch batch);

 private:
  friend class CommitLock;
  bool try_lock(std::uint32_t byte);
  bool is_locked_by_others(std::uint32_t byte) const;
  void unlock(std::uint32_t byte);
  Batch take_over();

  const bool is_read_only_;
  std::optional<SharedFile> file_;
  SharedWords own_words_ = {};
  SharedWords* words_ = &own_words_;
};

/// Holds the short lock under which batches change hands, commits are made and stores are opened.
/// It ends with its process, whatever happens to it.
class CommitLock {
 public:
  CommitLock(SharedState& shared, SharedState::Deadline deadline);
  /// Does not wait.
  explicit CommitLock(SharedState& shared) : shared_(shared), taken_(shared.try_lock(0)) {}
  CommitLock(const CommitLock&) = delete;
  CommitLock& operator=(const CommitLock&) = delete;
  ~CommitLock() {
    if (taken_) shared_.unlock(0);
  }
  bool taken() const { return taken_; }

 private:
  SharedState& shared_;
  bool taken_;
};

SharedState::Deadline deadline_of(const StoreOptions& options);

}  // namespace host

#endif  // PLATFORM_HOST_SHARED_STATE_H
