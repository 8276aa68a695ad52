// The bridge of a connection's own: its name, and which one it is.
#include <utility>

#include "connection_test.h"

namespace {

using support::wan_path;

constexpr int kNotFound = -1023;

/// Keeps what a text held when the first walk began.
class LooksAtText final : public support::MibDecorator {
 public:
  explicit LooksAtText(const std::string& text) : MibDecorator(host::mib_access()), text_(text) {}
  InstanceIterator* openInstanceIterator(int type) override {
    if (seen_.empty()) seen_ = text_;
    return next().openInstanceIterator(type);
  }
  const std::string& seen() const { return seen_; }

 private:
  const std::string& text_;
  std::string seen_;
};

class WanBridge : public support::ConnectionTest {
 protected:
  static std::string expected_name(const std::string& path) {
    std::string name;
    EXPECT_EQ(igd_wan_get_wan_bridge_info(path, nullptr, &name), kNotFound) << path;
    return name;
  }
};

TEST_F(WanBridge, IsFoundByOwnerAndName) {
  std::string bridge_path;
  std::string name;
  EXPECT_EQ(igd_wan_get_wan_bridge_info(wan_, &bridge_path, &name), 0);
  EXPECT_EQ(bridge_path, bridge_);
  EXPECT_EQ(name, "br_1_1");
}

TEST_F(WanBridge, IsTheFirstThatHasTheNameToo) {
  (void)add_bridge("br_1_3", wan_path(1, 2));
  const std::string second = add_bridge("br_1_2", wan_path(1, 2));
  (void)add_bridge("br_1_2", wan_path(1, 2));
  std::string bridge_path;
  EXPECT_EQ(igd_wan_get_wan_bridge_info(wan_path(1, 2), &bridge_path, nullptr), 0);
  EXPECT_EQ(bridge_path, second);
}

TEST_F(WanBridge, IsNotFoundByOwnerOrNameAlone) {
  (void)add_bridge("br_1_3", wan_path(1, 2));
  (void)add_bridge("br_1_2", wan_path(1, 3));
  std::string bridge_path = "untouched";
  std::string name = "old";
  EXPECT_EQ(igd_wan_get_wan_bridge_info(wan_path(1, 2), &bridge_path, &name), kNotFound);
  EXPECT_EQ(bridge_path, "untouched");
  EXPECT_EQ(name, "br_1_2");
}

TEST_F(WanBridge, IsNotFoundWithoutBridges) {
  tree_ = host::Tree();
  EXPECT_EQ(expected_name(wan_), "br_1_1");
}

TEST_F(WanBridge, GivesItsNameBeforeItIsLookedFor) {
  std::string name = "old";
  LooksAtText tree(name);
  const support::BehindSwitchboard behind(tree);
  EXPECT_EQ(igd_wan_get_wan_bridge_info(wan_, nullptr, &name), 0);
  EXPECT_EQ(tree.seen(), "br_1_1");
}

TEST_F(WanBridge, TakesItsNameFromThePathsTextsAsTheyAre) {
  const std::string any_prefix(32, 'x');
  const std::vector<std::pair<std::string, std::string>> rows = {
      {wan_path(1, 12), "br_1_12"},
      {wan_path(1, 2).substr(0, 55), "br_1_2"},
      {wan_path(3, 4) + "WANIPConnection.1.", "br_3_4"},
      {support::kWanDevices + "01.WANConnectionDevice.x.", "br_01_x"},
      {support::kWanDevices + "7.", "br_7_"},
      {support::kWanDevices + "7", "br_7_"},
      {any_prefix + "5.WANConnectionDevice.6.WANConnectionDevice.7.", "br_5_6"},
      {support::kWanDevices, "br__"},
      {any_prefix.substr(1), "br__"},
      {"X.WANConnectionDevice.9.", "br__9"},
      {"", "br__"}};
  for (const auto& [path, name] : rows) EXPECT_EQ(expected_name(path), name) << path;
}

TEST_F(WanBridge, LogsThePathAndWritesNothing) {
  support::Transcript transcript;
  EXPECT_EQ(igd_wan_get_wan_bridge_info(wan_, nullptr, nullptr), 0);
  EXPECT_EQ(transcript.text().rfind("log igd_api:# INDEX=" + wan_ + "\n", 0), 0U);
  EXPECT_EQ(transcript.writes(), "");
}

}  // namespace
