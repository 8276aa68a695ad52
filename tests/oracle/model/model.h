// The gateway as its callers see it: after each operation, what it answers and what stands where.
//
// It knows no tree and no order of calls, only the rules: who holds a port, which VLAN it gets,
// what a removal takes away. The library is run beside it and must answer and leave the same.
#ifndef IGD_TESTS_MODEL_MODEL_H
#define IGD_TESTS_MODEL_MODEL_H

#include <string>

#include "igd_types.h"
#include "state.h"
#include "step.h"

namespace model {

struct Answer {
  std::string outcome;  ///< one of the operation's
  std::string text;     ///< what the caller sees
};

class Model {
 public:
  /// The path that a step means: "first" to "third" are the connections in the tree's order,
  /// counted round where there are fewer; "gone" is the last one removed, "uplink" a WAN device,
  /// "cut" the first connection without its last dot, "none" the empty text. Where there is no such
  /// one, a path that never was.
  std::string path_meant_by(const Step& step) const;

  Answer perform(const Step& step);
  const State& state() const { return state_; }

 private:
  // Connections: create, write, remove.
  Answer create(const Step& step);
  Answer set(const Step& step, const std::string& path);
  Answer save_binding(const Step& step, const std::string& path);
  Answer remove(const std::string& path);
  Answer set_all(const Step& step, const std::string& path);
  void write_record(const std::string& path, api_wan_info& info);
  void write_binding(const Entry& entry, const api_wan_info& info);
  void write_flags(const std::string& path, const api_wan_info& info);
  void write_types(const Entry& entry, const api_wan_info& info);
  void write_accounts(const Entry& entry, const api_wan_info& info);
  void write_addressing(const Entry& entry, const api_wan_info& info);
  ConnectionId add_connection(const std::string& access, bool* new_uplink);
  void delete_object(const std::string& path);
  void forget_routes_of(const std::string& path);

  // Bridges: who holds which port.
  std::vector<int> bridges_meant_by(int bridge) const;
  std::vector<const Port*> ports_in(int bridge) const;
  int lan_bridge() const;
  int own_bridge(const std::string& path) const;
  int make_bridge(const std::string& name, const std::string& path, const api_wan_info& info,
                  int vlan);
  void make_port(int bridge, const std::string& wan, const std::string& node, api_wan_info* info);
  void delete_ports(int bridge, const Names& removed);
  void release_all_ports(int bridge);
  Names release_bound_ports(int bridge, const std::string& path);
  std::string lan_vlan(int bridge, const std::string& wan) const;
  void tag(Bridge* bridge, const std::string& path, const api_wan_info& info, int vlan);
  void update_ports(const std::string& path, const Entry& entry, api_wan_info& info);
  void move_ports(const std::string& path, const Entry& entry, api_wan_info& info);
  void disable_ports(int bridge, int vlan);
  void enable_ports(int bridge, const api_wan_info& info);

  // What is read of connections.
  Answer get(const Step& step, const std::string& path);
  Answer status(const Step& step, const std::string& path) const;
  void read_bridges(const Entry& entry, api_wan_info& info) const;
  void read_bindings(const std::string& path, const Entry& entry, api_wan_info& info) const;
  void read_addressing(const Entry& entry, api_wan_info& info) const;

  // Advice.
  Answer check(const Step& step, const std::string& path) const;
  int verdict(const std::string& path, api_wan_info& info, int device_ports) const;
  bool vlan_is_held(const std::string& path, const std::string& vlan) const;
  int held_port(const std::string& path, const api_wan_info& info) const;
  int ports_left(const api_wan_info& info, int device_ports) const;
  Answer may_remove(const std::string& path) const;
  std::vector<std::string> service_lists(const std::string& prefix) const;

  // Finding.
  Answer list();
  Answer find_name(const std::string& name) const;
  Answer is_index(const std::string& path) const;
  Answer is_bridge_parameter(const Step& step) const;
  Answer used_ports(const std::string& path) const;
  Answer name_bridge(const std::string& path) const;
  Answer find_bridge(const std::string& path) const;
  Answer show_bridge(const std::string& path) const;
  Answer belongs(const Step& step) const;
  Answer find_physical(const Step& step) const;
  Answer free_vlan() const;
  Answer bridge_texts(const Step& step, const std::string& path) const;
  Answer set_pvid(const Step& step);
  ConnectionId connection_named(const std::string& name) const;
  ConnectionId owner_of_object(const std::string& prefix, Kind kind) const;
  int bridge_named(const std::string& name) const;

  // Routes and settings.
  Answer set_route(const Step& step);
  Answer list_routes() const;
  Answer clear_routes();
  Answer set_management(const Step& step);
  Answer get_management(const Step& step) const;
  Answer set_l3_name(const Step& step);
  Answer get_l3_name(const Step& step);

  // The cache, and other programs.
  Answer remember(const std::string& path);
  Answer forget(const std::string& path);
  Entry& entry_of(const std::string& path);
  Answer lose_bridge(int bridge);
  Answer lose_connection(const std::string& path);
  Answer move_route(const std::string& path);
  Answer line_up(const Step& step, const std::string& path);

  bool is_connection(const std::string& path) const;
  ConnectionId id_of(const std::string& path) const;  ///< {0, 0} when there is none
  std::string read(ConnectionId id, Kind kind, const std::string& parameter) const;
  void write(ConnectionId id, Kind kind, const std::string& parameter, const std::string& value);

  State state_;
};

/// "br_<d>_<c>", from the text of a path.
std::string bridge_name_for(const std::string& path);

}  // namespace model

#endif  // IGD_TESTS_MODEL_MODEL_H
