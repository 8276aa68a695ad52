/// @file
/// Records, code values and result codes of libigd.
///
/// A record has exactly these fields in this order: its layout is part of the binary interface.
/// Records belong to the caller, except wan_mib_info, which the library's cache owns.
#ifndef IGD_TYPES_H
#define IGD_TYPES_H

#include <map>
#include <string>
#include <vector>

/// Results shared by the operations; each operation states which ones it returns.
enum IgdResult : int {
  kIgdOk = 0,
  kIgdFailed = -1,     ///< not found, bad argument, nothing free
  kIgdNoTree = -1022,  ///< no configuration tree, or a null record
  kIgdNoWan = -1023,   ///< the same for reading and writing a WAN; "not found" for its bridge
};

/// api_wan_info::connection_class
enum IgdConnectionClass : int {
  kIgdRouted = 1,
  kIgdBridged = 2,
  kIgdRoutedAndBridged = 3,
};

/// api_wan_info::connect_mode and api_wan_status::connect_mode
enum IgdConnectMode : int {
  kIgdDhcp = 1,
  kIgdStatic = 2,
  kIgdPppoe = 3,
};

/// api_wan_info::protocol
enum IgdProtocol : int {
  kIgdIpv4 = 1,
  kIgdIpv6 = 2,
};

/// Verdicts of igd_verify_new_wan_info_valid. 1 to 8 mean that another connection holds that port
/// (LAN1-LAN4, WLAN1-WLAN4), kIgdFailed that it holds a port with any other name.
enum IgdWanVerdict : int {
  kIgdAcceptable = 0,
  kIgdVlanTaken = 9,                  ///< another connection's bridge carries this VLAN
  kIgdUntaggedTaken = 10,             ///< another connection's bridge is untagged
  kIgdRoutedBridgeLeavesNoPort = 12,  ///< routed and bridged, and no port would be left
  kIgdManagementExists = 13,          ///< its service is "TR069", which some service list has
  kIgdBridgeLeavesNoPort = 14,        ///< bridged, address or mask empty, no port would be left
};

/// igd_set_static_route: what to do with the route.
enum IgdRouteOperation : int {
  kIgdRouteSet = 1,  ///< add, or update the entry with the same destination and mask
  kIgdRouteDelete = 2,
};

/// api_route_info::route_type
enum IgdRouteType : int {
  kIgdRouteByGateway = 1,
  kIgdRouteByInterface = 2,
};

/// A WAN connection as callers describe it and read it back.
struct api_wan_info {
  std::string wan_info_name;                 ///< name of the connection
  int vlan_enable = 0;                       ///< 1 tagged (802.1Q), 0 untagged
  int vlan_id = 0;                           ///< VLAN identifier when tagged
  int vlan_priority = 0;                     ///< 802.1p priority
  int connection_class = 0;                  ///< IgdConnectionClass
  std::vector<std::string> bind_lan;         ///< LAN-bridge ports bound to it: "LAN1".."WLAN4"
  std::vector<std::string> bind_wan;         ///< ports in the connection's own bridge
  std::string service_type;                  ///< service list: "INTERNET", "TR069", ...
  int dhcp_trans = 0;                        ///< never written to the tree; printed twice
  int nat_mode = 0;                          ///< 1 NAT on, anything else off
  int connect_mode = 0;                      ///< IgdConnectMode
  std::string pppoe_user_name;               ///< account of the PPP object
  std::string pppoe_password;                ///< its password, in clear text
  std::string pppoe_mtu;                     ///< octets, decimal
  std::string static_mtu;                    ///< octets, decimal
  std::string dhcp_mtu;                      ///< octets, decimal
  int protocol = 0;                          ///< IgdProtocol; set when read
  std::string ip_addr;                       ///< static address
  std::string ip_mask;                       ///< static subnet mask
  std::string ip_gw;                         ///< static default gateway
  int ip_dns_enable = 0;                     ///< 1: the connection's own DNS servers are used
  int dhcp_dns_enable = 0;                   ///< DHCP object, set when read
  std::string dhcp_dns1;                     ///< DHCP object, set when read
  std::string dhcp_dns2;                     ///< DHCP object, set when read
  int static_dns_enable = 0;                 ///< static object, set when read
  std::string static_dns1;                   ///< static object, set when read
  std::string static_dns2;                   ///< static object, set when read
  std::string ip_dns1;                       ///< first DNS server of the active object
  std::string ip_dns2;                       ///< second DNS server of the active object
  std::string dhcp_option60;                 ///< DHCP vendor class identifier
  std::string wan_enable;                    ///< "true" or "false"
  std::string wan_remote_management_enable;  ///< "true" or "false"
  std::string stp_enable;                    ///< "true" or "false"
  std::map<std::string, std::string> port_option60;  ///< option 60 by port name
  int lan_vlan_enable = 0;  ///< 1 when the LAN bridge is 802.1Q; set when read
  int lan_vlan_id = 0;      ///< VLANID of the LAN bridge; set when read
};

/// Where the objects of one WAN connection are in the tree: an entry of the library's cache.
/// Paths end in a dot and are empty if there is no such object.
struct wan_mib_info {
  std::string wan_path;         ///< connection device path, the cache key
  std::string bridge_name;      ///< name of the connection's own bridge
  std::string static_path;      ///< IP connection with static addressing
  std::string ppp_path;         ///< first PPP connection
  std::string dhcp_path;        ///< IP connection with DHCP addressing
  std::string wan_bridge_path;  ///< the connection's own bridge
  std::string lan_bridge_path;  ///< the LAN bridge
  std::string lan_bridge_name;  ///< name of the LAN bridge
  int connect_class = 0;        ///< IgdConnectionClass found by the last write, else 0
};

/// Run-time state of a WAN connection. Counters, uptime and addresses are the tree's own text.
struct api_wan_status {
  std::string name;                   ///< of the connection
  int connected = 0;                  ///< 1 if the active connection has an address
  std::string mac_address;            ///< of the connection, as the tree writes it
  int connect_mode = 0;               ///< IgdConnectMode of the enabled object
  std::string service_list;           ///< "INTERNET", "TR069", ...
  std::string connection_type;        ///< ConnectionType: "IP_Routed", ...
  std::string ip_addr;                ///< address in use
  std::string ip_mask;                ///< its subnet mask
  std::string ip_gw;                  ///< PPPoE: the remote end
  std::string ip_dns;                 ///< all servers in one text
  std::string bytes_sent;             ///< octets
  std::string bytes_received;         ///< octets
  std::string packets_sent;           ///< packets
  std::string packets_received;       ///< packets
  std::string uptime;                 ///< seconds
  std::string last_connection_error;  ///< PPPoE without an address only
};

/// One static route.
struct api_route_info {
  std::string dest_ip;    ///< destination network, dotted
  std::string dest_mask;  ///< its mask, dotted
  int enable = 0;         ///< 1 enabled, 0 disabled
  int route_type = 0;     ///< IgdRouteType
  std::string interface;  ///< by interface: a connection's name to set, its path when listed
  std::string gateway;    ///< by gateway: next hop
};

/// How the gateway and its remote-management server reach each other.
struct api_mng_server_info {
  std::string url;                          ///< of the management server
  std::string username;                     ///< the gateway's account there
  std::string password;                     ///< its password, in clear text
  std::string connection_request_url;       ///< where the server reaches the gateway
  std::string connection_request_username;  ///< the server's account at the gateway
  std::string connection_request_password;  ///< its password, in clear text
};

#endif  // IGD_TYPES_H
