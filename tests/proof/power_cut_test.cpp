// What a power cut leaves of a store.
#include <gtest/gtest.h>

#include <cstdio>

#include "power_cuts.h"
#include "temporary_folder.h"

namespace {

using namespace proof;

TEST(PowerCut, LeavesTheStateBeforeOrAfterTheCommitInFlight) {
  constexpr std::uint32_t kSeeds = 2;
  constexpr std::uint32_t kFewest = 1000;
  const TemporaryFolder folder;
  PowerCuts cuts(folder.path());
  std::uint32_t count = 0;
  for (int stop = 1; stop <= cuts.stops(); ++stop) {
    const auto first = static_cast<std::uint32_t>(stop) * kSeeds;
    EXPECT_EQ(cuts.check(stop, first, kSeeds), "");
    count += kSeeds;
  }
  EXPECT_GE(count, kFewest);
  std::printf("%u power cuts, at each of %d changes of the disk; %zu commits\n", count,
              cuts.stops(), cuts.states());
}

}  // namespace
