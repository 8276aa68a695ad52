// Holds a tree against the model.
#ifndef IGD_TESTS_MODEL_COMPARISON_H
#define IGD_TESTS_MODEL_COMPARISON_H

#include <string>

#include "host_platform.h"
#include "state.h"

namespace model {

/// The first thing that is not as the model says: an object too many or missing, a parameter that
/// the model knows, what the library remembers. Empty when all is.
std::string difference(const State& state, const host::Tree& tree);

/// The same for every parameter of the tree, also those that must have stayed as they were.
std::string difference_anywhere(const State& state, const host::Tree& tree);

}  // namespace model

#endif  // IGD_TESTS_MODEL_COMPARISON_H
