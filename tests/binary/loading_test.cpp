// A process that only loads the two libraries must not notice them.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <set>
#include <string>

#include "common_util.h"
#include "stdout_capture.h"

namespace {

int context_calls = 0;
int log_calls = 0;

/// Entries of a directory of /proc, links with what they point to.
std::set<std::string> entries(const char* directory) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    std::string name = entry.path().filename();
    std::error_code not_a_link;
    name += " -> " + std::filesystem::read_symlink(entry.path(), not_a_link).string();
    names.insert(std::move(name));
  }
  return names;
}

struct Process {
  std::set<std::string> open_files = entries("/proc/self/fd");
  std::set<std::string> threads = entries("/proc/self/task");
};

/// Both output streams of the process while it lives.
class OutputCapture {
 public:
  OutputCapture() : saved_(::dup(STDERR_FILENO)) { ::dup2(STDOUT_FILENO, STDERR_FILENO); }
  ~OutputCapture() {
    ::dup2(saved_, STDERR_FILENO);
    ::close(saved_);
  }
  OutputCapture(const OutputCapture&) = delete;
  OutputCapture& operator=(const OutputCapture&) = delete;
  std::string drain() { return std::fflush(stderr), capture_.drain(); }

 private:
  support::StdoutCapture capture_;
  int saved_;
};

// Loads the libraries once, and keeps how the process was before and after.
class Loading : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    OutputCapture capture;
    before = new Process;
    const int flags = RTLD_NOW | RTLD_GLOBAL;
    loaded = ::dlopen(LIBCOMMON_UTIL, flags) != nullptr && ::dlopen(LIBIGD, flags) != nullptr;
    after = new Process;
    output = capture.drain();
  }
  static void TearDownTestSuite() {
    delete before;
    delete after;
  }
  void SetUp() override { ASSERT_TRUE(loaded) << ::dlerror(); }

  static Process* before;
  static Process* after;
  static bool loaded;
  static std::string output;
};

Process* Loading::before = nullptr;
Process* Loading::after = nullptr;
bool Loading::loaded = false;
std::string Loading::output;

TEST_F(Loading, PrintsNothing) { EXPECT_EQ(output, ""); }

TEST_F(Loading, OpensNoFile) { EXPECT_EQ(after->open_files, before->open_files); }

TEST_F(Loading, StartsNoThread) { EXPECT_EQ(after->threads, before->threads); }

TEST_F(Loading, AsksForNoContextAndLogsNothing) {
  EXPECT_EQ(context_calls, 0);
  EXPECT_EQ(log_calls, 0);
}

// Without this the test above could not fail: the library does find this program's functions.
TEST_F(Loading, BindsTheProgramsPlatform) {
  using GetUnusedVlan = int (*)();
  const auto unused_vlan =
      reinterpret_cast<GetUnusedVlan>(::dlsym(RTLD_DEFAULT, "_Z23igd_wan_get_unused_vlanv"));
  ASSERT_NE(unused_vlan, nullptr);
  const int before_call = context_calls;
  (void)unused_vlan();
  EXPECT_GT(context_calls, before_call);
  context_calls = before_call;
}

}  // namespace

PlatformContext* getContext() {
  ++context_calls;
  return nullptr;
}

extern "C" void c_debug_out(const char*, int, const char*, ...) { ++log_calls; }
