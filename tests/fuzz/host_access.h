// A tree of the reference platform, without its context.
#ifndef IGD_TESTS_FUZZ_HOST_ACCESS_H
#define IGD_TESTS_FUZZ_HOST_ACCESS_H

#include <string>
#include <utility>
#include <vector>

#include "common_util.h"
#include "host_platform.h"

namespace fuzz {

class Walk final : public InstanceIterator {
 public:
  explicit Walk(std::vector<std::string> names) : names_(std::move(names)) {}
  int next() override { return ++at_ < names_.size() ? 1 : 0; }
  std::string fullName() override { return names_[at_]; }

 private:
  std::vector<std::string> names_;
  std::size_t at_ = 0;
};

class HostAccess final : public MibAccess {
 public:
  explicit HostAccess(host::Tree& tree) : tree_(tree) {}
  ~HostAccess() = default;

  int addObject(const std::string& table_path, int* instance, int /*access*/) override {
    return tree_.add_object(table_path, instance);
  }
  int deleteObject(const std::string& path) override { return tree_.delete_object(path); }
  InstanceIterator* openInstanceIterator(int type) override {
    std::vector<std::string> names = tree_.instances(type);
    return names.empty() ? nullptr : new Walk(std::move(names));
  }
  void closeInstanceIterator(InstanceIterator* iterator) override {
    delete static_cast<Walk*>(iterator);
  }
  std::string getValue(const std::string& name) override { return tree_.value(name); }
  int setValue(const std::string& name, const std::string& value, int /*flags*/) override {
    return tree_.set_value(name, value);
  }
  int commit(int /*mode*/) override { return 0; }
  int applyChanges(const std::string& /*scope*/) override { return 0; }

 private:
  host::Tree& tree_;
};

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_HOST_ACCESS_H
