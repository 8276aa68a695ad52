#include "pattern.h"

#include <stdexcept>

namespace transcripts {

Pattern::Pattern(const std::string& expression) {
  if (::regcomp(&compiled_, ("^(" + expression + ")$").c_str(), REG_EXTENDED) != 0) {
    throw std::invalid_argument("not a regular expression: " + expression);
  }
}

Pattern::~Pattern() { ::regfree(&compiled_); }

std::vector<std::string> Pattern::groups_of(const std::string& text) const {
  if (text.find('\0') != std::string::npos) return {};
  std::vector<regmatch_t> found(compiled_.re_nsub + 1);
  if (::regexec(&compiled_, text.c_str(), found.size(), found.data(), 0) != 0) return {};
  std::vector<std::string> groups;
  for (std::size_t i = 1; i < found.size(); ++i) {  // the first is the whole text, as is group 1
    const auto start = static_cast<std::size_t>(found[i].rm_so);
    const bool took_part = found[i].rm_so >= 0;
    const auto length = static_cast<std::size_t>(found[i].rm_eo - found[i].rm_so);
    groups.push_back(took_part ? text.substr(start, length) : std::string());
  }
  return groups;
}

}  // namespace transcripts
