#include "life.h"

#include <string>
#include <vector>

#include "igd_api.h"
#include "stdout_capture.h"

namespace proof {
namespace {

using host::Store;
using host::StoreResult;

const std::string kUrl = "InternetGatewayDevice.ManagementServer.URL";
const std::string kWan = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.";

api_wan_info connection(const std::string& name, const std::string& service, int vlan, int mode) {
  api_wan_info wan;
  wan.wan_info_name = name;
  wan.service_type = service;
  wan.vlan_enable = 1;
  wan.vlan_id = vlan;
  wan.connection_class = kIgdRouted;
  wan.connect_mode = mode;
  wan.nat_mode = 1;
  wan.wan_enable = "true";
  wan.wan_remote_management_enable = "false";
  wan.stp_enable = "false";
  wan.pppoe_mtu = "1492";
  wan.static_mtu = "1500";
  wan.dhcp_mtu = "1500";
  return wan;
}

void create_internet(Gateway&) {
  api_wan_info wan = connection("Internet", "INTERNET", 100, kIgdPppoe);
  wan.pppoe_user_name = "household@example.net";
  wan.pppoe_password = "correct-horse";
  wan.bind_lan = {"LAN1", "LAN2"};
  (void)igd_wan_create("Ethernet", &wan);
}

void create_management(Gateway&) {
  api_wan_info wan = connection("Management", "TR069", 200, kIgdDhcp);
  (void)igd_wan_create("Ethernet", &wan);
}

void create_television(Gateway&) {
  api_wan_info wan = connection("Television", "OTHER", 300, kIgdDhcp);
  wan.connection_class = kIgdBridged;
  wan.bind_wan = {"LAN4"};
  (void)igd_wan_create("Ethernet", &wan);
}

void route(int operation, const char* destination, const std::string& name) {
  api_route_info route;
  route.dest_ip = destination;
  route.dest_mask = "255.255.255.0";
  route.enable = 1;
  route.route_type = kIgdRouteByInterface;
  route.interface = name;
  (void)igd_set_static_route(operation, route);
}

void renumber_internet(Gateway&) {
  api_wan_info wan;
  (void)igd_wan_get_params(kWan + "1.", &wan);
  wan.vlan_id = 101;
  wan.pppoe_user_name = "somebody@example.net";
  (void)igd_wan_set_params(kWan + "1.", &wan);
}

StoreResult tried(Gateway& gateway, void (*change)(Gateway&), const char* label, int seconds) {
  Store& store = gateway.store();
  const StoreResult begun = store.begin_trial();
  if (!begun.ok()) return begun;
  change(gateway);
  return seconds > 0 ? store.accept_pending(seconds, label) : store.accept(label);
}

// A step is written so that it can be done again after it failed.
struct Step {
  const char* name;
  void (*change)(Gateway&);               // what is written; none for most of the store's own
  StoreResult (*land)(Gateway& gateway);  // none: the library has committed, or nothing is to
};

constexpr auto kCommit = [](Gateway& gateway) { return gateway.store().commit("step"); };

void write_much(Gateway& gateway, std::size_t length) {
  (void)gateway.store().tree().set_value(kUrl, std::string(length, 'x'));
}

const std::vector<Step>& steps() {
  static const std::vector<Step> all = {
      {"create the internet connection", create_internet, kCommit},
      {"create the management connection", create_management, kCommit},
      {"set a route", [](Gateway&) { route(kIgdRouteSet, "10.1.0.0", "Internet"); }, nullptr},
      {"keep a checkpoint", nullptr, [](Gateway& g) { return g.store().make_checkpoint("two"); }},
      {"create the television connection in a trial", nullptr,
       [](Gateway& g) { return tried(g, create_television, "television", 0); }},
      {"renumber", renumber_internet, kCommit},
      {"set another route", [](Gateway&) { route(kIgdRouteSet, "10.2.0.0", "Television"); },
       nullptr},
      {"renumber pending", nullptr,
       [](Gateway& g) {
         return tried(
             g, [](Gateway& at) { at.store().tree().set_value(kUrl, "pending"); }, "pending", 60);
       }},
      {"confirm", nullptr, [](Gateway& g) { return g.store().confirm(); }},
      {"remove the television connection, pending", nullptr,
       [](Gateway& g) {
         return tried(
             g, [](Gateway&) { igd_wan_destory(kWan + "3."); }, "removed", 60);
       }},
      {"revert", nullptr, [](Gateway& g) { return g.store().revert(); }},
      {"go back to the checkpoint", nullptr, [](Gateway& g) { return g.store().restore("two"); }},
      {"go back to an automatic one", nullptr, [](Gateway& g) { return g.store().restore("@5"); }},
      {"delete the route", [](Gateway&) { route(kIgdRouteDelete, "10.1.0.0", {}); }, nullptr},
      {"write much", [](Gateway& g) { write_much(g, 100000); }, kCommit},
      {"write more", [](Gateway& g) { write_much(g, 180000); }, kCommit},
      {"write little", [](Gateway& g) { write_much(g, 1); }, kCommit},
      {"create the television connection again", create_television, kCommit},
      {"delete the checkpoint", nullptr,
       [](Gateway& g) { return g.store().delete_checkpoint("two"); }},
      {"remove the internet connection", [](Gateway&) { igd_wan_destory(kWan + "1."); }, nullptr},
  };
  return all;
}

constexpr std::size_t kOpenAnewEvery = 7;

void open(Gateway& gateway) { (void)gateway.open(); }

void open_anew(Gateway& gateway) {
  gateway.close();
  open(gateway);
}

void go(Gateway& gateway, const Step& step) {
  if (step.change != nullptr) step.change(gateway);
  if (step.land != nullptr) (void)gateway.did(step.land(gateway));
}

// Whether life goes on after it.
template <class Action>
bool done(Gateway& gateway, const std::function<AfterFailure()>& after_failure, Action action) {
  action();
  if (gateway.failure().ok()) return true;
  if (after_failure && after_failure() == AfterFailure::kTryAgainAndEnd) {
    gateway.forget_failure();
    action();
  }
  return false;
}

}  // namespace

void live(Gateway& gateway, const std::function<AfterFailure()>& after_failure) {
  const support::StdoutCapture trace;
  if (!done(gateway, after_failure, [&gateway] { open(gateway); })) return;
  for (std::size_t i = 0; i < steps().size(); ++i) {
    if (!done(gateway, after_failure, [&gateway, i] { go(gateway, steps()[i]); })) return;
    if (i % kOpenAnewEvery != kOpenAnewEvery - 1) continue;
    if (!done(gateway, after_failure, [&gateway] { open_anew(gateway); })) return;
  }
  gateway.close();
}

}  // namespace proof
