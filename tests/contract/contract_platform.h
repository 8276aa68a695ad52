// What an adapter tells the contract suite about its platform.
//
// The suite uses MibAccess from common_util.h and this header, nothing else. A program of the suite
// consists of the test files in this folder, one file that defines contract::platforms(), and a
// libcommon_util.
#ifndef TESTS_CONTRACT_CONTRACT_PLATFORM_H
#define TESTS_CONTRACT_CONTRACT_PLATFORM_H

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "common_util.h"

namespace contract {

/// A call that the platform noted as refused.
struct Refused {
  std::string call;  ///< "addObject", "deleteObject" or "setValue"
  std::string name;  ///< the path or full name that was passed
  bool operator==(const Refused& other) const { return call == other.call && name == other.name; }
};

/// One tree, created for one test. A test removes the instances it created; whatever else is needed
/// to return to the start state belongs in the constructor or destructor.
class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  virtual MibAccess& mib() = 0;

  /// The calls refused since this platform was created, oldest first; none if it keeps no list.
  virtual std::optional<std::vector<Refused>> refused() { return std::nullopt; }

  /// The whole tree as text, one line per parameter, to check that nothing changed anywhere; "" if
  /// the platform cannot list it. The suite then compares what it can reach through MibAccess.
  virtual std::string listing() { return {}; }

  /// Full names of counts that the platform computes, which must not be written.
  virtual std::vector<std::string> counts() { return {}; }

  /// Paths of tables that exist but that take no new instances.
  virtual std::vector<std::string> closed_tables() { return {}; }
};

/// A platform and its start state, named for the tests.
struct PlatformCase {
  std::string name;  ///< letters and digits
  std::function<std::unique_ptr<Platform>()> make;
};

inline std::ostream& operator<<(std::ostream& out, const PlatformCase& platform) {
  return out << platform.name;
}

/// Every platform that this program tests. Defined by the adapter.
std::vector<PlatformCase> platforms();

}  // namespace contract

#endif  // TESTS_CONTRACT_CONTRACT_PLATFORM_H
