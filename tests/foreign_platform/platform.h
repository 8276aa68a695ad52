// The porter's platform: hands his tree to the library, and notes what it logs and commits.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "declarations.h"
#include "tree.h"

namespace foreign {

class NameIterator;

/// There is one platform in the process, because the library keeps the first tree access that it
/// is given. A test empties the tree behind it.
class Platform final : public PlatformContext, public MibAccess {
 public:
  static Platform& instance();

  /// An empty tree, no complaints, context and tree access available.
  void reset();

  /// Runs `call`. @return what it printed.
  std::string printed_by(const std::function<void()>& call);

  /// What the last call logged and committed, as "<file>:<line> <text>", "commit <flag>" and
  /// "apply <text>", a line each.
  const std::string& logged() const { return logged_; }

  /// Notes something that the library must never do.
  void complain(const std::string& complaint) { complaints_ += complaint + "\n"; }
  const std::string& complaints() const { return complaints_; }

  Tree& tree() { return tree_; }

  /// What getContext answers, and how often it was asked.
  PlatformContext* give_context();
  void offer(bool context, bool tree_access);
  int contexts_asked() const { return contexts_asked_; }
  int accesses_asked() const { return accesses_asked_; }
  int services_asked() const { return services_asked_; }

  void log(const std::string& line) { logged_ += line + "\n"; }

  MibAccess* mib_access() override;
  void* second_service() override;
  int addObject(const std::string& table_path, int* number, int access) override;
  int deleteObject(const std::string& object_path) override { return tree_.erase(object_path); }
  InstanceIterator* openInstanceIterator(int type) override;
  void closeInstanceIterator(InstanceIterator* iterator) override;
  std::string getValue(const std::string& name) override { return tree_.get(name); }
  int setValue(const std::string& name, const std::string& value, int flag) override;
  int commit(int flag) override;
  int applyChanges(const std::string& text) override;

 private:
  Platform() = default;

  Tree tree_;
  std::vector<std::unique_ptr<NameIterator>> iterators_;
  std::string complaints_;
  std::string logged_;
  bool offers_context_ = true;
  bool offers_tree_access_ = true;
  int contexts_asked_ = 0;
  int accesses_asked_ = 0;
  int services_asked_ = 0;
};

}  // namespace foreign
