#include "store/boot_clock.h"

#include <ctime>
#include <fstream>

namespace host {
namespace {

constexpr std::int64_t kPerSecond = 1000;
constexpr std::int64_t kNanoseconds = 1000000;  // in a millisecond

// Read once: it is the same as long as the process lives.
const std::string& boot_identity() {
  static const std::string* const identity = [] {
    auto* text = new std::string;
    std::ifstream("/proc/sys/kernel/random/boot_id") >> *text;
    return text;
  }();
  return *identity;
}

}  // namespace

BootTime now(const StoreOptions& options) {
  if (options.clock) return options.clock();
  timespec time = {};
  (void)clock_gettime(CLOCK_BOOTTIME, &time);
  return {boot_identity(), std::int64_t{time.tv_sec} * kPerSecond + time.tv_nsec / kNanoseconds};
}

PendingRow pending_row(Generation generation, const std::string& label, const BootTime& start,
                       int seconds) {
  return {generation, label, start.boot, start.milliseconds,
          start.milliseconds + std::int64_t{seconds} * kPerSecond};
}

std::int64_t time_left(const PendingRow& row, const BootTime& time) {
  const bool is_this_boot = !row.boot.empty() && row.boot == time.boot;
  const bool is_past = time.milliseconds < row.started || time.milliseconds >= row.deadline;
  return is_this_boot && !is_past ? row.deadline - time.milliseconds : 0;
}

}  // namespace host
