#include "state.h"

#include <algorithm>
#include <utility>

#include "rows/row_codec.h"
#include "rows/tree_rows.h"

namespace proof {
namespace {

using host::Row;
using host::RowSet;

std::string described(host::Generation generation, const std::string& label,
                      const host::RowChanges& rows) {
  return std::to_string(generation) + " " + label + " " + host::encoded(rows);
}

bool is_counter(const std::string& name) { return !name.empty() && name.back() == '.'; }

std::string parent_of(const std::string& path) {
  const std::size_t dot = path.rfind('.', path.size() - 2);
  return dot == std::string::npos ? std::string() : path.substr(0, dot + 1);
}

// Every object of `rows` that a counter below `path` may belong to is there.
bool stands_in(const RowSet& rows, const RowSet& later, std::string path) {
  for (path = parent_of(path); !path.empty(); path = parent_of(path)) {
    const auto found = later.find(path);
    if (found != later.end() && found->second.is_object() && rows.count(path) == 0) return false;
  }
  return true;
}

}  // namespace

bool State::operator==(const State& other) const {
  return generation == other.generation && rows == other.rows && changes == other.changes &&
         named == other.named && pending == other.pending;
}

std::string difference_of_rows(const RowSet& expected, const RowSet& found) {
  std::string text;
  for (const host::RowChange& change : host::changes_between(expected, found)) {
    const auto side = [](const std::optional<Row>& row) { return row ? row->text : "(none)"; };
    text += "  " + change.name + ": " + side(change.before).substr(0, 40) + " became " +
            side(change.after).substr(0, 40) + "\n";
  }
  return text;
}

std::string difference(const State& expected, const State& found) {
  std::string text;
  if (expected.generation != found.generation) {
    text += "  generation " + std::to_string(expected.generation) + " became " +
            std::to_string(found.generation) + "\n";
  }
  if (expected.changes != found.changes) text += "  other automatic checkpoints\n";
  if (expected.named != found.named) text += "  other named checkpoints\n";
  if (expected.pending != found.pending) {
    text += "  pending '" + expected.pending + "' became '" + found.pending + "'\n";
  }
  return text + difference_of_rows(expected.rows, found.rows);
}

State state_of(host::StoreFile& file) {
  const host::Transaction snapshot(file.database(), host::Transaction::kRead);
  State state;
  state.generation = file.generation();
  state.rows = file.rows();
  for (const host::Change& change : file.kept_changes()) {
    state.changes.push_back(described(change.generation, change.label, change.rows));
  }
  for (const host::Checkpoint& checkpoint : file.named_checkpoints()) {
    const std::string name = checkpoint.name + " " + std::to_string(checkpoint.generation);
    state.named[name] = file.named_rows(checkpoint.name).value_or(RowSet());
  }
  if (const auto pending = file.pending()) {
    state.pending = std::to_string(pending->generation) + " " + pending->label;
  }
  return state;
}

State after_restart(const State& state, const State& before) {
  if (state.pending.empty()) return state;
  State restarted = state;
  restarted.rows = before.rows;
  for (const auto& [name, row] : state.rows) {
    if (!is_counter(name) || !stands_in(before.rows, state.rows, name)) continue;
    const auto old = before.rows.find(name);
    if (old == before.rows.end() && !row.is_object()) restarted.rows[name] = row;
    if (old != before.rows.end() && std::stoi(old->second.text) < std::stoi(row.text)) {
      restarted.rows[name].text = row.text;
    }
  }
  const std::string label = state.pending.substr(state.pending.find(' ') + 1);
  restarted.generation = state.generation + 1;
  restarted.changes.push_back(described(restarted.generation, "reverted: " + label,
                                        host::changes_between(state.rows, restarted.rows)));
  if (restarted.changes.size() > host::kChangesKept) {
    restarted.changes.erase(restarted.changes.begin());
  }
  restarted.pending.clear();
  return restarted;
}

}  // namespace proof
