// The CSV export: a tree that goes out and comes back is the same tree.
#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "csv_dump.h"
#include "host_platform.h"
#include "tree_builder.h"
#include "tree_text.h"

namespace {

using namespace host_tests;
using host::ExportResult;
using host::ImportResult;
using host::Tree;

const std::string kInfo = "InternetGatewayDevice.DeviceInfo.";
const std::string kHeader =
    "Parameter,Object,Writable,Value,Value type,Highest instance,Verbatim\n";

Tree tree_of(const std::string& text) {
  Tree tree;
  std::istringstream input(text);
  const ImportResult result = host::import_csv(tree, input, "dump.csv");
  EXPECT_TRUE(result.ok) << result.error;
  return tree;
}

bool has_row(const Tree& tree, const std::string& row) {
  return csv_text(tree).find("\n" + row + "\n") != std::string::npos;
}

void expect_round_trip(const Tree& tree) {
  EXPECT_TRUE(whole_text(through_csv(tree)) == whole_text(tree));
  EXPECT_TRUE(csv_text(through_csv(tree)) == csv_text(tree));
}

TEST(CsvRoundTrip, OfANewTreeIsTheSameTree) { expect_round_trip(Tree()); }

TEST(CsvRoundTrip, OfTheFactoryStateIsTheSameTree) { expect_round_trip(Tree::factory()); }

TEST(CsvRoundTrip, OfAnImportedDumpIsTheSameTree) {
  Tree tree;
  ASSERT_TRUE(host::import_csv_file(tree, std::string(TEST_DATA_DIR) + "/gateway.csv").ok);
  expect_round_trip(tree);
}

TEST(CsvRoundTrip, KeepsCountersWhoseInstancesAreGone) {
  Tree tree;
  for (int i = 0; i < 3; ++i) added(tree, kBridges);
  tree.delete_object(kBridges + "3.");
  added(tree, kRoutes);
  tree.delete_object("InternetGatewayDevice.Layer3Forwarding.");
  expect_round_trip(tree);
  Tree copy = through_csv(tree);
  EXPECT_EQ(added(copy, kBridges), kBridges + "4.");
  EXPECT_EQ(added(copy, kRoutes), kRoutes + "2.");
  EXPECT_EQ(added(copy, kWanDevices), kWanDevices + "1.");
}

TEST(CsvRoundTrip, KeepsACounterAtItsEnd) {
  Tree tree = tree_of(
      "Parameter,Object,Writable,Value,Value type\n"
      "InternetGatewayDevice.Layer2Bridging.Bridge.2147483647,true,true,,\n");
  tree.delete_object(kBridges + "2147483647.");
  expect_round_trip(tree);
  Tree copy = through_csv(tree);
  EXPECT_EQ(added(copy, kBridges), "");
}

TEST(CsvRoundTrip, KeepsATableOfExtensionsThatWasEmptied) {
  Tree tree = tree_of(
      "Parameter,Object,Writable,Value,Value type\n"
      "InternetGatewayDevice.User.3.Username,false,true,someone,xsd:string\n");
  tree.delete_object("InternetGatewayDevice.User.3.");
  expect_round_trip(tree);
  Tree copy = through_csv(tree);
  EXPECT_EQ(added(copy, "InternetGatewayDevice.User."), "");
  EXPECT_EQ(copy.refusals().back().reason, "the table is not in the data model");
}

TEST(CsvRoundTrip, KeepsTypeAndAccessOfExtensions) {
  std::string rows = "Parameter,Object,Writable,Value,Value type\n";
  for (const char* type : {"boolean", "int", "unsignedInt", "string", "dateTime", "IPAddress",
                           "MACAddress", "Alias"}) {
    for (const char* writable : {"true", "false"}) {
      rows += kInfo + "X_A_" + type + writable + ",false," + writable + ",x,xsd:" + type + "\n";
    }
  }
  const Tree tree = tree_of(rows);
  expect_round_trip(tree);
  const Tree copy = through_csv(tree);
  EXPECT_EQ(copy.describe(kInfo + "X_A_IPAddresstrue")->type, "IPAddress");
  EXPECT_TRUE(copy.describe(kInfo + "X_A_dateTimetrue")->writable);
  EXPECT_FALSE(copy.describe(kInfo + "X_A_dateTimefalse")->writable);
}

TEST(CsvRoundTrip, KeepsExtensionsWhereverTheyStand) {
  expect_round_trip(
      tree_of("Parameter,Object,Writable,Value,Value type\n"
              "InternetGatewayDevice.X_A_Top,false,true,top,xsd:string\n"
              "InternetGatewayDevice.X_A_Empty.Below,true,true,,\n"
              "InternetGatewayDevice.WANDevice.X_A_Total,false,false,5,xsd:unsignedInt\n"
              "InternetGatewayDevice.Layer3Forwarding.4.Name,false,true,four,xsd:string\n"
              "InternetGatewayDevice.Layer2Bridging.Bridge.2.5.Name,false,true,x,xsd:string\n"
              "InternetGatewayDevice.User.10.Groups.2.Name,false,true,staff,xsd:string\n"));
}

TEST(CsvRoundTrip, KeepsBooleansThatAreWrittenInAnotherWay) {
  Tree tree;
  const std::string bridge_path = added(tree, kBridges);
  for (const char* text : {"1", "0", "TRUE", "False", "2", "", "true"}) {
    tree.set_value(bridge_path + "BridgeEnable", text);
    expect_round_trip(tree);
    EXPECT_EQ(through_csv(tree).value(bridge_path + "BridgeEnable"), text);
  }
}

struct Text {
  const char* name;
  std::string text;
};
std::ostream& operator<<(std::ostream& out, const Text& text) { return out << text.name; }

std::string every_byte() {
  std::string text;
  for (int byte = 0; byte < 256; ++byte) text += static_cast<char>(byte);
  return text;
}

const Text kTexts[] = {
    {"Empty", ""},
    {"Blank", " "},
    {"BlanksAround", "  a b  "},
    {"Tab", "\ta\t"},
    {"Comma", ","},
    {"Commas", "a,,b,"},
    {"Quote", "\""},
    {"TwoQuotes", "\"\""},
    {"QuoteAtTheEnd", "a\""},
    {"QuoteAndComma", "\",\""},
    {"LineFeed", "\n"},
    {"CarriageReturn", "\r"},
    {"CarriageReturnAtTheEnd", "a\r"},
    {"CrLf", "a\r\nb\r\n"},
    {"LfCr", "\n\r"},
    {"QuoteLineFeed", "\"\n\""},
    {"LineThatLooksLikeARow", "x\nInternetGatewayDevice.A,false,true,y,xsd:string\n"},
    {"ByteOrderMark", "\xEF\xBB\xBF"},
    {"Utf8",
     "K\xC3\xBC"
     "che \xE2\x82\xAC"},
    {"NoUtf8", "\xFF\xFE\x80"},
    {"NulByte", std::string(1, '\0')},
    {"NulByteInside", std::string("a\0b", 3)},
    {"NulByteAndQuotes", std::string("\"\0\",\n", 5)},
    {"EveryByte", every_byte()},
    {"Formula", "=1+1"},
    {"Long", std::string(100000, ',')},
};

class CsvValue : public testing::TestWithParam<Text> {};

TEST_P(CsvValue, ComesBackToTheByte) {
  Tree tree = tree_of("Parameter,Object,Writable,Value,Value type\n" + kInfo +
                      "X_A,false,true,,xsd:string\n");
  for (const char* parameter : {"Description", "X_A"}) {
    tree.set_value(kInfo + parameter, GetParam().text);
    EXPECT_TRUE(through_csv(tree).value(kInfo + parameter) == GetParam().text);
  }
  expect_round_trip(tree);
}

INSTANTIATE_TEST_SUITE_P(Export, CsvValue, testing::ValuesIn(kTexts),
                         [](const auto& text) { return std::string(text.param.name); });

TEST(CsvRoundTrip, KeepsNamesThatNeedQuotes) {
  const Tree tree = tree_of("Parameter,Object,Writable,Value,Value type\n\"" + kInfo +
                            "X a,\"\"b\"\"\nc \",false,true,x,xsd:string\n");
  EXPECT_EQ(tree.value(kInfo + "X a,\"b\"\nc "), "x");
  expect_round_trip(tree);
}

// Many readers trim a field that is not in quotes.
TEST(CsvExport, QuotesBlanksAtBothEnds) {
  Tree tree;
  tree.set_value(kInfo + "Manufacturer", " x");
  tree.set_value(kInfo + "ModelName", "x ");
  std::ostringstream text;
  ASSERT_TRUE(host::export_csv(tree, text).ok);
  EXPECT_NE(text.str().find(",\" x\","), std::string::npos);
  EXPECT_NE(text.str().find(",\"x \","), std::string::npos);
}

TEST(CsvExport, WritesValuesWithANulByteInHexadecimalDigits) {
  Tree tree;
  tree.set_value(kInfo + "Description", std::string("a\0\n\xFF", 4));
  EXPECT_TRUE(has_row(tree, kInfo + "Description,false,false,61000aff,xsd:string,,hex"));
}

TEST(CsvExport, WritesValuesThatLookLikeHexadecimalDigitsAsTheyAre) {
  Tree tree;
  tree.set_value(kInfo + "Description", "6100");
  EXPECT_TRUE(has_row(tree, kInfo + "Description,false,false,6100,xsd:string,,"));
}

TEST(CsvExport, TellsWhenTheOutputFails) {
  std::ostringstream output;
  output.setstate(std::ios::badbit);
  const ExportResult result = host::export_csv(Tree(), output);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "the output cannot be written");
}

TEST(CsvExport, HasTheColumnsOfADumpAndItsOwn) {
  EXPECT_EQ(csv_text(Tree()).substr(0, kHeader.size()), kHeader);
}

TEST(CsvExport, WritesRowsAsGatewaysDo) {
  const Tree tree = Tree::factory();
  EXPECT_TRUE(has_row(tree, "InternetGatewayDevice,true,false,,,,"));
  EXPECT_TRUE(has_row(tree, "InternetGatewayDevice.Layer2Bridging.Bridge,true,true,,,1,"));
  EXPECT_TRUE(has_row(tree, "InternetGatewayDevice.WANDevice,true,false,,,0,"));
  EXPECT_TRUE(has_row(tree, "InternetGatewayDevice.Layer2Bridging.Bridge.1,true,true,,,,"));
  EXPECT_TRUE(has_row(
      tree,
      "InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName,false,true,internet,xsd:string,,"));
  EXPECT_TRUE(has_row(tree,
                      "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1."
                      "IPInterfaceIPAddress,false,true,192.168.1.1,xsd:string,,"));
  EXPECT_TRUE(has_row(tree,
                      "InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries,false,false,1,"
                      "xsd:unsignedInt,,"));
}

TEST(CsvExport, PutsTenAfterNine) {
  Tree tree;
  for (int i = 0; i < 10; ++i) added(tree, kBridges);
  const std::string text = csv_text(tree);
  EXPECT_LT(text.find(".Bridge.2,"), text.find(".Bridge.9,"));
  EXPECT_LT(text.find(".Bridge.9,"), text.find(".Bridge.10,"));
}

TEST(CsvExport, TellsWhatItWrote) {
  const Tree tree = Tree::factory();
  std::ostringstream output;
  const ExportResult result = host::export_csv(tree, output);
  EXPECT_EQ(result.objects, tree.objects().size());
  EXPECT_EQ(result.parameters, tree.parameters().size());
}

TEST(CsvExport, CanBeReadByAReaderOfPlainDumps) {
  Tree tree = Tree::factory();
  added(tree, kBridges);
  tree.delete_object(kBridges + "2.");
  // What such a reader sees: the same file without the columns it does not look for.
  std::string plain;
  std::istringstream lines(csv_text(tree));
  for (std::string line; std::getline(lines, line);) {
    line.erase(line.rfind(','));
    plain += line.substr(0, line.rfind(',')) + "\n";
  }
  Tree copy = tree_of(plain);
  EXPECT_EQ(copy.parameters().size(), tree.parameters().size());
  EXPECT_EQ(added(copy, kBridges), kBridges + "2.");  // the counter alone is lost
}

class GatewayDumpRoundTrip : public testing::TestWithParam<const char*> {};

TEST_P(GatewayDumpRoundTrip, IsTheSameTree) {
  const std::string file = dump_file(GetParam());
  if (file.empty()) GTEST_SKIP() << GetParam() << " is not in the dump folder";
  Tree tree;
  ASSERT_TRUE(host::import_csv_file(tree, file).ok);
  expect_round_trip(tree);
}

INSTANTIATE_TEST_SUITE_P(Export, GatewayDumpRoundTrip,
                         testing::Values("igd-bm632w.csv", "igd-w5-2100g.csv",
                                         "igd-ec220-g5-v2.csv"),
                         [](const auto& file) { return "File" + std::to_string(file.index); });

}  // namespace
