#include "store/shared_state.h"

#include <fcntl.h>
#include <unistd.h>

#include <thread>

#include "store/store_error.h"

namespace host {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPause{1};
// A batch locks the byte of its number, so that others can tell whether its process still lives.
constexpr std::uint32_t kBatchBytes = 1U << 30U;

std::uint32_t byte_of(SharedState::Batch batch) { return 1 + batch % kBatchBytes; }

// A lock of the open file, not of the process: two stores in one process exclude each other too.
struct flock byte_lock(std::uint32_t byte, short type) {
  struct flock lock = {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = static_cast<off_t>(byte);
  lock.l_len = 1;
  return lock;
}

void wait_a_little(SharedState::Deadline deadline) {
  if (Clock::now() >= deadline) {
    throw StoreFailure(StoreError::kLocked, "another process keeps the store locked");
  }
  std::this_thread::sleep_for(kPause);
}

}  // namespace

SharedState::Deadline deadline_of(const StoreOptions& options) {
  return Clock::now() + std::chrono::milliseconds(options.lock_timeout_ms);
}

std::chrono::steady_clock::duration Silence::length(std::uint32_t owner, std::uint32_t activity,
                                                    std::chrono::steady_clock::time_point now) {
  if (owner != owner_ || activity != activity_) {
    owner_ = owner;
    activity_ = activity;
    since_ = now;
  }
  return now - since_;
}

SharedState::SharedState(const std::string& store_path, SharedFile::Use use)
    : is_read_only_(use == SharedFile::kRead) {
  if (store_path == ":memory:") return;
  file_.emplace(store_path, sizeof(SharedWords), use);
  if (file_->memory() != nullptr) words_ = static_cast<SharedWords*>(file_->memory());
}

bool SharedState::try_lock(std::uint32_t byte) {
  if (is_read_only_) return false;
  if (!file_) return true;
  struct flock lock = byte_lock(byte, F_WRLCK);
  return fcntl(file_->descriptor(), F_OFD_SETLK, &lock) == 0;
}

bool SharedState::is_locked_by_others(std::uint32_t byte) const {
  struct flock lock = byte_lock(byte, F_WRLCK);
  return file_ && fcntl(file_->descriptor(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

void SharedState::unlock(std::uint32_t byte) {
  if (!file_) return;
  struct flock lock = byte_lock(byte, F_UNLCK);
  (void)fcntl(file_->descriptor(), F_OFD_SETLK, &lock);
}

SharedState::Batch SharedState::begin_batch(const StoreOptions& options) {
  const Deadline deadline = deadline_of(options);
  const std::chrono::milliseconds longest_silence(options.longest_silence_ms);
  Silence silence;
  while (true) {
    {
      const CommitLock lock(*this, deadline);
      const Batch owner = words_->owner.load();
      if (owner == 0 || !is_locked_by_others(byte_of(owner))) return take_over();
      const std::uint32_t activity = words_->activity.load();
      if (silence.length(owner, activity, Clock::now()) >= longest_silence) return take_over();
    }
    wait_a_little(deadline);
  }
}

SharedState::Batch SharedState::take_over() {
  Batch batch = ++words_->last_batch;
  if (batch == 0) batch = ++words_->last_batch;  // 0 means nobody
  (void)try_lock(byte_of(batch));
  words_->owner.store(batch, std::memory_order_release);
  return batch;
}

void SharedState::end_batch(Batch batch) {
  Batch mine = batch;  // another batch that took over stays
  (void)words_->owner.compare_exchange_strong(mine, 0);
  unlock(byte_of(batch));
}

CommitLock::CommitLock(SharedState& shared, SharedState::Deadline deadline)
    : shared_(shared), taken_(false) {
  while (!(taken_ = shared.try_lock(0))) wait_a_little(deadline);
}

}  // namespace host
