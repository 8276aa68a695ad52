/// Reads RFC 4180 CSV and remembers where each record began.
#ifndef PLATFORM_HOST_CSV_READER_H
#define PLATFORM_HOST_CSV_READER_H

#include <cstddef>
#include <istream>
#include <string>
#include <vector>

namespace host {

struct CsvRecord {
  std::size_t line;  ///< physical line, from 1, on which the record starts
  std::vector<std::string> fields;
};

struct CsvContent {
  std::vector<CsvRecord> records;
  std::string error;           ///< empty when the whole input was read
  std::size_t error_line = 1;  ///< where the record that cannot be read starts
};

/// Reads to the end of the input or to the first error. Lines end in LF or CRLF, a byte order mark
/// is skipped, empty lines are no records; blanks belong to their field. Refuses NUL bytes, quotes
/// inside unquoted fields, text after a closing quote, and a quote that is never closed.
CsvContent read_csv(std::istream& input);

}  // namespace host

#endif  // PLATFORM_HOST_CSV_READER_H
