// Counts the allocations of this program, and fails one on demand.
#ifndef IGD_TESTS_ALLOCATIONS_H
#define IGD_TESTS_ALLOCATIONS_H

namespace allocations {

/// Blocks that operator new gave out and nobody returned.
long live();

/// Allocations are counted, and can fail, only inside of Counted and outside of NotCounted: those
/// of the library's own, without those of the test and of the platform.
class Counted {
 public:
  Counted();
  ~Counted();
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  bool before_;
};

class NotCounted {
 public:
  NotCounted();
  ~NotCounted();
  NotCounted(const NotCounted&) = delete;
  NotCounted& operator=(const NotCounted&) = delete;

 private:
  bool before_;
};

/// Called whenever counting begins or pauses: the library is entered or left. Null at first.
using Border = void (*)();
void call_at_border(Border border);

/// Starts counting anew; the nth counted allocation throws std::bad_alloc, none when nth is 0.
void fail_at(long nth);
long counted();  ///< since the last fail_at

}  // namespace allocations

#endif  // IGD_TESTS_ALLOCATIONS_H
