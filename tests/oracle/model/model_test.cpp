// That the comparison can fail: each test does to the tree what a faulty library would, and the
// short sequence that shows it comes out.
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "check.h"
#include "igd_api.h"

namespace model {
namespace {

constexpr int kEnough = 400;
constexpr std::uint64_t kSeed = 1;

std::string object_of(const std::string& parameter) {
  return parameter.substr(0, parameter.rfind('.') + 1);
}

std::string shown(const Steps& steps) {
  std::string all;
  for (const Step& step : steps) all += model::shown(step) + '\n';
  return all;
}

/// The newest port of a node, of those in bridges with this name.
std::string port_of(const host::Tree& tree, const std::string& node, const std::string& bridge) {
  std::string found;
  for (const std::string& name : tree.instances(kPortInterface)) {
    const std::string bridge_path = name.substr(0, name.find(".Port.") + 1);
    if (tree.value(name) == node && tree.value(bridge_path + "BridgeName") == bridge) {
      found = object_of(name);
    }
  }
  return found;
}

TEST(ModelSteps, AreReadAsTheyAreShown) {
  for (int i = 0; i < kOperations; ++i) {
    Step step(static_cast<Operation>(i));
    for (std::size_t field = 0; field < step.choices.size(); ++field) {
      step.choices[field] = values_of(info_of(step.operation).fields[field]).size() - 1;
    }
    const Steps read = read_steps("\n# a comment\n" + model::shown(step) + "  # and another\n");
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(model::shown(read[0]), model::shown(step));
  }
}

TEST(ModelSteps, AreRefusedWhenTheyAreWrong) {
  for (const char* line :
       {"made", "create nothing=1", "create name", "create name=unheard_of", "list name=A"}) {
    EXPECT_THROW(read_steps(line), std::invalid_argument) << line;
  }
}

TEST(ModelSequences, AreTheSameForTheSameSeed) {
  const Report first = check(50, kSeed);
  const Report second = check(50, kSeed);
  EXPECT_TRUE(first.ok);
  EXPECT_EQ(first.tally.table(), second.tally.table());
  EXPECT_NE(first.tally.table(), check(50, kSeed + 1).tally.table());
}

TEST(ModelSequences, TellWhatNeverCameUp) {
  Tally tally;
  EXPECT_FALSE(run(read_steps("create\nremove"), tally));
  EXPECT_EQ(tally.steps(), 2);
  const std::vector<std::string> missing = tally.missing();
  const auto is_missing = [&](const char* what) {
    return std::find(missing.begin(), missing.end(), what) != missing.end();
  };
  EXPECT_TRUE(is_missing("remove: no such connection"));
  EXPECT_TRUE(is_missing("rule: released ports are in the LAN bridge"));
  EXPECT_FALSE(is_missing("remove: removed"));
  EXPECT_FALSE(is_missing("rule: a removed connection leaves no trace"));
}

TEST(ModelSequences, ShowAReleasedPortThatIsLost) {
  const Report report = check(kEnough, kSeed, [](const Step& step, host::Tree& tree) {
    const std::string port = port_of(tree, "LAN2", "internet");
    if (step.operation == Operation::kRemove && !port.empty()) (void)tree.delete_object(port);
  });
  EXPECT_EQ(shown(report.shortest), "remove\n");
  EXPECT_EQ(report.failure.step, 0u);
}

TEST(ModelSequences, ShowAPortThatStaysWhereItWas) {
  const Report report = check(kEnough, kSeed, [](const Step&, host::Tree& tree) {
    if (port_of(tree, "WLAN1", "br_1_1").empty()) return;
    if (!port_of(tree, "WLAN1", "internet").empty()) return;
    int number = 0;
    const std::string ports = "InternetGatewayDevice.Layer2Bridging.Bridge.1.Port.";
    (void)tree.add_object(ports, &number);
    (void)tree.set_value(ports + std::to_string(number) + ".PortInterface", "WLAN1");
  });
  EXPECT_EQ(shown(report.shortest), "create bind_wan=WLAN1\n");
}

TEST(ModelSequences, ShowARouteThatIsLeft) {
  const Report report = check(kEnough, kSeed, [](const Step& step, host::Tree& tree) {
    int number = 0;
    if (step.operation != Operation::kClearRoutes) return;
    (void)tree.add_object("InternetGatewayDevice.Layer3Forwarding.Forwarding.", &number);
  });
  EXPECT_EQ(shown(report.shortest), "clear_routes\n");
  EXPECT_EQ(report.failure.what, "there are 1 routes");
}

TEST(ModelSequences, ShowWhatIsForgottenTooEarly) {
  const Report report = check(kEnough, kSeed, [](const Step& step, host::Tree&) {
    if (step.operation != Operation::kGet) return;
    std::vector<std::string> none;
    _rebuid_cache(none);
  });
  EXPECT_EQ(shown(report.shortest), "get\n");
}

TEST(ModelSequences, ShowAWriteToSomethingElse) {
  const Report report = check(kEnough, kSeed, [](const Step& step, host::Tree& tree) {
    if (step.operation != Operation::kStatus) return;
    (void)tree.set_value("InternetGatewayDevice.ManagementServer.PeriodicInformInterval", "7");
  });
  EXPECT_EQ(shown(report.shortest), "status\n");
}

}  // namespace
}  // namespace model
