// The store behind getContext(): where it is, and what a program sees of it.
#include <sys/stat.h>

#include <optional>

#include "client.h"
#include "store_bench.h"
#include "synced_folders.h"

namespace {

using namespace store_tests;

class ProcessStore : public StoreBench {
 protected:
  std::string ran(Words words) { return Client({"IGD_STORE=" + path_}, std::move(words)).finish(); }

  // The default path of a process with such an environment; "" as root's would need to be root.
  static std::string default_path(const Words& environment, uid_t user) {
    int ends[2] = {};
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      for (const char* name : {"IGD_STORE", "XDG_STATE_HOME", "HOME"}) (void)unsetenv(name);
      for (const std::string& pair : environment) (void)putenv(const_cast<char*>(pair.c_str()));
      if (geteuid() != user && seteuid(user) != 0) _exit(1);
      const std::string path = host::default_store_path();
      _exit(write(ends[1], path.data(), path.size()) < 0 ? 1 : 0);
    }
    (void)close(ends[1]);
    char buffer[4096];
    const ssize_t size = read(ends[0], buffer, sizeof buffer);
    (void)close(ends[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    return {buffer, static_cast<std::size_t>(size)};
  }

  // How a process ends that does this.
  template <typename Action>
  static int ended(const Action& action) {
    const pid_t child = fork();
    if (child == 0) _exit(action());
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
  }
};

std::optional<timespec> changed_at(const char* path) {
  struct stat status = {};
  if (stat(path, &status) != 0) return std::nullopt;
  return status.st_ctim;
}

ino_t number_of(const std::string& folder) {
  struct stat status = {};
  return stat(folder.c_str(), &status) == 0 ? status.st_ino : 0;
}

TEST_F(ProcessStore, IsTheOneThatTheEnvironmentNames) {
  EXPECT_EQ(ran({"set", kUrl, "x", "commit"}), "0\n0\n");
  EXPECT_EQ(ran({"get", kUrl, "get", kBridges + "1.BridgeName"}), "x\ninternet\n");
}

TEST_F(ProcessStore, IsInTheUsersStateFolderByDefault) {
  constexpr uid_t kSomebody = 65534;
  const uid_t user = geteuid() == 0 ? kSomebody : geteuid();
  EXPECT_EQ(default_path({"IGD_STORE=/a/b.db", "HOME=/h"}, user), "/a/b.db");
  EXPECT_EQ(default_path({"IGD_STORE=", "XDG_STATE_HOME=/s", "HOME=/h"}, user),
            "/s/igd/gateway.db");
  EXPECT_EQ(default_path({"HOME=/h"}, user), "/h/.local/state/igd/gateway.db");
  EXPECT_EQ(default_path({}, user), "");
}

TEST_F(ProcessStore, IsInTheSystemsStateFolderForRoot) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can tell";
  EXPECT_EQ(default_path({"XDG_STATE_HOME=/s", "HOME=/h"}, 0), "/var/lib/igd/gateway.db");
}

TEST_F(ProcessStore, TouchesNoDefaultPathWhenOneIsNamed) {
  const auto before = changed_at("/var/lib/igd/gateway.db");
  const Words places = {"XDG_STATE_HOME=" + folder_ + "/state", "HOME=" + folder_ + "/home"};
  for (const std::string& named : {path_, std::string(":memory:")}) {
    Words environment = places;
    environment.push_back("IGD_STORE=" + named);
    EXPECT_EQ(Client(environment, {"set", kUrl, "x", "commit"}).finish(), "0\n0\n");
  }
  EXPECT_FALSE(std::filesystem::exists(folder_ + "/state"));
  EXPECT_FALSE(std::filesystem::exists(folder_ + "/home"));
  const auto after = changed_at("/var/lib/igd/gateway.db");
  ASSERT_EQ(before.has_value(), after.has_value());
  if (before) {
    EXPECT_EQ(before->tv_sec, after->tv_sec);
    EXPECT_EQ(before->tv_nsec, after->tv_nsec);
  }
}

// Where the file goes when nothing names it, whatever the user's umask lets others see. The name of
// each is synced, up to the folder that was there: a power cut must not take the store with it.
TEST_F(ProcessStore, MakesItsFoldersForTheirOwnerAlone) {
  constexpr uid_t kSomebody = 65534;
  ASSERT_EQ(chmod(folder_.c_str(), 0777), 0);
  const std::string state_folder = folder_ + "/a/state";
  const int status = ended([this, &state_folder] {
    (void)unsetenv("IGD_STORE");
    (void)setenv("XDG_STATE_HOME", state_folder.c_str(), 1);
    (void)umask(0);
    if (geteuid() == 0 && seteuid(kSomebody) != 0) return 1;
    const std::vector<ino_t> synced_before = synced_folders();
    const bool is_open = host::process_store() != nullptr;
    std::vector<ino_t> expected = synced_before;
    for (const std::string& parent : {folder_, folder_ + "/a", state_folder}) {
      expected.push_back(number_of(parent));
    }
    return is_open && synced_folders() == expected ? 0 : 2;
  });
  EXPECT_EQ(status, 0);
  for (const std::string& made : {folder_ + "/a", state_folder, state_folder + "/igd"}) {
    struct stat made_status = {};
    ASSERT_EQ(stat(made.c_str(), &made_status), 0) << made;
    EXPECT_EQ(made_status.st_mode & 0777U, 0700U) << made;
  }
  EXPECT_TRUE(std::filesystem::exists(state_folder + "/igd/gateway.db"));
}

TEST_F(ProcessStore, SaysWhatCouldNameAFileWhenNothingDoes) {
  constexpr uid_t kSomebody = 65534;
  const int status = ended([] {
    for (const char* name : {"IGD_STORE", "XDG_STATE_HOME", "HOME"}) (void)unsetenv(name);
    if (geteuid() == 0 && seteuid(kSomebody) != 0) return 1;
    StoreResult result;
    const bool is_told = host::process_store(&result) == nullptr &&
                         result.error == StoreError::kNotOpened &&
                         result.text == "none of IGD_STORE, XDG_STATE_HOME and HOME is set";
    return is_told ? 0 : 2;
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ProcessStore, GivesNoContextWhenItCannotBeOpenedAndSaysSoOnce) {
  write_file(path_, "damaged");
  const std::string printed = ran({"context", "context", "context"});
  EXPECT_EQ(printed.substr(0, 5), "log: ");
  EXPECT_NE(printed.find(path_), std::string::npos);
  EXPECT_EQ(printed.substr(printed.find('\n')), "\nnone\nnone\nnone\n");
  EXPECT_EQ(content_of(path_), "damaged");
}

TEST_F(ProcessStore, TakesNoWriteWhenItCannotBeOpenedButAnotherTreeDoes) {
  write_file(path_, "damaged");
  const int status = ended([this] {
    (void)setenv("IGD_STORE", path_.c_str(), 1);
    StoreResult result;
    const bool is_refused = host::process_store(&result) == nullptr &&
                            result.error == StoreError::kCorrupt &&
                            host::active_tree().set_value(kUrl, "x") != 0 &&
                            host::active_tree().refusals().size() == 1 && getContext() == nullptr;
    host::Tree other;
    (void)host::exchange_active_tree(&other);
    return is_refused && getContext() != nullptr ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ProcessStore, MakesNoFolderForAFileThatIsNamed) {
  path_ = folder_ + "/missing/gateway.db";
  EXPECT_EQ(ran({"context"}).substr(0, 5), "log: ");
  EXPECT_FALSE(std::filesystem::exists(folder_ + "/missing"));
}

TEST_F(ProcessStore, SaysOnceHoweverOftenItIsTried) {
  write_file(path_, "damaged");
  Client client({"IGD_STORE=" + path_},
                {"context", "make", folder_ + "/tried", "wait-for", folder_ + "/later", "context"});
  while (!std::filesystem::exists(folder_ + "/tried")) usleep(1000);
  usleep(1100000);  // tries are at least a second apart
  write_file(folder_ + "/later", "");
  const std::string printed = client.finish();
  EXPECT_EQ(printed.substr(printed.find('\n')), "\nnone\nnone\n");
}

TEST_F(ProcessStore, IsTriedAgainWhenItCanBeOpened) {
  write_file(path_, "damaged");
  Client client({"IGD_STORE=" + path_}, {"context", "make", folder_ + "/tried", "wait-for",
                                         folder_ + "/repaired", "context"});
  while (!std::filesystem::exists(folder_ + "/tried")) usleep(1000);
  std::filesystem::remove(path_);
  usleep(1100000);  // tries are at least a second apart
  write_file(folder_ + "/repaired", "");
  const std::string printed = client.finish();
  EXPECT_EQ(printed.substr(printed.find('\n')), "\nnone\ncontext\n");
}

TEST_F(ProcessStore, IsTheStoreAgainWhenItsTreeIsPutBack) {
  EXPECT_EQ(ran({"exchange", "set", kUrl, "x", "commit"}), "0\n0\n");
  EXPECT_EQ(ran({"get", kUrl}), "x\n");
}

TEST_F(ProcessStore, KeepsItsBatchOpenWhileACommitIsForAnotherTree) {
  const int status = ended([this] {
    (void)setenv("IGD_STORE", path_.c_str(), 1);
    host::Tree other;
    (void)host::active_tree().set_value(kUrl, "x");
    (void)host::exchange_active_tree(&other);
    const bool is_done = host::mib_access().commit(1) == 0;
    (void)host::exchange_active_tree(nullptr);
    return is_done && host::process_store()->plan().size() == 1 ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(opened()->generation(), 1U);
}

TEST_F(ProcessStore, ReportsAtExitWhatWasNotCommitted) {
  const std::string printed = ran({"set", kUrl, "x"});
  EXPECT_NE(printed.find("1 writes were not committed and are lost"), std::string::npos) << printed;
  EXPECT_EQ(ran({"get", kUrl}), "\n");
}

}  // namespace
