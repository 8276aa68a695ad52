// A change that goes through the library keeps what a tree holds in a form of its own, that no
// description can carry.
#include <gtest/gtest.h>

#include "csv_dump.h"
#include "wan_set_fixture.h"

namespace {

using namespace igdctl_tests;

// ---- Trees that the library did not make --------------------------------------------------

class WanSetOfForeignTrees : public WanSet {
 protected:
  WanSetOfForeignTrees() {
    api_wan_info info = description(kIgdRouted, kIgdDhcp, 100, {});
    path_ = quietly([&info] { return igd_wan_create("Ethernet", &info); });
    fixed_ = path_ + "WANIPConnection.1.";
    dhcp_ = path_ + "WANIPConnection.2.";
    ppp_ = path_ + "WANPPPConnection.1.";
  }

  static WanPatch patch_of(const char* key, const Value& value) {
    WanPatch patch;
    patch[key] = value;
    return patch;
  }

  // A change that goes through the library, and the same way back, leave no trace.
  void expect_kept_over(const char* key, const Value& there, const Value& back) {
    const Values before = values();
    write(only_connection(), patch_of(key, there));
    EXPECT_NE(difference_since(before), "");
    write(only_connection(), patch_of(key, back));
    EXPECT_EQ(difference_since(before), "");
  }
  void expect_kept_over_a_vlan() { expect_kept_over("vlan", 110, 100); }
  void expect_kept_over_a_class() { expect_kept_over("class", "routed-bridged", "routed"); }

  std::string path_;
  std::string fixed_;
  std::string dhcp_;
  std::string ppp_;
};

TEST_F(WanSetOfForeignTrees, KeepsServersInAnyForm) {
  for (const char* servers :
       {"", "192.0.2.53", "192.0.2.53,192.0.2.54,192.0.2.55", ",", " a , b "}) {
    set(dhcp_ + "DNSEnabled", "true");
    set(dhcp_ + "DNSServers", servers);
    expect_kept_over_a_vlan();
  }
}

TEST_F(WanSetOfForeignTrees, KeepsASecondEnabledObject) {
  set(ppp_ + "Enable", "true");
  expect_kept_over_a_vlan();
}

TEST_F(WanSetOfForeignTrees, KeepsAConnectionOff) {
  set(dhcp_ + "Enable", "false");
  expect_kept_over_a_vlan();
}

TEST_F(WanSetOfForeignTrees, KeepsObjectsThatDifferFromOneAnother) {
  set(fixed_ + "ConnectionType", "Unconfigured");
  set(ppp_ + "ConnectionType", "PPPoE_Bridged");
  set(ppp_ + "Name", "Other");
  set(fixed_ + "X_CT-COM_ServiceList", "VOIP");
  set(ppp_ + "NATEnabled", "false");
  set(ppp_ + "X_CT-COM_LanInterface", "LAN4");
  expect_kept_over_a_vlan();
}

TEST_F(WanSetOfForeignTrees, KeepsAnUnknownType) {
  for (const std::string* path : {&fixed_, &dhcp_, &ppp_}) set(*path + "ConnectionType", "Relay");
  expect_kept_over_a_vlan();
}

TEST_F(WanSetOfForeignTrees, KeepsTheVlansOfPortsThatAreOff) {
  const std::string port = only_connection().bridge_path + "Port.1.";
  set(port + "PVID", "77");
  set(port + "PortEnable", "false");
  expect_kept_over_a_class();
}

TEST_F(WanSetOfForeignTrees, KeepsTheServersOfANewMode) {
  set(fixed_ + "DNSEnabled", "");
  set(fixed_ + "DNSServers", "192.0.2.53");
  expect_kept_over("mode", "static", "dhcp");
}

TEST_F(WanSetOfForeignTrees, KeepsFlagsThatAreNeitherTrueNorFalse) {
  set(path_ + "X_CT-COM_Enable", "");
  set(path_ + "X_CT-COM_STPEnable", "1");
  expect_kept_over_a_vlan();
}

TEST_F(WanSetOfForeignTrees, KeepsTheVlanOfAnUntaggedBridge) {
  const std::string bridge = only_connection().bridge_path;
  set(bridge + "BridgeStandard", "802.1D");
  set(path_ + "WANEthernetLinkConfig.X_CT-COM_Mode", "2");
  expect_kept_over_a_class();
}

TEST_F(WanSetOfForeignTrees, NamingTheModeMendsASecondEnabledObject) {
  set(ppp_ + "Enable", "true");
  WanPatch patch;
  patch["mode"] = "dhcp";
  const Values before = values();
  write(only_connection(), patch);
  EXPECT_EQ(difference_since(before), ppp_ + "Enable: true -> false\n");
}

// ---- Dumps of real gateways, where they are at hand ----------------------------------------

class WanSetOfDumps : public WanSet, public ::testing::WithParamInterface<const char*> {
 protected:
  // Their connections have no bridges of their own, without which nothing is changed. All that
  // goes with a VLAN is as the library has it, so that the way back leads here.
  void give_bridge(const Connection& connection) {
    const std::string bridge = add(std::string(kBridges));
    set(bridge + "BridgeName", connection.bridge_name);
    set(bridge + "X_ZYN_WANName", connection.path);
    set(bridge + "VLANID", "100");
    set(bridge + "BridgeStandard", "802.1Q");
    const std::string port = add(bridge + "Port.");
    set(port + "PortInterface", "LAN0");
    set(port + "PVID", "100");
    set(port + "PortEnable", "true");
    set(bridge + "X_ZYN_VLANPriority", "0");
    set(connection.path + "WANEthernetLinkConfig.X_CT-COM_VLANIDMark", "100");
    set(connection.path + "WANEthernetLinkConfig.X_CT-COM_Mode", "1");
  }

  static constexpr char kBridges[] = "InternetGatewayDevice.Layer2Bridging.Bridge.";
};

TEST_P(WanSetOfDumps, KeepsAllOverAVlan) {
  const std::string file = host_tests::dump_file(GetParam());
  if (file.empty()) GTEST_SKIP() << GetParam() << " is not in the dump folder";
  ASSERT_TRUE(host::import_csv_file(tree_, file).ok);
  set(add(std::string(kBridges)) + "BridgeName", "internet");
  for (const Connection& connection : all_connections()) {
    give_bridge(connection);
  }
  forget();
  for (const Connection& connection : all_connections()) {
    ASSERT_TRUE(connection.has_bridge());
    const Values before = values();
    for (const int vlan : {110, 100}) {
      WanPatch patch;
      patch["vlan"] = vlan;
      write(connection, patch);
    }
    EXPECT_TRUE(difference_since(before).empty()) << connection.id;  // their values are not shown
  }
}

INSTANTIATE_TEST_SUITE_P(Gateways, WanSetOfDumps,
                         ::testing::Values("igd-bm632w.csv", "igd-w5-2100g.csv",
                                           "igd-ec220-g5-v2.csv"));

}  // namespace
