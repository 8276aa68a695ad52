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
        "check that its folder exists and that you can write to it, or give another with --store"},
    Remedy{StoreError::kNotPrivate, ExitCode::kStore,
           "a store must be private to one user, because it contains passwords"},
    Remedy{StoreError::kReadOnly, ExitCode::kStore,
           "check that you can write to the file and its folder and that its disk is not mounted "
           "read-only"},
    Remedy{StoreError::kFull, ExitCode::kStore,
           "free space on its disk, or raise the file size limit (ulimit -f), then try again"},
    Remedy{StoreError::kTooLarge, ExitCode::kBadInput, "make a smaller change, or several"},
    Remedy{StoreError::kIo, ExitCode::kStore, "check whether its disk is failing"},
    Remedy{StoreError::kUncertain, ExitCode::kUncertain,
           "igdctl store history shows whether it has; check whether the disk is failing"},
    Remedy{StoreError::kCorrupt, ExitCode::kStore,
           "igdctl store import DUMP --keep-corrupt-aside moves it away and starts from a dump"},
    Remedy{StoreError::kForeign, ExitCode::kStore, "give another file with --store"},
    Remedy{StoreError::kUnknownFormat, ExitCode::kStore, "use the version of igdctl that wrote it"},
    Remedy{StoreError::kLocked, ExitCode::kStore, "try again when the other process has finished"},
    Remedy{StoreError::kMovedOn, ExitCode::kStore,
           "try again: another process changed the store first"},
    Remedy{StoreError::kReplaced, ExitCode::kStore,
           "try again: the next command opens the file that is there now"},
    Remedy{StoreError::kBatchOpen, ExitCode::kFailed, "report it with the command that led to it"},
    Remedy{StoreError::kTrialOpen, ExitCode::kFailed, "report it with the command that led to it"},
    Remedy{StoreError::kNoTrial, ExitCode::kStore, "try again: the change was discarded meanwhile"},
    Remedy{StoreError::kPending, ExitCode::kPending,
           "keep it with igdctl store confirm, or undo it with igdctl store revert"},
    Remedy{StoreError::kNotPending, ExitCode::kPending,
           "it may be too late: igdctl store history shows what happened"},
    Remedy{StoreError::kBadDeadline, ExitCode::kBadInput, "give --confirm 1 to 86400 seconds"},
    Remedy{StoreError::kBadName, ExitCode::kBadInput,
           "use 1 to 64 letters, digits, dots, underscores and hyphens"},
    Remedy{StoreError::kNameTaken, ExitCode::kBadInput,
           "choose another name, or delete that checkpoint first"},
    Remedy{StoreError::kNoCheckpoint, ExitCode::kNotFound,
           "igdctl store history lists the checkpoints"},
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
