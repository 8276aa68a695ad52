#include "console.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

Console::Console(std::string trace_file) : trace_file_(std::move(trace_file)) {
  std::fflush(stdout);
  const int terminal = ::dup(STDOUT_FILENO);
  ::unlink(trace_file_.c_str());  // an old one may be readable by others
  const int trace = ::open(trace_file_.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
  if (terminal >= 0) terminal_ = ::fdopen(terminal, "w");
  if (terminal_ == nullptr || trace < 0 || ::dup2(trace, STDOUT_FILENO) < 0) {
    std::perror(trace_file_.c_str());
    std::exit(EXIT_FAILURE);
  }
  ::close(trace);
}

Console::~Console() {
  std::fflush(stdout);
  std::fclose(terminal_);
}

void Console::heading(const std::string& text) { line("\n" + text); }

void Console::line(const std::string& text) {
  std::fprintf(terminal_, "%s\n", text.c_str());
  std::fflush(terminal_);
}

void Console::table(const Row& titles, const std::vector<Row>& rows) {
  std::vector<std::size_t> widths(titles.size());
  const auto widen = [&widths](const Row& row) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  };
  widen(titles);
  for (const Row& row : rows) widen(row);
  const auto print = [this, &widths](const Row& row) {
    std::string text = " ";
    for (std::size_t i = 0; i < row.size(); ++i) {
      text += ' ' + row[i] + std::string(widths[i] - row[i].size() + 1, ' ');
    }
    line(text.substr(0, text.find_last_not_of(' ') + 1));
  };
  print(titles);
  for (const Row& row : rows) print(row);
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text.empty() ? "-" : text;
}
