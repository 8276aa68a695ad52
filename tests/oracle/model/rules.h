// Rules that hold whatever the model says: they look at the tree before and after a step, and at
// what the step asked for.
#ifndef IGD_TESTS_MODEL_RULES_H
#define IGD_TESTS_MODEL_RULES_H

#include <string>
#include <vector>

#include "host_platform.h"
#include "step.h"

namespace model {

/// A port as it stands in the tree.
struct Holding {
  std::string node;
  std::string bridge;  ///< path
  std::string bridge_name;
  std::string owner;  ///< connection of the bridge
  std::string bound;  ///< connection of the port
};

using Holdings = std::vector<Holding>;

/// Who held what before a step.
struct Before {
  Before(const host::Tree& tree, const std::string& path);

  Holdings holdings;
  bool connection;  ///< whether the step's connection was there
};

/// Rules that were of use: a rule that never applied proves nothing.
struct RuleCounts {
  long held = 0;       ///< ports stand where a description put them
  long released = 0;   ///< ports that left a connection are back in the LAN bridge
  long gone = 0;       ///< a removed connection left no trace
  long read_back = 0;  ///< what was written is read again
};

/// The first rule that a step broke; empty when none.
/// @param path  the connection that the step worked on or made
std::string broken_rule(const Step& step, const std::string& path, const Before& before,
                        const host::Tree& tree, RuleCounts& counts);

/// Reads a connection and tells which field is not as it was written; empty when all are.
std::string not_read_back(const std::string& path, const api_wan_info& written);

}  // namespace model

#endif  // IGD_TESTS_MODEL_RULES_H
