// Prints the medians of many measurements as a table of ratios to the map.
//
// usage: ratio_table ALL MEASUREMENT...
//   ALL          is written: every figure, with its median
//   MEASUREMENT  what one process of tree_bench wrote, as JSON
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "workload.h"

namespace {

using bench::kSizes;
using nlohmann::json;

const char* const kPeers[] = {"augeas", "libyang", "sqlite", "lmdb"};
const char* const kCounters[] = {"bytes", "syncs", "KiB"};

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
  return work == "add" || work == "add and write" || work == "delete" ? bench::kBatch : 1;
}

/// The parts of "work/subject/connections" with whatever follows.
std::vector<std::string> parts_of(const std::string& name) {
  const std::size_t first = name.find('/');
  const std::size_t second = name.find('/', first + 1);
  return {name.substr(0, first), name.substr(first + 1, second - first - 1),
          name.substr(second + 1)};
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// Nanoseconds, bytes a parameter, or what a commit costs: by work, connections and subject.
class Figures {
 public:
  void add(const json& measurement) {
    for (const json& run : measurement.at("benchmarks")) {
      const auto parts = parts_of(run.at("name"));
      const int connections = std::stoi(parts[2]);
      for (const char* counter : kCounters) {
        if (!run.contains(counter)) continue;
        const std::string work = parts[0] == counter ? parts[0] : parts[0] + " " + counter;
        figures_[{work, connections, parts[1]}].push_back(run.at(counter));
      }
      if (parts[0] == "bytes") continue;
      figures_[{parts[0], connections, parts[1]}].push_back(run.at("real_time").get<double>() /
                                                            instances_of(parts[0], connections));
    }
  }

  double of(const std::string& work, int connections, const std::string& subject) const {
    const auto found = figures_.find({work, connections, subject});
    return found != figures_.end() ? median(found->second) : 0;
  }

  json all() const {
    json listed = json::array();
    for (const auto& [place, values] : figures_) {
      const auto& [work, connections, subject] = place;
      listed.push_back({{"work", work},
                        {"connections", connections},
                        {"subject", subject},
                        {"median", median(values)},
                        {"figures", values}});
    }
    return listed;
  }

 private:
  using Place = std::tuple<std::string, int, std::string>;
  std::map<Place, std::vector<double>> figures_;
};

void print_row(const Figures& figures, const Row& row, int connections) {
  const double map = figures.of(row.work, connections, "map");
  const double tree = figures.of(row.work, connections, "tree");
  if (map <= 0 || tree <= 0) return;
  std::printf("| %-26s | %5d | %8.1f | %8.1f | %10.2f |", row.label, connections, map, tree,
              tree / map);
  for (const char* peer : kPeers) {
    const double value = figures.of(row.work, connections, peer);
    if (value > 0) {
      std::printf(" %8.1f |", value / map);
    } else {
      std::printf(" %8s |", "-");
    }
  }
  std::printf("\n");
}

void print_rows(const Figures& figures) {
  std::printf("Times in ns. The last five columns are multiples of the map.\n\n");
  std::printf("| %-26s | %5s | %8s | %8s | %10s |", "work", "conn.", "map", "tree", "tree / map");
  for (const char* peer : kPeers) std::printf(" %8s |", peer);
  std::printf("\n|----------------------------|------:|---------:|---------:|-----------:|");
  for (std::size_t i = 0; i < std::size(kPeers); ++i) std::printf("---------:|");
  std::printf("\n");
  for (const Row& row : kRows) {
    for (const int connections : kSizes) print_row(figures, row, connections);
  }
}

void print_commit(const Figures& figures, int connections, const std::string& subject) {
  constexpr double kMicro = 1000;
  std::printf(" %4.0f, %4.2f, %4.1f |", figures.of("commit", connections, subject) / kMicro,
              figures.of("commit syncs", connections, subject),
              figures.of("commit KiB", connections, subject));
}

void print_commits(const Figures& figures) {
  if (figures.of("commit", kSizes[0], "table") <= 0) return;
  std::printf(
      "\nA durable commit of 60 changes, in us: SQLite directly, the same with what undoes the"
      " change, the store.\nBehind each: syncs and KiB written.\n\n"
      "| conn. | SQLite           | with undo        | store            | store / SQLite | store /"
      " with undo |\n"
      "|------:|------------------|------------------|------------------|---------------:|"
      "------------------:|\n");
  for (const int size : kSizes) {
    std::printf("| %5d |", size);
    for (const char* subject : {"table", "undoable", "tree"}) print_commit(figures, size, subject);
    const double tree = figures.of("commit", size, "tree");
    std::printf(" %14.2f | %17.2f |\n", tree / figures.of("commit", size, "table"),
                tree / figures.of("commit", size, "undoable"));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: ratio_table ALL MEASUREMENT...\n");
    return EXIT_FAILURE;
  }
  try {
    Figures figures;
    for (int at = 2; at < argc; ++at) figures.add(json::parse(std::ifstream(argv[at])));
    std::ofstream(argv[1]) << figures.all().dump(1) << '\n';
    print_rows(figures);
    print_commits(figures);
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "ratio_table: %s\n", problem.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
