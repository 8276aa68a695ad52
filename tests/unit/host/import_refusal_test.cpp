// Dumps that are refused whole: where and why, and the tree as it was.
#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::ImportResult;
using host::Tree;

const std::string kHeader = "Parameter,Object,Writable,Value,Value type\n";
const std::string kGoodRow =
    "InternetGatewayDevice.DeviceInfo.ModelName,false,false,x,xsd:string\n";

struct BadDump {
  const char* what;
  std::string text;
  std::string error;  // after "dump.csv:"
};

std::ostream& operator<<(std::ostream& out, const BadDump& dump) { return out << dump.what; }

std::string nested(int levels) {
  std::string name = "InternetGatewayDevice";
  for (int i = 0; i < levels; ++i) name += ".X";
  return name;
}

const BadDump kBadDumps[] = {
    {"NoBytes", "", "1: the input is empty"},
    {"EmptyLinesOnly", "\n\r\n\n", "1: the input is empty"},
    {"HeaderOnly", kHeader, "1: there is no row of InternetGatewayDevice"},
    {"ForeignRootsOnly", kHeader + "Device.A,false,true,x,xsd:string\n",
     "1: there is no row of InternetGatewayDevice"},
    {"NoHeader", kGoodRow, "1: the header has no column \"Parameter\""},
    {"HeaderWithoutValueType", "Parameter,Object,Writable,Value\n",
     "1: the header has no column \"Value type\""},
    {"HeaderInOtherCase", "parameter,Object,Writable,Value,Value type\n",
     "1: the header has no column \"Parameter\""},
    {"HeaderNamesAColumnTwice", "Parameter,Object,Writable,Value,Value type,Value\n",
     "1: the header has the column \"Value\" twice"},
    {"HeaderAfterEmptyLine", "\nParameter\n", "2: the header has no column \"Object\""},
    {"TooFewFields", kHeader + kGoodRow + "InternetGatewayDevice.A,false\n",
     "3: the header has 5 columns, the record has 2"},
    {"TooManyFields", kHeader + "InternetGatewayDevice.A,false,true,x,xsd:string,\n",
     "2: the header has 5 columns, the record has 6"},
    {"LineOfBlanks", kHeader + kGoodRow + "  \n", "3: the header has 5 columns, the record has 1"},
    {"RecordAfterOneOfSeveralLines",
     kHeader +
         "InternetGatewayDevice.A,false,true,\"1\n2\n3\",xsd:string\nInternetGatewayDevice.B\n",
     "5: the header has 5 columns, the record has 1"},
    {"RecordOfSeveralLines",
     kHeader + kGoodRow + "InternetGatewayDevice..B,false,true,\"1\n2\n3\",xsd:string\n" + kGoodRow,
     "3: InternetGatewayDevice..B has an empty component"},
    {"OpenQuote", kHeader + kGoodRow + "InternetGatewayDevice.A,false,true,\"x,xsd:string\n\n\n",
     "3: a quoted field is not closed"},
    {"QuoteInsideAField", kHeader + "InternetGatewayDevice.A,false,true,a\"b,xsd:string\n",
     "2: there is a quote inside an unquoted field, or text after a closing quote"},
    {"TextAfterAQuote", kHeader + "InternetGatewayDevice.A,false,true,\"a\"b,xsd:string\n",
     "2: there is a quote inside an unquoted field, or text after a closing quote"},
    {"NulByte",
     kHeader + "InternetGatewayDevice.A,false,true,a" + std::string(1, '\0') + "b,xsd:string\n",
     "2: the record contains a NUL byte"},
    {"ObjectFlag", kHeader + "InternetGatewayDevice.A,maybe,true,x,xsd:string\n",
     "2: InternetGatewayDevice.A: Object is neither true nor false"},
    {"NoObjectFlag", kHeader + "InternetGatewayDevice.A,,true,x,xsd:string\n",
     "2: InternetGatewayDevice.A: Object is neither true nor false"},
    {"WritableFlag", kHeader + "InternetGatewayDevice.A,false,2,x,xsd:string\n",
     "2: InternetGatewayDevice.A: Writable is neither true nor false"},
    {"NoName", kHeader + ",false,true,x,xsd:string\n", "2: the parameter name is empty"},
    {"TrailingDot", kHeader + "InternetGatewayDevice.A.,true,true,,\n",
     "2: InternetGatewayDevice.A. has an empty component"},
    {"TrailingDotOfTheRoot", kHeader + "InternetGatewayDevice.,true,true,,\n",
     "2: InternetGatewayDevice. has an empty component"},
    {"TrailingDotOfAParameter", kHeader + "InternetGatewayDevice.A.,false,true,x,xsd:string\n",
     "2: InternetGatewayDevice.A. has an empty component"},
    {"NestedTooDeep", kHeader + nested(64) + ",true,true,,\n",
     "2: " + nested(64) + " is nested too deeply"},
    {"ParameterTwice", kHeader + kGoodRow + kGoodRow,
     "3: InternetGatewayDevice.DeviceInfo.ModelName is already on line 2"},
    {"ObjectTwice",
     kHeader + "InternetGatewayDevice.A,true,true,,\nInternetGatewayDevice.A,true,true,,\n",
     "3: InternetGatewayDevice.A is already on line 2"},
    {"InstanceZero", kHeader + "InternetGatewayDevice.Layer2Bridging.Bridge.0,true,true,,\n",
     "2: InternetGatewayDevice.Layer2Bridging.Bridge.0: instance numbers start at 1 and have no "
     "leading zero"},
    {"InstanceWithLeadingZero",
     kHeader + "InternetGatewayDevice.Layer2Bridging.Bridge.01.VLANID,false,true,1,xsd:int\n",
     "2: InternetGatewayDevice.Layer2Bridging.Bridge.01: instance numbers start at 1 and have no "
     "leading zero"},
    {"InstanceAboveInt", kHeader + "InternetGatewayDevice.User.2147483648,true,true,,\n",
     "2: InternetGatewayDevice.User.2147483648: the instance number is too large"},
    {"InstanceAboveEverything",
     kHeader + "InternetGatewayDevice.User.99999999999999999999999,true,true,,\n",
     "2: InternetGatewayDevice.User.99999999999999999999999: the instance number is too large"},
    {"NumberAsParameter", kHeader + "InternetGatewayDevice.User.1,false,true,x,xsd:string\n",
     "2: InternetGatewayDevice.User.1: a number names an instance, not a parameter"},
    {"BelowAParameter",
     kHeader +
         "InternetGatewayDevice.A,false,true,x,xsd:string\nInternetGatewayDevice.A.B,false,true,x,"
         "xsd:string\n",
     "3: InternetGatewayDevice.A is a parameter, so it cannot be an object"},
    {"BelowAParameterOfTheDataModel",
     kHeader + "InternetGatewayDevice.DeviceSummary.A,false,true,x,xsd:string\n",
     "2: InternetGatewayDevice.DeviceSummary is a parameter, so it cannot be an object"},
    {"ParameterThatHasParameters",
     kHeader +
         "InternetGatewayDevice.A.B,false,true,x,xsd:string\nInternetGatewayDevice.A,false,true,x,"
         "xsd:string\n",
     "3: InternetGatewayDevice.A is an object, so it cannot be a parameter"},
    {"ParameterThatIsAnObjectOfTheDataModel",
     kHeader +
         "InternetGatewayDevice.WANDevice.1.WANCommonInterfaceConfig,false,true,x,xsd:string\n",
     "2: InternetGatewayDevice.WANDevice.1.WANCommonInterfaceConfig is an object, so it cannot be "
     "a parameter"},
    {"RootAsParameter", kHeader + "InternetGatewayDevice,false,true,x,xsd:string\n",
     "2: InternetGatewayDevice is an object, so it cannot be a parameter"},
    {"ObjectThatIsAParameterOfTheDataModel",
     kHeader + "InternetGatewayDevice.ManagementServer.URL,true,true,,\n",
     "2: InternetGatewayDevice.ManagementServer.URL is a parameter, so it cannot be an object"},
};

std::string all_of(const Tree& tree) {
  std::string text;
  for (const auto& parameter : tree.parameters()) {
    text += parameter.name + "=" + parameter.value + "\n";
  }
  return text;
}

class RefusedDump : public testing::TestWithParam<BadDump> {};

TEST_P(RefusedDump, NamesFileLineAndReasonAndLeavesTheTree) {
  Tree tree = Tree::factory();
  const std::string before = all_of(tree);
  std::istringstream input(GetParam().text);
  const ImportResult result = host::import_csv(tree, input, "dump.csv");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "dump.csv:" + GetParam().error);
  EXPECT_EQ(result.objects + result.parameters + result.extensions, 0U);
  EXPECT_EQ(all_of(tree), before);
  EXPECT_EQ(added(tree, kBridges), kBridges + "2.");
}

INSTANTIATE_TEST_SUITE_P(Import, RefusedDump, testing::ValuesIn(kBadDumps),
                         [](const auto& dump) { return std::string(dump.param.what); });

TEST(RefusedFile, IsNamedByItsPath) {
  Tree tree;
  const std::string file = std::string(TEST_DATA_DIR) + "/ragged.csv";
  EXPECT_EQ(host::import_csv_file(tree, file).error,
            file + ":4: the header has 5 columns, the record has 3");
}

TEST(RefusedFile, ThatIsMissingIsNamedWithTheCause) {
  Tree tree = Tree::factory();
  const ImportResult result = host::import_csv_file(tree, "no/such/dump.csv");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "no/such/dump.csv: cannot be opened: No such file or directory");
  EXPECT_TRUE(tree.has_object(kBridges + "1."));
}

TEST(RefusedFile, ThatIsAFolderCannotBeRead) {
  Tree tree;
  const ImportResult result = host::import_csv_file(tree, TEST_DATA_DIR);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, std::string(TEST_DATA_DIR) + ":1: the input cannot be read");
}

ImportResult imported(Tree& tree, const std::string& text) {
  std::istringstream input(text);
  return host::import_csv(tree, input, "dump.csv");
}

TEST(LongestText, CanBeImported) {
  Tree tree;
  const std::string url = kRoot + "ManagementServer.URL";
  const std::string longest(host::kLongestText, 'x');
  EXPECT_EQ(imported(tree, kHeader + url + ",false,true," + longest + ",xsd:string\n").error, "");
  EXPECT_TRUE(tree.value(url) == longest);
}

TEST(LongestText, AnyLongerOneIsRefusedByItsName) {
  Tree tree = Tree::factory();
  const std::string before = all_of(tree);
  const std::string url = kRoot + "ManagementServer.URL";
  const std::string longer(host::kLongestText + 1, 'x');
  EXPECT_EQ(
      imported(tree, kHeader + kGoodRow + url + ",false,true," + longer + ",xsd:string\n").error,
      "dump.csv:3: " + url + ": Value is longer than 16 MiB");
  const std::string digits(2 * longer.size(), '6');
  EXPECT_EQ(imported(tree, "Parameter,Object,Writable,Value,Value type,Verbatim\n" + kRoot +
                               "X,false,true," + digits + ",xsd:string,hex\n")
                .error,
            "dump.csv:2: " + kRoot + "X: Value is longer than 16 MiB");
  EXPECT_EQ(imported(tree, kHeader + kRoot + longer + ",false,true,x,xsd:string\n").error,
            "dump.csv:2: the parameter name is longer than 16 MiB");
  EXPECT_EQ(all_of(tree), before);
}

TEST(HostileDump, NestedWithoutEndIsRefused) {
  Tree tree;
  std::istringstream input(kHeader + nested(200000) + ",true,true,,\n");
  EXPECT_FALSE(host::import_csv(tree, input, "dump.csv").ok);
}

}  // namespace
