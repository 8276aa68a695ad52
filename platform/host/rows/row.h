/// The content of a tree as rows: what a store keeps, compares and undoes.
///
/// A row is there only for what differs from an empty tree of the data model:
///   - an instance, or an object the data model does not know: its path, type "object";
///   - a table of the data model that has handed out instance numbers: its path, type "";
///   - a parameter whose text is not its default: its full name, type "";
///   - a parameter the data model does not know: its full name, type such as "rw string".
/// The text of an object or table is the highest instance number it ever handed out.
#ifndef PLATFORM_HOST_ROW_H
#define PLATFORM_HOST_ROW_H

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace host {

struct Row {
  std::string text;
  std::string type;

  bool is_object() const { return type == "object"; }
  bool operator==(const Row& other) const { return text == other.text && type == other.type; }
  bool operator!=(const Row& other) const { return !(*this == other); }
};

/// In byte order of the names, so that an object stands before all that is in it.
using RowSet = std::map<std::string, Row>;

/// What became of one row; none on a side where it is not there.
struct RowChange {
  std::string name;
  std::optional<Row> before;
  std::optional<Row> after;
};
using RowChanges = std::vector<RowChange>;  ///< in byte order of the names

}  // namespace host

#endif  // PLATFORM_HOST_ROW_H
