// What a step can be told. Every field has a few values, the plainest first: a failing case shrinks
// towards these, and leaves them out when it is shown.
#ifndef IGD_TESTS_MODEL_FIELD_H
#define IGD_TESTS_MODEL_FIELD_H

#include <string>
#include <vector>

namespace model {

enum class Field {
  kWan,  ///< which connection, see Model::path_of
  kRecord,
  kUplink,
  kName,
  kTagging,
  kVlan,
  kPriority,
  kClass,
  kMode,
  kBindLan,
  kBindWan,
  kServices,
  kNat,
  kTexts,  ///< accounts, MTUs, addresses and flags together
  kDns,
  kOptions,  ///< option 60 of ports
  kDevicePorts,
  kRouteCode,
  kDestination,
  kNetmask,
  kEnabled,
  kRouteType,
  kGateway,
  kBridge,
  kPhysical,
  kObject,
  kParameter,
  kValue,
  kKey,
  kSize,
};

using Fields = std::vector<Field>;

/// A description of a connection.
extern const Fields kDescription;

const char* name_of(Field field);
const std::vector<std::string>& values_of(Field field);

/// How many of the values, from the first on, are what is mostly met on a gateway.
std::size_t usual_values_of(Field field);

/// Appends.
Fields operator+(Fields fields, const Fields& others);

}  // namespace model

#endif  // IGD_TESTS_MODEL_FIELD_H
