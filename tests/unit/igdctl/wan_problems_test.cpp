// What is wrong with a connection by its values, whatever the library would say.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "igd_api.h"
#include "wan/wan_checks.h"

namespace {

using namespace igdctl;
using Texts = std::vector<std::string>;

WanPatch patch_of(const char* json) {
  std::vector<Problem> problems;
  WanPatch patch = read_patch(Json::parse(json), &problems);
  EXPECT_TRUE(problems.empty()) << json << ": " << problems.front().message;
  return patch;
}

Texts messages(const std::vector<Problem>& problems) {
  Texts texts;
  for (const Problem& problem : problems) texts.push_back(problem.message);
  return texts;
}

Texts of_new(const char* json) { return messages(problems_of(draft_new(patch_of(json)), {})); }

// A connection of a tree that nobody checked: what is wrong with it is not what is changed.
class WanProblemsOfAChange : public ::testing::Test {
 protected:
  std::vector<Problem> problems(const char* json) const {
    GatewayState gateway;
    gateway.connection = &connection_;
    gateway.connections = {connection_, other_};
    const DnsOfMode no_servers = [](int, api_wan_info*) {};
    return problems_of(lay_over(patch_of(json), {info_, connection_.access}, no_servers), gateway);
  }

  const Connection connection_ = {"InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.",
                                  "1.1",
                                  "Internet",
                                  "INTERNET",
                                  "Ethernet",
                                  "",
                                  ""};
  const Connection other_ = {"InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.",
                             "1.2",
                             "Voice",
                             "VOIP",
                             "Ethernet",
                             "",
                             ""};
  api_wan_info info_ = draft_new(patch_of(R"({"name": "Internet"})")).info;
};

TEST(WanProblems, NoneOfWhatIsUsual) { EXPECT_EQ(of_new(R"({"name": "A"})"), Texts()); }

TEST(WanProblems, ANameIsGivenAndHasNoBlankAtItsEnds) {
  EXPECT_EQ(of_new("{}"), Texts{"a connection needs a name"});
  EXPECT_EQ(of_new(R"({"name": "A "})"), Texts{"the name begins or ends with a blank"});
}

TEST(WanProblems, ABridgedConnectionNeedsNeitherAnAccountNorAnAddress) {
  EXPECT_EQ(of_new(R"({"name": "A", "class": "bridged", "mode": "pppoe"})"), Texts());
  EXPECT_EQ(of_new(R"({"name": "A", "class": "bridged", "mode": "static"})"), Texts());
  EXPECT_EQ(of_new(R"({"name": "A", "class": "bridged", "mode": "static",
                       "address": "192.0.2.10"})"),
            (Texts{"mode static needs a mask", "mode static needs a gateway"}));
}

TEST(WanProblems, APointToPointLinkHasNoBroadcastAddress) {
  for (const char* addresses :
       {R"("address": "192.0.2.0", "mask": "255.255.255.254", "gateway": "192.0.2.1")",
        R"("address": "192.0.2.10", "mask": "255.255.255.255", "gateway": "198.51.100.1")"}) {
    const std::string json = R"({"name": "A", "mode": "static", )" + std::string(addresses) + "}";
    EXPECT_EQ(of_new(json.c_str()), Texts()) << addresses;
  }
}

TEST(WanProblems, AHostHasNoAddressOfAllNetworksAndNoGatewayOfMany) {
  EXPECT_EQ(of_new(R"({"name": "A", "mode": "static", "address": "192.0.2.10", "mask": "0.0.0.0",
                       "gateway": "192.0.2.1"})"),
            Texts{"no host can have the address 192.0.2.10 with the mask 0.0.0.0"});
  EXPECT_EQ(of_new(R"({"name": "A", "mode": "static", "address": "192.0.2.10",
                       "mask": "255.255.255.255", "gateway": "224.0.0.1"})"),
            Texts{"the gateway 224.0.0.1 is not a different host in the subnet of 192.0.2.10"});
}

TEST(WanProblems, AGatewayElsewhereIsToldTheSubnet) {
  const std::vector<Problem> problems =
      problems_of(draft_new(patch_of(R"({"name": "A", "mode": "static", "address": "192.0.2.10",
                                         "mask": "255.255.255.0", "gateway": "198.51.100.1"})")),
                  {});
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems.front().hint, "give the router's address in 192.0.2.0 255.255.255.0");
}

TEST(WanProblems, AnEmptyOption60NeedsNoPort) {
  EXPECT_EQ(of_new(R"({"name": "A", "bind_wan": ["LAN4"],
                       "port_option60": {"LAN1": "", "LAN4": "x"}})"),
            Texts());
  EXPECT_EQ(of_new(R"({"name": "A", "port_option60": {"LAN1": "x"}})"),
            Texts{"port_option60 names \"LAN1\", which is not in bind_wan"});
}

TEST_F(WanProblemsOfAChange, NoneOfWhatStaysAsItIs) {
  info_.wan_info_name = "";
  info_.service_type = "";
  info_.bind_lan = info_.bind_wan = {"LAN1", "LAN1"};
  info_.port_option60 = {{"LAN2", "x"}};
  info_.connect_mode = kIgdPppoe;
  info_.pppoe_mtu = "1500";
  EXPECT_EQ(messages(problems(R"({"vlan": 7})")), Texts());
  info_.connect_mode = kIgdStatic;
  EXPECT_EQ(messages(problems(R"({"vlan": 7})")), Texts());
}

TEST_F(WanProblemsOfAChange, ANameOfAnotherConnectionIsNotTaken) {
  const std::vector<Problem> taken = problems(R"({"name": "Voice"})");
  ASSERT_EQ(taken.size(), 1U);
  EXPECT_EQ(taken.front().message, "there is a connection \"Voice\" already, 1.2");
  EXPECT_EQ(taken.front().hint, "choose another name");
  GatewayState gateway;
  gateway.connections = {other_};
  const std::vector<Problem> anew =
      problems_of(draft_new(patch_of(R"({"name": "Voice"})")), gateway);
  ASSERT_EQ(anew.size(), 1U);
  EXPECT_EQ(anew.front().hint, "choose another name, or change it with igdctl wan set");
}

TEST_F(WanProblemsOfAChange, ServersNeedAModeToBelongTo) {
  info_.connect_mode = 0;
  EXPECT_EQ(messages(problems(R"({"dns": ["192.0.2.53"]})")),
            Texts{"DNS servers belong to a mode, and none is chosen"});
}

}  // namespace
