// A scenario: a gateway brought into some state, and one call that is written down.
#ifndef IGD_TESTS_SCENARIO_H
#define IGD_TESTS_SCENARIO_H

#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "call_check.h"
#include "form/argument_text.h"
#include "form/head.h"
#include "gateway_test.h"

namespace transcripts {

/// What came of the call: its transcript, "returns VALUE" at the end, then "refused CALL NAME" for
/// each call that the tree refused.
struct Recording {
  Head head;
  std::string text;
  std::vector<std::string> faults;    ///< calls the platform has no use for; see CallCheck
  std::vector<std::string> refusals;  ///< "CALL NAME"
};

/// An operation by its name and itself, as Gateway::record takes it.
#define IGD_OPERATION(operation) #operation, operation

/// A gateway in factory state that a scenario works on. Whatever is done to it stands in the head
/// of the transcript.
class Gateway final : public support::GatewayTest {
 public:
  Gateway() { recording_.head.builder = {"factory state"}; }

  using GatewayTest::bridge_named;
  std::string add(const std::string& table_path);
  std::string add_bridge(const std::string& name, const std::string& wan_path);
  std::string add_connection_device(int device, const std::vector<std::string>& objects);
  void add_port(const std::string& bridge_path, const std::string& node);
  std::string create(const api_wan_info& info);
  void set(const std::string& name, const std::string& value);

  /// Makes the tree lose an object.
  void remove(const std::string& object_path);

  /// Makes the library look everything up anew.
  void forget_cache();

  /// The nth addObject of the call will fail, counted from 1; none for 0.
  void fail_add(int nth);

  /// Of the call only what writes is written down.
  void note_writes_only() { writes_only_ = true; }

  /// Calls an operation and writes it down. Once in a scenario, and last.
  ///
  /// @param name       of the operation; IGD_OPERATION gives both
  /// @param arguments  handed over as they are
  template <typename Operation, typename... Arguments>
  void record(const char* name, const Operation& operation, Arguments&&... arguments) {
    begin(call_text(name, {argument(arguments)...}));
    MibStack stack(failing_add_);
    if constexpr (std::is_void_v<std::invoke_result_t<Operation, Arguments...>>) {
      operation(std::forward<Arguments>(arguments)...);
    } else {
      returned_ = shown_result(operation(std::forward<Arguments>(arguments)...));
    }
    end(stack.transcript, stack.check);
  }

  const Recording& recording() const { return recording_; }

 private:
  // Library, transcript, check, perhaps a failing add, tree.
  struct MibStack {
    explicit MibStack(int failing_add)
        : failing(host::mib_access(), failing_add), check(failing), transcript(check) {}
    support::FailingAdds failing;
    CallCheck check;
    support::Transcript transcript;
  };

  template <typename Argument>
  std::string argument(const Argument& value) {
    return shown(value);
  }
  std::string argument(api_wan_info* info) { return descriptions_.shown(*info); }

  void TestBody() override {}
  std::string step(const std::string& call, const std::string& result);
  void begin(const std::string& call);
  void end(support::Transcript& transcript, CallCheck& check);
  static std::string shown_result(const std::string& text) { return '"' + text + '"'; }
  static std::string shown_result(long long number) { return std::to_string(number); }

  int failing_add_ = 0;
  bool writes_only_ = false;
  DescriptionText descriptions_;
  std::string returned_;
  Recording recording_;
};

enum class Refusals { kNone, kExpected };

struct Scenario {
  std::string name;
  std::function<void(Gateway&)> play;
  Refusals refusals = Refusals::kNone;
};

using Scenarios = std::vector<Scenario>;

Scenarios bridge_scenarios();
Scenarios cache_scenarios();
Scenarios create_scenarios();
Scenarios failing_add_scenarios();  ///< the one where none fails is the first
Scenarios lookup_scenarios();
Scenarios read_scenarios();
Scenarios remove_scenarios();
Scenarios route_scenarios();
Scenarios settings_scenarios();
Scenarios validate_scenarios();
Scenarios write_port_scenarios();
Scenarios write_scenarios();

/// What an operation is about; the names of its scenarios begin with it.
struct Area {
  const char* name;
  Scenarios (*scenarios)();
};

inline constexpr Area kAreas[] = {
    {"create", create_scenarios}, {"create", failing_add_scenarios},
    {"write", write_scenarios},   {"write", write_port_scenarios},
    {"read", read_scenarios},     {"remove", remove_scenarios},
    {"lookup", lookup_scenarios}, {"validate", validate_scenarios},
    {"bridge", bridge_scenarios}, {"cache", cache_scenarios},
    {"route", route_scenarios},   {"settings", settings_scenarios},
};

/// The scenarios of all areas.
const Scenarios& all_scenarios();

/// Plays a scenario on a gateway of its own.
Recording play(const Scenario& scenario);

/// Shows a scenario as its name where a test prints it.
inline void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

}  // namespace transcripts

#endif  // IGD_TESTS_SCENARIO_H
