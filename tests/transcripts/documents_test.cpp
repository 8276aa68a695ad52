// What the files hold: heads, and transcripts from which nothing is lost.
#include "documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "failing_add_table.h"
#include "form/short_names.h"

namespace transcripts {
namespace {

TEST(Documents, GiveEveryTranscriptBack) {
  for (const Scenario& scenario : all_scenarios()) {
    const std::string transcript = play(scenario).text;
    EXPECT_EQ(as_recorded(written(transcript)), transcript) << scenario.name;
  }
}

// Every word of every transcript, and with it every name.
std::set<std::string> names_that_occur() {
  std::set<std::string> names;
  for (const Scenario& scenario : all_scenarios()) {
    for (const std::string& line : lines_of(play(scenario).text)) {
      for (std::size_t at = 0; at <= line.size();) {
        const std::size_t end = std::min(line.find(' ', at), line.size());
        names.insert(line.substr(at, end - at));
        at = end + 1;
      }
    }
  }
  return names;
}

TEST(Documents, HaveNoTwoNamesForWhichTheShortOneIsTheSame) {
  const std::set<std::string> names = names_that_occur();
  std::set<std::string> short_names;
  for (const std::string& name : names) short_names.insert(shorten(name));
  EXPECT_GT(names.size(), 500U);
  EXPECT_EQ(short_names.size(), names.size());
}

TEST(Documents, BeginWithWhatIsThereAndWhatIsCalled) {
  Gateway gateway;
  api_wan_info info = support::routed_pppoe("1_INTERNET", 100);
  const std::string path = gateway.create(info);
  gateway.remove(gateway.bridge_named("internet"));
  gateway.set(path + "WANIPConnection.2.Name", "other");
  info.bind_lan = {"LAN1"};
  info.nat_mode = 0;
  gateway.record(IGD_OPERATION(igd_wan_print_params), &info);
  EXPECT_EQ(gateway.recording().head.text(),
            "# builder: factory state\n"
            "#          create(routed_pppoe(\"1_INTERNET\", 100)) -> wan(1.1).\n"
            "#          remove bridge(1).\n"
            "#          set wan(1.1).ip(2).Name = \"other\"\n"
            "# tree:    wan(1.1). on Ethernet has ip(1) Static \"1_INTERNET\", ip(2) DHCP "
            "\"other\",\n"
            "#            ppp \"1_INTERNET\" enabled\n"
            "#          bridge(2). \"br_1_1\" 802.1Q 100 of wan(1.1). has port(1) LAN0 PVID 100\n"
            "# call:    igd_wan_print_params(the same with bind_lan [\"LAN1\"], nat_mode 0)\n");
}

TEST(DescriptionText, ComparesWithTheNearestThatIsKnown) {
  DescriptionText text;
  api_wan_info info;
  info.vlan_id = 300;
  EXPECT_EQ(text.shown(info), "api_wan_info() with vlan_id 300");
  EXPECT_EQ(text.shown(info), "the same");
  EXPECT_EQ(text.shown(support::dhcp_management("1_TR069", 46)),
            "dhcp_management(\"1_TR069\", 46)");
  EXPECT_EQ(text.shown(support::bridged("2_OTHER", 0, {"LAN2"})),
            "bridged(\"2_OTHER\", 0, [\"LAN2\"])");
}

// Every field counts: a record that differs in one is not the same.
TEST(DescriptionText, SeesEveryField) {
  DescriptionText text;
  (void)text.shown({});
  api_wan_info info;
  info.stp_enable = "true";
  EXPECT_EQ(text.shown(info), "api_wan_info() with stp_enable \"true\"");
  info.port_option60 = {{"LAN3", "stb"}};
  EXPECT_EQ(text.shown(info), "the same with port_option60 {\"LAN3\": \"stb\"}");
  info.lan_vlan_id = 7;
  EXPECT_EQ(text.shown(info), "the same with lan_vlan_id 7");
}

TEST(TableOfCalls, MarksWhoMakesEachCall) {
  EXPECT_EQ(table_of_calls({{"a", "b", "c"}, {"a", "x", "c"}, {"b", "y", "x"}}),
            (Lines{"01.  a", "0.2  b", "..2  y", ".12  x", "01.  c"}));
}

// A column, read from top to bottom, is the transcript.
TEST(TableOfCalls, LosesNoLineOfAnyCreation) {
  std::vector<Lines> creations;
  for (const Scenario& scenario : failing_add_scenarios()) {
    creations.push_back(lines_of(written(play(scenario).text)));
  }
  const Lines table = table_of_calls(creations);
  for (std::size_t column = 0; column < creations.size(); ++column) {
    Lines calls;
    for (const std::string& line : table) {
      if (line[column] != '.') calls.push_back(line.substr(creations.size() + 2));
    }
    EXPECT_EQ(calls, creations[column]) << column;
  }
}

}  // namespace
}  // namespace transcripts
