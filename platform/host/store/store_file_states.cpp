// The states that a store's file keeps beside the newest: named checkpoints, and what is pending.
#include "rows/row_codec.h"
#include "rows/tree_rows.h"
#include "store/store_file.h"

namespace host {

std::vector<Checkpoint> StoreFile::named_checkpoints() {
  std::vector<Checkpoint> checkpoints;
  Statement& named =
      database_.statement("SELECT name, generation, time FROM checkpoint ORDER BY name");
  const Reading reading(named);
  while (named.next()) {
    const auto generation = static_cast<Generation>(named.number(1));
    if (!checkpoints.empty() && named.view(0) <= checkpoints.back().name) {
      throw StoreFailure(StoreError::kCorrupt, "the table of checkpoints is damaged");
    }
    checkpoints.push_back({named.text(0), generation, named.number(2), {}, false});
  }
  return checkpoints;
}

std::optional<RowSet> StoreFile::named_rows(const std::string& name) {
  Statement& named = database_.statement("SELECT entries FROM checkpoint WHERE name = ?");
  if (!named.bind_text(0, name).next()) return std::nullopt;
  const std::optional<RowChanges> changes = decoded(named.text(0));
  named.reset();
  if (!changes) throw StoreFailure(StoreError::kCorrupt, "the checkpoint is damaged");
  RowSet rows;
  apply_changes(rows, *changes);
  return rows;
}

void StoreFile::add_named(const Checkpoint& checkpoint, const RowSet& rows) {
  database_.statement("INSERT INTO checkpoint(name, generation, time, entries) VALUES(?, ?, ?, ?)")
      .bind_text(0, checkpoint.name)
      .bind(1, static_cast<std::int64_t>(checkpoint.generation))
      .bind(2, checkpoint.time)
      .bind_bytes(3, encoded(rows))
      .run();
}

bool StoreFile::delete_named(const std::string& name) {
  Statement& found = database_.statement("SELECT 1 FROM checkpoint WHERE name = ?");
  const bool is_there = found.bind_text(0, name).next();
  found.reset();
  database_.statement("DELETE FROM checkpoint WHERE name = ?").bind_text(0, name).run();
  return is_there;
}

std::optional<PendingRow> StoreFile::pending() {
  Statement& row = database_.statement(
      "SELECT generation, label, boot, started, deadline FROM pending WHERE only = 1");
  if (!row.next()) return std::nullopt;
  PendingRow pending = {static_cast<Generation>(row.number(0)), row.text(1), row.text(2),
                        row.number(3), row.number(4)};
  row.reset();
  return pending;
}

void StoreFile::set_pending(const PendingRow& row) {
  database_
      .statement(
          "INSERT INTO pending(only, generation, label, boot, started, deadline)"
          " VALUES(1, ?, ?, ?, ?, ?)")
      .bind(0, static_cast<std::int64_t>(row.generation))
      .bind_text(1, row.label)
      .bind_text(2, row.boot)
      .bind(3, row.started)
      .bind(4, row.deadline)
      .run();
}

void StoreFile::clear_pending() { database_.statement("DELETE FROM pending WHERE only = 1").run(); }

}  // namespace host
