// The operations, with what they are told and how they may end.
#include "step.h"

namespace model {
namespace {

using F = Field;

const Outcome kFound = {"found", true};
const Outcome kNotFound = {"not found", false};
const Outcome kUnknown = {"no such connection", false};
const Outcome kNoRecord = {"no record", false};
const Outcome kYes = {"yes", true};
const Outcome kNo = {"no", false};

const std::vector<Outcome> kVerdicts = {
    {"fits", true},          {"port held", false},        {"other port held", false},
    {"VLAN held", false},    {"untagged held", false},    {"routed, no port left", false},
    {"no port left", false}, {"management exists", false}};

/// In the order of Operation.
const std::vector<OperationInfo>& rows() {
  static const std::vector<OperationInfo> all = {
      {"create",
       30,
       Fields{F::kUplink} + kDescription,
       {{"made", true}, {"made on a new uplink", true}, {"updated", true}}},
      {"check", 16, Fields{F::kWan, F::kDevicePorts} + kDescription, kVerdicts},
      {"set",
       14,
       Fields{F::kWan, F::kRecord} + kDescription,
       {{"written", true}, kUnknown, kNoRecord}},
      {"get", 6, {F::kWan, F::kRecord}, {{"read", true}, kUnknown, kNoRecord}},
      {"remove", 4, {F::kWan}, {{"removed", true}, kUnknown}},
      {"may_remove", 2, {F::kWan}, {kYes, kNo}},
      {"list", 2, {}, {{"listed", true}, {"none there", false}}},
      {"save_binding", 2, {F::kWan, F::kBindLan, F::kBindWan}, {{"written", true}, kUnknown}},
      {"find_name", 2, {F::kName}, {kFound, kNotFound}},
      {"is_index", 2, {F::kWan}, {kYes, kNo}},
      {"is_bridge_parameter", 1, {F::kBridge}, {kYes, kNo}},
      {"set_all",
       3,
       {F::kWan, F::kObject, F::kParameter, F::kValue},
       {{"written", true}, {"outside", false}, kUnknown}},
      {"used_ports", 2, {F::kWan}, {{"some", true}, {"none", false}}},
      {"status",
       5,
       {F::kWan, F::kRecord},
       {{"connected", true}, {"not connected", true}, kUnknown, kNoRecord}},
      {"name_bridge", 1, {F::kWan}, {kFound, kNotFound}},
      {"find_bridge", 2, {F::kWan}, {kFound, kNotFound}},
      {"show_bridge", 2, {F::kWan}, {kFound, kNotFound}},
      {"belongs", 2, {F::kBridge, F::kPhysical}, {kYes, kNo}},
      {"find_physical", 2, {F::kPhysical}, {kFound, kNotFound}},
      {"free_vlan", 1, {}, {{"lowest", true}, {"a higher one", true}}},
      {"bridge_texts", 2, {F::kWan, F::kSize}, {kFound, kNotFound}},
      {"set_pvid", 2, {F::kBridge, F::kVlan}, {{"written", true}, kNotFound}},
      {"set_route",
       8,
       {F::kRouteCode, F::kDestination, F::kNetmask, F::kEnabled, F::kRouteType, F::kName,
        F::kGateway},
       {{"added", true}, {"changed", true}, {"deleted", true}, kNotFound, {"unknown code", false}}},
      {"list_routes", 1, {}, {{"some", true}, {"none", false}}},
      {"clear_routes", 1, {}, {{"some", true}, {"none", false}}},
      {"set_management", 1, {F::kRecord, F::kTexts}, {{"written", true}, kNoRecord}},
      {"get_management", 1, {F::kRecord}, {{"read", true}, kNoRecord}},
      {"set_l3_name", 1, {F::kKey, F::kValue}, {{"stored", true}, {"no key", false}}},
      {"get_l3_name", 2, {F::kKey, F::kSize}, {kFound, kNotFound, {"no key", false}}},
      {"remember", 4, {F::kWan}, {{"made", true}, {"known", true}, kUnknown}},
      {"forget", 4, {F::kWan}, {kFound, kNotFound}},
      {"lose_lan_bridge", 1, {}, {kFound, kNotFound}},
      {"lose_bridge", 1, {F::kWan}, {kFound, kNotFound}},
      {"lose_connection", 1, {F::kWan}, {kFound, kNotFound}},
      {"move_route", 2, {F::kWan}, {kFound, kNotFound}},
      {"line_up", 4, {F::kWan, F::kEnabled}, {kFound, kNotFound}},
  };
  return all;
}

}  // namespace

const OperationInfo& info_of(Operation operation) {
  return rows().at(static_cast<std::size_t>(operation));
}

}  // namespace model
