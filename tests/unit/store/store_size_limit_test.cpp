// A process that may write no long files: the store says that it is full, and nobody is killed.
#include <csignal>

#include "client.h"
#include "store_bench.h"

namespace {

using namespace store_tests;

class FileSizeLimit : public StoreBench {
 protected:
  std::string ran_with(rlim_t longest_file, Words words) {
    return Client({"IGD_STORE=" + path_}, std::move(words), longest_file).finish();
  }
};

// In the store's words, or in those of the system for a file beside it.
bool names_limit(const std::string& printed) {
  return printed.find("file size limit") != std::string::npos ||
         printed.find("File too large") != std::string::npos;
}

constexpr rlim_t kStep = 2048;  // no limit but a few is the length of something
constexpr rlim_t kEnough = 120000;

TEST_F(FileSizeLimit, OnOpeningSaysSoAndHarmsNothing) {
  int refused = 0;
  for (rlim_t limit = 0; limit < kEnough; limit += kStep) {
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      std::filesystem::remove(entry);
    }
    const std::string printed = ran_with(limit, {"context"});
    if (printed != "context\n") {
      ++refused;
      EXPECT_TRUE(names_limit(printed)) << limit << ": " << printed;
      EXPECT_EQ(printed.substr(printed.find('\n')), "\nnone\n") << limit;
    }
    EXPECT_EQ(opened()->generation(), 1U) << limit;
  }
  EXPECT_GT(refused, 5);
}

TEST_F(FileSizeLimit, OnCommitSaysSoAndLeavesTheOldTree) {
  int refused = 0;
  for (rlim_t limit = 0; limit < kEnough; limit += 2 * kStep) {
    opened();
    const std::string text = std::to_string(limit) + std::string(50000, 'x');
    const std::string printed = ran_with(limit, {"set", kUrl, text, "commit", "get", kUser});
    auto store = opened();
    if (printed == "0\n0\n\n") {
      EXPECT_EQ(store->tree().value(kUrl), text) << limit;
    } else {
      ++refused;
      EXPECT_TRUE(names_limit(printed)) << limit << ": " << printed;
      EXPECT_EQ(printed.find("killed"), std::string::npos) << limit;
      EXPECT_NE(store->tree().value(kUrl), text) << limit;
    }
  }
  EXPECT_GT(refused, 5);
}

// The program's own signals are none of the store's business.
TEST_F(FileSizeLimit, LeavesTheSignalsOfTheProgramAsTheyAre) {
  sigset_t own = {};
  sigset_t before = {};
  sigset_t after = {};
  (void)sigemptyset(&own);
  (void)sigaddset(&own, SIGXFSZ);
  ASSERT_EQ(pthread_sigmask(SIG_BLOCK, &own, &before), 0);
  (void)raise(SIGXFSZ);
  auto store = opened();
  store->tree().set_value(kUrl, "x");
  EXPECT_TRUE(store->commit().ok());
  ASSERT_EQ(sigpending(&after), 0);
  EXPECT_EQ(sigismember(&after, SIGXFSZ), 1);
  ASSERT_EQ(pthread_sigmask(SIG_BLOCK, nullptr, &after), 0);
  EXPECT_EQ(sigismember(&after, SIGXFSZ), 1);
  int taken = 0;
  (void)sigwait(&own, &taken);
  ASSERT_EQ(pthread_sigmask(SIG_SETMASK, &before, nullptr), 0);
  store->tree().set_value(kUrl, "y");
  EXPECT_TRUE(store->commit().ok());
  ASSERT_EQ(pthread_sigmask(SIG_BLOCK, nullptr, &after), 0);
  EXPECT_EQ(sigismember(&after, SIGXFSZ), sigismember(&before, SIGXFSZ));
}

}  // namespace
