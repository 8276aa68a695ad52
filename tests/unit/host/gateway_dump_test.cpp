// Dumps of real gateways, where they are at hand: nothing in them is lost. Values of these dumps
// are never shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <ostream>
#include <set>
#include <string>

#include "csv_dump.h"
#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::ImportResult;
using host::Tree;

struct GatewayCase {
  const char* name;
  const char* file;
  std::size_t objects;
  std::size_t instances;
  std::size_t parameters;
};

std::ostream& operator<<(std::ostream& out, const GatewayCase& gateway) {
  return out << gateway.file;
}

const GatewayCase kGateways[] = {
    {"WimaxGateway", "igd-bm632w.csv", 210, 88, 792},
    {"EthernetRouter", "igd-w5-2100g.csv", 112, 49, 640},
    {"RouterWithBackupUplink", "igd-ec220-g5-v2.csv", 254, 128, 1299},
};

// The table that a count counts, where its name is not the count's without its end.
const std::map<std::string, std::string> kCountedTables = {
    {"ForwardNumberOfEntries", "Forwarding"},
    {"WANConnectionNumberOfEntries", "WANConnectionDevice"},
    {"NumberOfActiveConnections", "Connection"},
    {"LANEthernetInterfaceNumberOfEntries", "LANEthernetInterfaceConfig"},
    {"LANUSBInterfaceNumberOfEntries", "LANUSBInterfaceConfig"},
    {"LANWLANConfigurationNumberOfEntries", "WLANConfiguration"},
    {"DHCPConditionalPoolNumberOfEntries", "DHCPConditionalServingPool"},
};

bool is_number(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(),
                                      [](unsigned char c) { return std::isdigit(c) != 0; });
}

std::string own_name(const std::string& name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos ? name : name.substr(dot + 1);
}

class GatewayDump : public testing::TestWithParam<GatewayCase> {
 protected:
  void SetUp() override {
    const std::string file = dump_file(GetParam().file);
    if (file.empty()) GTEST_SKIP() << GetParam().file << " is not in the dump folder";
    rows_ = read_dump(file);
    result_ = host::import_csv_file(tree_, file);
    ASSERT_TRUE(result_.ok) << result_.error;
  }

  // The number of instances that the dump lists in the table that a count counts.
  std::string listed_instances(const std::string& count) const {
    const std::string suffix = "NumberOfEntries";
    const std::string own = own_name(count);
    const auto special = kCountedTables.find(own);
    const std::string table = special != kCountedTables.end()
                                  ? special->second
                                  : own.substr(0, own.size() - suffix.size());
    const std::string start = count.substr(0, count.size() - own.size()) + table + ".";
    return std::to_string(std::count_if(rows_.begin(), rows_.end(), [&start](const DumpRow& row) {
      return row.is_object && row.name.compare(0, start.size(), start) == 0 &&
             is_number(row.name.substr(start.size()));
    }));
  }

  // Whether a value arrived: as it stands in the dump, or as the boolean that it means.
  bool arrived(const DumpRow& row) const {
    const std::string value = tree_.value(row.name);
    const auto info = tree_.describe(row.name);
    if (!info.has_value()) return false;
    if (info->derived) return value == listed_instances(row.name);
    if (info->type != "boolean") return value == row.value;
    if (row.value == "1" || row.value == "TRUE") return value == "true";
    if (row.value == "0" || row.value == "FALSE") return value == "false";
    return value == row.value;
  }

  std::vector<DumpRow> rows_;
  Tree tree_ = Tree::factory();
  ImportResult result_;
};

TEST_P(GatewayDump, IsReadAsADumpOfItsSize) {
  const auto is_object = [](const DumpRow& row) { return row.is_object; };
  const auto objects = std::count_if(rows_.begin(), rows_.end(), is_object);
  EXPECT_EQ(static_cast<std::size_t>(objects), GetParam().objects);
  EXPECT_EQ(result_.objects, GetParam().instances);
  EXPECT_EQ(result_.parameters + result_.extensions + result_.counts, GetParam().parameters);
}

TEST_P(GatewayDump, LosesNoObject) {
  for (const DumpRow& row : rows_) {
    if (!row.is_object) continue;
    EXPECT_TRUE(tree_.has_object(row.name + ".")) << row.name;
  }
}

TEST_P(GatewayDump, LosesNoValue) {
  for (const DumpRow& row : rows_) {
    if (row.is_object) continue;
    EXPECT_TRUE(arrived(row)) << row.name;
  }
}

TEST_P(GatewayDump, BringsNoOtherInstance) {
  std::set<std::string> listed;
  for (const DumpRow& row : rows_) {
    if (row.is_object) listed.insert(row.name + ".");
  }
  for (const auto& parameter : tree_.parameters()) {
    const std::string object_path = parameter.name.substr(0, parameter.name.rfind('.') + 1);
    const std::string object = object_path.substr(0, object_path.size() - 1);
    if (!is_number(own_name(object))) continue;
    EXPECT_EQ(listed.count(object_path), 1U) << object_path;
  }
}

TEST_P(GatewayDump, GoesOnCountingInEveryTableOfTheDataModel) {
  std::map<std::string, int> highest;
  for (const DumpRow& row : rows_) {
    if (!row.is_object || !is_number(own_name(row.name))) continue;
    int& number = highest[row.name.substr(0, row.name.rfind('.') + 1)];
    number = std::max(number, std::stoi(own_name(row.name)));
  }
  for (const auto& [table_path, number] : highest) {
    int made = 0;
    if (tree_.add_object(table_path, &made) != 0) continue;  // outside the data model
    EXPECT_EQ(made, number + 1) << table_path;
  }
}

INSTANTIATE_TEST_SUITE_P(Import, GatewayDump, testing::ValuesIn(kGateways),
                         [](const auto& gateway) { return std::string(gateway.param.name); });

TEST(GatewayDumpWithGaps, KeepsThemAndCountsOnAboveTheHighest) {
  const std::string file = dump_file("igd-ec220-g5-v2.csv");
  if (file.empty()) GTEST_SKIP() << "igd-ec220-g5-v2.csv is not in the dump folder";
  Tree tree;
  ASSERT_TRUE(host::import_csv_file(tree, file).ok);
  const std::string filters = "InternetGatewayDevice.Layer2Bridging.Filter.";
  EXPECT_TRUE(tree.has_object(filters + "5."));
  EXPECT_FALSE(tree.has_object(filters + "6."));
  EXPECT_TRUE(tree.has_object(filters + "14."));
  EXPECT_EQ(tree.value("InternetGatewayDevice.Layer2Bridging.FilterNumberOfEntries"), "13");
  EXPECT_EQ(added(tree, filters), filters + "15.");
}

}  // namespace
