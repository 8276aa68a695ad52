/// Secrets in the tree, kept out of what is shown.
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

}  // namespace igdctl

#endif  // IGDCTL_SECRETS_H
