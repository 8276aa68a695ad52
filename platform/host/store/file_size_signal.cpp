#include "store/file_size_signal.h"

#include <cerrno>
#include <ctime>

namespace host {
namespace {

sigset_t own_signal() {
  sigset_t signals = {};
  (void)sigemptyset(&signals);
  (void)sigaddset(&signals, SIGXFSZ);
  return signals;
}

}  // namespace

bool FileSizeSignal::came() {
  sigset_t pending = {};
  return sigpending(&pending) == 0 && sigismember(&pending, SIGXFSZ) == 1;
}

FileSizeSignal::FileSizeSignal() : was_pending_(came()) {
  const sigset_t blocked = own_signal();
  (void)pthread_sigmask(SIG_BLOCK, &blocked, &mask_before_);
}

FileSizeSignal::~FileSizeSignal() {
  const int error = errno;
  const sigset_t blocked = own_signal();
  const timespec at_once = {};
  if (!was_pending_ && came()) (void)sigtimedwait(&blocked, nullptr, &at_once);
  (void)pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
  errno = error;
}

}  // namespace host
