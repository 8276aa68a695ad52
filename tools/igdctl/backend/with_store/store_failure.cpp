#include "backend/with_store/store_failure.h"

#include <array>

namespace igdctl {

namespace {

struct Remedy {
  host::StoreError error;
  ExitCode code;
  const char* hint;
};

using host::StoreError;

constexpr std::array kRemedies = {
    Remedy{
        StoreError::kNotOpened, ExitCode::kStore,
        "see that its folder is there and that you may write to it, or name another with --store"},
    Remedy{StoreError::kReadOnly, ExitCode::kStore,
           "see that you may write to the file and that its disk is not mounted read-only"},
    Remedy{StoreError::kFull, ExitCode::kStore, "make room on its disk, then try again"},
    Remedy{StoreError::kIo, ExitCode::kStore, "see whether its disk fails"},
    Remedy{StoreError::kCorrupt, ExitCode::kStore,
           "igdctl store import DUMP --keep-corrupt-aside moves it away and starts from a dump"},
    Remedy{StoreError::kForeign, ExitCode::kStore, "name another file with --store"},
    Remedy{StoreError::kUnknownFormat, ExitCode::kStore, "use the version that made it"},
    Remedy{StoreError::kLocked, ExitCode::kStore, "try again when the other process is done"},
    Remedy{StoreError::kMovedOn, ExitCode::kStore, "try again: another process was faster"},
    Remedy{StoreError::kBatchOpen, ExitCode::kFailed, "report it with the command that led to it"},
    Remedy{StoreError::kTrialOpen, ExitCode::kFailed, "report it with the command that led to it"},
    Remedy{StoreError::kNoTrial, ExitCode::kStore, "try again: the change was given up meanwhile"},
    Remedy{StoreError::kPending, ExitCode::kPending,
           "igdctl store confirm keeps it, igdctl store revert takes it back at once"},
    Remedy{StoreError::kNotPending, ExitCode::kPending,
           "it may have been too late: igdctl store history shows what became of it"},
    Remedy{StoreError::kBadDeadline, ExitCode::kBadInput, "give --confirm 1 to 86400 seconds"},
    Remedy{StoreError::kBadName, ExitCode::kBadInput,
           "use 1 to 64 letters, digits, dots, underscores and hyphens"},
    Remedy{StoreError::kNameTaken, ExitCode::kBadInput,
           "choose another name, or delete that checkpoint first"},
    Remedy{StoreError::kNoCheckpoint, ExitCode::kNotFound, "igdctl store history lists them"},
};

// The sentence as one line without its full stop.
std::string as_problem(const host::StoreResult& result) {
  std::string text = result.text.empty() ? host::name_of(result.error) : result.text;
  while (!text.empty() && (text.back() == '.' || text.back() == '\n')) text.pop_back();
  return text;
}

}  // namespace

Failure store_failure(const host::StoreResult& result) {
  for (const Remedy& remedy : kRemedies) {
    if (remedy.error == result.error) return {remedy.code, as_problem(result), remedy.hint};
  }
  return {ExitCode::kFailed, as_problem(result), "report it with the command that led to it"};
}

}  // namespace igdctl
