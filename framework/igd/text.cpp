#include "text.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "igd_api.h"
#include "igd_vocabulary.h"

namespace {

// The place behind a found character; the beginning where none was found.
std::size_t behind(std::size_t found) { return found == std::string_view::npos ? 0 : found + 1; }

}  // namespace

std::string objectPathOf(const std::string& name) { return std::string(igd::parent_of(name)); }

namespace igd {

std::string_view parent_of(std::string_view name) {
  const std::size_t last = name.find_last_not_of(kWhiteSpace);
  if (last == std::string_view::npos) return {};
  if (name[last] != '.') return name.substr(0, behind(name.rfind('.')));
  if (last == 0) return {};
  return name.substr(0, behind(name.rfind('.', last - 1)));
}

std::string numbered(const std::string& table_path, int number) {
  return cut(table_path + std::to_string(number) + '.');
}

std::vector<std::string> split(const std::string& text, const std::string& delimiters) {
  std::vector<std::string> tokens;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find_first_of(delimiters, start), text.size());
    tokens.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return tokens;
}

bool is_listed(const std::vector<std::string>& list, const std::string& text) {
  for (const std::string& listed : list) {
    if (listed == text) return true;
  }
  return false;
}

bool starts_with(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

int lenient_number(const std::string& text) {
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  constexpr long long kLowest = std::numeric_limits<int>::min();
  constexpr long long kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(number, kLowest, kHighest));
}

std::string cut(const std::string& text) {
  return text.substr(0, std::min(text.find('\0'), kLongestText));
}

}  // namespace igd

int igd_tool_split_str(std::string text, std::string delimiter_set, std::vector<std::string>& out) {
  out = igd::split(text, delimiter_set);
  return static_cast<int>(out.size());
}

void _delete_node(std::vector<std::string>& list, std::string name) {
  const auto found = std::find(list.begin(), list.end(), name);
  if (found != list.end()) list.erase(found);
}
