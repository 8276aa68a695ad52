// A change of a connection writes what is named, and no value that differs beside it.
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "csv_dump.h"
#include "host_platform.h"
#include "igd_api.h"
#include "stdout_capture.h"
#include "wan_change.h"
#include "wan_description.h"

namespace {

using namespace igdctl;
using Values = std::map<std::string, std::string>;

constexpr char kMaskOf24Bits[] = "255.255.255.0";

// Calls the library without its trace.
template <typename Action>
auto quietly(const Action& action) {
  const support::StdoutCapture trace;
  return action();
}

api_wan_info read(const Connection& connection) {
  return quietly([&connection] { return read_description(host::mib_access(), connection); });
}

WanProposal propose(const Connection& connection, const WanWish& wish) {
  return quietly([&] { return propose_change(host::mib_access(), connection, wish); });
}

std::vector<Connection> all_connections() {
  return quietly([] { return list_connections(host::mib_access()); });
}

// A tree of its own behind the library.
class WanSet : public ::testing::Test {
 protected:
  WanSet() : before_(host::exchange_active_tree(&tree_)) { forget(); }
  ~WanSet() override {
    forget();
    (void)host::exchange_active_tree(before_);
  }

  static void forget() {
    std::vector<std::string> none;
    _rebuid_cache(none);
  }

  Values values() const {
    Values all;
    for (const host::Parameter& parameter : tree_.parameters()) {
      all[parameter.name] = parameter.value;
    }
    return all;
  }

  // What became different, as "name: before -> after".
  std::string difference_since(const Values& before) const {
    std::string text;
    const Values after = values();
    for (const auto& [name, value] : after) {
      const auto old = before.find(name);
      if (old == before.end()) {
        text += name + " is new\n";
      } else if (old->second != value) {
        text += name + ": " + old->second + " -> " + value + '\n';
      }
    }
    for (const auto& entry : before) {
      if (after.count(entry.first) == 0) text += entry.first + " is gone\n";
    }
    return text;
  }

  void set(const std::string& name, const std::string& value) {
    ASSERT_EQ(tree_.set_value(name, value), 0) << name;
  }

  std::string add(const std::string& table) {
    int number = 0;
    EXPECT_EQ(tree_.add_object(table, &number), 0) << table;
    return table + std::to_string(number) + '.';
  }

  static Connection only_connection() {
    const std::vector<Connection> all = all_connections();
    EXPECT_EQ(all.size(), 1U);
    return all.front();
  }

  static void write(const Connection& connection, const WanWish& wish) {
    WanProposal proposal = propose(connection, wish);
    quietly([&] { write_over(host::mib_access(), connection, &proposal); });
  }

  host::Tree tree_ = host::Tree::factory();
  host::Tree* before_;
};

api_wan_info description(int connection_class, int mode, int vlan, const Names& servers) {
  api_wan_info info;
  info.wan_info_name = "Connection";
  info.service_type = "INTERNET,VOIP";
  info.connection_class = connection_class;
  info.connect_mode = mode;
  info.vlan_enable = vlan != 0 ? 1 : 0;
  info.vlan_id = vlan;
  info.vlan_priority = 3;
  info.nat_mode = connection_class == kIgdBridged ? 0 : 1;
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "true";
  info.pppoe_user_name = "household@example.net";
  info.pppoe_password = "correct-horse";
  info.pppoe_mtu = "1480";
  info.static_mtu = "1500";
  info.dhcp_mtu = "1400";
  info.ip_addr = "192.0.2.10";
  info.ip_mask = kMaskOf24Bits;
  info.ip_gw = "192.0.2.1";
  info.dhcp_option60 = "gateway";
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN3"};
  info.port_option60 = {{"LAN3", "set-top"}};
  info.ip_dns_enable = servers.empty() ? 0 : 1;
  if (!servers.empty()) info.ip_dns1 = servers[0];
  if (servers.size() > 1) info.ip_dns2 = servers[1];
  return info;
}

struct Made {
  int connection_class;
  int mode;
  int vlan;
  Names servers;
};

std::vector<Made> all_kinds() {
  std::vector<Made> kinds;
  for (const int connection_class : {kIgdRouted, kIgdBridged, kIgdRoutedAndBridged}) {
    for (const int mode : {0, static_cast<int>(kIgdDhcp), static_cast<int>(kIgdStatic),
                           static_cast<int>(kIgdPppoe)}) {
      for (const int vlan : {0, 100}) {
        for (const Names& servers :
             {Names{}, Names{"192.0.2.53"}, Names{"192.0.2.53", "192.0.2.54"}}) {
          kinds.push_back({connection_class, mode, vlan, servers});
        }
      }
    }
  }
  return kinds;
}

std::string title(const Made& made) {
  return "class " + std::to_string(made.connection_class) + ", mode " + std::to_string(made.mode) +
         ", vlan " + std::to_string(made.vlan) + ", " + std::to_string(made.servers.size()) +
         " servers";
}

class WanSetOfMadeConnections : public WanSet {
 protected:
  void make(const Made& made) {
    tree_ = host::Tree::factory();
    forget();
    api_wan_info info = description(made.connection_class, made.mode, made.vlan, made.servers);
    ASSERT_FALSE(quietly([&info] { return igd_wan_create("Ethernet", &info); }).empty());
    ASSERT_TRUE(tree_.refusals().empty());
  }
};

TEST_F(WanSetOfMadeConnections, WritesBackWhatIsReadWithoutADifference) {
  for (const Made& made : all_kinds()) {
    make(made);
    const Values before = values();
    const Connection connection = only_connection();
    api_wan_info info = read(connection);
    // Nothing is put back after it.
    ASSERT_EQ(quietly([&] { return igd_wan_set_params(connection.path, &info); }), 0);
    EXPECT_EQ(difference_since(before), "") << title(made);
    EXPECT_TRUE(tree_.refusals().empty()) << title(made);
  }
}

TEST_F(WanSetOfMadeConnections, ChangesNothingWhenTheWholeDescriptionIsNamed) {
  for (const Made& made : all_kinds()) {
    make(made);
    const Values before = values();
    const Connection connection = only_connection();
    const Json shown = json_of(connection, read(connection), true);
    std::vector<Fault> faults;
    const WanWish wish = read_wish(shown, &faults);
    EXPECT_TRUE(faults.empty()) << faults.front().what;
    const WanProposal proposal = propose(connection, wish);
    EXPECT_TRUE(proposal.changed.empty()) << title(made) << ": " << *proposal.changed.begin();
    write(connection, wish);
    EXPECT_EQ(difference_since(before), "") << title(made);
  }
}

TEST_F(WanSetOfMadeConnections, ChangesOnlyWhatIsNamed) {
  make({kIgdRouted, kIgdDhcp, 100, {"192.0.2.53"}});
  const Values before = values();
  const Connection connection = only_connection();
  WanWish wish;
  wish.mtu = 1300;
  write(connection, wish);
  EXPECT_EQ(difference_since(before), connection.path + "WANIPConnection.2.MTU: 1400 -> 1300\n");
}

TEST_F(WanSetOfMadeConnections, ANewModeKeepsTheServersOfItsOwnObject) {
  make({kIgdRouted, kIgdDhcp, 100, {"192.0.2.53"}});
  const Connection connection = only_connection();
  const std::string fixed = connection.path + "WANIPConnection.1.";
  set(fixed + "DNSEnabled", "true");
  set(fixed + "DNSServers", "198.51.100.53");
  WanWish wish;
  wish.mode = kIgdStatic;
  const WanProposal proposal = propose(connection, wish);
  EXPECT_EQ(dns_servers_of(proposal.info), (Names{"198.51.100.53"}));
}

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

  void expect_no_difference() {
    const Values before = values();
    write(only_connection(), {});
    EXPECT_EQ(difference_since(before), "");
  }

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
    expect_no_difference();
  }
}

TEST_F(WanSetOfForeignTrees, KeepsASecondEnabledObject) {
  set(ppp_ + "Enable", "true");
  expect_no_difference();
}

TEST_F(WanSetOfForeignTrees, KeepsAConnectionOff) {
  set(dhcp_ + "Enable", "false");
  expect_no_difference();
}

TEST_F(WanSetOfForeignTrees, KeepsObjectsThatDifferFromOneAnother) {
  set(fixed_ + "ConnectionType", "Unconfigured");
  set(ppp_ + "ConnectionType", "PPPoE_Bridged");
  set(ppp_ + "Name", "Other");
  set(fixed_ + "X_CT-COM_ServiceList", "VOIP");
  set(ppp_ + "NATEnabled", "false");
  set(ppp_ + "X_CT-COM_LanInterface", "LAN4");
  expect_no_difference();
}

TEST_F(WanSetOfForeignTrees, KeepsAnUnknownTypeAndTheVlansOfPorts) {
  for (const std::string* path : {&fixed_, &dhcp_, &ppp_}) set(*path + "ConnectionType", "Relay");
  const std::string port = only_connection().bridge_path + "Port.1.";
  set(port + "PVID", "77");
  set(port + "PortEnable", "false");
  expect_no_difference();
}

TEST_F(WanSetOfForeignTrees, KeepsFlagsThatAreNeitherTrueNorFalse) {
  set(path_ + "X_CT-COM_Enable", "");
  set(path_ + "X_CT-COM_STPEnable", "1");
  expect_no_difference();
}

TEST_F(WanSetOfForeignTrees, KeepsTheVlanOfAnUntaggedBridge) {
  const std::string bridge = only_connection().bridge_path;
  set(bridge + "BridgeStandard", "802.1D");
  set(path_ + "WANEthernetLinkConfig.X_CT-COM_Mode", "2");
  expect_no_difference();
}

TEST_F(WanSetOfForeignTrees, NamingTheModeMendsASecondEnabledObject) {
  set(ppp_ + "Enable", "true");
  WanWish wish;
  wish.mode = kIgdDhcp;
  const Values before = values();
  write(only_connection(), wish);
  EXPECT_EQ(difference_since(before), ppp_ + "Enable: true -> false\n");
}

// ---- Dumps of real gateways, where they are at hand ----------------------------------------

class WanSetOfDumps : public WanSet, public ::testing::WithParamInterface<const char*> {
 protected:
  // Their connections have no bridges of their own, without which nothing is changed.
  void give_bridge(const Connection& connection) {
    const std::string bridge = add(std::string(kBridges));
    set(bridge + "BridgeName", connection.bridge_name);
    set(bridge + "X_ZYN_WANName", connection.path);
    set(bridge + "VLANID", "100");
    set(bridge + "BridgeStandard", "802.1Q");
    const std::string port = add(bridge + "Port.");
    set(port + "PortInterface", "LAN0");
  }

  static constexpr char kBridges[] = "InternetGatewayDevice.Layer2Bridging.Bridge.";
};

TEST_P(WanSetOfDumps, ChangesNothingWithoutAnOption) {
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
    write(connection, {});
    EXPECT_TRUE(difference_since(before).empty()) << connection.id;  // their values are not shown
  }
}

INSTANTIATE_TEST_SUITE_P(Gateways, WanSetOfDumps,
                         ::testing::Values("igd-bm632w.csv", "igd-w5-2100g.csv",
                                           "igd-ec220-g5-v2.csv"));

}  // namespace
