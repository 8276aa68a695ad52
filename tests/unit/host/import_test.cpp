// What an import makes of a parameter dump.
#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <vector>

#include "host_platform.h"
#include "tree_builder.h"

namespace {

using namespace host_tests;
using host::ImportResult;
using host::Tree;

const std::string kHeader = "Parameter,Object,Writable,Value,Value type\n";
const std::string kInfo = "InternetGatewayDevice.DeviceInfo.";

ImportResult imported(Tree& tree, const std::string& text) {
  std::istringstream input(text);
  return host::import_csv(tree, input, "dump.csv");
}

Tree tree_of(const std::string& rows) {
  Tree tree;
  const ImportResult result = imported(tree, kHeader + rows);
  EXPECT_TRUE(result.ok) << result.error;
  return tree;
}

// The import of data/gateway.csv over a tree in factory state.
class GatewayImport : public testing::Test {
 protected:
  GatewayImport()
      : result_(host::import_csv_file(tree_, std::string(TEST_DATA_DIR) + "/gateway.csv")) {}
  void SetUp() override { ASSERT_TRUE(result_.ok) << result_.error; }

  Tree tree_ = Tree::factory();
  ImportResult result_;
};

TEST_F(GatewayImport, ReplacesTheWholeTree) {
  EXPECT_FALSE(tree_.has_object("InternetGatewayDevice.LANDevice.1."));
  EXPECT_FALSE(tree_.has_object(kBridges + "1."));
  EXPECT_TRUE(tree_.instances(kPortInterface).empty());
  EXPECT_EQ(tree_.value("InternetGatewayDevice.LANDeviceNumberOfEntries"), "0");
}

TEST_F(GatewayImport, KeepsTheSingleObjectsThatTheDumpLacks) {
  EXPECT_TRUE(tree_.has_object("InternetGatewayDevice.Layer3Forwarding."));
  EXPECT_TRUE(tree_.has_object(kRoutes));
  EXPECT_EQ(tree_.value(kInfo + "SpecVersion"), "1.0");
}

TEST_F(GatewayImport, MakesInstancesAsNamedAndKeepsGaps) {
  const std::vector<std::string> expected = {kBridges + "2.BridgeName", kBridges + "10.BridgeName"};
  EXPECT_EQ(tree_.instances(kBridgeName), expected);
  EXPECT_EQ(tree_.value(kBridges + "10.BridgeName"), "ten");
}

TEST_F(GatewayImport, GoesOnCountingAboveTheHighestNumber) {
  EXPECT_EQ(added(tree_, kBridges), kBridges + "11.");
}

TEST_F(GatewayImport, CompletesInstancesLikeCreatedOnes) {
  EXPECT_EQ(tree_.value(kBridges + "10.BridgeStandard"), "802.1D");
  EXPECT_TRUE(tree_.has_parameter(kBridges + "2.X_ZYN_WANName"));
  EXPECT_TRUE(tree_.has_object(kBridges + "2.Port."));
  EXPECT_EQ(added(tree_, kBridges + "2.Port."), kBridges + "2.Port.1.");
}

TEST_F(GatewayImport, KeepsQuotesCommasBlanksAndLineEnds) {
  EXPECT_EQ(tree_.value(kInfo + "Description"), "says \"hello\", twice\non two lines");
  EXPECT_EQ(tree_.value(kInfo + "X_EXAMPLE_Board.Colour"), "  green ");
}

TEST_F(GatewayImport, KeepsWhatTheDataModelDoesNotKnow) {
  EXPECT_EQ(tree_.value(kBridges + "10.X_EXAMPLE_Mode"), "fast");
  EXPECT_EQ(tree_.value("InternetGatewayDevice.User.3.Username"), "someone");
  EXPECT_TRUE(tree_.has_object("InternetGatewayDevice.X_EXAMPLE_Radio."));
  const auto info = tree_.describe(kBridges + "10.X_EXAMPLE_Mode");
  ASSERT_TRUE(info.has_value());
  EXPECT_TRUE(info->extension);
  EXPECT_TRUE(info->writable);
  EXPECT_EQ(info->type, "string");
}

TEST_F(GatewayImport, TakesTypeAndAccessOfExtensionsFromTheDump) {
  const auto info = tree_.describe(kInfo + "X_EXAMPLE_Board.Ready");
  ASSERT_TRUE(info.has_value());
  EXPECT_EQ(info->type, "boolean");
  EXPECT_FALSE(info->writable);
}

TEST_F(GatewayImport, LetsExtensionsBeWritten) {
  EXPECT_EQ(tree_.set_value(kBridges + "10.X_EXAMPLE_Mode", "slow"), 0);
  EXPECT_EQ(tree_.value(kBridges + "10.X_EXAMPLE_Mode"), "slow");
}

TEST_F(GatewayImport, DeletesExtensionsWithTheirObject) {
  EXPECT_EQ(tree_.delete_object(kBridges + "10."), 0);
  EXPECT_FALSE(tree_.has_parameter(kBridges + "10.X_EXAMPLE_Mode"));
  EXPECT_EQ(tree_.delete_object("InternetGatewayDevice.User.3."), 0);
  EXPECT_FALSE(tree_.has_parameter("InternetGatewayDevice.User.3.Username"));
  EXPECT_EQ(tree_.delete_object("InternetGatewayDevice.X_EXAMPLE_Radio."), 0);
  EXPECT_FALSE(tree_.has_object("InternetGatewayDevice.X_EXAMPLE_Radio."));
}

TEST_F(GatewayImport, DropsExtensionsWhenTheirSingleObjectIsDeleted) {
  EXPECT_EQ(tree_.delete_object(kInfo), 0);
  EXPECT_FALSE(tree_.has_parameter(kInfo + "X_EXAMPLE_Uplink"));
  EXPECT_FALSE(tree_.has_object(kInfo + "X_EXAMPLE_Board."));
  EXPECT_EQ(tree_.value(kInfo + "Description"), "");
}

TEST_F(GatewayImport, RefusesInstancesInTablesOutsideTheDataModel) {
  EXPECT_EQ(added(tree_, "InternetGatewayDevice.User."), "");
  ASSERT_EQ(tree_.refusals().size(), 1U);
  EXPECT_EQ(tree_.refusals()[0].reason, "the table is not in the data model");
  EXPECT_NE(tree_.delete_object("InternetGatewayDevice.User."), 0);
}

TEST_F(GatewayImport, NormalisesBooleansByTheirDeclaredType) {
  EXPECT_EQ(tree_.value(kBridges + "10.BridgeEnable"), "true");
  EXPECT_EQ(tree_.value(kBridges + "2.BridgeEnable"), "false");
  EXPECT_EQ(tree_.value("InternetGatewayDevice.ManagementServer.EnableCWMP"), "false");
  EXPECT_EQ(tree_.value(kInfo + "X_EXAMPLE_Board.Ready"), "true");
  EXPECT_EQ(tree_.value(kInfo + "X_EXAMPLE_Uplink"), "1");  // a string, whatever it looks like
}

TEST_F(GatewayImport, KeepsABooleanThatIsNone) {
  EXPECT_EQ(tree_.value("InternetGatewayDevice.ManagementServer.PeriodicInformEnable"), "2");
}

TEST_F(GatewayImport, ComputesCountsInsteadOfTrustingThem) {
  EXPECT_EQ(tree_.value("InternetGatewayDevice.Layer2Bridging.BridgeNumberOfEntries"), "2");
  EXPECT_EQ(tree_.value("InternetGatewayDevice.UserNumberOfEntries"), "1");
}

TEST_F(GatewayImport, SkipsForeignRoots) {
  EXPECT_FALSE(tree_.has_parameter("DeviceID.Manufacturer"));
  EXPECT_FALSE(tree_.has_parameter("Tags.example"));
}

TEST_F(GatewayImport, TellsWhatItDid) {
  EXPECT_EQ(result_.error, "");
  EXPECT_EQ(result_.objects, 3U);     // two bridges, one user
  EXPECT_EQ(result_.parameters, 7U);  // Description, four of the bridges, two of the server
  EXPECT_EQ(result_.extensions, 5U);
  EXPECT_EQ(result_.counts, 2U);
  EXPECT_EQ(result_.booleans, 4U);
  EXPECT_EQ(result_.foreign, 2U);
}

TEST_F(GatewayImport, IsNoRefusedCall) { EXPECT_TRUE(tree_.refusals().empty()); }

TEST(Import, AddressesColumnsByTheirNames) {
  Tree tree;
  const ImportResult result = imported(tree,
                                       "Value type,Notes,Value,Writable,Parameter,Object\n"
                                       "xsd:string,x,a,true,InternetGatewayDevice.DeviceInfo."
                                       "Description,false\n");
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_EQ(tree.value(kInfo + "Description"), "a");
}

TEST(Import, TakesByteOrderMarkCrLfEmptyLinesAndNoLastLineEnd) {
  Tree tree;
  const ImportResult result =
      imported(tree,
               "\xEF\xBB\xBFParameter,Object,Writable,Value,Value type\r\n\r\n"
               "InternetGatewayDevice.DeviceInfo.Description,false,true,\"a\r\nb\",xsd:string\r\n"
               "InternetGatewayDevice.DeviceInfo.ModelName,false,true,\"\",xsd:string");
  ASSERT_TRUE(result.ok) << result.error;
  EXPECT_EQ(tree.value(kInfo + "Description"), "a\r\nb");
  EXPECT_EQ(tree.value(kInfo + "ModelName"), "");
}

TEST(Import, TakesRowsInAnyOrder) {
  const Tree tree = tree_of(
      "InternetGatewayDevice.User.2.Groups.1.Name,false,true,staff,xsd:string\n"
      "InternetGatewayDevice.WANDevice.3.WANConnectionDevice.2.WANIPConnection.7.Name,false,true,w,"
      "xsd:string\n"
      "InternetGatewayDevice.WANDevice.3,true,true,,\n"
      "InternetGatewayDevice.User,true,true,,\n"
      "InternetGatewayDevice,true,false,,\n");
  EXPECT_EQ(tree.value("InternetGatewayDevice.User.2.Groups.1.Name"), "staff");
  const std::vector<std::string> expected = {kWanDevices +
                                             "3.WANConnectionDevice.2.WANIPConnection.7.Name"};
  EXPECT_EQ(tree.instances(kIpConnectionName), expected);
  EXPECT_TRUE(tree.has_parameter(kWanDevices + "3.WANCommonInterfaceConfig.WANAccessType"));
}

TEST(Import, TakesFlagsInEveryWayThatBooleansAreWritten) {
  const Tree tree = tree_of(
      "InternetGatewayDevice.X_A,TRUE,1,,\n"
      "InternetGatewayDevice.X_A.One,0,,text,xsd:string\n"
      "InternetGatewayDevice.X_A.Two,False,FALSE,text,xsd:string\n");
  EXPECT_EQ(tree.value("InternetGatewayDevice.X_A.One"), "text");
  EXPECT_EQ(tree.value("InternetGatewayDevice.X_A.Two"), "text");
}

TEST(Import, KeepsThePlaceOfExtensionsInStandardObjectsAndTables) {
  const Tree tree = tree_of(
      "InternetGatewayDevice.WANDevice.X_A_Total,false,false,5,xsd:unsignedInt\n"
      "InternetGatewayDevice.Layer3Forwarding.4.Name,false,true,four,xsd:string\n"
      "InternetGatewayDevice.X_A_Top,false,true,top,xsd:string\n");
  EXPECT_EQ(tree.value(kWanDevices + "X_A_Total"), "5");
  EXPECT_EQ(tree.value("InternetGatewayDevice.Layer3Forwarding.4.Name"), "four");
  EXPECT_EQ(tree.value("InternetGatewayDevice.X_A_Top"), "top");
}

TEST(Import, ListsExtensionsAmongTheParametersOfTheDataModelInByteOrder) {
  const Tree tree = tree_of(
      "InternetGatewayDevice.Layer3Forwarding.ForwardA,false,true,1,xsd:string\n"
      "InternetGatewayDevice.Layer3Forwarding.Aa,false,true,2,xsd:string\n"
      "InternetGatewayDevice.Layer3Forwarding.Z-B.V,false,true,5,xsd:string\n"
      "InternetGatewayDevice.Layer3Forwarding.Z.V,false,true,4,xsd:string\n"
      "InternetGatewayDevice.Layer3Forwarding.Z,true,true,,\n"
      "InternetGatewayDevice.Layer3Forwarding.X_A,false,true,3,xsd:string\n");
  std::string listed;
  const std::string above = kRoot + "Layer3Forwarding.";
  for (const auto& parameter : tree.parameters(above)) {
    listed += parameter.name.substr(above.size()) + "=" + parameter.value + "\n";
  }
  EXPECT_EQ(listed,
            "Aa=2\nDefaultConnectionService=\nForwardA=1\nForwardNumberOfEntries=0\n"
            "X_A=3\nZ.V=4\nZ-B.V=5\n");
}

TEST(Import, ComesAlongInCopiesWhichAreIndependent) {
  Tree tree = tree_of(
      "InternetGatewayDevice.User.2.X_A,false,false,7,xsd:int\n"
      "InternetGatewayDevice.DeviceInfo.X_B,false,true,,xsd:string\n");
  const Tree copy = tree;
  ASSERT_EQ(tree.set_value("InternetGatewayDevice.User.2.X_A", "8"), 0);
  ASSERT_EQ(tree.delete_object(kInfo), 0);
  EXPECT_EQ(copy.value("InternetGatewayDevice.User.2.X_A"), "7");
  EXPECT_TRUE(copy.has_parameter(kInfo + "X_B"));
  const auto info = copy.describe("InternetGatewayDevice.User.2.X_A");
  ASSERT_TRUE(info.has_value());
  EXPECT_EQ(info->type, "int");
  EXPECT_FALSE(info->writable);
}

TEST(Import, TakesTheHighestInstanceNumberThereIs) {
  Tree tree = tree_of("InternetGatewayDevice.Layer2Bridging.Bridge.2147483647,true,true,,\n");
  EXPECT_TRUE(tree.has_object(kBridges + "2147483647."));
  EXPECT_EQ(added(tree, kBridges), "");
  ASSERT_EQ(tree.refusals().size(), 1U);
  EXPECT_EQ(tree.refusals()[0].reason, "the table has no instance number left");
}

TEST(Import, KeepsTheListOfRefusedCalls) {
  Tree tree;
  tree.set_value("Enable", "true");
  ASSERT_TRUE(imported(tree, kHeader + "InternetGatewayDevice,true,false,,\n").ok);
  EXPECT_EQ(tree.refusals().size(), 1U);
}

TEST(Import, OfAListingGivesTheSameTree) {
  const Tree tree = Tree::factory();
  std::string rows = "InternetGatewayDevice,true,false,,\n";
  for (const auto& parameter : tree.parameters()) {
    rows += parameter.name + ",false,true,\"" + parameter.value + "\",xsd:string\n";
  }
  const auto before = tree.parameters();
  const auto after = tree_of(rows).parameters();
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    EXPECT_EQ(after[i].name, before[i].name);
    EXPECT_EQ(after[i].value, before[i].value) << after[i].name;
  }
}

TEST(Import, TakesTensOfThousandsOfParameters) {
  std::string rows;
  for (int instance = 1; instance <= 2000; ++instance) {
    for (const char* parameter : {"Enable", "DestIPAddress", "Interface", "X_A_Note"}) {
      rows += kRoutes + std::to_string(instance) + "." + parameter + ",false,true,x,xsd:string\n";
    }
  }
  const Tree tree = tree_of(rows);
  EXPECT_EQ(tree.instances(kForwardingInterface).size(), 2000U);
  EXPECT_EQ(tree.value(kRoutes + "2000.X_A_Note"), "x");
}

}  // namespace
