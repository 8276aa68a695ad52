// An operation of the library, and the same as tests/reference/reference.h tells it, each on a
// tree of its own: the calls, the answers and what is kept must be the same.
#ifndef IGD_TESTS_FUZZ_TWICE_H
#define IGD_TESTS_FUZZ_TWICE_H

#include <string>

#include "harness.h"
#include "notes.h"
#include "reference.h"
#include "test_platform.h"

namespace fuzz {

class Twice {
 public:
  enum class Kind { kReads, kWrites };

  /// Two trees with the same content.
  Twice(MibAccess& for_library, MibAccess& for_reference)
      : for_library_(for_library), for_reference_(for_reference) {
    reference::state() = {};
  }
  ~Twice();
  Twice(const Twice&) = delete;
  Twice& operator=(const Twice&) = delete;

  /// `use` makes the call that it is given and returns all that came of it.
  template <typename Library, typename Reference, typename Use>
  std::string run(Kind kind, const char* name, Library* library, Reference* reference,
                  const Use& use) {
    Notes by_library(for_library_);
    const support::BehindSwitchboard behind(by_library);
    std::string answer = use(library);
    require(by_library.open_walks() == 0, "every walk is closed once");
    require(kind == Kind::kWrites || !by_library.wrote(), "what only reads writes nothing");
    Notes by_reference(for_reference_);
    reference::state().tree = &by_reference;
    const std::string expected = use(reference);
    require_same(by_library.calls(), by_reference.calls(), name);
    require_same(answer, expected, name);
    require_same_kept(name);
    return answer;
  }

 private:
  static void require_same_kept(const char* name);

  MibAccess& for_library_;
  MibAccess& for_reference_;
};

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_TWICE_H
