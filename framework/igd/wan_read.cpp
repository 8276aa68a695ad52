#include <cstddef>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"
#include "wan_fields.h"

namespace {

constexpr char kOperation[] = "igd_wan_get_params";
constexpr int kDumpLine = 565;            // fixed: field tools look for it
constexpr std::size_t kIpv4TextEnd = 16;  // no IPv4 text is that long

struct ClassOfType {
  const char* connection_type;
  int connection_class;
};

constexpr ClassOfType kClasses[] = {
    {igd::kIpBridged, kIgdBridged},
    {igd::kIpRouted, kIgdRouted},
    {igd::kPppoeBridged, kIgdBridged},
    {igd::kIpBridgeRouted, kIgdRoutedAndBridged},
};

bool is_true(const std::string& text) { return text == igd::kTrue; }

int flag_of(const std::string& path, const char* name) {
  return igd::value_is(path, name, igd::kTrue) ? 1 : 0;
}

class WanReader {
 public:
  WanReader(const std::string& wan_index, const wan_mib_info& entry, api_wan_info& info)
      : wan_index_(wan_index), entry_(entry), info_(info) {}

  void run() {  // the order is the behaviour
    trace_entry();
    read_fields(igd::kPppAccountFields);
    igd::trace_progress(kOperation);
    read_fields(igd::kMtuFields);
    igd::trace_progress(kOperation);
    read_fields(igd::kStaticAddressFields);
    igd::trace_progress(kOperation);
    read_device_flags();
    igd::trace_progress(kOperation);
    find_enabled_object();
    igd::trace_progress(kOperation);
    read_dns_and_option60();
    igd::trace_progress(kOperation);
    read_connection_type_name_service_nat();
    igd::trace_progress(kOperation);
    set_connection_class();
    igd::trace_progress(kOperation);
    read_vlans();
    igd::trace_progress(kOperation);
    read_bindings();
    igd::trace_progress(kOperation);
    read_port_option60();
    igd::trace_progress(kOperation);
    set_protocol();
    igd::trace_progress(kOperation);
  }

 private:
  void trace_entry() const;
  template <std::size_t N>
  void read_fields(const igd::TextField (&fields)[N]);
  void read_device_flags();
  void find_enabled_object();
  void activate(const std::string& path, IgdConnectMode mode);
  void read_dns_and_option60();
  void read_connection_type_name_service_nat();
  void set_connection_class();
  void read_vlans();
  void read_bindings();
  void read_port_option60();
  void read_option60_of(const std::vector<std::string>& nodes,
                        const std::vector<std::string>& port_paths);
  void set_protocol();

  static void read_dns_servers(const std::string& path, std::string* first, std::string* second);

  const std::string& wan_index_;
  const wan_mib_info& entry_;
  api_wan_info& info_;
  bool any_enabled_ = false;
  const std::string* active_path_ = &entry_.static_path;  // of the enabled object, if any
  std::string connection_type_;
  std::vector<std::string> lan_port_paths_;  // of the ports in bind_lan
  std::vector<std::string> wan_port_paths_;  // of those in bind_wan
};

void WanReader::trace_entry() const {
  std::printf(
      "vornik get_params bridge_name:%s,connect_class:%d,\n dhcp_path:%s,\n "
      "lan_bridge_name:%s,\t\tlan_bridge_path:%s,ppp_path:%s,\n static_path:%s,\n "
      "wan_bridge_path:%s,\n wan_path:%s\n",
      entry_.bridge_name.c_str(), entry_.connect_class, entry_.dhcp_path.c_str(),
      entry_.lan_bridge_name.c_str(), entry_.lan_bridge_path.c_str(), entry_.ppp_path.c_str(),
      entry_.static_path.c_str(), entry_.wan_bridge_path.c_str(), entry_.wan_path.c_str());
  std::printf("vornik mib_info->ppp_path = \"%s\"\n", entry_.ppp_path.c_str());
}

template <std::size_t N>
void WanReader::read_fields(const igd::TextField (&fields)[N]) {
  for (const igd::TextField& row : fields) {
    igd::read_into(entry_.*row.owner, row.parameter, &(info_.*row.field));
  }
}

void WanReader::read_device_flags() {
  igd::read_into(entry_.wan_path, "X_CT-COM_Enable", &info_.wan_enable);
  igd::read_into(entry_.wan_path, "X_CT-COM_RemoteManagerEnable",
                 &info_.wan_remote_management_enable);
  igd::read_into(entry_.wan_path, "X_CT-COM_STPEnable", &info_.stp_enable);
}

// Several objects can be enabled at once; DHCP wins over PPP, PPP over static.
void WanReader::find_enabled_object() {
  const std::string dhcp = _get_value(entry_.dhcp_path, "Enable");
  std::printf("vornik dhcp_path %s\n", dhcp.c_str());
  std::printf("vornik _get_value(mib_info->dhcp_path,\"Enable\") = %d\n", is_true(dhcp) ? 1 : 0);
  const std::string ppp = _get_value(entry_.ppp_path, "Enable");
  std::printf("vornik ppp_path %s\n", ppp.c_str());
  const std::string fixed = _get_value(entry_.static_path, "Enable");
  std::printf("vornik static_path %s\n", fixed.c_str());
  if (is_true(dhcp)) {
    activate(entry_.dhcp_path, kIgdDhcp);
  } else if (is_true(ppp)) {
    activate(entry_.ppp_path, kIgdPppoe);
  } else if (is_true(fixed)) {
    activate(entry_.static_path, kIgdStatic);
  }
}

void WanReader::activate(const std::string& path, IgdConnectMode mode) {
  info_.connect_mode = mode;
  active_path_ = &path;
  any_enabled_ = true;
}

void WanReader::read_dns_and_option60() {
  if (!any_enabled_) return;
  info_.ip_dns_enable = flag_of(*active_path_, "DNSEnabled");
  if (info_.connect_mode == kIgdDhcp) {
    igd::read_into(entry_.dhcp_path, "X_ZYN-COM_OPTION60", &info_.dhcp_option60);
  }
  read_dns_servers(*active_path_, &info_.ip_dns1, &info_.ip_dns2);
  info_.dhcp_dns_enable = flag_of(entry_.dhcp_path, "DNSEnabled");
  read_dns_servers(entry_.dhcp_path, &info_.dhcp_dns1, &info_.dhcp_dns2);
  info_.static_dns_enable = flag_of(entry_.static_path, "DNSEnabled");
  read_dns_servers(entry_.static_path, &info_.static_dns1, &info_.static_dns2);
}

void WanReader::read_dns_servers(const std::string& path, std::string* first, std::string* second) {
  std::vector<std::string> servers = igd::split(_get_value(path, "DNSServers"), ",");
  *first = !servers.empty() ? std::move(servers[0]) : std::string();
  *second = servers.size() > 1 ? std::move(servers[1]) : std::string();  // a third has no field
}

void WanReader::read_connection_type_name_service_nat() {
  igd::read_into(*active_path_, "ConnectionType", &connection_type_);
  igd::read_into(*active_path_, "Name", &info_.wan_info_name);
  igd::read_into(*active_path_, "X_CT-COM_ServiceList", &info_.service_type);
  info_.nat_mode = flag_of(*active_path_, "NATEnabled");
}

void WanReader::set_connection_class() {
  for (const ClassOfType& row : kClasses) {
    if (connection_type_ == row.connection_type) info_.connection_class = row.connection_class;
  }
}

void WanReader::read_vlans() {
  info_.vlan_enable = igd::is_vlan_bridge(entry_.wan_bridge_path) ? 1 : 0;
  info_.vlan_id = igd::number_at(entry_.wan_bridge_path, "VLANID");
  info_.vlan_priority = igd::number_at(entry_.wan_bridge_path, "X_ZYN_VLANPriority");
  info_.lan_vlan_enable = igd::is_vlan_bridge(entry_.lan_bridge_path) ? 1 : 0;
  info_.lan_vlan_id = igd::number_at(entry_.lan_bridge_path, "VLANID");
}

void WanReader::read_bindings() {
  info_.bind_lan.clear();
  info_.bind_wan.clear();
  for (const std::string& depend : igd::instances_below(igd::kBridgeTable, kPortDependWanName)) {
    if (!igd::has_value(depend, wan_index_)) continue;
    lan_port_paths_.push_back(igd::port_of(depend));
    const std::string node = _get_value(lan_port_paths_.back(), "PortInterface");
    info_.bind_lan.push_back(igd::trimmed(node));
  }
  for (const std::string& port : igd::instances_below(entry_.wan_bridge_path, kPortInterface)) {
    std::string node = igd::trimmed(igd::value_of(port));
    if (igd::is_wan_side_port(node)) continue;
    info_.bind_wan.push_back(std::move(node));
    wan_port_paths_.push_back(igd::port_of(port));
  }
}

void WanReader::read_port_option60() {
  read_option60_of(info_.bind_lan, lan_port_paths_);
  read_option60_of(info_.bind_wan, wan_port_paths_);
}

void WanReader::read_option60_of(const std::vector<std::string>& nodes,
                                 const std::vector<std::string>& port_paths) {
  for (std::size_t place = 0; place < nodes.size(); ++place) {
    std::string option60 = _get_value(port_paths[place], "PortOption60");
    if (!option60.empty()) info_.port_option60[nodes[place]] = std::move(option60);
  }
}

// The tree does not say which protocol an address is of; its length does.
void WanReader::set_protocol() {
  const bool short_texts = info_.ip_addr.size() < kIpv4TextEnd &&
                           info_.ip_mask.size() < kIpv4TextEnd && info_.ip_gw.size() < kIpv4TextEnd;
  info_.protocol = short_texts ? kIgdIpv4 : kIgdIpv6;
}

}  // namespace

int igd_wan_get_params(std::string wan_index, api_wan_info* info) {
  if (igd::tree() == nullptr || info == nullptr) return kIgdNoWan;
  const wan_mib_info* const entry = _get_cache(wan_index);
  if (entry == nullptr) return kIgdNoWan;
  WanReader(wan_index, *entry, *info).run();
  igd::trace_dump_follows(kOperation, kDumpLine);
  (void)igd_wan_print_params(info);
  return kIgdOk;
}
