// The fixture of the contract suite: a platform for each test, and short words for its calls.
#ifndef TESTS_CONTRACT_CONTRACT_TEST_H
#define TESTS_CONTRACT_CONTRACT_TEST_H

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "contract_platform.h"

namespace contract {

using Names = std::vector<std::string>;

inline const std::string kRoot = "InternetGatewayDevice.";
inline const std::string kWanDevices = kRoot + "WANDevice.";
inline const std::string kBridges = kRoot + "Layer2Bridging.Bridge.";
inline const std::string kRouting = kRoot + "Layer3Forwarding.";
inline const std::string kRoutes = kRouting + "Forwarding.";
constexpr int kInternalLevel = 255;  // what libigd passes

/// Every number that libigd enumerates by.
inline constexpr ObjectType kObjectTypes[] = {
    kForwardingDestIpAddress,
    kForwardingInterface,
    kBridgeName,
    kBridgeWanName,
    kBridgeVlanId,
    kPortEnable,
    kPortDependWanName,
    kPortInterface,
    kPortPvid,
    kWanAccessType,
    kWanConnectionDevice,
    kIpConnectionName,
    kAddressingType,
    kPppConnection,
    kPppConnectionName,
    kServiceList,
};

/// The instances that tests make; their paths end in a dot.
struct Gateway {
  std::string wan_device, connection_device, ip, ppp, mapping, bridge, port, route;
};

class Verbs : public testing::Test {
 protected:
  void start(const PlatformCase& platform);
  void TearDown() override;

  MibAccess& mib() { return platform_->mib(); }
  Platform& platform() { return *platform_; }

  /// Adds an instance, which must succeed; returns its path.
  std::string add(const std::string& table_path);
  int number_of_added(const std::string& table_path);
  Gateway add_one_of_each();
  void set(const std::string& name, const std::string& value);  ///< must succeed
  std::string get(const std::string& name) { return mib().getValue(name); }
  void remove(const std::string& object_path);  ///< must succeed

  /// What a walk yields, in its order; empty when there is no walk.
  Names walk(int type);
  /// The same without what was there when the test began.
  Names walk_mine(int type);

  /// Everything that can be seen of the tree, to compare before and after.
  std::string everything();

  /// A call that the test expects to be refused, so that it is no surprise in the end.
  void expect_refused(const std::string& call, const std::string& name);

 private:
  void remove_what_was_added();
  void check_refusals();

  std::unique_ptr<Platform> platform_;
  std::map<int, Names> at_start_;
  Names added_;  // paths, oldest first
  std::vector<Refused> expected_;
};

/// A rule that is tested once on each platform.
class Contract : public Verbs, public testing::WithParamInterface<PlatformCase> {
 protected:
  void SetUp() override { start(GetParam()); }
};

/// A rule that is tested for each row of a table on each platform.
template <typename Row>
class ContractRow : public Verbs,
                    public testing::WithParamInterface<std::tuple<PlatformCase, Row>> {
 protected:
  using Parameter = testing::WithParamInterface<std::tuple<PlatformCase, Row>>;
  void SetUp() override { start(std::get<0>(Parameter::GetParam())); }
  static const Row& row() { return std::get<1>(Parameter::GetParam()); }
};

inline std::string platform_name(const testing::TestParamInfo<PlatformCase>& info) {
  return info.param.name;
}

/// "Memory_BareName": rows have a name of letters and digits.
template <typename Row>
std::string row_name(const testing::TestParamInfo<std::tuple<PlatformCase, Row>>& info) {
  return std::get<0>(info.param).name + "_" + std::get<1>(info.param).name;
}

}  // namespace contract

#endif  // TESTS_CONTRACT_CONTRACT_TEST_H
