// The life of WAN connections, as an installer sets them up on a gateway: check, create, read,
// change, route, watch, remove. Read main() first, then the helpers above it.
//
//   wan_lifecycle             on a gateway in factory state
//   wan_lifecycle dump.csv    on the parameter dump of a real gateway
//
// It works on the store named by the variable IGD_STORE; ":memory:" keeps nothing.
#include <cstdlib>
#include <string>
#include <vector>

#include "common_util.h"
#include "console.h"
#include "host_platform.h"
#include "host_store.h"
#include "igd_api.h"

namespace {

constexpr char kUplink[] = "Ethernet";
constexpr char kTraceFile[] = "wan_lifecycle.trace";

// ---- Describing connections ---------------------------------------------------------------------

api_wan_info tagged_connection(const std::string& name, const std::string& service, int vlan) {
  api_wan_info wan;
  wan.wan_info_name = name;
  wan.service_type = service;
  wan.vlan_enable = 1;
  wan.vlan_id = vlan;
  wan.wan_enable = "true";
  wan.wan_remote_management_enable = "false";
  wan.stp_enable = "false";
  wan.pppoe_mtu = "1492";
  wan.static_mtu = "1500";
  wan.dhcp_mtu = "1500";
  return wan;
}

// Internet for the household: routed, with an account, on two sockets and one wireless network.
api_wan_info internet_connection() {
  api_wan_info wan = tagged_connection("Internet", "INTERNET", 100);
  wan.connection_class = kIgdRouted;
  wan.connect_mode = kIgdPppoe;
  wan.nat_mode = 1;
  wan.pppoe_user_name = "household@example.net";
  wan.pppoe_password = "correct-horse";
  wan.bind_lan = {"LAN1", "LAN2", "WLAN1"};
  return wan;
}

// The operator's way in: an address by DHCP, no ports.
api_wan_info management_connection() {
  api_wan_info wan = tagged_connection("Management", "TR069", 200);
  wan.connection_class = kIgdRouted;
  wan.connect_mode = kIgdDhcp;
  wan.wan_remote_management_enable = "true";
  wan.dhcp_option60 = "gateway";
  return wan;
}

// The television box on the fourth socket talks to the operator's network directly.
api_wan_info television_connection() {
  api_wan_info wan = tagged_connection("Television", "OTHER", 300);
  wan.connection_class = kIgdBridged;
  wan.connect_mode = kIgdDhcp;
  wan.vlan_priority = 5;
  wan.bind_wan = {"LAN4"};
  return wan;
}

// ---- Words for numbers --------------------------------------------------------------------------

std::string words_for_verdict(int verdict) {
  if (verdict >= 1 && verdict <= 8) return "refused: a port belongs to another connection";
  switch (verdict) {
    case kIgdAcceptable:
      return "fits";
    case kIgdVlanTaken:
    case kIgdUntaggedTaken:
      return "refused: the VLAN is taken";
    case kIgdManagementExists:
      return "refused: there is already a management connection";
    case kIgdRoutedBridgeLeavesNoPort:
    case kIgdBridgeLeavesNoPort:
      return "refused: no port would be left";
    default:
      return "refused: a port belongs to another connection";
  }
}

std::string words_for_class(int connection_class) {
  const char* const words[] = {"-", "routed", "bridged", "routed+bridged"};
  return connection_class >= 0 && connection_class <= 3 ? words[connection_class] : "?";
}

std::string words_for_mode(int connect_mode) {
  const char* const words[] = {"off", "DHCP", "static", "PPPoE"};
  return connect_mode >= 0 && connect_mode <= 3 ? words[connect_mode] : "?";
}

std::string or_dash(const std::string& text) { return text.empty() ? "-" : text; }

std::string vlan_text(const api_wan_info& wan) {
  return wan.vlan_enable != 0 ? std::to_string(wan.vlan_id) : "untagged";
}

// ---- Showing the present state ------------------------------------------------------------------

// A connection without a bridge of its own reads back with the ports of every bridge: check first.
Console::Row connection_row(const std::string& path) {
  api_wan_info wan;
  igd_wan_get_params(path, &wan);
  std::string bridge;
  const bool has_bridge = igd_wan_get_wan_bridge_info(path, nullptr, &bridge) == kIgdOk;
  return {or_dash(wan.wan_info_name),
          words_for_class(wan.connection_class),
          words_for_mode(wan.connect_mode),
          vlan_text(wan),
          or_dash(wan.service_type),
          joined(wan.bind_lan),
          has_bridge ? joined(wan.bind_wan) : "-",
          has_bridge ? bridge : "-"};
}

void show_connections(Console& console) {
  console.heading("Connections");
  std::vector<std::string> paths;
  igd_wan_list(paths);
  std::vector<Console::Row> rows;
  for (const std::string& path : paths) rows.push_back(connection_row(path));
  console.table({"NAME", "CLASS", "MODE", "VLAN", "SERVICE", "LAN PORTS", "OWN PORTS", "BRIDGE"},
                rows);
}

Console::Row bridge_row(const std::string& bridge_name_parameter) {
  const host::Tree& tree = host::active_tree();
  const std::string bridge = bridge_name_parameter.substr(0, bridge_name_parameter.rfind('.') + 1);
  std::vector<std::string> ports;
  for (const std::string& port : tree.instances(kPortInterface)) {
    if (port.rfind(bridge, 0) == 0) ports.push_back(tree.value(port));
  }
  return {tree.value(bridge_name_parameter), tree.value(bridge + "BridgeStandard"),
          tree.value(bridge + "VLANID"), joined(ports)};
}

void show_bridges(Console& console) {
  console.heading("Bridges");
  std::vector<std::string> names;
  igd_tool_loop_instance("", kBridgeName, names);
  std::vector<Console::Row> rows;
  for (const std::string& name : names) rows.push_back(bridge_row(name));
  console.table({"BRIDGE", "STANDARD", "VLAN", "PORTS"}, rows);
}

// Reads one connection back, without passwords.
void show_connection(Console& console, const std::string& path) {
  api_wan_info wan;
  igd_wan_get_params(path, &wan);
  console.table({"FIELD", "VALUE"}, {{"name", wan.wan_info_name},
                                     {"enabled", wan.wan_enable},
                                     {"class", words_for_class(wan.connection_class)},
                                     {"mode", words_for_mode(wan.connect_mode)},
                                     {"account", wan.pppoe_user_name},
                                     {"MTU", wan.pppoe_mtu},
                                     {"NAT", wan.nat_mode == 1 ? "on" : "off"},
                                     {"VLAN", vlan_text(wan)},
                                     {"LAN ports", joined(wan.bind_lan)}});
}

void show_status(Console& console, const std::vector<std::string>& paths) {
  std::vector<Console::Row> rows;
  for (const std::string& path : paths) {
    api_wan_status status;
    igd_wan_status(path, &status);
    rows.push_back({status.name, status.connected != 0 ? "connected" : "not connected",
                    words_for_mode(status.connect_mode), or_dash(status.ip_addr),
                    or_dash(status.bytes_sent), or_dash(status.bytes_received)});
  }
  console.table({"NAME", "STATE", "MODE", "ADDRESS", "BYTES SENT", "BYTES RECEIVED"}, rows);
}

void show_routes(Console& console) {
  std::vector<api_route_info> routes;
  igd_get_static_route_list(routes);
  std::vector<Console::Row> rows;
  for (const api_route_info& route : routes) {
    rows.push_back({route.dest_ip, route.dest_mask, route.enable != 0 ? "yes" : "no",
                    route.route_type == kIgdRouteByGateway ? route.gateway : route.interface});
  }
  console.table({"DESTINATION", "MASK", "ENABLED", "THROUGH"}, rows);
}

// ---- Changing it --------------------------------------------------------------------------------

int mask_of_all_ports() {
  int mask = 0;
  for (const char* port : {"LAN1", "LAN2", "LAN3", "LAN4", "WLAN1", "WLAN2", "WLAN3", "WLAN4"}) {
    mask |= igd_tool_get_port_value(port);
  }
  return mask;
}

// From here to the commit no other process can write: what is checked still holds when it is done.
void begin_writes(Console& console) {
  if (host::process_store()->begin().ok()) return;
  console.line("  another process is changing the settings");
  std::exit(EXIT_FAILURE);
}

// Creating and changing a connection only writes: the caller commits, once for everything that
// belongs together. Until then other processes see nothing, and the writes are lost at exit.
void commit_writes(Console& console) {
  constexpr int kMode = 1;
  if (getContext()->mibAccess()->commit(kMode) == 0) return;
  console.line("  the commit failed: nothing since the last one is in effect");
  std::exit(EXIT_FAILURE);
}

// Check first, then create: creation itself checks nothing.
std::string check_and_create(Console& console, api_wan_info wan) {
  const int verdict = igd_verify_new_wan_info_valid("", &wan, mask_of_all_ports());
  const std::string path = verdict == kIgdAcceptable ? igd_wan_create(kUplink, &wan) : "";
  console.line("  " + wan.wan_info_name + ": " + words_for_verdict(verdict) +
               (path.empty() ? "" : ", created as " + path));
  if (path.empty()) std::exit(EXIT_FAILURE);
  return path;
}

// Reads the description, changes two fields, checks it and writes all of it back.
void move_to_vlan_and_port(Console& console, const std::string& path, int vlan,
                           const std::string& port) {
  api_wan_info wan;
  igd_wan_get_params(path, &wan);
  wan.vlan_id = vlan;
  wan.bind_lan = {port};
  const int verdict = igd_verify_new_wan_info_valid(path, &wan, mask_of_all_ports());
  console.line("  " + words_for_verdict(verdict));
  if (verdict == kIgdAcceptable) igd_wan_set_params(path, &wan);
}

void add_route_through(const std::string& connection_name) {
  api_route_info route;
  route.dest_ip = "198.51.100.0";
  route.dest_mask = "255.255.255.0";
  route.enable = 1;
  route.route_type = kIgdRouteByInterface;
  route.interface = connection_name;
  igd_set_static_route(kIgdRouteSet, route);
}

void import_dump(Console& console, const char* file) {
  const host::ImportResult result = host::import_csv_file(host::active_tree(), file);
  if (!result.ok) {
    std::fprintf(stderr, "%s\n", result.error.c_str());
    std::exit(EXIT_FAILURE);
  }
  console.line("Imported " + std::to_string(result.parameters + result.extensions) +
               " parameters, " + std::to_string(result.objects) + " instances from " + file);
  commit_writes(console);
}

}  // namespace

int main(int argc, char** argv) {
  Console console(kTraceFile);
  if (argc > 1) import_dump(console, argv[1]);

  console.heading("Check and create");
  begin_writes(console);
  const std::string internet = check_and_create(console, internet_connection());
  const std::string management = check_and_create(console, management_connection());
  const std::string television = check_and_create(console, television_connection());
  commit_writes(console);

  show_connections(console);
  show_bridges(console);

  console.heading("Internet, read back");
  show_connection(console, internet);

  console.heading("Move Internet to VLAN 110 and port LAN3");
  begin_writes(console);
  move_to_vlan_and_port(console, internet, 110, "LAN3");
  commit_writes(console);
  show_connections(console);
  show_bridges(console);

  console.heading("A static route through Internet");
  add_route_through("Internet");
  show_routes(console);

  console.heading("Status");
  show_status(console, {internet, management, television});

  console.heading("May they be removed?");
  for (const std::string& path : {internet, management, television}) {
    const bool removable = igd_verify_can_remove_wan(path) != 0;
    console.line("  " + path + (removable ? " may be removed" : " must stay"));
  }

  console.heading("Remove Television; its port returns to the LAN bridge");
  igd_wan_destory(television);
  show_connections(console);
  show_bridges(console);

  std::vector<std::string> none;
  _rebuid_cache(none);  // frees the library's cache: the list names no connection to keep

  console.heading("The library's trace is in " + console.trace_file() +
                  ". It contains passwords in clear text: delete it when done.");
  return EXIT_SUCCESS;
}
