#include "lines.h"

#include <gtest/gtest.h>

namespace transcripts {
namespace {

// What the edits make of the lines.
Lines edited(const Lines& before, const std::vector<Edit>& edits) {
  Lines result;
  std::size_t at = 0;
  for (const Edit& edit : edits) {
    for (; at < edit.at; ++at) result.push_back(before[at]);
    result.insert(result.end(), edit.instead.begin(), edit.instead.end());
    at += edit.gone;
  }
  for (; at < before.size(); ++at) result.push_back(before[at]);
  return result;
}

TEST(Edits, AreNoneForEqualLines) { EXPECT_TRUE(edits_between({"a", "b"}, {"a", "b"}).empty()); }

TEST(Edits, NameTheLinesThatGoAndThoseInTheirPlace) {
  const std::vector<Edit> edits = edits_between({"a", "b", "c", "d"}, {"a", "x", "y", "d", "e"});
  ASSERT_EQ(edits.size(), 2U);
  EXPECT_EQ(edits[0].at, 1U);
  EXPECT_EQ(edits[0].gone, 2U);
  EXPECT_EQ(edits[0].instead, (Lines{"x", "y"}));
  EXPECT_EQ(edits[1].at, 4U);
  EXPECT_EQ(edits[1].gone, 0U);
  EXPECT_EQ(edits[1].instead, (Lines{"e"}));
}

TEST(Edits, MakeOneTextOfTheOther) {
  const Lines texts[] = {{},
                         {"a"},
                         {"a", "a"},
                         {"a", "b", "a"},
                         {"b", "a", "b", "c"},
                         {"c", "b", "a"},
                         {"x", "a", "y", "b", "a", "z"}};
  for (const Lines& before : texts) {
    for (const Lines& after : texts) {
      EXPECT_EQ(edited(before, edits_between(before, after)), after);
    }
  }
}

}  // namespace
}  // namespace transcripts
