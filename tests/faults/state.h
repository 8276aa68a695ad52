// All that a store has to keep, read from its file.
#ifndef TESTS_PROOF_STATE_H
#define TESTS_PROOF_STATE_H

#include <map>
#include <string>
#include <vector>

#include "rows/row.h"
#include "store/store_file.h"

namespace proof {

struct State {
  host::Generation generation = 0;
  host::RowSet rows;                 // of the tree, counters included
  std::vector<std::string> changes;  // the automatic checkpoints: generation, label and rows
  std::map<std::string, host::RowSet> named;
  std::string pending;  // generation and label, "" for none

  bool operator==(const State& other) const;
};

// In words, where the two are not the same.
std::string difference_of_rows(const host::RowSet& expected, const host::RowSet& found);
std::string difference(const State& expected, const State& found);

// Throws StoreFailure. The times of changes are no part of it.
State state_of(host::StoreFile& file);

// A state as it has to be once the power came back: what was pending is gone again, except that
// instance numbers which were handed out are not handed out twice.
// @param before  the state before the pending change
State after_restart(const State& state, const State& before);

}  // namespace proof

#endif  // TESTS_PROOF_STATE_H
