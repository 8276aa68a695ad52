/// Working on texts and names as the gateway does. Knows no tree.
#ifndef IGD_TEXT_H
#define IGD_TEXT_H

#include <string>
#include <string_view>
#include <vector>

/// The object path that holds a parameter, or the parent path of an object; "" when there is none.
/// Trailing white space is ignored.
std::string objectPathOf(const std::string& name);

namespace igd {

inline constexpr char kWhiteSpace[] = " \n\t\r";

/// What objectPathOf gives, as a part of the name: to climb several levels without copies.
std::string_view parent_of(std::string_view name);

/// "<table_path><number>.", cut like every path the gateway formats.
std::string numbered(const std::string& table_path, int number);

std::vector<std::string> split(const std::string& text, const std::string& delimiters);

bool is_listed(const std::vector<std::string>& list, const std::string& text);

bool starts_with(std::string_view text, std::string_view prefix);
bool contains(std::string_view text, std::string_view part);
std::string trimmed(const std::string& text);

/// A leading decimal number, else 0, kept within int: what atoi gives on the gateway.
int lenient_number(const std::string& text);

/// What a 256-byte buffer of the gateway keeps of a text: at most 255 characters, up to a zero.
std::string cut(const std::string& text);

}  // namespace igd

#endif  // IGD_TEXT_H
