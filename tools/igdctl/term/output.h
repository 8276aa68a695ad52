/// Where results and messages go, and in which form.
///
/// Results go to standard output: tables and sentences for people, or with --json one document
/// {"format": 1, "kind": "wan.list", "data": ...} for programs. Messages go to standard error.
#ifndef IGDCTL_OUTPUT_H
#define IGDCTL_OUTPUT_H

#include <cstddef>
#include <cstdio>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace igdctl {

/// Number of the form of every JSON document. A change that readers may stumble over raises it.
inline constexpr int kJsonFormat = 1;

/// Keys stay in the order in which a command writes them.
using Json = nlohmann::ordered_json;

enum class Style { kPlain, kHeading, kGood, kBad, kWarning, kMuted };

/// One cell. Its text is made printable when it is shown; callers pass values as they are.
struct Cell {
  // cppcheck-suppress noExplicitConstructor
  Cell(std::string cell_text, Style cell_style = Style::kPlain);  // NOLINT: text is a cell
  // cppcheck-suppress noExplicitConstructor
  Cell(const char* cell_text);  // NOLINT: text is a cell
  std::string text;
  Style style = Style::kPlain;
};

/// "on" or "off".
Cell switch_cell(bool on);

/// The text for programs; null for the empty one.
Json text_or_null(const std::string& text);

struct Table {
  std::vector<std::string> headings;    ///< empty: a table without a heading line
  std::vector<std::vector<Cell>> rows;  ///< each as long as the others
};

/// What the results may use of their terminal. For a pipe or a file: no limit, no colour.
struct Page {
  std::size_t width = 0;  ///< columns; 0 for no limit: nothing is cut then
  bool colour = false;
};

/// A table as lines, columns two blanks apart, an empty cell as "-". When it is wider than the
/// page, its widest columns are cut. With headings none gets narrower than 8 in this way: on a page
/// too narrow for that, each row stands as a list of heading and cell. There, and without headings,
/// cells are cut until they fit or none is wider than 4.
std::string rendered(const Table& table, const Page& page);

/// The page that a stream is, from its terminal, COLUMNS and NO_COLOR.
Page page_of(std::FILE* stream);

struct OutputOptions {
  bool json = false;
  bool quiet = false;
  bool verbose = false;
};

class Output {
 public:
  Output(std::FILE* results, std::FILE* messages, const OutputOptions& options);

  bool json() const { return options_.json; }
  const Page& page() const { return page_; }

  /// Results. A command calls document() when json() holds, and the others when not.
  void document(std::string_view kind, const Json& data);
  void table(const Table& table);
  void heading(std::string_view text);  ///< a line above a table
  void line(std::string_view text);     ///< one line, made printable
  void raw(std::string_view text);      ///< text as it is: drawings, dumps, completion scripts

  /// What a command did, in a sentence: a result for people, left out with --quiet and --json.
  void done(std::string_view sentence);

  /// A message on standard error, made printable, left out with --quiet.
  void warn(std::string_view sentence);

  /// Throws Failure when results could not be written (a full disk, for one).
  void finish();

 private:
  std::FILE* results_;
  std::FILE* messages_;
  OutputOptions options_;
  Page page_;
};

}  // namespace igdctl

#endif  // IGDCTL_OUTPUT_H
