// Measures one subject in this process. What lies beside it in memory moves its times by a fifth,
// so the subjects do not share a process, and scripts/bench starts many of each. Only work on disk
// does: what a sync takes differs more between two processes than between their subjects.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "benchmarks.h"

namespace {

struct Subject {
  const char* name;
  void (*register_its_work)();
};

const Subject kSubjects[] = {
    {"map", bench::register_map},        {"tree", bench::register_tree},
    {"augeas", bench::register_augeas},  {"libyang", bench::register_libyang},
    {"sqlite", bench::register_sqlite},  {"lmdb", bench::register_lmdb},
    {"durable", bench::register_durable}};

const Subject* subject_named(const char* name) {
  for (const Subject& subject : kSubjects) {
    if (std::strcmp(subject.name, name) == 0) return &subject;
  }
  return nullptr;
}

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

int complain() {
  std::fprintf(stderr, "usage: tree_bench SUBJECT [argument of Google Benchmark]...\nsubjects:");
  for (const Subject& subject : kSubjects) std::fprintf(stderr, " %s", subject.name);
  std::fprintf(stderr, "\n");
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const Subject* const subject = argc == 2 ? subject_named(argv[1]) : nullptr;
  if (subject == nullptr) return complain();
  check_workload();
  subject->register_its_work();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return EXIT_SUCCESS;
}
