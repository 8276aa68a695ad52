/// Fields of a connection that are read and written in the same order, as rows of a table.
#ifndef IGD_WAN_FIELDS_H
#define IGD_WAN_FIELDS_H

#include <string>

#include "igd_types.h"

namespace igd {

struct TextField {
  std::string wan_mib_info::*owner;  ///< path of the object that has the parameter
  const char* parameter;
  std::string api_wan_info::*field;
};

inline constexpr TextField kPppAccountFields[] = {
    {&wan_mib_info::ppp_path, "Username", &api_wan_info::pppoe_user_name},
    {&wan_mib_info::ppp_path, "Password", &api_wan_info::pppoe_password},
};

inline constexpr TextField kMtuFields[] = {
    {&wan_mib_info::ppp_path, "MTU", &api_wan_info::pppoe_mtu},
    {&wan_mib_info::static_path, "MTU", &api_wan_info::static_mtu},
    {&wan_mib_info::dhcp_path, "MTU", &api_wan_info::dhcp_mtu},
};

inline constexpr TextField kStaticAddressFields[] = {
    {&wan_mib_info::static_path, "ExternalIPAddress", &api_wan_info::ip_addr},
    {&wan_mib_info::static_path, "SubnetMask", &api_wan_info::ip_mask},
    {&wan_mib_info::static_path, "DefaultGateway", &api_wan_info::ip_gw},
};

}  // namespace igd

#endif  // IGD_WAN_FIELDS_H
