#include "tree/assignments.h"

#include <gtest/gtest.h>

#include "gateway/names.h"

namespace igdctl {
namespace {

constexpr char kName[] = "InternetGatewayDevice.A.B";

std::string read_back(const std::string& value) {
  std::vector<Problem> problems;
  const auto read = read_assignments(line_of({kName, value}) + '\n', "f", problems);
  EXPECT_TRUE(problems.empty());
  return read.size() == 1 && read[0].name == kName ? read[0].value : "not one assignment";
}

TEST(Assignments, EveryByteComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  for (const std::string& value : {all, std::string(), std::string("a=b # c"), std::string(" x "),
                                   std::string("\\n"), std::string("\\"), std::string("Käse")}) {
    EXPECT_EQ(read_back(value), value);
  }
}

TEST(Assignments, ALineIsSafeForATerminal) {
  EXPECT_EQ(line_of({kName, "a\x1b[31m\nb\\"}), std::string(kName) + "=a\\x1b[31m\\nb\\\\");
}

TEST(Assignments, CommentsAndEmptyLinesSayNothing) {
  std::vector<Problem> problems;
  const auto read = read_assignments("# a=b\r\n\n\r\nA.B=1\r\nC=", "f", problems);
  EXPECT_TRUE(problems.empty());
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[0].name, kName);
  EXPECT_EQ(read[0].value, "1");
  EXPECT_EQ(read[1].value, "");
}

TEST(Assignments, ProblemsNameTheirLines) {
  std::vector<Problem> problems;
  const auto read = read_assignments("nothing\nA=\\q\n=1\nA=\\x4\nA=\\", "f", problems);
  EXPECT_TRUE(read.empty());
  ASSERT_EQ(problems.size(), 5U);
  EXPECT_EQ(problems[0].message, "f:1: the line is not NAME=VALUE");
  EXPECT_EQ(problems[1].message, "f:2: the value has a backslash that starts no escape");
  EXPECT_EQ(problems[4].message.substr(0, 4), "f:5:");
}

TEST(Assignments, NamesMayLeaveTheRootOut) {
  EXPECT_EQ(full_name_of("A.B"), kName);
  EXPECT_EQ(full_name_of(kName), kName);
  EXPECT_EQ(full_name_of("InternetGatewayDevice"), "InternetGatewayDevice");
  EXPECT_EQ(full_name_of("InternetGatewayDevice2.A"),
            "InternetGatewayDevice.InternetGatewayDevice2.A");
}

}  // namespace
}  // namespace igdctl
