#include "term/output.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <utility>

#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr int kIndent = 2;
constexpr long kWidest = 10000;

void write_to(std::FILE* stream, std::string_view text) {
  (void)std::fwrite(text.data(), 1, text.size(), stream);
}

std::size_t width_of_terminal(int descriptor) {
  constexpr std::size_t kUsual = 80;
  long columns = 0;
  const char* const wanted = std::getenv("COLUMNS");
  if (wanted != nullptr && parse_number(wanted, 1, kWidest, &columns)) {
    return static_cast<std::size_t>(columns);
  }
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  return kUsual;
}

}  // namespace

Cell::Cell(std::string cell_text, Style cell_style)
    : text(std::move(cell_text)), style(cell_style) {}
Cell::Cell(const char* cell_text) : text(cell_text) {}

Cell switch_cell(bool on) { return {on ? "on" : "off", on ? Style::kGood : Style::kMuted}; }

Json text_or_null(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

Page page_of(std::FILE* stream) {
  Page page;
  const int descriptor = fileno(stream);
  if (isatty(descriptor) == 0) return page;
  page.width = width_of_terminal(descriptor);
  const char* const no_color = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  const bool dumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  page.colour = (no_color == nullptr || *no_color == '\0') && !dumb;
  return page;
}

Output::Output(std::FILE* results, std::FILE* messages, const OutputOptions& options)
    : results_(results), messages_(messages), options_(options), page_(page_of(results)) {}

void Output::document(std::string_view kind, const Json& data) {
  const Json document = {{"format", kJsonFormat}, {"kind", kind}, {"data", data}};
  write_to(results_, document.dump(kIndent, ' ', false, Json::error_handler_t::replace));
  write_to(results_, "\n");
}

void Output::table(const Table& table) { write_to(results_, rendered(table, page_)); }

void Output::heading(std::string_view text) {
  const Table heading{{std::string(text)}, {}};
  write_to(results_, rendered(heading, {0, page_.colour}));
}

void Output::line(std::string_view text) { write_to(results_, printable(text) + '\n'); }

void Output::raw(std::string_view text) { write_to(results_, text); }

void Output::done(std::string_view sentence) {
  if (!options_.quiet && !options_.json) line(sentence);
}

void Output::warn(std::string_view sentence) {
  if (!options_.quiet) write_to(messages_, "igdctl: warning: " + printable(sentence) + '\n');
}

void Output::finish() {
  const bool failed = std::fflush(results_) != 0 || std::ferror(results_) != 0;
  if (!failed) return;
  throw Failure(ExitCode::kFailed, "the results could not be written to standard output",
                "check whether the disk is full, or whether the program that reads it has ended");
}

}  // namespace igdctl
