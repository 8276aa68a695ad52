/// Passwords, taken in without the command line.
#ifndef IGDCTL_PASSWORDS_H
#define IGDCTL_PASSWORDS_H

#include <string>

namespace igdctl {

/// Reads a password from a file, "-" for standard input; one line end at its end is dropped.
/// Throws Failure (kBadInput) when it cannot be read, has more than 255 bytes or a zero byte.
std::string password_from_file(const std::string& file);

/// Asks for a password on the terminal, without echo. Throws Failure (kBadInput) when the process
/// has no terminal.
std::string password_from_prompt(const std::string& question);

}  // namespace igdctl

#endif  // IGDCTL_PASSWORDS_H
