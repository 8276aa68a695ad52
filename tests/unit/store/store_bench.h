// A folder of its own for each test, and short words for the stores in it.
#ifndef TESTS_STORE_STORE_BENCH_H
#define TESTS_STORE_STORE_BENCH_H

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "host_store.h"
#include "tree_builder.h"

namespace store_tests {

using namespace host_tests;
using host::Store;
using host::StoreError;
using host::StoreOptions;
using host::StoreResult;

inline const std::string kUrl = kRoot + "ManagementServer.URL";
inline const std::string kUser = kRoot + "ManagementServer.Username";

inline std::string content_of(const std::string& path) {
  std::ifstream input(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(input), {}};
}

inline void write_file(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

inline void run_sql(const std::string& path, const char* sql) {
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &connection), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  sqlite3_close(connection);
}

class StoreBench : public testing::Test {
 protected:
  StoreBench() {
    std::string pattern = testing::TempDir() + "store.XXXXXX";
    folder_ = mkdtemp(pattern.data());
    path_ = folder_ + "/gateway.db";
    options_.lock_timeout_ms = 2000;
    mask_ = umask(S_IRWXG | S_IRWXO);  // no store of these tests is refused for its mode alone
    host::set_debug_sink([this](const char* /*file*/, int /*line*/, const std::string& text) {
      reported_.push_back(text);
    });
  }
  ~StoreBench() override {
    host::set_debug_sink(nullptr);
    (void)umask(mask_);
    std::filesystem::remove_all(folder_);
  }

  std::unique_ptr<Store> opened() {
    StoreResult result;
    auto store = Store::open(path_, options_, &result);
    EXPECT_EQ(result.text, "");
    return store;
  }

  StoreError error_on_open(const StoreOptions& options = {}) {
    StoreResult result;
    EXPECT_EQ(Store::open(path_, options, &result), nullptr);
    EXPECT_NE(result.text, "");
    return result.error;
  }

  bool is_reported(const std::string& part) const {
    for (const std::string& text : reported_) {
      if (text.find(part) != std::string::npos) return true;
    }
    return false;
  }

  std::string folder_;
  std::string path_;
  StoreOptions options_;
  std::vector<std::string> reported_;

 private:
  mode_t mask_;
};

inline std::vector<std::string> lines_of(const host::Tree& tree) {
  std::vector<std::string> lines;
  for (const auto& parameter : tree.parameters()) {
    lines.push_back(parameter.name + "=" + parameter.value);
  }
  return lines;
}

}  // namespace store_tests

#endif  // TESTS_STORE_STORE_BENCH_H
