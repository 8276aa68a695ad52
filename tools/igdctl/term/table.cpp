#include <algorithm>
#include <numeric>

#include "term/output.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kNarrowest = 4;
constexpr std::size_t kReadable = 8;  // what is cut to less does not tell one row from another

using Widths = std::vector<std::size_t>;
using Lines = std::vector<std::vector<Cell>>;

std::string shown(const Cell& cell) { return cell.text.empty() ? "-" : printable(cell.text); }

const char* colour_of(Style style) {
  switch (style) {
    case Style::kHeading:
      return "\x1b[1m";
    case Style::kGood:
      return "\x1b[32m";
    case Style::kBad:
      return "\x1b[31m";
    case Style::kWarning:
      return "\x1b[33m";
    case Style::kMuted:
      return "\x1b[2m";
    case Style::kPlain:
      break;
  }
  return "";
}

std::string painted(const std::string& text, Style style, const Page& page) {
  if (!page.colour || style == Style::kPlain) return text;
  return colour_of(style) + text + "\x1b[0m";
}

Widths natural_widths(const Lines& lines) {
  Widths widths;
  for (const std::vector<Cell>& line : lines) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i) {
      widths[i] = std::max(widths[i], display_width(shown(line[i])));
    }
  }
  return widths;
}

// Takes from the widest column, so that short ones stay whole.
void fit(Widths& widths, std::size_t page_width) {
  if (page_width == 0 || widths.empty()) return;
  const std::size_t gaps = kGap * (widths.size() - 1);
  std::size_t total = std::accumulate(widths.begin(), widths.end(), gaps);
  while (total > page_width) {
    const auto widest = std::max_element(widths.begin(), widths.end());
    if (*widest <= kNarrowest) return;
    --*widest;
    --total;
  }
}

// Blanks that end a line are left out.
std::string rendered_line(const std::vector<Cell>& line, const Widths& widths, const Page& page) {
  std::string text;
  std::size_t blanks = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const std::string cell = cut_to_width(shown(line[i]), widths[i]);
    text += std::string(blanks, ' ') + painted(cell, line[i].style, page);
    blanks = widths[i] - display_width(cell) + kGap;
  }
  return text + '\n';
}

std::string rendered_lines(const Lines& lines, const Page& page) {
  Widths widths = natural_widths(lines);
  fit(widths, page.width);
  std::string text;
  for (const std::vector<Cell>& line : lines) text += rendered_line(line, widths, page);
  return text;
}

bool is_too_narrow(const Page& page, const Lines& lines) {
  if (page.width == 0) return false;
  std::size_t needed = 0;
  for (const std::size_t width : natural_widths(lines)) {
    needed += std::min(width, kReadable) + kGap;
  }
  return needed > page.width + kGap;
}

std::string rendered_as_lists(const Table& table, const std::vector<Cell>& headings,
                              const Page& page) {
  std::string text;
  for (const std::vector<Cell>& row : table.rows) {
    Lines list;
    for (std::size_t i = 0; i < row.size(); ++i) list.push_back({headings[i], row[i]});
    text += (text.empty() ? "" : "\n") + rendered_lines(list, page);
  }
  return text;
}

}  // namespace

std::string rendered(const Table& table, const Page& page) {
  if (table.headings.empty()) return rendered_lines(table.rows, page);
  std::vector<Cell> headings;
  for (const std::string& heading : table.headings) headings.emplace_back(heading, Style::kHeading);
  Lines lines = {headings};
  lines.insert(lines.end(), table.rows.begin(), table.rows.end());
  if (is_too_narrow(page, lines)) return rendered_as_lists(table, headings, page);
  return rendered_lines(lines, page);
}

}  // namespace igdctl
