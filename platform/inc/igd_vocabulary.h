/// @file
/// The gateway's fixed facts, each stated once: names, values and limits that the library, its
/// platform and its callers share. Constants only; nothing here needs a library to link to.
#ifndef IGD_VOCABULARY_H
#define IGD_VOCABULARY_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace igd {

// ---- Texts of the tree --------------------------------------------------------------------------

inline constexpr char kTrue[] = "true";
inline constexpr char kFalse[] = "false";

/// Programs of the gateway keep this many octets of a text, and cut what is longer.
inline constexpr std::size_t kLongestText = 255;

// ---- Objects ------------------------------------------------------------------------------------

inline constexpr char kRootObject[] = "InternetGatewayDevice.";
inline constexpr char kWanDeviceTable[] = "InternetGatewayDevice.WANDevice.";
inline constexpr char kBridgeTable[] = "InternetGatewayDevice.Layer2Bridging.Bridge.";
inline constexpr char kForwardingObject[] = "InternetGatewayDevice.Layer3Forwarding.";
inline constexpr char kForwardingTable[] = "InternetGatewayDevice.Layer3Forwarding.Forwarding.";
inline constexpr char kManagementServer[] = "InternetGatewayDevice.ManagementServer.";
inline constexpr char kLanHostConfig[] =
    "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.";
inline constexpr char kLanIpInterface[] =
    "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1.";

// ---- Uplinks ------------------------------------------------------------------------------------

/// WANAccessType of a WAN device.
inline constexpr char kEthernetAccess[] = "Ethernet";
inline constexpr char kMobileAccess[] = "3G";
inline constexpr char kRepeaterAccess[] = "Repeator";  ///< spelt so in every tree

/// The ports behind them.
inline constexpr char kEthernetUplink[] = "LAN0";
inline constexpr char kMobileUplink[] = "3G0";
inline constexpr char kRepeaterUplink[] = "WIFIW0";

/// A way out of the gateway.
struct Uplink {
  const char* access_type;  ///< WANAccessType of its WAN device
  const char* port;         ///< node name of its port
};

inline constexpr std::array<Uplink, 3> kUplinks{{
    {kEthernetAccess, kEthernetUplink},
    {kMobileAccess, kMobileUplink},
    {kRepeaterAccess, kRepeaterUplink},
}};

/// Gives the port of an uplink.
/// @param access_type  WANAccessType of the WAN device
/// @return its node name; empty for a type without a port
constexpr std::string_view uplink_port_of(std::string_view access_type) {
  for (const Uplink& uplink : kUplinks) {
    if (access_type == uplink.access_type) return uplink.port;
  }
  return {};
}

/// Tells whether a port is an uplink's: a connection's own entry into its bridge. Such a port is
/// never bound, carries no option 60, and never goes back to the LAN bridge.
/// @param node  node name of the port
/// @return whether it is
constexpr bool is_wan_side_port(std::string_view node) {
  for (const Uplink& uplink : kUplinks) {
    if (node == uplink.port) return true;
  }
  return false;
}

// ---- Ports of the household ---------------------------------------------------------------------

inline constexpr std::array<const char*, 4> kLanPorts{"LAN1", "LAN2", "LAN3", "LAN4"};
inline constexpr std::array<const char*, 4> kWlanPorts{"WLAN1", "WLAN2", "WLAN3", "WLAN4"};

namespace detail {

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

/// The four LAN ports in one.
inline constexpr char kUndividedSwitch[] = "LAN_DEFAULT1";

/// Tells whether every connection may name a port, so that it never counts as taken.
/// @param node  node name of the port
/// @return whether it is the Ethernet uplink's or the undivided switch
constexpr bool is_shared_device(std::string_view node) {
  return node == kEthernetUplink || node == kUndividedSwitch;
}

// ---- Bridges ------------------------------------------------------------------------------------

/// BridgeName of the bridge that joins the household's ports.
inline constexpr char kLanBridgeName[] = "internet";

/// BridgeStandard of a bridge with a VLAN, and of one without.
inline constexpr char kTaggedStandard[] = "802.1Q";
inline constexpr char kUntaggedStandard[] = "802.1D";

inline constexpr int kPacketMarkBase = 30;

/// Packet mark of a connection, by which the gateway tells its traffic from that of the others.
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
inline constexpr int kHighestVlan = 4094;

inline constexpr int kHighestVlanPriority = 7;  ///< of IEEE 802.1p; the lowest is 0

/// The library takes the VLANs of bound LAN ports from these.
inline constexpr int kFirstPrivateVlan = 4060;
inline constexpr int kPrivateVlanCount = 21;

/// Where the search for a connection's VLAN begins; it ends before the private ones.
inline constexpr int kFirstSearchedVlan = 1000;

// ---- Connections --------------------------------------------------------------------------------

/// AddressingType of an IP connection.
inline constexpr char kStaticAddressing[] = "Static";
inline constexpr char kDhcpAddressing[] = "DHCP";

/// ConnectionType of a connection object.
inline constexpr char kIpRouted[] = "IP_Routed";
inline constexpr char kIpBridged[] = "IP_Bridged";
inline constexpr char kIpBridgeRouted[] = "IP_BridgeRouted";
inline constexpr char kPppoeBridged[] = "PPPoE_Bridged";

/// Words of a service list.
inline constexpr char kInternetService[] = "INTERNET";
inline constexpr char kManagementService[] = "TR069";
inline constexpr char kVoipService[] = "VOIP";
inline constexpr char kOtherService[] = "OTHER";
inline constexpr char kMmeService[] = "MME";

/// Octets of a connection's largest packet.
inline constexpr int kLowestMtu = 576;
inline constexpr int kHighestMtu = 1540;
inline constexpr int kHighestPppoeMtu = 1492;

}  // namespace igd

#endif  // IGD_VOCABULARY_H
