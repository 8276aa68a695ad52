#include "failing_add_table.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "documents.h"

namespace transcripts {
namespace {

constexpr char kLetters[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

struct Row {
  std::string marks;  // a letter for each creation that makes the call, else a dot
  std::string call;
};

// Marks the rows that a creation shares with others, and adds rows for the calls that are its own.
std::vector<Row> with_creation(const std::vector<Row>& rows, const Lines& creation,
                               std::size_t column, std::size_t columns) {
  const auto marked = [&](Row row) {
    row.marks[column] = kLetters[column];
    return row;
  };
  Lines calls;
  for (const Row& row : rows) calls.push_back(row.call);
  std::vector<Row> result;
  std::size_t at = 0;
  for (const Edit& edit : edits_between(calls, creation)) {
    for (; at < edit.at; ++at) result.push_back(marked(rows[at]));
    for (; at < edit.at + edit.gone; ++at) result.push_back(rows[at]);
    for (const std::string& call : edit.instead) {
      result.push_back(marked({std::string(columns, '.'), call}));
    }
  }
  for (; at < rows.size(); ++at) result.push_back(marked(rows[at]));
  return result;
}

// What stands between start and end in the first line that has both; "" when none has.
std::string found(const Lines& lines, const std::string& start, const std::string& end) {
  for (const std::string& line : lines) {
    if (line.rfind(start, 0) != 0) continue;
    if (line.size() < start.size() + end.size()) continue;
    const std::size_t end_at = line.size() - end.size();
    if (line.compare(end_at, end.size(), end) == 0) {
      return line.substr(start.size(), end_at - start.size());
    }
  }
  return {};
}

void write_row(std::ostream& out, char letter, const Lines& creation) {
  const auto refused = std::count_if(creation.begin(), creation.end(), [](const auto& line) {
    return line.rfind("refused ", 0) == 0;
  });
  out << letter << "      " << std::left << std::setw(29) << found(creation, "add ", " failed")
      << std::setw(9) << refused << found(creation, "returns ", "") << '\n';
}

}  // namespace

Lines table_of_calls(const std::vector<Lines>& transcripts) {
  std::vector<Row> rows;
  for (std::size_t i = 0; i < transcripts.size(); ++i) {
    rows = with_creation(rows, transcripts[i], i, transcripts.size());
  }
  Lines lines;
  for (const Row& row : rows) lines.push_back(row.marks + "  " + row.call);
  return lines;
}

std::string failing_add_table() {
  std::vector<Lines> creations;
  std::ostringstream text;
  for (const Scenario& scenario : failing_add_scenarios()) {
    const Recording recording = play(scenario);
    if (creations.empty()) {
      text << recording.head.text() << "\nfails  to the table                 refused  returns\n";
    }
    creations.push_back(lines_of(written(recording.text)));
    write_row(text, kLetters[creations.size() - 1], creations.back());
  }
  text << "\nEach call stands beside the creations that make it; in 0, no add fails.\n\n";
  for (const std::string& line : table_of_calls(creations)) text << line << '\n';
  return text.str();
}

}  // namespace transcripts
