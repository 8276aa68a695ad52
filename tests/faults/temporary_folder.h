#ifndef TESTS_PROOF_TEMPORARY_FOLDER_H
#define TESTS_PROOF_TEMPORARY_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <string>

namespace proof {

// A folder that lasts as long as the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "proof.XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    path_ = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace proof

#endif  // TESTS_PROOF_TEMPORARY_FOLDER_H
