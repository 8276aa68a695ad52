// The run-time state of a connection.
#include "gateway_test.h"

namespace foreign {
namespace {

class Status : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayTest::SetUp();
    connection_ = add_connection(add_device("Ethernet"));
    for (const std::string& path : {connection_.fixed, connection_.dhcp, connection_.ppp}) {
      const std::string mark = kind(path);
      for (const char* name :
           {"Name", "Uptime", "X_CT-COM_ServiceList", "ConnectionType", "MACAddress",
            "ExternalIPAddress", "SubnetMask", "DefaultGateway", "DNSServers", "RemoteIPAddress",
            "X_CT-COM_ActiveExternalIPAddress", "X_ZYN_COM_LastConnectionError",
            "Stats.EthernetBytesSent", "Stats.EthernetBytesReceived", "Stats.EthernetPacketsSent",
            "Stats.EthernetPacketsReceived"}) {
        tree().set(path + name, mark + " " + name);
      }
    }
  }

  std::string kind(const std::string& path) {
    return path == connection_.fixed ? "static" : path == connection_.dhcp ? "dhcp" : "ppp";
  }

  void enable(const std::string& path) { tree().set(path + "Enable", "true"); }

  api_wan_status status() {
    api_wan_status status;
    status.connected = 7;
    status.connect_mode = 8;
    status.ip_addr = status.ip_mask = status.ip_gw = status.ip_dns = "old";
    status.last_connection_error = "old";
    EXPECT_EQ(run([&] { return igd_wan_status(connection_.wan, &status); }), 0);
    EXPECT_EQ(writes_of(transcript()) + lines_of(transcript()), "");
    return status;
  }

  static std::string address(const api_wan_status& s) {
    return s.ip_addr + "|" + s.ip_mask + "|" + s.ip_gw + "|" + s.ip_dns;
  }

  static void expect_shared_texts(const api_wan_status& s) {
    EXPECT_EQ(s.name, "static Name");
    EXPECT_EQ(s.uptime, "static Uptime");
    EXPECT_EQ(s.service_list, "static X_CT-COM_ServiceList");
    EXPECT_EQ(s.connection_type, "static ConnectionType");
  }

  static void expect_counters_of(const std::string& kind, const api_wan_status& s) {
    EXPECT_EQ(s.bytes_sent, kind + " Stats.EthernetBytesSent");
    EXPECT_EQ(s.bytes_received, kind + " Stats.EthernetBytesReceived");
    EXPECT_EQ(s.packets_sent, kind + " Stats.EthernetPacketsSent");
    EXPECT_EQ(s.packets_received, kind + " Stats.EthernetPacketsReceived");
    EXPECT_EQ(s.mac_address, kind + " MACAddress");
  }

  /// The reads that find the three objects.
  std::string locating() {
    return lines({"open 1359", "close", "get " + connection_.fixed + "AddressingType", "open 1359",
                  "close", "get " + connection_.fixed + "AddressingType",
                  "get " + connection_.dhcp + "AddressingType", "open 1429", "close"});
  }

  Connection connection_;
};

TEST_F(Status, RefusesAMissingRecord) {
  EXPECT_EQ(run([&] { return igd_wan_status(connection_.wan, nullptr); }), -1022);
  EXPECT_EQ(transcript(), "");
}

TEST_F(Status, OfDhcpComesFromTheDhcpConnection) {
  enable(connection_.dhcp);
  const api_wan_status s = status();
  EXPECT_EQ(s.connect_mode, 1);
  EXPECT_EQ(s.connected, 1);
  EXPECT_EQ(address(s),
            "dhcp ExternalIPAddress|dhcp SubnetMask|dhcp DefaultGateway|dhcp DNSServers");
  EXPECT_EQ(s.last_connection_error, "old");
  expect_shared_texts(s);
  expect_counters_of("dhcp", s);
}

TEST_F(Status, OfStaticComesFromTheStaticConnection) {
  enable(connection_.fixed);
  const api_wan_status s = status();
  EXPECT_EQ(s.connect_mode, 2);
  EXPECT_EQ(s.connected, 1);
  EXPECT_EQ(address(s),
            "static ExternalIPAddress|static SubnetMask|static DefaultGateway|static DNSServers");
  EXPECT_EQ(s.last_connection_error, "old");
  expect_shared_texts(s);
  expect_counters_of("static", s);
}

TEST_F(Status, OfPppHasAHostMaskAndTheRemoteEnd) {
  enable(connection_.ppp);
  const api_wan_status s = status();
  EXPECT_EQ(s.connect_mode, 3);
  EXPECT_EQ(s.connected, 1);
  EXPECT_EQ(address(s), "ppp ExternalIPAddress|255.255.255.255|ppp RemoteIPAddress|ppp DNSServers");
  EXPECT_EQ(s.last_connection_error, "old");
  expect_shared_texts(s);
  expect_counters_of("ppp", s);
}

TEST_F(Status, OfPppWithoutAnAddressTellsTheLastError) {
  enable(connection_.ppp);
  for (const char* none : {"", "0.0.0.0"}) {
    tree().set(connection_.ppp + "ExternalIPAddress", none);
    const api_wan_status s = status();
    EXPECT_EQ(s.connect_mode, 3);
    EXPECT_EQ(s.connected, 0);
    EXPECT_EQ(address(s), "|||");
    EXPECT_EQ(s.last_connection_error, "ppp X_ZYN_COM_LastConnectionError");
    expect_counters_of("ppp", s);
  }
}

TEST_F(Status, OfAnIpConnectionWithoutAnActiveAddressIsDisconnected) {
  for (const std::string& path : {connection_.fixed, connection_.dhcp}) {
    enable(path);
    tree().set(path + "X_CT-COM_ActiveExternalIPAddress", "");
    const api_wan_status s = status();
    EXPECT_EQ(s.connected, 0);
    EXPECT_EQ(address(s), "|||");
    EXPECT_EQ(s.last_connection_error, "old");
    expect_shared_texts(s);
    expect_counters_of(kind(path), s);
  }
}

TEST_F(Status, TakesAnyActiveAddressTextForAnAddress) {
  enable(connection_.dhcp);
  tree().set(connection_.dhcp + "X_CT-COM_ActiveExternalIPAddress", "0.0.0.0");
  EXPECT_EQ(status().connected, 1);
}

TEST_F(Status, PrefersDhcpThenStaticThenPpp) {
  enable(connection_.ppp);
  enable(connection_.fixed);
  EXPECT_EQ(status().connect_mode, 2);
  enable(connection_.dhcp);
  EXPECT_EQ(status().connect_mode, 1);
  tree().set(connection_.dhcp + "Enable", "TRUE");
  EXPECT_EQ(status().connect_mode, 2);
}

TEST_F(Status, WithNothingEnabledKeepsModeAndAddress) {
  const api_wan_status s = status();
  EXPECT_EQ(s.connect_mode, 8);
  EXPECT_EQ(s.connected, 7);
  EXPECT_EQ(address(s), "old|old|old|old");
  EXPECT_EQ(s.last_connection_error, "old");
  expect_shared_texts(s);
  expect_counters_of("static", s);
}

TEST_F(Status, ReadsInAFixedOrder) {
  const std::string dhcp = connection_.dhcp, fixed = connection_.fixed, ppp = connection_.ppp;
  const auto tail = [&](const std::string& active) {
    return lines({"get " + fixed + "Name", "get " + fixed + "Uptime",
                  "get " + fixed + "X_CT-COM_ServiceList", "get " + fixed + "ConnectionType",
                  "get " + active + "Stats.EthernetBytesReceived",
                  "get " + active + "Stats.EthernetBytesSent",
                  "get " + active + "Stats.EthernetPacketsReceived",
                  "get " + active + "Stats.EthernetPacketsSent", "get " + active + "MACAddress"});
  };
  status();
  EXPECT_EQ(transcript(), locating() +
                              lines({"get " + dhcp + "Enable", "get " + fixed + "Enable",
                                     "get " + ppp + "Enable"}) +
                              tail(fixed));
  enable(ppp);
  status();
  EXPECT_EQ(transcript(),
            locating() +
                lines({"get " + dhcp + "Enable", "get " + fixed + "Enable", "get " + ppp + "Enable",
                       "get " + ppp + "ExternalIPAddress", "get " + ppp + "RemoteIPAddress",
                       "get " + ppp + "DNSServers"}) +
                tail(ppp));
  enable(dhcp);
  status();
  EXPECT_EQ(transcript(),
            locating() +
                lines({"get " + dhcp + "Enable", "get " + dhcp + "X_CT-COM_ActiveExternalIPAddress",
                       "get " + dhcp + "ExternalIPAddress", "get " + dhcp + "SubnetMask",
                       "get " + dhcp + "DefaultGateway", "get " + dhcp + "DNSServers"}) +
                tail(dhcp));
}

TEST_F(Status, OfAnUnknownConnectionReadsBareNames) {
  api_wan_status s;
  s.connect_mode = 5;
  EXPECT_EQ(run([&] { return igd_wan_status("nowhere.", &s); }), 0);
  EXPECT_EQ(s.connect_mode, 5);
  EXPECT_EQ(s.name, "");
  EXPECT_EQ(transcript(),
            lines({"open 1359", "close", "open 1359", "close", "open 1429", "close", "get Enable",
                   "get Enable", "get Enable", "get Name", "get Uptime", "get X_CT-COM_ServiceList",
                   "get ConnectionType", "get Stats.EthernetBytesReceived",
                   "get Stats.EthernetBytesSent", "get Stats.EthernetPacketsReceived",
                   "get Stats.EthernetPacketsSent", "get MACAddress"}));
}

}  // namespace
}  // namespace foreign
