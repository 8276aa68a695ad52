// The platform is not ready: getContext answers null, however often it is asked.
#include <gtest/gtest.h>

#include "bare_platform.h"
#include "igd_api.h"
#include "operations.h"

namespace no_tree {
namespace {

class NoContext : public ::testing::TestWithParam<Operation> {
 protected:
  ~NoContext() override {
    std::vector<std::string> none;
    _rebuid_cache(none);
    g_l3_ifname_table.clear();
  }
};

class NoContextAsking : public NoContext {};
class NoContextSelfSufficient : public NoContext {};

void expect_outcome(const Operation& operation) {
  const Outcome outcome = outcome_of(operation);
  EXPECT_EQ(outcome.answer, operation.answer);
  EXPECT_EQ(outcome.printed, operation.printed);
  EXPECT_EQ(outcome.logged, operation.logged);
}

TEST_P(NoContextAsking, AnswersPrintsAndLogsAsItShould) { expect_outcome(GetParam()); }

TEST_P(NoContextAsking, AsksForTheContextAtEveryCall) {
  for (int round = 1; round <= 2; ++round) {
    const int before = bare::context_calls;
    (void)outcome_of(GetParam());
    EXPECT_GT(bare::context_calls, before) << "call " << round;
  }
}

TEST_P(NoContextAsking, AsksForTheContextBeforeItLogs) {
  const int before = bare::context_calls;
  if (outcome_of(GetParam()).logged.empty()) return;
  EXPECT_GT(bare::context_calls_before_log, before);
}

TEST_P(NoContextAsking, AsksForTheContextBeforeItPrints) {
  bare::printed_before_context = -1;
  (void)outcome_of(GetParam());
  EXPECT_EQ(bare::printed_before_context, 0);
}

TEST_P(NoContextSelfSufficient, AnswersPrintsAndLogsAsItShould) { expect_outcome(GetParam()); }

TEST_P(NoContextSelfSufficient, DoesNotAskForTheContext) {
  const int before = bare::context_calls;
  (void)outcome_of(GetParam());
  EXPECT_EQ(bare::context_calls, before);
}

const auto kName = [](const auto& test) { return std::string(test.param.name); };

INSTANTIATE_TEST_SUITE_P(Operation, NoContextAsking, ::testing::ValuesIn(asking_operations()),
                         kName);
INSTANTIATE_TEST_SUITE_P(Internal, NoContextAsking,
                         ::testing::ValuesIn(asking_internal_operations()), kName);
INSTANTIATE_TEST_SUITE_P(Operation, NoContextSelfSufficient,
                         ::testing::ValuesIn(self_sufficient_operations()), kName);

}  // namespace
}  // namespace no_tree
