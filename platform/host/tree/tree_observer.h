/// Whoever keeps a tree durable or undoable is asked before, and told of, every write.
#ifndef PLATFORM_HOST_TREE_OBSERVER_H
#define PLATFORM_HOST_TREE_OBSERVER_H

#include <optional>
#include <string>

#include "rows/row.h"

namespace host {

class TreeObserver {
 public:
  struct Admission {
    const char* refusal;  ///< why no write is possible now, null when one is; good until the next
    bool moved;           ///< whether the tree's content may be another one now
  };

  /// May a write that the tree itself allows go on?
  virtual Admission admit() = 0;

  virtual void added(const std::string& path, const std::string& table_path,
                     const std::optional<Row>& table_before) = 0;
  /// @param below  the rows of the object and of all below it
  virtual void deleting(const std::string& path, const RowSet& below) = 0;
  virtual void setting(const std::string& name, std::string old_text, std::optional<Row> before,
                       const std::string& text) = 0;
  virtual void replaced(const RowSet& before, const RowSet& after) = 0;

 protected:
  ~TreeObserver() = default;
};

}  // namespace host

#endif  // PLATFORM_HOST_TREE_OBSERVER_H
