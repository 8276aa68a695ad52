#include "tree_query.h"

#include <string>
#include <vector>

#include "gateway_test.h"

namespace {

using support::kBridges;
using support::kRoutes;
using support::kWanDevices;
using support::wan_path;
using Names = std::vector<std::string>;

class TreeQuery : public support::GatewayTest {
 protected:
  Names instances(const std::string& path, int type) {
    Names names = {"left over"};
    const int count = igd_tool_loop_instance(path, type, names);
    EXPECT_EQ(count, static_cast<int>(names.size()));
    return names;
  }
};

TEST_F(TreeQuery, ListsEveryInstanceForAnEmptyPath) {
  (void)add_connection_device(1, {});
  (void)add_connection_device(1, {});
  (void)add_connection_device(2, {});
  EXPECT_EQ(instances("", kWanConnectionDevice),
            (Names{wan_path(1, 1), wan_path(1, 2), wan_path(2, 1)}));
}

TEST_F(TreeQuery, ListsOnlyNamesThatBeginWithThePath) {
  (void)add_connection_device(1, {});
  (void)add_connection_device(10, {});
  EXPECT_EQ(instances(kWanDevices + "1.", kWanConnectionDevice), Names{wan_path(1, 1)});
  EXPECT_EQ(instances("WANDevice.1.", kWanConnectionDevice), Names());
}

TEST_F(TreeQuery, MatchesLongerNumbersWhenThePathLacksItsDot) {
  (void)add_connection_device(1, {});
  (void)add_connection_device(2, {});
  (void)add_connection_device(10, {});
  EXPECT_EQ(instances(kWanDevices + "1", kWanConnectionDevice),
            (Names{wan_path(1, 1), wan_path(10, 1)}));
}

TEST_F(TreeQuery, EmptiesTheListWhenThereIsNothingOfTheType) {
  EXPECT_EQ(instances("", kWanConnectionDevice), Names());
  EXPECT_EQ(instances("", 4711), Names());
}

TEST_F(TreeQuery, ClosesTheWalkItOpened) {
  const auto list = [this] { (void)instances("", kBridgeName); };
  EXPECT_EQ(support::transcript_of(list), "open 196\nclose\n");
}

TEST_F(TreeQuery, ClosesNoWalkWhereNoneWasOpened) {
  const auto list = [this] { (void)instances("", kWanConnectionDevice); };
  EXPECT_EQ(support::transcript_of(list), "open 1273\n");
}

TEST_F(TreeQuery, FindsTheFirstParameterWithTheValueAndReadsNoFurther) {
  for (const char* vlan : {"8", "9", "8"}) (void)add_bridge("br", "", vlan);
  std::string found;
  const auto search = [&] { found = igd_tool_loop_fullname(kBridges, kBridgeVlanId, "8"); };
  EXPECT_EQ(support::transcript_of(search), "open 199\nclose\nget " + kBridges +
                                                "1.VLANID -> \"0\"\nget " + kBridges +
                                                "2.VLANID -> \"8\"\n");
  EXPECT_EQ(found, kBridges + "2.VLANID");
}

TEST_F(TreeQuery, FindsAValueOnlyBelowThePath) {
  (void)add_bridge("br_1_1", "", "8");
  const std::string second = add_bridge("br_1_2", "", "8");
  EXPECT_EQ(igd_tool_loop_fullname(second, kBridgeVlanId, "8"), second + "VLANID");
  EXPECT_EQ(igd_tool_loop_fullname(kRoutes, kBridgeVlanId, "8"), "");
}

TEST_F(TreeQuery, ComparesValuesExactly) {
  (void)add_bridge("br_1_1", wan_path(1, 1));
  for (const char* other : {"BR_1_1", "br_1_1 ", " br_1_1", "br_1_", "br_1_11"}) {
    EXPECT_EQ(igd_tool_loop_fullname("", kBridgeName, other), "") << other;
  }
}

TEST_F(TreeQuery, FindsAnEmptyValueToo) {
  EXPECT_EQ(igd_tool_loop_fullname("", kBridgeWanName, ""), kBridges + "1.X_ZYN_WANName");
}

TEST_F(TreeQuery, FindsTheObjectsOfOneConnectionOnly) {
  (void)add_connection_device(1, {"Static", "DHCP", "PPP"});
  const std::string path = add_connection_device(1, {"DHCP", "PPP", "Static"});
  const igd::ConnectionPaths paths = igd::connection_paths_of(path);
  EXPECT_EQ(paths.dhcp_path, path + "WANIPConnection.1.");
  EXPECT_EQ(paths.static_path, path + "WANIPConnection.2.");
  EXPECT_EQ(paths.ppp_path, path + "WANPPPConnection.1.");
}

TEST_F(TreeQuery, GivesEmptyPathsForMissingObjects) {
  const std::string path = add_connection_device(1, {"Other"});
  EXPECT_EQ(igd::static_path_of(path), "");
  EXPECT_EQ(igd::dhcp_path_of(path), "");
  EXPECT_EQ(igd::ppp_path_of(path), "");
}

}  // namespace
