// Processes that share a store: what becomes of one that dies, walks, forks or writes with others.
#include <algorithm>
#include <csignal>

#include "client.h"
#include "store/shared_state.h"
#include "store_bench.h"

namespace {

using namespace store_tests;
using host::SharedState;

class Processes : public StoreBench {
 protected:
  Words environment() const { return {"IGD_STORE=" + path_}; }
  std::string ran(Words words) const { return Client(environment(), std::move(words)).finish(); }
};

TEST_F(Processes, OneThatDiesWithTheLockDelaysNobody) {
  auto store = opened();
  EXPECT_EQ(ran({"set", kUrl, "lost", "die"}), "0\nkilled");
  store->tree().set_value(kUser, "next");
  EXPECT_TRUE(store->commit().ok());
  EXPECT_EQ(store->tree().value(kUrl), "");
}

TEST_F(Processes, OneThatDiesBetweenTheDatabaseAndTheCounterHasCommitted) {
  auto reader = opened();
  const pid_t child = fork();
  if (child == 0) {
    options_.between_commit_and_counter = [] { (void)raise(SIGKILL); };
    auto store = opened();
    (void)store->tree().set_value(kUrl, "x");
    (void)store->commit();
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(SharedState(path_).counter() % 2, 1U);
  EXPECT_EQ(reader->tree().value(kUrl), "x");
  reader->tree().set_value(kUser, "next");
  EXPECT_TRUE(reader->commit().ok());
  EXPECT_EQ(ran({"get", kUrl, "get", kUser}), "x\nnext\n");
}

TEST_F(Processes, AnOpenWalkFreezesTheView) {
  Client client(environment(),
                {"get", kUrl, "walk", "make", folder_ + "/walking", "wait-for", folder_ + "/done",
                 "get", kUrl, "set", kUser, "u", "commit", "get", kUrl});
  while (!std::filesystem::exists(folder_ + "/walking")) usleep(1000);
  auto store = opened();
  store->tree().set_value(kUrl, "x");
  EXPECT_TRUE(store->commit().ok());
  write_file(folder_ + "/done", "");
  const std::string printed = client.finish();
  EXPECT_EQ(printed.substr(0, 5), "\n\n-1\n") << printed;  // what it saw is no longer so
  EXPECT_EQ(printed.substr(printed.size() - 6), "\n-1\nx\n") << printed;
}

TEST_F(Processes, AChildAfterForkOpensAnewWithoutItsParentsBatch) {
  const std::string printed = ran({"set", kUrl, "parents", "fork", "get", kUrl, "commit"});
  EXPECT_EQ(printed.substr(0, 8), "0\n\n0\nlog") << printed;
  EXPECT_NE(printed.find("1 writes were not committed"), std::string::npos);  // the parent's
  EXPECT_EQ(printed.find("not committed"), printed.rfind("not committed"));
}

TEST_F(Processes, AChildAfterForkWritesWhenItsParentHasCommitted) {
  EXPECT_EQ(ran({"set", kUrl, "x", "commit", "fork", "get", kUrl, "set", kUser, "y", "commit"}),
            "0\n0\nx\n0\n0\n");
  EXPECT_EQ(ran({"get", kUser}), "y\n");
}

TEST_F(Processes, LoseNoCommitWhenTheyWriteAtTheSameTime) {
  constexpr int kWriters = 4;
  constexpr int kCommits = 25;
  Words words = {"wait-for", folder_ + "/go"};
  for (int i = 0; i < kCommits; ++i) words.insert(words.end(), {"add", kRoutes, "commit"});
  std::vector<std::unique_ptr<Client>> writers;
  for (int i = 0; i < kWriters; ++i) {
    writers.push_back(std::make_unique<Client>(environment(), words));
  }
  write_file(folder_ + "/go", "");
  for (const auto& writer : writers) {
    const std::string printed = writer->finish();
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 2 * kCommits) << printed;
    EXPECT_EQ(printed.find("log"), std::string::npos) << printed;
  }
  auto store = opened();
  EXPECT_EQ(store->tree().instances(kForwardingInterface).size(), kWriters * kCommits);
  EXPECT_EQ(store->generation(), 1U + kWriters * kCommits);
}

}  // namespace
