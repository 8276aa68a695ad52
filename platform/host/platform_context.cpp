/// The context that libigd asks for, and the tree behind it.
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "host_platform.h"
#include "host_store.h"
#include "tree_access.h"

namespace host {
namespace {

Tree* exchanged_tree = nullptr;  // null: that of the process's store

/// Stands for the tree of a store that could not be opened: it has nothing and takes nothing.
class NoStore final : public TreeObserver {
 public:
  NoStore() { TreeAccess::observe(tree_, this); }
  Tree& tree() { return tree_; }

  Admission admit() override { return {"the store could not be opened", false}; }
  void added(const std::string&, const std::string&, const std::optional<Row>&) override {}
  void deleting(const std::string&, const RowSet&) override {}
  void setting(const std::string&, const std::string&, const std::optional<Row>&,
               const std::string&) override {}
  void replaced(const RowSet&, const RowSet&) override {}

 private:
  Tree tree_;
};

Tree& tree_of_no_store() {
  static auto* const no_store = new NoStore;
  return no_store->tree();
}

Store* active_store() { return exchanged_tree == nullptr ? process_store() : nullptr; }

/// Walks the names there were when it was opened, so writes do not disturb it.
class NameIterator final : public InstanceIterator {
 public:
  /// @param store  whose view stays as it is until the walk ends; null when there is none
  NameIterator(std::shared_ptr<const Listing> listing, Store* store)
      : listing_(std::move(listing)) {
    if (store != nullptr) hold_.emplace(*store);
  }

  int next() override {
    if (position_ < listing_->size()) ++position_;
    return position_ < listing_->size() ? 1 : 0;
  }

  std::string fullName() override {
    return position_ < listing_->size() ? std::string(listing_->name(position_)) : std::string();
  }

 private:
  std::shared_ptr<const Listing> listing_;
  std::size_t position_ = 0;
  std::optional<ReadHold> hold_;
};

/// Hands every call to the tree that is active at that moment.
class ActiveTreeAccess final : public MibAccess {
 public:
  int addObject(const std::string& table_path, int* instance, int /*access_level*/) override {
    return active_tree().add_object(table_path, instance);
  }
  int deleteObject(const std::string& object_path) override {
    return active_tree().delete_object(object_path);
  }
  InstanceIterator* openInstanceIterator(int type) override {
    auto listing = TreeAccess::store(active_tree()).listing(type);
    if (listing->size() == 0) return nullptr;
    return new NameIterator(std::move(listing), active_store());
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    delete static_cast<NameIterator*>(iterator);
  }
  std::string getValue(const std::string& name) override { return active_tree().value(name); }
  int setValue(const std::string& name, const std::string& value, int /*flags*/) override {
    return active_tree().set_value(name, value);
  }
  /// 0 means on disk. A tree that was put in place of the store's is in memory only.
  int commit(int /*mode*/) override {
    if (exchanged_tree != nullptr) return 0;
    Store* const store = process_store();
    return store != nullptr && store->commit().ok() ? 0 : -1;
  }
  // No service runs here.
  int applyChanges(const std::string& /*scope*/) override { return 0; }
};

class HostContext final : public PlatformContext {
 public:
  MibAccess* mibAccess() override { return &mib_access(); }
  void* secondService() override { return nullptr; }
};

}  // namespace

Tree& active_tree() {
  if (exchanged_tree != nullptr) return *exchanged_tree;
  Store* const store = process_store();
  return store != nullptr ? store->tree() : tree_of_no_store();
}

Tree* exchange_active_tree(Tree* tree) {
  Tree* const before = &active_tree();
  exchanged_tree = tree;
  return before;
}

MibAccess& mib_access() {
  static auto* const access = new ActiveTreeAccess;
  return *access;
}

}  // namespace host

HOST_EXPORT PlatformContext* getContext() {
  static auto* const context = new host::HostContext;
  const bool is_ready = host::exchanged_tree != nullptr || host::process_store() != nullptr;
  return is_ready ? context : nullptr;
}
