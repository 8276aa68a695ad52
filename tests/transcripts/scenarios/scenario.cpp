#include "scenario.h"

#include <iterator>

#include "form/surroundings.h"

namespace transcripts {
namespace {

Scenarios collect() {
  Scenarios all;
  for (const Area& area : kAreas) {
    Scenarios scenarios = area.scenarios();
    all.insert(all.end(), std::make_move_iterator(scenarios.begin()),
               std::make_move_iterator(scenarios.end()));
  }
  return all;
}

}  // namespace

std::string Gateway::add(const std::string& table_path) {
  return step(call_text("add", {shown(table_path)}), GatewayTest::add(table_path));
}

std::string Gateway::add_bridge(const std::string& name, const std::string& wan_path) {
  return step(call_text("add_bridge", {shown(name), shown(wan_path)}),
              GatewayTest::add_bridge(name, wan_path));
}

std::string Gateway::add_connection_device(int device, const std::vector<std::string>& objects) {
  return step(call_text("add_connection_device", {shown(device), shown(objects)}),
              GatewayTest::add_connection_device(device, objects));
}

void Gateway::add_port(const std::string& bridge_path, const std::string& node) {
  (void)step(call_text("add_port", {shown(bridge_path), shown(node)}),
             GatewayTest::add_port(bridge_path, node));
}

std::string Gateway::create(const api_wan_info& info) {
  return step(call_text("create", {descriptions_.shown(info)}), GatewayTest::create(info));
}

void Gateway::set(const std::string& name, const std::string& value) {
  GatewayTest::set(name, value);
  recording_.head.builder.push_back("set " + name + " = " + shown(value));
}

void Gateway::remove(const std::string& object_path) {
  ASSERT_EQ(tree_.delete_object(object_path), 0) << object_path;
  recording_.head.builder.push_back("remove " + object_path);
}

void Gateway::forget_cache() {
  std::vector<std::string> none;
  _rebuid_cache(none);
  recording_.head.builder.emplace_back("the library's cache is empty");
}

void Gateway::fail_add(int nth) {
  failing_add_ = nth;
  if (nth == 0) return;
  recording_.head.builder.push_back("addObject number " + std::to_string(nth) +
                                    " of the call will fail");
}

std::string Gateway::step(const std::string& call, const std::string& result) {
  recording_.head.builder.push_back(call + " -> " + result);
  return result;
}

void Gateway::begin(const std::string& call) {
  for (const std::string& refusal : take_refusals()) {
    recording_.faults.push_back("refused before the call: " + refusal);
  }
  recording_.head.tree = surroundings(tree_);
  recording_.head.call = {call};
  if (writes_only_) recording_.head.call.emplace_back("of which only what writes is shown");
}

void Gateway::end(support::Transcript& transcript, CallCheck& check) {
  recording_.text = writes_only_ ? transcript.writes() : transcript.text();
  if (!returned_.empty()) recording_.text += "returns " + returned_ + '\n';
  for (const std::string& fault : check.faults()) recording_.faults.push_back(fault);
  recording_.refusals = take_refusals();
  for (const std::string& refusal : recording_.refusals) {
    recording_.text += "refused " + refusal + '\n';
  }
}

const Scenarios& all_scenarios() {
  static const Scenarios all = collect();
  return all;
}

Recording play(const Scenario& scenario) {
  Gateway gateway;
  scenario.play(gateway);
  return gateway.recording();
}

}  // namespace transcripts
