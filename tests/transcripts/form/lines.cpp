#include "lines.h"

#include <algorithm>
#include <sstream>

namespace transcripts {
namespace {

// How many lines the ends of two texts share in order: by the index where each end begins.
using Shared = std::vector<std::vector<std::size_t>>;

Shared shared_lines(const Lines& before, const Lines& after) {
  Shared shared(before.size() + 1, std::vector<std::size_t>(after.size() + 1, 0));
  for (std::size_t i = before.size(); i > 0; --i) {
    for (std::size_t j = after.size(); j > 0; --j) {
      shared[i - 1][j - 1] = before[i - 1] == after[j - 1]
                                 ? shared[i][j] + 1
                                 : std::max(shared[i][j - 1], shared[i - 1][j]);
    }
  }
  return shared;
}

// The edit that ends before line `at`, when it ends there; else a new one.
Edit& edit_at(std::vector<Edit>& edits, std::size_t at) {
  if (edits.empty() || edits.back().at + edits.back().gone != at) edits.push_back({at, 0, {}});
  return edits.back();
}

}  // namespace

Lines lines_of(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<Edit> edits_between(const Lines& before, const Lines& after) {
  const Shared shared = shared_lines(before, after);
  std::vector<Edit> edits;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < before.size() || j < after.size()) {
    if (i < before.size() && j < after.size() && before[i] == after[j]) {
      ++i, ++j;
    } else if (j == after.size() || (i < before.size() && shared[i + 1][j] >= shared[i][j + 1])) {
      ++edit_at(edits, i).gone;
      ++i;
    } else {
      edit_at(edits, i).instead.push_back(after[j++]);
    }
  }
  return edits;
}

}  // namespace transcripts
