#include "term/exit_codes.h"

namespace igdctl {

const std::vector<ExitCodeMeaning>& exit_code_meanings() {
  static const std::vector<ExitCodeMeaning> meanings = {
      {ExitCode::kDone, "done, or there was nothing to do"},
      {ExitCode::kFailed, "something unexpected failed; the message names it"},
      {ExitCode::kBadInput, "bad input, in the usage or in a value; nothing changed"},
      {ExitCode::kNotFound,
       "no such connection, bridge, route, parameter or checkpoint; nothing changed"},
      {ExitCode::kRefused,
       "a check says no; nothing changed, and --force goes on where that is safe for data"},
      {ExitCode::kStore,
       "the store cannot be used: locked, damaged, read-only, full or of an unknown format"},
      {ExitCode::kPending,
       "a change that waits for its confirmation stands in the way, or none "
       "does and there is nothing to confirm"},
      {ExitCode::kUnsupported, "this build cannot do that"},
      {ExitCode::kNeedsConsent, "the change needs --confirm SECONDS or --yes; nothing changed"},
      {ExitCode::kPlatform,
       "the platform refused a write or the commit; nothing changed, or on a "
       "gateway the message says what may stand"},
      {ExitCode::kFindings, "doctor found something"},
  };
  return meanings;
}

}  // namespace igdctl
