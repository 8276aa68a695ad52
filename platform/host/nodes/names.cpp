#include "nodes/names.h"

#include <algorithm>
#include <charconv>

namespace host {

SplitName split_last(std::string_view name) {
  const bool is_path = !name.empty() && name.back() == '.';
  if (is_path) name.remove_suffix(1);
  const std::size_t own = after_last_dot(name);
  return {name.substr(0, own), name.substr(own)};
}

bool is_digits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<int> number_in(std::string_view digits) {
  constexpr std::size_t kMostDigits = 10;
  if (!is_digits(digits) || digits.size() > kMostDigits) return std::nullopt;
  int number = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (end.ec != std::errc()) return std::nullopt;
  return number;
}

}  // namespace host
