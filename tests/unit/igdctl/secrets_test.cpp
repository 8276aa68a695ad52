#include "gateway/secrets.h"

#include <gtest/gtest.h>

namespace igdctl {
namespace {

TEST(Secrets, AreKnownByTheirNames) {
  for (const char* name :
       {"Password", "ConnectionRequestPassword", "AdminPasswd", "KeyPassphrase", "PreSharedKey",
        "SharedSecret", "RadiusSecret", "WEPKey", "WpaPsk", "InternetGatewayDevice.A.1.PASSWORD"}) {
    EXPECT_TRUE(is_secret_parameter(name)) << name;
  }
}

TEST(Secrets, AreNotWhatStandsBesideThem) {
  for (const char* name : {"Username", "Name", "InternetGatewayDevice.Password.1.Name", ""}) {
    EXPECT_FALSE(is_secret_parameter(name)) << name;
  }
}

TEST(Secrets, AreShownAsStarsUnlessTheyAreAskedForOrEmpty) {
  EXPECT_EQ(shown_value("A.Password", "hush", false), kStars);
  EXPECT_EQ(shown_value("A.Password", "hush", true), "hush");
  EXPECT_EQ(shown_value("A.Password", "", false), "");
  EXPECT_EQ(shown_value("A.Username", "me", false), "me");
}

}  // namespace
}  // namespace igdctl
