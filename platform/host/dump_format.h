/// What reading and writing parameter dumps share.
#ifndef PLATFORM_HOST_DUMP_FORMAT_H
#define PLATFORM_HOST_DUMP_FORMAT_H

#include <string>

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
  kVerbatim,                    ///< "true": the value is taken as it stands
  kColumns,
};
inline constexpr const char* kHeaders[kColumns] = {
    "Parameter", "Object", "Writable", "Value", "Value type", "Highest instance", "Verbatim"};

/// "true" or "false" for every way in which dumps write a boolean; any other text as it is.
std::string normalised_boolean(const std::string& text);

}  // namespace host

#endif  // PLATFORM_HOST_DUMP_FORMAT_H
