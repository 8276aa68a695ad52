// Every exported operation with arguments for any gateway, as the library and as the reference do
// it. Some stand here several times, with arguments that take them different ways.
#ifndef IGD_TESTS_OPERATION_H
#define IGD_TESTS_OPERATION_H

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "allocations.h"
#include "igd_types.h"
#include "shown.h"
#include "start.h"

namespace operations {

struct Operation {
  std::string exported;  ///< name of the exported operation
  std::string variant;   ///< what is special about the arguments; empty for the plain case
  bool cached = false;   ///< the connection's cache entry is there before the operation begins
  std::function<std::string(const Start&)> by_library;    ///< answers with result and outputs
  std::function<std::string(const Start&)> by_reference;  ///< the same, as the reference does it

  std::string title() const { return variant.empty() ? exported : exported + ", " + variant; }
};

std::vector<Operation> all_operations();
std::vector<Operation> wan_operations();
std::vector<Operation> bridge_operations();
std::vector<Operation> other_operations();

/// A function of the library whose allocations count.
template <typename Result, typename... Parameters>
auto counted(Result (*function)(Parameters...)) {
  return [function](auto&&... arguments) -> Result {
    const allocations::Counted counting;
    return function(std::forward<decltype(arguments)>(arguments)...);
  };
}

/// `use` makes the call it is given and answers with what came of it.
template <typename Function, typename Use>
Operation operation(const char* exported, const char* variant, Function* library,
                    Function* reference, Use use) {
  return {exported, variant, false,
          [=](const Start& start) { return use(counted(library), start); },
          [=](const Start& start) { return use(reference, start); }};
}

/// The same operation on a connection that is in the cache already.
inline Operation when_cached(Operation plain) {
  plain.cached = true;
  plain.variant += plain.variant.empty() ? "cached" : ", cached";
  return plain;
}

/// A description with a VLAN of its own and these ports.
api_wan_info description(const std::string& name, int connection_class, int connect_mode,
                         const Names& bind_lan, const Names& bind_wan);

}  // namespace operations

#endif  // IGD_TESTS_OPERATION_H
