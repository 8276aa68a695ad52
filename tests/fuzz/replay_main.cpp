// Runs a harness over files and all files of folders, in the order of their names. In builds
// without libFuzzer this is how its inputs stay tests.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "harness.h"

namespace {

using Path = std::filesystem::path;

std::vector<Path> inputs_in(const Path& place) {
  if (!std::filesystem::is_directory(place)) return {place};
  std::vector<Path> inputs;
  for (const auto& entry : std::filesystem::directory_iterator(place)) {
    if (entry.is_regular_file()) inputs.push_back(entry.path());
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

// The name comes first, so that it is the last line when the input ends the program; not through
// stderr, which a harness may take away.
bool replay(const Path& input) {
  (void)dprintf(STDERR_FILENO, "%s\n", input.c_str());
  std::ifstream file(input, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  if (!file) return false;
  // A copy of exactly this size, so that a sanitizer sees a step beyond it.
  const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
  (void)LLVMFuzzerTestOneInput(data.data(), data.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  (void)LLVMFuzzerInitialize(&argc, &argv);
  int replayed = 0;
  for (int i = 1; i < argc; ++i) {
    for (const Path& input : inputs_in(argv[i])) {
      if (!replay(input)) return 1;
      ++replayed;
    }
  }
  (void)dprintf(STDERR_FILENO, "%d inputs\n", replayed);
  return replayed > 0 ? 0 : 1;
}
