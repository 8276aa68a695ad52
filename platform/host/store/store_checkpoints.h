/// The states that a store can go back to: named ones, and those that the kept changes make.
#ifndef PLATFORM_HOST_STORE_CHECKPOINTS_H
#define PLATFORM_HOST_STORE_CHECKPOINTS_H

#include <optional>
#include <string>
#include <vector>

#include "store/store_connection.h"

namespace host {

/// Members throw StoreFailure.
class StoreCheckpoints {
 public:
  explicit StoreCheckpoints(const StoreConnection& connection) : connection_(connection) {}

  static void require_name(const std::string& name);  ///< throws for one that nobody may give

  void make(const std::string& name);
  void remove(const std::string& name);
  std::vector<Checkpoint> list() const;  ///< automatic ones, newest first; then the named

  RowSet rows_at(const std::string& name) const;

 private:
  std::optional<RowSet> rows_of_generation(Generation generation) const;

  const StoreConnection& connection_;
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_CHECKPOINTS_H
