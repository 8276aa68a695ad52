// Watches what a transcript does not show: the constant arguments and the life of walks.
#ifndef IGD_TESTS_CALL_CHECK_H
#define IGD_TESTS_CALL_CHECK_H

#include <string>
#include <vector>

#include "test_platform.h"

namespace transcripts {

/// Passes calls on and notes each one that the platform has no use for: another access level than
/// the internal one, flags, another kind of commit, a walk that is not closed before the next call
/// or is closed twice.
class CallCheck final : public support::MibDecorator {
 public:
  explicit CallCheck(MibAccess& next) : MibDecorator(next) {}

  /// What was wrong; also when a walk is still open now.
  std::vector<std::string> faults();

  int addObject(const std::string& table_path, int* instance, int access_level) override;
  int deleteObject(const std::string& object_path) override;
  InstanceIterator* openInstanceIterator(int type) override;
  void closeInstanceIterator(InstanceIterator* iterator) override;
  std::string getValue(const std::string& name) override;
  int setValue(const std::string& name, const std::string& value, int flags) override;
  int commit(int mode) override;
  int applyChanges(const std::string& scope) override;

 private:
  void check(bool right, const std::string& fault);
  void check_no_open_walk(const std::string& call);

  InstanceIterator* open_walk_ = nullptr;
  std::vector<std::string> faults_;
};

}  // namespace transcripts

#endif  // IGD_TESTS_CALL_CHECK_H
