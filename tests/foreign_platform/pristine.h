// The library keeps the first context it is given. What it does before that can only be seen in a
// process that has not called it yet, so each such scenario runs in a child of its own, forked
// before the first test.
#pragma once

#include <string>

namespace foreign {

/// Registers a scenario; it may use EXPECT_* like a test.
class PristineScenario {
 public:
  PristineScenario(const char* name, void (*body)());
};

/// "passed", or how the child of that scenario ended.
std::string outcome_of(const std::string& name);

}  // namespace foreign
