/// Text for people: made safe, measured and cut in columns of a terminal, joined and split.
#ifndef IGDCTL_TEXT_H
#define IGDCTL_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace igdctl {

/// The text with everything that a terminal would act on, or could not show, as an escape: "\n",
/// "\t", "\x1b". That is control characters, directional marks, and bytes that are no UTF-8.
std::string printable(std::string_view text);

/// `printable` in double quotes, for messages.
std::string in_quotes(std::string_view text);

/// Columns that a printable text takes. Wide characters take two, combining ones none.
std::size_t display_width(std::string_view text);

/// The text in at most `width` columns: whole, or cut and ended with "…".
std::string cut_to_width(const std::string& text, std::size_t width);

std::string joined(const std::vector<std::string>& parts, std::string_view separator);

/// Splits at every separator and trims blanks; empty parts are kept, an empty text has none.
std::vector<std::string> split_list(std::string_view text, char separator = ',');

bool begins_with(std::string_view text, std::string_view prefix);
std::string_view trimmed(std::string_view text);
std::string lower_case(std::string_view text);  ///< ASCII letters only
bool is_utf8(std::string_view text);

/// Two digits, in lower case, for each byte.
std::string hexadecimal(std::string_view bytes);

/// 0 to 15; -1 for a letter that is no hexadecimal digit.
int hexadecimal_digit(char letter);

/// The whole text as a decimal number without sign, from `low` to `high`; false otherwise.
bool parse_number(std::string_view text, long low, long high, long* number);

/// "Internet", "Internet2": those of the candidates that a misspelt word may have meant, nearest
/// first, at most three.
std::vector<std::string> near_names(std::string_view word,
                                    const std::vector<std::string>& candidates);

/// "did you mean "Internet" or "Internet2"?": a hint for an unknown word; `otherwise` when no
/// candidate is near.
std::string did_you_mean(std::string_view word, const std::vector<std::string>& candidates,
                         std::string_view otherwise);

/// The same for candidates that are known to be near.
std::string did_you_mean(const std::vector<std::string>& near, std::string_view otherwise);

/// The texts in double quotes, with ", " between them.
std::string quoted_list(const std::vector<std::string>& texts);

}  // namespace igdctl

#endif  // IGDCTL_TEXT_H
