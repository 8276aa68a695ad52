// The plain C readers of bridge names, marks and VLANs; free VLANs.
#include <climits>
#include <cstring>

#include "gateway_test.h"

namespace foreign {
namespace {

using Reader = void (*)(const char*, char*, std::size_t);

class Accessor : public GatewayTest {
 protected:
  /// What the reader leaves in a buffer of `size` that was filled with '#'.
  std::string read(Reader reader, const char* wan, std::size_t size = 32) {
    char buffer[32];
    std::memset(buffer, '#', sizeof buffer);
    run([&] { reader(wan, buffer, size); });
    const void* const end = std::memchr(buffer, '\0', sizeof buffer);
    if (end == nullptr) return "unterminated " + std::string(buffer, sizeof buffer);
    return buffer;
  }

  const std::string wan_ = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.";
};

constexpr char kUntouched[] = "unterminated ################################";

TEST_F(Accessor, MakesAMarkOfTheFirstTwoNumbersOfAName) {
  const struct {
    const char* name;
    unsigned int mark;
  } cases[] = {{"br_1_2", 32},
               {"br_3_31", 91},
               {"br_0_5", 150},
               {"br_1_30", 30},
               {"br_1_2_3", 32},
               {"br_5", 150},
               {"7", 210},
               {"", 0},
               {"internet", 0},
               {"_1__2", 32},
               {"br_1x_2y", 32},
               {"br_x1_2_3", 63},
               {"br_-1_2", 4294967268u},
               {"br_2_-31", 59},
               {"br_2147483647_1", 4294967267u},
               {"br_99999999999_1", 4294967267u}};
  for (const auto& c : cases) {
    EXPECT_EQ(run([&] { return igd_c_get_mask(c.name); }), c.mark) << c.name;
    EXPECT_EQ(transcript(), "");
  }
  EXPECT_EQ(igd_c_get_mask(nullptr), 0u);
}

TEST_F(Accessor, NamesTheBridgeByTheFirstTwoNumbersOfAPath) {
  const struct {
    std::string wan;
    const char* name;
  } cases[] = {{wan_, "br_1_2"},
               {"InternetGatewayDevice.WANDevice.12.WANConnectionDevice.34.", "br_12_34"},
               {"InternetGatewayDevice.WANDevice.0.WANConnectionDevice.3.", "br_3_0"},
               {"InternetGatewayDevice.LANDevice.", "br_0_0"},
               {"", "br_0_0"},
               {"7a.x.8", "br_7_8"},
               {wan_ + "WANIPConnection.9.", "br_1_2"},
               {"-1.2", "br_-1_2"},
               {"99999999999.1", "br_2147483647_1"}};
  for (const auto& c : cases) {
    EXPECT_EQ(read(igd_c_get_wan_bridge_name, c.wan.c_str()), c.name);
    EXPECT_EQ(transcript(), "");
    EXPECT_EQ(read(igd_c_get_wan_bridge_intf_name, c.wan.c_str()), c.name);
  }
}

TEST_F(Accessor, CutsTheNameToTheBuffer) {
  for (Reader reader : {igd_c_get_wan_bridge_name, igd_c_get_wan_bridge_intf_name}) {
    EXPECT_EQ(read(reader, wan_.c_str(), 5), "br_1");
    EXPECT_EQ(read(reader, wan_.c_str(), 1), "");
    EXPECT_EQ(read(reader, wan_.c_str(), 7), "br_1_2");
  }
}

TEST_F(Accessor, WritesNothingOnBadArguments) {
  for (Reader reader :
       {igd_c_get_wan_bridge_name, igd_c_get_wan_bridge_intf_name, igd_c_get_wan_bridge_pvid_name,
        igd_c_get_wan_bridge_vlanid_name, igd_c_get_wan_bridge_vlanpriority_name}) {
    EXPECT_EQ(read(reader, nullptr), kUntouched);
    EXPECT_EQ(transcript(), "");
    EXPECT_EQ(read(reader, wan_.c_str(), 0), kUntouched);
    EXPECT_EQ(transcript(), "");
    run([&] { reader(wan_.c_str(), nullptr, 8); });
    EXPECT_EQ(transcript(), "");
  }
}

struct Field {
  Reader reader;
  const char* parameter;
};

constexpr Field kFields[] = {{igd_c_get_wan_bridge_pvid_name, "PVID"},
                             {igd_c_get_wan_bridge_vlanid_name, "VLANID"},
                             {igd_c_get_wan_bridge_vlanpriority_name, "X_ZYN_VLANPriority"}};

TEST_F(Accessor, ReadsAParameterOfTheConnectionsBridge) {
  const std::string other = add_bridge("other", "InternetGatewayDevice.WANDevice.9.");
  const std::string own = add_bridge("any name", wan_);
  for (const Field& field : kFields) {
    tree().set(own + field.parameter, "12345");
    EXPECT_EQ(read(field.reader, wan_.c_str()), "12345");
    EXPECT_EQ(transcript(),
              lines({"open 197", "close", "get " + other + "X_ZYN_WANName",
                     "get " + own + "X_ZYN_WANName", "get " + own + field.parameter}));
    EXPECT_EQ(read(field.reader, wan_.c_str(), 4), "123");
    EXPECT_EQ(read(field.reader, wan_.c_str(), 1), "");
  }
}

TEST_F(Accessor, MatchesAPathBelowTheOwnerToo) {
  const std::string own = add_bridge("b", wan_);
  for (const Field& field : kFields) {
    tree().set(own + field.parameter, "8");
    EXPECT_EQ(read(field.reader, (wan_ + "WANIPConnection.1.").c_str()), "8");
    EXPECT_EQ(read(field.reader, wan_.substr(0, wan_.size() - 1).c_str()), "");
    EXPECT_EQ(read(field.reader, ("x" + wan_).c_str()), "");
    EXPECT_EQ(reads_of(transcript()), "open 197\nclose\nget " + own + "X_ZYN_WANName\n");
  }
}

TEST_F(Accessor, TakesABridgeWithoutOwnerForEveryPath) {
  const std::string lan = add_lan_bridge({});
  const std::string own = add_bridge("br_1_2", wan_);
  for (const Field& field : kFields) {
    tree().set(lan + field.parameter, "lan");
    tree().set(own + field.parameter, "own");
    EXPECT_EQ(read(field.reader, wan_.c_str()), "lan");
    EXPECT_EQ(read(field.reader, ""), "lan");
  }
}

TEST_F(Accessor, WritesAnEmptyTextWithoutABridge) {
  for (const Field& field : kFields) {
    EXPECT_EQ(read(field.reader, wan_.c_str()), "");
    EXPECT_EQ(transcript(), "open 197\n");
  }
}

class SetBridgePvid : public GatewayTest {
 protected:
  int set(const char* bridge, int vlan_id) {
    api_wan_info info;
    info.vlan_id = vlan_id;
    return run([&] { return igd_c_set_bridge_pvid(bridge, &info); });
  }
};

TEST_F(SetBridgePvid, WritesTheVlanToEveryPort) {
  const std::string first = add_bridge("first", "");
  const std::string bridge = add_bridge("b", "");
  add_port(first, "LAN1");
  add_port(bridge, "LAN2");
  add_port(bridge, "LAN3");
  EXPECT_EQ(set("b", 100), 0);
  const std::string port = bridge + "Port.";
  EXPECT_EQ(
      transcript(),
      lines({"| vornik set b pvid = 100", "open 196", "close", "get " + first + "BridgeName",
             "get " + bridge + "BridgeName", "get " + bridge + "BridgeStandard", "open 209",
             "close", "set " + port + "1.PVID = 100", "| vornik set " + port + "1.PVID pvid = 100",
             "set " + port + "2.PVID = 100", "| vornik set " + port + "2.PVID pvid = 100"}));
}

TEST_F(SetBridgePvid, WritesOnAnyBridgeStandardAndAnyNumber) {
  const std::string port = add_port(add_bridge("b", ""), "LAN2");
  for (int vlan : {0, -1, INT_MIN}) {
    EXPECT_EQ(set("b", vlan), 0);
    EXPECT_EQ(tree().get(port + "PVID"), std::to_string(vlan));
  }
}

TEST_F(SetBridgePvid, PrintsOnlyTheFirstLineWithoutBridgeOrPorts) {
  EXPECT_EQ(set("b", 5), 0);
  EXPECT_EQ(transcript(), "| vornik set b pvid = 5\nopen 196\n");
  const std::string bridge = add_bridge("b", "");
  EXPECT_EQ(set("b", 6), 0);
  EXPECT_EQ(transcript(),
            lines({"| vornik set b pvid = 6", "open 196", "close", "get " + bridge + "BridgeName",
                   "get " + bridge + "BridgeStandard", "open 209"}));
}

class UnusedVlan : public GatewayTest {
 protected:
  int unused() {
    return run([] { return igd_wan_get_unused_vlan(); });
  }
};

TEST_F(UnusedVlan, Is1000OnAnEmptyTree) {
  EXPECT_EQ(unused(), 1000);
  EXPECT_EQ(transcript(), "open 199\n");
}

TEST_F(UnusedVlan, IsTheLowestFreeOne) {
  std::string reads = "open 199\nclose\n";
  for (const char* vlan : {"0", "1001", "", "abc", "1000 x", "1003", "999"}) {
    const std::string bridge = add_bridge("b", "");
    tree().set(bridge + "VLANID", vlan);
    reads += "get " + bridge + "VLANID\n";
  }
  EXPECT_EQ(unused(), 1002);
  EXPECT_EQ(transcript(), reads);
  tree().set(add_bridge("b", "") + "VLANID", " 1002");
  EXPECT_EQ(unused(), 1004);
}

TEST_F(UnusedVlan, Ends4059AndFallsBackTo3999) {
  for (int vlan = 1000; vlan < 4059; ++vlan) tag(add_bridge("b", ""), vlan);
  EXPECT_EQ(unused(), 4059);
  tag(add_bridge("b", ""), 4059);
  EXPECT_EQ(unused(), 3999);
  EXPECT_EQ(lines_of(transcript()), "");
}

}  // namespace
}  // namespace foreign
