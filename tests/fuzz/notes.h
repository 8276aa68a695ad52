// Notes what the library asks of a tree and what it is told, so that two runs can be compared.
#ifndef IGD_TESTS_FUZZ_NOTES_H
#define IGD_TESTS_FUZZ_NOTES_H

#include <string>

#include "test_platform.h"

namespace fuzz {

class Notes final : public support::MibDecorator {
 public:
  explicit Notes(MibAccess& next) : MibDecorator(next) {}
  ~Notes() = default;
  Notes(const Notes&) = delete;
  Notes& operator=(const Notes&) = delete;

  const std::string& calls() const { return calls_; }
  bool wrote() const { return wrote_; }
  int open_walks() const { return open_walks_; }

  int addObject(const std::string& table_path, int* instance, int access_level) override;
  int deleteObject(const std::string& object_path) override;
  InstanceIterator* openInstanceIterator(int type) override;
  void closeInstanceIterator(InstanceIterator* iterator) override;
  std::string getValue(const std::string& name) override;
  int setValue(const std::string& name, const std::string& value, int flags) override;
  int commit(int mode) override;
  int applyChanges(const std::string& scope) override;

 private:
  void note(const char* call, const std::string& name);
  int changing(const char* call, const std::string& name, int result);

  std::string calls_;
  bool wrote_ = false;
  int open_walks_ = 0;
};

}  // namespace fuzz

#endif  // IGD_TESTS_FUZZ_NOTES_H
