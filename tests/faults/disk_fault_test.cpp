// A disk that is full or fails: the store says so, keeps the old tree, and goes on afterwards.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "disk.h"
#include "disk_vfs.h"
#include "life.h"
#include "rows/tree_rows.h"
#include "state.h"
#include "stride.h"
#include "temporary_folder.h"
#include "tree/tree_access.h"

namespace {

using namespace proof;
using host::StoreError;

struct FaultCase {
  const char* name;
  Fault fault;  // but for its place
  StoreError expected;
  int stride;
};

const FaultCase kCases[] = {
    {"FullFromThenOn",
     {kWrite | kName, kWrite | kName, 0, SQLITE_FULL, ENOSPC, true},
     StoreError::kFull,
     1},
    {"FullOnce", {kWrite | kName, 0, 0, SQLITE_FULL, ENOSPC, false}, StoreError::kFull, 5},
    {"FailsToWrite", {kWrite, 0, 0, SQLITE_IOERR_WRITE, EIO, false}, StoreError::kIo, 5},
    {"FailsToSync", {kSync, 0, 0, SQLITE_IOERR_FSYNC, EIO, false}, StoreError::kIo, 1},
    {"FailsToRead", {kRead, 0, 0, SQLITE_IOERR_READ, EIO, false}, StoreError::kIo, 2},
};

host::RowSet rows_in(Gateway& gateway) {
  return host::rows_of(host::TreeAccess::store(gateway.store().tree()));
}

class DiskFault : public testing::TestWithParam<FaultCase> {
 protected:
  DiskFault() {
    options_.vfs = kDiskVfs;
    options_.clock = [] { return host::BootTime{"boot", 1000}; };
    Disk disk;
    use_disk(disk);
    Gateway gateway(path_, options_, [&] { trees_.push_back(rows_in(gateway)); });
    live(gateway);
  }

  // Lives with the fault at its nth place; sets whether it came at all. Returns what is wrong.
  std::string problems_with_fault_at(int nth, bool& came) {
    Disk disk;
    use_disk(disk);
    Fault fault = GetParam().fault;
    fault.nth = nth;
    disk.arm(fault);
    std::string problems;
    std::size_t done = 0;
    host::RowSet last;  // the tree as the last step that was done left it
    Gateway gateway(path_, options_, [&] {
      // The library goes on after a commit that failed, and may land the rest of its operation.
      if (!gateway.failure().ok()) last = rows_in(gateway);
      if (gateway.failure().ok()) ++done;
    });
    came = false;
    live(gateway, [&] {
      ++failures_;
      came = came || disk.is_struck();
      if (last.empty() && done > 0) last = trees_[done - 1];
      problems += problems_of_failure(gateway, last);
      disk.arm({});  // there is room again
      if (done > 0 && GetParam().expected == StoreError::kIo) {
        problems += problems_when_killed(disk, last);
      }
      return AfterFailure::kTryAgainAndEnd;
    });
    came = came || disk.is_struck();
    disk.arm({});
    if (!gateway.failure().ok()) problems += "\ndoes not go on: " + gateway.failure().text;
    last = gateway.has_store() ? rows_in(gateway) : trees_.back();
    gateway.close();
    return problems + problems_afterwards(last);
  }

  static std::string problems_of_failure(Gateway& gateway, const host::RowSet& last) {
    std::string problems;
    if (gateway.failure().error != GetParam().expected) {
      problems += std::string(name_of(gateway.failure().error)) + ": " + gateway.failure().text;
    }
    if (!gateway.has_store()) return problems;
    gateway.store().discard();  // what the library wrote after the commit that failed
    const host::RowSet found = rows_in(gateway);
    if (found != last) problems += "\nnot the old tree:\n" + difference_of_rows(last, found);
    return problems;
  }

  // Another process would not see what failed either, when this one went no further.
  std::string problems_when_killed(Disk& disk, const host::RowSet& last) const {
    const std::unique_ptr<Disk> copy = disk.copy();
    use_disk(*copy);
    std::string problems;
    {
      host::StoreFile file(path_, options_);
      if (state_of(file).rows != last) problems = "\nwhat failed is there all the same";
    }
    use_disk(disk);
    return problems;
  }

  std::string problems_afterwards(const host::RowSet& expected) const {
    host::StoreFile file(path_, options_);
    std::string problems;
    if (state_of(file).rows != expected) problems += "afterwards another tree";
    const std::string verdict = file.database().text("PRAGMA integrity_check");
    if (verdict != "ok") problems += "\nintegrity: " + verdict;
    return problems;
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/gateway.db";
  host::StoreOptions options_;
  std::vector<host::RowSet> trees_;  // after each step of a life without faults
  int failures_ = 0;
};

TEST_P(DiskFault, IsAnErrorAndTheOldTreeAndTheStoreGoesOn) {
  int count = 0;
  bool came = true;
  for (int nth = 1; came && !HasFailure(); nth += GetParam().stride * kStride) {
    EXPECT_EQ(problems_with_fault_at(nth, came), "") << "fault " << nth;
    if (came) ++count;
  }
  EXPECT_GT(failures_, 10 / kStride);
  std::printf("%d faults, %d of them failed a step\n", count, failures_);
}

// Whoever reverts an unconfirmed change looks at the whole file first, and tells a page that the
// disk does not give from one that is damaged.
TEST(LateRevert, OfAStoreThatCannotBeReadIsNoDamage) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/gateway.db";
  std::int64_t now = 1000;
  host::StoreOptions options;
  options.vfs = kDiskVfs;
  options.clock = [&now] { return host::BootTime{"boot", now}; };
  Disk disk;
  use_disk(disk);
  {
    const auto store = host::Store::open(path, options, nullptr);
    ASSERT_TRUE(store->begin_trial().ok());
    store->tree().set_value("InternetGatewayDevice.ManagementServer.URL", "x");
    ASSERT_TRUE(store->accept_pending(1, "x").ok());
  }
  now += 2000;
  int failures = 0;
  for (bool came = true; came;) {
    const std::unique_ptr<Disk> copy = disk.copy();
    use_disk(*copy);
    Fault fault = {kRead, 0, 0, SQLITE_IOERR_READ, EIO, false};
    fault.nth = failures + 1;
    copy->arm(fault);
    host::StoreResult result;
    const auto store = host::Store::open(path, options, &result);
    came = copy->is_struck();
    EXPECT_EQ(result.error, came ? StoreError::kIo : StoreError::kNone) << result.text;
    if (came) ++failures;
  }
  EXPECT_GT(failures, 5);
}

std::string name_of_case(const testing::TestParamInfo<FaultCase>& tested) {
  return tested.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, DiskFault, testing::ValuesIn(kCases), name_of_case);

}  // namespace
