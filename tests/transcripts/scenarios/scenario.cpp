#include "scenario.h"

#include <iterator>

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

void Gateway::remove(const std::string& object_path) {
  ASSERT_EQ(tree_.delete_object(object_path), 0) << object_path;
}

void Gateway::forget_cache() {
  std::vector<std::string> none;
  _rebuid_cache(none);
}

void Gateway::begin() {
  for (const std::string& refusal : take_refusals()) {
    recording_.faults.push_back("refused before the call: " + refusal);
  }
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
