/// What a command reads from a file, or from standard input.
#ifndef IGDCTL_INPUT_FILE_H
#define IGDCTL_INPUT_FILE_H

#include <cstddef>
#include <string>

namespace igdctl {

/// The whole content of a file, "-" for standard input. Throws Failure (kBadInput) when it cannot
/// be read or is larger than 64 MiB.
std::string content_of_file(const std::string& file);

/// "standard input" for "-", else the name as it is: for messages.
std::string source_name_of(const std::string& file);

}  // namespace igdctl

#endif  // IGDCTL_INPUT_FILE_H
