// A real disk that is full, where this process may mount one.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "host_store.h"
#include "temporary_folder.h"

namespace {

using namespace proof;
using host::Store;
using host::StoreError;
using host::StoreResult;

constexpr int kPageSize = 4096;
constexpr int kPages = 128;
const std::string kUrl = "InternetGatewayDevice.ManagementServer.URL";

class FullDisk : public testing::Test {
 protected:
  void SetUp() override {
    const std::string size = "size=" + std::to_string(kPages * kPageSize);
    is_mounted_ = mount("proof", folder_.path().c_str(), "tmpfs", 0, size.c_str()) == 0;
    if (!is_mounted_) GTEST_SKIP() << "no small disk can be mounted: " << std::strerror(errno);
  }
  ~FullDisk() override {
    if (is_mounted_) (void)umount2(folder_.path().c_str(), MNT_DETACH);
  }

  void empty_disk() {
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
      std::filesystem::remove(entry);
    }
  }

  void leave_room(int pages) {
    std::filesystem::remove(filler_);
    std::ofstream(filler_) << std::string(std::size_t{kPages} * kPageSize, 'x');
    const auto length = std::filesystem::file_size(filler_);
    const auto room = static_cast<std::uintmax_t>(pages) * kPageSize;
    std::filesystem::resize_file(filler_, length > room ? length - room : 0);
  }

  void make_room() { std::filesystem::remove(filler_); }

  // Runs in a process of its own, because a full disk can kill one that maps files.
  template <class Action>
  static int exit_code_of(Action action) {
    const pid_t child = fork();
    if (child == 0) _exit(action());
    int status = 0;
    (void)waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/gateway.db";
  const std::string filler_ = folder_.path() + "/filler";
  bool is_mounted_ = false;
};

constexpr int kOpened = 10;

int open_result(const std::string& path) {
  StoreResult result;
  const bool is_open = Store::open(path, {}, &result) != nullptr;
  return is_open ? kOpened : static_cast<int>(result.error);
}

TEST_F(FullDisk, AnOpenWithoutRoomSaysSoAndHarmsNothing) {
  constexpr int kEnough = 30;
  int full = 0;
  for (int room = 0; room <= kEnough; ++room) {
    empty_disk();
    leave_room(room);
    const int result = exit_code_of([this] { return open_result(path_); });
    if (result != kOpened) {
      EXPECT_EQ(result, static_cast<int>(StoreError::kFull)) << room << " pages";
      ++full;
    }
    make_room();
    StoreResult opened;
    auto store = Store::open(path_, {}, &opened);
    ASSERT_NE(store, nullptr) << room << " pages: " << opened.text;
    EXPECT_EQ(store->generation(), 1U);
    (void)store->tree().set_value(kUrl, "x");
    EXPECT_TRUE(store->commit().ok()) << room << " pages";
  }
  EXPECT_GT(full, 5);
  EXPECT_LT(full, kEnough);
}

TEST_F(FullDisk, ACommitWithoutRoomSaysSoAndLeavesTheOldTree) {
  constexpr int kEnough = 60;
  int full = 0;
  for (int room = 0; room <= kEnough; ++room) {
    empty_disk();
    auto store = Store::open(path_, {}, nullptr);
    ASSERT_NE(store, nullptr);
    (void)store->tree().set_value(kUrl, "old");
    ASSERT_TRUE(store->commit().ok());
    leave_room(room);
    (void)store->tree().set_value(kUrl, std::string(50000, 'x'));
    const StoreResult result = store->commit();
    if (!result.ok()) {
      EXPECT_EQ(result.error, StoreError::kFull) << room << " pages: " << result.text;
      EXPECT_EQ(store->tree().value(kUrl), "old");
      ++full;
    }
    make_room();
    (void)store->tree().set_value(kUrl, "new");
    EXPECT_TRUE(store->commit().ok()) << room << " pages";
    store.reset();
    store = Store::open(path_, {}, nullptr);
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(store->tree().value(kUrl), "new");
  }
  EXPECT_GT(full, 5);
  EXPECT_LT(full, kEnough);
}

}  // namespace
