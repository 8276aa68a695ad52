#include "tree/assignments.h"

#include <optional>

#include "gateway/names.h"
#include "term/text.h"

namespace igdctl {

namespace {

// Takes one escape off the front of the text, which stands behind its backslash.
std::optional<char> take_escape(std::string_view& text) {
  constexpr std::string_view kLetters = "\\nrt";
  constexpr std::string_view kMeanings = "\\\n\r\t";
  if (text.empty()) return std::nullopt;
  const std::size_t place = kLetters.find(text[0]);
  if (place != std::string_view::npos) {
    text.remove_prefix(1);
    return kMeanings[place];
  }
  if (text.size() < 3 || text[0] != 'x') return std::nullopt;
  const int high = hexadecimal_digit(text[1]);
  const int low = hexadecimal_digit(text[2]);
  if (high < 0 || low < 0) return std::nullopt;
  text.remove_prefix(3);
  constexpr int kBase = 16;
  return static_cast<char>(high * kBase + low);
}

std::optional<std::string> unescaped(std::string_view text) {
  std::string value;
  while (!text.empty()) {
    const char letter = text.front();
    text.remove_prefix(1);
    const std::optional<char> next = letter == '\\' ? take_escape(text) : letter;
    if (!next) return std::nullopt;
    value += *next;
  }
  return value;
}

std::string_view take_line(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

std::string line_of(const Assignment& assignment) {
  std::string value;
  for (const char letter : assignment.value) {
    value += letter == '\\' ? "\\\\" : std::string(1, letter);
  }
  return printable(assignment.name) + '=' + printable(value);
}

std::vector<Assignment> read_assignments(std::string_view text, const std::string& source,
                                         std::vector<Problem>& problems) {
  std::vector<Assignment> assignments;
  for (int number = 1; !text.empty(); ++number) {
    const std::string_view line = take_line(text);
    if (line.empty() || line[0] == '#') continue;
    const std::string place = source + ":" + std::to_string(number) + ": ";
    const std::size_t equals = line.find('=');
    const std::string name(trimmed(line.substr(0, equals)));
    if (equals == std::string_view::npos || name.empty()) {
      problems.push_back({place + "the line is not NAME=VALUE", "write one parameter per line"});
      continue;
    }
    const std::optional<std::string> value = unescaped(line.substr(equals + 1));
    if (value) {
      assignments.push_back({full_name_of(name), *value});
    } else {
      problems.push_back(
          {place + "the value has a backslash that starts no escape",
           R"(write \\ for a backslash; the other escapes are \n, \r, \t and \x00 to \xff)"});
    }
  }
  return assignments;
}

}  // namespace igdctl
