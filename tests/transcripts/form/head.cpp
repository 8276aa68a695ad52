#include "head.h"

#include "short_names.h"

namespace transcripts {
namespace {

constexpr std::size_t kColumns = 100;
const std::string kMargin = "#          ";

// Breaks a line behind its commas; what follows stands two columns further in.
std::string wrapped(const std::string& start, const std::string& line) {
  std::string text;
  std::string current = start;
  for (std::size_t at = 0; at < line.size();) {
    const std::size_t comma = line.find(", ", at);
    const std::size_t end = comma == std::string::npos ? line.size() : comma + 2;
    const std::string part = line.substr(at, end - at);
    if (current.size() + part.size() > kColumns && current.size() > kMargin.size() + 2) {
      text += current.substr(0, current.size() - 1) + '\n';
      current = kMargin + "  ";
    }
    current += part;
    at = end;
  }
  return text + current + '\n';
}

std::string paragraph(const std::string& title, const Lines& lines) {
  std::string start = "# " + title;
  start.resize(kMargin.size(), ' ');
  std::string text;
  for (const std::string& line : lines) {
    text += wrapped(text.empty() ? start : kMargin, shorten(line));
  }
  return text;
}

}  // namespace

std::string Head::text() const {
  return paragraph("builder:", builder) + paragraph("tree:", tree) + paragraph("call:", call);
}

}  // namespace transcripts
