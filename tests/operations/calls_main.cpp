// Measures every operation for docs/calls.md; scripts/calls runs it.
//
//   calls run CONNECTIONS          does every operation once. Fails when the calls are not those of
//                                  the law. Under callgrind each operation dumps the instructions
//                                  between entering the library and leaving it, calls of the
//                                  platform excluded, with its title
//   calls table FILE PICTURE       prints the table, and writes the picture. FILE has a line for
//                                  each measurement: title, connections, instructions, with tabs
#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else  // built all the same, so that it stays whole; it then counts calls only
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(title) (void)(title)
#endif

#include <cstdio>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>

#include "calls_plot.h"
#include "calls_report.h"
#include "trial.h"

namespace {

using namespace operations;

constexpr const char* kPlotted[] = {"igd_wan_create",
                                    "igd_wan_set_params",
                                    "igd_wan_get_params",
                                    "igd_wan_destory",
                                    "igd_wan_get_bridge_info_from_phy",
                                    "igd_wan_set_params, exchanging its ports",
                                    "igd_wan_list, cached",
                                    "igd_wan_status"};

const Law& law_of(const std::string& title) {
  for (const Law& law : all_laws()) {
    if (title == law.operation) return law;
  }
  throw std::runtime_error("no law for " + title);
}

void toggle_collection() { CALLGRIND_TOGGLE_COLLECT; }

int run(long connections) {
  const Start start = uniform_gateway(static_cast<int>(connections), static_cast<int>(kReportPorts),
                                      static_cast<int>(kReportRoutes));
  const Size size = {connections, kReportPorts, kReportRoutes};
  int broken = 0;
  allocations::call_at_border(toggle_collection);
  for (const Operation& operation : all_operations()) {
    const std::string title = operation.title();  // callgrind keeps no copy
    Trials trials(operation, start);
    (void)trials.without_fault();
    CALLGRIND_ZERO_STATS;
    const CallCounts counts = trials.without_fault().calls;
    CALLGRIND_DUMP_STATS_AT(title.c_str());
    if (counts == counts_of(law_of(title), size)) continue;
    std::cerr << title << " breaks its law at " << connections << " connections\n";
    ++broken;
  }
  return broken == 0 ? 0 : 1;
}

using Measurements = std::map<std::string, std::map<long, long>>;

Measurements read_measurements(const std::string& file) {
  Measurements measurements;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string title;
    long connections = 0;
    long instructions = 0;
    if (!std::getline(fields, title, '\t') || !(fields >> connections >> instructions)) {
      throw std::runtime_error("not a measurement: " + line);
    }
    measurements[title][connections] = instructions;
  }
  return measurements;
}

void print_table(const Measurements& measurements) {
  std::cout << "| operation | calls | 1 | 8 | 64 | 512 | 1 | 8 | 64 | 512 |\n"
               "|---|---|--:|--:|--:|--:|--:|--:|--:|--:|\n";
  for (const Law& law : all_laws()) {
    std::cout << row_of(law);
    for (const long connections : kReportSizes) {
      std::cout << ' ' << measurements.at(law.operation).at(connections) << " |";
    }
    std::cout << '\n';
  }
}

std::string picture(const Measurements& measurements) {
  Panel calls{"platform calls", {}};
  Panel instructions{"instructions of the library", {}};
  for (const char* title : kPlotted) {
    calls.curves.push_back({title, {}});
    instructions.curves.push_back({title, {}});
    for (const long connections : kReportSizes) {
      calls.curves.back().values.push_back(total_of(law_of(title), connections));
      instructions.curves.back().values.push_back(measurements.at(title).at(connections));
    }
  }
  return plot({kReportSizes.begin(), kReportSizes.end()}, {calls, instructions});
}

int make_table(const std::string& file, const std::string& picture_file) {
  const Measurements measurements = read_measurements(file);
  print_table(measurements);
  std::ofstream(picture_file) << picture(measurements);
  return 0;
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc == 3 && std::strcmp(argv[1], "run") == 0) return run(std::stol(argv[2]));
  if (argc == 4 && std::strcmp(argv[1], "table") == 0) return make_table(argv[2], argv[3]);
  std::cerr << "usage: calls run CONNECTIONS | calls table FILE PICTURE\n";
  return 2;
} catch (const std::exception& error) {
  std::cerr << "calls: " << error.what() << '\n';
  return 1;
}
