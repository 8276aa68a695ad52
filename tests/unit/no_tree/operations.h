// Every operation of the library with what it answers, prints and logs where there is no tree.
#ifndef IGD_TESTS_OPERATIONS_H
#define IGD_TESTS_OPERATIONS_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace no_tree {

inline const std::string kPath = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.";

struct Operation {
  const char* name;
  std::function<std::string()> call;  ///< answers with the result and the outputs
  std::string answer;
  std::string printed;
  std::string logged;
};

inline void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

/// Operations that look for the tree.
std::vector<Operation> asking_operations();

/// The same for the internal ones.
std::vector<Operation> asking_internal_operations();

/// Operations whose work is done without a tree.
std::vector<Operation> self_sufficient_operations();

/// For answers: "[LAN1 LAN2 ]", and what an operation leaves in a buffer, quoted.
using ReadIntoBuffer = void (*)(const char*, char*, std::size_t);
std::string shown(const std::vector<std::string>& names);
std::string buffer_of(ReadIntoBuffer read_into, const std::string& key);

/// Makes an operation's call: its answer, what it printed and what it logged.
struct Outcome {
  std::string answer;
  std::string printed;
  std::string logged;
};
Outcome outcome_of(const Operation& operation);

}  // namespace no_tree

#endif  // IGD_TESTS_OPERATIONS_H
