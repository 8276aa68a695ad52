#include "argument_text.h"

#include "gateway_test.h"

namespace transcripts {
namespace {

constexpr std::size_t kLongText = 60;

std::string joined(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += (result.empty() ? "" : ", ") + text;
  return result;
}

struct Field {
  const char* name;
  std::string (*shown)(const api_wan_info& info);
};

#define IGD_FIELD(field)                                               \
  {                                                                    \
#field, [](const api_wan_info& info) { return shown(info.field); } \
  }
constexpr Field kFields[] = {
    IGD_FIELD(wan_info_name),
    IGD_FIELD(vlan_enable),
    IGD_FIELD(vlan_id),
    IGD_FIELD(vlan_priority),
    IGD_FIELD(connection_class),
    IGD_FIELD(bind_lan),
    IGD_FIELD(bind_wan),
    IGD_FIELD(service_type),
    IGD_FIELD(dhcp_trans),
    IGD_FIELD(nat_mode),
    IGD_FIELD(connect_mode),
    IGD_FIELD(pppoe_user_name),
    IGD_FIELD(pppoe_password),
    IGD_FIELD(pppoe_mtu),
    IGD_FIELD(static_mtu),
    IGD_FIELD(dhcp_mtu),
    IGD_FIELD(protocol),
    IGD_FIELD(ip_addr),
    IGD_FIELD(ip_mask),
    IGD_FIELD(ip_gw),
    IGD_FIELD(ip_dns_enable),
    IGD_FIELD(dhcp_dns_enable),
    IGD_FIELD(dhcp_dns1),
    IGD_FIELD(dhcp_dns2),
    IGD_FIELD(static_dns1),
    IGD_FIELD(static_dns_enable),
    IGD_FIELD(static_dns2),
    IGD_FIELD(ip_dns1),
    IGD_FIELD(ip_dns2),
    IGD_FIELD(dhcp_option60),
    IGD_FIELD(wan_enable),
    IGD_FIELD(stp_enable),
    IGD_FIELD(wan_remote_management_enable),
    IGD_FIELD(port_option60),
    IGD_FIELD(lan_vlan_enable),
    IGD_FIELD(lan_vlan_id),
};
#undef IGD_FIELD

std::vector<std::string> differences(const api_wan_info& info, const api_wan_info& known) {
  std::vector<std::string> fields;
  for (const Field& field : kFields) {
    const std::string text = field.shown(info);
    if (text != field.shown(known)) fields.push_back(std::string(field.name) + ' ' + text);
  }
  return fields;
}

struct Known {
  std::string name;
  api_wan_info info;
  std::size_t said;  // fields that the name says already
};

// The ready descriptions with this one's name, VLAN and ports.
std::vector<Known> ready_ones(const api_wan_info& info) {
  const std::string& name = info.wan_info_name;
  const int vlan = info.vlan_enable != 0 ? info.vlan_id : 0;
  const std::vector<std::string> both = {shown(name), shown(vlan)};
  const std::vector<std::string> all = {shown(name), shown(vlan), shown(info.bind_wan)};
  return {{call_text("routed_pppoe", both), support::routed_pppoe(name, vlan), 2},
          {call_text("dhcp_management", both), support::dhcp_management(name, vlan), 2},
          {call_text("bridged", all), support::bridged(name, vlan, info.bind_wan), 2},
          {"api_wan_info()", {}, 0}};
}

}  // namespace

std::string shown(const std::string& text) {
  const bool one_letter = text.find_first_not_of(text.substr(0, 1)) == std::string::npos;
  if (text.size() <= kLongText || !one_letter) return '"' + text + '"';
  return std::to_string(text.size()) + " times \"" + text[0] + '"';
}

std::string shown(const char* text) { return text == nullptr ? "null" : shown(std::string(text)); }

std::string shown(const std::vector<std::string>& texts) {
  std::vector<std::string> parts;
  for (const std::string& text : texts) parts.push_back(shown(text));
  return '[' + joined(parts) + ']';
}

std::string shown(const std::map<std::string, std::string>& texts) {
  std::vector<std::string> parts;
  for (const auto& [key, text] : texts) parts.push_back(shown(key) + ": " + shown(text));
  return '{' + joined(parts) + '}';
}

std::string shown(const api_route_info& route) {
  return '{' +
         joined({shown(route.dest_ip), shown(route.dest_mask), "enable " + shown(route.enable),
                 "route_type " + shown(route.route_type), "interface " + shown(route.interface),
                 "gateway " + shown(route.gateway)}) +
         '}';
}

std::string shown(const api_mng_server_info* server) {
  return '{' +
         joined({shown(server->url), shown(server->username), shown(server->password),
                 shown(server->connection_request_url), shown(server->connection_request_username),
                 shown(server->connection_request_password)}) +
         '}';
}

std::string call_text(const std::string& operation, const std::vector<std::string>& arguments) {
  return operation + '(' + joined(arguments) + ')';
}

std::string DescriptionText::shown(const api_wan_info& info) {
  std::vector<Known> known = ready_ones(info);
  if (last_) known.push_back({"the same", *last_, 0});
  std::string nearest;
  std::size_t least = std::string::npos;
  for (const Known& candidate : known) {
    const std::vector<std::string> fields = differences(info, candidate.info);
    if (fields.size() + candidate.said >= least) continue;
    least = fields.size() + candidate.said;
    nearest = candidate.name + (fields.empty() ? "" : " with " + joined(fields));
  }
  last_ = info;
  return nearest;
}

}  // namespace transcripts
