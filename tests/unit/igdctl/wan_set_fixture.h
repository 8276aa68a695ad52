// A tree behind the library, and verbs to change connections in it.
#ifndef IGDCTL_TESTS_WAN_SET_FIXTURE_H
#define IGDCTL_TESTS_WAN_SET_FIXTURE_H

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "host_platform.h"
#include "igd_api.h"
#include "stdout_capture.h"
#include "wan/wan_change.h"
#include "wan/wan_description.h"
#include "wan/wan_writes.h"

namespace igdctl_tests {

using namespace igdctl;
using Values = std::map<std::string, std::string>;

inline constexpr char kMaskOf24Bits[] = "255.255.255.0";

// Calls the library without its trace.
template <typename Action>
auto quietly(const Action& action) {
  const support::StdoutCapture trace;
  return action();
}

inline api_wan_info read(const Connection& connection) {
  return quietly([&connection] { return read_description(host::mib_access(), connection); });
}

inline WanDraft propose(const Connection& connection, const WanPatch& patch) {
  return quietly([&] { return draft_change(host::mib_access(), connection, patch); });
}

inline std::vector<Connection> all_connections() {
  return quietly([] { return list_connections(host::mib_access()); });
}

// A tree of its own behind the library.
class WanSet : public ::testing::Test {
 protected:
  WanSet() : before_(host::exchange_active_tree(&tree_)) { forget(); }
  ~WanSet() override {
    forget();
    (void)host::exchange_active_tree(before_);
  }

  static void forget() {
    std::vector<std::string> none;
    _rebuid_cache(none);
  }

  Values values() const {
    Values all;
    for (const host::Parameter& parameter : tree_.parameters()) {
      all[parameter.name] = parameter.value;
    }
    return all;
  }

  // What became different, as "name: before -> after".
  std::string difference_since(const Values& before) const {
    std::string text;
    const Values after = values();
    for (const auto& [name, value] : after) {
      const auto old = before.find(name);
      if (old == before.end()) {
        text += name + " is new\n";
      } else if (old->second != value) {
        text.append(name).append(": ").append(old->second).append(" -> ").append(value) += '\n';
      }
    }
    for (const auto& entry : before) {
      if (after.count(entry.first) == 0) text += entry.first + " is gone\n";
    }
    return text;
  }

  void set(const std::string& name, const std::string& value) {
    ASSERT_EQ(tree_.set_value(name, value), 0) << name;
  }

  std::string add(const std::string& table) {
    int number = 0;
    EXPECT_EQ(tree_.add_object(table, &number), 0) << table;
    return table + std::to_string(number) + '.';
  }

  static Connection only_connection() {
    const std::vector<Connection> all = all_connections();
    EXPECT_EQ(all.size(), 1U);
    return all.front();
  }

  static void write(const Connection& connection, const WanPatch& patch) {
    const WanDraft draft = propose(connection, patch);
    quietly([&] { WanWrites(host::mib_access(), connection, draft).run(); });
  }

  host::Tree tree_ = host::Tree::factory();
  host::Tree* before_;
};

inline api_wan_info description(int connection_class, int mode, int vlan, const Names& servers) {
  api_wan_info info;
  info.wan_info_name = "Connection";
  info.service_type = "INTERNET,VOIP";
  info.connection_class = connection_class;
  info.connect_mode = mode;
  info.vlan_enable = vlan != 0 ? 1 : 0;
  info.vlan_id = vlan;
  info.vlan_priority = 3;
  info.nat_mode = connection_class == kIgdBridged ? 0 : 1;
  info.wan_enable = "true";
  info.wan_remote_management_enable = "false";
  info.stp_enable = "true";
  info.pppoe_user_name = "household@example.net";
  info.pppoe_password = "correct-horse";
  info.pppoe_mtu = "1480";
  info.static_mtu = "1500";
  info.dhcp_mtu = "1400";
  info.ip_addr = "192.0.2.10";
  info.ip_mask = kMaskOf24Bits;
  info.ip_gw = "192.0.2.1";
  info.dhcp_option60 = "gateway";
  info.bind_lan = {"LAN1", "WLAN1"};
  info.bind_wan = {"LAN3"};
  info.port_option60 = {{"LAN3", "set-top"}};
  info.ip_dns_enable = servers.empty() ? 0 : 1;
  if (!servers.empty()) info.ip_dns1 = servers[0];
  if (servers.size() > 1) info.ip_dns2 = servers[1];
  return info;
}

}  // namespace igdctl_tests

#endif  // IGDCTL_TESTS_WAN_SET_FIXTURE_H
