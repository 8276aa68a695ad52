// Exports into files: whole or not at all, and readable by nobody else.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <string>

#include "host_platform.h"
#include "tree_text.h"

namespace {

namespace fs = std::filesystem;
using host::ExportResult;
using host::Tree;

std::string content_of(const fs::path& file) {
  std::ifstream input(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(input), {}};
}

struct Format {
  const char* name;
  ExportResult (*to_file)(const Tree&, const std::string&);
  ExportResult (*to_stream)(const Tree&, std::ostream&);
};
std::ostream& operator<<(std::ostream& out, const Format& format) { return out << format.name; }

// A folder of its own for each test.
class ExportFile : public testing::TestWithParam<Format> {
 protected:
  ExportFile() {
    std::string name = testing::TempDir() + "/igd-export-XXXXXX";
    folder_ = mkdtemp(name.data());
  }
  ~ExportFile() override { fs::remove_all(folder_); }

  ExportResult written(const fs::path& file) const { return GetParam().to_file(tree_, file); }

  std::string expected_text() const {
    std::ostringstream text;
    (void)GetParam().to_stream(tree_, text);
    return text.str();
  }

  std::ptrdiff_t files() const {
    return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
  }

  Tree tree_ = Tree::factory();
  fs::path folder_;
};

TEST_P(ExportFile, HoldsWhatTheStreamHolds) {
  const fs::path file = folder_ / "tree";
  const ExportResult result = written(file);
  EXPECT_TRUE(result.ok) << result.error;
  EXPECT_EQ(result.parameters, tree_.parameters().size());
  EXPECT_TRUE(content_of(file) == expected_text());
  EXPECT_EQ(files(), 1);
}

TEST_P(ExportFile, IsForItsOwnerAlone) {
  const fs::path file = folder_ / "tree";
  std::ofstream(file) << "old";
  fs::permissions(file, fs::perms(0644));
  const mode_t mask = umask(0);
  EXPECT_TRUE(written(file).ok);
  umask(mask);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
}

TEST_P(ExportFile, ReplacesAFile) {
  const fs::path file = folder_ / "tree";
  std::ofstream(file) << std::string(1000000, 'x');
  EXPECT_TRUE(written(file).ok);
  EXPECT_TRUE(content_of(file) == expected_text());
  EXPECT_EQ(files(), 1);
}

TEST_P(ExportFile, InPlaceOfALinkIsRefused) {
  std::ofstream(folder_ / "target") << "stays";
  fs::create_symlink("target", folder_ / "tree");
  fs::create_symlink("nowhere", folder_ / "dangling");
  for (const char* name : {"tree", "dangling"}) {
    EXPECT_EQ(written(folder_ / name).error, (folder_ / name).string() + ": is a symbolic link");
    EXPECT_TRUE(fs::is_symlink(folder_ / name));
  }
  EXPECT_EQ(content_of(folder_ / "target"), "stays");
  EXPECT_EQ(files(), 3);
}

TEST_P(ExportFile, InAFolderThatCannotBeWrittenIsRefused) {
  const fs::path file = folder_ / "tree";
  std::ofstream(file) << "old";
  fs::permissions(folder_, fs::perms(0555));
  fs::permissions(file, fs::perms(0666));
  const uid_t user = geteuid();
  constexpr uid_t kNobody = 65534;  // nothing is forbidden to root
  if (user == 0 && seteuid(kNobody) != 0) GTEST_SKIP() << "the user cannot be changed";
  const ExportResult result = written(file);
  ASSERT_EQ(seteuid(user), 0);
  fs::permissions(folder_, fs::perms(0755));
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, file.string() + ": cannot be written: Permission denied");
  EXPECT_EQ(content_of(file), "old");
  EXPECT_EQ(files(), 1);
}

TEST_P(ExportFile, InAMissingFolderIsRefusedByName) {
  const std::string file = folder_ / "missing" / "tree";
  EXPECT_EQ(written(file).error, file + ": cannot be written: No such file or directory");
}

TEST_P(ExportFile, InPlaceOfAFolderIsRefused) {
  const ExportResult result = written(folder_);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, folder_.string() + ": is a folder");
  EXPECT_EQ(files(), 0);
}

TEST_P(ExportFile, WithoutANameIsRefused) {
  const ExportResult result = written("");
  EXPECT_FALSE(result.ok);
  EXPECT_NE(result.error, "");
}

TEST_P(ExportFile, InPlaceOfADeviceIsRefused) {
  EXPECT_EQ(written("/dev/full").error, "/dev/full: is not a regular file");
}

TEST_P(ExportFile, ThatCannotBeWrittenLeavesTheOldOne) {
  const fs::path file = folder_ / "tree";
  std::ofstream(file) << "old";
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit small = before;
  small.rlim_cur = 1000;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const ExportResult result = written(file);
  (void)setrlimit(RLIMIT_FSIZE, &before);
  (void)std::signal(SIGXFSZ, handler);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, file.string() + ": cannot be written: File too large");
  EXPECT_EQ(result.parameters, 0U);
  EXPECT_EQ(content_of(file), "old");
  EXPECT_EQ(files(), 1);
}

INSTANTIATE_TEST_SUITE_P(Export, ExportFile,
                         testing::Values(Format{"Csv", &host::export_csv_file, &host::export_csv},
                                         Format{"Json", &host::export_json_file,
                                                &host::export_json}),
                         [](const auto& format) { return std::string(format.param.name); });

TEST(ExportCsvFile, ImportsBack) {
  std::string name = testing::TempDir() + "/igd-export-XXXXXX";
  const fs::path folder = mkdtemp(name.data());
  const Tree tree = Tree::factory();
  ASSERT_TRUE(host::export_csv_file(tree, folder / "tree.csv").ok);
  Tree copy;
  EXPECT_TRUE(host::import_csv_file(copy, folder / "tree.csv").ok);
  EXPECT_TRUE(host_tests::whole_text(copy) == host_tests::whole_text(tree));
  fs::remove_all(folder);
}

}  // namespace
