// The doctor's findings about static routes.
#include "doctor_test.h"

namespace {

using igdctl_tests::Doctor;
using igdctl_tests::Finding;
using igdctl_tests::Words;
using support::wan_path;

TEST_F(Doctor, FindsARouteToAConnectionWhichIsNotThere) {
  const std::string path = add_route("198.51.100.0", "255.255.255.0", "", wan_path(7, 7));
  const Finding finding = only();
  EXPECT_EQ(finding.code, "route-to-missing-connection");
  EXPECT_EQ(finding.where, path);
  EXPECT_EQ(finding.fixes, Words{"route remove 198.51.100.0/24"});
}

TEST_F(Doctor, KeepsARouteThatStillHasAGateway) {
  const std::string path = add_route("198.51.100.0", "255.255.255.0", "192.0.2.1", wan_path(7, 7));
  const Finding finding = only();
  EXPECT_EQ(finding.code, "route-to-missing-connection");
  EXPECT_EQ(finding.fixes, Words{"tree set " + path + "Interface ''"});
}

TEST_F(Doctor, LooksAtTheRouteTableWhenARouteNamesNoInterface) {
  const std::string path = add_route("198.51.100.0", "255.255.255.0", "192.0.2.1", "");
  set(path + "X_ZYN_RouteTable", wan_path(7, 7));
  EXPECT_EQ(only().fixes, Words{"tree set " + path + "X_ZYN_RouteTable ''"});
  set(path + "Interface", internet_);
  EXPECT_EQ(codes(), Words{});
}

TEST_F(Doctor, FindsARouteThatLeadsNowhere) {
  add_route("198.51.100.0", "255.255.255.0", "", "");
  EXPECT_EQ(only().code, "route-to-nowhere");
}

TEST_F(Doctor, FindsARouteWithHostBits) {
  add_route("198.51.100.7", "255.255.255.0", "192.0.2.1", "");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "route-with-host-bits");
  EXPECT_EQ(finding.fixes, (Words{"route remove 198.51.100.7/24",
                                  "route add 198.51.100.0/24 --gateway 192.0.2.1"}));
}

TEST_F(Doctor, KeepsConnectionAndSwitchOfARouteWithHostBits) {
  const std::string path = add_route("198.51.100.7", "255.255.255.0", "", internet_);
  set(path + "Enable", "false");
  EXPECT_EQ(only().fixes, (Words{"route remove 198.51.100.7/24",
                                 "route add 198.51.100.0/24 --connection Internet --disabled"}));
}

TEST_F(Doctor, DropsARouteWithHostBitsBesideTheRightOne) {
  add_route("198.51.100.0", "255.255.255.0", "192.0.2.1", "");
  add_route("198.51.100.7", "255.255.255.0", "192.0.2.9", "");
  EXPECT_EQ(only().fixes, Words{"route remove 198.51.100.7/24"});
}

TEST_F(Doctor, FindsARouteWithoutAValidNetwork) {
  add_route("198.51.100.0", "255.0.255.0", "192.0.2.1", "");
  const Finding finding = only();
  EXPECT_EQ(finding.code, "malformed-route");
  EXPECT_EQ(finding.fixes, Words{"route remove 198.51.100.0 255.0.255.0"});
}

}  // namespace
