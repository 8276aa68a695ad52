// What was written is read again.
#include "igd_api.h"
#include "rules.h"

namespace model {
namespace {

constexpr std::size_t kLongest = 255;  ///< names and DNS texts are cut there

struct TextField {
  const char* name;
  std::string api_wan_info::*field;
};

/// Kept for every mode.
constexpr TextField kTexts[] = {
    {"service_type", &api_wan_info::service_type},
    {"pppoe_user_name", &api_wan_info::pppoe_user_name},
    {"pppoe_password", &api_wan_info::pppoe_password},
    {"pppoe_mtu", &api_wan_info::pppoe_mtu},
    {"static_mtu", &api_wan_info::static_mtu},
    {"dhcp_mtu", &api_wan_info::dhcp_mtu},
    {"wan_enable", &api_wan_info::wan_enable},
    {"wan_remote_management_enable", &api_wan_info::wan_remote_management_enable},
    {"stp_enable", &api_wan_info::stp_enable},
};

constexpr TextField kAddresses[] = {{"ip_addr", &api_wan_info::ip_addr},
                                    {"ip_mask", &api_wan_info::ip_mask},
                                    {"ip_gw", &api_wan_info::ip_gw}};

constexpr TextField kServers[] = {{"ip_dns1", &api_wan_info::ip_dns1},
                                  {"ip_dns2", &api_wan_info::ip_dns2}};

template <std::size_t kCount>
std::string different(const TextField (&fields)[kCount], const api_wan_info& is,
                      const api_wan_info& written) {
  for (const TextField& row : fields) {
    if (is.*row.field != written.*row.field) return row.name;
  }
  return {};
}

std::string different_numbers(const api_wan_info& is, const api_wan_info& written) {
  const bool tagged = written.vlan_enable != 0;
  if (is.connection_class != written.connection_class) return "connection_class";
  if (is.connect_mode != written.connect_mode) return "connect_mode";
  if ((is.nat_mode == 1) != (written.nat_mode == 1)) return "nat_mode";
  if ((is.ip_dns_enable == 1) != (written.ip_dns_enable == 1)) return "ip_dns_enable";
  if ((is.vlan_enable == 1) != tagged) return "vlan_enable";
  if (is.vlan_id != (tagged ? written.vlan_id : 0)) return "vlan_id";
  return tagged && is.vlan_priority != written.vlan_priority ? "vlan_priority" : "";
}

std::string different_field(const api_wan_info& is, const api_wan_info& written) {
  if (is.wan_info_name != written.wan_info_name.substr(0, kLongest)) return "wan_info_name";
  std::string found = different(kTexts, is, written);
  if (found.empty()) found = different_numbers(is, written);
  if (found.empty() && written.connect_mode == 2) found = different(kAddresses, is, written);
  const std::size_t servers = written.ip_dns1.size() + 1 + written.ip_dns2.size();
  if (found.empty() && written.ip_dns_enable != 0 && servers <= kLongest) {
    found = different(kServers, is, written);
  }
  const bool dhcp = written.connect_mode == 1;
  if (found.empty() && dhcp && is.dhcp_option60 != written.dhcp_option60) return "dhcp_option60";
  return found;
}

}  // namespace

std::string not_read_back(const std::string& path, const api_wan_info& written) {
  api_wan_info is;
  if (igd_wan_get_params(path, &is) != 0) return "the connection cannot be read";
  const std::string field = different_field(is, written);
  return field.empty() ? "" : field + " is not read as it was written";
}

}  // namespace model
