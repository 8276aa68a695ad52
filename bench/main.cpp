// Measures every subject in one run, repeats interleaved, and prints the medians as ratios.
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "benchmarks.h"
#include "host_platform.h"
#include "ratio_table.h"

namespace {

// A figure for work that was not done would be worse than none.
void check_workload() {
  for (const int connections : bench::kSizes) {
    const auto& work = bench::workload(connections);
    const auto count = static_cast<std::size_t>(connections);
    if (work.entries.size() == 118 * count && work.enumerated.size() == count) continue;
    std::fprintf(stderr, "the data model no longer has 118 parameters a connection\n");
    std::exit(EXIT_FAILURE);
  }
}

}  // namespace

int main(int argc, char** argv) {
  // Arguments of the command line come later and win.
  char interleaved[] = "--benchmark_enable_random_interleaving=true";
  char repeats[] = "--benchmark_repetitions=7";
  char time[] = "--benchmark_min_time=0.05";
  std::vector<char*> arguments = {argv[0], interleaved, repeats, time};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;

  check_workload();
  bench::register_map();
  bench::register_tree();
  bench::register_augeas();
  bench::register_libyang();
  bench::register_sqlite();
  bench::register_lmdb();
  bench::register_durable();
  bench::RatioTable table;
  benchmark::RunSpecifiedBenchmarks(&table);
  benchmark::Shutdown();
  return EXIT_SUCCESS;
}
