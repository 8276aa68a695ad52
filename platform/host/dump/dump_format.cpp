#include "dump/dump_format.h"

#include <cstddef>

namespace host {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr unsigned kBits = 4;  // of a digit
constexpr unsigned kMask = 0xF;

// The value of a digit, which may be a capital letter; npos for anything else.
std::size_t value_of_digit(char digit) {
  const bool is_capital = digit >= 'A' && digit <= 'F';
  return kDigits.find(is_capital ? static_cast<char>(digit - 'A' + 'a') : digit);
}

}  // namespace

std::string hexadecimal(std::string_view bytes) {
  std::string digits;
  digits.reserve(2 * bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    digits += kDigits[byte >> kBits];
    digits += kDigits[byte & kMask];
  }
  return digits;
}

std::optional<std::string> from_hexadecimal(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  bytes.reserve(digits.size() / 2);
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const std::size_t high = value_of_digit(digits[i]);
    const std::size_t low = value_of_digit(digits[i + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    bytes += static_cast<char>((high << kBits) | low);
  }
  return bytes;
}

std::string normalised_boolean(const std::string& text) {
  std::string word = text;
  for (char& c : word) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  if (word == "1" || word == "true") return "true";
  if (word == "0" || word == "false") return "false";
  return text;
}

}  // namespace host
