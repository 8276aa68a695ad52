// Texts as lines, and how one text becomes another.
#ifndef IGD_TESTS_LINES_H
#define IGD_TESTS_LINES_H

#include <string>
#include <vector>

namespace transcripts {

using Lines = std::vector<std::string>;

/// The lines of a text, without their ends.
Lines lines_of(const std::string& text);

/// Lines that stand in place of others.
struct Edit {
  std::size_t at;    ///< index of the first line that goes, or that the new ones come before
  std::size_t gone;  ///< how many go
  Lines instead;
};

/// The fewest lines that have to go and to come for `before` to become `after`, in order.
std::vector<Edit> edits_between(const Lines& before, const Lines& after);

}  // namespace transcripts

#endif  // IGD_TESTS_LINES_H
