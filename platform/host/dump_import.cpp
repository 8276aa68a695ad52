#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <unordered_map>
#include <utility>

#include "csv_reader.h"
#include "dump_tree.h"
#include "host_platform.h"
#include "tree_access.h"

namespace host {
namespace {

enum Column { kName, kIsObject, kWritable, kValue, kType, kColumns };
constexpr const char* kHeaders[kColumns] = {"Parameter", "Object", "Writable", "Value",
                                            "Value type"};
constexpr std::string_view kRootName = "InternetGatewayDevice";

/// "true" or "false" for every way in which dumps write a boolean; any other text as it is.
std::string normalised_boolean(const std::string& text) {
  std::string word = text;
  for (char& c : word) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  if (word == "1" || word == "true") return "true";
  if (word == "0" || word == "false") return "false";
  return text;
}

bool is_flag(const std::string& text) {
  const std::string flag = normalised_boolean(text);
  return flag == "true" || flag == "false";
}

bool is_true(const std::string& text) { return normalised_boolean(text) == "true"; }

bool is_own(const std::string& name) { return name.substr(0, name.find('.')) == kRootName; }

/// Builds the tree that a dump describes, one record at a time. Every step returns the reason why
/// the dump is refused, or "" to go on.
class DumpImport {
 public:
  std::string take_header(const CsvRecord& header) {
    const auto& names = header.fields;
    width_ = names.size();
    for (int column = 0; column < kColumns; ++column) {
      const std::string name = kHeaders[column];
      const auto place = std::find(names.begin(), names.end(), name);
      if (place == names.end()) return "the header names no column \"" + name + "\"";
      if (std::find(place + 1, names.end(), name) != names.end()) {
        return "the header names the column \"" + name + "\" twice";
      }
      places_[column] = static_cast<std::size_t>(place - names.begin());
    }
    return {};
  }

  std::string take(const CsvRecord& record) {
    if (record.fields.size() != width_) {
      return "the header names " + std::to_string(width_) + " columns, the record has " +
             std::to_string(record.fields.size());
    }
    const std::string& name = field(record, kName);
    if (name.empty()) return "the parameter name is empty";
    if (!is_own(name)) {
      ++result_.foreign;
      return {};
    }
    const auto [seen, is_new] = lines_.emplace(name, record.line);
    if (!is_new) return name + " stands on line " + std::to_string(seen->second) + " already";
    std::string reason = why_no_flags(record);
    if (!reason.empty()) return reason;
    return is_true(field(record, kIsObject)) ? take_object(record) : take_parameter(record);
  }

  /// Puts the finished tree into place.
  std::string finish(Tree& tree, ImportResult& result) {
    if (lines_.empty()) return "there is no row of " + std::string(kRootName);
    for_each_node(tree_.store().root(), [this](const Node& node) {
      if (node.kind == Node::Kind::kInstance) ++result_.objects;
    });
    std::string reason = TreeAccess::replace(tree, std::move(tree_.store()));
    if (!reason.empty()) return reason;
    result_.ok = true;
    result = result_;
    return {};
  }

 private:
  const std::string& field(const CsvRecord& record, Column column) const {
    return record.fields[places_[column]];
  }

  std::string why_no_flags(const CsvRecord& record) const {
    const std::string& name = field(record, kName);
    const std::string& writable = field(record, kWritable);
    if (!is_flag(field(record, kIsObject))) return name + ": Object is neither true nor false";
    if (writable.empty() || is_flag(writable)) return {};
    return name + ": Writable is neither true nor false";
  }

  std::string take_object(const CsvRecord& record) {
    Node* object = nullptr;
    return tree_.make_object(field(record, kName) + ".", object);
  }

  std::string take_parameter(const CsvRecord& record) {
    const std::string& name = field(record, kName);
    if (name == kRootName) return name + " is an object, so it cannot be a parameter";
    const Access access = is_true(field(record, kWritable)) ? kReadWrite : kReadOnly;
    Cell cell;
    std::string reason =
        tree_.make_parameter(name, type_from_dump(field(record, kType)), access, cell);
    if (reason.empty()) take_value(cell, field(record, kValue));
    return reason;
  }

  void take_value(const Cell& cell, const std::string& value) {
    if (cell.is_count()) {
      ++result_.counts;
      return;
    }
    ++(cell.row != nullptr ? result_.parameters : result_.extensions);
    const std::string text = cell.type() == kBoolean ? normalised_boolean(value) : value;
    if (text != value) ++result_.booleans;
    TreeStore::set(cell, text);
  }

  DumpTree tree_;
  ImportResult result_;
  std::size_t width_ = 0;
  std::size_t places_[kColumns] = {};
  std::unordered_map<std::string, std::size_t> lines_;  ///< where each name of the tree stood
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
