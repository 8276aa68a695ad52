// Many processes on one store: none loses what another one wrote, none holds all the others.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "child.h"
#include "gateway.h"
#include "igd_api.h"
#include "stdout_capture.h"
#include "store/shared_state.h"
#include "stride.h"
#include "temporary_folder.h"

namespace {

using namespace proof;
using host::Store;
using host::StoreError;
using host::StoreOptions;
using host::StoreResult;
using host::Tree;

const std::string kRoot = "InternetGatewayDevice.";
const std::string kUrl = kRoot + "ManagementServer.URL";
const std::string kUser = kRoot + "ManagementServer.Username";
const std::string kWanDevices = kRoot + "WANDevice.";

class SharedStore : public testing::Test {
 protected:
  std::string log() const { return path_ + "-wal"; }
  std::uintmax_t size_of_log() const {
    return std::filesystem::exists(log()) ? std::filesystem::file_size(log()) : 0;
  }

  std::unique_ptr<Store> opened(const StoreOptions& options = {}) const {
    StoreResult result;
    auto store = Store::open(path_, options, &result);
    EXPECT_EQ(result.text, "");
    return store;
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/gateway.db";
  const std::string start_ = folder_.path() + "/start";  // all begin when it is there
};

constexpr int kAllPorts = 255;

bool writes(Store& store, const std::string& name, const std::string& text) {
  return store.tree().set_value(name, text) == 0 && store.commit().ok();
}

int number_in(const Tree& tree, const std::string& name) {
  const std::string text = tree.value(name);
  return text.empty() ? 0 : std::stoi(text);
}

int count_up(const std::string& path, int times) {
  const auto store = Store::open(path, {}, nullptr);
  if (store == nullptr) return 1;
  for (int i = 0; i < times;) {
    const int number = number_in(store->tree(), kUrl);
    (void)store->tree().set_value(kUrl, std::to_string(number + 1));
    const StoreResult result = store->commit();
    if (result.ok()) ++i;
    if (!result.ok() && result.error != StoreError::kMovedOn) return 2;
  }
  return 0;
}

TEST_F(SharedStore, FourThatReadAddAndCommitLoseNoUpdate) {
  constexpr int kProcesses = 4;
  constexpr int kTimes = 500;
  std::vector<std::unique_ptr<Child>> processes;
  for (int i = 0; i < kProcesses; ++i) {
    processes.push_back(
        std::make_unique<Child>([this](int /*pipe*/) { return count_up(path_, kTimes); }));
  }
  for (const auto& process : processes) EXPECT_EQ(process->wait(), 0);
  EXPECT_EQ(number_in(opened()->tree(), kUrl), kProcesses * kTimes);
}

// Checks that no connection has the name, creates one, commits; over again when it was too late.
int create_once(const std::string& path, const std::string& start, bool begins) {
  const support::StdoutCapture quiet;
  Gateway gateway(path, {}, [] {});
  if (!gateway.open()) return 1;
  wait_for(start);
  for (int i = 0; i < 100; ++i) {
    api_wan_info wan;
    wan.wan_info_name = "Internet";
    wan.service_type = "INTERNET";
    wan.vlan_enable = 1;
    wan.vlan_id = 100;
    wan.connection_class = kIgdRouted;
    wan.connect_mode = kIgdDhcp;
    if (begins && !gateway.store().begin_trial().ok()) continue;
    const bool is_good = igd_verify_new_wan_info_valid("", &wan, kAllPorts) == 0;
    if (is_good) (void)igd_wan_create("Ethernet", &wan);
    const StoreResult result = begins ? gateway.store().accept() : gateway.store().commit();
    if (result.ok()) return 0;
  }
  return 2;
}

TEST_F(SharedStore, FourThatCheckAndCreateMakeOneConnection) {
  opened();
  std::vector<std::unique_ptr<Child>> processes;
  for (int i = 0; i < 4; ++i) {
    processes.push_back(
        std::make_unique<Child>([this](int /*pipe*/) { return create_once(path_, start_, true); }));
  }
  make(start_);
  for (const auto& process : processes) EXPECT_EQ(process->wait(), 0);
  const auto store = opened();
  EXPECT_EQ(store->tree().instances(kWanAccessType).size(), 1U);
  EXPECT_EQ(store->tree().instances(kWanConnectionDevice).size(), 1U);
}

TEST_F(SharedStore, FourThatCreateAtOnceFindEachOthersWanDevice) {
  opened();
  std::vector<std::unique_ptr<Child>> processes;
  for (int i = 0; i < 4; ++i) {
    processes.push_back(std::make_unique<Child>(
        [this](int /*pipe*/) { return create_once(path_, start_, false); }));
  }
  make(start_);
  for (const auto& process : processes) EXPECT_EQ(process->wait(), 0);
  EXPECT_EQ(opened()->tree().instances(kWanAccessType).size(), 1U);
}

// Ends as a program does that never closes its store.
int run_alone(const std::string& path, int n) {
  Store* const store = Store::open(path, {}, nullptr).release();
  return store != nullptr && writes(*store, kUrl, std::to_string(n)) ? 0 : 1;
}

TEST_F(SharedStore, RunsThatCloseNothingLeaveNoLongLog) {
  constexpr int kRuns = 10000 / kStride;
  constexpr std::uintmax_t kLongest = 4U << 20U;
  std::uintmax_t longest = 0;
  for (int run = 1; run <= kRuns; ++run) {
    ASSERT_EQ(Child([&](int /*pipe*/) { return run_alone(path_, run); }).wait(), 0);
    longest = std::max(longest, size_of_log());
  }
  EXPECT_LE(longest, kLongest);
  EXPECT_EQ(number_in(opened()->tree(), kUrl), kRuns);
  std::printf("%d runs, the log was at most %ju bytes long\n", kRuns, longest);
}

TEST_F(SharedStore, ASmallDiskTakesCommitsForEver) {
  constexpr int kCommits = 2000;
  if (mount("proof", folder_.path().c_str(), "tmpfs", 0, "size=2m") != 0) {
    GTEST_SKIP() << "no small disk can be mounted: " << std::strerror(errno);
  }
  {
    const auto store = opened();
    int done = 0;
    for (int i = 1; i <= kCommits; ++i) done += writes(*store, kUrl, std::to_string(i)) ? 1 : 0;
    EXPECT_EQ(done, kCommits);
    EXPECT_EQ(number_in(opened()->tree(), kUrl), kCommits);
  }
  EXPECT_EQ(umount2(folder_.path().c_str(), MNT_DETACH), 0);
}

// A process that is stopped in the midst of a commit, holding every lock that a commit takes.
class Stopped {
 public:
  explicit Stopped(const std::string& path)
      : child_([&path](int pipe) {
          StoreOptions options;
          options.between_commit_and_counter = [pipe] {
            const int stopping = 1;
            (void)write(pipe, &stopping, sizeof stopping);
            (void)raise(SIGSTOP);
          };
          const auto store = Store::open(path, options, nullptr);
          return store != nullptr && writes(*store, kUrl, "stopped") ? 0 : 1;
        }) {
    child_.wait_for_output();
  }

 private:
  Child child_;
};

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kLockTimeout{StoreOptions::kLockTimeoutMs / 1000};

TEST_F(SharedStore, AProcessThatStoppedInACommitKeepsNobodyFromReading) {
  const auto before = opened();
  const Stopped stopped(path_);
  const auto start = Clock::now();
  EXPECT_EQ(before->tree().value(kUrl), "stopped");
  for (int i = 0; i < 5; ++i) {
    const auto store = opened();
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(store->tree().value(kUrl), "stopped");
  }
  EXPECT_LT(Clock::now() - start, kLockTimeout);  // nobody waited for the lock
}

TEST_F(SharedStore, AnOverdueChangeThatCannotBeRevertedNowDelaysReadsOnce) {
  StoreOptions options;
  std::int64_t time = 1;
  options.clock = [&time] { return host::BootTime{"boot", time}; };
  const auto store = opened(options);
  ASSERT_TRUE(store->begin_trial().ok());
  (void)store->tree().set_value(kUser, "pending");
  ASSERT_TRUE(store->accept_pending(1).ok());
  const Child holder([this](int pipe) {
    host::SharedState shared(path_);
    const host::CommitLock lock(shared);
    const int locked = 1;
    (void)write(pipe, &locked, sizeof locked);
    return pause();
  });
  holder.wait_for_output();
  time = 5000;
  const auto start = Clock::now();
  for (int i = 0; i < 50; ++i) EXPECT_EQ(store->tree().value(kUser), "pending");
  EXPECT_NE(opened(options), nullptr);
  EXPECT_LT(Clock::now() - start, kLockTimeout);
}

TEST_F(SharedStore, AChildDoesNotKeepTheLockOfAParentThatWasKilled) {
  const std::string child_lives = folder_.path() + "/child-lives";
  const std::string done = folder_.path() + "/done";
  {
    Child parent([&](int pipe) {
      StoreOptions options;
      options.between_commit_and_counter = [&] {
        if (fork() == 0) {
          make(child_lives);
          (void)is_made_soon(done);
          _exit(0);
        }
        wait_for(child_lives);
        const int ready = 1;
        (void)write(pipe, &ready, sizeof ready);
        (void)pause();
      };
      const auto store = Store::open(path_, options, nullptr);
      return store != nullptr && writes(*store, kUrl, "parent") ? 0 : 1;
    });
    parent.wait_for_output();
    parent.kill_it();
  }
  StoreOptions options;
  options.lock_timeout_ms = 2000;
  const auto store = opened(options);
  ASSERT_NE(store, nullptr);
  EXPECT_EQ(store->tree().value(kUrl), "parent");
  EXPECT_EQ(store->tree().set_value(kUser, "next"), 0);
  const StoreResult result = store->commit();
  EXPECT_TRUE(result.ok()) << result.text;
  make(done);
}

void fill(const std::string& path, int connections) {
  const auto store = Store::open(path, {}, nullptr);
  ASSERT_NE(store, nullptr);
  int device = 0;
  ASSERT_EQ(store->tree().add_object(kWanDevices, &device), 0);
  const std::string table = kWanDevices + std::to_string(device) + ".WANConnectionDevice.";
  for (int i = 0; i < connections; ++i) {
    int number = 0;
    ASSERT_EQ(store->tree().add_object(table, &number), 0);
    const std::string ip_table = table + std::to_string(number) + ".WANIPConnection.";
    ASSERT_EQ(store->tree().add_object(ip_table, &number), 0);
    ASSERT_EQ(store->tree().set_value(ip_table + "1.Name", "connection " + std::to_string(i)), 0);
  }
  ASSERT_TRUE(store->commit().ok());
}

TEST_F(SharedStore, FiftyReadersAndFiftyWritersOfALargeStoreAllSucceed) {
  constexpr int kProcesses = 50;
  constexpr int kConnections = 10000 / kStride;
  fill(path_, kConnections);
  std::vector<std::unique_ptr<Child>> processes;
  for (int i = 0; i < kProcesses; ++i) {
    processes.push_back(std::make_unique<Child>([this](int /*pipe*/) {
      const auto store = Store::open(path_, {}, nullptr);
      if (store == nullptr) return 1;
      return store->tree().instances(kIpConnectionName).size() == kConnections ? 0 : 2;
    }));
  }
  for (const auto& process : processes) EXPECT_EQ(process->wait(), 0);
  processes.clear();
  for (int i = 0; i < kProcesses; ++i) {
    processes.push_back(std::make_unique<Child>([this, i](int /*pipe*/) {
      const auto store = Store::open(path_, {}, nullptr);
      if (store == nullptr) return 1;
      if (writes(*store, kUser, std::to_string(i))) return 0;
      return store->commit().error == StoreError::kLocked ? 3 : 2;
    }));
  }
  for (const auto& process : processes) EXPECT_EQ(process->wait(), 0);
  EXPECT_EQ(opened()->generation(), 2U + kProcesses);
}

}  // namespace
