/// What reading and writing parameter dumps share.
#ifndef PLATFORM_HOST_DUMP_FORMAT_H
#define PLATFORM_HOST_DUMP_FORMAT_H

#include <optional>
#include <string>
#include <string_view>

namespace host {

/// The columns of a CSV dump. Every dump has those before kOptionalColumns; the rest are the
/// export's own, so that a tree comes back as it was, and other readers pass over them.
enum Column {
  kName,
  kIsObject,
  kWritable,
  kValue,
  kType,
  kOptionalColumns,
  kHighest = kOptionalColumns,  ///< of a table: highest instance number it ever had
  kVerbatim,                    ///< "true": the value is taken as it stands; kHexadecimal
  kColumns,
};
inline constexpr const char* kHeaders[kColumns] = {
    "Parameter", "Object", "Writable", "Value", "Value type", "Highest instance", "Verbatim"};

/// In kVerbatim: the value stands as hexadecimal digits, since CSV cannot carry a NUL byte.
inline constexpr const char* kHexadecimal = "hex";

/// Two digits a byte.
std::string hexadecimal(std::string_view bytes);
/// The bytes that such digits stand for, none when the text is anything else.
std::optional<std::string> from_hexadecimal(std::string_view digits);

/// "true" or "false" for every way in which dumps write a boolean; any other text as it is.
std::string normalised_boolean(const std::string& text);

}  // namespace host

#endif  // PLATFORM_HOST_DUMP_FORMAT_H
