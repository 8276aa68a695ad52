/// Between a tree and its rows.
#ifndef PLATFORM_HOST_TREE_ROWS_H
#define PLATFORM_HOST_TREE_ROWS_H

#include <optional>
#include <string>

#include "host_platform.h"
#include "nodes/tree_store.h"
#include "rows/row.h"

namespace host {

std::optional<Row> row_of(const Node& node);
std::optional<Row> row_of(const Cell& cell);
/// The row of an object path or full name; none as well when nothing has that name.
std::optional<Row> row_of(const TreeStore& store, const std::string& name);

RowSet rows_below(const Node& node);  ///< and its own
RowSet rows_of(const TreeStore& store);

RowChanges changes_between(const RowSet& before, const RowSet& after);

/// The same changes the other way round.
RowChanges reversed(RowChanges changes);

/// Keeps the counters of tables that stay from going down, so that no instance number is handed out
/// twice.
void keep_counters(RowChanges& changes);

/// Brings the named rows of a tree to what they are after the changes; the others stay.
/// Returns "" or why a row cannot stand in a tree, which is then of no further use.
std::string apply_changes(TreeStore& store, const RowChanges& changes);
void apply_changes(RowSet& rows, const RowChanges& changes);

/// Puts one more row into a tree. Rows come in byte order of their names. Returns "" or why the row
/// cannot stand in the tree, which is then of no further use.
std::string put_row(TreeStore& store, const std::string& name, const Row& row);

/// The tree that has exactly these rows.
std::string tree_from(const RowSet& rows, TreeStore& store);

/// The default of a parameter by its full name, whether or not an object for it exists; "" for one
/// the data model does not know.
std::string default_of(const std::string& name);

}  // namespace host

#endif  // PLATFORM_HOST_TREE_ROWS_H
