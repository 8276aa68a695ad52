// A tree that enumerates a parameter by its bare name, as of no object: it was found all the same,
// and the path of its object is the empty one.
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "connection_test.h"

namespace {

class OneName final : public InstanceIterator {
 public:
  explicit OneName(const char* name) : name_(name) {}
  int next() override { return 0; }
  std::string fullName() override { return name_; }

 private:
  const char* name_;
};

class BareBridge final : public support::MibDecorator {
 public:
  BareBridge(MibAccess& next, std::string owner)
      : MibDecorator(next),
        values_{{"BridgeName", "br_1_1"}, {"X_ZYN_WANName", std::move(owner)}, {"PVID", "17"}} {}
  InstanceIterator* openInstanceIterator(int type) override {
    if (type == kBridgeName) return &name_;
    return type == kBridgeWanName ? &owner_ : MibDecorator::openInstanceIterator(type);
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    if (iterator != &name_ && iterator != &owner_) MibDecorator::closeInstanceIterator(iterator);
  }
  std::string getValue(const std::string& name) override {
    const auto found = values_.find(name);
    return found != values_.end() ? found->second : MibDecorator::getValue(name);
  }

 private:
  std::map<std::string, std::string> values_;
  OneName name_{"BridgeName"};
  OneName owner_{"X_ZYN_WANName"};
};

class BareBridgeTest : public support::ConnectionTest {
 protected:
  BareBridge mib_{host::mib_access(), wan_};
  support::BehindSwitchboard behind_{mib_};
};

TEST_F(BareBridgeTest, HasThePortsOfEveryBridgeAsMembers) {
  EXPECT_EQ(igd_c_check_belong_bridge("br_1_1", "eth0"), 1) << "untagged, as it has no standard";
  EXPECT_EQ(igd_c_check_belong_bridge("br_1_1", "eth0.100"), 0);
  EXPECT_EQ(igd_c_check_belong_bridge("another", "eth0"), 0);
}

TEST_F(BareBridgeTest, GetsItsPvidWrittenToThePortsOfEveryBridge) {
  api_wan_info info;
  info.vlan_id = 321;
  (void)support::printed_by([&] { (void)igd_c_set_bridge_pvid("br_1_1", &info); });
  EXPECT_EQ(get(port_in(bridge_, "LAN0") + "PVID"), "321");
  EXPECT_EQ(get(port_in(lan_bridge_, "LAN1") + "PVID"), "321");
}

TEST_F(BareBridgeTest, CarriesItsConnectionAndHasTheEmptyPath) {
  std::string path = "old";
  EXPECT_EQ(igd_wan_get_wan_bridge_info(wan_, &path, nullptr), 0);
  EXPECT_EQ(path, "");
}

TEST_F(BareBridgeTest, IsAskedForWhatAConnectionsBridgeHas) {
  char buffer[8] = "old";
  igd_c_get_wan_bridge_pvid_name(wan_.c_str(), buffer, sizeof(buffer));
  EXPECT_STREQ(buffer, "17");
}

class BareAccessType final : public support::MibDecorator {
 public:
  BareAccessType(MibAccess& next, const char* name) : MibDecorator(next), name_(name) {}
  InstanceIterator* openInstanceIterator(int type) override {
    return type == kWanAccessType ? &name_ : MibDecorator::openInstanceIterator(type);
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    if (iterator != &name_) MibDecorator::closeInstanceIterator(iterator);
  }
  std::string getValue(const std::string& name) override {
    return name == name_.fullName() ? "Ethernet" : MibDecorator::getValue(name);
  }

 private:
  OneName name_;
};

class BareAccessTypeTest : public support::GatewayTest {};

TEST_F(BareAccessTypeTest, IsOfAWanDeviceWithTheEmptyPath) {
  for (const char* name : {"WANAccessType", "WANCommonInterfaceConfig.WANAccessType"}) {
    BareAccessType mib(host::mib_access(), name);
    const support::BehindSwitchboard behind(mib);
    EXPECT_EQ(create(support::routed_pppoe("1_INTERNET", 100)), "") << name;
    EXPECT_EQ(take_refusals(), std::vector<std::string>{"addObject WANConnectionDevice."}) << name;
    EXPECT_TRUE(tree_.instances(kWanAccessType).empty()) << name;
  }
}

}  // namespace
