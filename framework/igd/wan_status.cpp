#include <string>

#include "data_model.h"
#include "igd_api.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "tree_query.h"

namespace {

constexpr char kHostMask[] = "255.255.255.255";  // a point-to-point link has no other
constexpr char kNoAddress[] = "0.0.0.0";

bool is_enabled(const std::string& path) { return igd::value_is(path, "Enable", igd::kTrue); }

class StatusReader {
 public:
  StatusReader(const std::string& wan_index, api_wan_status& status)
      : wan_index_(wan_index), status_(status) {}

  void run() {
    locate_objects();
    read_active_connection();
    read_shared_attributes();
    read_counters();
    read_mac_address();
  }

 private:
  void locate_objects();
  void read_active_connection();
  void activate(const std::string& path, IgdConnectMode mode);
  void read_ip_connection(const std::string& path);
  void read_ppp_connection(const std::string& path);
  void read_shared_attributes();
  void read_counters();
  void read_mac_address();
  void set_disconnected();

  const std::string& wan_index_;
  api_wan_status& status_;
  igd::ConnectionPaths paths_;
  std::string statistics_path_;
};

void StatusReader::locate_objects() {
  paths_ = igd::connection_paths_of(wan_index_);
  statistics_path_ = paths_.static_path + "Stats.";
}

// Several objects can be enabled at once; DHCP wins over static, static over PPP.
void StatusReader::read_active_connection() {
  if (is_enabled(paths_.dhcp_path)) {
    activate(paths_.dhcp_path, kIgdDhcp);
    read_ip_connection(paths_.dhcp_path);
  } else if (is_enabled(paths_.static_path)) {
    activate(paths_.static_path, kIgdStatic);
    read_ip_connection(paths_.static_path);
  } else if (is_enabled(paths_.ppp_path)) {
    activate(paths_.ppp_path, kIgdPppoe);
    read_ppp_connection(paths_.ppp_path);
  }
}

void StatusReader::activate(const std::string& path, IgdConnectMode mode) {
  status_.connect_mode = mode;
  statistics_path_ = path + "Stats.";
}

void StatusReader::read_ip_connection(const std::string& path) {
  if (_get_value(path, "X_CT-COM_ActiveExternalIPAddress").empty()) {
    set_disconnected();
    return;
  }
  igd::read_into(path, "ExternalIPAddress", &status_.ip_addr);
  igd::read_into(path, "SubnetMask", &status_.ip_mask);
  igd::read_into(path, "DefaultGateway", &status_.ip_gw);
  igd::read_into(path, "DNSServers", &status_.ip_dns);
  status_.connected = 1;
}

void StatusReader::read_ppp_connection(const std::string& path) {
  igd::read_into(path, "ExternalIPAddress", &status_.ip_addr);
  if (status_.ip_addr.empty() || status_.ip_addr == kNoAddress) {
    set_disconnected();
    igd::read_into(path, "X_ZYN_COM_LastConnectionError", &status_.last_connection_error);
    return;
  }
  status_.ip_mask = kHostMask;
  igd::read_into(path, "RemoteIPAddress", &status_.ip_gw);
  igd::read_into(path, "DNSServers", &status_.ip_dns);
  status_.connected = 1;
}

// The static connection keeps these whatever the mode.
void StatusReader::read_shared_attributes() {
  igd::read_into(paths_.static_path, "Name", &status_.name);
  igd::read_into(paths_.static_path, "Uptime", &status_.uptime);
  igd::read_into(paths_.static_path, "X_CT-COM_ServiceList", &status_.service_list);
  igd::read_into(paths_.static_path, "ConnectionType", &status_.connection_type);
}

void StatusReader::read_counters() {
  igd::read_into(statistics_path_, "EthernetBytesReceived", &status_.bytes_received);
  igd::read_into(statistics_path_, "EthernetBytesSent", &status_.bytes_sent);
  igd::read_into(statistics_path_, "EthernetPacketsReceived", &status_.packets_received);
  igd::read_into(statistics_path_, "EthernetPacketsSent", &status_.packets_sent);
}

// Of the connection whose counters were read.
void StatusReader::read_mac_address() {
  igd::read_into(objectPathOf(statistics_path_), "MACAddress", &status_.mac_address);
}

void StatusReader::set_disconnected() {
  status_.ip_addr.clear();
  status_.ip_mask.clear();
  status_.ip_gw.clear();
  status_.ip_dns.clear();
  status_.connected = 0;
}

}  // namespace

int igd_wan_status(std::string wan_index, api_wan_status* status) {
  if (igd::tree() == nullptr || status == nullptr) return kIgdNoTree;
  StatusReader(wan_index, *status).run();
  return kIgdOk;
}
