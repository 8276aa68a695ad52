// The data model: TR-098's facts, the gateway's own parameters, and the defaults that decide.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "csv_dump.h"
#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::Tree;

const std::string kDevice = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.";
const std::string kIp = kDevice + "WANIPConnection.1.";
const std::string kPpp = kDevice + "WANPPPConnection.1.";
const std::string kLink = kDevice + "WANEthernetLinkConfig.";
const std::string kBridge = kBridges + "1.";
const std::string kPort = kBridge + "Port.1.";

// A tree with one instance in every table of the data model.
Tree full_tree() {
  Tree tree;
  add_connection_device(tree);
  const std::vector<std::string> tables = {
      kDevice + "WANIPConnection.",
      kIp + "PortMapping.",
      kDevice + "WANPPPConnection.",
      kPpp + "PortMapping.",
      kWanDevices + "1.WANCommonInterfaceConfig.Connection.",
      kBridges,
      kBridge + "Port.",
      kBridge + "VLAN.",
      kRoot + "Layer2Bridging.Filter.",
      kRoot + "Layer2Bridging.Marking.",
      kRoot + "Layer2Bridging.AvailableInterface.",
      kRoutes,
      kRoot + "LANDevice.",
      kRoot + "LANDevice.1.LANHostConfigManagement.IPInterface."};
  for (const auto& table : tables) EXPECT_NE(added(tree, table), "") << table;
  return tree;
}

struct DefaultCase {
  std::string name;
  std::string type;
  std::string initial;
};

TEST(DataModel, HasTheParametersThatTheLibraryNeedsBeyondTr098) {
  const Tree tree = full_tree();
  const std::vector<DefaultCase> cases = {
      {kDevice + "X_CT-COM_Enable", "boolean", ""},
      {kDevice + "X_CT-COM_RemoteManagerEnable", "boolean", ""},
      {kDevice + "X_CT-COM_STPEnable", "boolean", ""},
      {kLink + "X_CT-COM_Name", "string", ""},
      {kLink + "X_CT-COM_VLANIDMark", "unsignedInt", "0"},
      {kLink + "X_CT-COM_Mode", "unsignedInt", "0"},
      {kIp + "MTU", "unsignedInt", ""},
      {kIp + "X_CT-COM_ServiceList", "string", ""},
      {kIp + "X_CT-COM_LanInterface", "string", ""},
      {kIp + "X_CT-COM_ActiveExternalIPAddress", "IPAddress", ""},
      {kIp + "X_ZYN-COM_OPTION60", "string", ""},
      {kPpp + "MTU", "unsignedInt", ""},
      {kPpp + "X_CT-COM_ServiceList", "string", ""},
      {kPpp + "X_CT-COM_LanInterface", "string", ""},
      {kPpp + "X_ZYN_COM_LastConnectionError", "string", ""},
      {kBridge + "X_ZYN_WANName", "string", ""},
      {kBridge + "X_ZYN_VLANPriority", "unsignedInt", ""},
      {kPort + "X_ZYN_DependWanName", "string", ""},
      {kPort + "PortOption60", "string", ""},
      {kRoutes + "1.X_ZYN_RouteTable", "string", ""},
  };
  for (const auto& expected : cases) {
    const auto info = tree.describe(expected.name);
    ASSERT_TRUE(info.has_value()) << expected.name;
    EXPECT_EQ(info->type, expected.type) << expected.name;
    EXPECT_EQ(info->initial, expected.initial) << expected.name;
    EXPECT_EQ(tree.value(expected.name), expected.initial) << expected.name;
    EXPECT_FALSE(info->extension) << expected.name;
  }
}

TEST(DataModel, HasTheDefaultsThatDecideOutcomes) {
  const Tree tree = full_tree();
  const std::vector<std::pair<std::string, std::string>> defaults = {
      {kBridge + "BridgeStandard", "802.1D"},
      {kBridge + "VLANID", "0"},
      {kBridge + "BridgeEnable", "false"},
      {kPort + "PVID", "1"},
      {kPort + "PortEnable", "false"},
      {kIp + "Enable", "false"},
      {kPpp + "Enable", "false"},
      {kRoutes + "1.Enable", "false"},
      {kIp + "DNSEnabled", "true"},
      {kPpp + "DNSEnabled", "true"},
      {kIp + "AddressingType", ""},
      {kIp + "ConnectionType", ""},
      {kIp + "Alias", ""},
  };
  for (const auto& [name, value] : defaults) {
    EXPECT_TRUE(tree.has_parameter(name)) << name;
    EXPECT_EQ(tree.value(name), value) << name;
  }
}

TEST(DataModel, DescribesACountAsDerived) {
  const Tree tree;
  const auto info = tree.describe("InternetGatewayDevice.WANDeviceNumberOfEntries");
  ASSERT_TRUE(info.has_value());
  EXPECT_TRUE(info->derived);
  EXPECT_FALSE(info->writable);
  EXPECT_EQ(info->type, "unsignedInt");
}

TEST(DataModel, DescribesNoUnknownName) {
  const Tree tree;
  EXPECT_FALSE(tree.describe("Enable").has_value());
  EXPECT_FALSE(tree.describe("InternetGatewayDevice.").has_value());
}

// The lines of the published data model, split at their tabs; none when it is not there.
std::vector<std::vector<std::string>> published_lines() {
  std::vector<std::vector<std::string>> lines;
  std::ifstream input(dump_file("tr-098-1-8-0.tsv"));
  for (std::string line; std::getline(input, line);) {
    if (line.empty() || line.front() == '#') continue;
    std::vector<std::string> columns;
    std::istringstream split(line);
    for (std::string column; std::getline(split, column, '\t');) columns.push_back(column);
    lines.push_back(columns);
  }
  return lines;
}

// "A.{i}.B" as it stands in the tree of `full_tree`.
std::string first_instance(std::string pattern) {
  for (auto at = pattern.find("{i}"); at != std::string::npos; at = pattern.find("{i}")) {
    pattern.replace(at, 3, "1");
  }
  return pattern;
}

class PublishedDataModel : public testing::Test {
 protected:
  void SetUp() override {
    if (lines_.empty()) GTEST_SKIP() << "the published data model is not in the dump folder";
  }

  const std::vector<std::vector<std::string>> lines_ = published_lines();
  const Tree tree_ = full_tree();
};

TEST_F(PublishedDataModel, AgreesInEveryParameterOfTheObjectsHere) {
  constexpr std::size_t kPath = 1;
  constexpr std::size_t kAccess = 2;
  constexpr std::size_t kType = 3;
  constexpr std::size_t kDefault = 6;
  std::size_t compared = 0;
  for (const auto& line : lines_) {
    if (line[0] != "param") continue;
    const std::string name = first_instance(line[kPath]);
    if (!tree_.has_object(name.substr(0, name.rfind('.') + 1))) continue;
    const auto info = tree_.describe(name);
    ASSERT_TRUE(info.has_value()) << name;
    EXPECT_EQ(info->type, line[kType]) << name;
    EXPECT_EQ(info->writable, line[kAccess] == "readWrite") << name;
    const bool is_empty = line[kDefault] == "(none)" || line[kDefault] == "\"\"";
    ++compared;
    if (info->derived) continue;
    EXPECT_EQ(info->initial, is_empty ? "" : line[kDefault]) << name;
  }
  EXPECT_EQ(compared, 334U);
}

TEST_F(PublishedDataModel, AgreesInWhatIsACount) {
  constexpr std::size_t kPath = 1;
  constexpr std::size_t kFlags = 8;
  const std::string key = "count=";
  for (const auto& line : lines_) {
    if (line[0] != "table" || line[kFlags].find(key) == std::string::npos) continue;
    const std::string table = first_instance(line[kPath].substr(0, line[kPath].size() - 4));
    const std::string parent = table.substr(0, table.rfind('.', table.size() - 2) + 1);
    if (!tree_.has_object(parent)) continue;
    const std::size_t at = line[kFlags].find(key) + key.size();
    const std::string name = parent + line[kFlags].substr(at, line[kFlags].find(';', at) - at);
    const auto info = tree_.describe(name);
    ASSERT_TRUE(info.has_value()) << name;
    EXPECT_TRUE(info->derived) << name;
    EXPECT_EQ(tree_.value(name), tree_.has_object(table) ? "1" : "0") << name;
  }
}

}  // namespace
