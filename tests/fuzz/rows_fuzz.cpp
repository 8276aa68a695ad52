// What a store's file says of a tree: rows with any names and texts either make a tree, which gives
// the same rows again, or are refused with a reason; so do the bytes of changes.
//
// An input is a list of rows, one a line, and behind an empty line a second one: name, text and
// type with tabs between. "~" stands for the root.
#include <utility>
#include <vector>

#include "harness.h"
#include "rows/row_codec.h"
#include "rows/tree_rows.h"

namespace {

using fuzz::require;
using fuzz::require_same;
using host::RowChanges;
using host::RowSet;
using host::TreeStore;

std::vector<std::string> pieces(const std::string& text, char separator, std::size_t most) {
  std::vector<std::string> found;
  std::size_t start = 0;
  while (found.size() + 1 < most) {
    const std::size_t end = text.find(separator, start);
    if (end == std::string::npos) break;
    found.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  found.push_back(text.substr(start));
  return found;
}

std::string full_name(const std::string& name) {
  return name.rfind('~', 0) == 0 ? "InternetGatewayDevice" + name.substr(1) : name;
}

RowSet read_rows(const std::string& text) {
  RowSet rows;
  for (const std::string& line : pieces(text, '\n', 1000)) {
    std::vector<std::string> columns = pieces(line, '\t', 3);
    columns.resize(3);
    if (!columns[0].empty()) rows[full_name(columns[0])] = {columns[1], columns[2]};
  }
  return rows;
}

std::string shown(const RowSet& rows) {
  std::string text;
  for (const auto& [name, row] : rows) text += name + '\t' + row.text + '\t' + row.type + '\n';
  return text;
}

std::string shown(const RowChanges& changes) {
  std::string text;
  for (const host::RowChange& change : changes) {
    text += change.name + '\n';
    for (const auto* row : {&change.before, &change.after}) {
      text += row->has_value() ? (*row)->text + '\t' + (*row)->type + '\n' : "none\n";
    }
  }
  return text;
}

// The rows of the tree that these make; the tree of the data model alone where they make none.
RowSet rows_through_tree(const RowSet& rows, TreeStore& store) {
  const std::string reason = host::tree_from(rows, store);
  if (!reason.empty()) {
    store = TreeStore();
    return {};
  }
  RowSet again = host::rows_of(store);
  TreeStore copy;
  require_same(host::tree_from(again, copy), "", "the rows of a tree make a tree");
  require_same(shown(host::rows_of(copy)), shown(again), "the rows of a tree make the same tree");
  return again;
}

void check_codec(const RowChanges& changes) {
  const std::string bytes = host::encoded(changes);
  const auto back = host::decoded(bytes);
  require(back.has_value(), "what was encoded can be decoded");
  require_same(shown(*back), shown(changes), "what was encoded comes back");
}

// One tree becomes another one by the changes between them, and itself again.
void check_changes(const RowSet& before, const RowSet& after, TreeStore& store) {
  RowChanges changes = host::changes_between(before, after);
  check_codec(changes);
  require_same(host::apply_changes(store, changes), "", "changes between trees can be made");
  require_same(shown(host::rows_of(store)), shown(after), "changes lead to the later tree");
  RowSet rows = after;
  host::apply_changes(rows, host::reversed(changes));
  require_same(shown(rows), shown(before), "the opposite leads back");
  require_same(host::apply_changes(store, host::reversed(changes)), "", "the opposite can be made");
  require_same(shown(host::rows_of(store)), shown(before), "the opposite leads to the old tree");
  host::keep_counters(changes);
  require_same(host::apply_changes(store, changes), "", "counters can be kept");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const auto changes = host::decoded(text);
  if (changes) check_codec(*changes);
  const std::size_t middle = text.find("\n\n");
  const RowSet first = read_rows(text.substr(0, middle));
  const RowSet second = middle == std::string::npos ? RowSet() : read_rows(text.substr(middle + 2));
  check_codec(host::changes_between(first, second));
  TreeStore store;
  TreeStore other;
  const RowSet before = rows_through_tree(first, store);
  const RowSet after = rows_through_tree(second, other);
  check_changes(before, after, store);
  return 0;
}
