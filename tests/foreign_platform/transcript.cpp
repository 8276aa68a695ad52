#include "transcript.h"

#include <cstdarg>
#include <cstdio>
#include <initializer_list>
#include <vector>

namespace foreign {
namespace {

bool begins_with(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

// "vornik igd_wan_set_params:512  rest" becomes "vornik igd_wan_set_params:#  rest".
std::string without_moving_line(const std::string& line) {
  for (const char* tag : {"vornik igd_wan_set_params:", "vornik igd_wan_get_params:"}) {
    if (!begins_with(line, tag)) continue;
    const std::size_t begin = std::string(tag).size();
    std::size_t end = line.find_first_not_of("0123456789", begin);
    if (end == std::string::npos) end = line.size();
    if (end > begin) return tag + ("#" + line.substr(end));
  }
  return line;
}

std::string lines_where(const std::string& transcript, bool wanted,
                        std::initializer_list<const char*> prefixes) {
  std::string kept;
  for (std::size_t begin = 0; begin < transcript.size();) {
    const std::size_t end = transcript.find('\n', begin);
    const std::string line = transcript.substr(begin, end - begin);
    bool matches = false;
    for (const char* prefix : prefixes) matches = matches || begins_with(line, prefix);
    if (matches == wanted) kept += line + "\n";
    begin = end + 1;
  }
  return kept;
}

}  // namespace

std::string format_text(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  std::vector<char> text(static_cast<std::size_t>(length) + 1);
  std::vsnprintf(text.data(), text.size(), format, again);
  va_end(again);
  return std::string(text.data(), static_cast<std::size_t>(length));
}

void append_printed(std::string& transcript, const std::string& printed) {
  for (std::size_t begin = 0; begin < printed.size();) {
    const std::size_t end = printed.find('\n', begin);
    transcript += "| " + without_moving_line(printed.substr(begin, end - begin));
    if (end == std::string::npos) {
      transcript += "<no end of line>\n";
      return;
    }
    transcript += "\n";
    begin = end + 1;
  }
}

void append_debug(std::string& transcript, const std::string& file, int line,
                  const std::string& text) {
  const bool moves = begins_with(text, "INDEX=") || begins_with(text, "Matched Ifname ");
  const std::string where = moves && line > 0 ? "#" : std::to_string(line);
  transcript += "debug " + file + ":" + where + " " + text + "\n";
}

std::string writes_of(const std::string& transcript) {
  return lines_where(transcript, true, {"set ", "add ", "delete ", "commit ", "apply "});
}

std::string reads_of(const std::string& transcript) {
  return lines_where(transcript, true, {"get ", "open ", "close"});
}

std::string lines_of(const std::string& transcript) {
  return lines_where(transcript, true, {"| ", "debug "});
}

std::string without(const std::string& transcript, const std::string& prefix) {
  return lines_where(transcript, false, {prefix.c_str()});
}

}  // namespace foreign
