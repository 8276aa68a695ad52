/// A file that may grow no further is an error, and not the end of the process.
#ifndef PLATFORM_HOST_FILE_SIZE_SIGNAL_H
#define PLATFORM_HOST_FILE_SIZE_SIGNAL_H

#include <csignal>

namespace host {

/// While one lives, a write of this thread beyond the process's file size limit fails with EFBIG
/// and sends no signal. What the program itself does about that signal stays as it is.
class FileSizeSignal {
 public:
  FileSizeSignal();
  FileSizeSignal(const FileSizeSignal&) = delete;
  FileSizeSignal& operator=(const FileSizeSignal&) = delete;
  ~FileSizeSignal();

  /// Whether a write has failed so while one lives: SQLite does not always tell why.
  static bool came();

 private:
  sigset_t mask_before_ = {};
  bool was_pending_;
};

}  // namespace host

#endif  // PLATFORM_HOST_FILE_SIZE_SIGNAL_H
