// The rules of order, over the transcripts of all scenarios, and against texts that break them.
#include <gtest/gtest.h>

#include "order_rules.h"
#include "scenarios/scenario.h"

namespace transcripts {
namespace {

struct NamedRule {
  const char* name;
  OrderRule rule;
  const char* broken;  // a text that the rule must not let through
};

void PrintTo(const NamedRule& rule, std::ostream* out) { *out << rule.name; }

const NamedRule kRules[] = {
    {"RemovesPortsBeforeItCreatesAny", removals_before_creations,
     "|  ------------- igd_api 1174: LAN2 create bind_wan \n"
     "|  ------------- igd_api 1123: LAN2 remove from internet \n"},
    {"MovesTheGroupsInTheirOrder", groups_in_their_order,
     "|  ------------- igd_api _wan_port_update 1129\n"
     "|  ------------- igd_api 1140: LAN1 remove from bind_lan \n"
     "|  ------------- igd_api _wan_port_update 1110\n"},
    {"DisablesTheObjectsBeforeItNamesThem", objects_disabled_before_named,
     "| igd_wan_set_params  igd_wan_print_params(info) :1234\n"
     "|  dhcp_path:D.,\n|  lan_bridge_name:x,\t\tlan_bridge_path:,ppp_path:P.,\n| static_path:S.,\n"
     "set D.Enable = \"false\"\nset P.Enable = \"false\"\nset S.Enable = \"false\"\n"
     "set D.Name = \"n\"\n"},
    {"EnablesTheActiveObjectLast", active_object_enabled_last,
     "| igd_wan_set_params  igd_wan_print_params(info) :1234\n"
     "| connect_mode 1:dbcp,2:static,3:pppoe: [1] \n|  dhcp_path:D.,\n"
     "set D.Enable = \"true\"\nset D.MTU = \"1500\"\n"},
    {"CommitsLast", commit_last, "commit 1\nset A.B = \"\"\n"},
    {"SwitchesPortsOffBeforeItDeletesThem", ports_switched_off_before_deleted,
     "delete InternetGatewayDevice.Layer2Bridging.Bridge.1.Port.2.\n"},
    {"WritesNewPortsInOrder", new_ports_written_in_order,
     "add InternetGatewayDevice.Layer2Bridging.Bridge.1.Port. -> 3\n"
     "set InternetGatewayDevice.Layer2Bridging.Bridge.1.Port.3.PortInterface = \"LAN1\"\n"
     "set InternetGatewayDevice.Layer2Bridging.Bridge.1.Port.3.PVID = \"1\"\n"
     "set InternetGatewayDevice.Layer2Bridging.Bridge.1.Port.3.PortEnable = \"true\"\n"},
    {"EnablesNewBridgesLast", new_bridges_enabled_last,
     "add InternetGatewayDevice.Layer2Bridging.Bridge. -> 3\n"
     "set InternetGatewayDevice.Layer2Bridging.Bridge.3.BridgeName = \"br_1_1\"\n"
     "set InternetGatewayDevice.Layer2Bridging.Bridge.3.BridgeEnable = \"true\"\n"},
    {"AddsTheObjectsOfAConnectionInOrder", adds_of_a_creation_in_order,
     "add InternetGatewayDevice.WANDevice.1.WANConnectionDevice. -> 1\n"
     "add InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.WANPPPConnection. -> 1\n"},
    {"RemovesRoutesThenObjectsThenBridge", removal_in_order,
     "delete InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.\n"
     "delete InternetGatewayDevice.Layer3Forwarding.Forwarding.1.\n"
     "delete InternetGatewayDevice.Layer2Bridging.Bridge.2.\ncommit 1\n"},
};

class OrderTest : public ::testing::TestWithParam<NamedRule> {};

TEST_P(OrderTest, HoldsInEveryScenario) {
  int checked = 0;
  for (const Scenario& scenario : all_scenarios()) {
    const Finding finding = GetParam().rule(lines_of(play(scenario).text));
    checked += finding.checked;
    EXPECT_EQ(finding.broken, std::vector<std::string>()) << scenario.name;
  }
  EXPECT_GT(checked, 0) << "no scenario has anything to check";
}

TEST_P(OrderTest, IsNotBlind) {
  EXPECT_FALSE(GetParam().rule(lines_of(GetParam().broken)).broken.empty());
}

INSTANTIATE_TEST_SUITE_P(Library, OrderTest, ::testing::ValuesIn(kRules),
                         [](const auto& test) { return std::string(test.param.name); });

// Who only looks leaves no mark: the reading operations, whatever they are asked.
TEST(ReadingOperations, WriteNothing) {
  for (const auto& part : {read_scenarios, validate_scenarios}) {
    for (const Scenario& scenario : part()) {
      for (const std::string& line : lines_of(play(scenario).text)) {
        const std::string verb = line.substr(0, line.find(' '));
        EXPECT_TRUE(verb == "get" || verb == "open" || verb == "close" || verb == "log" ||
                    verb == "|" || verb == "returns")
            << scenario.name << ": " << line;
      }
    }
  }
}

// Callers decide when a description takes effect.
TEST(WritingOperations, LeaveTheCommitToTheirCallers) {
  for (const auto& part : {create_scenarios, write_scenarios, write_port_scenarios}) {
    for (const Scenario& scenario : part()) {
      const std::string text = play(scenario).text;
      EXPECT_EQ(text.find("\ncommit "), std::string::npos) << scenario.name;
    }
  }
}

}  // namespace
}  // namespace transcripts
