// Long random sequences of calls, compared with what the listing of the tree says.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <regex>
#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;
using Names = std::vector<std::string>;

struct Pattern {
  int type;
  const char* text;
};

const Pattern kPatterns[] = {
    {kForwardingInterface,
     R"(InternetGatewayDevice\.Layer3Forwarding\.Forwarding\.\d+\.Interface)"},
    {kBridgeName, R"(InternetGatewayDevice\.Layer2Bridging\.Bridge\.\d+\.BridgeName)"},
    {kPortInterface,
     R"(InternetGatewayDevice\.Layer2Bridging\.Bridge\.\d+\.Port\.\d+\.PortInterface)"},
    {kWanAccessType, R"(.*\.WANCommonInterfaceConfig\.WANAccessType)"},
    {kAddressingType, R"(.*\.WANIPConnection\.\d+\.AddressingType)"},
    {kServiceList, R"(.*\.WANPPPConnection\.\d+\.X_CT-COM_ServiceList)"},
};

// What an enumeration must yield, found the slow way.
Names listed(const Tree& tree, const Pattern& pattern) {
  const std::regex expression(pattern.text);
  Names names;
  for (const auto& parameter : tree.parameters()) {
    if (std::regex_match(parameter.name, expression)) names.push_back(parameter.name);
  }
  return names;
}

class RandomCalls {
 public:
  explicit RandomCalls(unsigned seed) : random_(seed) {}

  void make(Tree& tree) {
    switch (below(5)) {
      case 0:
        remove_one(tree);
        break;
      case 1:
        write_one(tree);
        break;
      default:
        add_one(tree);
    }
  }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }

  void add_one(Tree& tree) {
    Names tables = {kBridges, kRoutes, kWanDevices};
    for (const auto& name : tree.instances(kBridgeName)) {
      tables.push_back(name.substr(0, name.rfind('.') + 1) + "Port.");
    }
    for (const auto& path : tree.instances(kWanConnectionDevice)) {
      tables.push_back(path + "WANIPConnection.");
      tables.push_back(path + "WANPPPConnection.");
    }
    for (const auto& name : tree.instances(kWanAccessType)) {
      tables.push_back(name.substr(0, name.find("WANCommon")) + "WANConnectionDevice.");
    }
    EXPECT_NE(added(tree, tables[below(tables.size())]), "");
  }

  void remove_one(Tree& tree) {
    const Pattern& pattern = kPatterns[below(std::size(kPatterns))];
    const Names names = tree.instances(pattern.type);
    if (names.empty()) return;
    const std::string& name = names[below(names.size())];
    EXPECT_EQ(tree.delete_object(name.substr(0, name.rfind('.') + 1)), 0) << name;
  }

  void write_one(Tree& tree) {
    const Names names = tree.instances(kPortInterface);
    if (names.empty()) return;
    const std::string& name = names[below(names.size())];
    const std::string text = std::to_string(random_());
    EXPECT_EQ(tree.set_value(name, text), 0);
    EXPECT_EQ(tree.value(name), text);
  }

  std::mt19937 random_;
};

class AnySequence : public testing::TestWithParam<unsigned> {};

TEST_P(AnySequence, KeepsEnumerationsAndCountsTrue) {
  RandomCalls calls(GetParam());
  Tree tree;
  for (int i = 0; i < 150; ++i) calls.make(tree);
  const Tree copy = tree;
  for (const Pattern& pattern : kPatterns) {
    EXPECT_EQ(tree.instances(pattern.type), listed(tree, pattern)) << pattern.type;
    EXPECT_EQ(copy.instances(pattern.type), listed(tree, pattern)) << pattern.type;
  }
  EXPECT_EQ(tree.value(kRoot + "Layer2Bridging.BridgeNumberOfEntries"),
            std::to_string(tree.instances(kBridgeName).size()));
  EXPECT_EQ(tree.value(kRoot + "WANDeviceNumberOfEntries"),
            std::to_string(tree.instances(kWanAccessType).size()));
}

INSTANTIATE_TEST_SUITE_P(Tree, AnySequence, testing::Range(1U, 9U));

}  // namespace
