// One sequence: the library and the model do the same, and are compared after each step.
#ifndef IGD_TESTS_MODEL_RUN_H
#define IGD_TESTS_MODEL_RUN_H

#include <functional>
#include <optional>
#include <string>

#include "host_platform.h"
#include "rules.h"
#include "tally.h"

namespace model {

struct Failure {
  std::size_t step;  ///< 0 for the first
  std::string what;
};

/// Called after each operation of the library: a test of the comparison does wrong there.
using Meddler = std::function<void(const Step& step, host::Tree& tree)>;

std::optional<Failure> run(const Steps& steps, Tally& tally, const Meddler& meddler = {});

/// A sequence as text that read_steps takes; the failure stands behind its step, as a comment.
std::string shown(const Steps& steps, const Failure& failure);

}  // namespace model

#endif  // IGD_TESTS_MODEL_RUN_H
