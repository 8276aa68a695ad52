/// The writes of a store, from the first one to the commit.
#ifndef PLATFORM_HOST_STORE_BATCH_H
#define PLATFORM_HOST_STORE_BATCH_H

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "rows/change_log.h"
#include "store/store_pending.h"
#include "store/store_view.h"
#include "tree/tree_observer.h"

namespace host {

/// Is asked before each write to the tree and told of it. A write that the store cannot take
/// poisons the batch: what was written is undone, and nothing is taken before the next commit. A
/// trial holds every commit back until somebody decides.
class StoreBatch final : public TreeObserver {
 public:
  /// @param reopen  makes the store this process's own after a fork; throws StoreFailure
  StoreBatch(StoreConnection& connection, StoreView& view, StorePending& pending,
             std::function<void()> reopen)
      : connection_(connection), view_(view), pending_(pending), reopen_(std::move(reopen)) {}

  Admission admit() override;
  void added(const std::string& path, const std::string& table_path,
             const std::optional<Row>& table_before) override {
    log_.added(path, table_path, table_before);
  }
  void deleting(const std::string& path, const RowSet& below) override {
    log_.deleting(path, below);
  }
  void setting(const std::string& name, std::string old_text, std::optional<Row> before,
               const std::string& text) override {
    log_.setting(name, std::move(old_text), std::move(before), text);
  }
  void replaced(const RowSet& before, const RowSet& after) override {
    log_.replaced(before, after);
  }

  const ChangeLog& log() const { return log_; }
  bool has_lock() const { return number_ != kNone; }  ///< as far as it was told
  bool in_trial() const { return in_trial_; }
  void require_none() const;  ///< throws StoreFailure when one is open or poisoned

  StoreResult commit(const std::string& label, int seconds_to_confirm = 0);
  void discard();
  void begin();        ///< before the first write; throws StoreFailure, no batch is open then
  void begin_trial();  ///< likewise
  StoreResult accept(const std::string& label, int seconds_to_confirm = 0);

  /// Brings the tree to these rows, but for counters that would go down. What fails poisons.
  void restore(const RowSet& target);

  void poison_without_lock();  ///< when another batch took the lock over
  void leave_to_parent();      ///< in a child after fork: nothing of it was ever this process's

 private:
  static constexpr SharedState::Batch kNone = 0;

  bool may_go_on() const {
    return has_lock() && !connection_.is_inherited() && connection_.shared().owns(number_);
  }
  void begin_or_go_on();
  void take_lock();
  void begin_on_what_was_read();
  void require_lock() const;
  void require_newest() const;
  void poison(const StoreResult& reason);
  void write(const std::string& label, int seconds_to_confirm);
  void land(RowChanges rows, const std::string& label, int seconds_to_confirm);
  void drop();

  StoreConnection& connection_;
  StoreView& view_;
  StorePending& pending_;
  const std::function<void()> reopen_;
  ChangeLog log_;
  SharedState::Batch number_ = kNone;
  bool in_trial_ = false;
  StoreResult poisoned_;  ///< why it cannot land
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_BATCH_H
