// What a gateway does with its store in the course of its life.
#ifndef TESTS_PROOF_LIFE_H
#define TESTS_PROOF_LIFE_H

#include "gateway.h"

namespace proof {

// Makes the store; creates, changes, routes, checkpoints, restores and removes connections; tries
// changes and has them confirmed and reverted; opens the store anew; and writes enough for the log
// to be written back. Always the same. Ends at the first failure.
void live(Gateway& gateway);

// The same steps, each tried again after it failed, for a disk that fails once.
// @param mend  called after a failure, before the step is tried again
void live_on(Gateway& gateway, const std::function<void()>& mend);

}  // namespace proof

#endif  // TESTS_PROOF_LIFE_H
