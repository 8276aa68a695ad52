// What the library remembers of connections, and what other programs change behind its back.
#include "model.h"

namespace model {

/// Made when it is first asked for, then kept, whatever becomes of the connection.
Entry& Model::entry_of(const std::string& path) {
  const auto [place, is_new] = state_.remembered.try_emplace(path);
  Entry& entry = place->second;
  if (!is_new) return entry;
  entry.bridge_name = bridge_name_for(path);
  entry.own_bridge = own_bridge(path);
  entry.lan_bridge = lan_bridge();
  for (const Kind kind : kKinds) entry.objects[kind] = owner_of_object(path, kind);
  return entry;
}

Answer Model::remember(const std::string& path) {
  const bool known = state_.remembered.count(path) != 0;
  (void)entry_of(path);
  if (!is_connection(path)) return {"no such connection", {}};
  return {known ? "known" : "made", {}};
}

Answer Model::forget(const std::string& path) {
  const bool found = state_.remembered.erase(path) != 0;
  return {found ? "found" : "not found", "1"};
}

Answer Model::lose_bridge(int bridge) {
  if (state_.bridges.erase(bridge) == 0) return {"not found", {}};
  return {"found", {}};
}

Answer Model::lose_connection(const std::string& path) {
  if (!is_connection(path)) return {"not found", {}};
  delete_object(path);
  return {"found", {}};
}

/// The first route goes by the connection's table instead of an interface.
Answer Model::move_route(const std::string& path) {
  if (!is_connection(path) || state_.routes.empty()) return {"not found", {}};
  state_.routes.front().interface.clear();
  state_.routes.front().table = path;
  return {"found", {}};
}

/// The platform gives a connection an address, or takes it away.
Answer Model::line_up(const Step& step, const std::string& path) {
  const ConnectionId id = id_of(path);
  if (id.first == 0) return {"not found", {}};
  const std::string address = step.number(Field::kEnabled) == 0 ? "" : "192.0.2.9";
  write(id, kStatic, "X_CT-COM_ActiveExternalIPAddress", address);
  write(id, kDhcp, "X_CT-COM_ActiveExternalIPAddress", address);
  write(id, kDhcp, "ExternalIPAddress", address);
  write(id, kPpp, "ExternalIPAddress", step.number(Field::kEnabled) == 7 ? "0.0.0.0" : address);
  write(id, kPpp, "RemoteIPAddress", address);
  write(id, kPpp, "X_ZYN_COM_LastConnectionError", "ERROR_" + step.text(Field::kEnabled));
  for (const Kind kind : kKinds) {
    write(id, kind, "Stats.EthernetBytesSent", std::to_string(kind));
    write(id, kind, "MACAddress", "02:00:00:00:00:0" + std::to_string(kind));
  }
  return {"found", {}};
}

}  // namespace model
