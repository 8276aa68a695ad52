// Whether a connection may go, and taking it out with everything that hangs on it.
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "gateway_test.h"
#include "stdout_capture.h"

namespace {

using support::bridged;
using support::kBridges;
using support::kRoutes;
using support::routed_pppoe;
using support::wan_path;

using Texts = std::vector<std::string>;

class WanRemove : public support::GatewayTest {
 protected:
  /// Removes a connection and returns what was printed.
  static std::string remove(const std::string& path) {
    support::StdoutCapture printed;
    igd_wan_destory(path);
    return printed.drain();
  }

  std::string add_route(const std::string& interface, const std::string& route_table) {
    const std::string route_path = add(kRoutes);
    set(route_path + "Interface", interface);
    set(route_path + "X_ZYN_RouteTable", route_table);
    return route_path;
  }

  /// A connection device with its three objects and an empty bridge of its own.
  std::string add_connection() {
    const std::string path = add_connection_device(1, {"Static", "DHCP", "PPP"});
    (void)add_bridge("br_1_1", path);
    return path;
  }

  Texts lan_ports() const { return ports_of(kBridges + "1."); }
};

TEST_F(WanRemove, KeepsTheLastConnectionOfItsClass) {
  const std::vector<std::tuple<Texts, int, int>> rows = {
      // service lists, which one goes, verdict
      {{"INTERNET"}, 1, 0},
      {{"INTERNET", "INTERNET"}, 1, 1},
      {{"INTERNET", "INTERNET"}, 2, 1},
      {{"VOIP_INTERNET", "INTERNET_TR069"}, 1, 1},
      {{"INTERNET", "OTHER", "OTHER"}, 1, 0},
      {{"INTERNET", "internet"}, 1, 0},
      {{"OTHER"}, 1, 0},
      {{"OTHER", "INTERNET"}, 1, 1},
      {{"internet", "INTERNET"}, 1, 1},
      {{"", ""}, 1, 1},
      {{"OTHER", "TR069"}, 1, 0},
      {{"OTHER", "MME", "INTERNET_TR069", "MME_INTERNET"}, 1, 0},
      {{"OTHER", "mme"}, 1, 1},
      {{"TR069", "INTERNET"}, 1, 0},
      {{"TR069", "INTERNET", "OTHER"}, 1, 1},
      {{"MME", "TR069", "OTHER", "INTERNET"}, 1, 1}};
  for (const auto& [lists, removed, expected] : rows) {
    tree_ = host::Tree::factory();
    for (const std::string& list : lists) (void)add_service(list);
    EXPECT_EQ(igd_verify_can_remove_wan(wan_path(1, removed)), expected)
        << ::testing::PrintToString(lists) << ", removing " << removed;
  }
}

TEST_F(WanRemove, JudgesAnUnknownConnectionLikeOneWithoutInternet) {
  (void)add_service("INTERNET");
  EXPECT_EQ(igd_verify_can_remove_wan(wan_path(1, 9)), 0);
  (void)add_service("OTHER");
  EXPECT_EQ(igd_verify_can_remove_wan(wan_path(1, 9)), 1);
}

TEST_F(WanRemove, AsksTheFirstServiceListOfAConnectionOnly) {
  const std::string path = add_service("OTHER");
  set(add(path + "WANPPPConnection.") + "X_CT-COM_ServiceList", "INTERNET");
  EXPECT_EQ(igd_verify_can_remove_wan(path), 1);
}

TEST_F(WanRemove, ChecksWithoutWriting) {
  const std::string path = add_service("INTERNET");
  support::Transcript transcript;
  (void)igd_verify_can_remove_wan(path);
  EXPECT_EQ(transcript.writes(), "");
}

TEST_F(WanRemove, TakesConnectionAndBridgeOutOfTheTree) {
  const std::string path = create(routed_pppoe("1_INTERNET", 100));
  (void)remove(path);
  EXPECT_FALSE(tree_.has_object(path));
  EXPECT_EQ(bridge_named("br_1_1"), "");
  EXPECT_TRUE(tree_.has_object(support::kWanDevices + "1."));
  EXPECT_EQ(lan_ports().size(), 8U);
}

TEST_F(WanRemove, LeavesOtherConnectionsAlone) {
  const std::string path = create(bridged("1_OTHER", 100, {"LAN1"}));
  api_wan_info info = routed_pppoe("2_INTERNET", 200);
  info.bind_lan = {"LAN2"};
  const std::string kept = create(info);
  (void)remove(path);
  EXPECT_TRUE(tree_.has_object(kept + "WANPPPConnection.1."));
  EXPECT_EQ(ports_of(bridge_named("br_1_2")), Texts{"LAN0"});
  EXPECT_EQ(get(kBridges + "1.Port.9.X_ZYN_DependWanName"), kept);
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(kept), 1U);
}

TEST_F(WanRemove, DropsTheCacheEntry) {
  const std::string path = create(routed_pppoe("1_INTERNET", 100));
  ASSERT_EQ(g_wan_mibinfo_cache_list.count(path), 1U);
  (void)remove(path);
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(path), 0U);
}

/// Looks at each port that is added whether the cache knows a connection.
class CacheWatcher final : public support::MibDecorator {
 public:
  explicit CacheWatcher(std::string path)
      : MibDecorator(host::mib_access()), path_(std::move(path)) {}
  int addObject(const std::string& table_path, int* instance, int access_level) override {
    known_.push_back(g_wan_mibinfo_cache_list.count(path_) != 0);
    return next().addObject(table_path, instance, access_level);
  }
  const std::vector<bool>& known() const { return known_; }

 private:
  std::string path_;
  std::vector<bool> known_;
};

TEST_F(WanRemove, DropsTheCacheEntryBeforeItGivesPortsBack) {
  const std::string path = create(bridged("1_OTHER", 100, {"LAN1", "LAN2"}));
  CacheWatcher watcher(path);
  const support::BehindSwitchboard behind(watcher);
  ASSERT_EQ(g_wan_mibinfo_cache_list.count(path), 1U);
  (void)remove(path);
  EXPECT_EQ(watcher.known(), (std::vector<bool>{false, false}));
}

TEST_F(WanRemove, CommitsOnceAtTheEnd) {
  const std::string path = create(routed_pppoe("1_INTERNET", 100));
  support::Transcript transcript;
  igd_wan_destory(path);
  const std::string writes = transcript.writes();
  EXPECT_EQ(writes.find("commit"), writes.size() - std::string("commit 1\n").size());
}

TEST_F(WanRemove, DeletesTheRoutesOfTheConnection) {
  const std::string path = add_connection();
  const std::string other = wan_path(1, 2);
  const std::vector<std::tuple<std::string, std::string, bool>> rows = {
      {path, "", false},      {path, other, false},
      {other, path, true},    {"", path, false},
      {"", other, true},      {"", "", true},
      {path + "1", "", true}, {path.substr(0, 55), "", true},
      {"", path + " ", true}};
  Texts routes;
  for (const auto& [interface, table, kept] : rows) routes.push_back(add_route(interface, table));
  (void)remove(path);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto& [interface, table, kept] = rows[i];
    EXPECT_EQ(tree_.has_object(routes[i]), kept) << interface << " table " << table;
  }
}

TEST_F(WanRemove, PrintsTheInterfaceOfEachRouteAndTheTableOfThoseWithoutOne) {
  const std::string path = add_connection();
  (void)add_route(path, "never shown");
  (void)add_route("", "table");
  EXPECT_EQ(remove(path), "aaaa" + path + "\naaaa\naaaa" + kRoutes + "2.\naaaatable\n");
}

TEST_F(WanRemove, GivesThePortsOfItsBridgeBackExceptTheUplinks) {
  const std::string path = create(bridged("2_OTHER", 100, {"LAN1"}));
  (void)add_port(bridge_named("br_1_1"), "WIFIW0");
  (void)add_port(bridge_named("br_1_1"), "3G0");
  (void)remove(path);
  EXPECT_EQ(lan_ports(),
            (Texts{"LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4", "LAN1"}));
}

TEST_F(WanRemove, GivesAPortBackEnabledAndFree) {
  const std::string path = add_connection();
  (void)add_port(bridge_named("br_1_1"), "LAN5");
  (void)remove(path);
  const std::string port_path = kBridges + "1.Port.9.";
  EXPECT_EQ(get(port_path + "PortInterface"), "LAN5");
  EXPECT_EQ(get(port_path + "PortEnable"), "true");
  EXPECT_EQ(get(port_path + "PVID"), "");
  EXPECT_EQ(get(port_path + "X_ZYN_DependWanName"), "");
}

TEST_F(WanRemove, MakesPortsBoundInTheLanBridgeAnew) {
  const std::string path = add_connection();
  set(kBridges + "1.Port.2.X_ZYN_DependWanName", path);
  set(kBridges + "1.Port.2.PVID", "4060");
  (void)remove(path);
  EXPECT_FALSE(tree_.has_object(kBridges + "1.Port.2."));
  EXPECT_EQ(get(kBridges + "1.Port.9.PortInterface"), "LAN2");
  EXPECT_EQ(get(kBridges + "1.Port.9.X_ZYN_DependWanName"), "");
  EXPECT_EQ(get(kBridges + "1.Port.9.PVID"), "");
}

TEST_F(WanRemove, GivesBackEvenAnUplinkThatIsBoundInTheLanBridge) {
  const std::string path = add_connection();
  (void)add_port(kBridges + "1.", "LAN0", path);
  (void)remove(path);
  EXPECT_EQ(ports_of(kBridges + "1.").back(), "LAN0");
}

TEST_F(WanRemove, GivesPortsOfItsBridgeBackFirst) {
  const std::string path = add_connection();
  (void)add_port(bridge_named("br_1_1"), "LAN5");
  set(kBridges + "1.Port.1.X_ZYN_DependWanName", path);
  set(kBridges + "1.Port.3.X_ZYN_DependWanName", path);
  (void)remove(path);
  EXPECT_EQ(lan_ports(),
            (Texts{"LAN2", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4", "LAN5", "LAN1", "LAN3"}));
}

TEST_F(WanRemove, LeavesPortsThatDependOnItInOtherBridges) {
  const std::string path = add_connection();
  const std::string port_path = add_port(add_bridge("br_9_9", wan_path(9, 9)), "LAN5", path);
  set(kBridges + "1.Port.1.X_ZYN_DependWanName", path + "1");
  (void)remove(path);
  EXPECT_EQ(get(port_path + "X_ZYN_DependWanName"), path);
  EXPECT_EQ(get(kBridges + "1.Port.1.X_ZYN_DependWanName"), path + "1");
}

TEST_F(WanRemove, TakesThePortsOfEveryBridgeWhenItHasNone) {
  const std::string path = add_connection_device(1, {"Static", "DHCP", "PPP"});
  const std::string other = add_bridge("br_9_9", wan_path(9, 9));
  (void)add_port(other, "LAN0");
  (void)add_port(other, "LAN5");
  (void)remove(path);
  EXPECT_EQ(take_refusals(), (Texts{"setValue BridgeEnable", "deleteObject "}));
  EXPECT_TRUE(ports_of(other).empty());
  EXPECT_EQ(lan_ports(),
            (Texts{"LAN1", "LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4", "LAN5"}));
  EXPECT_FALSE(tree_.has_object(kBridges + "1.Port.1."));
}

TEST_F(WanRemove, AsksABareNameOffForEachMissingObject) {
  const std::string path = add_connection_device(1, {"DHCP"});
  (void)add_bridge("br_1_1", path);
  (void)remove(path);
  EXPECT_EQ(take_refusals(), (Texts{"setValue Enable", "setValue Enable"}));
  EXPECT_FALSE(tree_.has_object(path));
}

TEST_F(WanRemove, GoesThroughAllItsStepsForAnUnknownConnection) {
  const std::string route_path = add_route(wan_path(7, 7), "");
  (void)remove(wan_path(7, 7));
  EXPECT_EQ(take_refusals(),
            (Texts{"setValue Enable", "setValue Enable", "setValue Enable",
                   "deleteObject " + wan_path(7, 7), "setValue BridgeEnable", "deleteObject "}));
  EXPECT_FALSE(tree_.has_object(route_path));
}

TEST_F(WanRemove, LosesItsPortsWhenThereIsNoLanBridge) {
  ASSERT_EQ(tree_.delete_object(kBridges + "1."), 0);
  const std::string path = add_connection();
  (void)add_port(bridge_named("br_1_1"), "LAN1");
  (void)remove(path);
  EXPECT_EQ(take_refusals(),
            (Texts{"addObject Port.", "setValue Port.0.PVID", "setValue Port.0.PortInterface",
                   "setValue Port.0.PortEnable"}));
  EXPECT_TRUE(tree_.instances(kPortInterface).empty());
}

TEST_F(WanRemove, LooksForDependingPortsInEveryBridgeWhenThereIsNoLanBridge) {
  ASSERT_EQ(tree_.delete_object(kBridges + "1."), 0);
  const std::string path = add_connection();
  (void)add_port(bridge_named("br_1_1"), "LAN2", path);  // gone by then, so given back once
  (void)add_port(add_bridge("br_9_9", wan_path(9, 9)), "LAN1", path);
  (void)remove(path);
  EXPECT_EQ(take_refusals().size(), 8U);  // four for each port that has no bridge to go to
  EXPECT_TRUE(tree_.instances(kPortInterface).empty());
}

TEST_F(WanRemove, FreesItsName) {
  (void)remove(create(routed_pppoe("1_INTERNET", 100)));
  EXPECT_EQ(create(routed_pppoe("1_INTERNET", 100)), wan_path(1, 2));
}

}  // namespace
