// A tree that goes out as CSV and comes back is the same in its whole state: every row that a store
// would keep of it, the counters of tables included, and everything that can be told of it.
#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>

#include "csv_dump.h"
#include "rows/tree_rows.h"
#include "tree/tree_access.h"
#include "tree_builder.h"
#include "tree_text.h"

namespace {

using namespace host_tests;
using host::Tree;

const std::string kInfo = kRoot + "DeviceInfo.";
const std::string kPlainHeader = "Parameter,Object,Writable,Value,Value type\n";

Tree tree_of(const std::string& rows) {
  Tree tree;
  std::istringstream input(kPlainHeader + rows);
  const host::ImportResult result = host::import_csv(tree, input, "dump.csv");
  EXPECT_TRUE(result.ok) << result.error;
  return tree;
}

// Values of real dumps are never shown, so the comparisons are of whole states.
void expect_round_trip(const Tree& tree) {
  std::ostringstream text;
  const host::ExportResult exported = host::export_csv(tree, text);
  ASSERT_TRUE(exported.ok) << exported.error;
  Tree copy = Tree::factory();  // all of it must go
  std::istringstream input(text.str());
  const host::ImportResult imported = host::import_csv(copy, input, "export");
  ASSERT_TRUE(imported.ok) << imported.error;
  EXPECT_TRUE(rows_of(host::TreeAccess::store(copy)) == rows_of(host::TreeAccess::store(tree)));
  EXPECT_TRUE(whole_text(copy) == whole_text(tree));
}

Tree empty_tree() { return {}; }

// Made, changed, deleted: some tables have gaps, some are empty and go on counting.
Tree tree_after_deletions() {
  Tree tree = Tree::factory();
  for (int i = 0; i < 3; ++i) tree.set_value(added(tree, kBridges) + "BridgeName", "br");
  tree.delete_object(kBridges + "4.");
  tree.delete_object(kBridges + "2.");
  const std::string device_path = added(tree, kWanDevices);
  const std::string connection_path = added(tree, device_path + "WANConnectionDevice.");
  tree.delete_object(added(tree, connection_path + "WANIPConnection."));
  tree.delete_object(added(tree, device_path + "WANConnectionDevice."));
  tree.delete_object(added(tree, kWanDevices));
  added(tree, kRoutes);
  tree.delete_object(kRoot + "Layer3Forwarding.");
  return tree;
}

Tree tree_with_extensions() {
  return tree_of(
      "InternetGatewayDevice.X_A_Top,false,true,top,xsd:string\n"
      "InternetGatewayDevice.X_A_Empty.Below,true,true,,\n"
      "InternetGatewayDevice.X_A_On,false,false,true,xsd:boolean\n"
      "InternetGatewayDevice.WANDevice.X_A_Total,false,false,5,xsd:unsignedInt\n"
      "InternetGatewayDevice.User.3.Username,false,true,someone,xsd:string\n"
      "InternetGatewayDevice.User.10.Groups.2.Name,false,true,staff,xsd:string\n");
}

Tree tree_with_emptied_extensions() {
  Tree tree = tree_with_extensions();
  tree.delete_object(kRoot + "User.10.Groups.2.");
  tree.delete_object(kRoot + "User.3.");
  return tree;
}

// Numbers below objects that are no tables count nothing.
Tree tree_with_numbers_in_odd_places() {
  Tree tree = tree_of(
      "InternetGatewayDevice.Layer3Forwarding.4.Name,false,true,four,xsd:string\n"
      "InternetGatewayDevice.Layer2Bridging.Bridge.2.5.Name,false,true,x,xsd:string\n"
      "InternetGatewayDevice.Layer2Bridging.Bridge.2.6.Name,false,true,x,xsd:string\n"
      "InternetGatewayDevice.User.1.7.Name,false,true,x,xsd:string\n");
  tree.delete_object(kBridges + "2.6.");
  tree.delete_object(kRoot + "User.1.7.");
  return tree;
}

Tree tree_with_odd_values() {
  Tree tree = tree_of("InternetGatewayDevice.DeviceInfo.X_A,false,true,,xsd:string\n");
  const std::string device_path = added(tree, kWanDevices);
  const std::string connection_path = added(tree, device_path + "WANConnectionDevice.");
  const std::string ppp_path = added(tree, connection_path + "WANPPPConnection.");
  tree.set_value(kInfo + "X_A", std::string("\0a\0", 3));
  tree.set_value(kInfo + "Description", "line\r\nline\n\"quoted\", \xFF\xFE ");
  tree.set_value(ppp_path + "Username", std::string("user\0name", 9));
  tree.set_value(ppp_path + "Password", std::string(1, '\0'));
  tree.set_value(ppp_path + "Name", "\"");
  return tree;
}

Tree tree_with_odd_booleans() {
  Tree tree = tree_of("InternetGatewayDevice.X_A_On,false,true,,xsd:boolean\n");
  tree.set_value(kRoot + "X_A_On", "TRUE");
  for (const char* text : {"1", "0", "TRUE", "False", "2", "", "true", "hex"}) {
    tree.set_value(added(tree, kBridges) + "BridgeEnable", text);
  }
  tree.set_value(added(tree, kBridges) + "BridgeEnable", std::string("1\0", 2));
  return tree;
}

struct Case {
  const char* name;
  Tree (*made)();
};
std::ostream& operator<<(std::ostream& out, const Case& one) { return out << one.name; }

const Case kCases[] = {
    {"Empty", &empty_tree},
    {"Factory", &Tree::factory},
    {"AfterDeletions", &tree_after_deletions},
    {"Extensions", &tree_with_extensions},
    {"EmptiedExtensions", &tree_with_emptied_extensions},
    {"NumbersInOddPlaces", &tree_with_numbers_in_odd_places},
    {"OddValues", &tree_with_odd_values},
    {"OddBooleans", &tree_with_odd_booleans},
};

class CsvWholeState : public testing::TestWithParam<Case> {};

TEST_P(CsvWholeState, ComesBackIdentical) { expect_round_trip(GetParam().made()); }

INSTANTIATE_TEST_SUITE_P(Export, CsvWholeState, testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

class GatewayDumpState : public testing::TestWithParam<const char*> {};

TEST_P(GatewayDumpState, ComesBackIdentical) {
  const std::string file = dump_file(GetParam());
  if (file.empty()) GTEST_SKIP() << GetParam() << " is not in the dump folder";
  Tree tree;
  ASSERT_TRUE(host::import_csv_file(tree, file).ok);
  expect_round_trip(tree);
}

INSTANTIATE_TEST_SUITE_P(Export, GatewayDumpState,
                         testing::Values("igd-bm632w.csv", "igd-w5-2100g.csv",
                                         "igd-ec220-g5-v2.csv"),
                         [](const auto& file) { return "File" + std::to_string(file.index); });

}  // namespace
