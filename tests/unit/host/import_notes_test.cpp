// What an import tells of the rows that it did not take as they stood, and the export's own
// columns.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"
#include "tree_text.h"

namespace {

using namespace host_tests;
using host::ImportNote;
using host::ImportResult;
using host::Tree;
using Kind = ImportNote::Kind;
using Texts = std::vector<std::string>;

const std::string kInfo = "InternetGatewayDevice.DeviceInfo.";
const std::string kPlainHeader = "Parameter,Object,Writable,Value,Value type\n";
const std::string kHeader =
    "Parameter,Object,Writable,Value,Value type,Highest instance,Verbatim\n";

ImportResult imported(Tree& tree, const std::string& text) {
  std::istringstream input(text);
  return host::import_csv(tree, input, "dump.csv");
}

// "name: what (why)" of each note of a kind.
Texts told(const ImportResult& result, Kind kind) {
  Texts texts;
  for (const ImportNote& note : result.notes) {
    if (note.kind == kind) texts.push_back(note.name + ": " + note.what + " (" + note.why + ")");
  }
  return texts;
}

class NotesOfAGateway : public testing::Test {
 protected:
  NotesOfAGateway()
      : result_(host::import_csv_file(tree_, std::string(TEST_DATA_DIR) + "/gateway.csv")) {}
  Tree tree_;
  ImportResult result_;
};

TEST_F(NotesOfAGateway, TellNormalisedBooleans) {
  const std::string why = " (booleans in the tree are true and false)";
  const Texts expected = {
      kInfo + "X_EXAMPLE_Board.Ready: TRUE became true" + why,
      kBridges + "10.BridgeEnable: 1 became true" + why,
      kBridges + "2.BridgeEnable: 0 became false" + why,
      "InternetGatewayDevice.ManagementServer.EnableCWMP: FALSE became false" + why};
  EXPECT_EQ(told(result_, Kind::kBoolean), expected);
}

TEST_F(NotesOfAGateway, TellCountsThatWereOthers) {
  const Texts expected = {
      "InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries: is 2, not \"7\" "
      "(the instances are counted)",
      "InternetGatewayDevice.UserNumberOfEntries: is 1, not \"4\" (the instances are counted)"};
  EXPECT_EQ(told(result_, Kind::kCount), expected);
}

TEST_F(NotesOfAGateway, TellWhatTheDataModelLacks) {
  Texts names;
  for (const ImportNote& note : result_.notes) {
    if (note.kind != Kind::kExtension) continue;
    EXPECT_EQ(note.what + ", " + note.why, "kept, not in the data model");
    names.push_back(note.name);
  }
  const Texts expected = {kInfo + "X_EXAMPLE_Board.",
                          kInfo + "X_EXAMPLE_Board.Colour",
                          kInfo + "X_EXAMPLE_Board.Ready",
                          kInfo + "X_EXAMPLE_Uplink",
                          kBridges + "10.X_EXAMPLE_Mode",
                          "InternetGatewayDevice.User.",
                          "InternetGatewayDevice.User.3.",
                          "InternetGatewayDevice.User.3.Username",
                          "InternetGatewayDevice.X_EXAMPLE_Radio."};
  EXPECT_EQ(names, expected);
}

TEST_F(NotesOfAGateway, TellForeignRootsInTheEnd) {
  const Texts expected = {"DeviceID: 1 row skipped (not below InternetGatewayDevice)",
                          "Tags: 1 row skipped (not below InternetGatewayDevice)"};
  EXPECT_EQ(told(result_, Kind::kForeign), expected);
  EXPECT_EQ(result_.notes.back().name, "Tags");
}

TEST(ImportNotes, AreNoneForACountThatIsRight) {
  Tree tree;
  const ImportResult result = imported(
      tree, kPlainHeader + kRoot + "Layer2Bridging.BridgeNumberOfEntries,false,false,1,\n" +
                kBridges + "4,true,true,,\n");
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_EQ(result.counts, 1U);
  EXPECT_TRUE(result.notes.empty());
}

TEST(ImportNotes, AreNoneForAnExportedFactoryState) {
  Tree tree;
  const ImportResult result = imported(tree, csv_text(Tree::factory()));
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_TRUE(result.notes.empty());
}

TEST(ImportNotes, TellUnknownTypes) {
  Tree tree;
  const ImportResult result =
      imported(tree, kPlainHeader + kInfo + "X_A,false,true,aGk=,xsd:base64\n" + kInfo +
                         "X_B,false,true,x,\n" + kInfo + "X_C,false,true,x,xsd:string\n" + kInfo +
                         "X_D,false,true,7,xyz:int\n");
  const Texts expected = {kInfo + "X_A: became a string (the type xsd:base64 is unknown)",
                          kInfo + "X_D: became a string (the type xyz:int is unknown)"};
  EXPECT_EQ(told(result, Kind::kType), expected);
}

TEST(ImportNotes, AddUpForeignRows) {
  Tree tree;
  std::string text = kPlainHeader + "InternetGatewayDevice,true,false,,\n";
  for (int row = 1; row <= 3; ++row) text += "Tags." + std::to_string(row) + ",false,true,x,\n";
  const Texts expected = {"Tags: 3 rows skipped (not below InternetGatewayDevice)"};
  EXPECT_EQ(told(imported(tree, text), Kind::kForeign), expected);
}

TEST(ImportNotes, DoNotGrowWithForeignRoots) {
  Tree tree;
  std::string text = kPlainHeader + "InternetGatewayDevice,true,false,,\n";
  for (int root = 0; root < 1000; ++root) text += "R" + std::to_string(root) + ".A,false,true,x,\n";
  const ImportResult result = imported(tree, text);
  ASSERT_EQ(result.notes.size(), 21U);
  EXPECT_EQ(result.notes.back().name, "other roots");
  EXPECT_EQ(result.notes.back().what, "980 rows skipped");
  EXPECT_EQ(result.foreign, 1000U);
}

TEST(ImportNotes, AreNoneWhenTheDumpIsRefused) {
  Tree tree;
  const ImportResult result = imported(tree, kPlainHeader + kInfo + "X_A,false,true,x,\nbroken\n");
  EXPECT_FALSE(result.ok);
  EXPECT_TRUE(result.notes.empty());
}

TEST(Counter, IsTakenFromTheDump) {
  Tree tree;
  ASSERT_TRUE(
      imported(tree, kHeader + kBridges.substr(0, kBridges.size() - 1) + ",true,true,,,41,\n").ok);
  EXPECT_EQ(added(tree, kBridges), kBridges + "42.");
}

TEST(Counter, IsNeverBelowAnInstance) {
  const std::string table = kBridges.substr(0, kBridges.size() - 1) + ",true,true,,,3,\n";
  const std::string instance = kBridges + "9,true,true,,,,\n";
  for (const std::string& rows : {table + instance, instance + table}) {
    Tree tree;
    ASSERT_TRUE(imported(tree, kHeader + rows).ok);
    EXPECT_EQ(added(tree, kBridges), kBridges + "10.");
  }
}

TEST(Counter, MakesATableOfAnExtensionUnlessItIsZero) {
  Tree tree;
  ASSERT_TRUE(imported(tree, kHeader + kRoot + "X_A_Table,true,true,,,2,\n" + kRoot +
                                 "X_A_Object,true,true,,,0,\n")
                  .ok);
  const std::vector<host::Object> objects = tree.objects();
  const auto kind_of = [&objects](const std::string& path) {
    const auto found = std::find_if(objects.begin(), objects.end(),
                                    [&path](const auto& object) { return object.path == path; });
    return found->kind;
  };
  EXPECT_EQ(kind_of(kRoot + "X_A_Table."), host::Object::Kind::kTable);
  EXPECT_EQ(kind_of(kRoot + "X_A_Object."), host::Object::Kind::kSingle);
}

TEST(Verbatim, TakesABooleanAsItStands) {
  Tree tree;
  const ImportResult result =
      imported(tree, kHeader + kBridges + "1.BridgeEnable,false,true,1,xsd:boolean,,true\n" +
                         kBridges + "2.BridgeEnable,false,true,1,xsd:boolean,,false\n");
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_EQ(tree.value(kBridges + "1.BridgeEnable"), "1");
  EXPECT_EQ(tree.value(kBridges + "2.BridgeEnable"), "true");
  EXPECT_EQ(result.booleans, 1U);
}

TEST(Verbatim, ReadsHexadecimalDigits) {
  Tree tree;
  const ImportResult result =
      imported(tree, kHeader + kInfo + "ModelName,false,false,00c3BC0a,xsd:string,,hex\n" +
                         kBridges + "1.BridgeEnable,false,true,31,xsd:boolean,,hex\n");
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_EQ(tree.value(kInfo + "ModelName"), std::string("\0\xC3\xBC\n", 4));
  EXPECT_EQ(tree.value(kBridges + "1.BridgeEnable"), "1");
  EXPECT_TRUE(result.notes.empty());
}

struct BadRow {
  const char* name;
  std::string row;
  std::string reason;
};
std::ostream& operator<<(std::ostream& out, const BadRow& row) { return out << row.name; }

const BadRow kBadRows[] = {
    {"HighestOfAParameter", kInfo + "ModelName,false,false,x,xsd:string,1,",
     kInfo + "ModelName is not a table, so it has no instances"},
    {"HighestOfASingleObject", kRoot + "DeviceInfo,true,false,,,1,",
     kRoot + "DeviceInfo is not a table, so it has no instances"},
    {"HighestOfAnInstance", kBridges + "1,true,true,,,1,",
     kBridges + "1 is not a table, so it has no instances"},
    {"HighestInWords", kRoot + "WANDevice,true,true,,,two,",
     kRoot + "WANDevice: the highest instance is not a number"},
    {"HighestBelowZero", kRoot + "WANDevice,true,true,,,-1,",
     kRoot + "WANDevice: the highest instance is not a number"},
    {"HighestAboveInt", kRoot + "WANDevice,true,true,,,2147483648,",
     kRoot + "WANDevice: the highest instance number is too large"},
    {"HighestAboveEverything", kRoot + "WANDevice,true,true,,,99999999999999999999999,",
     kRoot + "WANDevice: the highest instance number is too large"},
    {"VerbatimInWords", kInfo + "ModelName,false,false,x,xsd:string,,maybe",
     kInfo + "ModelName: Verbatim is not one of true, false and hex"},
    {"OddDigits", kInfo + "ModelName,false,false,616,xsd:string,,hex",
     kInfo + "ModelName: Value is not in hexadecimal digits"},
    {"NoDigits", kInfo + "ModelName,false,false,6g,xsd:string,,hex",
     kInfo + "ModelName: Value is not in hexadecimal digits"},
};

class RefusedRow : public testing::TestWithParam<BadRow> {};

TEST_P(RefusedRow, NamesTheReasonAndLeavesTheTree) {
  Tree tree = Tree::factory();
  const std::string before = whole_text(tree);
  const ImportResult result = imported(tree, kHeader + GetParam().row + "\n");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "dump.csv:2: " + GetParam().reason);
  EXPECT_TRUE(whole_text(tree) == before);
}

INSTANTIATE_TEST_SUITE_P(Import, RefusedRow, testing::ValuesIn(kBadRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RefusedHeader, NamesAColumnOfTheExportTwice) {
  Tree tree;
  EXPECT_EQ(imported(tree, "Parameter,Object,Writable,Value,Value type,Verbatim,Verbatim\n").error,
            "dump.csv:1: the header has the column \"Verbatim\" twice");
}

}  // namespace
