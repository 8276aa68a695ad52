// Bridge names, marks and VLANs for callers with character buffers.
#include <array>
#include <cstring>
#include <utility>

#include "connection_test.h"
#include "stdout_capture.h"

namespace {

using support::kBridges;
using support::wan_path;

/// A buffer that shows how far it was written: "abc" of size 2 gives "a" and the rest untouched.
class Buffer {
 public:
  Buffer() { bytes_.fill('#'); }
  char* data() { return bytes_.data(); }
  std::string text() const { return bytes_.data(); }
  bool untouched_from(std::size_t position) const {
    return std::string(bytes_.begin() + static_cast<std::ptrdiff_t>(position), bytes_.end() - 1)
               .find_first_not_of('#') == std::string::npos;
  }

 private:
  std::array<char, 64> bytes_{};
};

TEST(BridgeMark, IsMadeOfTheTwoNumbersOfTheName) {
  const std::vector<std::pair<const char*, unsigned int>> rows = {
      {"br_1_2", 32},    {"br_3_31", 91}, {"br_0_5", 150},  {"br_0_0", 0},
      {nullptr, 0},      {"", 0},         {"br", 0},        {"7", 210},
      {"br_7", 210},     {"1_2", 32},     {"br_1_30", 30},  {"br_1_2_3", 32},
      {"br__1__2_", 32}, {"a1_2", 60},    {"br_1x_2y", 32}, {"br_0_1_0_2", 32},
      {"br_ 1_+2", 32},  {"br.1.2", 0},   {"internet", 0}};
  for (const auto& [name, mark] : rows) {
    EXPECT_EQ(igd_c_get_mask(name), mark) << (name == nullptr ? "null" : name);
  }
}

TEST(BridgeMark, OfNegativeOrHugeNumbersIsTakenModulo32Bits) {
  const std::vector<std::pair<const char*, unsigned int>> rows = {
      {"br_2_-1", 59},                    // 60 - 1
      {"br_1_-31", 29},                   // 30 - 1: the remainder keeps the sign
      {"br_-1_2", 4294967268U},           // -28
      {"br_0_-1", 4294967266U},           // -30: the zero is no number
      {"br_2147483647_0", 4294967266U},   // 30 * 2^31 - 30
      {"br_99999999999_1", 4294967267U},  // held at 2^31 - 1, as on the gateway
      {"br_143165577_0", 14U},            // 4294967310 - 2^32
      {"br_-2147483648_7", 7U}};          // -30 * 2^31 is a multiple of 2^32
  for (const auto& [name, mark] : rows) EXPECT_EQ(igd_c_get_mask(name), mark) << name;
}

TEST(BridgeMark, KnowsNoSeparatorButTheUnderscore) {
  for (char other = ' '; other <= '~'; ++other) {
    if (other == '_') continue;
    const std::string name = std::string("br") + other + "x1" + other + "2";
    EXPECT_EQ(igd_c_get_mask(name.c_str()), 0U) << name;
  }
}

using NameWriter = void (*)(const char*, char*, size_t);

class BridgeName : public ::testing::TestWithParam<NameWriter> {};

TEST_P(BridgeName, IsMadeOfTheTwoNumbersOfThePath) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {wan_path(1, 2), "br_1_2"},
      {wan_path(1, 2) + "WANIPConnection.3.", "br_1_2"},
      {wan_path(0, 5), "br_5_0"},
      {wan_path(10, 11), "br_10_11"},
      {support::kWanDevices + "7.", "br_7_0"},
      {"InternetGatewayDevice.LANDevice.", "br_0_0"},
      {"", "br_0_0"},
      {"a.-1.2x.", "br_-1_2"},
      {"3.4", "br_3_4"},
      {"br_1_2", "br_0_0"}};
  for (const auto& [path, name] : rows) {
    Buffer buffer;
    GetParam()(path.c_str(), buffer.data(), 64);
    EXPECT_EQ(buffer.text(), name) << path;
  }
}

TEST_P(BridgeName, IsSeparatedByDotsAlone) {
  for (char other = ' '; other <= '~'; ++other) {
    if (other == '.') continue;
    const std::string path = std::string("WANDevice") + other + "x1" + other + "2";
    Buffer buffer;
    GetParam()(path.c_str(), buffer.data(), 64);
    EXPECT_EQ(buffer.text(), "br_0_0") << path;
  }
}

TEST_P(BridgeName, IsCutToTheBuffer) {
  for (std::size_t size = 1; size <= 7; ++size) {
    Buffer buffer;
    GetParam()(wan_path(1, 2).c_str(), buffer.data(), size);
    EXPECT_EQ(buffer.text(), std::string("br_1_2").substr(0, size - 1)) << size;
    EXPECT_TRUE(buffer.untouched_from(size)) << size;
  }
}

TEST_P(BridgeName, IsNotWrittenWithoutPathOrBuffer) {
  Buffer buffer;
  GetParam()(nullptr, buffer.data(), 64);
  GetParam()(wan_path(1, 2).c_str(), buffer.data(), 0);
  GetParam()(wan_path(1, 2).c_str(), nullptr, 64);
  EXPECT_TRUE(buffer.untouched_from(0));
}

INSTANTIATE_TEST_SUITE_P(BridgeAndInterface, BridgeName,
                         ::testing::Values(igd_c_get_wan_bridge_name,
                                           igd_c_get_wan_bridge_intf_name));

/// Gives the bridges the PVID that the data model of this tree does not have.
class BridgesWithPvid final : public support::MibDecorator {
 public:
  BridgesWithPvid() : MibDecorator(host::mib_access()) {}
  std::string getValue(const std::string& name) override {
    return name == kBridges + "2.PVID" ? "4094" : next().getValue(name);
  }
};

/// A connection with its bridge, and a LAN bridge that does not answer for it.
class BridgeReaders : public support::ConnectionTest {
 protected:
  BridgeReaders() {
    set(lan_bridge_ + "X_ZYN_WANName", "nobody");
    set(bridge_ + "VLANID", "100");
    set(bridge_ + "X_ZYN_VLANPriority", "5");
  }

  static std::string vlan_of(const std::string& path) {
    Buffer buffer;
    igd_c_get_wan_bridge_vlanid_name(path.c_str(), buffer.data(), 64);
    return buffer.text();
  }
};

TEST_F(BridgeReaders, GiveVlanPriorityAndPvid) {
  BridgesWithPvid tree;
  const support::BehindSwitchboard behind(tree);
  Buffer buffer;
  igd_c_get_wan_bridge_vlanid_name(wan_.c_str(), buffer.data(), 64);
  EXPECT_EQ(buffer.text(), "100");
  igd_c_get_wan_bridge_vlanpriority_name(wan_.c_str(), buffer.data(), 64);
  EXPECT_EQ(buffer.text(), "5");
  igd_c_get_wan_bridge_pvid_name(wan_.c_str(), buffer.data(), 64);
  EXPECT_EQ(buffer.text(), "4094");
}

TEST_F(BridgeReaders, GiveTheEmptyTextForWhatIsNotThere) {
  for (const NameWriter reader : {igd_c_get_wan_bridge_pvid_name, igd_c_get_wan_bridge_vlanid_name,
                                  igd_c_get_wan_bridge_vlanpriority_name}) {
    Buffer buffer;
    reader(wan_path(1, 2).c_str(), buffer.data(), 64);
    EXPECT_EQ(buffer.text(), "");
    EXPECT_TRUE(buffer.untouched_from(1));
  }
  Buffer buffer;
  igd_c_get_wan_bridge_pvid_name(wan_.c_str(), buffer.data(), 64);
  EXPECT_EQ(buffer.text(), "");
}

TEST_F(BridgeReaders, GiveTheTextAsItIs) {
  set(bridge_ + "VLANID", "100%s abc");
  EXPECT_EQ(vlan_of(wan_), "100%s abc");
}

TEST_F(BridgeReaders, AnswerForEveryPathThatBeginsWithTheOwner) {
  EXPECT_EQ(vlan_of(dhcp_ + "Name"), "100");
  EXPECT_EQ(vlan_of(wan_.substr(0, 55)), "");
  EXPECT_EQ(vlan_of(" " + wan_), "");
  EXPECT_EQ(vlan_of(""), "");
  set(bridge_ + "X_ZYN_WANName", wan_.substr(0, 55));  // without its last dot
  EXPECT_EQ(vlan_of(wan_path(1, 12)), "100");
}

TEST_F(BridgeReaders, LetTheFirstBridgeAnswer) {
  (void)add_bridge("br_1_1", wan_, "200");
  EXPECT_EQ(vlan_of(wan_), "100");
}

TEST_F(BridgeReaders, LetAnOwnerlessBridgeAnswerForEveryPath) {
  set(lan_bridge_ + "X_ZYN_WANName", "");
  set(lan_bridge_ + "VLANID", "77");
  for (const std::string& path : {wan_, wan_path(9, 9), std::string("x"), std::string()}) {
    EXPECT_EQ(vlan_of(path), "77") << path;
  }
}

TEST_F(BridgeReaders, CutToTheBuffer) {
  for (std::size_t size = 1; size <= 4; ++size) {
    Buffer buffer;
    igd_c_get_wan_bridge_vlanid_name(wan_.c_str(), buffer.data(), size);
    EXPECT_EQ(buffer.text(), std::string("100").substr(0, size - 1)) << size;
    EXPECT_TRUE(buffer.untouched_from(size)) << size;
  }
}

TEST_F(BridgeReaders, WriteNothingWithoutPathOrBuffer) {
  for (const NameWriter reader : {igd_c_get_wan_bridge_pvid_name, igd_c_get_wan_bridge_vlanid_name,
                                  igd_c_get_wan_bridge_vlanpriority_name}) {
    Buffer buffer;
    reader(nullptr, buffer.data(), 64);
    reader(wan_.c_str(), nullptr, 64);
    reader(wan_.c_str(), buffer.data(), 0);
    EXPECT_TRUE(buffer.untouched_from(0));
  }
}

class SetBridgePvid : public support::ConnectionTest {
 protected:
  /// Writes a VLAN to the ports of a bridge and returns what was printed.
  static std::string write(const char* bridge_name, int vlan) {
    api_wan_info info;
    info.vlan_id = vlan;
    support::StdoutCapture printed;
    EXPECT_EQ(igd_c_set_bridge_pvid(bridge_name, &info), 0);
    return printed.drain();
  }
};

TEST_F(SetBridgePvid, WritesAndPrintsEveryPortOfTheBridge) {
  (void)add_port(bridge_, "LAN1");
  EXPECT_EQ(write("br_1_1", 100),
            "vornik set br_1_1 pvid = 100\n"
            "vornik set " +
                bridge_ +
                "Port.1.PVID pvid = 100\n"
                "vornik set " +
                bridge_ + "Port.2.PVID pvid = 100\n");
  EXPECT_EQ(get(bridge_ + "Port.1.PVID"), "100");
  EXPECT_EQ(get(bridge_ + "Port.2.PVID"), "100");
  EXPECT_EQ(get(lan_bridge_ + "Port.1.PVID"), "");
}

TEST_F(SetBridgePvid, WritesWhateverTheStandard) {
  int vlan = 100;
  for (const char* standard : {"802.1Q", "802.1D", ""}) {
    set(bridge_ + "BridgeStandard", standard);
    (void)write("br_1_1", ++vlan);
    EXPECT_EQ(get(bridge_ + "Port.1.PVID"), std::to_string(vlan)) << standard;
  }
}

TEST_F(SetBridgePvid, WritesAnyNumber) {
  for (const auto& [vlan, text] :
       {std::pair(0, "0"), std::pair(-1, "-1"), std::pair(-2147483647 - 1, "-2147483648")}) {
    (void)write("br_1_1", vlan);
    EXPECT_EQ(get(bridge_ + "Port.1.PVID"), text);
  }
}

TEST_F(SetBridgePvid, WritesTheFirstBridgeOfTheNameAlone) {
  const std::string port_path = add_port(add_bridge("br_1_1", ""), "LAN1", "", "1");
  (void)write("br_1_1", 100);
  EXPECT_EQ(get(port_path + "PVID"), "1");
}

TEST_F(SetBridgePvid, PrintsOneLineWithoutBridgeOrPorts) {
  (void)add_bridge("empty", "");
  EXPECT_EQ(write("empty", 100), "vornik set empty pvid = 100\n");
  EXPECT_EQ(write("unknown", 100), "vornik set unknown pvid = 100\n");
}

TEST_F(SetBridgePvid, ChangesNothingForANullNameButPrintsItsLine) {
  api_wan_info info;
  info.vlan_id = 100;
  int result = -1;
  const auto set_pvid = [&] { result = igd_c_set_bridge_pvid(nullptr, &info); };
  EXPECT_EQ(support::transcript_of(set_pvid), "| vornik set (null) pvid = 100\n");
  EXPECT_EQ(result, 0);
}

TEST_F(SetBridgePvid, DoesNotCommit) {
  api_wan_info info;
  info.vlan_id = 100;
  support::Transcript transcript;
  (void)igd_c_set_bridge_pvid("br_1_1", &info);
  EXPECT_EQ(transcript.writes(), "set " + bridge_ + "Port.1.PVID = \"100\"\n");
}

}  // namespace
