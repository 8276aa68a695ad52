// Runs the tests; or, with --write FOLDER, writes every transcript as its file should be.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iostream>

#include "documents.h"

namespace {

bool write_all(const std::string& folder) {
  for (const transcripts::Document& document : transcripts::all_documents()) {
    const std::string path = folder + '/' + document.name + ".txt";
    std::ofstream file(path, std::ios::binary);
    file << document.text();
    file.close();
    if (!file) {
      std::cerr << "cannot write " << path << '\n';
      return false;
    }
  }
  return !testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed();
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc == 3 && std::strcmp(argv[1], "--write") == 0) return write_all(argv[2]) ? 0 : 1;
  return RUN_ALL_TESTS();
}
