/// Trials: batches that hold commits back until somebody decides.
#include "store/store_impl.h"

namespace host {

StoreResult Store::Impl::begin_trial() {
  if (trial) return {StoreError::kTrialOpen, "a trial is open already"};
  const bool has_batch = !is_forked() && (batch != 0 || !poisoned.ok());
  if (has_batch) return {StoreError::kBatchOpen, "there are writes that are not committed"};
  try {
    if (is_forked()) open_anew_after_fork();
    refresh();
    begin_batch();
    if (pending) throw StoreFailure(StoreError::kPending, "a change waits for its confirmation");
  } catch (const StoreFailure& failure) {
    drop_batch();
    return failure.result();
  }
  trial = true;
  return {};
}

StoreResult Store::Impl::accept(const std::string& label) {
  if (!trial) return {StoreError::kNoTrial, "no trial is open"};
  trial = false;
  return commit(label);
}

}  // namespace host
