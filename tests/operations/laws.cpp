// The laws, each worked out from the steps of its operation. What recurs in them:
//
//   a walk over a type         1 open, and 1 name for each instance of that type in the whole tree:
//                              n connection devices, PPP objects and service lists, 2n IP objects,
//                              n + 1 bridges, 2np + n + p ports, r routes, 1 uplink
//   the three objects          3 opens, 5n names, 3 gets: "Static" is the first, "DHCP" the second
//                              IP object of the connection
//   the connection's bridge    1 open, n + 1 names, n + 2 gets: it is the last one; then its name
//   the LAN bridge             1 open, n + 1 names, 1 get: it is the first; the operation that asks
//                              for it looks up the three objects, too
//   a cache entry              its bridge, the LAN bridge with the objects, the objects again:
//                              8 opens, 12n + 2 names, n + 9 gets
//   a port into its own bridge 3 gets, 1 add, 4 sets; unbound into the LAN bridge 2 gets, 1 add,
//                              3 sets
//   a port bound in the LAN bridge: 1 add, 4 sets, and a search for a VLAN, which reads the owners
//                              of the bridge's ports, and every PVID of the tree once more for each
//                              VLAN in use
#include "law.h"

namespace operations {

const std::vector<Law>& all_laws() {
  static const std::vector<Law> laws = {
      // operation, {open, name, get, set, add, delete, commit, apply}
      {"igd_verify_new_wan_info_valid", {"3", "2np + 3n + p + 1", "np + n + 5"}},
      {"igd_verify_new_wan_info_valid, of an existing one",
       {"2p + 3", "4np^2 + 4np + 3n + 2p^2 + p + 1", "3np^2 + 5np + 3n + p^2 + 6p + 2"}},
      {"igd_verify_new_wan_info_valid, of the management service",
       {"4", "2np + 4n + p + 1", "np + 2n + 5"}},
      {"igd_verify_new_wan_info_valid, of ports that are free",
       {"5", "6np + 5n + 3p + 1", "8np + 5n + 4p + 3"}},
      {"igd_wan_create", {"19", "12np + 22n + 6p + 27", "4np + 6n + 4p + 34", "67", "11"}},
      {"igd_wan_create, on a new uplink",
       {"19", "12np + 22n + 6p + 22", "4np + 6n + 4p + 28", "62", "11"}},
      {"igd_wan_create, under a known name",
       {"17", "16np + 22n + 3p + 6", "5np + 4n + 9p + 25", "10p + 49", "2p + 2", "2p"}},
      {"igd_wan_set_params", {"12", "8np + 16n + 4p + 2", "np + n + 4p + 17", "3p + 39"}},
      {"igd_wan_set_params, cached", {"4", "8np + 4n + 4p", "np + 4p + 8", "3p + 39"}},
      {"igd_wan_set_params, exchanging its ports",
       {"2p + 14", "4np^2 + 14np + 18n + p^2 + 4p + 2",
        "(np^3 + 5np^2)/2 + 3np + n + (p^3 - p)/6 + 2p^2 + 13p + 19", "14p + 38", "2p", "2p"}},
      {"igd_wan_set_params, to bridged, releasing its ports",
       {"15", "12np + 18n + 5p + r + 2", "2np + n + 10p + 2r + 18", "10p + 39", "2p", "2p + r"}},
      {"igd_wan_set_params, of an unknown connection",
       {"2p + 13", "12np + 17n + 3p^2 + 3p + 2", "10np + 3n + 2p^2 + (p^2 + p)/2 + (p^3 - p)/6 + 9",
        "14np + 3n + 35", "2np - p", "2np"}},
      {"igd_wan_get_params", {"10", "4np + 14n + 2p + 2", "2np + 2n + 5p + 39"}},
      {"igd_wan_get_params, cached", {"2", "4np + 2n + 2p", "2np + n + 5p + 30"}},
      {"igd_wan_get_params, of an unknown connection",
       {"10", "4np + 14n + 2p + 2", "6np + 3n + 3p + 25"}},
      {"igd_wan_print_params", {}},
      {"igd_verify_can_remove_wan", {"2", "2n", "n + 1"}},
      {"igd_wan_destory",
       {"12", "6np + 15n + 2p + r - 5", "np + n + 7p + r + 7", "8p + 5", "2p", "2p + r + 3", "1"}},
      {"igd_wan_destory, cached",
       {"12", "6np + 15n + 2p + r - 5", "np + n + 7p + r + 7", "8p + 5", "2p", "2p + r + 3", "1"}},
      {"igd_wan_list, cached", {"1", "n"}},
      {"saveLanInterfaceToWanNode", {"8", "12n + 2", "n + 12", "3"}},
      {"saveLanInterfaceToWanNode, cached", {"0", "0", "3", "3"}},
      {"igd_wan_get_id_by_name", {"1", "2n", "2n - 1"}},
      {"igd_wan_get_id_by_name, of an unknown name", {"2", "3n", "3n"}},
      {"igd_check_wan_index", {"1", "n + 1"}},
      {"igd_verify_is_wan_index", {"1", "n"}},
      {"igd_verify_wan_index_in_bridge", {"1", "n"}},
      {"igd_set_wan_all_value", {"3", "5n", "3", "3", "0", "0", "1"}},
      {"igd_set_wan_all_value, outside of its objects", {"3", "5n", "3"}},
      {"igd_get_used_port_list", {"1", "2np + n + p", "5np + n + 3p"}},
      {"igd_wan_status", {"3", "5n", "18"}},

      {"igd_get_bridge_info", {"1", "n + 1", "n + 2"}},
      {"igd_get_bridge_info, of a LAN path", {}},
      {"igd_wan_get_lan_bridge_info", {"4", "6n + 1", "4"}},
      {"igd_wan_get_wan_bridge_info", {"1", "n + 1", "n + 2"}},
      {"igd_wan_intf", {"2", "2np + 2n + p + 1", "n + p + 5"}},
      {"igd_wan_get_bridge_info_from_phy", {"1", "2np + n + p", "6np + 3n + 3p"}},
      {"igd_wan_get_unused_vlan", {"1", "n + 1", "n + 1"}},
      {"igd_c_check_belong_bridge", {"2", "2np + 2n + p + 1", "2np + 2p + 2"}},
      {"igd_c_check_belong_bridge, of an unknown device",
       {"2", "2np + 2n + p + 1", "2np + 2p + 2"}},
      {"igd_c_get_mask", {}},
      {"igd_c_get_wan_bridge_name", {}},
      {"igd_c_get_wan_bridge_intf_name", {}},
      {"igd_c_get_wan_bridge_pvid_name", {"1", "n + 1", "2"}},
      {"igd_c_get_wan_bridge_vlanid_name", {"1", "n + 1", "2"}},
      {"igd_c_get_wan_bridge_vlanpriority_name", {"1", "n + 1", "2"}},
      {"igd_c_set_bridge_pvid", {"2", "2np + 2n + p + 1", "2", "np + p"}},

      {"igd_get_static_route_list", {"1", "r", "5r"}},
      {"igd_clear_static_route", {"1", "r", "0", "0", "0", "r + 1", "1", "1"}},
      {"igd_set_static_route, adding one by interface",
       {"2", "2n + r", "2n + 2r - 1", "6", "1", "0", "1", "1"}},
      {"igd_set_static_route, changing one by gateway", {"1", "r", "2", "6", "0", "0", "1", "1"}},
      {"igd_set_static_route, deleting one", {"1", "r", "2", "0", "0", "1", "1", "1"}},
      {"igd_set_static_route, with an unknown code", {"1", "r", "2"}},
      {"igd_mng_server_set_params", {"0", "0", "0", "6"}},
      {"igd_mng_server_get_params", {"0", "0", "6"}},
      {"igd_c_get_lan_ipaddr", {"0", "0", "1"}},
      {"igd_c_set_l3_name", {}},
      {"igd_c_get_l3_name", {}},
      {"igd_tool_get_port_value", {}},
      {"igd_tool_get_port_index", {}},
      {"isWlan", {}},
      {"getLanIndexByPhy", {}},
      {"getWlanIndexByPhy", {}},
      {"igd_transe_node_2_lan_interfac", {}},
      {"igd_trans_lan_interface_2_node", {}},
      {"igd_tool_split_str", {}},
      {"igd_tool_loop_instance", {"1", "2n"}},
      {"igd_tool_loop_fullname", {"1", "2n", "2"}},
      {"_delete_node", {}},
      {"_get_cache", {"8", "12n + 2", "n + 9"}},
      {"_get_cache, cached", {}},
      {"_rebuid_cache, keeping it, cached", {}},
      {"_rebuid_cache, dropping it, cached", {}},
      {"_destory_cache", {}},
      {"_destory_cache, cached", {}},
  };
  return laws;
}

}  // namespace operations
