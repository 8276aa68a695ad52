// A tree as a CSV dump.
#include <csv.h>

#include <ostream>
#include <string>
#include <vector>

#include "dump/dump_format.h"
#include "host_platform.h"

namespace host {
namespace {

using Row = std::string[kColumns];

const char* flag(bool value) { return value ? "true" : "false"; }

// A field as RFC 4180 has it; in quotes only where a reader could take it for something else.
std::string csv_field(const std::string& text) {
  const bool is_plain = text.find_first_of(",\"\r\n") == std::string::npos &&
                        (text.empty() || (text.front() != ' ' && text.back() != ' '));
  if (is_plain) return text;
  std::string quoted(2 * text.size() + 2, '\0');
  quoted.resize(csv_write(quoted.data(), quoted.size(), text.data(), text.size()));
  return quoted;
}

// The data model's own names for kinds of strings are no types that other readers know. An
// extension keeps the type that it came with.
std::string dump_type(const ParameterInfo& info) {
  const bool is_kind_of_string =
      info.type == "IPAddress" || info.type == "MACAddress" || info.type == "Alias";
  return "xsd:" + (is_kind_of_string && !info.extension ? "string" : info.type);
}

class CsvExport {
 public:
  explicit CsvExport(const Tree& tree) : tree_(tree), parameters_(tree.parameters()) {}

  ExportResult write(std::ostream& output) {
    write_record(output, kHeaders);
    auto next = parameters_.begin();
    for (const Object& object : tree_.objects()) {
      write_object(output, object);
      for (; next != parameters_.end() && is_own(object, *next); ++next) {
        write_parameter(output, *next);
      }
    }
    result_.ok = !output.flush().fail();
    if (!result_.ok) result_.error = "the output cannot be written";
    return result_;
  }

 private:
  static bool is_own(const Object& object, const Parameter& parameter) {
    return parameter.name.rfind('.') + 1 == object.path.size() &&
           parameter.name.compare(0, object.path.size(), object.path) == 0;
  }

  template <typename Text>
  static void write_record(std::ostream& output, const Text (&fields)[kColumns]) {
    for (int column = 0; column < kColumns; ++column) {
      output << (column == 0 ? "" : ",") << csv_field(fields[column]);
    }
    output << '\n';
  }

  void write_object(std::ostream& output, const Object& object) {
    Row row;
    row[kName] = object.path.substr(0, object.path.size() - 1);
    row[kIsObject] = flag(true);
    row[kWritable] = flag(object.writable);
    if (object.kind == Object::Kind::kTable) row[kHighest] = std::to_string(object.highest);
    write_record(output, row);
    ++result_.objects;
  }

  void write_parameter(std::ostream& output, const Parameter& parameter) {
    const ParameterInfo info = tree_.describe(parameter.name).value();
    Row row;
    row[kName] = parameter.name;
    row[kIsObject] = flag(false);
    row[kWritable] = flag(info.writable);
    row[kType] = dump_type(info);
    put_value(row, parameter.value, info);
    write_record(output, row);
    ++result_.parameters;
  }

  static void put_value(Row& row, const std::string& value, const ParameterInfo& info) {
    const bool has_nul = value.find('\0') != std::string::npos;
    const bool would_change = info.type == "boolean" && normalised_boolean(value) != value;
    row[kValue] = has_nul ? hexadecimal(value) : value;
    if (would_change) row[kVerbatim] = flag(true);
    if (has_nul) row[kVerbatim] = kHexadecimal;
  }

  const Tree& tree_;
  std::vector<Parameter> parameters_;
  ExportResult result_;
};

}  // namespace

ExportResult export_csv(const Tree& tree, std::ostream& output) {
  return CsvExport(tree).write(output);
}

}  // namespace host
