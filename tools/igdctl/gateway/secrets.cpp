#include "gateway/secrets.h"

#include <algorithm>
#include <iterator>

#include "gateway/names.h"
#include "term/text.h"

namespace igdctl {

std::string shown_secret(const std::string& secret, bool show_secrets) {
  return show_secrets || secret.empty() ? secret : kStars;
}

bool is_secret_parameter(std::string_view full_name) {
  const std::string name = lower_case(own_name_of(full_name));
  constexpr const char* kMarks[] = {"password",     "passwd", "passphrase", "presharedkey",
                                    "sharedsecret", "wepkey", "psk",        "secret"};
  return std::any_of(std::begin(kMarks), std::end(kMarks),
                     [&name](const char* mark) { return name.find(mark) != std::string::npos; });
}

std::string shown_value(std::string_view full_name, const std::string& value, bool show_secrets) {
  return is_secret_parameter(full_name) ? shown_secret(value, show_secrets) : value;
}

}  // namespace igdctl
