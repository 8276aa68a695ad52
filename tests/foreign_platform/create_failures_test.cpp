// Creating a connection on a tree that refuses one of the new objects.
#include "gateway_test.h"

namespace foreign {
namespace {

// The objects that are added for the first connection of a device, in their order.
enum Added {
  kDevice = 1,
  kConnectionDevice,
  kStatic,
  kStaticMapping,
  kDhcp,
  kDhcpMapping,
  kPpp,
  kPppMapping,
  kBridge,
  kUplinkPort,
  kLanBridge,
};

class RefusedAdd : public GatewayTest {
 protected:
  std::string create_without(int refused) {
    tree().refuse_add(refused);
    api_wan_info info = description(1, 1);
    return create("Ethernet", info);
  }

  bool exists(const std::string& object) { return tree().objects().count(object) != 0; }

  const std::string device_ = "InternetGatewayDevice.WANDevice.1.";
  const std::string wan_ = device_ + "WANConnectionDevice.1.";
  const std::string ip_ = wan_ + "WANIPConnection.";
};

class RefusedAddAt : public RefusedAdd, public ::testing::WithParamInterface<int> {};

TEST_P(RefusedAddAt, AnyPlaceIsFollowedByTheSameSteps) {
  EXPECT_EQ(create_without(GetParam()).empty(), GetParam() <= kConnectionDevice);
}

INSTANTIATE_TEST_SUITE_P(Places, RefusedAddAt, ::testing::Range<int>(kDevice, kLanBridge + 2));

TEST_F(RefusedAdd, OfTheDeviceEndsTheCreation) {
  EXPECT_EQ(create_without(kDevice), "");
  EXPECT_EQ(writes_of(transcript()), "add InternetGatewayDevice.WANDevice. 255: refused\n");
  EXPECT_EQ(lines_of(transcript()), "");
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

TEST_F(RefusedAdd, OfTheConnectionDeviceLeavesTheNewDevice) {
  EXPECT_EQ(create_without(kConnectionDevice), "");
  EXPECT_EQ(writes_of(transcript()),
            lines({"add InternetGatewayDevice.WANDevice. 255: 1",
                   "set " + device_ + "WANCommonInterfaceConfig.WANAccessType = Ethernet",
                   "add " + device_ + "WANConnectionDevice. 255: refused"}));
  EXPECT_EQ(lines_of(transcript()), "");
  EXPECT_TRUE(exists(device_));
}

TEST_F(RefusedAdd, OfTheStaticConnectionSkipsItsMapping) {
  EXPECT_EQ(create_without(kStatic), wan_);
  EXPECT_EQ(tree().get(ip_ + "1.AddressingType"), "DHCP");
  EXPECT_TRUE(exists(ip_ + "1.PortMapping.1."));
  EXPECT_FALSE(exists(ip_ + "2."));
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(wan_)->static_path, "");
}

TEST_F(RefusedAdd, OfAMappingLeavesTheConnection) {
  EXPECT_EQ(create_without(kStaticMapping), wan_);
  EXPECT_TRUE(exists(ip_ + "1."));
  EXPECT_FALSE(exists(ip_ + "1.PortMapping.1."));
  EXPECT_TRUE(exists(ip_ + "2.PortMapping.1."));
}

TEST_F(RefusedAdd, OfTheDhcpConnectionLeavesTheOthers) {
  EXPECT_EQ(create_without(kDhcp), wan_);
  EXPECT_EQ(tree().get(ip_ + "1.AddressingType"), "Static");
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(wan_)->dhcp_path, "");
  EXPECT_TRUE(exists(wan_ + "WANPPPConnection.1.PortMapping.1."));
  EXPECT_EQ(tree().get("Enable"), "true");
}

TEST_F(RefusedAdd, OfThePppConnectionSkipsItsMapping) {
  EXPECT_EQ(create_without(kPpp), wan_);
  EXPECT_EQ(g_wan_mibinfo_cache_list.at(wan_)->ppp_path, "");
  EXPECT_EQ(transcript().find("WANPPPConnection.0."), std::string::npos);
  EXPECT_EQ(tree().get("Username"), "user");
}

TEST_F(RefusedAdd, OfTheBridgeWritesToInstance0) {
  EXPECT_EQ(create_without(kBridge), wan_);
  const std::string bridge = std::string(kBridges) + "0.";
  EXPECT_EQ(tree().get(bridge + "BridgeName"), "br_1_1");
  EXPECT_EQ(tree().get(bridge + "X_ZYN_WANName"), wan_);
  EXPECT_EQ(tree().get(bridge + "Port.1.PortInterface"), "LAN0");
}

TEST_F(RefusedAdd, OfTheUplinkPortWritesToInstance0) {
  EXPECT_EQ(create_without(kUplinkPort), wan_);
  const std::string port = std::string(kBridges) + "1.Port.0.";
  EXPECT_EQ(tree().get(port + "PortInterface"), "LAN0");
  EXPECT_EQ(tree().get(port + "PortEnable"), "true");
}

}  // namespace
}  // namespace foreign
