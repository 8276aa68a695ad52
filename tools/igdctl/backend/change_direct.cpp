#include "backend/change.h"
#include "cli/session.h"

namespace igdctl {

namespace {

constexpr int kCommitMode = 1;

void refuse_what_needs_a_store(const ChangeOptions& options) {
  if (!options.dry_run && options.confirm == 0) return;
  throw Failure(ExitCode::kUnsupported,
                std::string(options.dry_run ? "--dry-run" : "--confirm") +
                    " needs a store, which a gateway's own platform has not",
                "try the change on a workstation first: there the same command knows both");
}

}  // namespace

void Change::needs_consent(const std::string& why) {
  consent_ = why;
  if (!options_.yes) fail_without_consent();
}

ChangeOutcome Change::run(const std::string&, const std::function<void()>& work) {
  refuse_what_needs_a_store(options_);
  MibAccess& tree = session_.tree();
  work();
  if (no_difference_) return ChangeOutcome::kNothing;
  if (tree.commit(kCommitMode) == 0) return ChangeOutcome::kDone;
  throw Failure(ExitCode::kPlatform, "the platform refused the commit; the writes may stand",
                "read the connections back before you go on");
}

}  // namespace igdctl
