// Every scenario against its file. To rewrite the files after an intended change, run with
// IGD_UPDATE_TRANSCRIPTS=1 and read the difference line by line before keeping it.
#include <gtest/gtest.h>

#include "expected_text.h"
#include "scenarios/scenario.h"

namespace transcripts {
namespace {

class TranscriptTest : public ::testing::TestWithParam<Scenario> {};

TEST_P(TranscriptTest, IsAsWritten) {
  const std::string path = file_of(GetParam().name);
  const std::string text = play(GetParam()).text;
  if (update_wanted()) {
    write_file(path, text);
    FAIL() << "rewritten, not compared: " << path;
  }
  const std::string difference = first_difference(read_file(path), text);
  if (!difference.empty()) FAIL() << path << '\n' << difference;
}

TEST_P(TranscriptTest, IsRefusedNothingUnexpected) {
  const Recording recording = play(GetParam());
  const bool expected = GetParam().refusals == Refusals::kExpected;
  EXPECT_EQ(recording.refusals.empty(), !expected) << ::testing::PrintToString(recording.refusals);
}

TEST_P(TranscriptTest, PassesThePlatformsConstantsAndClosesEveryWalk) {
  EXPECT_EQ(play(GetParam()).faults, std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(Scenario, TranscriptTest, ::testing::ValuesIn(all_scenarios()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace transcripts
