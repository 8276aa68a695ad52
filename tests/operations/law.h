// How many calls an operation makes, as a function of the gateway's size.
#ifndef IGD_TESTS_LAW_H
#define IGD_TESTS_LAW_H

#include <string>
#include <vector>

#include "recorder.h"

namespace operations {

/// Size of a uniform gateway (start.h).
struct Size {
  long connections;  ///< n in a law
  long ports;   ///< p: in a connection's own bridge, bound in the LAN bridge, and unbound there
  long routes;  ///< r
};

/// The law of one operation on the last connection of a uniform gateway. The formulas stand in the
/// order of Call; an empty one is 0.
struct Law {
  const char* operation;  ///< Operation::title
  std::array<const char*, kCalls> formulas;
};

const std::vector<Law>& all_laws();

/// The value of a formula: sums of products of numbers, n, p and r, which may stand side by side
/// ("4np^2 + 3n"), be raised ("p^3"), bracketed, and divided by a number ("(p^2 + p)/2").
/// Throws std::invalid_argument for anything else.
long value_of(const std::string& formula, const Size& size);

CallCounts counts_of(const Law& law, const Size& size);

}  // namespace operations

#endif  // IGD_TESTS_LAW_H
