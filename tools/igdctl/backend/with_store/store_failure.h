/// Words for what the reference platform's store says, for the commands that work on it.
#ifndef IGDCTL_STORE_FAILURE_H
#define IGDCTL_STORE_FAILURE_H

#include "host_store.h"
#include "term/failure.h"

namespace igdctl {

/// The failure of a command for which the store gave this result: its sentence, what to do about
/// it, and the exit code of its kind (kStore, kPending, kNotFound or kBadInput).
Failure store_failure(const host::StoreResult& result);

/// Throws it unless the result is ok.
inline void require(const host::StoreResult& result) {
  if (!result.ok()) throw store_failure(result);
}

}  // namespace igdctl

#endif  // IGDCTL_STORE_FAILURE_H
