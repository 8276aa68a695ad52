/// What igdctl's exit status says. The table is the one source of the words in help and man pages.
#ifndef IGDCTL_EXIT_CODES_H
#define IGDCTL_EXIT_CODES_H

#include <vector>

namespace igdctl {

enum class ExitCode : int {
  kDone = 0,
  kFailed = 1,
  kBadInput = 2,
  kNotFound = 3,
  kRefused = 4,
  kStore = 5,
  kPending = 6,
  kUnsupported = 7,
  kNeedsConsent = 8,
  kPlatform = 9,
  kFindings = 10,
  kUncertain = 11,
};

struct ExitCodeMeaning {
  ExitCode code;
  const char* meaning;  ///< one sentence without a full stop
};

/// Every code once, in ascending order.
const std::vector<ExitCodeMeaning>& exit_code_meanings();

}  // namespace igdctl

#endif  // IGDCTL_EXIT_CODES_H
