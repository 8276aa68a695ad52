// Descriptions as they come in, and what is wrong with them.
#include "wan/wan_patch.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "wan/wan_draft.h"

namespace {

using namespace igdctl;

std::vector<Problem> faults_in(const char* json) {
  std::vector<Problem> problems;
  (void)read_patch(Json::parse(json), &problems);
  return problems;
}

TEST(WanPatch, TakesEveryField) {
  std::vector<Problem> problems;
  const WanPatch patch = read_patch(Json::parse(R"({
      "access": "ethernet", "name": "Internet", "class": "Routed", "mode": "PPPoE", "vlan": 4094,
      "priority": 7, "service": ["INTERNET", "VOIP"], "bind_lan": ["LAN1"], "bind_wan": [],
      "nat": true, "user": "u", "password": "p", "address": "192.0.2.10",
      "mask": "255.255.255.0", "gateway": "192.0.2.1", "dns": ["192.0.2.53", "2001:db8::53"],
      "mtu": 1492, "option60": "box", "port_option60": {"LAN4": "tv"}, "enable": "on",
      "remote_management": false, "stp": false})"),
                                    &problems);
  EXPECT_TRUE(problems.empty()) << problems.front().message;
  const auto value = [&patch](const char* key) { return *patch.find(field_of(key)); };
  for (const WanField& field : kWanFields) EXPECT_NE(patch.find(field), nullptr) << field.key;
  EXPECT_EQ(value("access"), Value("Ethernet"));
  EXPECT_EQ(value("class"), Value("routed"));
  EXPECT_EQ(value("mode"), Value("pppoe"));
  EXPECT_EQ(value("vlan"), Value(4094));
  EXPECT_EQ(value("service"), Value(Names{"INTERNET", "VOIP"}));
  EXPECT_EQ(value("bind_wan"), Value(Names{}));
  EXPECT_EQ(value("dns"), Value(Names{"192.0.2.53", "2001:db8::53"}));
  EXPECT_EQ(value("enable"), Value(true));
  EXPECT_EQ(value("port_option60"), Value(TextsByPort{{"LAN4", "tv"}}));
}

TEST(WanPatch, NullNamesNothingButAnUntaggedVlan) {
  std::vector<Problem> problems;
  const WanPatch patch = read_patch(
      Json::parse(R"({"vlan": null, "mode": null, "mtu": null, "name": null})"), &problems);
  EXPECT_TRUE(problems.empty());
  EXPECT_EQ(*patch.find(field_of("vlan")), Value(0));
  for (const char* key : {"mode", "mtu", "name"}) {
    EXPECT_EQ(patch.find(field_of(key)), nullptr) << key;
  }
}

TEST(WanPatch, RefusesWhatIsWrongByItself) {
  const char* const kWrong[] = {R"({"vlan": 4095})",
                                R"({"vlan": -1})",
                                R"({"vlan": 100.5})",
                                R"({"vlan": "100"})",
                                R"({"vlan": 18446744073709551615})",
                                R"({"vlan": true})",
                                R"({"priority": 8})",
                                R"({"mtu": 575})",
                                R"({"mtu": 1541})",
                                R"({"class": "router"})",
                                R"({"class": 1})",
                                R"({"mode": "dialup"})",
                                R"({"access": "Wifi"})",
                                R"({"nat": "maybe"})",
                                R"({"nat": 1})",
                                R"({"name": 5})",
                                R"({"name": "a\nb"})",
                                R"({"name": "a\u0000b"})",
                                R"({"nmae": "x"})",
                                R"({"service": "INTERNET"})",
                                R"({"service": ["A B"]})",
                                R"({"service": ["A,B"]})",
                                R"({"service": [""]})",
                                R"({"bind_lan": [1]})",
                                R"({"bind_lan": {"a": "b"}})",
                                R"({"address": "192.0.2"})",
                                R"({"address": "192.0.2.256"})",
                                R"({"address": "::1"})",
                                R"({"mask": "255.0.255.0"})",
                                R"({"dns": ["a"]})",
                                R"({"dns": ["192.0.2.1", "192.0.2.2", "192.0.2.3"]})",
                                R"({"dns": [""]})",
                                R"({"port_option60": ["LAN4"]})",
                                R"({"port_option60": {"LAN4": 1}})",
                                R"({"password": "a\nb"})",
                                "[]",
                                "\"x\"",
                                "null",
                                "7"};
  for (const char* json : kWrong) EXPECT_EQ(faults_in(json).size(), 1U) << json;
}

TEST(WanPatch, RefusesTextsThatTheLibraryWouldCut) {
  const std::string longest(255, 'x');
  EXPECT_TRUE(faults_in(("{\"name\": \"" + longest + "\"}").c_str()).empty());
  EXPECT_EQ(faults_in(("{\"name\": \"" + longest + "x\"}").c_str()).size(), 1U);
  EXPECT_EQ(faults_in(("{\"user\": \"" + longest + "x\"}").c_str()).size(), 1U);
  EXPECT_EQ(faults_in(("{\"password\": \"" + longest + "x\"}").c_str()).size(), 1U);
}

TEST(WanPatch, TellsAllFaultsAtOnce) {
  EXPECT_EQ(faults_in(R"({"vlan": 5000, "priority": 9, "colour": "red"})").size(), 3U);
}

TEST(WanPatch, PassesOverWhatOnlyShowAdds) {
  EXPECT_TRUE(
      faults_in(R"({"path": "x", "id": "1.1", "bridge": null, "password_set": true})").empty());
}

TEST(WanPatch, TakesDeepAndLargeValuesAsFaults) {
  const std::size_t depth = 1000;
  const std::string deep = std::string(depth, '[') + std::string(depth, ']');
  for (const char* key : {"vlan", "name", "bind_lan", "nat", "port_option60", "class", "colour"}) {
    EXPECT_EQ(faults_in(("{\"" + std::string(key) + "\": " + deep + "}").c_str()).size(), 1U)
        << key;
  }
  std::string many = "\"LAN1\"";
  for (int i = 0; i < 64; ++i) many += ", \"LAN1\"";
  EXPECT_EQ(faults_in(("{\"bind_lan\": [" + many + "]}").c_str()).size(), 1U);
}

TEST(WanPatch, NeverShowsAPassword) {
  for (const Problem& problem : faults_in(R"({"password": "hush\u0001"})")) {
    EXPECT_EQ(problem.message.find("hush"), std::string::npos);
  }
}

TEST(WanFields, AreTheSameInAnyOrderAndWithoutEmptyTexts) {
  const WanField& ports = field_of("bind_lan");
  EXPECT_TRUE(is_same(ports, Names{"LAN1", "LAN2"}, Names{"LAN2", "LAN1"}));
  EXPECT_FALSE(is_same(ports, Names{"LAN1", "LAN2"}, Names{"LAN1"}));
  const WanField& servers = field_of("dns");  // the first is asked first
  EXPECT_FALSE(is_same(servers, Names{"192.0.2.1", "192.0.2.2"}, Names{"192.0.2.2", "192.0.2.1"}));
  const WanField& texts = field_of("port_option60");
  EXPECT_TRUE(is_same(texts, TextsByPort{}, TextsByPort{{"LAN1", ""}}));
  EXPECT_FALSE(is_same(texts, TextsByPort{}, TextsByPort{{"LAN1", "x"}}));
}

TEST(WanFields, TellTheirRangeAndWhatItsEndMeans) {
  const std::string help = help_of(field_of("vlan"));
  const std::string range = ", 0 to 4094; 0 is untagged";
  ASSERT_GT(help.size(), range.size());
  EXPECT_EQ(help.substr(help.size() - range.size()), range);
}

TEST(WanDraft, OfANewConnectionIsWhatMostConnectionsAre) {
  const WanDraft draft = draft_new({});
  EXPECT_EQ(draft.access, "Ethernet");
  EXPECT_EQ(draft.info.connection_class, kIgdRouted);
  EXPECT_EQ(draft.info.connect_mode, kIgdDhcp);
  EXPECT_EQ(draft.info.service_type, "INTERNET");
  EXPECT_EQ(draft.info.vlan_enable, 0);
  EXPECT_EQ(draft.info.nat_mode, 1);
  EXPECT_EQ(draft.info.pppoe_mtu, "1492");
  EXPECT_EQ(draft.info.static_mtu, "1500");
  EXPECT_EQ(draft.info.dhcp_mtu, "1500");
  EXPECT_EQ(draft.info.wan_enable, "true");
  EXPECT_EQ(draft.info.wan_remote_management_enable, "false");
  EXPECT_EQ(draft.info.stp_enable, "false");
  WanPatch bridged;
  bridged["class"] = "bridged";
  EXPECT_EQ(draft_new(bridged).info.nat_mode, 0);
}

}  // namespace
