#include "igd_api.h"
#include "igd_c_api.h"
#include "operations.h"

namespace no_tree {
namespace {

using Names = std::vector<std::string>;
using std::to_string;

std::string split() {
  Names tokens;
  (void)igd_tool_split_str("a,,b", ",", tokens);
  return shown(tokens);
}

std::string delete_node() {
  Names names = {"LAN1", "LAN2", "LAN1"};
  _delete_node(names, "LAN1");
  return shown(names);
}

std::string keep_only_listed() {
  g_wan_mibinfo_cache_list[kPath] = nullptr;
  Names paths;
  _rebuid_cache(paths);
  return to_string(g_wan_mibinfo_cache_list.size());
}

std::string l3_names() {
  igd_c_set_l3_name("wan1", "ppp0");
  return buffer_of(igd_c_get_l3_name, "wan1");
}

std::string dump() {
  api_wan_info info;
  return to_string(igd_wan_print_params(&info));
}

const char kEmptyDump[] =
    "igd_wan_print_params start!!! igd_wan_print_params:601\n"
    "wan_info_name: \nvlan_enable:0 \nvlan_id:0 \nvlan_priority:0 \n"
    "connection_class 1:Route,2:Bridge,3:Route&Bridge:[0] \n"
    "service_type:  \ndhcp_trans: 0 \nnat_mode: 0 \nconnect_mode 1:dbcp,2:static,3:pppoe: [0] \n"
    "pppoe_user_name:  \npppoe_password:  \npppoe_mtu:  \nprotocol: 1 ipv4, 2 ipv6 [0] \n"
    "ip_addr:  \nip_mask:  \nip_gw:  \nip_dns_enable: 0 \nip_dns1:  \nip_dns2:  \n"
    "dhcp_option60:  \nwan_enable:  \nwan_remote_management_enable:  \nstp_enable:  \n"
    "igd_wan_print_params end!!! igd_wan_print_params:631\n";

}  // namespace

std::vector<Operation> self_sufficient_operations() {
  return {
      {"igd_tool_split_str", split, "[a  b ]", "", ""},
      {"_delete_node", delete_node, "[LAN2 LAN1 ]", "", ""},
      {"igd_tool_get_port_value", [] { return to_string(igd_tool_get_port_value("LAN3")); }, "4",
       "", ""},
      {"igd_tool_get_port_index", [] { return to_string(igd_tool_get_port_index("WLAN1")); }, "5",
       "", ""},
      {"isWlan", [] { return to_string(isWlan("WLAN1")); }, "1", "", ""},
      {"getLanIndexByPhy", [] { return getLanIndexByPhy("LAN1"); }, "LAN1", "", ""},
      {"getWlanIndexByPhy", [] { return getWlanIndexByPhy("WLAN1"); }, "WLAN1", "", ""},
      {"igd_transe_node_2_lan_interfac", [] { return igd_transe_node_2_lan_interfac("LAN1"); },
       "LAN1", "", ""},
      {"igd_trans_lan_interface_2_node", [] { return igd_trans_lan_interface_2_node("LAN1"); },
       "LAN1", "", ""},
      {"igd_wan_print_params", dump, "53", kEmptyDump, ""},
      {"_rebuid_cache", keep_only_listed, "0", "", ""},
      {"_destory_cache", [] { return to_string(_destory_cache(kPath)); }, "1", "", ""},
      {"igd_get_bridge_info_of_lan",
       [] { return igd_get_bridge_info("InternetGatewayDevice.LANDevice.1."); }, "internet", "",
       ""},
      {"igd_c_get_mask", [] { return to_string(igd_c_get_mask("br_1_2")); }, "32", "", ""},
      {"igd_c_get_wan_bridge_name", [] { return buffer_of(igd_c_get_wan_bridge_name, kPath); },
       "\"br_1_2\"", "", ""},
      {"igd_c_get_wan_bridge_intf_name",
       [] { return buffer_of(igd_c_get_wan_bridge_intf_name, kPath); }, "\"br_1_2\"", "", ""},
      {"igd_c_l3_name", l3_names, "\"ppp0\"", "", ""},
  };
}

}  // namespace no_tree
