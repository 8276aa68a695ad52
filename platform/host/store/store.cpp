// Opening a store, and its public face.
#include <optional>
#include <utility>

#include "rows/tree_rows.h"
#include "store/store_batch.h"
#include "store/store_checkpoints.h"
#include "store/store_connection.h"
#include "store/store_path.h"
#include "store/store_pending.h"
#include "store/store_view.h"

namespace host {

// The parts of a store, and what concerns them all: opening, forks, the look at other processes.
struct Store::Impl {
  Impl(std::string path, StoreOptions options)
      : connection(std::move(path), std::move(options)),
        view(connection, tree),
        pending(connection, view),
        batch(connection, view, pending, [this] { reopen(); }),
        checkpoints(connection) {
    open();
    TreeAccess::observe(tree, &batch);
  }
  ~Impl() {
    abandon();
    TreeAccess::observe(tree, nullptr);
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  // Before each use of the store. A read costs three comparisons and a look at the clock while
  // nothing happened.
  void refresh() {
    view.note_reads();
    if (!view.is_current() || view.pending()) poll();
  }

  // Takes a step that needs the file, on the newest state.
  template <typename Step>
  StoreResult done(const Step& step) {
    refresh();
    return result_of([&] {
      require_own_file();
      step();
    });
  }

  // A child after fork has nothing of its parent's batch, and may have no file yet.
  void require_own_file() {
    if (connection.is_inherited()) reopen();
  }

  // The rows of a checkpoint, or those of now for "".
  RowSet rows_at(const std::string& name) const {
    return name.empty() ? rows_of(view.content()) : checkpoints.rows_at(name);
  }

  void abandon();

  // The parts, which keep their own state to themselves.
  // NOLINTBEGIN(*-non-private-member-variables-in-classes): the store's calls go to them
  Tree tree;
  StoreConnection connection;
  StoreView view;
  StorePending pending;
  StoreBatch batch;
  StoreCheckpoints checkpoints;
  int holds = 0;  // what freezes the view: holds and open walks
                  // NOLINTEND(*-non-private-member-variables-in-classes)

 private:
  void open();
  void load(bool is_locked);
  void reopen();
  void poll();
  void follow();
  void follow_to_another_file();
  void report_once(const StoreResult& result);

  std::string last_trouble_;  // of following other processes, as it was reported
};

// A store that is there is opened without a lock, beside whoever is writing: no process that stops
// in the midst of a commit keeps others from reading.
void Store::Impl::open() {
  const FileSizeSignal no_signal;
  connection.open_shared_state();
  std::optional<CommitLock> lock;
  const auto take_lock = [&] {
    if (!lock) lock.emplace(connection.shared(), connection.lock_deadline());
  };
  if (connection.is_to_be_made()) take_lock();
  if (lock) connection.shared().reserve();
  const StoreResult loaded = result_of([&] {
    connection.open_file();
    if (!connection.is_read_only() && !connection.file().keeps_log()) take_lock();
    load(lock.has_value());
  });
  if (!loaded.ok()) {
    const bool goes_aside = loaded.error == StoreError::kCorrupt &&
                            connection.options().keep_corrupt_aside && !connection.is_read_only();
    if (!goes_aside) throw StoreFailure(loaded);
    connection.close_file();
    take_lock();
    keep_aside(connection.path());
    connection.open_file();
    load(true);
  }
  connection.opened();
}

void Store::Impl::load(bool is_locked) {
  {
    Transaction snapshot(connection.database(), Transaction::kRead);
    view.load();
    // A damaged file stays as it is, in its mode too.
    if (pending.is_overdue() && !connection.is_read_only()) pending.require_revertible();
  }
  if (connection.is_read_only()) connection.require_usable();  // nothing kept it as it was
  connection.file().keep_log();
  connection.file().shorten_log();
  if (is_locked) {
    view.publish_counter();
  } else {
    view.adopt_counter();
  }
  if (!pending.is_overdue()) return;
  if (is_locked) {
    pending.revert_under_lock();
  } else {
    report_once(result_of([this] { pending.try_to_revert(); }));
  }
  view.catch_up();
}

void Store::Impl::reopen() {
  if (connection.is_in_memory()) return connection.opened();
  if (connection.is_of_parent()) batch.leave_to_parent();
  open();
}

// Something may have happened: a commit, a fork, a deadline, the loss of the lock or of a file.
void Store::Impl::poll() {
  report_once(result_of([this] { follow(); }));
}

void Store::Impl::follow() {
  if (connection.is_inherited()) return reopen();
  if (!view.is_current() && !connection.why_not_usable().ok()) return follow_to_another_file();
  const StoreResult reverted = result_of([this] { pending.try_to_revert(); });
  if (!view.is_current()) {
    batch.poison_without_lock();
    if (!batch.has_lock() && holds == 0) view.catch_up();
  }
  if (!reverted.ok()) throw StoreFailure(reverted);
}

// The file is opened anew. While there is none, nothing is made in its place: the tree stays as it
// was, and nothing can be committed.
void Store::Impl::follow_to_another_file() {
  const StoreResult reason = connection.why_not_usable();
  batch.poison_without_lock();
  if (connection.is_gone()) throw StoreFailure(reason);
  view.outdate_reads();
  report(connection.path() + ": opened anew: " + reason.text);
  open();
}

void Store::Impl::report_once(const StoreResult& result) {
  if (result.ok()) return;
  if (last_trouble_ != result.text) report(connection.path() + ": " + result.text);
  last_trouble_ = result.text;
}

void Store::Impl::abandon() {
  if (connection.is_inherited()) return;
  const std::size_t writes = batch.log().size();
  if (writes != 0) {
    report(connection.path() + ": " + std::to_string(writes) +
           " writes were not committed and are lost");
  }
  batch.discard();
  (void)result_of([this] { connection.file().shorten_log(); });
}

std::unique_ptr<Store> Store::open(const std::string& path, const StoreOptions& options,
                                   StoreResult* result) {
  std::unique_ptr<Store> store;
  StoreResult opened =
      result_of([&] { store.reset(new Store(std::make_unique<Impl>(resolved(path), options))); });
  if (!opened.ok()) opened.text = path + ": " + opened.text;
  if (result != nullptr) *result = opened;
  return store;
}

Store::Store(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Store::~Store() = default;

const std::string& Store::path() const { return impl_->connection.path(); }

std::uint64_t Store::generation() const { return impl_->view.generation(); }

Tree& Store::tree() {
  impl_->refresh();
  return impl_->tree;
}

StoreResult Store::commit(const std::string& label) { return impl_->batch.commit(label); }

void Store::discard() { impl_->batch.discard(); }

void Store::abandon() { impl_->abandon(); }

StoreResult Store::begin() {
  return result_of([this] { impl_->batch.begin(); });
}

StoreResult Store::begin_trial() {
  return result_of([this] { impl_->batch.begin_trial(); });
}

bool Store::in_trial() const { return impl_->batch.in_trial(); }

const std::vector<WriteStep>& Store::plan() const { return impl_->batch.log().steps(); }

Difference Store::difference() const {
  return difference_of(impl_->batch.log().net(impl_->view.content()));
}

StoreResult Store::accept(const std::string& label) { return impl_->batch.accept(label); }

StoreResult Store::accept_pending(int seconds, const std::string& label) {
  const StoreResult time = result_of([seconds] { StorePending::require_time(seconds); });
  return time.ok() ? impl_->batch.accept(label, seconds) : time;
}

StoreResult Store::confirm() {
  return result_of([this] {
    impl_->require_own_file();
    impl_->pending.confirm();
  });
}

StoreResult Store::revert() {
  const StoreResult result = result_of([this] {
    impl_->require_own_file();
    impl_->pending.revert();
  });
  if (result.ok()) {
    impl_->refresh();
    impl_->view.forget_reads();  // that it changed was this process's own doing
  }
  return result;
}

std::optional<PendingChange> Store::pending() {
  std::optional<PendingChange> pending;
  (void)impl_->done([&] { pending = impl_->pending.description(); });
  return pending;
}

StoreResult Store::make_checkpoint(const std::string& name) {
  return impl_->done([&] {
    StoreCheckpoints::require_name(name);
    impl_->batch.require_none();
    impl_->checkpoints.make(name);
  });
}

StoreResult Store::delete_checkpoint(const std::string& name) {
  return impl_->done([&] {
    StoreCheckpoints::require_name(name);
    impl_->checkpoints.remove(name);
  });
}

std::vector<Checkpoint> Store::checkpoints(StoreResult* result) {
  std::vector<Checkpoint> listed;
  StoreResult done = impl_->done([&] { listed = impl_->checkpoints.list(); });
  if (result != nullptr) *result = std::move(done);
  return listed;
}

StoreResult Store::difference(const std::string& from, const std::string& to,
                              Difference* difference) {
  return impl_->done([&] {
    const RowSet before = impl_->rows_at(from);
    Difference found = difference_of(changes_between(before, impl_->rows_at(to)));
    if (difference != nullptr) *difference = std::move(found);
  });
}

StoreResult Store::restore(const std::string& name) {
  const StoreResult result = impl_->done([&] {
    if (!impl_->batch.in_trial()) impl_->batch.require_none();
    impl_->batch.restore(impl_->checkpoints.rows_at(name));
  });
  return result.ok() ? impl_->batch.commit("restored " + name) : result;
}

ReadHold::ReadHold(Store& store) : store_(store) {
  store_.impl_->refresh();
  ++store_.impl_->holds;
}

ReadHold::~ReadHold() { --store_.impl_->holds; }

}  // namespace host
