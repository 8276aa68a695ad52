#include "start.h"

#include <stdexcept>

#include "gateway_test.h"
#include "stdout_capture.h"

namespace operations {
namespace {

const std::string& kBridgeTable = support::kBridges;
const std::string& kRouteTable = support::kRoutes;
const std::string kLanBridge = kBridgeTable + "1.";

std::string add(host::Tree& tree, const std::string& table) {
  int instance = 0;
  if (tree.add_object(table, &instance) != 0) throw std::runtime_error("cannot add to " + table);
  return table + std::to_string(instance) + '.';
}

void set(host::Tree& tree, const std::string& name, const std::string& value) {
  if (tree.set_value(name, value) != 0) throw std::runtime_error("cannot set " + name);
}

void add_port(host::Tree& tree, const std::string& bridge, const std::string& node,
              const std::string& depend_wan, const std::string& pvid) {
  const std::string port = add(tree, bridge + "Port.");
  set(tree, port + "PortInterface", node);
  set(tree, port + "X_ZYN_DependWanName", depend_wan);
  set(tree, port + "PVID", pvid);
  set(tree, port + "PortEnable", "true");
}

std::string add_bridge(host::Tree& tree, const std::string& name, const std::string& wan,
                       const std::string& vlan) {
  const std::string bridge = add(tree, kBridgeTable);
  set(tree, bridge + "BridgeName", name);
  set(tree, bridge + "BridgeStandard", vlan == "0" ? "802.1D" : "802.1Q");
  set(tree, bridge + "VLANID", vlan);
  set(tree, bridge + "X_ZYN_WANName", wan);
  return bridge;
}

void add_route(host::Tree& tree, int number, const std::string& interface,
               const std::string& table) {
  const std::string route = add(tree, kRouteTable);
  set(tree, route + "DestIPAddress", "10." + std::to_string(number) + ".0.0");
  set(tree, route + "DestSubnetMask", "255.255.0.0");
  set(tree, route + "Interface", interface);
  set(tree, route + "X_ZYN_RouteTable", table);
}

// Makes connections with the library itself; what it left in the cache is dropped.
std::string create(host::Tree& tree, api_wan_info info, const std::string& uplink) {
  host::Tree* const before = host::exchange_active_tree(&tree);
  const std::string wan = [&] {
    const support::StdoutCapture dropped;
    return igd_wan_create(uplink, &info);
  }();
  Names none;
  _rebuid_cache(none);
  host::exchange_active_tree(before);
  return wan;
}

api_wan_info description(int connection_class, int connect_mode, int number) {
  const int vlan = number % 3 == 0 ? 0 : 100 + number;
  api_wan_info info = support::routed_pppoe("wan" + std::to_string(number), vlan);
  info.connection_class = connection_class;
  info.connect_mode = connect_mode;
  info.ip_addr = "192.0.2.1";
  info.ip_mask = "255.255.255.0";
  info.ip_gw = "192.0.2.254";
  info.ip_dns_enable = number % 2;
  info.ip_dns1 = "198.51.100.1";
  info.service_type = number == 1 ? "TR069" : "INTERNET";
  return info;
}

// A connection device with one IP object of an unknown addressing type and two PPP objects.
std::string add_damaged_device(host::Tree& tree, const std::string& device) {
  const std::string wan = add(tree, device + "WANConnectionDevice.");
  const std::string object = add(tree, wan + "WANIPConnection.");
  set(tree, object + "AddressingType", "DHCP");
  set(tree, object + "Enable", "yes");
  set(tree, object + "Name", "damaged");
  (void)add(tree, wan + "WANPPPConnection.");
  const std::string second = add(tree, wan + "WANPPPConnection.");
  set(tree, second + "X_CT-COM_ServiceList", "MME,INTERNET");
  return wan;
}

void add_uniform_connection(host::Tree& tree, const std::string& device, int number, int ports) {
  const std::string text = std::to_string(number);
  const std::string wan = add(tree, device + "WANConnectionDevice.");
  for (const char* type : {"Static", "DHCP"}) {
    const std::string object = add(tree, wan + "WANIPConnection.");
    set(tree, object + "AddressingType", type);
    set(tree, object + "ConnectionType", "IP_Routed");
    set(tree, object + "Name", "wan" + text);
    set(tree, object + "DNSServers", "198.51.100.1,198.51.100.2");
  }
  const std::string ppp = add(tree, wan + "WANPPPConnection.");
  set(tree, ppp + "Name", "wan" + text);
  set(tree, ppp + "Enable", "true");
  set(tree, ppp + "X_CT-COM_ServiceList", "INTERNET");
  set(tree, ppp + "ExternalIPAddress", "192.0.2.7");
  const std::string bridge = add_bridge(tree, "br_1_" + text, wan, std::to_string(4999 + number));
  add_port(tree, bridge, "LAN0", "", "0");
  for (int i = 1; i <= ports; ++i) {
    const std::string port = text + '.' + std::to_string(i);
    add_port(tree, bridge, "own" + port, "", "1");
    add_port(tree, kLanBridge, "lan" + port, wan, "1");
  }
}

}  // namespace

Start factory_gateway() {
  return {"factory", host::Tree::factory(), support::wan_path(1, 1), "wan1", {}, {}, false};
}

Start busy_gateway() {
  Start start{"busy", host::Tree::factory(), "", "wan2", {"LAN2", "WLAN2"}, {"LAN1", "WLAN1"},
              false};
  const char* const uplinks[] = {"Ethernet", "3G", "Repeator"};
  int number = 0;
  for (const int connection_class : {kIgdRouted, kIgdBridged, kIgdRoutedAndBridged}) {
    for (const int mode : {kIgdDhcp, kIgdStatic, kIgdPppoe}) {
      api_wan_info info = description(connection_class, mode, ++number);
      if (number == 2) {
        info.bind_wan = start.own_ports;
        info.bind_lan = start.lan_ports;
        info.port_option60 = {{"LAN2", "video"}};
      }
      if (number == 5) info.bind_wan = {"LAN3"};
      const std::string wan = create(start.tree, info, uplinks[number % 3]);
      if (number == 2) start.wan = wan;
      if (number == 7) {
        add_route(start.tree, 1, start.wan, "");
        add_route(start.tree, 2, wan, start.wan);
        add_route(start.tree, 3, "", start.wan);
        add_route(start.tree, 4, "", "");
        set(start.tree, kRouteTable + "4.GatewayIPAddress", "192.0.2.9");
      }
    }
  }
  return start;
}

Start damaged_gateway() {
  Start start{"damaged", host::Tree(), "", "damaged", {"LAN1", "odd"}, {}, false};
  host::Tree& tree = start.tree;
  const std::string device = add(tree, support::kWanDevices);
  set(tree, device + "WANCommonInterfaceConfig.WANAccessType", "unknown");
  const std::string other = add_damaged_device(tree, device);
  start.wan = add_damaged_device(tree, device);
  (void)add(tree, device + "WANConnectionDevice.");  // without any object
  const std::string nameless = add_bridge(tree, "", "", "12x");
  const std::string misnamed = add_bridge(tree, "br_9_9", start.wan, "none");
  add_port(tree, misnamed, "LAN0", "", "");
  add_port(tree, misnamed, "LAN1", "", "4060");
  add_port(tree, nameless, "odd", start.wan, "4061 ");
  add_port(tree, nameless, "", other, "-1");
  add_port(tree, nameless, "WLAN1", "InternetGatewayDevice.WANDevice.7.", "99999999999");
  add_route(tree, 1, "", start.wan);
  add_route(tree, 2, "InternetGatewayDevice.WANDevice.7.", start.wan);
  return start;
}

Start imported_gateway(const std::string& name, const std::string& file) {
  Start start{name, host::Tree(), "", "wan2", {"LAN2"}, {"LAN1"}, true};
  const host::ImportResult result = host::import_csv_file(start.tree, file);
  if (!result.ok) throw std::runtime_error(result.error);
  api_wan_info info = description(kIgdRouted, kIgdPppoe, 2);
  info.bind_wan = start.own_ports;
  info.bind_lan = start.lan_ports;
  start.wan = create(start.tree, info, "Ethernet");
  add_route(start.tree, 1, start.wan, "");
  return start;
}

Start uniform_gateway(int connections, int ports, int routes) {
  Start start{"uniform", host::Tree(), support::wan_path(1, connections), "", {}, {}, false};
  host::Tree& tree = start.tree;
  (void)add_bridge(tree, "internet", "", "0");
  const std::string device = add(tree, support::kWanDevices);
  set(tree, device + "WANCommonInterfaceConfig.WANAccessType", "Ethernet");
  for (int i = 1; i <= ports; ++i) {
    add_port(tree, kLanBridge, "free" + std::to_string(i), "", "");
  }
  for (int number = 1; number <= connections; ++number) {
    add_uniform_connection(tree, device, number, ports);
  }
  const std::string last = std::to_string(connections);
  start.wan_name = "wan" + last;
  for (int i = 1; i <= ports; ++i) {
    start.own_ports.push_back("own" + last + '.' + std::to_string(i));
    start.lan_ports.push_back("lan" + last + '.' + std::to_string(i));
  }
  for (int i = 1; i <= routes; ++i) add_route(tree, i, start.wan, "");
  return start;
}

}  // namespace operations
