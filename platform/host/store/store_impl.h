/// The inside of a store. Its members stand in one source for each subject: store.cpp opens and
/// forwards, store_batch.cpp writes, store_view.cpp follows other processes, store_trial.cpp
/// holds commits back, store_pending.cpp confirms or reverts, store_checkpoint.cpp goes back.
#ifndef PLATFORM_HOST_STORE_IMPL_H
#define PLATFORM_HOST_STORE_IMPL_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host_store.h"
#include "rows/change_log.h"
#include "store/boot_clock.h"
#include "store/shared_state.h"
#include "store/store_file.h"
#include "tree/tree_access.h"

namespace host {

/// How often this process is the child of a fork, since the first store was opened.
int forks_so_far();

/// A line to the debug sink.
void report(const std::string& text);

struct Store::Impl final : TreeObserver {
  Impl(std::string its_path, StoreOptions its_options);
  ~Impl();
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  // Opening. Throws StoreFailure.
  void open();
  void load();
  void open_anew_after_fork();
  static void leave_files_to_parent();
  void leave_file_to_parent();
  void leave_batch_to_parent();
  /// For what asks the file without a look around: a child after fork may have none yet.
  void require_own_file() {
    if (is_forked()) open_anew_after_fork();
  }
  bool is_forked() const { return forks != forks_so_far(); }
  void abandon();

  // The view. A read costs three comparisons while nothing happened.
  bool is_current() const { return !is_forked() && shared->counter() == seen_counter; }
  void refresh() {
    if (!is_current() || pending) poll();
  }
  void poll();
  void catch_up();  ///< throws StoreFailure
  void reload();    ///< throws StoreFailure
  std::uint32_t repaired_counter();

  // The batch.
  Admission admit() override;
  void added(const std::string& path, const std::string& table_path,
             const std::optional<Row>& table_before) override {
    log.added(path, table_path, table_before);
  }
  void deleting(const std::string& path, const RowSet& below) override {
    log.deleting(path, below);
  }
  void setting(const std::string& name, std::string old_text, std::optional<Row> before,
               const std::string& text) override {
    log.setting(name, std::move(old_text), std::move(before), text);
  }
  void replaced(const RowSet& before, const RowSet& after) override { log.replaced(before, after); }
  void begin_batch();  ///< throws StoreFailure
  void poison(const StoreResult& reason);
  StoreResult commit(const std::string& label);
  void write_batch(const std::string& label);                 ///< throws StoreFailure
  void land(Transaction& transaction, const Change& change);  ///< throws StoreFailure
  void discard();
  void drop_batch();

  // The trial.
  StoreResult begin_trial();
  StoreResult accept(const std::string& label);

  // The change that waits for its confirmation.
  StoreResult accept_pending(int seconds, const std::string& label);
  StoreResult confirm() { return end_pending(true); }
  StoreResult revert() { return end_pending(false); }
  StoreResult end_pending(bool keep);
  std::optional<PendingChange> pending_change();
  bool is_too_late(const PendingRow& row) const;
  void revert_when_too_late();                  ///< throws StoreFailure
  RowChanges revert_of(const PendingRow& row);  ///< throws StoreFailure, also for a damaged file
  void revert_pending(const PendingRow& row);   ///< throws StoreFailure; needs the commit lock

  // Checkpoints.
  StoreResult make_checkpoint(const std::string& name);
  StoreResult delete_checkpoint(const std::string& name);
  std::vector<Checkpoint> checkpoints(StoreResult* result);
  StoreResult difference(const std::string& from, const std::string& to, Difference* difference);
  StoreResult restore(const std::string& name);
  RowSet rows_at(const std::string& checkpoint);  ///< throws StoreFailure

  TreeStore& content() { return TreeAccess::store(tree); }

  const std::string store_path;
  const StoreOptions options;
  Tree tree;
  ChangeLog log;
  std::unique_ptr<SharedState> shared;
  std::unique_ptr<StoreFile> file;  ///< null only in a child after fork that could not open it
  Generation generation = 0;
  std::uint32_t seen_counter = 1;     ///< odd: the database has to be asked
  SharedState::Batch batch = 0;       ///< 0: no batch is open
  bool trial = false;                 ///< commits are held back
  StoreResult poisoned;               ///< why the batch cannot land
  int seconds_to_confirm = 0;         ///< of the batch that is being committed; 0: it just stays
  std::optional<PendingRow> pending;  ///< as last read; it may be confirmed meanwhile
  int holds = 0;                      ///< what freezes the view: holds and open walks
  int forks = 0;
  std::string last_trouble;  ///< of following other processes, as it was reported
};

}  // namespace host

#endif  // PLATFORM_HOST_STORE_IMPL_H
