#include <cstddef>
#include <cstdio>
#include <string>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "port_update.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"
#include "vlan.h"
#include "wan_fields.h"
#include "wan_routes.h"

namespace {

constexpr char kOperation[] = "igd_wan_set_params";
constexpr int kDumpLine = 1234;  // fixed: field tools look for it

struct ConnectionTypes {
  int connection_class;
  const char* on_dhcp;
  const char* on_static;
  const char* on_ppp;
};

constexpr ConnectionTypes kConnectionTypes[] = {
    {kIgdRouted, igd::kIpRouted, igd::kIpRouted, igd::kIpRouted},
    {kIgdBridged, igd::kIpBridged, igd::kIpBridged, igd::kPppoeBridged},
    {kIgdRoutedAndBridged, igd::kIpBridgeRouted, igd::kIpBridgeRouted, igd::kIpBridgeRouted},
};

int class_of_current_type(const std::string& connection_type) {
  if (connection_type == igd::kIpRouted) return kIgdRouted;
  if (connection_type == igd::kIpBridgeRouted) return kIgdRoutedAndBridged;
  return kIgdBridged;
}

void trace_text(const char* label, const std::string& text, int line = __builtin_LINE()) {
  igd::trace_value(kOperation, label, igd::cut(text), line);
}

// Printed between the steps.
void trace_mode_and_class(const api_wan_info& info, int line = __builtin_LINE()) {
  igd::trace_value(kOperation, "info->connect_mode", info.connect_mode, line);
  igd::trace_value(kOperation, "info->connection_class", info.connection_class, line);
}

class WanWriter {
 public:
  WanWriter(const std::string& wan_index, wan_mib_info& entry, api_wan_info& info)
      : wan_index_(wan_index), entry_(entry), info_(info) {}

  void run() {  // the order is the behaviour
    trace_entry();
    ensure_lan_bridge();
    trace_mode_and_class(info_);
    record_lan_binding();
    trace_mode_and_class(info_);
    write_device_flags();
    trace_mode_and_class(info_);
    disable_all_objects();
    trace_mode_and_class(info_);
    remember_current_class();
    trace_mode_and_class(info_);
    drop_routes_when_bridged();
    trace_mode_and_class(info_);
    _wan_port_update(&entry_, &info_);
    trace_mode_and_class(info_);
    write_names();
    trace_mode_and_class(info_);
    write_connection_type();
    trace_mode_and_class(info_);
    write_service_list();
    trace_mode_and_class(info_);
    write_nat();
    trace_mode_and_class(info_);
    write_ppp_account_and_mtus();
    trace_mode_and_class(info_);
    write_addressing();
    trace_mode_and_class(info_);
    enable_active_object();
  }

 private:
  void trace_entry() const;
  void ensure_lan_bridge();
  void record_lan_binding();
  void write_device_flags();
  void disable_all_objects();
  void remember_current_class();
  void drop_routes_when_bridged();
  void write_names();
  void write_connection_type();
  void write_service_list();
  void write_nat();
  void write_ppp_account_and_mtus();
  void write_addressing();
  void enable_active_object();

  const std::string* active_path() const;
  void write_to_objects(const char* parameter, const std::string& value);
  template <std::size_t N>
  void write_fields(const igd::TextField (&fields)[N]);

  const std::string& wan_index_;
  wan_mib_info& entry_;
  api_wan_info& info_;
};

void WanWriter::trace_entry() const {
  std::printf(
      "vornik set_params bridge_name:%s,connect_class:%d,\n dhcp_path:%s,\n "
      "lan_bridge_name:%s,\t\tlan_bridge_path:%s,ppp_path:%s,\nstatic_path:%s,\n"
      "wan_bridge_path:%s,\nwan_path:%s\n",
      entry_.bridge_name.c_str(), entry_.connect_class, entry_.dhcp_path.c_str(),
      entry_.lan_bridge_name.c_str(), entry_.lan_bridge_path.c_str(), entry_.ppp_path.c_str(),
      entry_.static_path.c_str(), entry_.wan_bridge_path.c_str(), entry_.wan_path.c_str());
  std::printf("vornik: igd_wan_set_params wan_index %s\n", wan_index_.c_str());
}

// A routed connection needs the LAN bridge; a gateway that has none yet gets it here.
void WanWriter::ensure_lan_bridge() {
  if (!entry_.lan_bridge_path.empty() || info_.connection_class != kIgdRouted) return;
  const std::string vlan = _find_vlan_id(info_.vlan_id, igd::kEverywhere, wan_index_);
  entry_.lan_bridge_path = _create_bridge(wan_index_, igd::kLanBridge, info_.vlan_enable,
                                          igd::lenient_number(vlan), &info_);
}

void WanWriter::record_lan_binding() {
  saveLanInterfaceToWanNode(wan_index_, &info_);
  std::printf("vornik: igd_wan_set_params mib_info->bridge_name %s\n", entry_.bridge_name.c_str());
  std::printf("vornik: igd_wan_set_params mib_info->wan_path %s\n", entry_.wan_path.c_str());
}

void WanWriter::write_device_flags() {
  trace_text("wan_remote_management_enable", info_.wan_remote_management_enable);
  trace_text("wan_enable", info_.wan_enable);
  trace_text("stp_enable", info_.stp_enable);
  _set_value(entry_.wan_path, "X_CT-COM_RemoteManagerEnable", info_.wan_remote_management_enable);
  _set_value(entry_.wan_path, "X_CT-COM_Enable", info_.wan_enable);
  _set_value(entry_.wan_path, "X_CT-COM_STPEnable", info_.stp_enable);
}

void WanWriter::disable_all_objects() {
  for (const std::string* path : {&entry_.dhcp_path, &entry_.static_path, &entry_.ppp_path}) {
    _set_value(*path, "Enable", igd::kFalse);
  }
}

void WanWriter::remember_current_class() {
  const std::string type = _get_value(entry_.static_path, "ConnectionType");
  igd::trace_value(kOperation, "connection_type", type);
  entry_.connect_class = class_of_current_type(type);
}

// A bridged connection keeps no static routes.
void WanWriter::drop_routes_when_bridged() {
  if (entry_.connect_class == kIgdBridged || info_.connection_class != kIgdBridged) return;
  for (const std::string& route :
       igd::instances_below(igd::kForwardingTable, kForwardingInterface)) {
    const std::string interface = igd::value_of(route);
    igd::trace_value(kOperation, "interface", interface);
    const std::string route_path = objectPathOf(route);
    const std::string table = _get_value(route_path, "X_ZYN_RouteTable");
    if (igd::route_belongs_to(wan_index_, interface, table)) igd::delete_object(route_path);
  }
}

void WanWriter::write_names() {
  const std::string name = igd::cut(info_.wan_info_name);
  igd::trace_value(kOperation, "info->wan_info_name", name);
  igd::trace_value(kOperation, "wan_name", name);
  igd::trace_value(kOperation, "mib_info->dhcp_path", entry_.dhcp_path);
  igd::trace_value(kOperation, "mib_info->static_path", entry_.static_path);
  igd::trace_value(kOperation, "mib_info->ppp_path", entry_.ppp_path);
  write_to_objects("Name", name);
  _set_value(entry_.wan_path, "WANEthernetLinkConfig.X_CT-COM_Name", name);
}

void WanWriter::write_connection_type() {
  trace_text("dhcp_option60", info_.dhcp_option60);
  for (const ConnectionTypes& row : kConnectionTypes) {
    if (info_.connection_class != row.connection_class) continue;
    _set_value(entry_.dhcp_path, "ConnectionType", row.on_dhcp);
    _set_value(entry_.static_path, "ConnectionType", row.on_static);
    _set_value(entry_.ppp_path, "ConnectionType", row.on_ppp);
    _set_value(entry_.dhcp_path, "X_ZYN-COM_OPTION60", info_.dhcp_option60);
  }
}

void WanWriter::write_service_list() {
  trace_text("service_type", info_.service_type);
  write_to_objects("X_CT-COM_ServiceList", info_.service_type);
}

void WanWriter::write_nat() { write_to_objects("NATEnabled", igd::bool_text(info_.nat_mode == 1)); }

void WanWriter::write_ppp_account_and_mtus() {
  trace_text("pppoe_user_name", info_.pppoe_user_name);
  trace_text("pppoe_password", info_.pppoe_password);  // Kept: in clear, as in the dump.
  trace_text("pppoe_mtu", info_.pppoe_mtu);
  write_fields(igd::kPppAccountFields);
  write_fields(igd::kMtuFields);
}

void WanWriter::write_addressing() {
  const std::string servers = igd::cut(info_.ip_dns1 + ',' + info_.ip_dns2);
  trace_text("ip_dns", servers);
  const std::string* const path = active_path();
  if (path == nullptr) return;
  _set_value(*path, "DNSEnabled", igd::bool_text(info_.ip_dns_enable == 1));
  if (info_.connect_mode == kIgdStatic) {
    trace_text("ip_addr", info_.ip_addr);
    trace_text("ip_mask", info_.ip_mask);
    trace_text("ip_gw", info_.ip_gw);
    write_fields(igd::kStaticAddressFields);
  }
  if (info_.ip_dns_enable != 0) _set_value(*path, "DNSServers", servers);
}

void WanWriter::enable_active_object() {
  if (active_path() != nullptr) _set_value(*active_path(), "Enable", igd::kTrue);
}

const std::string* WanWriter::active_path() const {
  switch (info_.connect_mode) {
    case kIgdDhcp:
      return &entry_.dhcp_path;
    case kIgdStatic:
      return &entry_.static_path;
    case kIgdPppoe:
      return &entry_.ppp_path;
    default:
      return nullptr;
  }
}

void WanWriter::write_to_objects(const char* parameter, const std::string& value) {
  for (const std::string* path : {&entry_.dhcp_path, &entry_.static_path, &entry_.ppp_path}) {
    _set_value(*path, parameter, value);
  }
}

template <std::size_t N>
void WanWriter::write_fields(const igd::TextField (&fields)[N]) {
  for (const igd::TextField& row : fields) {
    _set_value(entry_.*row.owner, row.parameter, info_.*row.field);
  }
}

}  // namespace

int igd_wan_set_params(std::string wan_index, api_wan_info* info) {
  if (igd::tree() == nullptr || info == nullptr) return kIgdNoWan;
  igd::trace_dump_follows(kOperation, kDumpLine);
  (void)igd_wan_print_params(info);
  wan_mib_info* const entry = _get_cache(wan_index);
  trace_mode_and_class(*info);
  if (entry == nullptr) return kIgdNoWan;
  WanWriter(wan_index, *entry, *info).run();
  return kIgdOk;
}
