/// What this process read last, and so what its next batch builds on.
#ifndef PLATFORM_HOST_STORE_READS_H
#define PLATFORM_HOST_STORE_READS_H

#include <chrono>
#include <ctime>

#include "store/store_file.h"
#include "tree/tree_access.h"

namespace host {

/// Reads leave a mark in the tree, which costs them nothing; whoever asks for the tree next notes
/// what they saw. Coarse times do: what they are compared with is seconds.
class StoreReads {
 public:
  /// Before each use of the tree: what was read since the last one was of this generation.
  void note(Tree& tree, Generation generation) {
    if (TreeAccess::take_read_mark(tree)) {
      generation_ = generation;
      time_ = last_use_;
    }
    last_use_ = now();
  }

  /// Whether something was read, not long ago, of another generation than this one.
  bool are_outdated(Generation newest, int milliseconds) const {
    return generation_ != 0 && generation_ != newest &&
           now() - time_ < std::chrono::milliseconds(milliseconds);
  }

  void outdate() {
    if (generation_ != 0) generation_ = kOfAnotherFile;
  }

  void forget(Tree& tree) {
    (void)TreeAccess::take_read_mark(tree);
    generation_ = 0;
  }

 private:
  using Time = std::chrono::nanoseconds;
  static constexpr Generation kOfAnotherFile = ~Generation{0};

  static Time now() {
    timespec time = {};
    (void)clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
  }

  Generation generation_ = 0;  ///< 0: nothing was read
  Time time_{};                ///< when it was read
  Time last_use_{};            ///< when the tree was last asked for
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_READS_H
