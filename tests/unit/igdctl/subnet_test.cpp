// Destinations of routes, as people write them.
#include "gateway/subnet.h"

#include <gtest/gtest.h>

namespace {

using namespace igdctl;

std::string read(const std::string& destination, const std::string& mask) {
  Subnet subnet;
  std::vector<Problem> problems;
  const bool valid = read_subnet(destination, mask, &subnet, &problems);
  EXPECT_EQ(valid, problems.empty()) << destination << ' ' << mask;
  return valid ? text_of(subnet) : "fault: " + problems.front().message;
}

TEST(Subnet, TakesALengthOrAMask) {
  EXPECT_EQ(read("198.51.100.0/24", ""), "198.51.100.0/24");
  EXPECT_EQ(read("198.51.100.0", "255.255.255.0"), "198.51.100.0/24");
  EXPECT_EQ(read("0.0.0.0/0", ""), "0.0.0.0/0");
  EXPECT_EQ(read("192.0.2.1/32", ""), "192.0.2.1/32");
  EXPECT_EQ(read("10.128.0.0", "255.128.0.0"), "10.128.0.0/9");
}

TEST(Subnet, RefusesWhatIsNoNetwork) {
  const char* const wrong[][2] = {{"", ""},
                                  {"198.51.100.0", ""},
                                  {"198.51.100/24", ""},
                                  {"198.51.100.0/33", ""},
                                  {"198.51.100.0/", ""},
                                  {"198.51.100.0/-1", ""},
                                  {"198.51.100.0/24/1", ""},
                                  {"198.51.100.256/24", ""},
                                  {"198.51.100.0/24", "255.255.255.0"},
                                  {"198.51.100.0", "255.0.255.0"},
                                  {"198.51.100.0", "24"},
                                  {"010.0.0.0/8", ""},
                                  {"2001:db8::/32", ""},
                                  {"example.net/24", ""},
                                  {" 10.0.0.0/8", ""}};
  for (const auto& [destination, mask] : wrong) {
    EXPECT_EQ(read(destination, mask).substr(0, 6), "fault:") << destination << ' ' << mask;
  }
}

TEST(Subnet, NamesEveryFaultAtOnce) {
  Subnet subnet;
  std::vector<Problem> problems;
  EXPECT_FALSE(read_subnet("nowhere/99", "", &subnet, &problems));
  EXPECT_EQ(problems.size(), 2U);
}

TEST(Subnet, SeesHostBits) {
  Subnet subnet;
  ASSERT_TRUE(parse_subnet("198.51.100.7", "255.255.255.0", &subnet));
  EXPECT_TRUE(subnet.has_host_bits());
  EXPECT_EQ(text_of({subnet.network(), subnet.mask}), "198.51.100.0/24");
  ASSERT_TRUE(parse_subnet("198.51.100.7", "255.255.255.255", &subnet));
  EXPECT_FALSE(subnet.has_host_bits());
}

}  // namespace
