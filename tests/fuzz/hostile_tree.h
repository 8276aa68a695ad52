// A platform's tree that nothing keeps in order: instances with any name and of any number, and any
// text for every parameter that is asked for.
#ifndef IGD_TESTS_FUZZ_HOSTILE_TREE_H
#define IGD_TESTS_FUZZ_HOSTILE_TREE_H

#include <map>
#include <string>
#include <vector>

#include "common_util.h"
#include "input.h"

namespace fuzz {

class HostileTree final : public MibAccess {
 public:
  explicit HostileTree(Input& input);
  ~HostileTree() = default;

  int addObject(const std::string& table_path, int* instance, int access_level) override;
  int deleteObject(const std::string& object_path) override;
  InstanceIterator* openInstanceIterator(int type) override;
  void closeInstanceIterator(InstanceIterator* iterator) override;
  std::string getValue(const std::string& name) override;
  int setValue(const std::string& name, const std::string& value, int flags) override;
  int commit(int /*mode*/) override { return 0; }
  int applyChanges(const std::string& /*scope*/) override { return 0; }

 private:
  std::vector<std::string> texts_;  // of the parameters that nobody set, by their names
  std::map<int, std::vector<std::string>> instances_;
  std::map<std::string, std::string> values_;
  std::vector<int> numbers_;  // of the instances that are added; then no more can be
  std::size_t added_ = 0;
};

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_HOSTILE_TREE_H
