#include "folded_lines.h"

#include <gtest/gtest.h>

namespace transcripts {
namespace {

const std::string kWriting =
    "| vornik igd_wan_set_params:#  info->connect_mode:3 \n"
    "| vornik igd_wan_set_params:#  info->connection_class:1 \n";

TEST(FoldedLines, SayOnceWhatWritingPrintsAfterEachStep) {
  EXPECT_EQ(fold(kWriting), "progress igd_wan_set_params:# connect_mode:3 connection_class:1\n");
  EXPECT_EQ(fold(kWriting + kWriting),
            "progress igd_wan_set_params:# connect_mode:3 connection_class:1 x2\n");
}

TEST(FoldedLines, CountWhatReadingPrintsAfterEachStep) {
  const std::string line = "| vornik igd_wan_get_params:#\n";
  EXPECT_EQ(fold(line), "progress igd_wan_get_params:#\n");
  EXPECT_EQ(fold(line + line + line + "close\n"), "progress igd_wan_get_params:# x3\nclose\n");
}

TEST(FoldedLines, KeepTheNumberOfATraceLine) {
  EXPECT_EQ(fold("| \n|  ------------- igd_api 1095: NEW BIND LAN HAS LAN1 \n"),
            "trace igd_api 1095: NEW BIND LAN HAS LAN1 \n");
}

TEST(FoldedLines, TellAWalkThatFoundSomethingFromOneThatDidNot) {
  EXPECT_EQ(fold("open 203\nclose\nopen 204\n"), "walk 203\nopen 204\n");
}

TEST(FoldedLines, LeaveWhatIsNotWholeAsItIs) {
  for (const char* text :
       {"| vornik igd_wan_set_params:#  info->connect_mode:3 \n", "| \n", "close\n", "",
        "| vornik igd_wan_set_params:#  info->connection_class:1 \n"
        "| vornik igd_wan_set_params:#  info->connect_mode:3 \n",
        "| vornik igd_wan_set_params:#  info->connect_mode:3\n"
        "| vornik igd_wan_set_params:#  info->connection_class:1\n",
        "|  ------------- igd_api 1095: x\n", "open 203\nget a -> \"\"\nclose\n"}) {
    EXPECT_EQ(fold(text), text);
  }
}

TEST(FoldedLines, MarkWhatLooksLikeOne) {
  EXPECT_EQ(fold("walk 203\n#\n\\\n"), "\\walk 203\n\\#\n\\\\\n");
}

TEST(FoldedLines, GiveEveryTextBack) {
  const std::string parts[] = {
      kWriting,
      kWriting.substr(0, kWriting.find('\n') + 1),
      kWriting.substr(kWriting.find('\n') + 1),
      "| vornik igd_wan_get_params:#\n",
      "| \n",
      "|  ------------- x\n",
      "|  ------------- \n",
      "open 203\n",
      "open x y\n",
      "close\n",
      "walk 203\n",
      "trace x\n",
      "progress igd_wan_get_params:#\n",
      "progress igd_wan_get_params:# x2\n",
      "\\progress igd_wan_get_params:# x2\n",
      "# builder:\n",
      "\n",
      "\\\n",
      std::string("| vornik igd_wan_set_params:#  info->connect_mode:3 \0\n", 54),
  };
  for (const std::string& first : parts) {
    for (const std::string& second : parts) {
      for (const std::string& third : parts) {
        const std::string text = std::string(first).append(second).append(third);
        ASSERT_EQ(unfold(fold(text)), text);
      }
    }
  }
}

}  // namespace
}  // namespace transcripts
