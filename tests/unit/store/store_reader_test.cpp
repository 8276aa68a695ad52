// A store that its process may read and not write.
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "access_bench.h"

namespace {

using namespace store_tests;

using StoreReader = ReaderBench;

TEST_F(StoreReader, AFileThatItsOwnerMayOnlyReadCanBeRead) {
  make_for_reading("kept");
  expect_read_only("kept");
}

TEST_F(StoreReader, AFileThatItsOwnerMayOnlyReadCanBeReadWhateverItsName) {
  path_ = folder_ + "/100%41 what?mode=rwc&x=#1.db";
  make_for_reading("kept");
  expect_read_only("kept");
}

TEST_F(StoreReader, AFileThatItsOwnerMayOnlyReadCanBeReadWithNothingBesideIt) {
  make_for_reading("kept");
  std::filesystem::remove(path_ + "-shared");
  expect_read_only("kept");
  close_folder();
  expect_read_only("kept");
}

TEST_F(StoreReader, AFileCanBeReadWhereNothingCanBeMade) {
  write_and_commit(*opened(), kUrl, "kept");
  give_away();
  close_folder();
  expect_read_only("kept");
}

TEST_F(StoreReader, WhatIsInTheLogIsReadByThoseWhoMayNotWriteIt) {
  make_with_log("in the log");
  close_folder();
  for (const std::string& file : files()) ASSERT_EQ(chmod(file.c_str(), S_IRUSR), 0);
  expect_read_only("in the log");
}

TEST_F(StoreReader, ALogWithoutAnIndexIsReadWhereOneCanBeMade) {
  make_with_log("in the log");
  std::filesystem::remove(path_ + "-shm");
  ASSERT_EQ(chmod(path_.c_str(), S_IRUSR), 0);
  const std::string log = content_of(path_ + "-wal");
  {
    const Owner reader([this] { EXPECT_EQ(opened()->tree().value(kUrl), "in the log"); });
  }
  EXPECT_EQ(content_of(path_ + "-wal"), log);
  EXPECT_EQ(mode_of(path_ + "-shm"), 0600U);  // the next writer needs it
  ASSERT_EQ(chmod(path_.c_str(), S_IRUSR | S_IWUSR), 0);
  const Owner writer([this] { write_and_commit(*opened(), kUrl, "written again"); });
}

TEST_F(StoreReader, ALogWithoutAnIndexIsRefusedWhereNoneCanBeMade) {
  make_with_log("in the log");
  std::filesystem::remove(path_ + "-shm");
  close_folder();
  const Picture before = picture();
  {
    const Owner reader([this] {
      const StoreResult result = refusal();
      EXPECT_EQ(result.error, StoreError::kReadOnly);
      EXPECT_NE(result.text.find("gateway.db-shm"), std::string::npos) << result.text;
    });
  }
  EXPECT_EQ(picture(), before);
}

TEST_F(StoreReader, AFileOnAReadOnlyDiskCanBeRead) {
  for (const bool in_log : {false, true}) {
    if (mount("store", folder_.c_str(), "tmpfs", 0, "size=2m") != 0) {
      GTEST_SKIP() << "no disk can be mounted: " << std::strerror(errno);
    }
    if (in_log) {
      make_with_log("kept");
    } else {
      make_for_reading("kept");
    }
    ASSERT_EQ(mount(nullptr, folder_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    expect_read_only("kept");
    const Picture before = picture();
    {
      const auto store = opened();  // as an administrator
      ASSERT_NE(store, nullptr);
      EXPECT_EQ(store->tree().value(kUrl), "kept");
      expect_writes_refused(*store);
    }
    EXPECT_EQ(picture(), before);
    ASSERT_EQ(umount2(folder_.c_str(), MNT_DETACH), 0);
  }
}

TEST_F(StoreReader, AChangeWhoseTimeIsOverStaysForAReaderWhoIsToldOnce) {
  std::int64_t time = 1;
  options_.clock = [&time] { return host::BootTime{"boot", time}; };
  {
    const auto store = opened();
    ASSERT_TRUE(store->begin_trial().ok());
    (void)store->tree().set_value(kUrl, "pending");
    ASSERT_TRUE(store->accept_pending(1, "removed Television").ok());
  }
  time = 5000;
  give_away();
  ASSERT_EQ(chmod(path_.c_str(), S_IRUSR), 0);
  const Picture before = picture();
  {
    const Owner reader([this] {
      reported_.clear();
      const auto store = opened();
      ASSERT_NE(store, nullptr);
      for (int i = 0; i < 3; ++i) EXPECT_EQ(store->tree().value(kUrl), "pending");
      const auto pending = store->pending();
      ASSERT_TRUE(pending);
      EXPECT_EQ(pending->milliseconds_left, 0);
      EXPECT_EQ(reported_.size(), 1U);
      EXPECT_TRUE(is_reported("removed Television"));
    });
  }
  EXPECT_EQ(picture(), before);
}

TEST_F(StoreReader, ALongLogStaysForAReader) {
  const std::string text(600000, 'x');  // stands in the log twice
  make_with_log(text);
  ASSERT_GT(std::filesystem::file_size(path_ + "-wal"), 1U << 20U);
  ASSERT_EQ(chmod(path_.c_str(), S_IRUSR), 0);
  expect_read_only(text);
}

TEST_F(StoreReader, ADamagedFileThatMayOnlyBeReadIsNotMovedAside) {
  write_file(path_, "damaged, and long enough for that");
  give_away();
  ASSERT_EQ(chmod(path_.c_str(), S_IRUSR), 0);
  const Picture before = picture();
  {
    const Owner reader([this] {
      StoreOptions options;
      options.keep_corrupt_aside = true;
      EXPECT_EQ(error_on_open(options), StoreError::kCorrupt);
    });
  }
  EXPECT_EQ(picture(), before);
}

TEST_F(StoreReader, AnEmptyFileThatMayOnlyBeReadIsNoStore) {
  write_file(path_, "");
  give_away();
  ASSERT_EQ(chmod(path_.c_str(), S_IRUSR), 0);
  const Picture before = picture();
  {
    const Owner reader([this] { EXPECT_EQ(error_on_open(), StoreError::kReadOnly); });
  }
  EXPECT_EQ(picture(), before);
}

}  // namespace
