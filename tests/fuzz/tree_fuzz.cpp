// Every operation on trees that hold anything: what reads does not write, and all do what the
// reference does.
#include "harness.h"
#include "hostile_tree.h"
#include "steps.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int kMostSteps = 6;
  const std::vector<fuzz::Step>& all = fuzz::all_steps();
  fuzz::Input input(data, size);
  std::vector<std::size_t> steps = {input.byte() % all.size()};
  for (int count = input.below(kMostSteps); count > 0; --count) {
    steps.push_back(input.byte() % all.size());
  }
  fuzz::HostileTree for_library(input);
  fuzz::HostileTree for_reference = for_library;
  fuzz::Twice twice(for_library, for_reference);
  fuzz::Run run(input, twice);
  for (const std::size_t step : steps) all[step](run);
  return 0;
}
