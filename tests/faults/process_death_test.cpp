// Processes that share a store, killed in the midst of what they do, and many at a time.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "child.h"
#include "host_store.h"
#include "stride.h"
#include "temporary_folder.h"

namespace {

using namespace proof;
using host::Store;
using host::Tree;

const std::string kRoot = "InternetGatewayDevice.";
const std::string kUrl = kRoot + "ManagementServer.URL";
const std::string kUser = kRoot + "ManagementServer.Username";
const std::string kPassword = kRoot + "ManagementServer.Password";
const std::string kRoutes = kRoot + "Layer3Forwarding.Forwarding.";

// State n: every parameter tells it, and a route stands for it, which gets a new number each time.
void write_state(Tree& tree, int n) {
  const std::string text = std::to_string(n);
  (void)tree.set_value(kUrl, text);
  for (const std::string& name : tree.instances(kForwardingInterface)) {
    (void)tree.delete_object(name.substr(0, name.rfind('.') + 1));
  }
  int number = 0;
  (void)tree.add_object(kRoutes, &number);
  (void)tree.set_value(kRoutes + std::to_string(number) + ".DestIPAddress", text);
  (void)tree.set_value(kPassword, text + std::string(3000, 'x'));
}

// The state that the tree is in; -1 when it is in none.
int state_of(const Tree& tree) {
  const std::string text = tree.value(kUrl);
  if (text.empty()) return tree.instances(kForwardingInterface).empty() ? 0 : -1;
  const std::vector<std::string> routes = tree.instances(kForwardingInterface);
  if (routes.size() != 1) return -1;
  const std::string route_path = routes.front().substr(0, routes.front().rfind('.') + 1);
  const bool is_whole = tree.value(route_path + "DestIPAddress") == text &&
                        tree.value(kPassword) == text + std::string(3000, 'x');
  return is_whole ? std::stoi(text) : -1;
}

int commit_for_ever(const std::string& path, int pipe) {
  const auto store = Store::open(path, {}, nullptr);
  if (store == nullptr) return 1;
  for (int n = state_of(store->tree()) + 1;; ++n) {
    write_state(store->tree(), n);
    if (!store->commit().ok()) return 2;
    if (write(pipe, &n, sizeof n) != sizeof n) return 3;
  }
}

TEST(Kill, LeavesTheLastAcknowledgedCommitOrTheOneInFlight) {
  constexpr int kKills = 200 / kStride;
  constexpr unsigned kLongestUs = 60000;
  constexpr unsigned kSeed = 20260701;
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/gateway.db";
  std::mt19937 random(kSeed);
  std::unique_ptr<Store> witness;  // lives through all the deaths
  int known = 0;
  for (int i = 0; i < kKills; ++i) {
    SCOPED_TRACE("seed " + std::to_string(kSeed) + ", kill " + std::to_string(i));
    if (i % 2 == 0) witness.reset();  // every other child starts with a store of its parent's
    Child child([&path](int pipe) { return commit_for_ever(path, pipe); });
    if (i % 4 >= 2) child.wait_for_output();  // the others may die while they open the store
    usleep(static_cast<useconds_t>(random() % kLongestUs));
    child.kill_it();
    known = std::max(known, child.last_number());
    const auto store = Store::open(path, {}, nullptr);
    ASSERT_NE(store, nullptr);
    const int found = state_of(store->tree());
    ASSERT_TRUE(found == known || found == known + 1) << found << " after " << known;
    ASSERT_EQ(integrity_of(path), "ok");
    if (witness == nullptr) witness = Store::open(path, {}, nullptr);
    ASSERT_EQ(state_of(witness->tree()), found);
    (void)witness->tree().set_value(kUser, std::to_string(i));
    ASSERT_TRUE(witness->commit().ok());
    ASSERT_EQ(store->tree().value(kUser), std::to_string(i));
    known = found;
  }
  EXPECT_GE(known, kKills / 2);
  std::printf("%d kills among %d commits\n", kKills, known);
}

int add_up(const std::string& path, int writer, int commits) {
  const auto store = Store::open(path, {}, nullptr);
  if (store == nullptr) return 1;
  for (int i = 0; i < commits; ++i) {
    Tree& tree = store->tree();
    int number = 0;
    if (tree.add_object(kRoutes, &number) != 0) return 2;
    const std::string route_path = kRoutes + std::to_string(number) + ".";
    (void)tree.set_value(route_path + "DestIPAddress", std::to_string(writer));
    (void)tree.set_value(route_path + "GatewayIPAddress", std::to_string(i));
    const std::string shared = tree.value(kUrl);  // the write has the newest state before it
    (void)tree.set_value(kUrl, std::to_string(shared.empty() ? 1 : std::stoi(shared) + 1));
    if (i % 50 == 49) (void)tree.delete_object(route_path);
    if (!store->commit().ok()) return 3;
  }
  return 0;
}

TEST(FourProcesses, LoseNoneOfTheir500CommitsEach) {
  constexpr int kWriters = 4;
  constexpr int kCommits = 500;
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/gateway.db";
  const auto start = std::chrono::steady_clock::now();
  std::vector<std::unique_ptr<Child>> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.push_back(std::make_unique<Child>(
        [&path, writer](int /*pipe*/) { return add_up(path, writer, kCommits); }));
  }
  for (const auto& writer : writers) EXPECT_EQ(writer->wait(), 0);
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  const auto store = Store::open(path, {}, nullptr);
  ASSERT_NE(store, nullptr);
  const Tree& tree = store->tree();
  EXPECT_EQ(tree.value(kUrl), std::to_string(kWriters * kCommits));
  EXPECT_EQ(store->generation(), 1U + kWriters * kCommits);
  std::vector<int> counts(kWriters);
  for (const std::string& name : tree.instances(kForwardingInterface)) {
    const std::string route_path = name.substr(0, name.rfind('.') + 1);
    ++counts.at(static_cast<std::size_t>(std::stoi(tree.value(route_path + "DestIPAddress"))));
  }
  EXPECT_EQ(counts, std::vector<int>(kWriters, kCommits - kCommits / 50));
  EXPECT_EQ(integrity_of(path), "ok");
  std::printf("%d commits of %d processes in %.1f s\n", kWriters * kCommits, kWriters,
              time.count());
}

}  // namespace
