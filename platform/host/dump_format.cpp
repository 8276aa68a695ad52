#include "dump_format.h"

namespace host {

std::string normalised_boolean(const std::string& text) {
  std::string word = text;
  for (char& c : word) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  if (word == "1" || word == "true") return "true";
  if (word == "0" || word == "false") return "false";
  return text;
}

}  // namespace host
