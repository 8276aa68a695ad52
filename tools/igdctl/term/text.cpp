#include "term/text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <utility>

namespace igdctl {

namespace {

constexpr std::uint32_t kInvalid = 0xffffffff;
constexpr std::string_view kHexadecimalDigits = "0123456789abcdef";

struct Range {
  std::uint32_t first;
  std::uint32_t last;
};

// What no terminal may get from a value: controls, and marks that reorder or hide text.
constexpr Range kUnsafe[] = {{0x00, 0x1f},     {0x7f, 0x9f},     {0x061c, 0x061c},
                             {0x200b, 0x200f}, {0x2028, 0x202e}, {0x2060, 0x2069},
                             {0xfeff, 0xfeff}, {0xfff9, 0xfffb}, {0xe0000, 0xe0fff}};
constexpr Range kWide[] = {
    {0x1100, 0x115f}, {0x2e80, 0x303e}, {0x3041, 0xa4cf}, {0xac00, 0xd7a3},   {0xf900, 0xfaff},
    {0xfe30, 0xfe6f}, {0xff00, 0xff60}, {0xffe0, 0xffe6}, {0x1f300, 0x1faff}, {0x20000, 0x3fffd}};
constexpr Range kCombining[] = {
    {0x0300, 0x036f}, {0x1ab0, 0x1aff}, {0x20d0, 0x20ff}, {0xfe00, 0xfe0f}, {0xfe20, 0xfe2f}};

template <std::size_t N>
bool is_in(const Range (&ranges)[N], std::uint32_t character) {
  return std::any_of(std::begin(ranges), std::end(ranges), [character](const Range& range) {
    return range.first <= character && character <= range.last;
  });
}

// The forms of UTF-8, by the number of bytes that follow the first.
struct Utf8Form {
  unsigned char lead_mask;  // bits of the first byte that tell the form
  unsigned char lead;       // what they are
  std::uint32_t shortest;   // first character that needs this form
};
constexpr Utf8Form kForms[] = {
    {0x80, 0x00, 0x0}, {0xe0, 0xc0, 0x80}, {0xf0, 0xe0, 0x800}, {0xf8, 0xf0, 0x10000}};
constexpr unsigned char kFollowingMask = 0xc0;
constexpr unsigned char kFollowing = 0x80;
constexpr unsigned kFollowingBits = 6;
constexpr Range kScalars[] = {{0x0, 0xd7ff}, {0xe000, 0x10ffff}};

// The character of a form at the front of a text; kInvalid when it is none.
std::uint32_t character_of(std::string_view text, std::size_t following) {
  const Utf8Form& form = kForms[following];
  std::uint32_t character =
      static_cast<unsigned char>(text.front()) & static_cast<unsigned char>(~form.lead_mask);
  for (const char letter : text.substr(1, following)) {
    const auto byte = static_cast<unsigned char>(letter);
    if ((byte & kFollowingMask) != kFollowing) return kInvalid;
    character =
        (character << kFollowingBits) | (byte & static_cast<unsigned char>(~kFollowingMask));
  }
  const bool sound = character >= form.shortest && is_in(kScalars, character);
  return sound ? character : kInvalid;
}

// Takes one character off the front of the text; kInvalid takes one byte.
std::uint32_t next_character(std::string_view& text, std::string_view* bytes) {
  const auto first = static_cast<unsigned char>(text.front());
  std::uint32_t character = kInvalid;
  std::size_t length = 1;
  for (std::size_t following = 0; following < std::size(kForms); ++following) {
    const bool is_form = (first & kForms[following].lead_mask) == kForms[following].lead;
    if (is_form && following < text.size()) character = character_of(text, following);
    if (character == kInvalid) continue;
    length = following + 1;
    break;
  }
  *bytes = text.substr(0, length);
  text.remove_prefix(length);
  return character;
}

std::string escaped(std::string_view bytes) {
  if (bytes == "\n") return "\\n";
  if (bytes == "\r") return "\\r";
  if (bytes == "\t") return "\\t";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) text += "\\x" + hexadecimal(bytes.substr(i, 1));
  return text;
}

std::size_t width_of(std::uint32_t character) {
  if (character == kInvalid) return 1;
  if (is_in(kCombining, character)) return 0;
  return is_in(kWide, character) ? 2 : 1;
}

std::size_t edit_distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= left.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const std::size_t changed = diagonal + (left[i - 1] == right[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    std::string_view bytes;
    const std::uint32_t character = next_character(text, &bytes);
    const bool unsafe = character == kInvalid || is_in(kUnsafe, character);
    result += unsafe ? escaped(bytes) : std::string(bytes);
  }
  return result;
}

std::string in_quotes(std::string_view text) { return '"' + printable(text) + '"'; }

std::size_t display_width(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    std::string_view bytes;
    width += width_of(next_character(text, &bytes));
  }
  return width;
}

std::string cut_to_width(const std::string& text, std::size_t width) {
  if (display_width(text) <= width) return text;
  if (width == 0) return {};
  std::string result;
  std::string_view rest = text;
  std::size_t taken = 0;
  for (;;) {
    std::string_view bytes;
    const std::size_t more = width_of(next_character(rest, &bytes));
    if (taken + more > width - 1) break;
    taken += more;
    result += bytes;
  }
  return result + "…";
}

std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
  std::string text;
  for (const std::string& part : parts) {
    if (&part != &parts.front()) text += separator;
    text += part;
  }
  return text;
}

std::vector<std::string> split_list(std::string_view text, char separator) {
  std::vector<std::string> parts;
  if (trimmed(text).empty()) return parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(trimmed(text.substr(0, end)));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

bool begins_with(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::string_view trimmed(std::string_view text) {
  constexpr char kBlanks[] = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string lower_case(std::string_view text) {
  std::string result(text);
  for (char& letter : result) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return result;
}

bool is_utf8(std::string_view text) {
  while (!text.empty()) {
    std::string_view bytes;
    if (next_character(text, &bytes) == kInvalid) return false;
  }
  return true;
}

std::string hexadecimal(std::string_view bytes) {
  constexpr unsigned kBase = 16;
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += {kHexadecimalDigits[value / kBase], kHexadecimalDigits[value % kBase]};
  }
  return text;
}

int hexadecimal_digit(char letter) {
  const std::size_t digit = kHexadecimalDigits.find(lower_case({&letter, 1}));
  return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

bool parse_number(std::string_view text, long low, long high, long* number) {
  constexpr std::size_t kMostDigits = 9;
  constexpr long kBase = 10;
  if (text.empty() || text.size() > kMostDigits) return false;
  long value = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') return false;
    value = value * kBase + (digit - '0');
  }
  if (value < low || value > high) return false;
  *number = value;
  return true;
}

std::vector<std::string> near_names(std::string_view word,
                                    const std::vector<std::string>& candidates) {
  constexpr std::size_t kMost = 3;
  const std::string wanted = lower_case(word);
  const std::size_t limit = std::max<std::size_t>(1, wanted.size() / 3);
  std::vector<std::pair<std::size_t, std::string>> found;
  for (const std::string& candidate : candidates) {
    const std::string name = lower_case(candidate);
    const bool begins = !wanted.empty() && name.rfind(wanted, 0) == 0;
    const std::size_t distance = begins ? 0 : edit_distance(wanted, name);
    if (!candidate.empty() && distance <= limit) found.emplace_back(distance, candidate);
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
  std::vector<std::string> names;
  for (auto& entry : found) {
    if (names.size() < kMost) names.push_back(std::move(entry.second));
  }
  return names;
}

std::string did_you_mean(const std::vector<std::string>& near, std::string_view otherwise) {
  if (near.empty()) return std::string(otherwise);
  std::vector<std::string> quoted;
  for (const std::string& name : near) quoted.push_back(in_quotes(name));
  return "did you mean " + joined(quoted, " or ") + "?";
}

std::string did_you_mean(std::string_view word, const std::vector<std::string>& candidates,
                         std::string_view otherwise) {
  return did_you_mean(near_names(word, candidates), otherwise);
}

std::string quoted_list(const std::vector<std::string>& texts) {
  std::vector<std::string> quoted;
  for (const std::string& text : texts) quoted.push_back(in_quotes(text));
  return joined(quoted, ", ");
}

}  // namespace igdctl
