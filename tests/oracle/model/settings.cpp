// Static routes, the management server's settings and the names of layer-3 interfaces.
#include "model.h"
#include "shown.h"

namespace model {
namespace {

constexpr int kNoTree = -1022;

}  // namespace

Answer Model::set_route(const Step& step) {
  const api_route_info asked = route_of(step);
  auto place = state_.routes.begin();
  while (place != state_.routes.end() &&
         (place->netmask != asked.dest_mask || place->destination != asked.dest_ip)) {
    ++place;
  }
  const bool found = place != state_.routes.end();
  const int code = step.number(Field::kRouteCode);
  if (code == 2 && !found) return {"not found", "-1"};
  if (code == 2) state_.routes.erase(place);
  if (code == 2) return {"deleted", "0"};
  if (code != 1) return {"unknown code", "0"};
  if (!found) place = state_.routes.insert(place, Route{});
  place->destination = asked.dest_ip;
  place->netmask = asked.dest_mask;
  place->enabled = asked.enable != 0;
  if (asked.route_type == 1 || asked.route_type == 2) {
    const ConnectionId id = connection_named(asked.interface);
    const bool by_gateway = asked.route_type == 1;
    place->gateway = by_gateway ? asked.gateway : "";
    place->interface = by_gateway || id.first == 0 ? "" : path_of(id);
  }
  return {found ? "changed" : "added", "0"};
}

Answer Model::list_routes() const {
  std::string all = std::to_string(state_.routes.size());
  for (const Route& route : state_.routes) {
    const bool by_gateway = !route.gateway.empty();
    all +=
        shown(api_route_info{route.destination, route.netmask, route.enabled ? 1 : 0,
                             by_gateway ? 1 : 2, by_gateway ? "" : route.interface, route.gateway});
  }
  return {state_.routes.empty() ? "none" : "some", all};
}

Answer Model::clear_routes() {
  const bool some = !state_.routes.empty();
  state_.routes.clear();
  return {some ? "some" : "none", "0"};
}

Answer Model::set_management(const Step& step) {
  if (step.text(Field::kRecord) == "null") return {"no record", std::to_string(kNoTree)};
  const api_mng_server_info info = management_of(step);
  state_.management = {info.url,
                       info.username,
                       info.password,
                       info.connection_request_url,
                       info.connection_request_username,
                       info.connection_request_password};
  return {"written", "0"};
}

Answer Model::get_management(const Step& step) const {
  if (step.text(Field::kRecord) == "null") return {"no record", std::to_string(kNoTree)};
  const auto& texts = state_.management;
  const api_mng_server_info info{texts[0], texts[1], texts[2], texts[3], texts[4], texts[5]};
  return {"read", "0 " + shown(info) + " 192.168.1.1"};
}

Answer Model::set_l3_name(const Step& step) {
  const std::string key = step.text(Field::kKey);
  if (key == "null") return {"no key", {}};
  state_.l3_names[key] = step.text(Field::kValue);
  return {"stored", {}};
}

/// Asking for a name makes it. A copy that fills its limit is not ended.
Answer Model::get_l3_name(const Step& step) {
  const std::string key = step.text(Field::kKey);
  const auto size = static_cast<std::size_t>(step.number(Field::kSize));
  std::string buffer(16, '~');
  if (key == "null") {
    if (size != 0) buffer[0] = '\0';
    return {"no key", buffer};
  }
  if (size == 0) return {state_.l3_names.count(key) != 0 ? "found" : "not found", buffer};
  const bool found = state_.l3_names.count(key) != 0;
  const std::string value = state_.l3_names[key];
  for (std::size_t i = 0; i + 1 < size; ++i) buffer[i] = i < value.size() ? value[i] : '\0';
  return {found ? "found" : "not found", buffer};
}

}  // namespace model
