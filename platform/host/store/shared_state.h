/// What the processes of one store tell each other: a small file that each of them maps.
///
/// Nothing in it has to survive: the database decides, and whoever opens the store or finds the
/// counter odd puts it right.
#ifndef PLATFORM_HOST_SHARED_STATE_H
#define PLATFORM_HOST_SHARED_STATE_H

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>

#include "host_store.h"

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
  explicit SharedState(const std::string& store_path);
  SharedState(const SharedState&) = delete;
  SharedState& operator=(const SharedState&) = delete;
  /// Only closes: a child after fork shares the locks with its parent and must not give them back.
  ~SharedState();

  /// Sees to it that the file has its place on the disk: the first write to a mapped file that has
  /// none kills the process when the disk is full. Needs the commit lock, because file systems that
  /// cannot reserve get a byte of the file written anew. Throws StoreFailure.
  void reserve();

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

  int file_ = -1;
  SharedWords* words_ = nullptr;
  SharedWords own_words_ = {};
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
