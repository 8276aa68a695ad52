// Text as it goes to people.
#include "term/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace igdctl;

TEST(Printable, EscapesWhatATerminalWouldActOn) {
  EXPECT_EQ(printable("a\nb\tc\x1b[0m\x7f"), "a\\nb\\tc\\x1b[0m\\x7f");
  EXPECT_EQ(printable("\xc2\x9b"), "\\xc2\\x9b");  // a control sequence introducer
  // NOLINTNEXTLINE(misc-misleading-bidirectional): a right-to-left override is what is tested
  EXPECT_EQ(printable("\xe2\x80\xae"), "\\xe2\\x80\\xae");
  EXPECT_EQ(printable(std::string_view("\0", 1)), "\\x00");
}

TEST(Printable, EscapesBytesThatAreNoUtf8) {
  EXPECT_EQ(printable("\xff"), "\\xff");
  EXPECT_EQ(printable("\xc3"), "\\xc3");
  EXPECT_EQ(printable("\xc0\xaf"), "\\xc0\\xaf");           // longer than need be
  EXPECT_EQ(printable("\xed\xa0\x80"), "\\xed\\xa0\\x80");  // a surrogate
  EXPECT_EQ(printable("\xf4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80");
  EXPECT_EQ(printable("für 电视"), "für 电视");
}

TEST(DisplayWidth, CountsColumns) {
  EXPECT_EQ(display_width("LAN1"), 4U);
  EXPECT_EQ(display_width("für"), 3U);
  EXPECT_EQ(display_width("电视"), 4U);
  EXPECT_EQ(display_width("e\xcc\x81"), 1U);
}

TEST(CutToWidth, KeepsWhatFitsAndMarksACut) {
  EXPECT_EQ(cut_to_width("Internet", 8), "Internet");
  EXPECT_EQ(cut_to_width("Internet", 5), "Inte…");
  EXPECT_EQ(cut_to_width("电视电视", 6), "电视…");
  EXPECT_EQ(cut_to_width("ab", 1), "…");
  EXPECT_EQ(cut_to_width("ab", 0), "");
}

TEST(SplitList, TrimsAndKeepsEmptyParts) {
  EXPECT_EQ(split_list("LAN1, LAN2"), (std::vector<std::string>{"LAN1", "LAN2"}));
  EXPECT_EQ(split_list("a,,b,"), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_TRUE(split_list("  ").empty());
}

TEST(ParseNumber, TakesDecimalDigitsAndNothingElse) {
  long number = 7;
  EXPECT_TRUE(parse_number("4094", 0, 4094, &number));
  EXPECT_EQ(number, 4094);
  for (const char* text :
       {"", "-1", "-0", "+1", " 1", "1 ", "\t1", "1\n", "0x1", "1e3", "1.0", "1,0", "true", "1x",
        "\xd9\xa3"}) {  // the last is a three, but no digit of ours
    EXPECT_FALSE(parse_number(text, 0, 4094, &number)) << text;
  }
  EXPECT_FALSE(parse_number(std::string_view("1\0", 2), 0, 4094, &number));
  EXPECT_EQ(number, 4094);
}

TEST(ParseNumber, TakesLeadingZerosAsDecimal) {
  long number = 7;
  EXPECT_TRUE(parse_number("0", 0, 4094, &number));
  EXPECT_EQ(number, 0);
  EXPECT_TRUE(parse_number("0100", 0, 4094, &number));
  EXPECT_EQ(number, 100);
}

TEST(ParseNumber, RefusesWhatIsOutOfRangeHoweverLong) {
  long number = 7;
  for (const char* text : {"0", "4095", "999999999", "4294967297", "18446744073709551617"}) {
    EXPECT_FALSE(parse_number(text, 1, 4094, &number)) << text;
  }
  EXPECT_FALSE(parse_number(std::string(65536, '9'), 1, 4094, &number));
  EXPECT_EQ(number, 7);
}

TEST(NearNames, FindsMisspeltAndShortenedNames) {
  const std::vector<std::string> names = {"Television", "Internet", "Internet2", ""};
  EXPECT_EQ(near_names("Internt", names), (std::vector<std::string>{"Internet", "Internet2"}));
  EXPECT_EQ(near_names("tele", names), (std::vector<std::string>{"Television"}));
  EXPECT_TRUE(near_names("Voice", names).empty());
}

}  // namespace
