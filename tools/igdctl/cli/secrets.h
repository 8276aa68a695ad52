/// Passwords: kept out of what is shown, and taken in without the command line.
#ifndef IGDCTL_SECRETS_H
#define IGDCTL_SECRETS_H

#include <string>
#include <string_view>

namespace igdctl {

/// What stands for a secret that is set. It does not tell the secret's length.
inline constexpr char kStars[] = "********";

/// Stars for a secret, "" for one that is not set; the secret itself with `show_secrets`.
std::string shown_secret(const std::string& secret, bool show_secrets);

/// Tells whether a parameter of the tree holds a secret, by its own name: passwords, passphrases,
/// keys that are shared.
bool is_secret_parameter(std::string_view full_name);

/// The value of a parameter as it may be shown: stars when it holds a secret that is set.
std::string shown_value(std::string_view full_name, const std::string& value, bool show_secrets);

/// Reads a password from a file, "-" for standard input; one line end at its end is dropped.
/// Throws Failure (kBadInput) when it cannot be read, has more than 255 bytes or a zero byte.
std::string password_from_file(const std::string& file);

/// Asks for a password on the terminal, without echo. Throws Failure (kBadInput) when the process
/// has no terminal.
std::string password_from_prompt(const std::string& question);

}  // namespace igdctl

#endif  // IGDCTL_SECRETS_H
