#include <algorithm>

#include "gateway/addresses.h"
#include "igd_vocabulary.h"
#include "term/text.h"
#include "wan/wan_checks.h"

namespace igdctl {

namespace {

bool holds(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

class FaultFinder {
 public:
  FaultFinder(const WanDraft& draft, const GatewayState& gateway)
      : draft_(draft), info_(draft.info), gateway_(gateway) {}

  std::vector<Problem> run() {
    judge_name();
    judge_access();
    judge_service();
    judge_ports();
    judge_port_options();
    judge_account();
    judge_mtu();
    judge_static_addresses();
    judge_dns();
    return std::move(problems_);
  }

 private:
  bool is_new() const { return gateway_.connection == nullptr; }
  bool judged(std::initializer_list<const char*> keys) const {
    return is_new() || std::any_of(keys.begin(), keys.end(),
                                   [this](const char* key) { return draft_.changes(key); });
  }
  void problem(const std::string& what, const std::string& hint) {
    problems_.push_back({what, hint});
  }
  // Finds fault with an empty text, unless it is one that could not be read.
  void require(const char* key, const char* what) {
    const WanField& field = field_of(key);
    if (field.value(draft_) != Value(std::string()) || draft_.unreadable.count(key) != 0) return;
    problem(what, hint_to_give(field));
  }

  void judge_name();
  void judge_access();
  void judge_service();
  void judge_ports();
  void judge_list_of_ports(const char* key, const Names& ports, const Names& known);
  void judge_port_options();
  void judge_account();
  void judge_mtu();
  void judge_static_addresses();
  void judge_subnet();
  void judge_dns();

  const WanDraft& draft_;
  const api_wan_info& info_;
  const GatewayState& gateway_;
  std::vector<Problem> problems_;
};

// A name that reads as a path or as "<d>.<c>" could not be told from one.
bool reads_as_place(const std::string& name) {
  const bool path = name.rfind("InternetGatewayDevice.", 0) == 0;
  const bool id = name.find('.') != std::string::npos &&
                  name.find_first_not_of("0123456789.") == std::string::npos;
  return path || id;
}

void FaultFinder::judge_name() {
  if (!judged({"name"}) || draft_.unreadable.count("name") != 0) return;
  const std::string& name = info_.wan_info_name;
  if (name.empty() || trimmed(name).size() != name.size()) {
    problem(name.empty() ? "a connection needs a name" : "the name begins or ends with a blank",
            hint_to_give(field_of("name")));
  } else if (reads_as_place(name)) {
    problem("the name " + in_quotes(name) + " looks like a path or a number",
            "choose another name");
  }
  for (const Connection& other : gateway_.connections) {
    if (name.empty() || other.name != name) continue;
    if (!is_new() && other.path == gateway_.connection->path) continue;
    problem(
        "there is a connection " + in_quotes(name) + " already, " + other.id,
        is_new() ? "choose another name, or change it with igdctl wan set" : "choose another name");
    return;
  }
  if (name.empty() || gateway_.object_names.count(name) == 0) return;
  problem("an object of another connection has the name " + in_quotes(name) + " already",
          "choose another name; igdctl doctor shows which connection it is");
}

void FaultFinder::judge_access() {
  if (is_new() && draft_.access.empty()) {
    problem("a connection needs an uplink", hint_to_give(field_of("access")));
  } else if (!is_new() && draft_.changes("access")) {
    problem("the access of a connection cannot be changed, it is " +
                in_quotes(gateway_.connection->access),
            "remove the connection and create it again");
  }
}

void FaultFinder::judge_service() {
  if (judged({"service"}) && info_.service_type.empty()) {
    problem("a connection needs a service",
            hint_to_give(field_of("service")) + ", such as INTERNET");
  }
}

void FaultFinder::judge_list_of_ports(const char* key, const Names& ports, const Names& known) {
  if (!judged({key})) return;
  for (const std::string& port : ports) {
    if (igd::is_wan_side_port(port)) {
      problem(std::string(key) + " has " + in_quotes(port) + ", an uplink",
              "leave it out: a connection gets its uplink automatically");
    } else if (!holds(known, port)) {
      problem(
          std::string(key) + " has " + in_quotes(port) + ", which is not a port of this gateway",
          "its ports are " + joined(known, ", "));
    } else if (std::count(ports.begin(), ports.end(), port) > 1) {
      problem(std::string(key) + " has " + in_quotes(port) + " twice", "give each port once");
      return;
    }
  }
}

void FaultFinder::judge_ports() {
  const Names known = assignable_nodes(gateway_.bridges);
  judge_list_of_ports("bind_lan", info_.bind_lan, known);
  judge_list_of_ports("bind_wan", info_.bind_wan, known);
  if (!judged({"bind_lan", "bind_wan"})) return;
  for (const std::string& port : info_.bind_lan) {
    if (!holds(info_.bind_wan, port)) continue;
    problem(in_quotes(port) + " is in bind_lan and in bind_wan", "put each port in one of them");
  }
}

void FaultFinder::judge_port_options() {
  if (!judged({"port_option60"})) return;
  for (const auto& [port, option60] : info_.port_option60) {
    if (option60.empty() || holds(info_.bind_wan, port)) continue;
    problem("port_option60 names " + in_quotes(port) + ", which is not in bind_wan",
            "only ports in the connection's own bridge can have an option 60");
  }
}

void FaultFinder::judge_account() {
  const bool dials = info_.connect_mode == kIgdPppoe && info_.connection_class != kIgdBridged;
  if (!dials || !judged({"mode", "class", "user", "password"})) return;
  require("user", "mode pppoe needs a user name");
  require("password", "mode pppoe needs a password");
}

void FaultFinder::judge_mtu() {
  long octets = 0;
  if (info_.connect_mode != kIgdPppoe || !judged({"mtu"})) return;
  if (parse_number(info_.pppoe_mtu, 0, igd::kHighestPppoeMtu, &octets)) return;
  problem("mtu is " + info_.pppoe_mtu + ", but PPPoE needs 8 octets of each frame",
          "give at most " + std::to_string(igd::kHighestPppoeMtu));
}

void FaultFinder::judge_static_addresses() {
  if (info_.connect_mode != kIgdStatic) {
    const auto is_lost = [this](const char* key) {
      return draft_.changes(key) && field_of(key).value(draft_) != Value(std::string());
    };
    const bool lost = is_lost("address") || is_lost("mask") || is_lost("gateway");
    if (lost) {
      problem("address, mask and gateway belong to mode static",
              "leave them out, or give --mode static");
    }
    return;
  }
  if (!judged({"mode", "class", "address", "mask", "gateway"})) return;
  if (info_.connection_class == kIgdBridged && info_.ip_addr.empty()) return;
  require("address", "mode static needs an address");
  require("mask", "mode static needs a mask");
  require("gateway", "mode static needs a gateway");
  judge_subnet();
}

void FaultFinder::judge_subnet() {
  constexpr std::uint32_t kPointToPoint = 0xfffffffe;  // no network or broadcast address from here
  std::uint32_t address = 0;
  std::uint32_t mask = 0;
  std::uint32_t gateway = 0;
  if (!parse_ipv4(info_.ip_addr, &address) || !parse_ipv4(info_.ip_mask, &mask)) return;
  const bool whole_subnet = mask < kPointToPoint;
  const bool ends = (address & ~mask) == 0 || (address | mask) == 0xffffffff;
  if (!is_host_address(address) || mask == 0 || (whole_subnet && ends)) {
    problem("no host can have the address " + info_.ip_addr + " with the mask " + info_.ip_mask,
            "give an address inside its subnet");
    return;
  }
  if (!parse_ipv4(info_.ip_gw, &gateway)) return;
  if (!is_host_address(gateway) || gateway == address ||
      (whole_subnet && ((gateway ^ address) & mask) != 0)) {
    problem(
        "the gateway " + info_.ip_gw + " is not a different host in the subnet of " + info_.ip_addr,
        "give the router's address in " + text_of_ipv4(address & mask) + " " + info_.ip_mask);
  }
}

void FaultFinder::judge_dns() {
  if (!draft_.changes("dns") || info_.connect_mode != 0) return;
  problem("DNS servers belong to a mode, and none is chosen", hint_to_give(field_of("mode")));
}

}  // namespace

std::vector<Problem> problems_of(const WanDraft& draft, const GatewayState& gateway) {
  return FaultFinder(draft, gateway).run();
}

}  // namespace igdctl
