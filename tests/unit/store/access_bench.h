// Stores of which the tests look at owners and modes, and processes of their owner.
#ifndef TESTS_STORE_ACCESS_BENCH_H
#define TESTS_STORE_ACCESS_BENCH_H

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "store_bench.h"

namespace store_tests {

inline constexpr uid_t kSomebody = 65534;
inline constexpr const char* kCompanions[] = {"-wal", "-shm", "-shared"};

inline struct stat status_of(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status;
}

inline mode_t mode_of(const std::string& path) { return status_of(path).st_mode & 07777U; }

inline bool is_there(const std::string& path) { return std::filesystem::exists(path); }

// A process that runs an action as the owner of the store, who is no administrator.
class Owner {
 public:
  template <class Action>
  explicit Owner(const Action& action) : process_(fork()) {
    if (process_ != 0) return;
    if (geteuid() == 0 && (setegid(kSomebody) != 0 || seteuid(kSomebody) != 0)) _exit(2);
    action();
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() {
    int status = 0;
    EXPECT_EQ(waitpid(process_, &status, 0), process_);
    EXPECT_EQ(status, 0);
  }

 private:
  pid_t process_;
};

// Names, modes, owners and bytes of the files in a folder, without the bytes of the log's index.
using Picture = std::map<std::string, std::tuple<mode_t, uid_t, std::string>>;

class AccessBench : public StoreBench {
 protected:
  std::vector<std::string> files() const {
    std::vector<std::string> names = {path_};
    for (const char* end : kCompanions) names.push_back(path_ + end);
    return names;
  }

  Picture picture() const {
    Picture picture;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      const std::string name = entry.path();
      const struct stat status = status_of(name);
      const bool is_index = entry.path().extension() == ".db-shm";
      picture[name] = {status.st_mode, status.st_uid, is_index ? "" : content_of(name)};
    }
    return picture;
  }

  // Everything that is there belongs to somebody who is no administrator.
  void give_away() const {
    if (geteuid() != 0) return;
    EXPECT_EQ(chown(folder_.c_str(), kSomebody, kSomebody), 0);
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      EXPECT_EQ(chown(entry.path().c_str(), kSomebody, kSomebody), 0);
    }
  }

  void write_and_commit(Store& store, const std::string& name, const std::string& text) {
    EXPECT_EQ(store.tree().set_value(name, text), 0);
    const StoreResult result = store.commit();
    EXPECT_TRUE(result.ok()) << result.text;
  }

  StoreResult refusal() {
    StoreResult result;
    EXPECT_EQ(Store::open(path_, {}, &result), nullptr);
    return result;
  }
};

// Those of which some processes may only read the files.
class ReaderBench : public AccessBench {
 protected:
  ~ReaderBench() override {
    (void)umount2(folder_.c_str(), MNT_DETACH);
    (void)chmod(folder_.c_str(), S_IRWXU);
  }

  // A store with this text, whose file its owner may only read.
  void make_for_reading(const std::string& text) {
    write_and_commit(*opened(), kUrl, text);
    give_away();
    EXPECT_EQ(chmod(path_.c_str(), S_IRUSR), 0);
  }

  // The same, ended as programs do that never close their store: the text is in the log.
  void make_with_log(const std::string& text) {
    const pid_t process = fork();
    if (process == 0) {
      Store* const store = Store::open(path_, {}, nullptr).release();
      write_and_commit(*store, kUrl, text);
      _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    ASSERT_EQ(status, 0);
    ASSERT_GT(std::filesystem::file_size(path_ + "-wal"), 0U);
    give_away();
  }

  // Nothing can be made beside the store any more.
  void close_folder() const {
    EXPECT_EQ(chown(folder_.c_str(), geteuid(), getegid()), 0);
    EXPECT_EQ(chmod(folder_.c_str(), 0555), 0);
  }

  // Reads the text, finds every write refused, and leaves the disk as it was.
  void expect_read_only(const std::string& text) {
    const Picture before = picture();
    {
      const Owner reader([&] {
        const auto store = opened();
        ASSERT_NE(store, nullptr);
        EXPECT_EQ(store->tree().value(kUrl), text);
        EXPECT_FALSE(store->checkpoints().empty());
        expect_writes_refused(*store);
        EXPECT_EQ(store->tree().value(kUrl), text);
      });
    }
    EXPECT_EQ(picture(), before);
  }

  static void expect_writes_refused(Store& store) {
    EXPECT_NE(store.tree().set_value(kUrl, "refused"), 0);
    EXPECT_EQ(store.commit().error, StoreError::kReadOnly);
    EXPECT_TRUE(store.commit().ok());
    EXPECT_EQ(store.begin().error, StoreError::kReadOnly);
    EXPECT_EQ(store.begin_trial().error, StoreError::kReadOnly);
    EXPECT_EQ(store.make_checkpoint("name").error, StoreError::kReadOnly);
    EXPECT_EQ(store.delete_checkpoint("name").error, StoreError::kReadOnly);
    EXPECT_EQ(store.restore("@1").error, StoreError::kReadOnly);
    EXPECT_EQ(store.confirm().error, StoreError::kReadOnly);
    EXPECT_EQ(store.revert().error, StoreError::kReadOnly);
  }
};

}  // namespace store_tests

#endif  // TESTS_STORE_ACCESS_BENCH_H
