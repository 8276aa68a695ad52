// Where lines of c_debug_out go.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "host_platform.h"

namespace {

struct Line {
  std::string file;
  int line = 0;
  std::string text;
};

class DebugLog : public testing::Test {
 protected:
  ~DebugLog() override {
    host::set_debug_sink(nullptr);
    std::remove(log_file_.c_str());
  }

  void keep_last_line() {
    host::set_debug_sink([this](const char* file, int line, const std::string& text) {
      last_ = {file, line, text};
      ++lines_;
    });
  }

  std::string logged() const {
    std::ifstream input(log_file_);
    return {std::istreambuf_iterator<char>(input), {}};
  }

  const std::string log_file_ =
      testing::TempDir() + "host_debug_log_" + std::to_string(getpid()) + ".log";
  Line last_;
  int lines_ = 0;
};

TEST_F(DebugLog, IsOffAtStart) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  c_debug_out("igd_api", 667, "CREATE VLAN = %s", "7");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(DebugLog, HandsFileLineAndTextToTheSink) {
  keep_last_line();
  c_debug_out("igd_api", 667, "CREATE VLAN = %s,%d", "7", 8);
  EXPECT_EQ(last_.file, "igd_api");
  EXPECT_EQ(last_.line, 667);
  EXPECT_EQ(last_.text, "CREATE VLAN = 7,8");
  EXPECT_EQ(lines_, 1);
}

TEST_F(DebugLog, CutsNoTextHoweverLong) {
  keep_last_line();
  const std::string text(100000, 'x');
  c_debug_out("igd_api", 1, "<%s>", text.c_str());
  EXPECT_EQ(last_.text, "<" + text + ">");
}

TEST_F(DebugLog, TakesAnEmptyText) {
  keep_last_line();
  c_debug_out("igd_api", 1, "%s", "");
  EXPECT_EQ(lines_, 1);
  EXPECT_EQ(last_.text, "");
}

TEST_F(DebugLog, IsTurnedOffByAnEmptySink) {
  keep_last_line();
  host::set_debug_sink({});
  c_debug_out("igd_api", 1, "text");
  EXPECT_EQ(lines_, 0);
}

TEST_F(DebugLog, LetsASinkReplaceItself) {
  host::set_debug_sink([this](const char*, int, const std::string&) { keep_last_line(); });
  c_debug_out("igd_api", 1, "one");
  c_debug_out("igd_api", 2, "two");
  EXPECT_EQ(last_.text, "two");
}

TEST_F(DebugLog, GoesToStandardErrorWithFileAndLine) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  host::set_debug_sink_to_stderr();
  c_debug_out("igd_api", 667, "CREATE VLAN = %d", 7);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "igd_api:667: CREATE VLAN = 7\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(DebugLog, AppendsToAFileThatOnlyTheOwnerReads) {
  ASSERT_TRUE(host::set_debug_sink_to_file(log_file_));
  c_debug_out("igd_api", 1, "one");
  ASSERT_TRUE(host::set_debug_sink_to_file(log_file_));
  c_debug_out("igd_api", 2, "two");
  EXPECT_EQ(logged(), "igd_api:1: one\nigd_api:2: two\n");
  struct stat status = {};
  ASSERT_EQ(stat(log_file_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(DebugLog, StaysWhereItWasWhenAFileCannotBeOpened) {
  keep_last_line();
  EXPECT_FALSE(host::set_debug_sink_to_file(testing::TempDir() + "no/such/folder/log"));
  c_debug_out("igd_api", 1, "text");
  EXPECT_EQ(last_.text, "text");
}

}  // namespace
