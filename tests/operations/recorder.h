// Stands between an operation and the tree: notes every call, counts the calls of each kind, keeps
// account of open walks, and fails one call on demand.
#ifndef IGD_TESTS_RECORDER_H
#define IGD_TESTS_RECORDER_H

#include <array>
#include <set>
#include <string>

#include "test_platform.h"

namespace operations {

enum class Call { kOpen, kName, kGet, kSet, kAdd, kDelete, kCommit, kApply };
inline constexpr int kCalls = 8;
inline constexpr const char* kCallNames[kCalls] = {"open", "name",   "get",    "set",
                                                   "add",  "delete", "commit", "apply"};
using CallCounts = std::array<long, kCalls>;

/// How a call fails.
enum class Failure {
  kNone,
  kRefused,      ///< nothing is done: non-zero, no walk, the empty text
  kMisreported,  ///< it is done, and yet answered as refused; of writes only
  kThrows,       ///< nothing is done, the platform runs out of memory
};

struct Fault {
  Failure failure = Failure::kNone;
  Call call = Call::kOpen;
  long nth = 0;  ///< counted from 1, among the calls of this kind
};

class Recorder final : public support::MibDecorator {
 public:
  explicit Recorder(MibAccess& next);
  ~Recorder() { close_all(); }
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// Forgets everything noted and counted; from now on this call fails.
  void start(const Fault& fault);

  bool failed() const { return failed_; }             ///< the fault was reached
  bool wrote() const;                                 ///< some call tried to change the tree
  const std::string& calls() const { return text_; }  ///< one line each, with what was answered
  const CallCounts& counts() const { return counts_; }
  int open_walks() const { return static_cast<int>(open_.size()); }
  bool closed_wrongly() const { return closed_wrongly_; }

  int addObject(const std::string& table_path, int* instance, int access_level) override;
  int deleteObject(const std::string& object_path) override;
  InstanceIterator* openInstanceIterator(int type) override;
  void closeInstanceIterator(InstanceIterator* iterator) override;
  std::string getValue(const std::string& name) override;
  int setValue(const std::string& name, const std::string& value, int flags) override;
  int commit(int mode) override;
  int applyChanges(const std::string& scope) override;

 private:
  class Walk;

  Failure next_failure(Call call);
  template <typename Action>
  int changing(Call call, const std::string& line, const Action& action);
  void note(const std::string& line);
  void close_all();

  Fault fault_;
  bool failed_ = false;
  bool closed_wrongly_ = false;
  CallCounts counts_{};
  std::string text_;
  std::set<Walk*> open_;
};

}  // namespace operations

#endif  // IGD_TESTS_RECORDER_H
