#include "cli/secrets.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>

#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr std::size_t kLongest = 255;  // a longer text is cut by programs of the gateway

std::string read_some(std::istream& input) {
  std::string text(kLongest + 3, '\0');  // room for a line end, and to see that more follows
  input.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(input.gcount()));
  return text;
}

std::string without_line_end(std::string text) {
  if (!text.empty() && text.back() == '\n') text.pop_back();
  if (!text.empty() && text.back() == '\r') text.pop_back();
  return text;
}

}  // namespace

std::string shown_secret(const std::string& secret, bool show_secrets) {
  return show_secrets || secret.empty() ? secret : kStars;
}

bool is_secret_parameter(std::string_view full_name) {
  const std::size_t dot = full_name.rfind('.');
  const std::string name =
      lower_case(dot == std::string_view::npos ? full_name : full_name.substr(dot + 1));
  constexpr const char* kMarks[] = {"password",     "passwd", "passphrase", "presharedkey",
                                    "sharedsecret", "wepkey", "psk",        "secret"};
  return std::any_of(std::begin(kMarks), std::end(kMarks),
                     [&name](const char* mark) { return name.find(mark) != std::string::npos; });
}

std::string shown_value(std::string_view full_name, const std::string& value, bool show_secrets) {
  return is_secret_parameter(full_name) ? shown_secret(value, show_secrets) : value;
}

std::string password_from_file(const std::string& file) {
  std::string text;
  if (file == "-") {
    text = read_some(std::cin);
  } else {
    std::ifstream input(file, std::ios::binary);
    if (input) text = read_some(input);
    if (!input.is_open() || input.bad()) {
      throw Failure(
          ExitCode::kBadInput,
          "cannot read the password from " + in_quotes(file) + ": " + std::strerror(errno),
          "name a file that you can read, or - for standard input");
    }
  }
  text = without_line_end(text);
  if (text.size() > kLongest || text.find('\0') != std::string::npos) {
    throw Failure(ExitCode::kBadInput, "the password is longer than 255 bytes or holds a zero byte",
                  "put nothing but the password into the file");
  }
  return text;
}

}  // namespace igdctl
