#include "expected_text.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "form/lines.h"

namespace transcripts {
namespace {

constexpr std::size_t kLinesBefore = 5;
constexpr std::size_t kLinesFrom = 4;

void show(std::ostream& out, char mark, const Lines& lines, std::size_t from, std::size_t to) {
  for (std::size_t i = from; i < std::min(to, lines.size()); ++i) out << mark << lines[i] << '\n';
  if (from < to && to > lines.size()) out << mark << "(end)\n";
}

}  // namespace

std::string file_of(const std::string& name) {
  return std::string(TRANSCRIPT_DIR) + '/' + name + ".txt";
}

std::string read_file(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

std::string first_difference(const std::string& expected, const std::string& actual) {
  if (expected == actual) return {};
  const Lines wanted = lines_of(expected);
  const Lines got = lines_of(actual);
  std::size_t at = 0;
  while (at < wanted.size() && at < got.size() && wanted[at] == got[at]) ++at;
  std::ostringstream out;
  out << "line " << at + 1 << ":\n";
  show(out, ' ', wanted, at - std::min(at, kLinesBefore), at);
  show(out, '-', wanted, at, at + kLinesFrom);
  show(out, '+', got, at, at + kLinesFrom);
  return out.str();
}

}  // namespace transcripts
