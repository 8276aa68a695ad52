// Extended regular expressions of the system. (Those of the standard library set off false warnings
// of GCC 12 under the sanitizers.)
#ifndef IGD_TESTS_PATTERN_H
#define IGD_TESTS_PATTERN_H

#include <regex.h>

#include <string>
#include <vector>

namespace transcripts {

/// Matches whole texts only, and none with a NUL byte.
class Pattern {
 public:
  explicit Pattern(const std::string& expression);
  ~Pattern();
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  bool matches(const std::string& text) const { return !groups_of(text).empty(); }

  /// The text and its groups; nothing when it does not match.
  std::vector<std::string> groups_of(const std::string& text) const;

 private:
  regex_t compiled_ = {};
};

}  // namespace transcripts

#endif  // IGD_TESTS_PATTERN_H
