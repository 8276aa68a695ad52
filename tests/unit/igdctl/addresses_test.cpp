// Addresses as text.
#include "gateway/addresses.h"

#include <gtest/gtest.h>

namespace {

using namespace igdctl;

TEST(Addresses, AreFourDecimalNumbers) {
  EXPECT_TRUE(is_ipv4("192.0.2.10"));
  for (const char* text : {"", "192.0.2", "192.0.2.256", "192.0.2.1 ", " 192.0.2.1", "1.2.3.4.5",
                           "0x1.2.3.4", "1..2.3", "a.b.c.d", "2001:db8::1"}) {
    EXPECT_FALSE(is_ipv4(text)) << text;
  }
  EXPECT_FALSE(is_ipv4(std::string("1.2.3.4\0x", 9)));
  EXPECT_TRUE(is_ipv6("2001:db8::1"));
  EXPECT_FALSE(is_ipv6("192.0.2.1"));
}

TEST(Addresses, MasksAreOnesThenZeros) {
  EXPECT_TRUE(is_mask(0xffffff00));
  EXPECT_TRUE(is_mask(0xffffffff));
  EXPECT_TRUE(is_mask(0));
  EXPECT_FALSE(is_mask(0xff00ff00));
  EXPECT_FALSE(is_mask(0x000000ff));
}

TEST(Addresses, OfHostsLeaveOutLoopbackMulticastAndThisNetwork) {
  EXPECT_TRUE(is_host_address(0xc000020a));
  EXPECT_FALSE(is_host_address(0x7f000001));
  EXPECT_FALSE(is_host_address(0xe0000001));
  EXPECT_FALSE(is_host_address(0xffffffff));
  EXPECT_FALSE(is_host_address(0x00000001));
}

}  // namespace
