#include "wan/wan_description.h"

#include <nlohmann/json.hpp>

#include "gateway/connection_objects.h"
#include "gateway/secrets.h"
#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "term/text.h"
#include "wan/fields.h"
#include "wan/wan_patch.h"

namespace igdctl {

namespace {

// Null where the tree has none of the values of the field.
Json json_of(const WanField& field, const Value& value) {
  const bool text = std::holds_alternative<std::string>(value);
  if (field.kind == FieldKind::kNumber && text) return {};
  return std::visit(
      [](const auto& held) -> Json {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
          return {};
        } else {
          return Json(held);
        }
      },
      value);
}

}  // namespace

void read_dns_of_mode(MibAccess& tree, const Connection& connection, int connect_mode,
                      api_wan_info* info) {
  const std::string object = object_of_mode(connection_objects(connection.path), connect_mode);
  const std::string servers = value_in(tree, object, "DNSServers");
  const std::size_t comma = servers.find(',');
  info->ip_dns_enable = is_true(value_in(tree, object, "DNSEnabled")) ? 1 : 0;
  info->ip_dns1 = servers.substr(0, comma);
  info->ip_dns2 = comma == std::string::npos ? std::string() : servers.substr(comma + 1);
}

api_wan_info read_description(MibAccess& tree, const Connection& connection) {
  api_wan_info info;
  (void)igd_wan_get_params(connection.path, &info);
  if (info.connect_mode != 0) read_dns_of_mode(tree, connection, info.connect_mode, &info);
  const std::string dhcp = connection_objects(connection.path).dhcp;
  info.dhcp_option60 = value_in(tree, dhcp, "X_ZYN-COM_OPTION60");
  if (!connection.has_bridge()) info.bind_wan.clear();
  return info;
}

Json json_of(const Connection& connection, const api_wan_info& info, bool show_secrets) {
  const WanDescription description{info, connection.access};
  Json json = {{"path", connection.path},
               {"id", connection.id},
               {"bridge", connection.has_bridge() ? Json(connection.bridge_name) : Json()}};
  for (const WanField& field : kWanFields) {
    const Value value = field.value(description);
    const bool secret = field.kind == FieldKind::kSecret;
    if (secret) json[key_of_presence(field)] = value != Value(std::string());
    if (!secret || show_secrets) json[field.key] = json_of(field, value);
  }
  return json;
}

Table table_of(const Connection& connection, const api_wan_info& info, bool show_secrets) {
  const WanDescription description{info, connection.access};
  Table table;
  for (const WanField& field : kWanFields) {
    std::string text = shown_text(field, field.value(description));
    if (field.kind == FieldKind::kSecret) text = shown_secret(text, show_secrets);
    table.rows.push_back({field.label, std::move(text)});
  }
  const std::string bridge = connection.has_bridge() ? connection.bridge_name : "";
  table.rows.insert(table.rows.begin() + 1,  // below the name
                    {{"id", connection.id}, {"path", connection.path}, {"bridge", bridge}});
  return table;
}

}  // namespace igdctl
