// The cached paths of a connection, and what empties the cache.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class Cache : public GatewayTest {
 protected:
  wan_mib_info* cached(const std::string& wan) {
    return follow([&](Script& s) { cached_paths(s, wan); }, [&] { return _get_cache(wan); });
  }

  static Names keys() {
    Names found;
    for (const auto& entry : g_wan_mibinfo_cache_list) found.push_back(entry.first);
    return found;
  }
};

TEST_F(Cache, HoldsThePathsOfAConnection) {
  const Connection connection = add_connection(add_device("Ethernet"));
  const std::string lan = add_lan_bridge({"LAN1"});
  const std::string wan = add_wan_bridge(connection, "br_1_1", {"LAN0"});
  const wan_mib_info* mib = cached(connection.wan);
  ASSERT_NE(mib, nullptr);
  EXPECT_EQ(mib->wan_path, connection.wan);
  EXPECT_EQ(mib->bridge_name, "br_1_1");
  EXPECT_EQ(mib->static_path, connection.fixed);
  EXPECT_EQ(mib->ppp_path, connection.ppp);
  EXPECT_EQ(mib->dhcp_path, connection.dhcp);
  EXPECT_EQ(mib->wan_bridge_path, wan);
  EXPECT_EQ(mib->lan_bridge_path, lan);
  EXPECT_EQ(mib->lan_bridge_name, "internet");
  EXPECT_EQ(mib->connect_class, 0);
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(connection.wan), mib);
}

TEST_F(Cache, IsFilledInAFixedOrder) {
  const Connection connection = add_connection(add_device("Ethernet"));
  run([&] { return _get_cache(connection.wan); });
  EXPECT_EQ(transcript(), lines({"debug igd_api:# INDEX=" + connection.wan,
                                 "open 197",
                                 "| vornik: wan_bridge_path = ,name = br_1_1",
                                 "open 1359",
                                 "close",
                                 "get " + connection.fixed + "AddressingType",
                                 "open 1359",
                                 "close",
                                 "get " + connection.fixed + "AddressingType",
                                 "get " + connection.dhcp + "AddressingType",
                                 "open 1429",
                                 "close",
                                 "open 196",
                                 "| vornik: info->lan_bridge_name = internet",
                                 "| vornik: info->lan_bridge_path = ",
                                 "open 1359",
                                 "close",
                                 "get " + connection.fixed + "AddressingType",
                                 "| vornik: info->static_path = " + connection.fixed,
                                 "open 1359",
                                 "close",
                                 "get " + connection.fixed + "AddressingType",
                                 "get " + connection.dhcp + "AddressingType",
                                 "| vornik: info->dhcp_path = " + connection.dhcp,
                                 "open 1429",
                                 "close",
                                 "| vornik: info->ppp_path = " + connection.ppp}));
}

TEST_F(Cache, AnswersTheSecondRequestFromMemory) {
  const Connection connection = add_connection(add_device("Ethernet"));
  wan_mib_info* const first = cached(connection.wan);
  EXPECT_EQ(run([&] { return _get_cache(connection.wan); }), first);
  EXPECT_EQ(transcript(), "");
}

TEST_F(Cache, KeepsItsPathsWhileTheTreeChanges) {
  const Connection connection = add_connection(add_device("Ethernet"));
  const std::string bridge = add_wan_bridge(connection, "br_1_1", {});
  cached(connection.wan);
  tree().erase(connection.fixed);
  tree().erase(bridge);
  add_lan_bridge({});
  const wan_mib_info* mib = cached(connection.wan);
  EXPECT_EQ(mib->static_path, connection.fixed);
  EXPECT_EQ(mib->wan_bridge_path, bridge);
  EXPECT_EQ(mib->lan_bridge_path, "");
}

TEST_F(Cache, HoldsEmptyPathsForMissingObjects) {
  const std::string wan = add(add_device("Ethernet") + "WANConnectionDevice.");
  const wan_mib_info* mib = cached(wan);
  EXPECT_EQ(mib->static_path, "");
  EXPECT_EQ(mib->dhcp_path, "");
  EXPECT_EQ(mib->ppp_path, "");
  EXPECT_EQ(mib->bridge_name, "br_1_1");
}

TEST_F(Cache, TakesTheFirstPppConnection) {
  const Connection connection = add_connection(add_device("Ethernet"));
  add(connection.wan + "WANPPPConnection.");
  EXPECT_EQ(cached(connection.wan)->ppp_path, connection.ppp);
}

TEST_F(Cache, BuildsAnEntryForAnyKey) {
  const wan_mib_info* mib = cached("nothing");
  EXPECT_EQ(mib->wan_path, "nothing");
  EXPECT_EQ(mib->bridge_name, "br__");
  EXPECT_EQ(mib->lan_bridge_name, "internet");
  EXPECT_EQ(mib->lan_bridge_path, "");
}

TEST_F(Cache, BuildsAnEntryInPlaceOfANullOne) {
  const Connection connection = add_connection(add_device("Ethernet"));
  g_wan_mibinfo_cache_list[connection.wan] = nullptr;
  EXPECT_EQ(cached(connection.wan)->static_path, connection.fixed);
}

TEST_F(Cache, ReturnsWhatTheCallerPutThere) {
  auto* const own = new wan_mib_info;
  own->dhcp_path = "own.";
  g_wan_mibinfo_cache_list["key"] = own;
  EXPECT_EQ(run([] { return _get_cache("key"); }), own);
  EXPECT_EQ(transcript(), "");
}

TEST_F(Cache, IsPrunedToTheGivenPaths) {
  for (const char* wan : {"a.", "b.", "c."}) run([&] { return _get_cache(wan); });
  g_wan_mibinfo_cache_list["d."] = nullptr;
  Names keep = {"c.", "x.", "a."};
  run([&] { _rebuid_cache(keep); });
  EXPECT_EQ(transcript(), "");
  EXPECT_EQ(keys(), (Names{"a.", "c."}));
  EXPECT_EQ(keep, (Names{"c.", "x.", "a."}));
}

TEST_F(Cache, LosesTheEntryThatIsDestroyed) {
  run([] { return _get_cache("a."); });
  run([] { return _get_cache("b."); });
  EXPECT_EQ(run([] { return _destory_cache("a."); }), 1);
  EXPECT_EQ(transcript(), "");
  EXPECT_EQ(keys(), Names{"b."});
}

TEST_F(Cache, CountsAKeyThatWasNeverCachedAsDestroyed) {
  run([] { return _get_cache("b."); });
  EXPECT_EQ(run([] { return _destory_cache("a."); }), 1);
  EXPECT_EQ(keys(), Names{"b."});
}

TEST_F(Cache, IsPrunedWhenTheConnectionsAreListed) {
  const std::string device = add_device("Ethernet");
  const Connection first = add_connection(device);
  const Connection second = add_connection(device);
  run([&] { return _get_cache(first.wan); });
  run([&] { return _get_cache(second.wan); });
  tree().erase(first.wan);
  const Connection third = add_connection(device);
  Names list = {"left over"};
  EXPECT_EQ(run([&] { return igd_wan_list(list); }), 2);
  EXPECT_EQ(list, (Names{second.wan, third.wan}));
  EXPECT_EQ(transcript(), "open 1273\nclose\n");
  EXPECT_EQ(keys(), Names{second.wan});
}

TEST_F(Cache, IsEmptiedWhenNoConnectionIsLeft) {
  run([] { return _get_cache("a."); });
  Names list = {"left over"};
  EXPECT_EQ(run([&] { return igd_wan_list(list); }), 0);
  EXPECT_EQ(list, Names{});
  EXPECT_EQ(transcript(), "open 1273\n");
  EXPECT_EQ(keys(), Names{});
}

TEST_F(Cache, ListsConnectionsByAscendingNumber) {
  const std::string first = add_device("Ethernet");
  const std::string second = add_device("3G");
  const Connection late = add_connection(second);
  Names expected;
  for (int i = 0; i < 10; ++i) expected.push_back(add_connection(first).wan);
  expected.push_back(late.wan);
  Names list;
  EXPECT_EQ(run([&] { return igd_wan_list(list); }), 11);
  EXPECT_EQ(list, expected);
}

}  // namespace
}  // namespace foreign
