#include "gateway/management.h"

#include "gateway/connections.h"
#include "gateway/tree_reader.h"
#include "term/text.h"

namespace igdctl {

std::string management_reason(const std::string& title) {
  return "connection " + in_quotes(title) +
         " carries the management service: you may lose access to the gateway";
}

std::vector<ManagementPlace> management_places(MibAccess& tree) {
  std::vector<ManagementPlace> places;
  for (const Connection& connection : list_connections(tree)) {
    if (!carries_management(connection.service)) continue;
    places.push_back({title_of(connection), connection.path});
    if (connection.has_bridge()) places.push_back({title_of(connection), connection.bridge_path});
  }
  return places;
}

std::string why_at_stake(const std::vector<ManagementPlace>& places, std::string_view name) {
  for (const ManagementPlace& place : places) {
    if (begins_with(name, place.path) || begins_with(place.path, name)) {
      return management_reason(place.title);
    }
  }
  return {};
}

}  // namespace igdctl
