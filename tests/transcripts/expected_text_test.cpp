#include "expected_text.h"

#include <gtest/gtest.h>

namespace transcripts {
namespace {

TEST(TranscriptDifference, IsEmptyForEqualTexts) {
  EXPECT_EQ(first_difference("a\nb\n", "a\nb\n"), "");
}

TEST(TranscriptDifference, ShowsTheLinesBeforeAndBothVersions) {
  EXPECT_EQ(first_difference("a\nb\nc\nd\n", "a\nb\nx\nd\n"),
            "line 3:\n a\n b\n-c\n-d\n-(end)\n+x\n+d\n+(end)\n");
}

TEST(TranscriptDifference, ShowsThatATextEndsEarly) {
  EXPECT_EQ(first_difference("a\nb\n", "a\n"), "line 2:\n a\n-b\n-(end)\n+(end)\n");
}

TEST(TranscriptDifference, ShowsAtMostFiveLinesBefore) {
  EXPECT_EQ(first_difference("1\n2\n3\n4\n5\n6\n", "1\n2\n3\n4\n5\n6\n7\n"),
            "line 7:\n 2\n 3\n 4\n 5\n 6\n-(end)\n+7\n+(end)\n");
}

TEST(TranscriptDifference, NoticesAMissingLineEnd) { EXPECT_NE(first_difference("a\n", "a"), ""); }

}  // namespace
}  // namespace transcripts
