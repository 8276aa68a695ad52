// What a platform tells the contract suite about itself.
//
// The suite knows MibAccess from common_util.h and this page, nothing else. A program of the suite
// is the test files of this folder, one file that defines contract::platforms(), and a
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

/// One tree, made for one test. A test removes the instances it made; whatever else a platform
/// needs to be in its start state again belongs into its constructor or destructor.
class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  virtual MibAccess& mib() = 0;

  /// The calls refused since this platform was made, oldest first; none when it keeps no list.
  virtual std::optional<std::vector<Refused>> refused() { return std::nullopt; }

  /// The whole tree as text, one line a parameter, to see that nothing changed anywhere; "" when
  /// the platform cannot list it. The suite then compares what it can reach through MibAccess.
  virtual std::string listing() { return {}; }

  /// Full names of counts that the platform computes, which must not be written.
  virtual std::vector<std::string> counts() { return {}; }

  /// Paths of tables that exist but that take no new instances.
  virtual std::vector<std::string> closed_tables() { return {}; }
};

/// A platform and its start state, as the names of the tests show it.
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
