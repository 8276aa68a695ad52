// Every exported operation as a step of a run, each by the library and by the reference.
#ifndef IGD_TESTS_FUZZ_STEPS_H
#define IGD_TESTS_FUZZ_STEPS_H

#include <string>
#include <vector>

#include "input.h"
#include "record.h"
#include "twice.h"

namespace fuzz {

/// One exec: two equal trees, and the arguments of one operation after the other.
struct Run {
  Run(Input& drawn_from, Twice& both) : input(drawn_from), twice(both) {}
  virtual ~Run() = default;
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  virtual std::string wan() { return input.coin() ? input.path(kWanPattern) : input.text(); }
  virtual std::string text() { return input.text(); }
  virtual std::string plain_text() { return input.plain_text(); }
  virtual api_wan_info record() { return draw_record(input); }

  Input& input;
  Twice& twice;
};

using Step = void (*)(Run&);

/// In an order that the kept inputs rely on.
const std::vector<Step>& all_steps();

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_STEPS_H
