// Every exported operation, on several gateways, while each call that it makes of the platform and
// each allocation of its own fails in turn, until one run is clean.
//
// Allocations, and calls on the larger gateways, are tried in equal steps; with IGD_EVERY_FAULT=1
// every one is.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <set>

#include "csv_dump.h"
#include "trial.h"

namespace {

using namespace operations;

constexpr std::size_t kShownComplaints = 20;
// The sanitizers' run, which takes four times as long, tries fewer.
#if defined(__SANITIZE_ADDRESS__) || FAULTS_THINNED
constexpr bool kThinned = true;
#else
constexpr bool kThinned = false;
#endif
constexpr long kStepOnDumps = 7;  // between calls that fail; elsewhere each call does
constexpr long kStepOfPreset = kThinned ? 5 : 1;
constexpr long kSampledAllocations = kThinned ? 20 : 60;  // of one operation on one gateway

bool every_fault() { return std::getenv("IGD_EVERY_FAULT") != nullptr; }

long step_between_calls(const Start& start) {
  if (every_fault()) return 1;
  return start.dump ? kStepOnDumps * kStepOfPreset : kStepOfPreset;
}

// The library's trace goes nowhere; what the test says comes afterwards.
class Silence {
 public:
  Silence() {
    (void)std::fflush(stdout);
    saved_ = dup(STDOUT_FILENO);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    (void)dup2(nowhere, STDOUT_FILENO);
    (void)close(nowhere);
  }
  ~Silence() {
    (void)std::fflush(stdout);
    (void)dup2(saved_, STDOUT_FILENO);
    (void)close(saved_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  int saved_ = -1;
};

std::vector<Start> all_gateways() {
  std::vector<Start> starts;
  starts.push_back(factory_gateway());
  starts.push_back(busy_gateway());
  starts.push_back(damaged_gateway());
  starts.push_back(imported_gateway("imported", OPERATIONS_DUMP));
  for (const char* file : {"igd-bm632w.csv", "igd-w5-2100g.csv", "igd-ec220-g5-v2.csv"}) {
    const std::string dump = host_tests::dump_file(file);
    if (!dump.empty()) starts.push_back(imported_gateway(file, dump));
  }
  return starts;
}

struct Ways {
  Failure failure;
  const char* name;
  std::vector<Call> calls;
};

const Ways kWays[] = {
    {Failure::kRefused,
     "refused",
     {Call::kOpen, Call::kGet, Call::kSet, Call::kAdd, Call::kDelete, Call::kCommit, Call::kApply}},
    {Failure::kMisreported,
     "misreported",
     {Call::kSet, Call::kDelete, Call::kCommit, Call::kApply}},
    {Failure::kThrows,
     "out of memory",
     {Call::kOpen, Call::kName, Call::kGet, Call::kSet, Call::kAdd, Call::kDelete, Call::kCommit,
      Call::kApply}},
};

// What the trials of a test found.
class Findings {
 public:
  void add(const Operation& operation, const Start& start, const std::string& what, long nth,
           const Verdict& verdict) {
    if (verdict.reached) ++faults_;
    if (verdict.complaint.empty()) return;
    complaints_.push_back(operation.title() + " on the " + start.name + " gateway, " + what + ' ' +
                          std::to_string(nth) + ": " + verdict.complaint);
  }

  void report(const char* kind, std::size_t operations, std::size_t gateways) const {
    std::cout << operations << " operations with their arguments x " << gateways
              << " gateways: " << faults_ << ' ' << kind << '\n';
    for (std::size_t i = 0; i < std::min(complaints_.size(), kShownComplaints); ++i) {
      ADD_FAILURE() << complaints_[i];
    }
    EXPECT_TRUE(complaints_.empty()) << complaints_.size() << " complaints in all";
    EXPECT_GT(faults_, 0);
  }

 private:
  long faults_ = 0;
  std::vector<std::string> complaints_;
};

void fail_each_call(const Operation& operation, const Start& start, Findings& findings) {
  Trials trials(operation, start);
  (void)trials.without_fault();
  findings.add(operation, start, "nothing failing", 0, trials.fail_call({}));
  for (const Ways& way : kWays) {
    for (const Call call : way.calls) {
      const std::string what =
          std::string(way.name) + ' ' + kCallNames[static_cast<std::size_t>(call)];
      bool reached = true;
      for (long nth = 1; reached; nth += step_between_calls(start)) {
        const Verdict verdict = trials.fail_call({way.failure, call, nth});
        findings.add(operation, start, what, nth, verdict);
        reached = verdict.reached;
      }
    }
  }
}

// All of them when there are few; else the first one and others in equal steps.
void fail_each_allocation(const Operation& operation, const Start& start, Findings& findings) {
  Trials trials(operation, start);
  const long last = trials.without_fault().allocations;
  const long step = every_fault() ? 1 : std::max(1L, last / kSampledAllocations);
  for (long nth = 1; nth <= last; nth += step) {
    findings.add(operation, start, "allocation", nth, trials.fail_allocation(nth));
  }
  Verdict beyond = trials.fail_allocation(last + 1);
  if (beyond.reached) beyond.complaint = "more allocations than without a fault";
  findings.add(operation, start, "allocation", last + 1, beyond);
}

void try_all(const char* kind, void (*fail_each)(const Operation&, const Start&, Findings&)) {
  const std::vector<Start> starts = all_gateways();
  const std::vector<Operation> operations = all_operations();
  Findings findings;
  {
    const Silence silence;
    for (const Start& start : starts) {
      for (const Operation& operation : operations) fail_each(operation, start, findings);
    }
  }
  findings.report(kind, operations.size(), starts.size());
}

TEST(FaultMatrix, NamesEveryExportedOperation) {
  std::set<std::string> tried;
  for (const Operation& operation : all_operations()) tried.insert(operation.exported);
  std::set<std::string> exported;
  std::ifstream names(EXPORTED_NAMES);
  std::string previous;
  for (std::string line; std::getline(names, line); previous = line) {
    if (line.rfind("  code", 0) != 0) continue;
    exported.insert(previous.substr(0, previous.find_first_of("([")));
  }
  EXPECT_EQ(tried, exported);
}

TEST(FaultMatrix, WithEachPlatformCallFailingDoesWhatTheReferenceDoes) {
  try_all("failing calls", fail_each_call);
}

TEST(FaultMatrix, WithEachAllocationFailingLeaksNothingAndClosesEveryWalk) {
  try_all("failing allocations", fail_each_allocation);
}

}  // namespace
