/// The parts of object paths and full names, and the numbers in them.
#ifndef PLATFORM_HOST_NAMES_H
#define PLATFORM_HOST_NAMES_H

#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>

namespace host {

/// Where the text behind the last dot starts; 0 when there is no dot. Faster than rfind, which
/// looks at one character at a time.
inline std::size_t after_last_dot(std::string_view name) {
  const void* dot = name.empty() ? nullptr : memrchr(name.data(), '.', name.size());
  return dot != nullptr ? static_cast<std::size_t>(static_cast<const char*>(dot) - name.data()) + 1
                        : 0;
}

/// The object that a full name is in; a path names itself.
inline std::string_view object_of(std::string_view name) {
  return name.substr(0, after_last_dot(name));
}

/// A path or full name, cut before its last component.
struct SplitName {
  std::string_view above;  ///< with its dot
  std::string_view own;    ///< without one
};
SplitName split_last(std::string_view name);

bool is_digits(std::string_view text);  ///< one or more

/// An instance number or a counter, in digits; none when it is too large for one.
std::optional<int> number_in(std::string_view digits);

}  // namespace host

#endif  // PLATFORM_HOST_NAMES_H
