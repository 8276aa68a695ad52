// The power cuts of the tests, with as many outcomes of each as one has time for.
//
//   powercut SEEDS              at every stop, that many outcomes
//   powercut SEEDS STOP SEED    at one stop, outcomes from that seed on: repeats a failure
//
// Ends with 0 when the store was whole each time, 1 when it was not, 2 when it is misused.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "power_cuts.h"
#include "temporary_folder.h"

namespace {

constexpr int kReportEvery = 50;

// -1 for what is no number.
int number_from(const char* text) {
  char* end = nullptr;
  const long number = std::strtol(text, &end, 10);
  return *end == '\0' && number >= 0 && number <= 1000000000 ? static_cast<int>(number) : -1;
}

struct Outcome {
  long cuts = 0;
  long bad_stops = 0;
};

void check(proof::PowerCuts& cuts, int stop, int first_seed, int seeds, Outcome& outcome) {
  const std::string problems =
      cuts.check(stop, static_cast<std::uint32_t>(first_seed), static_cast<std::uint32_t>(seeds));
  outcome.cuts += seeds;
  if (problems.empty()) return;
  ++outcome.bad_stops;
  std::printf("%s", problems.c_str());
}

void check_all(proof::PowerCuts& cuts, int seeds, Outcome& outcome) {
  for (int stop = 1; stop <= cuts.stops(); ++stop) {
    check(cuts, stop, stop * seeds, seeds, outcome);
    if (stop % kReportEvery != 0) continue;
    std::printf("stop %d of %d: %ld power cuts\n", stop, cuts.stops(), outcome.cuts);
    std::fflush(stdout);
  }
}

}  // namespace

int main(int count, char** arguments) {
  const int seeds = count > 1 ? number_from(arguments[1]) : -1;
  const int stop = count == 4 ? number_from(arguments[2]) : 1;
  const int first_seed = count == 4 ? number_from(arguments[3]) : 0;
  if ((count != 2 && count != 4) || seeds < 1 || stop < 1 || first_seed < 0) {
    std::fprintf(stderr, "usage: powercut SEEDS [STOP SEED]\n");
    return 2;
  }
  const proof::TemporaryFolder folder;
  proof::PowerCuts cuts(folder.path());
  Outcome outcome;
  if (count == 4) {
    check(cuts, stop, first_seed, seeds, outcome);
  } else {
    check_all(cuts, seeds, outcome);
  }
  std::printf(
      "%ld power cuts, %zu commits in the life, %d changes of its disk; %ld stops with"
      " problems\n",
      outcome.cuts, cuts.states(), cuts.stops(), outcome.bad_stops);
  return cuts.stops() > 0 && outcome.bad_stops == 0 ? 0 : 1;
}
