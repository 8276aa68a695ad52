// Many sequences at random, and the shortest one that fails.
#ifndef IGD_TESTS_MODEL_CHECK_H
#define IGD_TESTS_MODEL_CHECK_H

#include <cstdint>
#include <string>

#include "run.h"

namespace model {

struct Report {
  bool ok = false;
  long sequences = 0;
  Tally tally;
  Steps shortest;     ///< fails; empty when ok
  Failure failure{};  ///< of the shortest
};

/// Runs sequences of up to 60 steps until one fails, and then ever plainer ones.
Report check(int sequences, std::uint64_t seed, const Meddler& meddler = {});

}  // namespace model

#endif  // IGD_TESTS_MODEL_CHECK_H
