// A platform that gives the library nothing until a test says so, and counts how it is asked.
#ifndef IGD_TESTS_BARE_PLATFORM_H
#define IGD_TESTS_BARE_PLATFORM_H

#include <string>
#include <vector>

#include "common_util.h"

namespace bare {

/// A context that hands out what it holds, and notes what was asked for.
class Context final : public PlatformContext {
 public:
  MibAccess* mibAccess() override;
  void* secondService() override;

  MibAccess* mib = nullptr;
  std::vector<std::string> asked;
};

/// What getContext answers, and how often it was called.
extern PlatformContext* context;
extern int context_calls;

/// How often getContext had been called when the first line was logged since take_log().
extern int context_calls_before_log;

/// How much had been printed when getContext was called first since this was below 0. For a
/// standard output that is a file.
extern long printed_before_context;

/// What was logged since the last call, one text a line.
std::string take_log();

}  // namespace bare

#endif  // IGD_TESTS_BARE_PLATFORM_H
