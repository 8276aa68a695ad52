// The platform has a context, but no tree for this process.
#include <gtest/gtest.h>

#include "bare_platform.h"
#include "igd_api.h"
#include "operations.h"

namespace no_tree {
namespace {

bare::Context context_without_tree;

class NullTree : public ::testing::TestWithParam<Operation> {
 protected:
  NullTree() { bare::context = &context_without_tree; }
  ~NullTree() override {
    std::vector<std::string> none;
    _rebuid_cache(none);
  }
};

TEST_P(NullTree, AnswersPrintsAndLogsAsWithoutContext) {
  const Outcome outcome = outcome_of(GetParam());
  EXPECT_EQ(outcome.answer, GetParam().answer);
  EXPECT_EQ(outcome.printed, GetParam().printed);
  EXPECT_EQ(outcome.logged, GetParam().logged);
}

// However many operations the process has called before: the context stays, and so does its answer.
TEST_P(NullTree, AsksForContextAndTreeOnceInTheLifeOfTheProcess) {
  (void)outcome_of(GetParam());
  (void)outcome_of(GetParam());
  EXPECT_EQ(bare::context_calls, 1);
  EXPECT_EQ(context_without_tree.asked, (std::vector<std::string>{"tree", "second service"}));
}

const auto kName = [](const auto& test) { return std::string(test.param.name); };

INSTANTIATE_TEST_SUITE_P(Operation, NullTree, ::testing::ValuesIn(asking_operations()), kName);
INSTANTIATE_TEST_SUITE_P(Internal, NullTree, ::testing::ValuesIn(asking_internal_operations()),
                         kName);

}  // namespace
}  // namespace no_tree
