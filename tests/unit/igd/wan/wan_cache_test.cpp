#include <string>
#include <vector>

#include "gateway_test.h"

namespace {

using support::kBridges;
using support::kWanDevices;
using support::printed_by;
using support::wan_path;
using Names = std::vector<std::string>;

class WanCache : public support::GatewayTest {
 protected:
  // The entry, its trace dropped.
  static wan_mib_info* entry_of(const std::string& path) {
    wan_mib_info* entry = nullptr;
    (void)printed_by([&] { entry = _get_cache(path); });
    return entry;
  }

  static Names keys() {
    Names names;
    for (const auto& [key, entry] : g_wan_mibinfo_cache_list) names.push_back(key);
    return names;
  }

  static void keep_only(Names paths) { _rebuid_cache(paths); }
};

TEST_F(WanCache, RemembersWhereTheConnectionsPiecesAre) {
  const std::string path = add_connection_device(1, {"Static", "DHCP", "PPP"});
  const std::string bridge_path = add_bridge("br_1_1", path);
  const wan_mib_info* const entry = entry_of(path);
  EXPECT_EQ(entry->wan_path, path);
  EXPECT_EQ(entry->bridge_name, "br_1_1");
  EXPECT_EQ(entry->static_path, path + "WANIPConnection.1.");
  EXPECT_EQ(entry->ppp_path, path + "WANPPPConnection.1.");
  EXPECT_EQ(entry->dhcp_path, path + "WANIPConnection.2.");
  EXPECT_EQ(entry->wan_bridge_path, bridge_path);
  EXPECT_EQ(entry->lan_bridge_path, kBridges + "1.");
  EXPECT_EQ(entry->lan_bridge_name, "internet");
  EXPECT_EQ(entry->connect_class, 0);
}

TEST_F(WanCache, GivesTheSameEntryAgainAndPrintsItOnce) {
  const std::string path = add_connection_device(1, {"Static", "DHCP", "PPP"});
  const std::string bridge_path = add_bridge("br_1_1", path);
  wan_mib_info* first = nullptr;
  wan_mib_info* second = nullptr;
  EXPECT_EQ(printed_by([&] { first = _get_cache(path); }),
            "vornik: wan_bridge_path = " + bridge_path + ",name = br_1_1\n" +
                "vornik: info->lan_bridge_name = internet\n" + "vornik: info->lan_bridge_path = " +
                kBridges + "1.\n" + "vornik: info->static_path = " + path + "WANIPConnection.1.\n" +
                "vornik: info->dhcp_path = " + path + "WANIPConnection.2.\n" +
                "vornik: info->ppp_path = " + path + "WANPPPConnection.1.\n");
  EXPECT_EQ(printed_by([&] { second = _get_cache(path); }), "");
  EXPECT_EQ(second, first);
}

TEST_F(WanCache, DoesNotAskTheTreeForAKnownConnection) {
  const std::string path = add_connection_device(1, {"Static"});
  (void)entry_of(path);
  EXPECT_EQ(support::transcript_of([&] { (void)_get_cache(path); }), "");
}

TEST_F(WanCache, LeavesPathsOfMissingPiecesEmpty) {
  const std::string path = add_connection_device(1, {});
  const wan_mib_info* const entry = entry_of(path);
  EXPECT_EQ(entry->static_path, "");
  EXPECT_EQ(entry->dhcp_path, "");
  EXPECT_EQ(entry->ppp_path, "");
  EXPECT_EQ(entry->wan_bridge_path, "");
  EXPECT_EQ(entry->bridge_name, "br_1_1");
}

TEST_F(WanCache, NamesTheLanBridgeEvenWhenThereIsNone) {
  ASSERT_EQ(tree_.delete_object(kBridges + "1."), 0);
  const wan_mib_info* const entry = entry_of(add_connection_device(1, {}));
  EXPECT_EQ(entry->lan_bridge_path, "");
  EXPECT_EQ(entry->lan_bridge_name, "internet");
}

TEST_F(WanCache, TakesTheFirstOfSeveralObjectsOfAKind) {
  const std::string path =
      add_connection_device(1, {"DHCP", "DHCP", "Static", "Static", "PPP", "PPP"});
  const wan_mib_info* const entry = entry_of(path);
  EXPECT_EQ(entry->dhcp_path, path + "WANIPConnection.1.");
  EXPECT_EQ(entry->static_path, path + "WANIPConnection.3.");
  EXPECT_EQ(entry->ppp_path, path + "WANPPPConnection.1.");
}

TEST_F(WanCache, MakesAnEntryForAPathThatNamesNoConnection) {
  const wan_mib_info* const entry = entry_of(wan_path(9, 9));
  EXPECT_EQ(entry->wan_path, wan_path(9, 9));
  EXPECT_EQ(entry->static_path + entry->dhcp_path + entry->ppp_path + entry->wan_bridge_path, "");
  EXPECT_EQ(keys(), Names{wan_path(9, 9)});
}

TEST_F(WanCache, KeepsOldPathsWhileTheTreeChanges) {
  const std::string path = add_connection_device(1, {"Static"});
  const wan_mib_info* const entry = entry_of(path);
  (void)add_bridge("br_1_1", path);
  (void)add(path + "WANPPPConnection.");
  ASSERT_EQ(tree_.delete_object(path + "WANIPConnection.1."), 0);
  EXPECT_EQ(entry_of(path), entry);
  EXPECT_EQ(entry->wan_bridge_path, "");
  EXPECT_EQ(entry->ppp_path, "");
  EXPECT_EQ(entry->static_path, path + "WANIPConnection.1.");
}

TEST_F(WanCache, FillsAKeyThatHasNoEntryYet) {
  const std::string path = add_connection_device(1, {"Static"});
  g_wan_mibinfo_cache_list[path] = nullptr;
  EXPECT_EQ(entry_of(path)->static_path, path + "WANIPConnection.1.");
  EXPECT_EQ(g_wan_mibinfo_cache_list[path], entry_of(path));
}

TEST_F(WanCache, IsOrderedByTheTextOfThePaths) {
  for (const int connection : {2, 10, 1}) (void)entry_of(wan_path(1, connection));
  EXPECT_EQ(keys(), (Names{wan_path(1, 1), wan_path(1, 10), wan_path(1, 2)}));
}

TEST_F(WanCache, RebuildingDropsEveryPathThatIsNotListed) {
  for (const int connection : {1, 2, 3}) (void)entry_of(wan_path(1, connection));
  const wan_mib_info* const kept = entry_of(wan_path(1, 2));
  keep_only({wan_path(1, 4), wan_path(1, 2)});
  EXPECT_EQ(keys(), Names{wan_path(1, 2)});
  EXPECT_EQ(entry_of(wan_path(1, 2)), kept);
}

TEST_F(WanCache, RebuildingComparesWholePaths) {
  (void)entry_of(wan_path(1, 1));
  keep_only({wan_path(1, 1) + "WANIPConnection.1.", wan_path(1, 11), kWanDevices + "1."});
  EXPECT_EQ(keys(), Names());
}

TEST_F(WanCache, RebuildingTreatsAKeyWithoutEntryLikeAnyOther) {
  g_wan_mibinfo_cache_list[wan_path(1, 1)] = nullptr;
  g_wan_mibinfo_cache_list[wan_path(1, 2)] = nullptr;
  keep_only({wan_path(1, 2)});
  EXPECT_EQ(keys(), Names{wan_path(1, 2)});
}

TEST_F(WanCache, DestroyingDropsOneEntry) {
  (void)entry_of(wan_path(1, 1));
  (void)entry_of(wan_path(1, 2));
  EXPECT_EQ(_destory_cache(wan_path(1, 1)), 1);
  EXPECT_EQ(keys(), Names{wan_path(1, 2)});
}

TEST_F(WanCache, DestroyingWhatWasNeverCachedGivesOneToo) {
  (void)entry_of(wan_path(1, 2));
  EXPECT_EQ(_destory_cache(wan_path(1, 1)), 1);
  EXPECT_EQ(_destory_cache(""), 1);
  EXPECT_EQ(keys(), Names{wan_path(1, 2)});
}

TEST_F(WanCache, DestroyedEntryIsMadeAnewFromTheTree) {
  const std::string path = add_connection_device(1, {});
  (void)entry_of(path);
  (void)add(path + "WANPPPConnection.");
  (void)_destory_cache(path);
  EXPECT_EQ(entry_of(path)->ppp_path, path + "WANPPPConnection.1.");
}

TEST_F(WanCache, ListingMakesNoEntries) {
  const std::string path = add_connection_device(1, {});
  Names paths;
  (void)igd_wan_list(paths);
  EXPECT_EQ(keys(), Names());
  (void)entry_of(path);
  EXPECT_EQ(keys(), Names{path});
}

TEST_F(WanCache, ListingDropsConnectionsThatAreGone) {
  const std::string gone = add_connection_device(1, {});
  const std::string there = add_connection_device(1, {});
  (void)entry_of(gone);
  const wan_mib_info* const kept = entry_of(there);
  ASSERT_EQ(tree_.delete_object(gone), 0);
  Names paths;
  EXPECT_EQ(igd_wan_list(paths), 1);
  EXPECT_EQ(keys(), Names{there});
  EXPECT_EQ(entry_of(there), kept);
}

TEST_F(WanCache, ListingNoConnectionsEmptiesListAndCache) {
  (void)entry_of(wan_path(1, 1));
  Names paths = {"left over"};
  EXPECT_EQ(igd_wan_list(paths), 0);
  EXPECT_EQ(paths, Names());
  EXPECT_EQ(keys(), Names());
}

}  // namespace
