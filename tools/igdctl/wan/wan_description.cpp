#include "wan/wan_description.h"

#include <nlohmann/json.hpp>

#include "gateway/tree_reader.h"
#include "igd_api.h"
#include "term/text.h"
#include "wan/wan_words.h"

namespace igdctl {

namespace {

std::string object_of_mode(const std::string& wan_path, int connect_mode) {
  if (connect_mode == kIgdPppoe) {
    const std::vector<std::string> paths = instances_below(wan_path, kPppConnection);
    return paths.empty() ? std::string() : paths.front();
  }
  const char* const addressing = connect_mode == kIgdStatic ? "Static" : "DHCP";
  return parent_of(igd_tool_loop_fullname(wan_path, kAddressingType, addressing));
}

Json number_or_null(const std::string& text) {
  constexpr long kLargest = 999999999;
  long number = 0;
  return parse_number(text, 0, kLargest, &number) ? Json(number) : Json();
}

Json word_or_null(const std::string& word) { return word.empty() ? Json() : Json(word); }

bool is_true(const std::string& text) { return text == "true"; }

}  // namespace

void read_dns_of_mode(MibAccess& tree, const Connection& connection, int connect_mode,
                      api_wan_info* info) {
  const std::string object = object_of_mode(connection.path, connect_mode);
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
  const std::string dhcp = object_of_mode(connection.path, kIgdDhcp);
  info.dhcp_option60 = value_in(tree, dhcp, "X_ZYN-COM_OPTION60");
  if (!connection.has_bridge()) info.bind_wan.clear();
  return info;
}

std::vector<std::string> dns_servers_of(const api_wan_info& info) {
  std::vector<std::string> servers;
  for (std::string& server : split_list(info.ip_dns1 + ',' + info.ip_dns2)) {
    if (!server.empty()) servers.push_back(std::move(server));
  }
  return servers;
}

const std::string& mtu_of(const api_wan_info& info) {
  if (info.connect_mode == kIgdPppoe) return info.pppoe_mtu;
  return info.connect_mode == kIgdStatic ? info.static_mtu : info.dhcp_mtu;
}

Json json_of(const Connection& connection, const api_wan_info& info, bool show_secrets) {
  Json json = {
      {"path", connection.path},
      {"id", connection.id},
      {"bridge", connection.has_bridge() ? Json(connection.bridge_name) : Json()},
      {"access", connection.access},
      {"name", info.wan_info_name},
      {"class", word_or_null(word_of_class(info.connection_class))},
      {"mode", word_or_null(word_of_mode(info.connect_mode))},
      {"vlan", info.vlan_enable != 0 ? info.vlan_id : 0},
      {"priority", info.vlan_priority},
      {"service", split_list(info.service_type)},
      {"bind_lan", info.bind_lan},
      {"bind_wan", info.bind_wan},
      {"nat", info.nat_mode == 1},
      {"user", info.pppoe_user_name},
      {"password_set", !info.pppoe_password.empty()},
      {"address", info.ip_addr},
      {"mask", info.ip_mask},
      {"gateway", info.ip_gw},
      {"dns", dns_servers_of(info)},
      {"mtu", number_or_null(mtu_of(info))},
      {"option60", info.dhcp_option60},
      {"port_option60", Json::object()},
      {"enable", is_true(info.wan_enable)},
      {"remote_management", is_true(info.wan_remote_management_enable)},
      {"stp", is_true(info.stp_enable)},
  };
  for (const auto& [port, option60] : info.port_option60) json["port_option60"][port] = option60;
  if (show_secrets) json["password"] = info.pppoe_password;
  return json;
}

}  // namespace igdctl
