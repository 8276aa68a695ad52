// The tools that take names apart and read numbers, beside the plainest way to say the same.
#include <climits>
#include <vector>

#include "bridges.h"
#include "data_model.h"
#include "harness.h"
#include "igd_api.h"
#include "igd_c_api.h"
#include "input.h"
#include "port_update.h"
#include "text.h"

namespace {

using fuzz::Input;
using fuzz::require;
using fuzz::require_same;
using Names = std::vector<std::string>;

// One token up to each delimiter, and what stands after the last one, unless that is nothing.
Names plainly_split(const std::string& text, const std::string& delimiters) {
  Names tokens;
  std::string token;
  for (const char letter : text) {
    if (delimiters.find(letter) == std::string::npos) {
      token += letter;
      continue;
    }
    tokens.push_back(token);
    token.clear();
  }
  if (!token.empty()) tokens.push_back(token);
  return tokens;
}

// Blanks, a sign, digits; kept within int. A zero byte ends the text, as for every C function.
int plain_number(const std::string& text) {
  std::size_t at = 0;
  while (at < text.size() && std::string(" \t\n\v\f\r").find(text[at]) != std::string::npos) ++at;
  const bool negative = at < text.size() && text[at] == '-';
  if (negative || (at < text.size() && text[at] == '+')) ++at;
  long long number = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    if (number <= INT_MAX) number = 10 * number + (text[at] - '0');
  }
  if (negative) return number > INT_MAX ? INT_MIN : static_cast<int>(-number);
  return number > INT_MAX ? INT_MAX : static_cast<int>(number);
}

bool is_blank(char letter) {
  return letter == ' ' || letter == '\n' || letter == '\t' || letter == '\r';
}

std::string without_blanks_behind(std::string text) {
  while (!text.empty() && is_blank(text.back())) text.pop_back();
  return text;
}

// Everything up to the last dot that has something behind it.
std::string plain_parent(const std::string& name) {
  std::string parent = without_blanks_behind(name);
  if (!parent.empty() && parent.back() == '.') parent.pop_back();
  while (!parent.empty() && parent.back() != '.') parent.pop_back();
  return parent;
}

std::string plainly_trimmed(const std::string& text) {
  std::size_t first = 0;
  while (first < text.size() && is_blank(text[first])) ++first;
  return without_blanks_behind(text.substr(first));
}

std::string shown(const Names& names) {
  std::string text;
  for (const std::string& name : names) text += name + '\n';
  return text;
}

void check_names(const std::string& name) {
  require_same(objectPathOf(name), plain_parent(name), "the parent of a name");
  require_same(igd::port_of(name), plain_parent(name), "the port of a parameter");
  require_same(igd::bridge_of_port_parameter(name), plain_parent(plain_parent(plain_parent(name))),
               "the bridge of a port's parameter");
  require_same(igd::trimmed(name), plainly_trimmed(name), "a trimmed text");
  std::string climbing = name;
  for (std::size_t size = name.size() + 1; !climbing.empty(); climbing = objectPathOf(climbing)) {
    require(climbing.size() < size, "climbing comes to an end");
    size = climbing.size();
  }
}

void check_texts(const std::string& text, const std::string& other, int number) {
  std::string cut = text.substr(0, 255);
  cut = cut.substr(0, cut.find('\0'));
  require_same(igd::cut(text), cut, "a text as a buffer keeps it");
  require(igd::lenient_number(text) == plain_number(text), "a number in a text");
  require(igd::lenient_number(std::to_string(number)) == number, "each number can be read back");
  require(igd::contains(text, other) == (text.find(other) != std::string::npos), "a part");
  require(igd::starts_with(text + other, text), "a text begins with its beginning");
  require(igd::starts_with(text, other) == (text.compare(0, other.size(), other) == 0), "a prefix");
  require_same(igd::numbered(text, number), igd::cut(text + std::to_string(number) + '.'),
               "a numbered path");
}

void check_split(const std::string& text, const std::string& delimiters) {
  Names tokens = {"old"};
  const int count = igd_tool_split_str(text, delimiters, tokens);
  require(static_cast<std::size_t>(count) == tokens.size(), "the number of tokens");
  require_same(shown(tokens), shown(plainly_split(text, delimiters)), "the tokens");
}

void check_lists(const Names& before, const Names& after) {
  Names removed;
  Names added;
  _diff_lists(before, after, removed, added);
  for (const Names* list : {&before, &after}) {
    const Names& other = list == &before ? after : before;
    Names expected;
    for (const std::string& name : *list) {
      bool found = false;
      for (const std::string& candidate : other) found = found || candidate == name;
      if (!found) expected.push_back(name);
    }
    require_same(shown(list == &before ? removed : added), shown(expected), "what a list lost");
  }
  if (before.empty()) return;
  Names shortened = before;
  _delete_node(shortened, before.back());
  require(shortened.size() == before.size() - 1, "one name goes");
}

struct TwoNumbers {
  int first = 0;
  int second = 0;
};

TwoNumbers plain_numbers(const std::string& text, const char* separator) {
  TwoNumbers numbers;
  for (const std::string& piece : plainly_split(text, separator)) {
    const int number = plain_number(piece);
    if (number == 0) continue;
    int& free_one = numbers.first == 0 ? numbers.first : numbers.second;
    if (free_one == 0) free_one = number;
  }
  return numbers;
}

// Into a buffer of exactly the size that is passed, so that a sanitizer sees a step beyond it.
void check_bridge_name(const std::string& path, std::size_t size) {
  const TwoNumbers numbers = plain_numbers(path, ".");
  const std::string name =
      "br_" + std::to_string(numbers.first) + '_' + std::to_string(numbers.second);
  for (auto* const call : {&igd_c_get_wan_bridge_name, &igd_c_get_wan_bridge_intf_name}) {
    std::vector<char> buffer(size, '?');
    call(path.c_str(), buffer.data(), buffer.size());
    if (size == 0) continue;
    require(buffer.back() == '\0' || buffer.back() == '?', "the name is ended");
    require_same(buffer.data(), name.substr(0, size - 1), "the name of a bridge");
  }
}

void check_mark(const std::string& name) {
  const TwoNumbers numbers = plain_numbers(name, "_");
  const auto mark = static_cast<unsigned int>(30LL * numbers.first + numbers.second % 30);
  require(igd_c_get_mask(name.c_str()) == mark, "the mark of a connection");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const int number = input.number();
  const std::size_t buffer_size = input.byte() % 32;
  const std::string delimiters = input.bytes(input.byte() % 4);
  const Names before = input.texts(4);
  const Names after = input.texts(4);
  const std::string text = input.text();
  const std::string other = input.text();
  const std::string plain = input.plain_text();
  const std::string rest = input.rest();
  for (const std::string* name : {&text, &other, &rest}) {
    check_names(*name);
    check_texts(*name, other, number);
    check_split(*name, delimiters);
  }
  check_lists(before, after);
  check_bridge_name(plain, buffer_size);
  check_mark(plain);
  return 0;
}
