// Every file against what is recorded, and every recording against the rules of calls.
// scripts/transcripts shows the differences as a whole, and writes the files anew when it is told
// to.
#include <gtest/gtest.h>

#include "documents.h"
#include "expected_text.h"

namespace transcripts {
namespace {

class DocumentTest : public ::testing::TestWithParam<Document> {};

TEST_P(DocumentTest, IsAsWritten) {
  const std::string path = file_of(GetParam().name);
  const std::string difference = first_difference(read_file(path), GetParam().text());
  if (!difference.empty()) FAIL() << path << '\n' << difference;
}

INSTANTIATE_TEST_SUITE_P(Transcript, DocumentTest, ::testing::ValuesIn(all_documents()),
                         [](const auto& test) { return test.param.name; });

class TranscriptTest : public ::testing::TestWithParam<Scenario> {};

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
