// A creation whose adds fail, one after the other. failing_add_table.cpp makes one table of them.
#include "scenario.h"

namespace transcripts {
namespace {

// Uplink, connection device, three objects with their mappings, bridge, uplink port, bound ports.
constexpr int kAddsOfACreation = 12;

void create_with_failing_add(Gateway& gateway, int nth) {
  api_wan_info info = support::routed_pppoe("1_INTERNET", 100);
  info.connection_class = kIgdRoutedAndBridged;
  info.bind_lan = {"LAN1"};
  info.bind_wan = {"LAN2"};
  gateway.note_writes_only();
  gateway.fail_add(nth);
  gateway.record(IGD_OPERATION(igd_wan_create), "Ethernet", &info);
}

// With a number that was never given, the writes go to instance 0 or to bare names: refused.
Refusals refusals_of_creation(int nth) {
  // Without its device nothing follows; without a mapping nothing else misses it.
  const bool nothing_misses_it = nth == 1 || nth == 2 || nth == 4 || nth == 6 || nth == 8;
  return nothing_misses_it ? Refusals::kNone : Refusals::kExpected;
}

}  // namespace

Scenarios failing_add_scenarios() {
  Scenarios scenarios = {
      {"create_no_add_fails", [](Gateway& gateway) { create_with_failing_add(gateway, 0); }}};
  for (int nth = 1; nth <= kAddsOfACreation; ++nth) {
    scenarios.push_back({"create_add_" + std::to_string(nth) + "_fails",
                         [nth](Gateway& gateway) { create_with_failing_add(gateway, nth); },
                         refusals_of_creation(nth)});
  }
  return scenarios;
}

}  // namespace transcripts
