// Routes, settings, names and the cache as the reference tells them.
#include <cstring>

#include "reference_tools.h"

namespace reference {
namespace {

struct Setting {
  const char* parameter;
  std::string api_mng_server_info::*field;
};

const Setting kSettings[] = {
    {"URL", &api_mng_server_info::url},
    {"Username", &api_mng_server_info::username},
    {"Password", &api_mng_server_info::password},
    {"ConnectionRequestURL", &api_mng_server_info::connection_request_url},
    {"ConnectionRequestUsername", &api_mng_server_info::connection_request_username},
    {"ConnectionRequestPassword", &api_mng_server_info::connection_request_password},
};

std::string route_like(const api_route_info& route) {
  for (const std::string& address : list(kRoutes, 171)) {
    const bool same_mask = read(parent(address), "DestSubnetMask") == route.dest_mask;
    if (same_mask && value(address) == route.dest_ip) return parent(address);
  }
  return "";
}

void write_route(const std::string& path, const api_route_info& route) {
  write(path, "Enable", "false");
  write(path, "DestIPAddress", route.dest_ip);
  write(path, "DestSubnetMask", route.dest_mask);
  if (route.route_type == 1) {
    write(path, "Interface", "");
    write(path, "GatewayIPAddress", route.gateway);
  } else if (route.route_type == 2) {
    write(path, "Interface", reference::igd_wan_get_id_by_name(route.interface));
    write(path, "GatewayIPAddress", "");
  }
  write(path, "Enable", route.enable == 0 ? "false" : "true");
}

}  // namespace

int igd_get_static_route_list(std::vector<api_route_info>& routes) {
  routes.clear();
  for (const std::string& address : list(kRoutes, 171)) {
    api_route_info route;
    route.dest_ip = value(address);
    route.dest_mask = read(parent(address), "DestSubnetMask");
    route.enable = read(parent(address), "Enable") == "true" ? 1 : 0;
    route.gateway = read(parent(address), "GatewayIPAddress");
    route.route_type = route.gateway.empty() ? 2 : 1;
    if (route.gateway.empty()) route.interface = read(parent(address), "Interface");
    routes.push_back(route);
  }
  return static_cast<int>(routes.size());
}

int igd_clear_static_route() {
  for (const std::string& address : list(kRoutes, 171)) erase(parent(address));
  const int result = state().tree->deleteObject("InternetGatewayDevice.Layer3Forwarding.");
  if (result != 0) return result;
  (void)state().tree->commit(1);
  (void)state().tree->applyChanges("");
  return 0;
}

int igd_set_static_route(int op, api_route_info route) {
  std::string path = route_like(route);
  if (op != 1 && op != 2) return 0;
  if (op == 2 && path.empty()) return -1;
  if (op == 2) erase(path);
  if (op == 1) {
    bool added = false;
    const int instance = path.empty() ? add(kRoutes, &added) : 0;
    if (added) path = path_of(kRoutes, instance);
    write_route(path, route);
  }
  (void)state().tree->commit(1);
  (void)state().tree->applyChanges("");
  return 0;
}

int igd_mng_server_set_params(api_mng_server_info* info) {
  for (const Setting& row : kSettings) {
    write("InternetGatewayDevice.ManagementServer.", row.parameter, info->*row.field);
  }
  return 0;
}

int igd_mng_server_get_params(api_mng_server_info* info) {
  for (const Setting& row : kSettings) {
    info->*row.field = read("InternetGatewayDevice.ManagementServer.", row.parameter);
  }
  return 0;
}

std::string igd_c_get_lan_ipaddr() {
  return value(
      "InternetGatewayDevice.LANDevice.1.LANHostConfigManagement.IPInterface.1."
      "IPInterfaceIPAddress");
}

void igd_c_set_l3_name(const char* key, const char* text) {
  if (key != nullptr && text != nullptr) state().l3_names[key] = text;
}

void igd_c_get_l3_name(const char* key, char* buf, std::size_t size) {
  if (buf == nullptr || size == 0) return;
  if (key == nullptr) {
    *buf = '\0';
    return;
  }
  const std::string text = state().l3_names[key];
  std::strncpy(buf, text.c_str(), size - 1);
}

wan_mib_info* _get_cache(std::string wan_path) {
  const auto known = state().cache.find(wan_path);
  if (known != state().cache.end()) return &known->second;
  wan_mib_info entry;
  entry.wan_path = wan_path;
  (void)reference::igd_wan_get_wan_bridge_info(wan_path, &entry.wan_bridge_path,
                                               &entry.bridge_name);
  (void)reference::igd_wan_get_lan_bridge_info(wan_path, &entry.lan_bridge_path,
                                               &entry.lan_bridge_name);
  const Objects objects = objects_of(wan_path);
  entry.static_path = objects.fixed;
  entry.dhcp_path = objects.dhcp;
  entry.ppp_path = objects.ppp;
  return &(state().cache[wan_path] = entry);
}

void _rebuid_cache(Names& wan_paths) {
  std::map<std::string, wan_mib_info> kept;
  for (const auto& [key, entry] : state().cache) {
    for (const std::string& path : wan_paths) {
      if (path == key) kept[key] = entry;
    }
  }
  state().cache = kept;
}

int _destory_cache(std::string wan_path) {
  state().cache.erase(wan_path);
  return 1;
}

int igd_wan_list(Names& out) {
  const int count = reference::igd_tool_loop_instance("", 1273, out);
  reference::_rebuid_cache(out);
  return count;
}

}  // namespace reference
