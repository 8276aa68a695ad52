// What a power cut leaves of a store.
#include <gtest/gtest.h>

#include <cstdio>

#include "power_cuts.h"
#include "stride.h"
#include "temporary_folder.h"

namespace {

using namespace proof;

TEST(PowerCut, LeavesTheStateBeforeOrAfterTheCommitInFlight) {
  constexpr std::uint32_t kFewest = 1000 / kStride;
  const TemporaryFolder folder;
  PowerCuts cuts(folder.path());
  std::uint32_t count = 0;
  for (int stop = 1; stop <= cuts.stops(); stop += kStride) {
    const std::uint32_t seeds = 1 + count % 3 % 2;
    EXPECT_EQ(cuts.check(stop, count, seeds), "");
    count += seeds;
  }
  EXPECT_GE(count, kFewest);
  std::printf("%u power cuts, at each of %d changes of the disk; %zu commits\n", count,
              cuts.stops(), cuts.states());
}

}  // namespace
