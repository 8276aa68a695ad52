// That the power cuts find a disk out which does not do what it says.
#include <gtest/gtest.h>

#include "power_cuts.h"
#include "temporary_folder.h"

namespace {

using namespace proof;

constexpr int kStopsApart = 16;
constexpr std::uint32_t kSeeds = 3;

// What is wrong with the stores that power cuts leave on such a disk.
std::string problems_on(Honesty honesty) {
  const TemporaryFolder folder;
  PowerCuts cuts(folder.path(), honesty);
  std::string problems;
  for (int stop = 1; stop <= cuts.stops(); stop += kStopsApart) {
    problems += cuts.check(stop, static_cast<std::uint32_t>(stop), kSeeds);
  }
  return problems;
}

TEST(LyingDisk, ThatSyncsNothingLosesCommitsThatWereReportedDone) {
  const std::string problems = problems_on(Honesty::kSyncsNothing);
  EXPECT_NE(problems.find("neither before nor after the step"), std::string::npos) << problems;
}

TEST(LyingDisk, ThatForgetsNamesIsFoundOut) { EXPECT_NE(problems_on(Honesty::kSyncsNoNames), ""); }

TEST(Disk, KeepsWhatWasSyncedAndLosesTheRestByChance) {
  Disk disk;
  Disk::FileRef file;
  ASSERT_EQ(disk.make("file", file), 0);
  ASSERT_EQ(disk.write(file, 0, "kept"), 0);
  ASSERT_EQ(disk.sync(file), 0);
  ASSERT_EQ(disk.sync_names(), 0);
  const std::string big(2048, 'x');
  ASSERT_EQ(disk.write(file, 4, big), 0);
  int without = 0;
  int with_all = 0;
  int torn = 0;
  for (std::uint32_t seed = 0; seed < 100; ++seed) {
    const std::string left = disk.after_power_cut(seed)->contents().at("file");
    EXPECT_EQ(left.substr(0, 4), "kept");
    if (left == "kept") ++without;
    if (left == "kept" + big) ++with_all;
    if (left != "kept" && left != "kept" + big) ++torn;
  }
  EXPECT_GT(without, 0);
  EXPECT_GT(with_all, 0);
  EXPECT_GT(torn, 0);
}

TEST(Disk, ForgetsANameThatWasNotSynced) {
  Disk disk;
  Disk::FileRef file;
  ASSERT_EQ(disk.make("file", file), 0);
  ASSERT_EQ(disk.sync(file), 0);
  std::size_t lost = 0;
  for (std::uint32_t seed = 0; seed < 100; ++seed) {
    lost += 1 - disk.after_power_cut(seed)->contents().count("file");
  }
  EXPECT_GT(lost, 0U);
  EXPECT_LT(lost, 100U);
}

}  // namespace
