/// Opening a store, and its public face.
#include <pthread.h>
#include <sys/stat.h>

#include <climits>
#include <cstdlib>
#include <set>
#include <utility>

#include "rows/tree_rows.h"
#include "store/store_impl.h"

namespace host {
namespace {

int forks = 0;

void count_forks() {
  static const int registered = pthread_atfork(nullptr, nullptr, [] { ++forks; });
  (void)registered;
}

std::set<Store::Impl*>& all_stores() {
  static auto* const stores = new std::set<Store::Impl*>;
  return *stores;
}

/// The file behind symbolic links, so that all processes find the same neighbours of it.
std::string resolved(const std::string& path) {
  if (path == ":memory:") return path;
  struct stat status = {};
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    throw StoreFailure(StoreError::kNotOpened, "it is no file");
  }
  char buffer[PATH_MAX];
  if (realpath(path.c_str(), buffer) != nullptr) return buffer;
  const std::size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  const bool is_folder = realpath(folder.c_str(), buffer) != nullptr &&
                         stat(buffer, &status) == 0 && S_ISDIR(status.st_mode);
  if (!is_folder || name.empty()) {
    throw StoreFailure(StoreError::kNotOpened, "the folder of the store is not there");
  }
  return std::string(buffer) + "/" + name;
}

}  // namespace

int forks_so_far() { return forks; }

void report(const std::string& text) { c_debug_out("host_store", __LINE__, "%s", text.c_str()); }

Store::Impl::Impl(std::string its_path, StoreOptions its_options)
    : store_path(std::move(its_path)), options(std::move(its_options)) {
  open();
  all_stores().insert(this);
  TreeAccess::observe(tree, this);
}

Store::Impl::~Impl() {
  abandon();
  TreeAccess::observe(tree, nullptr);
  if (is_forked()) leave_file_to_parent();
  all_stores().erase(this);
}

/// Only the child's own, of which it has none, go with it: the parent keeps its locks.
void Store::Impl::leave_file_to_parent() {
  if (file == nullptr || store_path == ":memory:") return;
  file->database().leave_log();
  file.reset();
}

void Store::Impl::leave_batch_to_parent() {
  log.undo(content());
  batch = 0;
  trial = false;
  poisoned = {};
}

/// In a child SQLite would go on to count the parent's locks as held and take none, and others
/// would throw the log away under its feet. So before a child opens a file it lets go of every one
/// that it has from its parent, whichever store they belong to.
void Store::Impl::leave_files_to_parent() {
  for (Impl* const store : all_stores()) {
    if (store->is_forked()) store->leave_file_to_parent();
  }
}

void Store::Impl::open_anew_after_fork() {
  if (store_path == ":memory:") {
    forks = forks_so_far();
    return;
  }
  leave_batch_to_parent();
  open();
}

void Store::Impl::abandon() {
  if (is_forked()) return;
  if (!log.empty()) {
    report(store_path + ": " + std::to_string(log.size()) +
           " writes were not committed and are gone");
  }
  discard();
}

void Store::Impl::open() {
  leave_files_to_parent();
  shared = std::make_unique<SharedState>(store_path);
  const CommitLock lock(*shared, deadline_of(options));
  shared->reserve();
  try {
    load();
  } catch (const StoreFailure& failure) {
    if (failure.result().error != StoreError::kCorrupt || !options.keep_corrupt_aside) throw;
    file.reset();
    keep_aside(store_path);
    load();
  }
  seen_counter = shared->counter();
  forks = forks_so_far();
}

void Store::Impl::load() {
  file = std::make_unique<StoreFile>(store_path, options);
  reload();
  const bool too_late = pending && is_too_late(*pending);
  if (too_late) (void)revert_of(*pending);  // a damaged file stays as it is, in its mode too
  file->keep_log();
  shared->set_counter(static_cast<std::uint32_t>(2 * generation));
  if (!too_late) return;
  revert_pending(*pending);
  catch_up();
}

std::unique_ptr<Store> Store::open(const std::string& path, const StoreOptions& options,
                                   StoreResult* result) {
  count_forks();
  StoreResult done;
  std::unique_ptr<Store> store;
  try {
    store.reset(new Store(std::make_unique<Impl>(resolved(path), options)));
  } catch (const StoreFailure& failure) {
    done = {failure.result().error, path + ": " + failure.result().text};
  }
  if (result != nullptr) *result = done;
  return store;
}

Store::Store(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Store::~Store() = default;

const std::string& Store::path() const { return impl_->store_path; }

Tree& Store::tree() {
  impl_->refresh();
  return impl_->tree;
}

StoreResult Store::commit(const std::string& label) { return impl_->commit(label); }

void Store::discard() { impl_->discard(); }

StoreResult Store::begin_trial() { return impl_->begin_trial(); }

bool Store::in_trial() const { return impl_->trial; }

const std::vector<WriteStep>& Store::plan() const { return impl_->log.steps(); }

Difference Store::difference() const { return difference_of(impl_->log.net(impl_->content())); }

StoreResult Store::accept(const std::string& label) { return impl_->accept(label); }

void Store::abandon() { impl_->abandon(); }

std::uint64_t Store::generation() const { return impl_->generation; }

StoreResult Store::accept_pending(int seconds, const std::string& label) {
  return impl_->accept_pending(seconds, label);
}

StoreResult Store::confirm() { return impl_->confirm(); }

StoreResult Store::revert() { return impl_->revert(); }

std::optional<PendingChange> Store::pending() { return impl_->pending_change(); }

StoreResult Store::make_checkpoint(const std::string& name) { return impl_->make_checkpoint(name); }

StoreResult Store::delete_checkpoint(const std::string& name) {
  return impl_->delete_checkpoint(name);
}

std::vector<Checkpoint> Store::checkpoints(StoreResult* result) {
  return impl_->checkpoints(result);
}

StoreResult Store::difference(const std::string& from, const std::string& to,
                              Difference* difference) {
  return impl_->difference(from, to, difference);
}

StoreResult Store::restore(const std::string& name) { return impl_->restore(name); }

ReadHold::ReadHold(Store& store) : store_(store) {
  store_.impl_->refresh();
  ++store_.impl_->holds;
}

ReadHold::~ReadHold() { --store_.impl_->holds; }

}  // namespace host
