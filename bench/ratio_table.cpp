#include "ratio_table.h"

#include <cstddef>
#include <cstdio>
#include <iterator>

#include "memory_figures.h"
#include "workload.h"

namespace bench {
namespace {

const char* const kPeers[] = {"augeas", "libyang", "sqlite", "lmdb"};

struct Row {
  const char* work;
  const char* label;
};
const Row kRows[] = {
    {"get", "get"},
    {"set", "set"},
    {"enumerate", "enumerate, an instance"},
    {"add", "add an instance of 25"},
    {"add and write", "add it and write 21 values"},
    {"delete", "delete it"},
    {"open", "open"},
    {"bytes", "bytes a parameter"},
};

/// How many instances one iteration handles.
int instances_of(const std::string& work, int connections) {
  if (work == "enumerate") return connections;
  return work == "add" || work == "add and write" || work == "delete" ? kBatch : 1;
}

/// The parts of "work/subject/connections" with whatever follows.
std::vector<std::string> parts_of(const std::string& name) {
  const std::size_t first = name.find('/');
  const std::size_t second = name.find('/', first + 1);
  return {name.substr(0, first), name.substr(first + 1, second - first - 1),
          name.substr(second + 1)};
}

}  // namespace

bool RatioTable::ReportContext(const Context& /*context*/) {
  for (const MemoryFigure& memory : memory_figures()) {
    figures_[{"bytes", memory.connections, memory.subject}] = memory.bytes;
  }
  return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.aggregate_name != "median") continue;
    const auto parts = parts_of(run.run_name.str());
    const int connections = std::stoi(parts[2]);
    figures_[{parts[0], connections, parts[1]}] =
        run.GetAdjustedRealTime() / instances_of(parts[0], connections);
    for (const auto& [name, count] : run.counters) {
      figures_[{parts[0] + " " + name, connections, parts[1]}] = count;
    }
  }
}

double RatioTable::figure(const std::string& work, int connections,
                          const std::string& subject) const {
  const auto found = figures_.find({work, connections, subject});
  return found != figures_.end() ? found->second : 0;
}

void RatioTable::print_row(const std::string& work, const std::string& label,
                           int connections) const {
  const double map = figure(work, connections, "map");
  const double tree = figure(work, connections, "tree");
  if (map <= 0 || tree <= 0) return;
  std::printf("| %-26s | %5d | %8.1f | %8.1f | %10.2f |", label.c_str(), connections, map, tree,
              tree / map);
  for (const char* peer : kPeers) {
    const double value = figure(work, connections, peer);
    if (value > 0) {
      std::printf(" %8.1f |", value / map);
    } else {
      std::printf(" %8s |", "-");
    }
  }
  std::printf("\n");
}

void RatioTable::print_commits() const {
  if (figure("commit", kSizes[0], "table") <= 0) return;
  std::printf(
      "\nA durable commit of 60 changes, in us: SQLite directly, the same with what undoes the"
      " change, the store.\nBehind each: syncs and KiB written.\n\n"
      "| conn. | SQLite           | with undo        | store            | store / SQLite | store /"
      " with undo |\n"
      "|------:|------------------|------------------|------------------|---------------:|"
      "------------------:|\n");
  for (const int size : kSizes) {
    std::printf("| %5d |", size);
    for (const char* subject : {"table", "undoable", "tree"}) print_commit(size, subject);
    const double tree = figure("commit", size, "tree");
    std::printf(" %14.2f | %17.2f |\n", tree / figure("commit", size, "table"),
                tree / figure("commit", size, "undoable"));
  }
}

void RatioTable::print_commit(int connections, const std::string& subject) const {
  constexpr double kMicro = 1000;
  std::printf(" %4.0f, %4.2f, %4.1f |", figure("commit", connections, subject) / kMicro,
              figure("commit syncs", connections, subject),
              figure("commit KiB", connections, subject));
}

void RatioTable::Finalize() {
  std::printf("Times in ns. The last five columns are multiples of the map.\n\n");
  std::printf("| %-26s | %5s | %8s | %8s | %10s |", "work", "conn.", "map", "tree", "tree / map");
  for (const char* peer : kPeers) std::printf(" %8s |", peer);
  std::printf("\n|----------------------------|------:|---------:|---------:|-----------:|");
  for (std::size_t i = 0; i < std::size(kPeers); ++i) std::printf("---------:|");
  std::printf("\n");
  for (const Row& row : kRows) {
    for (const int connections : kSizes) print_row(row.work, row.label, connections);
  }
  print_commits();
}

}  // namespace bench
