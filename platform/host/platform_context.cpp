/// The context that libigd asks for, and the tree behind it.
#include <cstddef>
#include <utility>

#include "host_platform.h"

namespace host {
namespace {

/// Made at first use and never destroyed: other objects may still use it while the process ends.
Tree& process_tree() {
  static auto* const tree = new Tree(Tree::factory());
  return *tree;
}

Tree* exchanged_tree = nullptr;  // null: the process's own

/// Walks the names there were when it was opened, so writes do not disturb it.
class NameIterator final : public InstanceIterator {
 public:
  explicit NameIterator(std::vector<std::string> names) : names_(std::move(names)) {}

  int next() override {
    if (position_ < names_.size()) ++position_;
    return position_ < names_.size() ? 1 : 0;
  }

  std::string fullName() override {
    return position_ < names_.size() ? names_[position_] : std::string();
  }

 private:
  std::vector<std::string> names_;
  std::size_t position_ = 0;
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
    auto names = active_tree().instances(type);
    return names.empty() ? nullptr : new NameIterator(std::move(names));
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    delete static_cast<NameIterator*>(iterator);
  }
  std::string getValue(const std::string& name) override { return active_tree().value(name); }
  int setValue(const std::string& name, const std::string& value, int /*flags*/) override {
    return active_tree().set_value(name, value);
  }
  // A tree in memory is all there is: nothing waits to be written and no service runs.
  int commit(int /*mode*/) override { return 0; }
  int applyChanges(const std::string& /*scope*/) override { return 0; }
};

class HostContext final : public PlatformContext {
 public:
  MibAccess* mibAccess() override { return &mib_access(); }
  void* secondService() override { return nullptr; }
};

}  // namespace

Tree& active_tree() { return exchanged_tree != nullptr ? *exchanged_tree : process_tree(); }

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
  return context;
}
