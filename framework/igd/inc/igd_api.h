/// @file
/// libigd: the WAN connections of a home gateway, and the bridges, ports and VLANs that carry them.
///
/// The life of a connection
/// ```
///   api_wan_info wan;                                        // describe it
///   wan.wan_info_name = "1_INTERNET_R_VID_100";  ...
///   int verdict = igd_verify_new_wan_info_valid("", &wan, ports);   // 0: it fits
///   std::string path = igd_wan_create("Ethernet", &wan);     // create it; its path identifies it
///   igd_wan_get_params(path, &wan);                          // read it back,
///   igd_wan_set_params(path, &wan);                          // change it,
///   igd_wan_status(path, &status);                           // read its status,
///   if (igd_verify_can_remove_wan(path)) igd_wan_destory(path);  // and remove it
/// ```
/// The two checks are advice: no operation calls them by itself.
///
/// Terms
///   - WAN index, wan_path: path of the connection device, ending in a dot:
///     "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.2.". It identifies the connection.
///   - Connection objects: a connection device contains a static IP, a DHCP IP and a PPP
///     connection side by side; connect_mode selects the one that is enabled.
///   - Own bridge: "br_<d>_<c>", which a connection's bind_wan ports share with the uplink's port
///     ("LAN0", "3G0" or "WIFIW0"). LAN bridge: the one named "internet"; its ports may be bound to
///     a connection (bind_lan) through X_ZYN_DependWanName and a VLAN of their own.
///
/// Rules for callers
///   - Every setting lives in the platform's configuration tree. Without a tree each operation
///     returns its own failure result; one that has none behaves as with an empty tree, and
///     igd_clear_static_route must not be called.
///   - The results of single writes are not checked: writes that the tree refuses are not reported.
///     Only operations that say so commit.
///   - Trace lines go to standard output, passwords included; some lines to the platform's log.
///   - The library takes no locks: use it from one thread at a time.
///   - Record pointers must be valid unless an operation says that null is refused.
///   - The library throws no exceptions of its own; std::bad_alloc passes through.
#ifndef IGD_API_H
#define IGD_API_H

#include <map>
#include <string>
#include <vector>

#include "igd_types.h"

/// Marks the functions and variables that libigd.so exports.
#define IGD_API __attribute__((visibility("default")))

// ---- WAN connections ----------------------------------------------------------------------------

/// Checks whether a description is compatible with the existing connections.
///
/// @param wan_path        the connection being changed; empty for a new one
/// @param info            the description. With vlan_enable 0 its vlan_id is set to 0, which stays
/// @param all_ports_mask  igd_tool_get_port_value of every port of the device, ORed; "no port
///                        would be left" means that the ports taken are exactly these
/// @return an IgdWanVerdict: 0, or the first rule broken in the order VLAN (9, 10), management
///         service (13), port held by another connection (1..8, -1), last free port (12, 14).
///         The connection that carries "TR069" is accepted whatever ports it asks for; so is every
///         new one while the first service list in the tree contains "TR069". "LAN0" and
///         "LAN_DEFAULT1" break no rule.
/// Reads the tree, writes nothing. Without a tree only the last rule is checked, for bind_wan.
IGD_API int igd_verify_new_wan_info_valid(std::string wan_path, api_wan_info* info,
                                          int all_ports_mask);

/// Creates a connection with its three connection objects, its bridge and its uplink port, and
/// writes the description to it. A connection that already has this name is updated instead; the
/// empty name refers to the first connection without one.
///
/// @param access_type  WANAccessType of the uplink: "Ethernet", "3G", "Repeator"; any other text
///                     gives a connection without an uplink port. The WAN device with this type is
///                     used, or created
/// @param info         the description; it is not checked. Ports without an option 60 may be added
///                     to its port_option60 with an empty text
/// @return the connection's path; empty if there is no tree, or if the WAN device or the
///         connection device could not be added (objects added before that stay)
/// Writes the tree, does not commit.
IGD_API std::string igd_wan_create(std::string access_type, api_wan_info* info);

/// Writes a whole description over a connection: flags, names, types, services, NAT, accounts,
/// MTUs, addresses, DNS, bridge, ports and VLAN; then enables the object of connect_mode.
///
/// @param wan_index  the connection's path. A path of no connection is not refused: bare parameter
///                   names are written, which the tree refuses, and as for any connection without
///                   its own bridge the ports of EVERY bridge are treated as its own. Check it
///                   first (igd_verify_is_wan_index, igd_wan_get_wan_bridge_info)
/// @param info       the description; name and joined DNS text are cut at 255 characters, and ports
///                   without an option 60 may be added to its port_option60 with an empty text
/// @return 0, or kIgdNoWan (-1023) without a tree or record, nothing written
/// A change from routed to bridged deletes the static routes through the connection. Ports that
/// leave it go to the LAN bridge. Does not commit.
IGD_API int igd_wan_set_params(std::string wan_index, api_wan_info* info);

/// Reads a connection into a record.
///
/// @param wan_index  the connection's path; a path of no connection gives empty texts and zeros,
///                   and, as for any connection without its own bridge, the ports of every bridge
///                   as bind_wan
/// @param info       filled. Left unchanged: connect_mode and the DNS fields if no object is
///                   enabled, dhcp_option60 unless DHCP is, connection_class if the tree has an
///                   unknown type, dhcp_trans. Entries of port_option60 are added or replaced,
///                   never removed
/// @return 0, or kIgdNoWan (-1023) without a tree or record, nothing filled
/// Reads the tree, writes nothing.
IGD_API int igd_wan_get_params(std::string wan_index, api_wan_info* info);

/// Prints a record to standard output, passwords in clear text. Does not use the tree.
/// @param info  the record, which stays unchanged
/// @return the result of the last printf
IGD_API int igd_wan_print_params(api_wan_info* info);

/// Checks whether the device keeps the services it needs if a connection is removed.
///
/// @param wan_path  the connection's path
/// @return 1 if it may be removed: for an Internet connection ("INTERNET" in its first service
///         list), if there are at least two Internet service lists; for others, if there are at
///         least two lists with neither "MME" nor "TR069". Otherwise, and without a tree, 0
/// Reads the tree, writes nothing.
IGD_API int igd_verify_can_remove_wan(std::string wan_path);

/// Removes a connection with its static routes, objects, bridge and cache entry; returns its ports
/// to the LAN bridge; commits.
///
/// @param wan_path  the connection's path. If it has no bridge of its own, every bridge port in the
///                  tree is taken for the connection's: check first that it has one
/// Reports nothing; without a tree does nothing.
IGD_API void igd_wan_destory(std::string wan_path);

/// Lists the connections, and drops the cache entries of those that are gone.
/// @param out  emptied, then the paths in the tree's order
/// @return their number; without a tree 0, and the whole cache is dropped
IGD_API int igd_wan_list(std::vector<std::string>& out);

/// Writes the ports of a record as X_CT-COM_LanInterface of the three connection objects, bind_lan
/// first, without "LAN0". A value that is already correct is not written. Does not commit.
/// @param wan_path  the connection's path; for a missing object the bare parameter name is read
///                  and written, which the tree refuses
/// @param info      only bind_lan and bind_wan are read
IGD_API void saveLanInterfaceToWanNode(std::string wan_path, api_wan_info* info);

/// Finds a connection by the Name of its objects; IP connections are searched before PPP ones. An
/// empty name finds the first connection without a name.
/// @param name  must match completely
/// @return its path, or the empty text
IGD_API std::string igd_wan_get_id_by_name(std::string name);

/// Checks whether a text is the full name of some bridge's X_ZYN_WANName parameter; the value of
/// that parameter does not matter.
/// @param index  the full name, "InternetGatewayDevice.Layer2Bridging.Bridge.2.X_ZYN_WANName"
/// @return 1, after printing a line, or 0
IGD_API int igd_check_wan_index(std::string index);

/// Checks whether a text is the path of an existing connection device; texts that cannot be one are
/// refused without listing the devices.
/// @param index  a path, ending in a dot
/// @return 1 or 0; 0 without a tree
/// Reads the tree, writes nothing.
IGD_API int igd_verify_is_wan_index(std::string index);

/// Checks whether a text is the path of an existing connection device.
/// @param index  a path, ending in a dot
/// @return 1 or 0; 0 without a tree
/// Reads the tree, writes nothing.
IGD_API int igd_verify_wan_index_in_bridge(std::string index);

/// Writes one value under the same relative name in all three objects of a connection.
///
/// @param wan_path  the connection's path; nothing is done unless it has all three objects
/// @param node      full name below one of the three objects; any other name writes nothing
/// @param value     stored unchanged
/// Prints one line; commits if it wrote.
IGD_API void igd_set_wan_all_value(std::string wan_path, std::string node, std::string value);

/// Lists the ports held by other connections than this one, without "LAN0".
/// @param wan_path  the connection's path; empty counts every connection
/// @param ports     emptied, then the node names in the tree's order
/// @return 0
IGD_API int igd_get_used_port_list(std::string wan_path, std::vector<std::string>& ports);

/// Reads the run-time state of a connection.
///
/// @param wan_index  the connection's path
/// @param status     filled. Left unchanged: mode, connected and the addresses if no object is
///                   enabled, last_connection_error unless PPPoE is enabled without an address
/// @return 0, or kIgdNoTree (-1022) without a tree or record, nothing filled
IGD_API int igd_wan_status(std::string wan_index, api_wan_status* status);

// ---- Bridges and VLANs --------------------------------------------------------------------------

/// Names the bridge that serves a path.
/// @param connection_path  a connection's path, or any path with "LANDevice"
/// @return "internet" for a LAN path, otherwise the name of the connection's own bridge; empty
///         if there is none
IGD_API std::string igd_get_bridge_info(std::string connection_path);

/// Finds the LAN bridge.
///
/// @param wan_path         a connection's path; it does not affect the result
/// @param lan_bridge_path  set to the bridge's path, empty if no bridge is named "internet"; may
///                         be null
/// @param lan_bridge_name  set to "internet", even if there is no such bridge; may be null
/// @return 0, or kIgdNoTree (-1022), outputs untouched
IGD_API int igd_wan_get_lan_bridge_info(std::string wan_path, std::string* lan_bridge_path,
                                        std::string* lan_bridge_name);

/// Finds the bridge that carries a WAN connection.
///
/// @param wan_path     connection device path, ending in a dot; its shape is assumed, not checked
/// @param bridge_path  set to the bridge's object path only if found; may be null
/// @param bridge_name  set to "br_<d>_<c>" before the search, so also on failure; may be null
/// @return 0, or kIgdNoWan (-1023) if no bridge both names this connection and has that name
/// Reads the tree, writes nothing. Logs "INDEX=<wan_path>".
IGD_API int igd_wan_get_wan_bridge_info(std::string wan_path, std::string* bridge_path,
                                        std::string* bridge_name);

/// Reads a connection's bridge: name, ports and VLAN.
///
/// @param wan_path  the connection's path. Without a bridge of its own, the ports of every bridge
///                  are listed and the name is empty
/// @param ports     emptied, then the node names of the ports
/// @param vlan_id   VLANID of the bridge, 0 if it is not a number
/// @return BridgeName; empty without a tree, outputs untouched
IGD_API std::string igd_wan_intf(std::string wan_path, std::vector<std::string>& ports,
                                 unsigned int& vlan_id);

/// Finds the bridge that carries a physical device.
///
/// @param phy          device name, "eth1.100"; taggable devices of an 802.1Q bridge have the
///                     bridge's VLANID as suffix. Empty matches ports with unknown node names
/// @param bridge_path  set at each match, so the last matching port decides; may be null
/// @param bridge_name  likewise; may be null
/// @return 0, with or without a match, or kIgdNoTree (-1022); outputs untouched without a match
IGD_API int igd_wan_get_bridge_info_from_phy(std::string phy, std::string* bridge_path,
                                             std::string* bridge_name);

/// Finds a VLAN identifier that no bridge carries.
/// @return the lowest free one from 1000 to 4059, 1000 without a tree; 3999 if all are taken, in
///         which case 3999 is not free either
IGD_API int igd_wan_get_unused_vlan();

// ---- Static routes ------------------------------------------------------------------------------

/// Lists the static routes, including disabled ones.
/// @param routes  emptied, then one record for each route in the tree's order
/// @return their number, 0 without a tree
IGD_API int igd_get_static_route_list(std::vector<api_route_info>& routes);

/// Deletes all static routes and empties the layer-3 forwarding object; commits and applies if
/// that last step succeeds. There must be a tree.
/// @return the platform's result of emptying the object, 0 for success
IGD_API int igd_clear_static_route();

/// Adds, updates or deletes the static route with this destination and mask; commits and applies.
///
/// @param op     IgdRouteOperation; any other value changes nothing
/// @param route  `interface` is the name of a WAN connection, found by igd_wan_get_id_by_name and
///               stored as its path; an unknown name is stored as the empty text
/// @return 0; kIgdFailed (-1) without a tree, or if the route to delete does not exist
IGD_API int igd_set_static_route(int op, api_route_info route);

// ---- Device settings ----------------------------------------------------------------------------

/// Writes the six settings of the remote-management server, including empty ones. Does not commit.
/// @param info  the settings
/// @return 0, or kIgdNoTree (-1022) without a tree or record
IGD_API int igd_mng_server_set_params(api_mng_server_info* info);

/// Reads the six settings of the remote-management server.
/// @param info  filled
/// @return 0, or kIgdNoTree (-1022) without a tree or record, nothing filled
IGD_API int igd_mng_server_get_params(api_mng_server_info* info);

/// Reads the gateway's LAN address. (Ordinary linkage, despite its name.)
/// @return IPInterfaceIPAddress of the first LAN device; empty without a tree
IGD_API std::string igd_c_get_lan_ipaddr();

// ---- Names --------------------------------------------------------------------------------------

/// Returns the bit of a port in a port mask.
/// @param node  node name of the port
/// @return 1, 2, 4, 8 for LAN1 to LAN4, 16, 32, 64, 128 for WLAN1 to WLAN4; 0 for any other
/// Does not use the tree.
IGD_API int igd_tool_get_port_value(std::string node);

/// Returns the number of a port.
/// @param node  node name of the port
/// @return 1 to 4 for LAN1 to LAN4, 5 to 8 for WLAN1 to WLAN4; -1 for any other
/// Does not use the tree.
IGD_API int igd_tool_get_port_index(std::string node);

/// Checks whether a node name contains the letter "W", as those of wireless ports do.
/// @param node  node name of a port
/// @return whether it does
/// Does not use the tree.
IGD_API bool isWlan(std::string node);

/// @name Translations between node and interface names
/// On this gateway both are the same text. These functions do not use the tree.
/// @{

/// Returns the node name of a LAN port.
/// @param name  its interface name
/// @return the same text
IGD_API std::string getLanIndexByPhy(std::string name);
/// Returns the node name of a wireless port.
/// @param name  its interface name
/// @return the same text
IGD_API std::string getWlanIndexByPhy(std::string name);
/// Returns the interface name of a port.
/// @param node  its node name
/// @return the same text
IGD_API std::string igd_transe_node_2_lan_interfac(std::string node);
/// Returns the node name of a port.
/// @param interface  its interface name
/// @return the same text
IGD_API std::string igd_trans_lan_interface_2_node(std::string interface);
/// @}

// ---- Tools --------------------------------------------------------------------------------------

/// Splits a text at every character of a set. Two delimiters in a row give an empty token; one at
/// the end of the text starts no further token: "a,,b" gives "a", "", "b"; "a," gives "a"; ","
/// gives one empty token, an empty text none.
/// @param text           the text to split
/// @param delimiter_set  each of its characters is a delimiter
/// @param out            emptied, then the tokens
/// @return the number of tokens
IGD_API int igd_tool_split_str(std::string text, std::string delimiter_set,
                               std::vector<std::string>& out);

/// Lists the instances of an object type below a path.
/// @param path  prefix of the full names, compared as text; empty for the whole tree
/// @param type  ObjectType (common_util.h)
/// @param out   emptied, then the full names in the tree's order
/// @return their number, 0 without a tree
IGD_API int igd_tool_loop_instance(std::string path, int type, std::vector<std::string>& out);

/// Finds the first parameter of a type below a path with exactly this value.
/// @param path   prefix of the full names, compared as text; empty for the whole tree
/// @param type   ObjectType (common_util.h)
/// @param value  must match completely
/// @return its full name, or the empty text
IGD_API std::string igd_tool_loop_fullname(std::string path, int type, std::string value);

/// Removes the first element equal to a name; later ones stay. Does not use the tree.
/// @param list  the names
/// @param name  the one to remove; if it is not in the list nothing changes
IGD_API void _delete_node(std::vector<std::string>& list, std::string name);

// ---- Cache --------------------------------------------------------------------------------------

/// Where each WAN connection's objects are, by connection path. Owned by the library: entries are
/// created by _get_cache and deleted by _rebuid_cache and _destory_cache.
extern IGD_API std::map<std::string, wan_mib_info*> g_wan_mibinfo_cache_list;

/// Layer-3 interface names by key; see igd_c_set_l3_name.
extern IGD_API std::map<std::string, std::string> g_l3_ifname_table;

/// Returns the cache entry of a connection. It is created at the first request, which prints six
/// lines, and kept even if the tree changes, until igd_wan_destory or an igd_wan_list that no
/// longer finds the connection. igd_wan_set_params updates its lan_bridge_path and connect_class.
/// Without a tree an entry with empty paths is created, and kept.
/// @param wan_path  the connection's path
/// @return the entry, owned by the library; never null
IGD_API wan_mib_info* _get_cache(std::string wan_path);

/// Deletes every cache entry whose path is not listed. Does not use the tree.
/// @param wan_paths  the connections whose entries stay
IGD_API void _rebuid_cache(std::vector<std::string>& wan_paths);

/// Deletes the cache entry of one connection. Does not use the tree.
/// @param wan_path  the connection's path; having no entry is not an error
/// @return 1
IGD_API int _destory_cache(std::string wan_path);

#endif  // IGD_API_H
