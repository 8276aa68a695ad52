// Calls that a platform must refuse: each leaves everything as it was, and says so in its result.
#include <string>

#include "contract_test.h"

namespace contract {
namespace {

enum Call { kAdd, kDelete, kSet };
constexpr const char* kCallNames[] = {"addObject", "deleteObject", "setValue"};

// Where the name of a refused call begins.
enum Base { kNothing, kNewBridge };

struct BadCall {
  const char* name;  // of the test
  Call call;
  Base base;
  std::string rest;
};
std::ostream& operator<<(std::ostream& out, const BadCall& row) { return out << row.name; }

const BadCall kBadCalls[] = {
    {"AddToEmptyPath", kAdd, kNothing, ""},
    {"AddToRoot", kAdd, kNothing, "InternetGatewayDevice."},
    {"AddToBarePath", kAdd, kNothing, "Port."},
    {"AddToUnknownTable", kAdd, kNothing, "InternetGatewayDevice.NoSuchTable."},
    {"AddToSingleObject", kAdd, kNothing, "InternetGatewayDevice.Layer3Forwarding."},
    {"AddToInstance", kAdd, kNewBridge, ""},
    {"AddToParameter", kAdd, kNewBridge, "BridgeName"},
    {"AddToTableWithoutDot", kAdd, kNewBridge, "Port"},
    {"AddToUnknownTableOfInstance", kAdd, kNewBridge, "NoSuchTable."},
    {"AddBelowInstanceZero", kAdd, kNothing, "InternetGatewayDevice.Layer2Bridging.Bridge.0.Port."},
    {"AddBelowMissingInstance", kAdd, kNothing,
     "InternetGatewayDevice.Layer2Bridging.Bridge.2147483646.Port."},

    {"DeleteEmptyPath", kDelete, kNothing, ""},
    {"DeleteDot", kDelete, kNothing, "."},
    {"DeleteRoot", kDelete, kNothing, "InternetGatewayDevice."},
    {"DeleteTable", kDelete, kNothing, "InternetGatewayDevice.Layer2Bridging.Bridge."},
    {"DeleteTableOfInstance", kDelete, kNewBridge, "Port."},
    {"DeleteBarePath", kDelete, kNothing, "Port.1."},
    {"DeleteUnknownObject", kDelete, kNothing, "InternetGatewayDevice.NoSuchObject."},
    {"DeleteInstanceZero", kDelete, kNothing, "InternetGatewayDevice.Layer2Bridging.Bridge.0."},
    {"DeleteMissingInstance", kDelete, kNothing,
     "InternetGatewayDevice.Layer2Bridging.Bridge.2147483646."},
    {"DeleteWithoutDot", kDelete, kNewBridge, "Port.1"},
    {"DeleteParameter", kDelete, kNewBridge, "BridgeName"},

    {"SetEmptyName", kSet, kNothing, ""},
    {"SetBareName", kSet, kNothing, "Enable"},
    {"SetBareExtension", kSet, kNothing, "X_CT-COM_LanInterface"},
    {"SetRoot", kSet, kNothing, "InternetGatewayDevice."},
    {"SetTable", kSet, kNothing, "InternetGatewayDevice.Layer2Bridging.Bridge."},
    {"SetInstance", kSet, kNewBridge, ""},
    {"SetUnknownParameter", kSet, kNewBridge, "NoSuchName"},
    {"SetParameterOfAnotherObject", kSet, kNewBridge, "PVID"},
    {"SetParameterWithDot", kSet, kNewBridge, "BridgeName."},
    {"SetInInstanceZero", kSet, kNothing, "InternetGatewayDevice.Layer2Bridging.Bridge.0.VLANID"},
    {"SetInMissingInstance", kSet, kNothing,
     "InternetGatewayDevice.Layer2Bridging.Bridge.2147483646.VLANID"},
    {"SetInUnknownObject", kSet, kNothing, "InternetGatewayDevice.NoSuchObject.Enable"},
};

class Refusals : public Verbs {
 protected:
  // Makes a call that must be refused; the number that addObject was given must stay.
  int refused(Call call, const std::string& name) {
    expect_refused(kCallNames[call], name);
    int number = -7;
    int result = 0;
    if (call == kAdd) result = mib().addObject(name, &number, kInternalLevel);
    if (call == kDelete) result = mib().deleteObject(name);
    if (call == kSet) result = mib().setValue(name, "refused", 0);
    EXPECT_EQ(number, -7) << "a failed addObject changed the number";
    return result;
  }
};

class RefusedCall : public Refusals,
                    public testing::WithParamInterface<std::tuple<PlatformCase, BadCall>> {
 protected:
  void SetUp() override {
    start(std::get<0>(GetParam()));
    bridge_ = add(kBridges);
    set(bridge_ + "BridgeName", "stays");
    set(add(bridge_ + "Port.") + "PortInterface", "LAN1");
  }

  int make() {
    const BadCall& bad = std::get<1>(GetParam());
    return refused(bad.call, (bad.base == kNewBridge ? bridge_ : "") + bad.rest);
  }

  std::string bridge_;
};

TEST_P(RefusedCall, ChangesNothing) {
  const std::string before = everything();
  (void)make();
  EXPECT_EQ(everything(), before);
  EXPECT_EQ(get(bridge_ + "BridgeName"), "stays");
  EXPECT_EQ(get(bridge_ + "Port.1.PortInterface"), "LAN1");
}

TEST_P(RefusedCall, UsesUpNoNumber) {
  (void)make();
  EXPECT_EQ(number_of_added(bridge_ + "Port."), 2);
}

TEST_P(RefusedCall, SaysSoInItsResult) { EXPECT_NE(make(), 0); }

TEST_P(RefusedCall, LeavesNothingToRead) {
  const BadCall& bad = std::get<1>(GetParam());
  (void)make();
  if (bad.call == kSet) {
    EXPECT_EQ(get((bad.base == kNewBridge ? bridge_ : "") + bad.rest), "");
  }
}

INSTANTIATE_TEST_SUITE_P(Platform, RefusedCall,
                         testing::Combine(testing::ValuesIn(platforms()),
                                          testing::ValuesIn(kBadCalls)),
                         row_name<BadCall>);

class PlatformsOwn : public Refusals, public testing::WithParamInterface<PlatformCase> {
 protected:
  void SetUp() override { start(GetParam()); }
};

TEST_P(PlatformsOwn, CountsAreNotWritten) {
  if (platform().counts().empty()) GTEST_SKIP() << "the platform names no count";
  for (const std::string& count : platform().counts()) {
    const std::string before = everything();
    const std::string value = get(count);
    EXPECT_NE(refused(kSet, count), 0) << count;
    EXPECT_EQ(get(count), value) << count;
    EXPECT_EQ(everything(), before) << count;
  }
}

TEST_P(PlatformsOwn, ClosedTablesTakeNoInstances) {
  if (platform().closed_tables().empty()) GTEST_SKIP() << "the platform names no closed table";
  for (const std::string& table_path : platform().closed_tables()) {
    const std::string before = everything();
    EXPECT_NE(refused(kAdd, table_path), 0) << table_path;
    EXPECT_EQ(everything(), before) << table_path;
  }
}

INSTANTIATE_TEST_SUITE_P(Platform, PlatformsOwn, testing::ValuesIn(platforms()), platform_name);

}  // namespace
}  // namespace contract
