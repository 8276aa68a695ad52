#include "dump/csv_reader.h"

#include <csv.h>

#include <cstddef>
#include <utility>

namespace host {
namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
// How much libcsv's memory for a field grows at a time: by its own 128 bytes, a long text would be
// moved a hundred thousand times.
constexpr std::size_t kRoomMade = 1U << 20U;

// Feeds libcsv line by line, since libcsv does not count lines.
class CsvReader {
 public:
  CsvReader() {
    // Fails for a null parser only. Line ends outside of records are reported as well: each tells
    // that no quoted field is open.
    (void)csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL);
    csv_set_blk_size(&parser_, kRoomMade);
    csv_set_space_func(&parser_, [](unsigned char) { return 0; });
  }
  CsvReader(const CsvReader&) = delete;
  CsvReader(CsvReader&&) = delete;
  CsvReader& operator=(const CsvReader&) = delete;
  CsvReader& operator=(CsvReader&&) = delete;
  ~CsvReader() { csv_free(&parser_); }

  CsvContent read(std::istream& input) {
    std::string line;
    while (content_.error.empty() && std::getline(input, line)) {
      if (++line_ == 1 && line.compare(0, 3, kByteOrderMark) == 0) line.erase(0, 3);
      if (!input.eof()) line += '\n';
      if (!in_record_) record_line_ = line_;
      in_record_ = true;
      feed(line);
    }
    if (content_.error.empty()) finish(input);
    return std::move(content_);
  }

 private:
  void feed(const std::string& line) {
    if (line.find('\0') != std::string::npos) return fail("the record contains a NUL byte");
    const std::size_t taken =
        csv_parse(&parser_, line.data(), line.size(), &take_field, &end_record, this);
    if (taken != line.size()) fail(parse_error());
  }

  void finish(const std::istream& input) {
    if (input.bad()) return fail("the input cannot be read");
    if (csv_fini(&parser_, &take_field, &end_record, this) != 0) {
      fail("a quoted field is not closed");
    }
  }

  const char* parse_error() {
    const int error = csv_error(&parser_);
    if (error != CSV_EPARSE) return csv_strerror(error);
    return "there is a quote inside an unquoted field, or text after a closing quote";
  }

  void fail(const char* reason) {
    content_.error = reason;
    content_.error_line = record_line_;
  }

  static void take_field(void* text, std::size_t size, void* self) {
    static_cast<CsvReader*>(self)->fields_.emplace_back(static_cast<const char*>(text), size);
  }

  static void end_record(int /*line_end*/, void* self) {
    auto& reader = *static_cast<CsvReader*>(self);
    reader.in_record_ = false;
    if (reader.fields_.empty()) return;
    reader.content_.records.push_back({reader.record_line_, std::move(reader.fields_)});
    reader.fields_.clear();
  }

  csv_parser parser_{};
  CsvContent content_;
  std::vector<std::string> fields_;
  std::size_t line_ = 0;
  std::size_t record_line_ = 1;
  bool in_record_ = false;
};

}  // namespace

CsvContent read_csv(std::istream& input) { return CsvReader().read(input); }

}  // namespace host
