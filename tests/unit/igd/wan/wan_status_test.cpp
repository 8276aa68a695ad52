// The run-time state of a connection.
#include "connection_test.h"

namespace {

using support::wan_path;

class WanStatus : public support::ConnectionTest {
 protected:
  WanStatus() {
    fill(static_, "s");
    fill(dhcp_, "d");
    fill(ppp_, "p");
    set(dhcp_ + "X_CT-COM_ActiveExternalIPAddress", "active");
    set(static_ + "X_CT-COM_ActiveExternalIPAddress", "active");
    set(ppp_ + "RemoteIPAddress", "p-remote");
    set(ppp_ + "X_ZYN_COM_LastConnectionError", "p-error");
  }

  /// Gives the parameters of an object values that tell whose they are.
  void fill(const std::string& path, const std::string& mark) {
    for (const char* name : {"Name", "Uptime", "X_CT-COM_ServiceList", "ConnectionType",
                             "MACAddress", "ExternalIPAddress", "DefaultGateway", "DNSServers"}) {
      set(path + name, mark + '-' + name);
    }
    if (path != ppp_) set(path + "SubnetMask", mark + "-SubnetMask");
    for (const char* name : {"BytesSent", "BytesReceived", "PacketsSent", "PacketsReceived"}) {
      set(path + "Stats.Ethernet" + name, mark + '-' + name);
    }
  }

  void enable(const std::string& path) { set(path + "Enable", "true"); }

  /// The status of a connection, read over a record in which every field is set.
  static api_wan_status status_of(const std::string& path) {
    api_wan_status status = {"old", 7,     "old", 8,     "old", "old", "old", "old",
                             "old", "old", "old", "old", "old", "old", "old", "old"};
    EXPECT_EQ(igd_wan_status(path, &status), 0);
    return status;
  }

  static std::string addresses(const api_wan_status& status) {
    return std::to_string(status.connected) + ' ' + status.ip_addr + '|' + status.ip_mask + '|' +
           status.ip_gw + '|' + status.ip_dns;
  }

  static std::string counters(const api_wan_status& status) {
    return status.bytes_sent + ' ' + status.bytes_received + ' ' + status.packets_sent + ' ' +
           status.packets_received;
  }
};

TEST_F(WanStatus, NeedsARecord) { EXPECT_EQ(igd_wan_status(wan_, nullptr), -1022); }

TEST_F(WanStatus, PrefersDhcpToStaticToPpp) {
  enable(ppp_);
  EXPECT_EQ(status_of(wan_).connect_mode, kIgdPppoe);
  enable(static_);
  EXPECT_EQ(status_of(wan_).connect_mode, kIgdStatic);
  enable(dhcp_);
  EXPECT_EQ(status_of(wan_).connect_mode, kIgdDhcp);
}

TEST_F(WanStatus, TakesNothingButTrueForEnabled) {
  for (const char* text : {"TRUE", "True", "1", "true ", ""}) {
    set(dhcp_ + "Enable", text);
    EXPECT_EQ(status_of(wan_).connect_mode, 8) << '"' << text << '"';
  }
}

TEST_F(WanStatus, ReadsTheAddressesOfAConnectedDhcpObject) {
  enable(dhcp_);
  EXPECT_EQ(addresses(status_of(wan_)),
            "1 d-ExternalIPAddress|d-SubnetMask|d-DefaultGateway|d-DNSServers");
}

TEST_F(WanStatus, ReadsTheAddressesOfAConnectedStaticObject) {
  enable(static_);
  EXPECT_EQ(addresses(status_of(wan_)),
            "1 s-ExternalIPAddress|s-SubnetMask|s-DefaultGateway|s-DNSServers");
}

TEST_F(WanStatus, TakesAnIpObjectWithoutActiveAddressForDisconnected) {
  for (const std::string& path : {static_, dhcp_}) {  // enabled one after the other
    enable(path);
    set(path + "X_CT-COM_ActiveExternalIPAddress", "");
    const api_wan_status status = status_of(wan_);
    EXPECT_EQ(addresses(status), "0 |||") << path;
    EXPECT_EQ(status.mac_address, get(path + "MACAddress"));
    EXPECT_EQ(status.bytes_sent, get(path + "Stats.EthernetBytesSent"));
    EXPECT_EQ(status.last_connection_error, "old");
  }
}

TEST_F(WanStatus, TakesAnyActiveAddressOfAnIpObjectForConnected) {
  enable(dhcp_);
  set(dhcp_ + "X_CT-COM_ActiveExternalIPAddress", "0.0.0.0");
  set(dhcp_ + "ExternalIPAddress", "");
  EXPECT_EQ(addresses(status_of(wan_)), "1 |d-SubnetMask|d-DefaultGateway|d-DNSServers");
}

TEST_F(WanStatus, GivesAConnectedPppObjectAHostMaskAndTheRemoteEnd) {
  enable(ppp_);
  const api_wan_status status = status_of(wan_);
  EXPECT_EQ(addresses(status), "1 p-ExternalIPAddress|255.255.255.255|p-remote|p-DNSServers");
  EXPECT_EQ(status.last_connection_error, "old");
}

TEST_F(WanStatus, ReportsTheLastErrorOfAPppObjectWithoutAddress) {
  enable(ppp_);
  for (const char* address : {"", "0.0.0.0"}) {
    set(ppp_ + "ExternalIPAddress", address);
    const api_wan_status status = status_of(wan_);
    EXPECT_EQ(addresses(status), "0 |||") << address;
    EXPECT_EQ(status.last_connection_error, "p-error") << address;
    EXPECT_EQ(status.mac_address, "p-MACAddress") << address;
    EXPECT_EQ(counters(status), "p-BytesSent p-BytesReceived p-PacketsSent p-PacketsReceived");
  }
}

TEST_F(WanStatus, TakesAnyOtherPppAddressForConnected) {
  enable(ppp_);
  for (const char* address : {"0.0.0.0 ", "0.0.0", "10.0.0.1"}) {
    set(ppp_ + "ExternalIPAddress", address);
    EXPECT_EQ(status_of(wan_).connected, 1) << address;
    EXPECT_EQ(status_of(wan_).ip_addr, address);
  }
}

TEST_F(WanStatus, CountsAtTheActiveObject) {
  EXPECT_EQ(counters(status_of(wan_)),
            "s-BytesSent s-BytesReceived s-PacketsSent "
            "s-PacketsReceived");
  enable(ppp_);
  EXPECT_EQ(counters(status_of(wan_)),
            "p-BytesSent p-BytesReceived p-PacketsSent "
            "p-PacketsReceived");
  enable(static_);
  EXPECT_EQ(status_of(wan_).mac_address, "s-MACAddress");
  enable(dhcp_);
  EXPECT_EQ(counters(status_of(wan_)),
            "d-BytesSent d-BytesReceived d-PacketsSent "
            "d-PacketsReceived");
  EXPECT_EQ(status_of(wan_).mac_address, "d-MACAddress");
}

TEST_F(WanStatus, ReadsWhatIsSharedFromTheStaticObjectWhateverTheMode) {
  for (const std::string& path : {ppp_, static_, dhcp_}) {
    enable(path);
    const api_wan_status status = status_of(wan_);
    EXPECT_EQ(status.name, "s-Name") << path;
    EXPECT_EQ(status.uptime, "s-Uptime") << path;
    EXPECT_EQ(status.service_list, "s-X_CT-COM_ServiceList") << path;
    EXPECT_EQ(status.connection_type, "s-ConnectionType") << path;
  }
}

TEST_F(WanStatus, LeavesModeAndAddressesAloneWhenNothingIsEnabled) {
  const api_wan_status status = status_of(wan_);
  EXPECT_EQ(status.connect_mode, 8);
  EXPECT_EQ(addresses(status), "7 old|old|old|old");
  EXPECT_EQ(status.last_connection_error, "old");
  EXPECT_EQ(status.name, "s-Name");
  EXPECT_EQ(status.mac_address, "s-MACAddress");
}

TEST_F(WanStatus, GivesEmptyTextsForAnUnknownConnection) {
  const api_wan_status status = status_of(wan_path(9, 9));
  EXPECT_EQ(status.connect_mode, 8);
  EXPECT_EQ(addresses(status), "7 old|old|old|old");
  EXPECT_EQ(counters(status), "   ");
  EXPECT_EQ(status.name + status.uptime + status.service_list + status.connection_type, "");
  EXPECT_EQ(status.mac_address, "");
}

TEST_F(WanStatus, ReadsAConnectionWithoutAStaticObject) {
  remove(static_);
  enable(dhcp_);
  const api_wan_status status = status_of(wan_);
  EXPECT_EQ(status.ip_addr, "d-ExternalIPAddress");
  EXPECT_EQ(status.name, "");
  EXPECT_EQ(status.mac_address, "d-MACAddress");
}

TEST_F(WanStatus, AsksTheFirstPppObjectAlone) {
  enable(add(wan_ + "WANPPPConnection."));
  EXPECT_EQ(status_of(wan_).connect_mode, 8);
}

TEST_F(WanStatus, AsksTheConnectionAlone) {
  enable(add_connection_device(1, {"DHCP"}) + "WANIPConnection.1.");
  EXPECT_EQ(status_of(wan_).connect_mode, 8);
}

TEST_F(WanStatus, WritesNothing) {
  enable(ppp_);
  support::Transcript transcript;
  (void)status_of(wan_);
  EXPECT_EQ(transcript.writes(), "");
  EXPECT_EQ(transcript.text().find("log "), std::string::npos);
}

}  // namespace
