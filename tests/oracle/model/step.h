// One step of a sequence: an operation and what it is told, as values, so that it can be generated,
// shrunk, printed and read back.
#ifndef IGD_TESTS_MODEL_STEP_H
#define IGD_TESTS_MODEL_STEP_H

#include <string>
#include <vector>

#include "field.h"
#include "igd_types.h"

namespace model {

enum class Operation {
  kCreate,
  kCheck,
  kSet,
  kGet,
  kRemove,
  kMayRemove,
  kList,
  kSaveBinding,
  kFindName,
  kIsIndex,
  kIsBridgeParameter,
  kSetAll,
  kUsedPorts,
  kStatus,
  kNameBridge,
  kFindBridge,
  kShowBridge,
  kBelongs,
  kFindPhysical,
  kFreeVlan,
  kBridgeTexts,
  kSetPvid,
  kSetRoute,
  kListRoutes,
  kClearRoutes,
  kSetManagement,
  kGetManagement,
  kSetL3Name,
  kGetL3Name,
  kRemember,
  kForget,
  // What other programs of the gateway do to the tree behind the library's back.
  kLoseLanBridge,
  kLoseBridge,
  kLoseConnection,
  kMoveRoute,
  kLineUp,
};

struct Outcome {
  const char* name;
  bool done;  ///< else the operation refused, or found nothing to work on
};

struct OperationInfo {
  const char* name;  ///< as steps are printed
  int weight;        ///< how often it is chosen
  Fields fields;
  std::vector<Outcome> outcomes;  ///< all that are to be met in a long run
};

inline constexpr int kOperations = static_cast<int>(Operation::kLineUp) + 1;
const OperationInfo& info_of(Operation operation);

struct Step {
  Operation operation = Operation::kCreate;
  std::vector<std::size_t> choices;  ///< one for each field of the operation

  explicit Step(Operation chosen = Operation::kCreate);

  /// The field's value; "none" is the empty text. The plainest for a field it does not have.
  std::string text(Field field) const;
  int number(Field field) const;
  std::vector<std::string> list(Field field) const;
};

using Steps = std::vector<Step>;

/// "create name=B bind_lan=LAN1": what is not said has the plainest value.
std::string shown(const Step& step);

/// Reads what `shown` gives, one step a line; empty lines and what follows a "#" do not count.
/// Throws std::invalid_argument with the line that is wrong.
Steps read_steps(const std::string& text);

api_wan_info record_of(const Step& step);
api_route_info route_of(const Step& step);
api_mng_server_info management_of(const Step& step);

}  // namespace model

#endif  // IGD_TESTS_MODEL_STEP_H
