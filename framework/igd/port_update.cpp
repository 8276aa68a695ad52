#include "port_update.h"

#include <cstdio>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "bridges.h"
#include "common_util.h"
#include "data_model.h"
#include "igd_types.h"
#include "igd_vocabulary.h"
#include "text.h"
#include "trace.h"
#include "tree_query.h"
#include "vlan.h"

namespace {

using igd::kUnit;
using Names = std::vector<std::string>;

constexpr char kOperation[] = "_wan_port_update";
// Source lines of the trace are fixed: field tools look for them.
constexpr int kOldBindWanLine = 1075;
constexpr int kOldBindLanLine = 1080;
constexpr int kOldInternetLine = 1085;
constexpr int kNewBindWanLine = 1090;
constexpr int kNewBindLanLine = 1095;
constexpr int kNewCreateLine = 1102;
constexpr int kNewInternetLine = 1106;
constexpr int kReenabledLine = 1210;

// Node names by how a connection holds them, as they are and as they shall be.
struct PortGroup {
  const char* name;
  const std::string& bridge_path;  // where its ports are
  const std::string& depend_wan;   // what its ports are bound to
  Names before;
  Names after;
};

// One group in one direction.
struct Stage {
  const PortGroup& group;
  int marker_line;
  int port_line;
};

void trace_marker(int line) { std::printf("\n ------------- %s %s %d\n", kUnit, kOperation, line); }

void trace_members(const Names& names, const char* label, int line) {
  for (const std::string& name : names) {
    std::printf("\n ------------- %s %d: %s %s \n", kUnit, line, label, name.c_str());
  }
}

void trace_port(const std::string& port, const char* verb, const Stage& stage) {
  std::printf("\n ------------- %s %d: %s %s %s \n", kUnit, stage.port_line, port.c_str(), verb,
              stage.group.name);
}

void append(const Names& more, Names* list) {
  for (const std::string& name : more) list->push_back(name);
}

Names joined(std::initializer_list<const Names*> lists) {
  Names all;
  for (const Names* names : lists) append(*names, &all);
  return all;
}

// Kept: ports are matched by interface alone, so a port bound to another connection goes too.
void remove_from(const Stage& stage) {
  trace_marker(stage.marker_line);
  Names removed;
  Names added;
  _diff_lists(stage.group.before, stage.group.after, removed, added);
  if (removed.empty()) return;
  for (const std::string& parameter :
       igd::instances_below(stage.group.bridge_path, kPortInterface)) {
    const std::string node = igd::value_of(parameter);
    for (const std::string& leaving : removed) {
      if (leaving != node) continue;
      _delete_port(igd::port_of(parameter));
      trace_port(node, "remove from", stage);
    }
  }
}

class PortUpdate {
 public:
  PortUpdate(const wan_mib_info& entry, api_wan_info& info) : entry_(entry), info_(info) {}

  void run() {  // the order is the behaviour
    disable_ports_when_vlan_changes();
    rewrite_bridge_vlan();
    collect_old_wan_ports();
    collect_old_lan_ports();
    collect_new_ports();
    trace_groups();
    find_released_ports();
    remove_ports();
    create_ports();
    enable_ports();
  }

 private:
  void disable_ports_when_vlan_changes();
  void rewrite_bridge_vlan();
  void collect_old_wan_ports();
  void collect_old_lan_ports();
  void collect_new_ports();
  void trace_groups() const;
  void find_released_ports();
  void remove_ports() const;
  void create_ports() const;
  void enable_ports();

  void create_in(const Stage& stage) const;
  void write_option60_of(const std::string& port_path) const;

  const wan_mib_info& entry_;
  api_wan_info& info_;
  const std::string unbound_;
  PortGroup bind_wan_{"bind_wan", entry_.wan_bridge_path, unbound_, {}, {}};
  PortGroup bind_lan_{"bind_lan", entry_.lan_bridge_path, entry_.wan_path, {}, {}};
  PortGroup internet_{"internet", entry_.lan_bridge_path, unbound_, {}, {}};
};

void PortUpdate::disable_ports_when_vlan_changes() {
  const int old_tagging = igd::is_vlan_bridge(entry_.wan_bridge_path) ? 1 : 0;
  const int old_vlan = igd::number_at(entry_.wan_bridge_path, "VLANID");
  std::printf("vornik _wan_port_update info->vlan_id = %d,old_vlan_id = %d\n", info_.vlan_id,
              old_vlan);
  if (info_.connection_class == entry_.connect_class && info_.vlan_enable == old_tagging &&
      info_.vlan_id == old_vlan) {
    return;
  }
  const std::string vlan = std::to_string(info_.vlan_id);
  for (const std::string& enable : igd::instances_below(entry_.wan_bridge_path, kPortEnable)) {
    igd::store(enable, igd::kFalse);
    const std::string port_path = igd::port_of(enable);
    _set_value(port_path, "PVID", vlan);
    std::printf("vornik PVID %s = %s\n", port_path.c_str(), vlan.c_str());
  }
}

void PortUpdate::rewrite_bridge_vlan() {
  const std::string& bridge_path = entry_.wan_bridge_path;
  std::printf("vornik info->vlan_enable = %d\n", info_.vlan_enable);
  if (info_.vlan_enable == 0) {
    igd::write_untagged(bridge_path, entry_.wan_path);
    return;
  }
  const std::string vlan = std::to_string(info_.vlan_id);
  const std::string priority = std::to_string(info_.vlan_priority);
  _set_value(bridge_path, "BridgeStandard", igd::kTaggedStandard);
  std::printf("vornik %sVLANID = %s\n", bridge_path.c_str(), vlan.c_str());
  igd::write_vlan(bridge_path, entry_.wan_path, vlan);
  std::printf("vornik %sX_ZYN_VLANPriority = %s\n", bridge_path.c_str(), priority.c_str());
  _set_value(bridge_path, "X_ZYN_VLANPriority", priority);
}

void PortUpdate::collect_old_wan_ports() {
  for (const std::string& port : igd::instances_below(entry_.wan_bridge_path, kPortInterface)) {
    std::string node = igd::value_of(port);
    if (!igd::is_wan_side_port(node)) bind_wan_.before.push_back(std::move(node));
  }
}

// Ports bound to other connections are in no group.
void PortUpdate::collect_old_lan_ports() {
  for (const std::string& depend :
       igd::instances_below(entry_.lan_bridge_path, kPortDependWanName)) {
    const std::string owner = igd::value_of(depend);
    if (owner == entry_.wan_path) {
      bind_lan_.before.push_back(_get_value(igd::port_of(depend), "PortInterface"));
    } else if (owner.empty()) {
      internet_.before.push_back(_get_value(igd::port_of(depend), "PortInterface"));
    }
  }
}

void PortUpdate::collect_new_ports() {
  append(info_.bind_wan, &bind_wan_.after);
  append(info_.bind_lan, &bind_lan_.after);
}

void PortUpdate::trace_groups() const {
  trace_members(bind_wan_.before, "OLD BIND WAN HAS", kOldBindWanLine);
  trace_members(bind_lan_.before, "OLD BIND LAN HAS", kOldBindLanLine);
  trace_members(internet_.before, "OLD INTERNET HAS", kOldInternetLine);
  trace_members(bind_wan_.after, "NEW BIND WAN HAS", kNewBindWanLine);
  trace_members(bind_lan_.after, "NEW BIND LAN HAS", kNewBindLanLine);
}

// Every port that the connection does not hold from now on goes to the LAN bridge, unbound.
void PortUpdate::find_released_ports() {
  const Names all_before = joined({&bind_wan_.before, &bind_lan_.before, &internet_.before});
  const Names all_after = joined({&bind_wan_.after, &bind_lan_.after});
  Names appearing;
  _diff_lists(all_before, all_after, internet_.after, appearing);
  trace_members(appearing, "NEW CREATE", kNewCreateLine);
  trace_members(internet_.after, "NEW INTERNET", kNewInternetLine);
}

void PortUpdate::remove_ports() const {
  const Stage stages[] = {
      {internet_, 1110, 1123}, {bind_lan_, 1129, 1140}, {bind_wan_, 1146, 1157}};
  for (const Stage& stage : stages) remove_from(stage);
}

void PortUpdate::create_ports() const {
  const Stage stages[] = {
      {bind_wan_, 1165, 1174}, {bind_lan_, 1179, 1188}, {internet_, 1193, 1202}};
  for (const Stage& stage : stages) create_in(stage);
}

void PortUpdate::enable_ports() {
  for (const std::string& enable : igd::instances_below(entry_.wan_bridge_path, kPortEnable)) {
    igd::store(enable, igd::kTrue);
    std::printf("\n ------------- %s %s %d port:%s\n", kUnit, kOperation, kReenabledLine,
                enable.c_str());
    write_option60_of(igd::port_of(enable));
  }
}

void PortUpdate::create_in(const Stage& stage) const {
  Names removed;
  Names added;
  _diff_lists(stage.group.before, stage.group.after, removed, added);
  trace_marker(stage.marker_line);
  for (const std::string& node : added) {
    _create_port(stage.group.bridge_path, stage.group.depend_wan, node, &info_);
    trace_port(node, "create", stage);
  }
}

// The interface is asked for anew for every entry of the record.
void PortUpdate::write_option60_of(const std::string& port_path) const {
  for (const auto& [node, option60] : info_.port_option60) {
    if (!igd::value_is(port_path, "PortInterface", node)) continue;
    _set_value(port_path, "PortOption60", option60);
    return;
  }
}

}  // namespace

void _diff_lists(const std::vector<std::string>& before, const std::vector<std::string>& after,
                 std::vector<std::string>& removed, std::vector<std::string>& added) {
  const auto collect_missing = [](const Names& from, const Names& in, Names& missing) {
    missing.clear();
    for (const std::string& name : from) {
      if (!igd::is_listed(in, name)) missing.push_back(name);
    }
  };
  collect_missing(before, after, removed);
  collect_missing(after, before, added);
}

void _wan_port_update(wan_mib_info* mib_info, api_wan_info* info) {
  if (igd::tree() == nullptr || info == nullptr || mib_info == nullptr) return;
  PortUpdate(*mib_info, *info).run();
}
