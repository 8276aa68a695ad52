// Every operation makes exactly the calls of its law, at several sizes of the gateway.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <stdexcept>

#include "calls_report.h"
#include "law.h"
#include "stdout_capture.h"
#include "trial.h"

namespace {

using namespace operations;

constexpr Size kSizes[] = {{1, 1, 1}, {1, 4, 3},  {2, 1, 5},  {3, 2, 1},
                           {8, 3, 2}, {13, 5, 4}, {64, 2, 16}};

std::map<std::string, Law> laws_by_operation() {
  std::map<std::string, Law> laws;
  for (const Law& law : all_laws()) laws.emplace(law.operation, law);
  return laws;
}

TEST(CallLaws, ValueOfFormulas) {
  const Size size = {2, 3, 5};
  EXPECT_EQ(value_of("7", size), 7);
  EXPECT_EQ(value_of("2np + n - p + r", size), 12 + 2 - 3 + 5);
  EXPECT_EQ(value_of("4np^2", size), 4 * 2 * 9);
  EXPECT_EQ(value_of("(p^3 - p)/6 + 2(n + 1)", size), 4 + 6);
  for (const char* text : {"", "x", "n +", "(n", "n)", "p/2", "2 * n"}) {
    EXPECT_THROW((void)value_of(text, size), std::invalid_argument) << text;
  }
}

TEST(CallLaws, EveryOperationHasOne) {
  std::map<std::string, Law> laws = laws_by_operation();
  EXPECT_EQ(laws.size(), all_laws().size()) << "two laws for one operation";
  for (const Operation& operation : all_operations()) {
    EXPECT_EQ(laws.erase(operation.title()), 1U) << operation.title();
  }
  for (const auto& law : laws) ADD_FAILURE() << "no such operation: " << law.first;
}

// The page's table has, besides, the instructions that scripts/calls measures.
TEST(CallLaws, StandInTheirPage) {
  std::ifstream page(CALLS_PAGE);
  std::set<std::string> lines;
  for (std::string line; std::getline(page, line);) {
    for (std::size_t i = 0; i < kReportSizes.size(); ++i) {
      if (line.rfind("| `", 0) != 0) break;
      line.resize(line.rfind('|', line.size() - 2) + 1);  // without a column of instructions
    }
    lines.insert(line);
  }
  for (const Law& law : all_laws()) {
    EXPECT_EQ(lines.count(row_of(law)), 1U) << "run scripts/calls: " << row_of(law);
  }
}

class CallLawsAtSize : public ::testing::TestWithParam<Size> {};

TEST_P(CallLawsAtSize, EveryOperationMakesExactlyTheCallsOfItsLaw) {
  const Size& size = GetParam();
  const Start start = uniform_gateway(static_cast<int>(size.connections),
                                      static_cast<int>(size.ports), static_cast<int>(size.routes));
  const std::map<std::string, Law> laws = laws_by_operation();
  for (const Operation& operation : all_operations()) {
    CallCounts counts{};
    (void)support::printed_by([&] { counts = Trials(operation, start).without_fault().calls; });
    const CallCounts expected = counts_of(laws.at(operation.title()), size);
    for (std::size_t i = 0; i < counts.size(); ++i) {
      EXPECT_EQ(counts[i], expected[i]) << operation.title() << ": calls of " << kCallNames[i];
    }
  }
}

std::string name_of(const ::testing::TestParamInfo<Size>& size) {
  return "N" + std::to_string(size.param.connections) + "P" + std::to_string(size.param.ports) +
         "R" + std::to_string(size.param.routes);
}

INSTANTIATE_TEST_SUITE_P(Sizes, CallLawsAtSize, ::testing::ValuesIn(kSizes), name_of);

}  // namespace
