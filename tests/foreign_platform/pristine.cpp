#include "pristine.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <map>

namespace foreign {
namespace {

struct Scenario {
  void (*body)() = nullptr;
  std::string outcome = "not run";
};

std::map<std::string, Scenario>& scenarios() {
  static std::map<std::string, Scenario> all;
  return all;
}

std::string run_in_child(void (*body)()) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child < 0) return "no child";
  if (child == 0) {
    body();
    std::fflush(stdout);
    _exit(::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child) return "lost";
  if (WIFSIGNALED(status)) return "signal " + std::to_string(WTERMSIG(status));
  return WEXITSTATUS(status) == 0 ? "passed" : "failed, see the output before the first test";
}

class RunBeforeTheFirstTest : public ::testing::Environment {
 public:
  void SetUp() override {
    for (auto& entry : scenarios()) entry.second.outcome = run_in_child(entry.second.body);
  }
};

::testing::Environment* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new RunBeforeTheFirstTest);

}  // namespace

PristineScenario::PristineScenario(const char* name, void (*body)()) {
  scenarios()[name].body = body;
}

std::string outcome_of(const std::string& name) { return scenarios()[name].outcome; }

}  // namespace foreign
