// Writing what differs comes to the same as writing the whole description over a connection:
// random changes of random gateways, each made both ways.
#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <random>

#include "wan/wan_checks.h"
#include "wan_set_fixture.h"
#include "whole_write.h"

namespace {

using namespace igdctl_tests;

constexpr unsigned kSeed = 20;
constexpr int kChanges = 300;
constexpr int kTriesOfAGateway = 10;
const Names kPorts = {"LAN1", "LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2"};

class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  int below(std::size_t limit) { return static_cast<int>(engine_() % limit); }
  bool once_in(std::size_t times) { return below(times) == 0; }
  template <typename T>
  T one_of(const std::vector<T>& values) {
    return values[static_cast<std::size_t>(below(values.size()))];
  }
  Names some_of(const Names& names) {
    Names some;
    for (const std::string& name : names) {
      if (once_in(3)) some.push_back(name);
    }
    return some;
  }

 private:
  std::mt19937 engine_;
};

// A value for each field; a new row of the table needs one here.
const std::map<std::string, std::function<Value(Dice&)>>& makers() {
  static const auto text = [](Dice& dice) -> Value {
    return dice.one_of<std::string>({"", "a", "voice", "Gäste im Hof", "x=\"1\""});
  };
  static const auto flag = [](Dice& dice) -> Value { return dice.once_in(2); };
  static const auto ports = [](Dice& dice) -> Value { return dice.some_of(kPorts); };
  static const std::map<std::string, std::function<Value(Dice&)>> all = {
      {"name",
       [](Dice& dice) -> Value {
         return dice.one_of<std::string>({"Radio", "A", "B"});
       }},
      {"access", [](Dice&) -> Value { return "Ethernet"; }},
      {"class",
       [](Dice& dice) -> Value {
         return dice.one_of<std::string>({"routed", "bridged", "routed-bridged"});
       }},
      {"mode",
       [](Dice& dice) -> Value {
         return dice.one_of<std::string>({"dhcp", "static", "pppoe"});
       }},
      {"vlan",
       [](Dice& dice) -> Value {
         return dice.one_of<int>({0, 100, 101, 110});
       }},
      {"priority", [](Dice& dice) -> Value { return dice.below(8); }},
      {"service",
       [](Dice& dice) -> Value {
         return dice.one_of<Names>({{"INTERNET"}, {"VOIP", "INTERNET"}, {"OTHER"}});
       }},
      {"bind_lan", ports},
      {"bind_wan", ports},
      {"nat", flag},
      {"user", text},
      {"password", text},
      {"address",
       [](Dice& dice) -> Value {
         return dice.one_of<std::string>({"192.0.2.10", "192.0.2.11"});
       }},
      {"mask", [](Dice&) -> Value { return kMaskOf24Bits; }},
      {"gateway",
       [](Dice& dice) -> Value {
         return dice.one_of<std::string>({"192.0.2.1", "192.0.2.2"});
       }},
      {"dns",
       [](Dice& dice) -> Value {
         return dice.one_of<Names>({{}, {"192.0.2.53"}, {"192.0.2.53", "192.0.2.54"}});
       }},
      {"mtu",
       [](Dice& dice) -> Value {
         return dice.one_of<int>({1400, 1480, 1492});
       }},
      {"option60", text},
      {"port_option60",
       [](Dice& dice) -> Value {
         TextsByPort texts;
         for (const std::string& port : dice.some_of(kPorts))
           texts[port] = dice.once_in(2) ? "" : "tv";
         return texts;
       }},
      {"enable", flag},
      {"remote_management", flag},
      {"stp", flag}};
  return all;
}

class WanRandomChanges : public WanSet {
 protected:
  void make_gateway() {
    tree_ = host::Tree::factory();
    forget();
    for (int number = 0; number <= dice_.below(2); ++number) {
      api_wan_info info =
          description(1 + dice_.below(3), dice_.below(4), dice_.once_in(3) ? 0 : 100 + number,
                      std::get<Names>(makers().at("dns")(dice_)));
      info.wan_info_name += std::to_string(number);
      if (number > 0) info.bind_lan = info.bind_wan = {};
      ASSERT_FALSE(quietly([&info] { return igd_wan_create("Ethernet", &info); }).empty());
    }
  }

  // What an import can bring, and the library would not write.
  void make_odd() {
    const Connection connection = dice_.one_of(all_connections());
    const std::string object = dice_.one_of<std::string>(
        {"WANIPConnection.1.", "WANIPConnection.2.", "WANPPPConnection.1."});
    const std::string port = connection.bridge_path + "Port.1.";
    const std::vector<std::pair<std::string, Names>> odd = {
        {connection.path + object + "Enable", {"true", "false", ""}},
        {connection.path + object + "ConnectionType", {"Relay", "IP_Bridged", ""}},
        {connection.path + object + "Name", {"Other", ""}},
        {connection.path + object + "X_CT-COM_ServiceList", {"VOIP", "", "INTERNET, VOIP"}},
        {connection.path + object + "NATEnabled", {"true", "false", "1"}},
        {connection.path + object + "X_CT-COM_LanInterface", {"LAN4", ""}},
        {connection.path + object + "DNSEnabled", {"true", "false", ""}},
        {connection.path + object + "DNSServers", {"192.0.2.53", ",", "192.0.2.9,192.0.2.8,a"}},
        {connection.path + object + "MTU", {"1400", "", "many"}},
        {connection.path + "WANEthernetLinkConfig.X_CT-COM_Name", {"Other"}},
        {connection.path + "WANEthernetLinkConfig.X_CT-COM_VLANIDMark", {"", "7"}},
        {connection.path + "WANEthernetLinkConfig.X_CT-COM_Mode", {"", "0", "2"}},
        {connection.path + "X_CT-COM_Enable", {"", "1"}},
        {connection.path + "X_CT-COM_STPEnable", {"", "yes"}},
        {connection.bridge_path + "BridgeStandard", {"802.1D", "802.1Q"}},
        {connection.bridge_path + "X_ZYN_VLANPriority", {"", "9"}},
        {port + "PVID", {"77", ""}},
        {port + "PortEnable", {"false"}},
        {port + "PortOption60", {"box"}}};
    const auto& [name, texts] = dice_.one_of(odd);
    if (tree_.has_parameter(name)) set(name, dice_.one_of(texts));
    forget();
  }

  WanPatch random_patch() {
    WanPatch patch;
    for (int times = 1 + dice_.below(4); times > 0; --times) {
      const WanField& field = kWanFields.begin()[dice_.below(makers().size())];
      patch[field.key] = makers().at(field.key)(dice_);
    }
    return patch;
  }

  static bool is_taken(const Connection& connection, const WanDraft& draft) {
    return quietly([&] {
      const GatewayState gateway = read_gateway_state(host::mib_access(), &connection);
      return problems_of(draft, gateway).empty() && conflicts_of(draft, gateway).empty();
    });
  }

  // What `wan list --json --show-secrets` prints.
  static Json shown() {
    Json list = Json::array();
    for (const Connection& connection : all_connections()) {
      list.push_back(json_of(connection, read(connection), true));
    }
    return list;
  }

  Dice dice_{kSeed};
};

bool ends_with(const std::string& name, std::string_view end) {
  return name.size() >= end.size() && name.compare(name.size() - end.size(), end.size(), end) == 0;
}

// What only the whole description writes, for no reason that the patch gives.
bool is_needless(const std::string& name, const WanDraft& draft) {
  // The servers of the object of a new mode, in the library's form.
  if (ends_with(name, ".DNSServers") || ends_with(name, ".DNSEnabled")) {
    return draft.changes("mode") && !draft.changes("dns");
  }
  // A VLAN that is named and the same: ports that are off were switched on, and the priority of
  // the bridge got a number where it had none.
  if (ends_with(name, ".PortEnable")) return draft.names("vlan") && !draft.changes("vlan");
  if (ends_with(name, ".X_ZYN_VLANPriority")) return draft.names("vlan") && !draft.changes("vlan");
  return false;
}

TEST_F(WanRandomChanges, ShowTheSameAsAWriteOfTheWholeDescription) {
  int structural = 0;
  int plain = 0;
  for (int made = 0, tried = 0; made < kChanges; ++tried) {
    if (tried % kTriesOfAGateway == 0) {
      ASSERT_NO_FATAL_FAILURE(make_gateway());
    }
    if (dice_.once_in(3)) make_odd();
    const Connection connection = dice_.one_of(all_connections());
    const WanDraft draft = propose(connection, random_patch());
    // The whole description leaves option 60 out where the class is none of the library's.
    const bool loses_option60 = draft.info.connection_class == 0 && draft.changes("option60");
    if (loses_option60 || !is_taken(connection, draft)) continue;
    ++made;
    const host::Tree before = tree_;
    quietly([&] { write_whole(host::mib_access(), connection, draft); });
    const Values whole = values();
    const Json shown_whole = shown();
    tree_ = before;
    forget();
    tree_.clear_refusals();
    quietly([&] { WanWrites(host::mib_access(), connection, draft).run(); });
    std::string asked;
    for (const std::string& key : draft.named) asked += key + ' ';
    EXPECT_EQ(shown(), shown_whole) << made << ": " << asked;
    EXPECT_TRUE(tree_.refusals().empty()) << made << ": " << asked;
    const Values now = values();
    for (const auto& [name, text] : whole) {
      const auto found = now.find(name);
      ASSERT_NE(found, now.end()) << made << ": " << name;
      if (found->second == text) continue;
      EXPECT_TRUE(is_needless(name, draft))
          << made << ": " << asked << ": " << name << " is " << found->second << ", not " << text;
    }
    EXPECT_EQ(now.size(), whole.size());
    const bool through_library = draft.changes("vlan") || draft.changes("class") ||
                                 draft.changes("mode") || draft.changes("bind_lan") ||
                                 draft.changes("bind_wan");
    ++(through_library ? structural : plain);
  }
  EXPECT_GT(structural, kChanges / 5);  // both are there
  EXPECT_GT(plain, kChanges / 5);
}

}  // namespace
