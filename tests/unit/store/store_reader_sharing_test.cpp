// Processes that may only read a store, beside one that writes it.
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "access_bench.h"

namespace {

using namespace store_tests;

using StoreReaderSharing = ReaderBench;

// What one process waits for until another one does it.
class Signal {
 public:
  Signal() { EXPECT_EQ(pipe(ends_), 0); }
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;
  ~Signal() {
    (void)close(ends_[0]);
    (void)close(ends_[1]);
  }
  void give() const { EXPECT_EQ(write(ends_[1], "x", 1), 1); }
  void wait() const {
    constexpr int kPatienceMs = 20000;
    pollfd waited = {ends_[0], POLLIN, 0};
    ASSERT_EQ(poll(&waited, 1, kPatienceMs), 1);
    char byte = 0;
    EXPECT_EQ(read(ends_[0], &byte, 1), 1);
  }

 private:
  int ends_[2] = {-1, -1};
};

TEST_F(StoreReaderSharing, AReaderFollowsAWriter) {
  for (const bool has_shared : {true, false}) {
    ASSERT_EQ(chmod(folder_.c_str(), 0755), 0);
    (void)chmod(path_.c_str(), S_IRUSR | S_IWUSR);
    auto writer = opened();
    write_and_commit(*writer, kUrl, "before");
    give_away();
    ASSERT_EQ(chmod(path_.c_str(), S_IRUSR), 0);
    if (!has_shared) std::filesystem::remove(path_ + "-shared");
    const Signal is_read;
    const Signal is_written;
    const Owner reader([&] {
      const auto store = opened();
      ASSERT_NE(store, nullptr);
      EXPECT_EQ(store->tree().value(kUrl), "before");
      is_read.give();
      is_written.wait();
      EXPECT_EQ(store->tree().value(kUrl), "after");
      EXPECT_EQ(store->tree().value(kUrl), "after");
      expect_writes_refused(*store);
      EXPECT_EQ(is_there(path_ + "-shared"), has_shared);
    });
    is_read.wait();
    write_and_commit(*writer, kUrl, "after");
    is_written.give();
  }
}

TEST_F(StoreReaderSharing, AReaderFollowsAWriterThatComesLater) {
  for (const bool has_shared : {true, false}) {
    (void)chmod(path_.c_str(), S_IRUSR | S_IWUSR);
    make_for_reading("before");
    if (!has_shared) std::filesystem::remove(path_ + "-shared");
    const Signal is_read;
    const Signal is_written;
    const Signal is_followed;
    const Owner reader([&] {
      const auto store = opened();
      ASSERT_NE(store, nullptr);
      EXPECT_EQ(store->tree().value(kUrl), "before");
      is_read.give();
      for (const char* text : {"first", "second", "third"}) {
        is_written.wait();
        EXPECT_EQ(store->tree().value(kUrl), text);
        is_followed.give();
      }
    });
    is_read.wait();
    ASSERT_EQ(chmod(path_.c_str(), 0600), 0);
    auto writer = opened();
    write_and_commit(*writer, kUrl, "first");
    is_written.give();
    is_followed.wait();
    write_and_commit(*writer, kUrl, "second");
    is_written.give();
    is_followed.wait();
    writer.reset();
    write_and_commit(*opened(), kUrl, "third");
    is_written.give();
  }
}

TEST_F(StoreReaderSharing, AReaderOfALeftLogFollowsAWriterThatComesLater) {
  if (geteuid() != 0) GTEST_SKIP() << "only an administrator can write the file, too";
  make_with_log("before");
  for (const std::string& file : files()) ASSERT_EQ(chmod(file.c_str(), S_IRUSR), 0);
  const Signal is_read;
  const Signal is_written;
  const Owner reader([&] {
    const auto store = opened();
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(store->tree().value(kUrl), "before");
    is_read.give();
    is_written.wait();
    EXPECT_EQ(store->tree().value(kUrl), "after");
  });
  is_read.wait();
  write_and_commit(*opened(), kUrl, "after");
  is_written.give();
}

}  // namespace
