#include "rows/change_log.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "rows/tree_rows.h"

namespace host {

void ChangeLog::added(const std::string& path, const std::string& table_path,
                      const std::optional<Row>& table_before) {
  steps_.push_back({WriteStep::Kind::kAdd, path, {}, {}});
  remember(path, std::nullopt);
  remember(table_path, table_before);
}

void ChangeLog::deleting(const std::string& path, const RowSet& below) {
  steps_.push_back({WriteStep::Kind::kDelete, path, {}, {}});
  for (const auto& [name, row] : below) remember(name, row);
}

void ChangeLog::setting(const std::string& name, std::string old_text, std::optional<Row> before,
                        const std::string& text) {
  steps_.push_back({WriteStep::Kind::kSet, name, std::move(old_text), text});
  remember(name, std::move(before));
}

void ChangeLog::replaced(const RowSet& before, const RowSet& after) {
  steps_.push_back({WriteStep::Kind::kReplace, std::string(kRootPath), {}, {}});
  for (RowChange& change : changes_between(before, after)) {
    remember(change.name, std::move(change.before));
  }
}

void ChangeLog::clear() {
  steps_.clear();
  images_.clear();
}

RowChanges ChangeLog::net(const TreeStore& store) const {
  std::vector<const Image*> by_name;
  by_name.reserve(images_.size());
  for (const Image& image : images_) by_name.push_back(&image);
  const auto comes_before = [](const Image* one, const Image* other) {
    return one->first < other->first;
  };
  std::stable_sort(by_name.begin(), by_name.end(),
                   comes_before);  // the first of a name stays first
  RowChanges changes;
  changes.reserve(by_name.size());
  const std::string* previous = nullptr;
  for (const Image* image : by_name) {
    const auto& [name, before] = *image;
    if (previous != nullptr && *previous == name) continue;
    previous = &name;
    std::optional<Row> now = row_of(store, name);
    if (now != before) changes.push_back({name, before, std::move(now)});
  }
  return changes;
}

void ChangeLog::undo(TreeStore& store) {
  (void)apply_changes(store, reversed(net(store)));  // these rows stood in this tree before
  clear();
}

Difference difference_of(const RowChanges& changes) {
  Difference difference;
  std::string gone;  // the topmost deleted object at this place; what was in it follows
  for (const RowChange& change : changes) {
    const bool is_object = change.name.back() == '.';
    if (!is_object) {
      const bool in_deleted = !gone.empty() && change.name.compare(0, gone.size(), gone) == 0;
      if (in_deleted) continue;
      const std::string initial = default_of(change.name);
      difference.values.push_back({change.name, change.before ? change.before->text : initial,
                                   change.after ? change.after->text : initial});
      continue;
    }
    const Row& row = change.after ? *change.after : *change.before;
    if (!row.is_object()) continue;  // a counter
    if (!change.before) difference.added.push_back(change.name);
    if (!change.after) difference.deleted.push_back(change.name);
    const bool in_gone = !gone.empty() && change.name.compare(0, gone.size(), gone) == 0;
    if (!change.after && !in_gone) gone = change.name;
  }
  return difference;
}

}  // namespace host
