// The files of a store under the feet of those who have it open: cut short, moved away, replaced,
// or not what they should be.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "store_bench.h"

namespace {

using namespace store_tests;

class StoreFiles : public StoreBench {
 protected:
  static void write_and_commit(Store& store, const std::string& name, const std::string& text) {
    EXPECT_EQ(store.tree().set_value(name, text), 0);
    const StoreResult result = store.commit();
    EXPECT_TRUE(result.ok()) << result.text;
  }

  // As `mv` and the next program that uses the name do.
  void move_aside() const {
    std::filesystem::create_directory(folder_ + "/aside");
    for (const char* end : {"", "-wal", "-shm"}) {
      const std::string name = path_ + end;
      if (!std::filesystem::exists(name)) continue;
      std::filesystem::rename(name, folder_ + "/aside/gateway.db" + end);
    }
  }

  std::string moved() const { return folder_ + "/aside/gateway.db"; }
  const std::string& shared() const { return shared_; }

  template <class Action>
  static int status_of(Action action) {
    const pid_t child = fork();
    if (child == 0) _exit(action());
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
  }

 private:
  const std::string shared_ = path_ + "-shared";
};

TEST_F(StoreFiles, NothingIsWrittenToAFileThatWasReplaced) {
  auto store = opened();
  write_and_commit(*store, kUrl, "old");
  move_aside();
  write_and_commit(*opened(), kUrl, "new");
  EXPECT_EQ(store->tree().set_value(kUser, "x"), 0);
  EXPECT_EQ(store->commit().error, StoreError::kReplaced);
  EXPECT_EQ(store->tree().value(kUrl), "new");
  write_and_commit(*store, kUser, "y");
  EXPECT_EQ(opened()->tree().value(kUser), "y");
  path_ = moved();
  EXPECT_EQ(opened()->tree().value(kUser), "");
}

TEST_F(StoreFiles, ABatchOnAReplacedFileIsLostWithAWordAlsoWhenReadsFollowFirst) {
  auto store = opened();
  EXPECT_EQ(store->tree().set_value(kUser, "x"), 0);
  move_aside();
  auto next = opened();
  std::filesystem::remove(shared());  // the lock of the old file's batch holds for the new one, too
  next = opened();
  write_and_commit(*next, kUrl, "new");
  EXPECT_NE(store->commit().error, StoreError::kNone);
  EXPECT_EQ(next->tree().value(kUser), "");
  EXPECT_EQ(store->tree().value(kUrl), "new");
}

TEST_F(StoreFiles, WhatWasReadOfTheOldFileIsNoGroundToWriteToTheNewOne) {
  auto store = opened();
  write_and_commit(*store, kUrl, "old");
  EXPECT_EQ(store->tree().value(kUrl), "old");
  move_aside();
  write_and_commit(*opened(), kUrl, "newer");
  write_and_commit(*opened(), kUrl, "new");
  EXPECT_NE(store->tree().set_value(kUser, "x"), 0);
  EXPECT_EQ(store->commit().error, StoreError::kMovedOn);
}

TEST_F(StoreFiles, AFileThatIsGoneIsNotMadeAnew) {
  auto store = opened();
  write_and_commit(*store, kUrl, "kept");
  move_aside();
  EXPECT_EQ(store->tree().set_value(kUrl, "lost"), 0);
  EXPECT_EQ(store->commit().error, StoreError::kReplaced);
  EXPECT_EQ(store->tree().value(kUrl), "kept");
  EXPECT_EQ(store->make_checkpoint("c").error, StoreError::kReplaced);
  EXPECT_FALSE(std::filesystem::exists(path_));
  std::filesystem::rename(moved(), path_);  // it comes back
  if (std::filesystem::exists(moved() + "-wal")) {
    std::filesystem::rename(moved() + "-wal", path_ + "-wal");
  }
  write_and_commit(*store, kUrl, "again");
}

TEST_F(StoreFiles, ABatchIsLostWithAWordWhenTheFileThatReplacedTheStoreCannotBeOpened) {
  auto store = opened();
  EXPECT_EQ(store->tree().set_value(kUser, "x"), 0);
  move_aside();
  write_file(path_, "no database at all, but long enough");
  std::filesystem::resize_file(shared(), 0);  // sends the next read to the files
  (void)store->tree();
  (void)store->tree();
  EXPECT_NE(store->commit().error, StoreError::kNone);
}

TEST_F(StoreFiles, ClosingAStoreThatWasReplacedLeavesTheLogOfTheNewOne) {
  auto store = opened();
  write_and_commit(*store, kUrl, "old");
  move_aside();
  auto next = opened();
  write_and_commit(*next, kUrl, "new");
  store.reset();
  write_and_commit(*next, kUser, "x");
  EXPECT_EQ(status_of([this] {
              auto reader = Store::open(path_, {}, nullptr);
              return reader != nullptr && reader->tree().value(kUser) == "x" ? 0 : 1;
            }),
            0);
}

TEST_F(StoreFiles, ASharedFileThatWasCutShortEndsNoProcess) {
  const auto cut_and_go_on = [this] {
    auto store = Store::open(path_, {}, nullptr);
    if (store == nullptr || truncate(shared().c_str(), 0) != 0) return 1;
    (void)store->tree().value(kUrl);
    return store->tree().set_value(kUrl, "after") == 0 && store->commit().ok() ? 0 : 2;
  };
  EXPECT_EQ(status_of(cut_and_go_on), 0);
  EXPECT_EQ(opened()->tree().value(kUrl), "after");
}

TEST_F(StoreFiles, ABatchIsLostWithAWordWhenTheSharedFileIsCutShort) {
  const auto cut_in_a_batch = [this] {
    auto store = Store::open(path_, {}, nullptr);
    if (store == nullptr || store->tree().set_value(kUrl, "lost") != 0) return 1;
    if (truncate(shared().c_str(), 0) != 0) return 2;
    if (store->commit().error != StoreError::kIo) return 3;
    return store->tree().set_value(kUrl, "after") == 0 && store->commit().ok() ? 0 : 4;
  };
  EXPECT_EQ(status_of(cut_in_a_batch), 0);
  EXPECT_EQ(opened()->tree().value(kUrl), "after");
}

TEST_F(StoreFiles, OthersFollowWhenTheSharedFileWasCutShort) {
  auto other = opened();
  EXPECT_EQ(status_of([this] {
              auto store = Store::open(path_, {}, nullptr);
              if (truncate(shared().c_str(), 0) != 0) return 1;
              (void)store->tree().value(kUrl);
              return store->tree().set_value(kUrl, "x") == 0 && store->commit().ok() ? 0 : 2;
            }),
            0);
  EXPECT_EQ(other->tree().value(kUrl), "x");
  write_and_commit(*other, kUser, "y");
  EXPECT_EQ(opened()->tree().value(kUser), "y");
}

// The signal that a damaged mapping of the program's own raises goes where the program wants it.
TEST_F(StoreFiles, OtherBusErrorsGoToTheProgramsOwnHandler) {
  const auto own_handler = [this] {
    (void)signal(SIGBUS, [](int) { _exit(7); });
    auto store = Store::open(path_, {}, nullptr);
    (void)raise(SIGBUS);
    return store == nullptr ? 1 : 2;
  };
  EXPECT_EQ(WEXITSTATUS(status_of(own_handler)), 7);
  const auto none = [this] {
    (void)signal(SIGBUS, SIG_DFL);  // a sanitizer has a handler of its own
    auto store = Store::open(path_, {}, nullptr);
    (void)raise(SIGBUS);
    return store == nullptr ? 1 : 2;
  };
  const int status = status_of(none);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGBUS) << status;
}

TEST_F(StoreFiles, TheSharedFileIsNoDescriptorThatProgramsPrintTo) {
  opened();
  const auto printing = [this] {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) (void)close(descriptor);
    auto store = Store::open(path_, {}, nullptr);
    if (store == nullptr) return 1;
    const std::string secret = "the trace of a password";
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
      if (write(descriptor, secret.data(), secret.size()) >= 0) return 2;
    }
    return store->tree().set_value(kUrl, "x") == 0 && store->commit().ok() ? 0 : 3;
  };
  EXPECT_EQ(status_of(printing), 0);
  EXPECT_EQ(content_of(shared()).find("trace"), std::string::npos);
}

TEST_F(StoreFiles, TheSharedFileIsNeverFoundThroughALink) {
  opened();
  const std::string victim = folder_ + "/victim";
  write_file(victim, "precious");
  std::filesystem::remove(shared());
  std::filesystem::create_symlink(victim, shared());
  EXPECT_EQ(error_on_open(), StoreError::kNotOpened);
  std::filesystem::remove(shared());
  std::filesystem::create_hard_link(victim, shared());
  EXPECT_EQ(error_on_open(), StoreError::kNotOpened);
  std::filesystem::remove(shared());
  EXPECT_EQ(mkfifo(shared().c_str(), 0600), 0);
  EXPECT_EQ(error_on_open(), StoreError::kNotOpened);
  EXPECT_EQ(content_of(victim), "precious");
}

TEST_F(StoreFiles, ASharedFileThatOthersMayUseIsRefused) {
  opened();
  ASSERT_EQ(chmod(shared().c_str(), 0666), 0);
  EXPECT_EQ(error_on_open(), StoreError::kNotPrivate);
}

TEST_F(StoreFiles, AnAdministratorMakesTheSharedFileForTheOwnerOfTheStore) {
  if (geteuid() != 0) GTEST_SKIP() << "only an administrator can";
  constexpr uid_t kSomebody = 65534;
  opened();
  for (const char* end : {"", "-wal", "-shm"})
    (void)chown((path_ + end).c_str(), kSomebody, kSomebody);
  std::filesystem::remove(shared());
  opened();
  struct stat status = {};
  ASSERT_EQ(stat(shared().c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, kSomebody);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

}  // namespace
