// What can be seen of a gateway: its connections, who holds which port, routes, and what the
// library remembers.
#ifndef IGD_TESTS_MODEL_STATE_H
#define IGD_TESTS_MODEL_STATE_H

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace model {

using Names = std::vector<std::string>;
using Texts = std::map<std::string, std::string>;  ///< by parameter

/// A parameter's text; what a new object has when nothing was written.
std::string text_of(const Texts& texts, const std::string& parameter);

/// WAN device and connection device; {0, 0} for none.
using ConnectionId = std::pair<int, int>;

enum Kind { kStatic, kDhcp, kPpp };  ///< the three objects of a connection
constexpr std::array<Kind, 3> kKinds = {kStatic, kDhcp, kPpp};

struct Connection {
  Texts flags;                   ///< of the connection device itself
  Texts link;                    ///< of its Ethernet link
  std::array<Texts, 3> objects;  ///< by Kind
};

struct Uplink {
  std::string access;
  int last = 0;  ///< number of the newest connection device
};

struct Port {
  std::string node;
  std::string vlan;
  std::string option60;
  std::string wan;  ///< the connection it is bound to in the LAN bridge
  bool enabled = true;
};

struct Bridge {
  std::string name;
  std::string standard;
  std::string vlan;
  std::string priority;
  std::string wan;  ///< the connection whose own it is
  std::vector<Port> ports;
};

struct Route {
  std::string destination;
  std::string netmask;
  std::string interface;
  std::string gateway;
  std::string table;
  bool enabled = false;
};

/// What is remembered of a connection. What went meanwhile stays here.
struct Entry {
  std::string bridge_name;
  int own_bridge = 0;  ///< 0 for none
  int lan_bridge = 0;
  std::array<ConnectionId, 3> objects;  ///< by Kind: whose object
  int connect_class = 0;
};

struct State {
  State();  ///< as a gateway leaves the factory

  std::map<int, Uplink> uplinks;
  std::map<ConnectionId, Connection> connections;
  std::map<int, Bridge> bridges;
  std::vector<Route> routes;
  std::map<std::string, Entry> remembered;
  std::array<std::string, 6> management;
  std::map<std::string, std::string> l3_names;

  int last_uplink = 0;
  int last_bridge = 1;
  std::string gone;      ///< the connection that went last
  bool refused = false;  ///< whether the tree had to refuse something in the last step
};

std::string path_of(ConnectionId id);
std::string uplink_path(int number);
std::string bridge_path(int number);  ///< empty for 0
std::string object_path(ConnectionId id, Kind kind);

bool begins_with(const std::string& text, const std::string& prefix);
bool contains(const std::string& text, const std::string& part);
bool is_among(const Names& names, const std::string& name);
int leading_number(const std::string& text);  ///< 0 when there is none

/// The ports through which connections enter their own bridges: "LAN0", "3G0", "WIFIW0".
bool is_uplink_port(const std::string& node);

/// The system's name of a port; empty for an unknown one.
std::string device_of(const std::string& node);
bool takes_suffix(const std::string& node);

}  // namespace model

#endif  // IGD_TESTS_MODEL_STATE_H
