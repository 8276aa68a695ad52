// Whose file a store is: made for its owner alone, refused when others can use it.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "access_bench.h"

namespace {

using namespace store_tests;

using StoreAccess = AccessBench;

class Umask {
 public:
  explicit Umask(mode_t mask) : before_(umask(mask)) {}
  Umask(const Umask&) = delete;
  Umask& operator=(const Umask&) = delete;
  ~Umask() { (void)umask(before_); }

 private:
  mode_t before_;
};

TEST_F(StoreAccess, MakesItsFilesForTheOwnerAloneWhateverTheUmask) {
  for (const mode_t mask : {0000U, 0022U, 0277U, 0777U}) {
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

TEST_F(StoreAccess, RefusesFilesThatOthersCanUseAndNamesTheRemedy) {
  for (const char* end : {"", "-wal", "-shm", "-shared"}) {
    const auto other = opened();
    write_and_commit(*other, kUrl, end);  // so that all of them are there
    for (const mode_t mode : {0640U, 0620U, 0604U, 0602U}) {
      ASSERT_EQ(chmod((path_ + end).c_str(), mode), 0);
      const StoreResult result = refusal();
      EXPECT_EQ(result.error, StoreError::kNotPrivate) << end << " " << mode;
      const std::string remedy = "chmod 600 " + std::filesystem::canonical(path_ + end).string();
      EXPECT_NE(result.text.find(remedy), std::string::npos) << result.text;
    }
    ASSERT_EQ(chmod((path_ + end).c_str(), 0600), 0);
    EXPECT_NE(opened(), nullptr);
  }
}

TEST_F(StoreAccess, ARefusedFileStaysAsItIs) {
  const Umask open_for_all(0);
  write_file(path_, "a letter that everybody may read and write");
  const Picture before = picture();
  EXPECT_EQ(refusal().error, StoreError::kNotPrivate);
  EXPECT_EQ(picture(), before);
}

TEST_F(StoreAccess, TheRemedyCanBeTypedWhateverTheName) {
  path_ = folder_ + "/it's mine.db";
  write_file(path_, "x");
  ASSERT_EQ(chmod(path_.c_str(), 0666), 0);
  const std::string text = refusal().text;
  const std::size_t at = text.find("chmod 600 ");
  ASSERT_NE(at, std::string::npos) << text;
  EXPECT_EQ(std::system(text.substr(at).c_str()), 0) << text;
  EXPECT_EQ(mode_of(path_), 0600U);
}

TEST_F(StoreAccess, RefusesTheStoreOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only an administrator can change owners";
  opened();
  ASSERT_EQ(chmod(folder_.c_str(), 0777), 0);
  const Picture before = picture();
  {
    const Owner other([this] {
      const StoreResult result = refusal();
      EXPECT_EQ(result.error, StoreError::kNotPrivate);
      const std::string remedy = "chown 65534 " + std::filesystem::canonical(path_).string();
      EXPECT_NE(result.text.find(remedy), std::string::npos) << result.text;
    });
  }
  EXPECT_EQ(picture(), before);
}

TEST_F(StoreAccess, RefusesCompanionsOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only an administrator can change owners";
  for (const char* end : kCompanions) {
    const auto other = opened();
    write_and_commit(*other, kUrl, end);  // so that all of them are there
    ASSERT_EQ(chown((path_ + end).c_str(), kSomebody, kSomebody), 0);
    const StoreResult result = refusal();
    EXPECT_EQ(result.error, StoreError::kNotPrivate) << end;
    const std::string remedy = "chown 0 " + std::filesystem::canonical(path_ + end).string();
    EXPECT_NE(result.text.find(remedy), std::string::npos) << result.text;
    ASSERT_EQ(chown((path_ + end).c_str(), 0, 0), 0);
  }
}

TEST_F(StoreAccess, AnAdministratorLeavesOwnersAndModesAsTheyAre) {
  if (geteuid() != 0) GTEST_SKIP() << "only an administrator can change owners";
  opened();
  give_away();
  for (const mode_t mode : {0600U, 0400U}) {
    ASSERT_EQ(chmod(path_.c_str(), mode), 0);
    std::filesystem::remove(path_ + "-shared");
    const auto store = opened();
    ASSERT_NE(store, nullptr);
    write_and_commit(*store, kUrl, "x");
    EXPECT_EQ(mode_of(path_), mode);
    for (const std::string& file : files()) EXPECT_EQ(status_of(file).st_uid, kSomebody) << file;
  }
}

}  // namespace
