#include "text.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "igd_api.h"

namespace {

using Names = std::vector<std::string>;

Names split(const std::string& text, const std::string& delimiters) {
  Names tokens = {"left over"};
  const int count = igd_tool_split_str(text, delimiters, tokens);
  EXPECT_EQ(count, static_cast<int>(tokens.size())) << text;
  return tokens;
}

TEST(ObjectPathOf, CutsBehindTheLastDotThatIsNotTheEnd) {
  const struct {
    const char* name;
    const char* object_path;
  } kCases[] = {
      {"A.B.3.Enable", "A.B.3."},
      {"A.B.Enable", "A.B."},
      {"A.B.3.", "A.B."},
      {"A.B.3", "A.B."},
      {"A.", ""},
      {"Enable", ""},
      {".", ""},
      {"", ""},
      {".Enable", "."},
      {"A..", "A."},
      {"A.B.3. \t\r\n", "A.B."},
      {"A.B.Enable \n", "A.B."},
      {" \n\t\r", ""},
      {" A.B", " A."},
      {"A.B .", "A."},
      {"A.B\v", "A."},
  };
  for (const auto& c : kCases) EXPECT_EQ(objectPathOf(c.name), c.object_path) << c.name;
}

TEST(ObjectPathOf, IgnoresNothingBehindAPathButFourBlanks) {
  const std::string blanks = " \n\t\r";
  for (int code = 1; code <= 127; ++code) {
    const char last = static_cast<char>(code);
    const bool ignored = blanks.find(last) != std::string::npos;
    EXPECT_EQ(objectPathOf(std::string("A.B.") + last), ignored ? "A." : "A.B.") << code;
  }
}

TEST(SplitStr, CutsAtEveryDelimiterAndDropsOnlyAnEmptyEnd) {
  const struct {
    const char* text;
    const char* delimiters;
    Names tokens;
  } kCases[] = {
      {"1.1.1.1,2.2.2.2", ",", {"1.1.1.1", "2.2.2.2"}},
      {"1.1.1.1,", ",", {"1.1.1.1"}},
      {"1.1.1.1", ",", {"1.1.1.1"}},
      {"a,,b", ",", {"a", "", "b"}},
      {",a", ",", {"", "a"}},
      {",", ",", {""}},
      {",,", ",", {"", ""}},
      {"", ",", {}},
      {"br_1_2.x", "_.", {"br", "1", "2", "x"}},
      {"a,;b", ",;", {"a", "", "b"}},
      {"a, b", ",", {"a", " b"}},
      {"a,b", "", {"a,b"}},
  };
  for (const auto& c : kCases) EXPECT_EQ(split(c.text, c.delimiters), c.tokens) << c.text;
}

TEST(DeleteNode, RemovesTheFirstEqualElementOnly) {
  Names names = {"LAN1", "LAN2", "LAN1"};
  _delete_node(names, "LAN1");
  EXPECT_EQ(names, (Names{"LAN2", "LAN1"}));
}

TEST(DeleteNode, LeavesAListWithoutTheNameAlone) {
  Names names = {"LAN1", "LAN11"};
  for (const char* absent : {"lan1", "LAN", "LAN1 ", ""}) _delete_node(names, absent);
  EXPECT_EQ(names, (Names{"LAN1", "LAN11"}));
  Names empty;
  _delete_node(empty, "LAN1");
  EXPECT_EQ(empty, Names());
}

TEST(LenientNumber, IsTheLeadingNumberWithinTheGatewaysInt) {
  const struct {
    const char* text;
    int number;
  } kCases[] = {
      {"100", 100},
      {"0", 0},
      {"", 0},
      {"abc", 0},
      {"12abc", 12},
      {" 7", 7},
      {"-5", -5},
      {"+5", 5},
      {"0100", 100},
      {"0x10", 0},
      {"1.9", 1},
      {"- 5", 0},
      {"4 4", 4},
      {"1e3", 1},
      {"100%s", 100},
      {"-0", 0},
      {"-", 0},
      {"+", 0},
      {"++5", 0},
      {"+-5", 0},
      {" ", 0},
      {" \t\n\v\f\r7", 7},
      {"7 ", 7},
      {"\xa0 7", 0},  // the first is no blank in a gateway's locale
      {"00000000000000000000000000000007", 7},
      {"2147483647", INT_MAX},
      {"2147483648", INT_MAX},
      {"2147483648x", INT_MAX},
      {"4294967297", INT_MAX},  // not 1: it is held, not cut to 32 bits
      {"-2147483648", INT_MIN},
      {"-2147483649", INT_MIN},
      {"9223372036854775807", INT_MAX},
      {"9223372036854775808", INT_MAX},
      {"99999999999999999999", INT_MAX},
      {"-99999999999999999999", INT_MIN},
  };
  for (const auto& c : kCases) EXPECT_EQ(igd::lenient_number(c.text), c.number) << c.text;
}

TEST(LenientNumber, EndsAtAZeroAndTakesTextsOfAnyLength) {
  EXPECT_EQ(igd::lenient_number(std::string("12") + '\0' + "34"), 12);
  EXPECT_EQ(igd::lenient_number('\0' + std::string("34")), 0);
  constexpr std::size_t kLong = 65536;
  EXPECT_EQ(igd::lenient_number(std::string(kLong, '9')), INT_MAX);
  EXPECT_EQ(igd::lenient_number('-' + std::string(kLong, '9')), INT_MIN);
  EXPECT_EQ(igd::lenient_number(std::string(kLong, '0') + '5'), 5);
  EXPECT_EQ(igd::lenient_number(std::string(kLong, ' ') + '5'), 5);
  EXPECT_EQ(igd::lenient_number(std::string(kLong, 'x')), 0);
}

TEST(Cut, Keeps255CharactersUpToAZero) {
  EXPECT_EQ(igd::cut(std::string(255, 'x')), std::string(255, 'x'));
  EXPECT_EQ(igd::cut(std::string(256, 'x')), std::string(255, 'x'));
  EXPECT_EQ(igd::cut(std::string("ab\0cd", 5)), "ab");
  EXPECT_EQ(igd::cut(""), "");
}

TEST(NumberedPath, HoldsTableAndNumberAndIsCutLikeAnyPath) {
  EXPECT_EQ(igd::numbered("A.Port.", 12), "A.Port.12.");
  const std::string parent(250, 'p');
  EXPECT_EQ(igd::numbered(parent, 12345678), parent + "12345");
}

TEST(Trimmed, DropsWhiteSpaceAtBothEndsOnly) {
  EXPECT_EQ(igd::trimmed(" \t LAN 1\r\n"), "LAN 1");
  EXPECT_EQ(igd::trimmed("LAN1"), "LAN1");
  EXPECT_EQ(igd::trimmed(" \n\t\r"), "");
  EXPECT_EQ(igd::trimmed(""), "");
}

TEST(TextTests, ComparePrefixAndPart) {
  EXPECT_TRUE(igd::starts_with("A.B.", "A."));
  EXPECT_TRUE(igd::starts_with("A.B.", ""));
  EXPECT_FALSE(igd::starts_with("A.", "A.B."));
  EXPECT_FALSE(igd::starts_with("A.B.", "B."));
  EXPECT_TRUE(igd::contains("A.B.", "B."));
  EXPECT_FALSE(igd::contains("A.B.", "b"));
}

}  // namespace
