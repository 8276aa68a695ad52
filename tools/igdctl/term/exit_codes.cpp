#include "term/exit_codes.h"

namespace igdctl {

const std::vector<ExitCodeMeaning>& exit_code_meanings() {
  static const std::vector<ExitCodeMeaning> meanings = {
      {ExitCode::kDone, "done, or nothing to do"},
      {ExitCode::kFailed, "an unexpected failure, described by the message"},
      {ExitCode::kBadInput, "bad input: wrong usage or a wrong value; nothing changed"},
      {ExitCode::kNotFound,
       "no such connection, bridge, route, parameter or checkpoint; nothing changed"},
      {ExitCode::kRefused,
       "a check failed; nothing changed; --force overrides it where that cannot damage data"},
      {ExitCode::kStore,
       "the store cannot be used: locked, damaged, read-only, full or of an unknown format"},
      {ExitCode::kPending, "a change is still waiting for confirmation, or none is waiting"},
      {ExitCode::kUnsupported, "this build cannot do that"},
      {ExitCode::kNeedsConsent, "the change needs --confirm SECONDS or --yes; nothing changed"},
      {ExitCode::kPlatform,
       "the platform refused a write or the commit; nothing changed, or on a "
       "gateway the message says what may be in effect"},
      {ExitCode::kFindings, "doctor found contradictions"},
      {ExitCode::kUncertain,
       "the disk failed at the end of the change, which may or may not have landed; igdctl store "
       "history shows which"},
  };
  return meanings;
}

}  // namespace igdctl
