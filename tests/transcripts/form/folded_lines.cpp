#include "folded_lines.h"

#include <algorithm>

#include "lines.h"
#include "pattern.h"

namespace transcripts {
namespace {

const std::string kReadingStep = "| vornik igd_wan_get_params:#";
const std::string kWritingMode = "| vornik igd_wan_set_params:#  info->connect_mode:";
const std::string kWritingClass = "| vornik igd_wan_set_params:#  info->connection_class:";
const std::string kReadingProgress = "progress igd_wan_get_params:#";
const std::string kWritingProgress = "progress igd_wan_set_params:#";
const std::string kEmpty = "| ";
const std::string kDashes = "|  ------------- ";

bool starts_with(const std::string& line, const std::string& start) {
  return line.rfind(start, 0) == 0;
}

bool needs_escape(const std::string& line) {
  for (const char* start : {"walk ", "trace ", "progress ", "#", "\\"}) {
    if (starts_with(line, start)) return true;
  }
  return false;
}

// One line for the first line or the first two of a text, and how many it took.
struct Folded {
  std::string line;
  std::size_t taken;
};

Folded fold_first(const std::string& first, const std::string& second) {
  static const Pattern kMode(R"(\| vornik igd_wan_set_params:#  info->connect_mode:(-?[0-9]+) )");
  static const Pattern kClass(
      R"(\| vornik igd_wan_set_params:#  info->connection_class:(-?[0-9]+) )");
  const Lines mode = kMode.groups_of(first);
  const Lines connection_class = kClass.groups_of(second);
  if (!mode.empty() && !connection_class.empty()) {
    return {
        kWritingProgress + " connect_mode:" + mode[1] + " connection_class:" + connection_class[1],
        2};
  }
  if (first == kReadingStep) return {kReadingProgress, 1};
  if (first == kEmpty && starts_with(second, kDashes)) {
    return {"trace " + second.substr(kDashes.size()), 2};
  }
  if (starts_with(first, "open ") && second == "close") return {"walk " + first.substr(5), 2};
  return {(needs_escape(first) ? "\\" : "") + first, 1};
}

Lines fold_each(const Lines& lines) {
  Lines folded;
  for (std::size_t i = 0; i < lines.size();) {
    const std::string second = i + 1 < lines.size() ? lines[i + 1] : std::string();
    const Folded next = fold_first(lines[i], second);
    folded.push_back(next.line);
    i += next.taken;
  }
  return folded;
}

// The lines that stand for what one folded line says once.
std::string unfold_line(const std::string& line) {
  static const Pattern kWriting(
      "progress igd_wan_set_params:# connect_mode:(-?[0-9]+) connection_class:(-?[0-9]+)");
  if (starts_with(line, "walk ")) return "open " + line.substr(5) + "\nclose\n";
  if (starts_with(line, "trace ")) return kEmpty + '\n' + kDashes + line.substr(6) + '\n';
  if (line == kReadingProgress) return kReadingStep + '\n';
  const Lines numbers = kWriting.groups_of(line);
  if (numbers.empty()) return (starts_with(line, "\\") ? line.substr(1) : line) + '\n';
  return kWritingMode + numbers[1] + " \n" + kWritingClass + numbers[2] + " \n";
}

}  // namespace

std::string fold(const std::string& text) {
  const Lines lines = fold_each(lines_of(text));
  std::string folded;
  for (auto line = lines.begin(); line != lines.end();) {
    const auto end = std::find_if(line, lines.end(), [&](const auto& next) {
      return next != *line || !starts_with(next, "progress ");
    });
    const auto times = std::max<std::ptrdiff_t>(1, end - line);
    folded += *line + (times > 1 ? " x" + std::to_string(times) : std::string()) + '\n';
    line += times;
  }
  return folded;
}

std::string unfold(const std::string& folded) {
  static const Pattern kRepeated("(progress .*) x([0-9]+)");
  std::string text;
  for (const std::string& line : lines_of(folded)) {
    const Lines repeated = kRepeated.groups_of(line);
    const int times = repeated.empty() ? 1 : std::stoi(repeated[2]);
    for (int i = 0; i < times; ++i) text += unfold_line(repeated.empty() ? line : repeated[1]);
  }
  return text;
}

}  // namespace transcripts
