// Removing a connection, and the advice whether it may be removed.
#include "gateway_test.h"

namespace foreign {
namespace {

using Names = std::vector<std::string>;

class RemoveWan : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    device_ = add_device("Ethernet");
    connection_ = add_connection(device_);
    lan_bridge_ = add_lan_bridge({"LAN2"});
  }

  Names ports_of(const std::string& bridge) {
    Names found;
    for (const std::string& name : tree().names_of(205)) {
      if (parent_of(parent_of(parent_of(name))) == bridge) found.push_back(tree().get(name));
    }
    return found;
  }

  bool exists(const std::string& object) { return tree().objects().count(object) != 0; }

  std::string device_;
  Connection connection_;
  std::string lan_bridge_;
};

TEST_F(RemoveWan, TakesEverythingInOneFixedOrder) {
  const std::string own = add_wan_bridge(connection_, "br_1_1", {"LAN0", "LAN1"});
  const std::string bound = add_port(lan_bridge_, "LAN3", connection_.wan);
  const std::string by_interface = add_route(connection_.wan, "");
  const std::string by_table = add_route("", connection_.wan);
  run([&] { igd_wan_destory(connection_.wan); });
  const std::string fixed = connection_.fixed, dhcp = connection_.dhcp, wan = connection_.wan;
  const std::string lan = lan_bridge_;
  EXPECT_EQ(transcript(), lines({
                              "open 177",
                              "close",
                              "get " + by_interface + "Interface",
                              "| aaaa" + wan,
                              "delete " + by_interface,
                              "get " + by_table + "Interface",
                              "| aaaa",
                              "| aaaa" + by_table,
                              "get " + by_table + "X_ZYN_RouteTable",
                              "| aaaa" + wan,
                              "delete " + by_table,
                              "open 1359",
                              "close",
                              "get " + fixed + "AddressingType",
                              "open 1359",
                              "close",
                              "get " + fixed + "AddressingType",
                              "get " + dhcp + "AddressingType",
                              "open 1429",
                              "close",
                              "set " + fixed + "Enable = false",
                              "set " + dhcp + "Enable = false",
                              "set " + connection_.ppp + "Enable = false",
                              "delete " + wan,
                              "debug igd_api:# INDEX=" + wan,
                              "open 197",
                              "close",
                              "get " + lan + "X_ZYN_WANName",
                              "get " + own + "X_ZYN_WANName",
                              "get " + own + "BridgeName",
                              "open 205",
                              "close",
                              "get " + own + "Port.1.PortInterface",
                              "get " + own + "Port.2.PortInterface",
                              "open 205",
                              "close",
                              "set " + own + "Port.1.PortEnable = false",
                              "delete " + own + "Port.1.",
                              "set " + own + "Port.2.PortEnable = false",
                              "delete " + own + "Port.2.",
                              "set " + own + "BridgeEnable = false",
                              "delete " + own,
                              "open 1359",
                              "open 1359",
                              "open 1429",
                              "open 196",
                              "close",
                              "get " + lan + "BridgeName",
                              "open 204",
                              "close",
                              "get " + lan + "Port.1.X_ZYN_DependWanName",
                              "get " + bound + "X_ZYN_DependWanName",
                              "get " + bound + "PortInterface",
                              "set " + bound + "PortEnable = false",
                              "delete " + bound,
                              "get " + lan + "BridgeName",
                              "add " + lan + "Port. 255: 3",
                              "set " + lan + "Port.3.PVID = ",
                              "set " + lan + "Port.3.PortInterface = LAN1",
                              "get " + lan + "BridgeName",
                              "set " + lan + "Port.3.PortEnable = true",
                              "get " + lan + "BridgeName",
                              "add " + lan + "Port. 255: 4",
                              "set " + lan + "Port.4.PVID = ",
                              "set " + lan + "Port.4.PortInterface = LAN3",
                              "get " + lan + "BridgeName",
                              "set " + lan + "Port.4.PortEnable = true",
                              "commit 1",
                          }));
  EXPECT_FALSE(exists(wan));
  EXPECT_FALSE(exists(own));
  EXPECT_EQ(ports_of(lan), (Names{"LAN2", "LAN1", "LAN3"}));
}

TEST_F(RemoveWan, GivesBackEveryPortButTheUplinks) {
  add_wan_bridge(connection_, "br_1_1", {"LAN1", "LAN0", "WIFIW0", "3G0", "LAN_DEFAULT1"});
  destroy(connection_.wan);
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN2", "LAN1", "LAN_DEFAULT1"}));
}

TEST_F(RemoveWan, RecreatesABoundPortWithoutItsOwner) {
  add_wan_bridge(connection_, "br_1_1", {});
  add_port(lan_bridge_, "LAN3", connection_.wan);
  add_port(lan_bridge_, "LAN0", connection_.wan);
  const std::string others = add_port(lan_bridge_, "LAN4", device_ + "WANConnectionDevice.11.");
  destroy(connection_.wan);
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN2", "LAN4", "LAN3", "LAN0"}));
  EXPECT_TRUE(exists(others));
  EXPECT_EQ(tree().get(lan_bridge_ + "Port.5.X_ZYN_DependWanName"), "");
}

TEST_F(RemoveWan, KeepsTheRoutesOfOthers) {
  const std::string other = add_connection(device_).wan;
  add_wan_bridge(connection_, "br_1_1", {});
  const std::string of_other = add_route(other, connection_.wan);
  const std::string by_gateway = add_route("", other);
  const std::string similar = add_route(connection_.wan + "x", "");
  const std::string own = add_route("", connection_.wan);
  destroy(connection_.wan);
  EXPECT_TRUE(exists(of_other) && exists(by_gateway) && exists(similar));
  EXPECT_FALSE(exists(own));
}

TEST_F(RemoveWan, TakesEveryPortOfTheTreeWhenTheConnectionHasNoBridge) {
  const std::string other = add_bridge("br_1_2", device_ + "WANConnectionDevice.2.");
  add_port(other, "LAN0");
  add_port(other, "LAN4");
  destroy(connection_.wan);
  EXPECT_EQ(ports_of(other), Names{});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN2", "LAN4"}));
  EXPECT_TRUE(exists(other));
  EXPECT_EQ(tree().get("BridgeEnable"), "false");
  EXPECT_NE(transcript().find("\ndelete \n"), std::string::npos);
}

TEST_F(RemoveWan, WritesBareNamesForMissingObjects) {
  const std::string wan = add(device_ + "WANConnectionDevice.");
  add_bridge("br_1_2", wan);
  destroy(wan);
  EXPECT_NE(writes_of(transcript())
                .find("set Enable = false\nset Enable = false\n"
                      "set Enable = false\ndelete " +
                      wan + "\n"),
            std::string::npos);
}

TEST_F(RemoveWan, CreatesReturnedPortsUnderABareNameWithoutALanBridge) {
  tree().erase(lan_bridge_);
  add_wan_bridge(connection_, "br_1_1", {"LAN1"});
  destroy(connection_.wan);
  const std::string expected =
      lines({"add Port. 255: refused", "set Port.0.PVID = ", "set Port.0.PortInterface = LAN1",
             "set Port.0.PortEnable = true", "commit 1"});
  const std::string writes = writes_of(transcript());
  ASSERT_GE(writes.size(), expected.size());
  EXPECT_EQ(writes.substr(writes.size() - expected.size()), expected);
}

TEST_F(RemoveWan, GoesOnWhenTheTreeRefuses) {
  const std::string own = add_wan_bridge(connection_, "br_1_1", {"LAN1"});
  add_route(connection_.wan, "");
  for (const std::string& path :
       {std::string(kForwarding) + "1.", connection_.wan, own, own + "Port.1."}) {
    tree().refuse_erase(path, -5);
  }
  tree().refuse_add(1);
  destroy(connection_.wan);
  EXPECT_NE(transcript().find("\ncommit 1\n"), std::string::npos);
}

TEST_F(RemoveWan, DropsTheCachedPathsOfThisConnectionOnly) {
  const Connection other = add_connection(device_);
  add_wan_bridge(connection_, "br_1_1", {});
  for (const std::string& wan : {connection_.wan, other.wan}) {
    follow([&](Script& s) { cached_paths(s, wan); }, [&] { return _get_cache(wan); });
  }
  destroy(connection_.wan);
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(connection_.wan), 0u);
  EXPECT_EQ(g_wan_mibinfo_cache_list.count(other.wan), 1u);
}

TEST_F(RemoveWan, UndoesWhatCreationMade) {
  api_wan_info info = description(1, 3);
  info.wan_info_name = "fresh";
  info.bind_lan = {"LAN2"};
  info.bind_wan = {"LAN4"};
  const std::string wan = create("Ethernet", info);
  destroy(wan);
  EXPECT_EQ(tree().names_of(1273), Names{connection_.wan});
  EXPECT_EQ(tree().names_of(196), Names{lan_bridge_ + "BridgeName"});
  EXPECT_EQ(ports_of(lan_bridge_), (Names{"LAN4", "LAN2"}));
}

class RemovalAdvice : public RemoveWan {
 protected:
  int advice(const Connection& connection) {
    return run([&] { return igd_verify_can_remove_wan(connection.wan); });
  }
  void serve(const Connection& connection, const std::string& services) {
    tree().set(connection.ppp + "X_CT-COM_ServiceList", services);
  }
};

TEST_F(RemovalAdvice, NeedsASecondInternetConnection) {
  const Connection second = add_connection(device_);
  serve(connection_, "INTERNET");
  serve(second, "TR069");
  EXPECT_EQ(advice(connection_), 0);
  serve(second, "VOIP,INTERNET_2");
  EXPECT_EQ(advice(connection_), 1);
  serve(second, "internet");
  EXPECT_EQ(advice(connection_), 0);
}

TEST_F(RemovalAdvice, NeedsTwoOtherServicesFreeOfManagement) {
  const Connection second = add_connection(device_);
  const Connection third = add_connection(device_);
  serve(connection_, "TR069");
  serve(second, "INTERNET");
  serve(third, "xMMEx");
  EXPECT_EQ(advice(connection_), 0);
  serve(third, "VOIP");
  EXPECT_EQ(advice(connection_), 1);
  serve(third, "VOIP,TR069");
  EXPECT_EQ(advice(connection_), 0);
  serve(third, "");
  EXPECT_EQ(advice(connection_), 1);
}

TEST_F(RemovalAdvice, CountsTheConnectionItself) {
  const Connection second = add_connection(device_);
  serve(connection_, "VOIP");
  serve(second, "OTHER");
  EXPECT_EQ(advice(connection_), 1);
  tree().erase(second.wan);
  EXPECT_EQ(advice(connection_), 0);
}

TEST_F(RemovalAdvice, ReadsTheFirstListOfTheConnectionThenEveryList) {
  const Connection second = add_connection(device_);
  const std::string further = add(connection_.wan + "WANPPPConnection.");
  serve(connection_, "INTERNET");
  const std::string list = "X_CT-COM_ServiceList";
  const std::string every = lines({"open 1887", "close", "get " + connection_.ppp + list,
                                   "get " + further + list, "get " + second.ppp + list});
  EXPECT_EQ(advice(connection_), 0);
  EXPECT_EQ(transcript(), lines({"open 1887", "close", "get " + connection_.ppp + list}) + every);
  serve(connection_, "VOIP");
  tree().set(further + list, "INTERNET");
  EXPECT_EQ(advice(connection_), 1);
  EXPECT_EQ(transcript(), lines({"open 1887", "close", "get " + connection_.ppp + list}) + every);
}

TEST_F(RemovalAdvice, TreatsAnUnknownConnectionAsOneWithoutInternet) {
  Connection unknown;
  unknown.wan = "InternetGatewayDevice.WANDevice.9.WANConnectionDevice.9.";
  serve(connection_, "INTERNET");
  EXPECT_EQ(advice(unknown), 0);
  serve(add_connection(device_), "VOIP");
  EXPECT_EQ(advice(unknown), 1);
}

}  // namespace
}  // namespace foreign
