// Runs the library beside its model, or repeats a sequence that failed.
//
// usage: model_check SEQUENCES SEED
//        model_check --replay FILE        "-" for standard input
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "check.h"

namespace {

constexpr int kLongRun = 2000;  ///< from here on every outcome must have come up

int usage() {
  std::cerr << "usage: model_check SEQUENCES SEED | model_check --replay FILE\n";
  return 2;
}

int replay(const std::string& file) {
  std::ifstream opened(file);
  if (file != "-" && !opened) {
    std::cerr << "cannot read " << file << '\n';
    return 2;
  }
  std::stringstream text;
  text << (file == "-" ? std::cin.rdbuf() : opened.rdbuf());
  const model::Steps steps = model::read_steps(text.str());
  model::Tally tally;
  const auto failure = model::run(steps, tally);
  if (failure) {
    std::cout << model::shown(steps, *failure);
    return 1;
  }
  std::cout << steps.size() << " steps, as the model says\n";
  return 0;
}

int report_failure(const model::Report& report, std::uint64_t seed) {
  std::cout << "after " << report.sequences << " sequences of seed " << seed
            << " the library and the model part. The shortest sequence that shows it:\n\n"
            << model::shown(report.shortest, report.failure)
            << "\nTo repeat it, put these lines into a file: scripts/model --replay FILE\n";
  return 1;
}

int check(int sequences, std::uint64_t seed) {
  const auto start = std::chrono::steady_clock::now();
  const model::Report report = model::check(sequences, seed);
  if (!report.ok) return report_failure(report, seed);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  std::cout << report.tally.table();
  const std::vector<std::string> missing = report.tally.missing();
  if (sequences >= kLongRun && !missing.empty()) {
    for (const std::string& outcome : missing) std::cout << "never came up: " << outcome << '\n';
    return 1;
  }
  std::printf("%ld sequences, %ld steps, seed %llu: as the model says, in %.0f s\n",
              report.sequences, report.tally.steps(), static_cast<unsigned long long>(seed),
              taken.count());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc == 3 && std::strcmp(argv[1], "--replay") == 0) return replay(argv[2]);
    if (argc != 3) return usage();
    std::size_t end = 0;
    const int sequences = std::stoi(argv[1], &end);
    if (sequences <= 0 || argv[1][end] != '\0') return usage();
    const std::uint64_t seed = std::stoull(argv[2], &end);
    return argv[2][end] != '\0' ? usage() : check(sequences, seed);
  } catch (const std::invalid_argument& error) {
    std::cerr << error.what() << '\n';
    return usage();
  } catch (const std::out_of_range&) {
    return usage();
  }
}
