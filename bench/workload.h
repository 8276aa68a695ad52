/// The tree that every subject of the benchmarks holds: names, values, and orders of access.
#ifndef BENCH_WORKLOAD_H
#define BENCH_WORKLOAD_H

#include <cstddef>
#include <string>
#include <vector>

#include "host_platform.h"

namespace bench {

/// A parameter with the two texts that are written to it in turn.
struct Entry {
  std::string name;
  std::string first;
  std::string second;
};

/// So many connection devices in one WAN device, each with its link, an IP and a PPP connection
/// and their statistics: 118 parameters a connection, all with a value of the kind their type says.
struct Workload {
  int connections = 0;
  std::vector<Entry> entries;           ///< in the order of a listing
  std::vector<Entry> shuffled;          ///< the same, for reading
  std::vector<Entry> shuffled_writes;   ///< without the counts, which a tree computes
  std::vector<std::string> enumerated;  ///< names that kAddressingType enumerates
};

/// Puts a workload into a tree that has no WAN device.
void fill(host::Tree& tree, const Workload& work);

/// Made at first use.
const Workload& workload(int connections);

constexpr int kSizes[] = {8, 100, 1000};

/// The table to which instances are added, and the parameters below each instance, relative to it.
/// A LANDevice has 25 parameters, some of them in a single object; four are counts.
/// Added and deleted so many at a time, so that reading the clock does not show.
constexpr int kBatch = 16;
extern const char kAddedTable[];
const std::vector<Entry>& added_parameters();
const std::vector<Entry>& added_writes();  ///< those that are no counts

}  // namespace bench

#endif  // BENCH_WORKLOAD_H
