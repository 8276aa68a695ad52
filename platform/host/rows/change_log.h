/// The writes since the last commit: in order, as a net difference, and as what undoes them.
#ifndef PLATFORM_HOST_CHANGE_LOG_H
#define PLATFORM_HOST_CHANGE_LOG_H

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host_changes.h"
#include "nodes/tree_store.h"
#include "rows/row.h"

namespace host {

/// Keeps, beside each write, the rows as they were before it. The first such row of a name is what
/// an undo brings back, whatever came after.
class ChangeLog {
 public:
  void added(const std::string& path, const std::string& table_path,
             const std::optional<Row>& table_before);
  void deleting(const std::string& path, const RowSet& below);
  void setting(const std::string& name, std::string old_text, std::optional<Row> before,
               const std::string& text);
  void replaced(const RowSet& before, const RowSet& after);

  bool empty() const { return steps_.empty(); }
  std::size_t size() const { return steps_.size(); }
  const std::vector<WriteStep>& steps() const { return steps_; }
  void clear();

  /// What the writes come to, given the tree they were made in.
  RowChanges net(const TreeStore& store) const;

  /// Undoes every write and forgets it.
  void undo(TreeStore& store);

 private:
  using Image = std::pair<std::string, std::optional<Row>>;

  void remember(const std::string& name, std::optional<Row> before) {
    images_.emplace_back(name, std::move(before));
  }

  std::vector<WriteStep> steps_;
  std::vector<Image> images_;
};

/// Row changes in words.
Difference difference_of(const RowChanges& changes);

}  // namespace host

#endif  // PLATFORM_HOST_CHANGE_LOG_H
