// What a gateway does with its store in the course of its life.
#ifndef TESTS_PROOF_LIFE_H
#define TESTS_PROOF_LIFE_H

#include "gateway.h"

namespace proof {

enum class AfterFailure {
  kEnd,
  kTryAgainAndEnd,  // does the step that failed once more, and no other
};

// Makes the store; creates, changes, routes, checkpoints, restores and removes connections; tries
// changes and has them confirmed and reverted; opens the store anew; and writes enough for the log
// to be written back. Always the same. Ends at the first failure.
//
// @param after_failure  asked after each failed step how to go on; empty: not at all
void live(Gateway& gateway, const std::function<AfterFailure()>& after_failure = {});

}  // namespace proof

#endif  // TESTS_PROOF_LIFE_H
