/// The clock of deadlines: a time step or a restart cannot make a change look confirmed.
#ifndef PLATFORM_HOST_BOOT_CLOCK_H
#define PLATFORM_HOST_BOOT_CLOCK_H

#include <string>

#include "host_store.h"
#include "store/store_file.h"

namespace host {

/// Of the options' clock, else of the machine. An identity of "" equals no other, not even itself.
BootTime now(const StoreOptions& options);

PendingRow pending_row(Generation generation, const std::string& label, const BootTime& start,
                       int seconds);

/// Milliseconds until the deadline; 0 when it passed, or when that cannot be told any more.
std::int64_t time_left(const PendingRow& row, const BootTime& time);

}  // namespace host

#endif  // PLATFORM_HOST_BOOT_CLOCK_H
