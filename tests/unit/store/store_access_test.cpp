// Whose file a store is: made for its owner alone.
#include <sys/stat.h>

#include "store_bench.h"

namespace {

using namespace store_tests;

const char* const kCompanions[] = {"-wal", "-shm", "-shared"};

struct stat status_of(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status;
}

mode_t mode_of(const std::string& path) { return status_of(path).st_mode & 07777U; }

bool is_there(const std::string& path) { return std::filesystem::exists(path); }

class Umask {
 public:
  explicit Umask(mode_t mask) : before_(umask(mask)) {}
  Umask(const Umask&) = delete;
  Umask& operator=(const Umask&) = delete;
  ~Umask() { (void)umask(before_); }

 private:
  mode_t before_;
};

class StoreAccess : public StoreBench {
 protected:
  std::vector<std::string> files() const {
    std::vector<std::string> names = {path_};
    for (const char* end : kCompanions) names.push_back(path_ + end);
    return names;
  }

  void write_and_commit(Store& store, const std::string& name, const std::string& text) {
    EXPECT_EQ(store.tree().set_value(name, text), 0);
    const StoreResult result = store.commit();
    EXPECT_TRUE(result.ok()) << result.text;
  }
};

TEST_F(StoreAccess, MakesItsFilesForTheOwnerAloneWhateverTheUmask) {
  for (const mode_t mask : {0000, 0022, 0277, 0777}) {
    const Umask masked(mask);
    {
      const auto store = opened();
      ASSERT_NE(store, nullptr);
      write_and_commit(*store, kUrl, "x");
      for (const std::string& file : files()) EXPECT_EQ(mode_of(file), 0600U) << file << mask;
    }
    for (const std::string& file : files()) std::filesystem::remove(file);
  }
}

TEST_F(StoreAccess, MakesItsFilesForTheOwnerAloneBehindADanglingLink) {
  std::filesystem::create_directory(folder_ + "/disk");
  std::filesystem::create_symlink("link2", folder_ + "/link");
  std::filesystem::create_symlink("disk/store.db", folder_ + "/link2");
  path_ = folder_ + "/link";
  const auto store = opened();
  ASSERT_NE(store, nullptr);
  write_and_commit(*store, kUrl, "x");
  EXPECT_EQ(store->path(), std::filesystem::canonical(folder_).string() + "/disk/store.db");
  EXPECT_FALSE(is_there(path_ + "-shared"));
  path_ = folder_ + "/disk/store.db";
  for (const std::string& file : files()) EXPECT_EQ(mode_of(file), 0600U) << file;
}

TEST_F(StoreAccess, RefusesLinksThatLeadNowhere) {
  std::filesystem::create_symlink("no/folder/store.db", folder_ + "/link");
  std::filesystem::create_symlink("circle", folder_ + "/circle");
  for (const char* name : {"/link", "/circle"}) {
    path_ = folder_ + name;
    EXPECT_EQ(error_on_open(), StoreError::kNotOpened) << name;
    EXPECT_FALSE(is_there(path_ + "-shared"));
  }
}

TEST_F(StoreAccess, TakesAnEmptyFileOverForItsOwnerAlone) {
  const Umask usual(0022);
  write_file(path_, "");
  ASSERT_EQ(mode_of(path_), 0644U);
  const auto store = opened();
  ASSERT_NE(store, nullptr);
  write_and_commit(*store, kUrl, "x");
  for (const std::string& file : files()) EXPECT_EQ(mode_of(file), 0600U) << file;
}

}  // namespace
