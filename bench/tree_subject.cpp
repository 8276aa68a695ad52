// The tree of the reference platform.
#include <utility>

#include "benchmarks.h"
#include "host_platform.h"

namespace bench {
namespace {

class TreeSubject {
 public:
  explicit TreeSubject(const Workload& work) { fill(tree_, work); }

  static std::string key(const std::string& name) { return name; }
  std::string get(const std::string& key) const { return tree_.value(key); }
  void set(const std::string& key, const std::string& value) { tree_.set_value(key, value); }
  /// The way libigd does it.
  std::vector<std::string> enumerate_values() {
    host::Tree* const before = host::exchange_active_tree(&tree_);
    MibAccess& access = host::mib_access();
    std::vector<std::string> values;
    InstanceIterator* const instance = access.openInstanceIterator(kAddressingType);
    do values.push_back(access.getValue(instance->fullName()));
    while (instance->next() != 0);
    access.closeInstanceIterator(instance);
    host::exchange_active_tree(before);
    return values;
  }
  std::string add() { return added(kAddedTable); }
  void remove(const std::string& path) { tree_.delete_object(path); }

 private:
  std::string added(const std::string& table_path) {
    int number = 0;
    tree_.add_object(table_path, &number);
    return table_path + std::to_string(number) + ".";
  }

  host::Tree tree_;
};

}  // namespace

void register_tree() { register_subject<TreeSubject>("tree"); }

}  // namespace bench
