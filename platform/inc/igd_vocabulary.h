/// @file
/// The gateway's fixed facts, each defined once: names, values and limits that the library, its
/// platform and its callers share. Header only: there is nothing to link to.
#ifndef IGD_VOCABULARY_H
#define IGD_VOCABULARY_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace igd {

// ---- Texts of the tree --------------------------------------------------------------------------

inline constexpr char kTrue[] = "true";    ///< a switch that is on
inline constexpr char kFalse[] = "false";  ///< a switch that is off

/// Programs of the gateway truncate texts to this many octets.
inline constexpr std::size_t kLongestText = 255;

// ---- Objects ------------------------------------------------------------------------------------

inline constexpr char kRootObject[] = "InternetGatewayDevice.";  ///< of the whole tree
inline constexpr char kWanDeviceTable[] =
    "InternetGatewayDevice.WANDevice.";  ///< one instance per uplink
inline constexpr char kBridgeTable[] =
    "InternetGatewayDevice.Layer2Bridging.Bridge.";  ///< the Layer-2 bridges
inline constexpr char kForwardingObject[] =
    "InternetGatewayDevice.Layer3Forwarding.";  ///< the parent of the static routes
inline constexpr char kForwardingTable[] =
    "InternetGatewayDevice.Layer3Forwarding.Forwarding.";  ///< the static routes
inline constexpr char kManagementServer[] =
    "InternetGatewayDevice.ManagementServer.";  ///< settings of the remote management
/// The LAN's address and DHCP server.
inline constexpr char kLanHostConfig[] =
    "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.";

/// The LAN's own address.
inline constexpr char kLanIpInterface[] =
    "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1.";

// ---- Uplinks ------------------------------------------------------------------------------------

/// WANAccessType of a WAN device.
inline constexpr char kEthernetAccess[] = "Ethernet";
inline constexpr char kMobileAccess[] = "3G";          ///< cellular
inline constexpr char kRepeaterAccess[] = "Repeator";  ///< spelt so in every tree

/// The ports behind them.
inline constexpr char kEthernetUplink[] = "LAN0";
inline constexpr char kMobileUplink[] = "3G0";       ///< cellular
inline constexpr char kRepeaterUplink[] = "WIFIW0";  ///< wireless repeater

/// A way out of the gateway.
struct Uplink {
  const char* access_type;  ///< WANAccessType of its WAN device
  const char* port;         ///< node name of its port
};

/// All of them, the Ethernet uplink first.
inline constexpr std::array<Uplink, 3> kUplinks{{
    {kEthernetAccess, kEthernetUplink},
    {kMobileAccess, kMobileUplink},
    {kRepeaterAccess, kRepeaterUplink},
}};

/// Returns the port of an uplink.
/// @param access_type  WANAccessType of the WAN device
/// @return its node name; empty for a type without a port
constexpr std::string_view uplink_port_of(std::string_view access_type) {
  for (const Uplink& uplink : kUplinks) {
    if (access_type == uplink.access_type) return uplink.port;
  }
  return {};
}

/// Checks whether a port is an uplink's: a connection's own entry into its bridge. Such a port is
/// never bound, has no option 60, and never returns to the LAN bridge.
/// @param node  node name of the port
/// @return whether it is
constexpr bool is_wan_side_port(std::string_view node) {
  for (const Uplink& uplink : kUplinks) {
    if (node == uplink.port) return true;
  }
  return false;
}

// ---- Ports of the household ---------------------------------------------------------------------

/// The wired ports, by their node names.
inline constexpr std::array<const char*, 4> kLanPorts{"LAN1", "LAN2", "LAN3", "LAN4"};
/// The wireless networks.
inline constexpr std::array<const char*, 4> kWlanPorts{"WLAN1", "WLAN2", "WLAN3", "WLAN4"};

/// Helpers for the tables below.
namespace detail {

/// Concatenates two lists.
/// @param first   the first list
/// @param second  the second list
/// @return the elements of both
template <std::size_t M, std::size_t N>
constexpr std::array<const char*, M + N> joined(const std::array<const char*, M>& first,
                                                const std::array<const char*, N>& second) {
  std::array<const char*, M + N> all{};
  for (std::size_t i = 0; i < M; ++i) all[i] = first[i];
  for (std::size_t i = 0; i < N; ++i) all[M + i] = second[i];
  return all;
}

}  // namespace detail

/// The ports that a connection can be bound to, in the order of their numbers and mask bits: the
/// LAN ports, then the wireless ones.
inline constexpr auto kBindablePorts = detail::joined(kLanPorts, kWlanPorts);

/// The four LAN ports as one device.
inline constexpr char kUndividedSwitch[] = "LAN_DEFAULT1";

/// Checks whether any connection may name a port, so that it never counts as taken.
/// @param node  node name of the port
/// @return whether it is the Ethernet uplink's port or the undivided switch
constexpr bool is_shared_device(std::string_view node) {
  return node == kEthernetUplink || node == kUndividedSwitch;
}

// ---- Bridges ------------------------------------------------------------------------------------

/// BridgeName of the bridge that joins the household's ports.
inline constexpr char kLanBridgeName[] = "internet";

/// BridgeStandard of a bridge with a VLAN, and of one without.
inline constexpr char kTaggedStandard[] = "802.1Q";
inline constexpr char kUntaggedStandard[] = "802.1D";  ///< without a VLAN

/// Number of connections of a WAN device that have distinct marks.
inline constexpr int kPacketMarkBase = 30;

/// Packet mark of a connection, by which the gateway distinguishes its traffic.
/// @param device      number of its WAN device
/// @param connection  number of its connection device; counts modulo kPacketMarkBase
/// @return the mark, modulo 2^32
constexpr unsigned int packet_mark(int device, int connection) {
  const std::int64_t mark = std::int64_t{device} * kPacketMarkBase + connection % kPacketMarkBase;
  return static_cast<unsigned int>(mark);
}

// ---- VLANs --------------------------------------------------------------------------------------

/// VLAN identifiers. 0 stands for untagged; 4095 is reserved.
inline constexpr int kLowestVlan = 1;
inline constexpr int kHighestVlan = 4094;  ///< the highest that a frame can carry

inline constexpr int kHighestVlanPriority = 7;  ///< of IEEE 802.1p; the lowest is 0

/// The library takes the VLANs of bound LAN ports from these.
inline constexpr int kFirstPrivateVlan = 4060;
inline constexpr int kPrivateVlanCount = 21;  ///< how many there are

/// Where the search for a connection's VLAN begins; it ends before the private ones.
inline constexpr int kFirstSearchedVlan = 1000;

// ---- Connections --------------------------------------------------------------------------------

/// AddressingType of an IP connection.
inline constexpr char kStaticAddressing[] = "Static";
inline constexpr char kDhcpAddressing[] = "DHCP";  ///< by DHCP

/// ConnectionType of a connection object.
inline constexpr char kIpRouted[] = "IP_Routed";
inline constexpr char kIpBridged[] = "IP_Bridged";            ///< layer 2 alone
inline constexpr char kIpBridgeRouted[] = "IP_BridgeRouted";  ///< both
inline constexpr char kPppoeBridged[] =
    "PPPoE_Bridged";  ///< of the PPP object of a bridged connection

/// Words of a service list.
inline constexpr char kInternetService[] = "INTERNET";
inline constexpr char kManagementService[] = "TR069";  ///< remote management
inline constexpr char kVoipService[] = "VOIP";         ///< telephony
inline constexpr char kOtherService[] = "OTHER";       ///< anything else, such as television
inline constexpr char kMmeService[] = "MME";           ///< counts as management for removal checks

/// Largest packet of a connection, in octets.
inline constexpr int kLowestMtu = 576;
inline constexpr int kHighestMtu = 1540;       ///< of any mode
inline constexpr int kHighestPppoeMtu = 1492;  ///< PPPoE needs 8 octets of a frame

}  // namespace igd

#endif  // IGD_VOCABULARY_H
