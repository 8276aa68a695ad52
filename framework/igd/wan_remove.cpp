#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "services.h"
#include "text.h"
#include "tree_query.h"
#include "wan_routes.h"

namespace {

constexpr int kMustRemain = 2;  // the connection's own service lists count

int enough_lists_remain(bool (*belongs)(const std::string& services)) {
  int count = 0;
  for (const std::string& list : igd::instances_below(igd::kEverywhere, kServiceList)) {
    if (belongs(igd::value_of(list))) ++count;
  }
  return count >= kMustRemain ? 1 : 0;
}

bool is_internet(const std::string& services) {
  return igd::contains(services, igd::kInternetService);
}

bool is_user_service(const std::string& services) {
  return !igd::contains(services, igd::kMmeService) &&
         !igd::contains(services, igd::kManagementService);
}

void trace_route(const std::string& text) { std::printf("aaaa%s\n", text.c_str()); }

class WanRemover {
 public:
  explicit WanRemover(const std::string& wan_path) : wan_path_(wan_path) {}

  void run() {  // the order is the behaviour; no step depends on an earlier one's success
    delete_routes();
    delete_connection_device();
    release_bridge_ports();
    delete_bridge();
    release_bound_lan_ports();
    (void)_destory_cache(wan_path_);
    give_ports_back();
    igd::commit();
  }

 private:
  void delete_routes() const;
  void delete_connection_device() const;
  void release_bridge_ports();
  void delete_bridge() const;
  void release_bound_lan_ports();
  void give_ports_back() const;

  const std::string& wan_path_;
  std::string bridge_path_;
  std::string lan_bridge_path_;
  std::vector<std::string> released_ports_;
};

void WanRemover::delete_routes() const {
  for (const std::string& route :
       igd::instances_below(igd::kForwardingTable, kForwardingInterface)) {
    const std::string interface = igd::value_of(route);
    trace_route(interface);
    const std::string route_path = objectPathOf(route);
    std::string table;
    if (interface.empty()) {
      trace_route(route_path);
      table = _get_value(route_path, "X_ZYN_RouteTable");
      trace_route(table);
    }
    if (igd::route_belongs_to(wan_path_, interface, table)) igd::delete_object(route_path);
  }
}

void WanRemover::delete_connection_device() const {
  const igd::ConnectionPaths paths = igd::connection_paths_of(wan_path_);
  for (const std::string* path : {&paths.static_path, &paths.dhcp_path, &paths.ppp_path}) {
    _set_value(*path, "Enable", igd::kFalse);
  }
  igd::delete_object(wan_path_);
}

void WanRemover::release_bridge_ports() {
  // Kept: without a bridge the path stays empty, and the ports of every bridge are taken.
  (void)igd_wan_get_wan_bridge_info(wan_path_, &bridge_path_, nullptr);
  for (const std::string& port : igd::instances_below(bridge_path_, kPortInterface)) {
    std::string node = igd::value_of(port);
    if (!igd::is_wan_side_port(node)) released_ports_.push_back(std::move(node));
  }
}

void WanRemover::delete_bridge() const {
  for (const std::string& port : igd::instances_below(bridge_path_, kPortInterface)) {
    _delete_port(igd::port_of(port));
  }
  _set_value(bridge_path_, "BridgeEnable", igd::kFalse);
  igd::delete_object(bridge_path_);
}

void WanRemover::release_bound_lan_ports() {
  (void)igd_wan_get_lan_bridge_info(wan_path_, &lan_bridge_path_, nullptr);
  for (const std::string& depend : igd::instances_below(lan_bridge_path_, kPortDependWanName)) {
    if (!igd::has_value(depend, wan_path_)) continue;
    const std::string port_path = igd::port_of(depend);
    released_ports_.push_back(_get_value(port_path, "PortInterface"));
    _delete_port(port_path);
  }
}

void WanRemover::give_ports_back() const {
  for (const std::string& port : released_ports_) _create_port(lan_bridge_path_, "", port, nullptr);
}

}  // namespace

int igd_verify_can_remove_wan(std::string wan_path) {
  ensureContext();
  const bool internet = is_internet(igd::first_service_list(wan_path));
  return internet ? enough_lists_remain(is_internet) : enough_lists_remain(is_user_service);
}

void igd_wan_destory(std::string wan_path) {
  if (igd::tree() == nullptr) return;
  WanRemover(wan_path).run();
}
