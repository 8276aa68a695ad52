#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "dump/csv_reader.h"
#include "dump/dump_format.h"
#include "dump/dump_notes.h"
#include "dump/dump_tree.h"
#include "host_platform.h"
#include "tree/tree_access.h"

namespace host {
namespace {

constexpr std::string_view kRootName = "InternetGatewayDevice";

bool is_flag(const std::string& text) {
  const std::string flag = normalised_boolean(text);
  return flag == "true" || flag == "false";
}

bool is_true(const std::string& text) { return normalised_boolean(text) == "true"; }

// No type at all is no unknown one.
bool is_known_type(const std::string& text) {
  return text.empty() || text == "xsd:string" || type_from_dump(text) != kString;
}

bool is_own(const std::string& name) { return name.substr(0, name.find('.')) == kRootName; }

// Builds the tree that a dump describes, one record at a time. Every step returns the reason why
// the dump is refused, or "" to go on.
class DumpImport {
 public:
  std::string take_header(const CsvRecord& header) {
    const auto& names = header.fields;
    width_ = names.size();
    for (int column = 0; column < kColumns; ++column) {
      const std::string name = kHeaders[column];
      const auto place = std::find(names.begin(), names.end(), name);
      if (place == names.end()) {
        if (column >= kOptionalColumns) continue;
        return "the header has no column \"" + name + "\"";
      }
      if (std::find(place + 1, names.end(), name) != names.end()) {
        return "the header has the column \"" + name + "\" twice";
      }
      places_[column] = static_cast<std::size_t>(place - names.begin());
    }
    return {};
  }

  std::string take(const CsvRecord& record) {
    if (record.fields.size() != width_) {
      return "the header has " + std::to_string(width_) + " columns, the record has " +
             std::to_string(record.fields.size());
    }
    const std::string& name = field(record, kName);
    if (name.empty()) return "the parameter name is empty";
    if (name.size() > kLongestText) return "the parameter name is longer than 16 MiB";
    if (!is_own(name)) {
      ++result_.foreign;
      notes_.foreign(name);
      return {};
    }
    const auto [seen, is_new] = lines_.emplace(name, record.line);
    if (!is_new) return name + " is already on line " + std::to_string(seen->second);
    std::string reason = why_unreadable(record);
    if (!reason.empty()) return reason;
    return is_true(field(record, kIsObject)) ? take_object(record) : take_parameter(record);
  }

  // Puts the finished tree into place.
  std::string finish(Tree& tree, ImportResult& result) {
    if (lines_.empty()) return "there is no row of " + std::string(kRootName);
    for_each_node(tree_.store().root(), [this](const Node& node) {
      if (node.kind == Node::Kind::kInstance) ++result_.objects;
    });
    note_wrong_counts();
    result_.notes = notes_.take();
    std::string reason = TreeAccess::replace(tree, std::move(tree_.store()));
    if (!reason.empty()) return reason;
    result_.ok = true;
    result = result_;
    return {};
  }

 private:
  // "" where an optional column is not there.
  const std::string& field(const CsvRecord& record, Column column) const {
    static const std::string none;
    return places_[column].has_value() ? record.fields[*places_[column]] : none;
  }

  std::string why_unreadable(const CsvRecord& record) const {
    const std::string& name = field(record, kName);
    const std::string& writable = field(record, kWritable);
    if (!is_flag(field(record, kIsObject))) return neither(name, kIsObject);
    if (!writable.empty() && !is_flag(writable)) return neither(name, kWritable);
    const std::string& verbatim = field(record, kVerbatim);
    const std::size_t digits_of_byte = verbatim == kHexadecimal ? 2 : 1;
    if (field(record, kValue).size() / digits_of_byte > kLongestText) {
      return name + ": Value is longer than 16 MiB";
    }
    if (verbatim == kHexadecimal) {
      const bool is_read = from_hexadecimal(field(record, kValue)).has_value();
      return is_read ? std::string() : name + ": Value is not in hexadecimal digits";
    }
    if (verbatim.empty() || is_flag(verbatim)) return {};
    return name + ": Verbatim is not one of true, false and " + kHexadecimal;
  }

  static std::string neither(const std::string& name, Column column) {
    return name + ": " + kHeaders[column] + " is neither true nor false";
  }

  std::string take_object(const CsvRecord& record) {
    const std::string path = field(record, kName) + ".";
    Node* object = nullptr;
    std::string reason = tree_.make_object(path, object);
    if (!reason.empty()) return reason;
    if (object->schema == nullptr) notes_.extension(path);
    const std::string& highest = field(record, kHighest);
    return highest.empty() ? reason : DumpTree::count_from(*object, highest);
  }

  std::string take_parameter(const CsvRecord& record) {
    const std::string& name = field(record, kName);
    if (name == kRootName) return name + " is an object, so it cannot be a parameter";
    if (!field(record, kHighest).empty()) return name + " is not a table, so it has no instances";
    const Access access = is_true(field(record, kWritable)) ? kReadWrite : kReadOnly;
    Cell cell;
    std::string reason =
        tree_.make_parameter(name, type_from_dump(field(record, kType)), access, cell);
    if (reason.empty()) take_value(cell, record);
    return reason;
  }

  void take_value(const Cell& cell, const CsvRecord& record) {
    const std::string& value = field(record, kValue);
    if (cell.is_count()) {
      ++result_.counts;
      stated_counts_.push_back({field(record, kName), value});
      return;
    }
    ++(cell.row != nullptr ? result_.parameters : result_.extensions);
    if (cell.row == nullptr) note_extension(record);
    TreeStore::set(cell, text_of(cell, record));
  }

  void note_extension(const CsvRecord& record) {
    const std::string& type = field(record, kType);
    notes_.extension(field(record, kName));
    if (!is_known_type(type)) notes_.unknown_type(field(record, kName), type);
  }

  std::string text_of(const Cell& cell, const CsvRecord& record) {
    const std::string& value = field(record, kValue);
    const std::string& verbatim = field(record, kVerbatim);
    if (verbatim == kHexadecimal) return *from_hexadecimal(value);
    if (is_true(verbatim)) return value;
    std::string text = cell.type() == kBoolean ? normalised_boolean(value) : value;
    if (text == value) return text;
    ++result_.booleans;
    notes_.boolean(field(record, kName), value, text);
    return text;
  }

  // Counts can be compared only when every instance is there.
  void note_wrong_counts() {
    for (const Parameter& stated : stated_counts_) {
      const std::string computed = value_of(tree_.store().cell(stated.name));
      if (computed != stated.value) notes_.count(stated.name, computed, stated.value);
    }
  }

  DumpTree tree_;
  ImportResult result_;
  DumpNotes notes_;
  std::vector<Parameter> stated_counts_;  // as the dump has them
  std::size_t width_ = 0;
  std::optional<std::size_t> places_[kColumns];
  std::unordered_map<std::string, std::size_t> lines_;  // where each name of the tree stood
};

ImportResult refused(const std::string& source, std::size_t line, const std::string& reason) {
  ImportResult result;
  result.error = source + ":" + std::to_string(line) + ": " + reason;
  return result;
}

}  // namespace

ImportResult import_csv(Tree& tree, std::istream& input, const std::string& source) {
  const CsvContent content = read_csv(input);
  if (!content.error.empty()) return refused(source, content.error_line, content.error);
  if (content.records.empty()) return refused(source, 1, "the input is empty");
  DumpImport import;
  bool in_header = true;
  for (const CsvRecord& record : content.records) {
    const std::string reason = in_header ? import.take_header(record) : import.take(record);
    if (!reason.empty()) return refused(source, record.line, reason);
    in_header = false;
  }
  ImportResult result;
  const std::string reason = import.finish(tree, result);
  return reason.empty() ? result : refused(source, content.records.front().line, reason);
}

ImportResult import_csv_file(Tree& tree, const std::string& path) {
  std::ifstream input(path, std::ios::binary);
  if (input) return import_csv(tree, input, path);
  ImportResult result;
  result.error = path + ": cannot be opened: " + std::strerror(errno);
  return result;
}

}  // namespace host
