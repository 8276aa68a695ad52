// What the library does before it has a context or a tree, and how often it asks for them. What
// each single operation answers then is told by tests/unit/no_tree.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "gateway_test.h"

namespace foreign {
namespace {

Platform& platform() { return Platform::instance(); }

void expect_asked(int contexts, int accesses, int services) {
  EXPECT_EQ(platform().contexts_asked(), contexts);
  EXPECT_EQ(platform().accesses_asked(), accesses);
  EXPECT_EQ(platform().services_asked(), services);
}

// An operation of each kind of answer.
void expect_all_to_fail() {
  api_wan_info info = description(1, 1);
  EXPECT_EQ(igd_wan_create("Ethernet", &info), "");
  EXPECT_EQ(igd_wan_set_params(kWan, &info), -1023);
  EXPECT_EQ(igd_wan_get_params(kWan, &info), -1023);
  EXPECT_EQ(describe(info), describe(description(1, 1)));
  igd_wan_destory(kWan);
  api_wan_status status;
  status.connected = 5;
  EXPECT_EQ(igd_wan_status(kWan, &status), -1022);
  EXPECT_EQ(status.connected, 5);
  api_mng_server_info server;
  EXPECT_EQ(igd_mng_server_get_params(&server), -1022);
  EXPECT_EQ(igd_set_static_route(2, api_route_info()), -1);
  std::vector<api_route_info> routes(1);
  EXPECT_EQ(igd_get_static_route_list(routes), 0);
  EXPECT_TRUE(routes.empty());
  EXPECT_EQ(igd_tool_loop_fullname("", 196, ""), "");
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "");
  EXPECT_TRUE(g_wan_mibinfo_cache_list.empty());
}

// Without a tree an entry of the cache has its names alone.
void expect_an_empty_entry() {
  const std::string printed = platform().printed_by([] { _get_cache(kWan); });
  EXPECT_EQ(printed,
            lines({"vornik: wan_bridge_path = ,name = br_1_1", "vornik: info->lan_bridge_name = ",
                   "vornik: info->lan_bridge_path = ", "vornik: info->static_path = ",
                   "vornik: info->dhcp_path = ", "vornik: info->ppp_path = "}));
  EXPECT_EQ(platform().logged(), "igd_api:# INDEX=" + kWan + "\n");
  EXPECT_EQ(_destory_cache(kWan), 1);
}

void without_context() {
  platform().offer(false, true);
  expect_all_to_fail();
  expect_an_empty_entry();
  const int asked = platform().contexts_asked();
  EXPECT_EQ(igd_c_get_lan_ipaddr(), "");
  EXPECT_GT(platform().contexts_asked(), asked);
  EXPECT_EQ(platform().accesses_asked() + platform().services_asked(), 0);

  platform().offer(true, true);
  platform().tree().set(kBridges + "1.BridgeName", "internet");
  const int before = platform().contexts_asked();
  EXPECT_EQ(igd_tool_loop_fullname("", 196, "internet"), kBridges + "1.BridgeName");
  Names list;
  EXPECT_EQ(igd_tool_loop_instance("", 196, list), 1);
  platform().printed_by([] { EXPECT_NE(_get_cache(kWan)->lan_bridge_path, ""); });
  EXPECT_EQ(igd_wan_list(list), 0);
  expect_asked(before + 1, 1, 1);
  EXPECT_EQ(platform().complaints(), "");
}

void without_tree() {
  platform().offer(true, false);
  expect_all_to_fail();
  expect_an_empty_entry();
  expect_asked(1, 1, 1);
  platform().offer(true, true);
  expect_all_to_fail();
  expect_asked(1, 1, 1);
  EXPECT_EQ(platform().complaints(), "");
}

std::string outcome_in_child(void (*scenario)()) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    scenario();
    std::fflush(stdout);
    _exit(::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) return "no child";
  if (WIFSIGNALED(status)) return "signal " + std::to_string(WTERMSIG(status));
  return WEXITSTATUS(status) == 0 ? "passed" : "failed, see the output before the first test";
}

std::string outcome_without_context, outcome_without_tree;

// The library keeps the first context it is given. What it does before that can only be seen in a
// process that has not called it yet, so each scenario has a child that is forked before the first
// test.
class BeforeTheFirstTest : public ::testing::Environment {
 public:
  void SetUp() override {
    outcome_without_context = outcome_in_child(without_context);
    outcome_without_tree = outcome_in_child(without_tree);
  }
};

::testing::Environment* const kBeforeTheFirstTest =
    ::testing::AddGlobalTestEnvironment(new BeforeTheFirstTest);

TEST(Context, IsAskedForByEveryCallUntilItIsThereAndThenNeverAgain) {
  EXPECT_EQ(outcome_without_context, "passed");
}

TEST(Context, IsKeptWhenItGivesNoTree) { EXPECT_EQ(outcome_without_tree, "passed"); }

}  // namespace
}  // namespace foreign
