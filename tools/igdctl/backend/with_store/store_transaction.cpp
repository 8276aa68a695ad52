// Changes as trials of the store.
#include <nlohmann/json.hpp>

#include "backend/with_store/difference_view.h"
#include "backend/with_store/store_backend.h"
#include "backend/with_store/store_failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

// The library writes bare names for connection objects that are missing, and relies on their
// refusal.
bool is_expected(const host::Refusal& refusal) {
  return refusal.name.find('.') == std::string::npos;
}

void fail_on_refusals(const host::Tree& tree) {
  std::vector<Problem> problems;
  for (const host::Refusal& refusal : tree.refusals()) {
    if (is_expected(refusal)) continue;
    problems.push_back(
        {refusal.call + " of " + in_quotes(refusal.name) + " was refused: " + refusal.reason,
         "nothing was changed; igdctl doctor shows whether the tree contradicts itself"});
  }
  if (!problems.empty()) throw Failure(ExitCode::kPlatform, problems);
}

void refuse_while_pending(host::Store& store) {
  const std::optional<host::PendingChange> pending = store.pending();
  if (!pending) return;
  throw Failure(ExitCode::kPending,
                "the change " + in_quotes(pending->label) + " is still waiting for confirmation",
                "keep it with igdctl store confirm, or undo it with igdctl store revert");
}

class Trial : public Transaction {
 public:
  explicit Trial(host::Store& store) : store_(store) {
    require(store.begin_trial());
    store.tree().clear_refusals();
  }
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;
  ~Trial() override {
    if (store_.in_trial()) store_.discard();
  }

  std::optional<ChangeEffect> effect(bool show_secrets, bool all_writes) override {
    fail_on_refusals(store_.tree());
    const host::Difference difference = store_.difference();
    const std::vector<host::WriteStep>& all = store_.plan();
    const std::vector<host::WriteStep> plan = all_writes ? all : changing_steps(all);
    Json json = {{"plan", json_of(plan, show_secrets)},
                 {"difference", json_of(difference, show_secrets)}};
    return ChangeEffect{
        difference.empty(),
        text_of(plan, show_secrets, all.size() - plan.size()) + text_of(difference, show_secrets),
        std::make_shared<const Json>(std::move(json))};
  }

  void land(const std::string& label, int confirm) override {
    require(confirm == 0 ? store_.accept(label) : store_.accept_pending(confirm, label));
  }

 private:
  host::Store& store_;
};

}  // namespace

std::unique_ptr<Transaction> StoreBackend::begin_change() {
  end_read_hold();
  host::Store& store = *host::process_store();
  refuse_while_pending(store);
  return std::make_unique<Trial>(store);
}

}  // namespace igdctl
