// A change of a connection that the library made writes what is named, and no value that differs.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "wan_set_fixture.h"

namespace {

using namespace igdctl_tests;

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
    std::vector<Problem> problems;
    const WanPatch patch = read_patch(shown, &problems);
    EXPECT_TRUE(problems.empty()) << problems.front().message;
    const WanDraft draft = propose(connection, patch);
    EXPECT_TRUE(draft.changed.empty()) << title(made) << ": " << *draft.changed.begin();
    write(connection, patch);
    EXPECT_EQ(difference_since(before), "") << title(made);
  }
}

TEST_F(WanSetOfMadeConnections, ChangesOnlyWhatIsNamed) {
  make({kIgdRouted, kIgdDhcp, 100, {"192.0.2.53"}});
  const Values before = values();
  const Connection connection = only_connection();
  WanPatch patch;
  patch["mtu"] = 1300;
  write(connection, patch);
  EXPECT_EQ(difference_since(before), connection.path + "WANIPConnection.2.MTU: 1400 -> 1300\n");
}

TEST_F(WanSetOfMadeConnections, ANewModeKeepsTheServersOfItsOwnObject) {
  make({kIgdRouted, kIgdDhcp, 100, {"192.0.2.53"}});
  const Connection connection = only_connection();
  const std::string fixed = connection.path + "WANIPConnection.1.";
  set(fixed + "DNSEnabled", "true");
  set(fixed + "DNSServers", "198.51.100.53");
  WanPatch patch;
  patch["mode"] = "static";
  const WanDraft draft = propose(connection, patch);
  EXPECT_EQ(field_of("dns").value(draft), Value(Names{"198.51.100.53"}));
}

}  // namespace
