// One operation, done again and again on a gateway while one thing fails.
#ifndef IGD_TESTS_TRIAL_H
#define IGD_TESTS_TRIAL_H

#include <string>

#include "operation.h"
#include "recorder.h"
#include "start.h"

namespace operations {

/// A copy of a gateway. It is brought back to its start after an operation changed it.
class Gateway {
 public:
  explicit Gateway(const Start& start);

  const Start& start() const { return *start_; }
  Recorder& recorder() { return recorder_; }

  /// As at the start, and the library's cache and name table empty.
  void restore();

  /// The platform talks to this gateway for as long as it lives.
  class Active {
   public:
    explicit Active(Gateway& gateway) { connect(gateway); }
    ~Active();
    Active(const Active&) = delete;
    Active& operator=(const Active&) = delete;

   private:
    void connect(Gateway& gateway);
    host::Tree* before_ = nullptr;
  };

 private:
  /// The tree keeps the newest walk over it. Where blocks are counted it is always this one.
  void walk_as_always();

  const Start* start_;
  host::Tree tree_;
  Recorder recorder_;
};

struct Verdict {
  bool reached = false;   ///< the operation came to the call or allocation that fails
  std::string complaint;  ///< what is wrong; empty when nothing is
};

/// What an operation needs of a platform that does not fail.
struct Clean {
  CallCounts calls;
  long allocations;
};

/// The trials of one operation on one gateway. In each of them every walk is closed once and
/// nothing leaks.
class Trials {
 public:
  Trials(const Operation& operation, const Start& start)
      : operation_(operation), by_library_(start), by_reference_(start) {}

  Clean without_fault();

  /// A call refused or misreported: the calls, the answer, what is left in the caller's records and
  /// in the cache are those of the reference. One that throws: std::bad_alloc comes out, and the
  /// cache can be used on.
  Verdict fail_call(const Fault& fault);

  /// The nth allocation of the library: likewise.
  Verdict fail_allocation(long nth);

 private:
  const Operation& operation_;
  Gateway by_library_;
  Gateway by_reference_;
};

}  // namespace operations

#endif  // IGD_TESTS_TRIAL_H
