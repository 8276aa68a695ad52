#include "harness.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace fuzz {
namespace {

constexpr std::size_t kShown = 300;  // bytes of each text

// Not through stderr: a harness may have taken it away from the messages of what it tries.
void tell(const std::string& line) { (void)!write(STDERR_FILENO, line.data(), line.size()); }

std::string escaped(const std::string& text) {
  std::string shown;
  for (const char letter : text.substr(0, kShown)) {
    const bool plain = letter >= ' ' && letter <= '~';
    char code[8] = {letter};
    if (!plain) {
      (void)std::snprintf(code, sizeof(code), "\\x%02x", static_cast<unsigned char>(letter));
    }
    shown += code;
  }
  return shown;
}

}  // namespace

void require(bool holds, const char* rule) {
  if (holds) return;
  tell(std::string("broken: ") + rule + '\n');
  std::abort();
}

void require_same(const std::string& is, const std::string& expected, const char* rule) {
  if (is == expected) return;
  const std::size_t common = std::min(is.size(), expected.size());
  std::size_t at = 0;
  while (at < common && is[at] == expected[at]) ++at;
  const std::size_t line = at == 0 ? 0 : is.rfind('\n', at - 1) + 1;
  tell("is       " + escaped(is.substr(line)) + "\nexpected " +
       escaped(expected.substr(std::min(line, expected.size()))) + '\n');
  require(false, rule);
}

}  // namespace fuzz

// The library's trace goes nowhere, and no harness reaches the store of whoever runs it.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  (void)setenv("IGD_STORE", ":memory:", 1);
  fuzz::require(std::freopen("/dev/null", "w", stdout) != nullptr, "the trace can be dropped");
  return 0;
}
