#include "rows/tree_rows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "nodes/names.h"

namespace host {
namespace {

constexpr const char* kObjectType = "object";
constexpr std::size_t kAccessWidth = 3;  // "rw " or "ro " in front of the type

bool names_object(const std::string& name) { return !name.empty() && name.back() == '.'; }

// Whether the node's existence is a matter of its own, not of the data model.
bool is_kept(const Node& node) {
  return node.parent != nullptr && (node.kind == Node::Kind::kInstance || node.schema == nullptr);
}

std::string no_parent(const std::string& name) { return name + " belongs to no object"; }

std::string make_object(TreeStore& store, const std::string& path, Node*& made) {
  const auto [parent_path, own] = split_last(path);
  Node* parent = store.node(parent_path);
  if (parent == nullptr || own.empty()) return no_parent(path);
  if (!is_digits(own)) {
    made = &store.add_foreign_object(*parent, std::string(own));
    return {};
  }
  const std::optional<int> number = number_in(own);
  if (!number || *number == 0 || own.front() == '0') return path + " has no instance number";
  made = &store.add_instance(*parent, *number);
  return {};
}

std::string put_object(TreeStore& store, const std::string& path, const Row& row) {
  Node* node = store.node(path);
  if (node == nullptr && !row.is_object()) return path + " is not a table of the data model";
  if (node == nullptr) {
    std::string reason = make_object(store, path, node);
    if (!reason.empty()) return reason;
  }
  const std::optional<int> counter = number_in(row.text);
  if (!counter) return path + " has no counter";
  node->last_number = *counter;
  const bool is_foreign = node->schema == nullptr && node->kind != Node::Kind::kInstance;
  if (is_foreign) node->kind = *counter > 0 ? Node::Kind::kTable : Node::Kind::kObject;
  return {};
}

ValueType type_of(const std::string& text) { return type_from_dump("xsd:" + text); }

Access access_of(const std::string& type) {
  return type.compare(0, 2, "rw") == 0 ? kReadWrite : kReadOnly;
}

bool is_extension(const Row& row) {
  const std::string access = row.type.substr(0, std::min(kAccessWidth, row.type.size()));
  return access == "rw " || access == "ro ";
}

// Makes an extension; one that is there already gives way to it.
std::string make_extension(TreeStore& store, const std::string& name, const Row& row, Cell& cell) {
  const auto [owner_path, own] = split_last(name);
  Node* owner = store.node(owner_path);
  if (owner == nullptr || own.empty()) return no_parent(name);
  if (!is_extension(row)) return name + " is not in the data model";
  cell = TreeStore::add_foreign_parameter(
      *owner, std::string(own), type_of(row.type.substr(kAccessWidth)), access_of(row.type));
  return {};
}

std::string put_value(TreeStore& store, const std::string& name, const Row& row) {
  Cell cell = store.cell(name);
  const bool in_model = cell && cell.row != nullptr;
  if (!cell || (!in_model && is_extension(row))) {
    std::string reason = make_extension(store, name, row, cell);
    if (!reason.empty()) return reason;
  }
  TreeStore::set(cell, row.text);
  return {};
}

void clear_object(TreeStore& store, Node& node) {
  if (is_kept(node)) {
    store.remove(node);
  } else {
    node.last_number = 0;
  }
}

void clear_value(TreeStore& store, const Cell& cell) {
  if (cell.row != nullptr) {
    TreeStore::set(cell, cell.initial());
  } else {
    store.remove(cell);
  }
}

// Takes a row away; what the data model has goes back to its default.
void clear(TreeStore& store, const std::string& name) {
  if (names_object(name)) {
    Node* const node = store.node(name);
    if (node != nullptr) clear_object(store, *node);
    return;
  }
  const Cell cell = store.cell(name);
  if (cell) clear_value(store, cell);
}

}  // namespace

std::optional<Row> row_of(const Node& node) {
  const std::string counter = std::to_string(node.last_number);
  if (is_kept(node)) return Row{counter, kObjectType};
  if (node.kind == Node::Kind::kTable && node.last_number > 0) return Row{counter, {}};
  return std::nullopt;
}

std::optional<Row> row_of(const Cell& cell) {
  if (cell.is_count()) return std::nullopt;
  std::string text = value_of(cell);
  if (cell.row != nullptr) {
    if (text == cell.initial()) return std::nullopt;
    return Row{std::move(text), {}};
  }
  const char* access = cell.access() == kReadWrite ? "rw " : "ro ";
  return Row{std::move(text), access + std::string(type_name(cell.type()))};
}

std::optional<Row> row_of(const TreeStore& store, const std::string& name) {
  if (names_object(name)) {
    const Node* node = store.node(name);
    return node != nullptr ? row_of(*node) : std::nullopt;
  }
  const Cell cell = store.cell(name);
  return cell ? row_of(cell) : std::nullopt;
}

RowSet rows_below(const Node& node) {
  RowSet rows;
  for_each_node(node, [&rows](const Node& at) {
    if (auto row = row_of(at)) rows.emplace(at.path, std::move(*row));
    for_each_cell(at, [&rows, &at](std::string_view name, const Cell& cell) {
      if (auto row = row_of(cell)) rows.emplace(at.path + std::string(name), std::move(*row));
    });
  });
  return rows;
}

RowSet rows_of(const TreeStore& store) { return rows_below(store.root()); }

RowChanges changes_between(const RowSet& before, const RowSet& after) {
  RowChanges changes;
  auto old_row = before.begin();
  auto new_row = after.begin();
  while (old_row != before.end() || new_row != after.end()) {
    const bool old_only =
        new_row == after.end() || (old_row != before.end() && old_row->first < new_row->first);
    const bool new_only = !old_only && (old_row == before.end() || new_row->first < old_row->first);
    if (old_only) {
      changes.push_back({old_row->first, old_row->second, std::nullopt});
    } else if (new_only) {
      changes.push_back({new_row->first, std::nullopt, new_row->second});
    } else if (old_row->second != new_row->second) {
      changes.push_back({old_row->first, old_row->second, new_row->second});
    }
    if (!new_only) ++old_row;
    if (!old_only) ++new_row;
  }
  return changes;
}

RowChanges reversed(RowChanges changes) {
  for (RowChange& change : changes) std::swap(change.before, change.after);
  return changes;
}

void keep_counters(RowChanges& changes) {
  std::string gone;  // the deleted object that the next rows are in
  for (RowChange& change : changes) {
    const bool in_gone = !gone.empty() && change.name.compare(0, gone.size(), gone) == 0;
    if (in_gone || !names_object(change.name) || !change.before) continue;
    if (!change.after && change.before->is_object()) {
      gone = change.name;
      continue;
    }
    const int counter = number_in(change.before->text).value_or(0);
    if (!change.after || number_in(change.after->text).value_or(0) < counter) {
      change.after = change.before;
    }
  }
  const auto is_same = [](const RowChange& change) { return change.before == change.after; };
  changes.erase(std::remove_if(changes.begin(), changes.end(), is_same), changes.end());
}

std::string put_row(TreeStore& store, const std::string& name, const Row& row) {
  return names_object(name) ? put_object(store, name, row) : put_value(store, name, row);
}

std::string apply_changes(TreeStore& store, const RowChanges& changes) {
  for (const RowChange& change : changes) {
    if (!change.after) clear(store, change.name);
  }
  for (const RowChange& change : changes) {  // an object comes before all that is in it
    if (!change.after) continue;
    std::string reason = put_row(store, change.name, *change.after);
    if (!reason.empty()) return reason;
  }
  return {};
}

void apply_changes(RowSet& rows, const RowChanges& changes) {
  for (const RowChange& change : changes) {
    if (change.after) {
      rows[change.name] = *change.after;
    } else {
      rows.erase(change.name);
    }
  }
}

std::string tree_from(const RowSet& rows, TreeStore& store) {
  store = TreeStore();
  for (const auto& [name, row] : rows) {
    std::string reason = put_row(store, name, row);
    if (!reason.empty()) return reason;
  }
  return {};
}

std::string default_of(const std::string& name) {
  const ObjectSchema* object = &data_model();
  std::size_t start = kRootPath.size();
  for (std::size_t dot = 0; (dot = name.find('.', start)) != std::string::npos; start = dot + 1) {
    const std::string component = name.substr(start, dot - start);
    if (is_digits(component)) continue;
    const auto child = object->children.find(component);
    if (child == object->children.end()) return {};
    object = child->second.get();
  }
  const std::string own = start < name.size() ? name.substr(start) : std::string();
  for (const SchemaRow* row : object->parameters) {
    if (row->name == own) return std::string(row->initial);
  }
  return {};
}

}  // namespace host
