// The platform that test programs give the library: a switchboard in front of the host tree.
//
// The library keeps the first MibAccess it is given for the life of the process. The switchboard is
// that object; what stands behind it (the host tree, a recorder, a tree whose calls fail) changes
// from test to test.
#ifndef IGD_TESTS_TEST_PLATFORM_H
#define IGD_TESTS_TEST_PLATFORM_H

#include <string>

#include "common_util.h"

namespace support {

/// Passes every call on. Tests derive from it and override the calls they are about.
class MibDecorator : public MibAccess {
 public:
  explicit MibDecorator(MibAccess& next) : next_(&next) {}

  int addObject(const std::string& table_path, int* instance, int access_level) override;
  int deleteObject(const std::string& object_path) override;
  InstanceIterator* openInstanceIterator(int type) override;
  void closeInstanceIterator(InstanceIterator* iterator) override;
  std::string getValue(const std::string& name) override;
  int setValue(const std::string& name, const std::string& value, int flags) override;
  int commit(int mode) override;
  int applyChanges(const std::string& scope) override;

 protected:
  MibAccess& next() { return *next_; }
  ~MibDecorator() = default;

 private:
  MibAccess* next_;
};

/// What the library talks to. Null brings the host tree back.
void put_behind_switchboard(MibAccess* mib);

/// Puts a decorator in front of the host tree for as long as it lives.
class BehindSwitchboard {
 public:
  explicit BehindSwitchboard(MibAccess& mib) { put_behind_switchboard(&mib); }
  ~BehindSwitchboard() { put_behind_switchboard(nullptr); }
  BehindSwitchboard(const BehindSwitchboard&) = delete;
  BehindSwitchboard& operator=(const BehindSwitchboard&) = delete;
};

/// Fails the nth addObject, counted from 1, without changing anything.
class FailingAdds final : public MibDecorator {
 public:
  FailingAdds(MibAccess& next, int nth) : MibDecorator(next), countdown_(nth) {}
  int addObject(const std::string& table_path, int* instance, int access_level) override;
  bool failed() const { return countdown_ <= 0; }

 private:
  int countdown_;
};

}  // namespace support

#endif  // IGD_TESTS_TEST_PLATFORM_H
