#include "wan/wan_draft.h"

#include <algorithm>

#include "term/text.h"
#include "wan/wan_description.h"

namespace igdctl {

namespace {

constexpr char kUsualMtu[] = "1500";
constexpr char kUsualPppoeMtu[] = "1492";

bool same_members(Names left, Names right) {
  std::sort(left.begin(), left.end());
  std::sort(right.begin(), right.end());
  return left == right;
}

const char* text_of(bool on) { return on ? "true" : "false"; }

// Lays the fields over, and remembers which were named and which changed.
class Overlay {
 public:
  Overlay(const WanPatch& patch, WanDraft* draft, const DnsOfMode& dns_of_mode)
      : wish_(patch), draft_(*draft), info_(draft->info), dns_of_mode_(dns_of_mode) {}

  void run() {
    lay_access();
    lay_mode();  // before what belongs to the object of a mode
    lay_vlan();
    lay("name", wish_.name, &info_.wan_info_name);
    lay("class", wish_.connection_class, &info_.connection_class);
    lay_service();
    lay_names("bind_lan", wish_.bind_lan, &info_.bind_lan);
    lay_names("bind_wan", wish_.bind_wan, &info_.bind_wan);
    lay_nat();
    lay("user", wish_.user, &info_.pppoe_user_name);
    lay("password", wish_.password, &info_.pppoe_password);
    lay("address", wish_.address, &info_.ip_addr);
    lay("mask", wish_.mask, &info_.ip_mask);
    lay("gateway", wish_.gateway, &info_.ip_gw);
    lay_dns();
    lay_mtu();
    lay("option60", wish_.option60, &info_.dhcp_option60);
    lay_port_option60();
    lay_flag("enable", wish_.enable, &info_.wan_enable);
    lay_flag("remote_management", wish_.remote_management, &info_.wan_remote_management_enable);
    lay_flag("stp", wish_.stp, &info_.stp_enable);
  }

 private:
  void note(const char* key, bool changed) {
    draft_.named.insert(key);
    if (changed) draft_.changed.insert(key);
  }

  template <typename Value>
  void lay(const char* key, const std::optional<Value>& wished, Value* field) {
    if (!wished) return;
    note(key, *field != *wished);
    *field = *wished;
  }

  void lay_names(const char* key, const std::optional<Names>& wished, Names* field) {
    if (!wished) return;
    const bool same = same_members(*wished, *field);
    note(key, !same);
    if (!same) *field = *wished;
  }

  // A flag whose text is neither "true" nor "false" is off; it keeps its text when it stays off.
  void lay_flag(const char* key, const std::optional<bool>& wished, std::string* field) {
    if (!wished) return;
    const bool changed = (*field == "true") != *wished;
    note(key, changed);
    if (changed) *field = text_of(*wished);
  }

  void lay_access();
  void lay_mode();
  void lay_vlan();
  void lay_service();
  void lay_nat();
  void lay_dns();
  void lay_mtu();
  void lay_port_option60();

  const WanPatch& wish_;
  WanDraft& draft_;
  api_wan_info& info_;
  const DnsOfMode& dns_of_mode_;
};

void Overlay::lay_access() { lay("access", wish_.access, &draft_.access); }

void Overlay::lay_mode() {
  if (!wish_.mode) return;
  const bool changed = info_.connect_mode != *wish_.mode;
  note("mode", changed);
  info_.connect_mode = *wish_.mode;
  if (changed) dns_of_mode_(*wish_.mode, &info_);
}

// The priority of an untagged connection is not kept anywhere.
void Overlay::lay_vlan() {
  if (wish_.vlan) {
    const int current = info_.vlan_enable != 0 ? info_.vlan_id : 0;
    note("vlan", current != *wish_.vlan);
    if (current != *wish_.vlan) {
      info_.vlan_enable = *wish_.vlan != 0 ? 1 : 0;
      info_.vlan_id = *wish_.vlan;
    }
  }
  if (info_.vlan_enable != 0) lay("priority", wish_.priority, &info_.vlan_priority);
}

void Overlay::lay_service() {
  if (!wish_.service) return;
  const bool same = same_members(*wish_.service, split_list(info_.service_type));
  note("service", !same);
  if (!same) info_.service_type = joined(*wish_.service, ",");
}

void Overlay::lay_nat() {
  if (!wish_.nat) return;
  note("nat", (info_.nat_mode == 1) != *wish_.nat);
  info_.nat_mode = *wish_.nat ? 1 : 0;
}

void Overlay::lay_dns() {
  if (!wish_.dns) return;
  const bool same = *wish_.dns == dns_servers_of(info_);
  note("dns", !same);
  if (same) return;
  const auto server = [this](std::size_t i) {
    return i < wish_.dns->size() ? (*wish_.dns)[i] : std::string();
  };
  info_.ip_dns1 = server(0);
  info_.ip_dns2 = server(1);
  info_.ip_dns_enable = wish_.dns->empty() ? 0 : 1;
}

void Overlay::lay_mtu() {
  if (!wish_.mtu) return;
  std::string* field = &info_.dhcp_mtu;
  if (info_.connect_mode == kIgdPppoe) field = &info_.pppoe_mtu;
  if (info_.connect_mode == kIgdStatic) field = &info_.static_mtu;
  note("mtu", *field != std::to_string(*wish_.mtu));
  *field = std::to_string(*wish_.mtu);
}

// A port that is no longer named gets an empty text: leaving it out would leave the old one.
void Overlay::lay_port_option60() {
  if (!wish_.port_option60) return;
  std::map<std::string, std::string> result = *wish_.port_option60;
  for (const auto& entry : info_.port_option60) result.insert({entry.first, ""});
  note("port_option60", result != info_.port_option60);
  info_.port_option60 = std::move(result);
}

}  // namespace

WanDraft lay_over(const WanPatch& patch, const api_wan_info& start, const std::string& access,
                  const DnsOfMode& dns_of_mode) {
  WanDraft draft;
  draft.info = start;
  draft.access = access;
  draft.unreadable = patch.unreadable;
  Overlay(patch, &draft, dns_of_mode).run();
  return draft;
}

WanDraft draft_new(const WanPatch& patch) {
  api_wan_info usual;
  usual.connection_class = kIgdRouted;
  usual.connect_mode = kIgdDhcp;
  usual.service_type = "INTERNET";
  usual.nat_mode = patch.connection_class == kIgdBridged ? 0 : 1;
  usual.pppoe_mtu = kUsualPppoeMtu;
  usual.static_mtu = kUsualMtu;
  usual.dhcp_mtu = kUsualMtu;
  usual.wan_enable = "true";
  usual.wan_remote_management_enable = "false";
  usual.stp_enable = "false";
  const DnsOfMode no_servers = [](int, api_wan_info*) {};
  return lay_over(patch, usual, "Ethernet", no_servers);
}

}  // namespace igdctl
