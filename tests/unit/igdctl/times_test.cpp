// Times as people and programs read them.
#include "term/times.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

namespace igdctl {
namespace {

class Times : public ::testing::Test {
 protected:
  Times() : before_(text_of_zone()) { live_in("EAST-5"); }
  ~Times() override { live_in(before_); }

  static std::string text_of_zone() {
    const char* const zone = std::getenv("TZ");
    return zone == nullptr ? "" : zone;
  }
  static void live_in(const std::string& zone) {
    (void)(zone.empty() ? unsetenv("TZ") : setenv("TZ", zone.c_str(), 1));
    tzset();
  }

  const std::string before_;
};

TEST_F(Times, AreThoseOfThePlaceForPeopleAndUtcForPrograms) {
  EXPECT_EQ(local_time_text(1000000000), "2001-09-09 06:46:40");
  EXPECT_EQ(utc_time_text(1000000000), "2001-09-09T01:46:40Z");
}

}  // namespace
}  // namespace igdctl
