#include <nlohmann/json.hpp>

#include "backend/change.h"
#include "backend/difference_view.h"
#include "backend/platform.h"
#include "backend/store_failure.h"
#include "cli/session.h"
#include "host_store.h"
#include "term/text.h"

namespace igdctl {

namespace {

// A trial that is discarded unless it was accepted.
class Trial {
 public:
  explicit Trial(host::Store& store) : store_(store) {
    require(store.begin_trial());
    store.tree().clear_refusals();
  }
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;
  ~Trial() {
    if (store_.in_trial()) store_.discard();
  }

 private:
  host::Store& store_;
};

// The library writes bare names for connection objects that are not there, and counts on their
// refusal.
bool is_expected(const host::Refusal& refusal) {
  return refusal.name.find('.') == std::string::npos;
}

void look_at_refusals(const host::Tree& tree) {
  std::vector<Problem> problems;
  for (const host::Refusal& refusal : tree.refusals()) {
    if (is_expected(refusal)) continue;
    problems.push_back(
        {refusal.call + " of " + in_quotes(refusal.name) + " was refused: " + refusal.reason,
         "nothing was changed; igdctl doctor tells whether the tree contradicts itself"});
  }
  if (!problems.empty()) throw Failure(ExitCode::kPlatform, problems);
}

host::Store& open_store(Session& session) {
  (void)session.tree();
  end_read_hold();
  return *host::process_store();
}

void refuse_while_pending(host::Store& store) {
  const std::optional<host::PendingChange> pending = store.pending();
  if (!pending) return;
  throw Failure(ExitCode::kPending,
                "the change " + in_quotes(pending->label) + " still waits for its confirmation",
                "igdctl store confirm keeps it, igdctl store revert takes it back at once");
}

}  // namespace

void Change::needs_consent(const std::string& why) { consent_ = why; }

ChangeOutcome Change::run(const std::string& label, const std::function<void()>& work) {
  host::Store& store = open_store(session_);
  refuse_while_pending(store);
  const Trial trial(store);
  work();
  look_at_refusals(store.tree());
  const host::Difference difference = store.difference();
  if (options_.dry_run) {
    const bool secrets = session_.options.show_secrets;
    shown_text_ = text_of(store.plan(), secrets) + text_of(difference, secrets);
    add_detail("plan", json_of(store.plan(), secrets));
    add_detail("difference", json_of(difference, secrets));
    return ChangeOutcome::kShown;
  }
  if (difference.empty()) return ChangeOutcome::kNothing;
  if (!consent_.empty() && !options_.yes && options_.confirm == 0) fail_without_consent();
  if (options_.confirm == 0) {
    require(store.accept(label));
    return ChangeOutcome::kDone;
  }
  require(store.accept_pending(options_.confirm, label));
  return ChangeOutcome::kPending;
}

}  // namespace igdctl
