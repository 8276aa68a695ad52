// How often each operation ended in which way: a sequence that nothing reaches proves nothing.
#ifndef IGD_TESTS_MODEL_TALLY_H
#define IGD_TESTS_MODEL_TALLY_H

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "rules.h"
#include "step.h"

namespace model {

class Tally {
 public:
  void count(Operation operation, const std::string& outcome);

  /// "set: no such connection" for each outcome, and each rule, that never came up.
  std::vector<std::string> missing() const;

  /// A line for each operation: how often done, how often refused, and each outcome.
  std::string table() const;
  long steps() const;

  RuleCounts rules;

 private:
  long times(Operation operation, const Outcome& outcome) const;

  std::map<std::pair<Operation, std::string>, long> counts_;
};

}  // namespace model

#endif  // IGD_TESTS_MODEL_TALLY_H
