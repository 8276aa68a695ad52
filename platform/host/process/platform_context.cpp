// The MibAccess that the context hands out, and the tree behind it.
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "host_platform.h"
#include "process/process_tree.h"
#include "tree/tree_access.h"

namespace host {
namespace {

Tree* exchanged_tree = nullptr;  // null: that of the process

// Stands for the tree of a store that could not be opened: it has nothing and takes nothing.
class NoStore final : public TreeObserver {
 public:
  NoStore() { TreeAccess::observe(tree_, this); }
  Tree& tree() { return tree_; }

  Admission admit() override { return {"the store could not be opened", false}; }
  void added(const std::string&, const std::string&, const std::optional<Row>&) override {}
  void deleting(const std::string&, const RowSet&) override {}
  void setting(const std::string&, std::string, std::optional<Row>, const std::string&) override {}
  void replaced(const RowSet&, const RowSet&) override {}

 private:
  Tree tree_;
};

Tree& tree_of_no_store() {
  static auto* const no_store = new NoStore;
  return no_store->tree();
}

// Keeps what reads of the active tree show as it is, while it lives.
std::shared_ptr<const void> held_view() {
  return exchanged_tree == nullptr ? held_process_tree() : nullptr;
}

// Walks the names there were when it was opened, so writes do not disturb it.
class NameIterator final : public InstanceIterator {
 public:
  NameIterator(std::shared_ptr<const Listing> listing, std::shared_ptr<const void> view)
      : listing_(std::move(listing)), view_(std::move(view)) {}

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
  std::shared_ptr<const void> view_;
};

// Hands every call to the tree that is active at that moment.
class ActiveTreeAccess final : public MibAccess {
 public:
  int addObject(const std::string& table_path, int* instance, int /*access_level*/) override {
    return active_tree().add_object(table_path, instance);
  }
  int deleteObject(const std::string& object_path) override {
    return active_tree().delete_object(object_path);
  }
  InstanceIterator* openInstanceIterator(int type) override {
    auto listing = TreeAccess::read(active_tree()).listing(type);
    if (listing->size() == 0) return nullptr;
    return new NameIterator(std::move(listing), held_view());
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    delete static_cast<NameIterator*>(iterator);
  }
  std::string getValue(const std::string& name) override { return active_tree().value(name); }
  int setValue(const std::string& name, const std::string& value, int /*flags*/) override {
    return active_tree().set_value(name, value);
  }
  // 0 means on disk. A tree that was put in place of the store's is in memory only.
  int commit(int /*mode*/) override {
    return exchanged_tree != nullptr || commit_process_tree() ? 0 : -1;
  }
  // No service runs here.
  int applyChanges(const std::string& /*scope*/) override { return 0; }
};

}  // namespace

Tree& active_tree() {
  if (exchanged_tree != nullptr) return *exchanged_tree;
  Tree* const tree = process_tree();
  return tree != nullptr ? *tree : tree_of_no_store();
}

Tree* exchange_active_tree(Tree* tree) {
  static const Tree* own = nullptr;  // what was given out for that of the process
  Tree* const before = &active_tree();
  if (exchanged_tree == nullptr) own = before;
  exchanged_tree = tree != own ? tree : nullptr;  // put back, it is the store's again
  return before;
}

bool has_active_tree() { return exchanged_tree != nullptr || process_tree() != nullptr; }

MibAccess& mib_access() {
  static auto* const access = new ActiveTreeAccess;
  return *access;
}

}  // namespace host
