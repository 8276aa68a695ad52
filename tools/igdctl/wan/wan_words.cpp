#include "wan/wan_words.h"

#include "igd_types.h"
#include "term/text.h"

namespace igdctl {

namespace {

struct Word {
  const char* text;
  int code;
};

constexpr Word kClasses[] = {
    {"routed", kIgdRouted}, {"bridged", kIgdBridged}, {"routed-bridged", kIgdRoutedAndBridged}};
constexpr Word kModes[] = {{"dhcp", kIgdDhcp}, {"static", kIgdStatic}, {"pppoe", kIgdPppoe}};
constexpr Word kSwitches[] = {{"on", 1},  {"true", 1},  {"yes", 1}, {"1", 1},
                              {"off", 0}, {"false", 0}, {"no", 0},  {"0", 0}};

template <std::size_t N>
const Word* find_word(const Word (&words)[N], std::string_view text) {
  const std::string wanted = lower_case(text);
  for (const Word& word : words) {
    if (wanted == word.text) return &word;
  }
  return nullptr;
}

template <std::size_t N>
std::string word_of(const Word (&words)[N], int code) {
  for (const Word& word : words) {
    if (word.code == code) return word.text;
  }
  return {};
}

}  // namespace

std::string word_of_class(int connection_class) { return word_of(kClasses, connection_class); }

std::string word_of_mode(int connect_mode) { return word_of(kModes, connect_mode); }

int class_of_word(std::string_view word) {
  const Word* const found = find_word(kClasses, word);
  return found == nullptr ? 0 : found->code;
}

int mode_of_word(std::string_view word) {
  const Word* const found = find_word(kModes, word);
  return found == nullptr ? 0 : found->code;
}

bool parse_switch(std::string_view word, bool* on) {
  const Word* const found = find_word(kSwitches, word);
  if (found != nullptr) *on = found->code != 0;
  return found != nullptr;
}

}  // namespace igdctl
