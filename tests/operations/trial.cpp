#include "trial.h"

#include <new>

#include "igd_api.h"
#include "reference.h"
#include "test_platform.h"

namespace operations {
namespace {

struct Outcome {
  bool threw = false;
  std::string answer;
  std::string kept;  // in the cache and in the name table
  std::string calls;
};

std::string listed(const std::map<std::string, std::string>& names) {
  std::string text;
  for (const auto& [key, name] : names) text.append(key).append("=").append(name).append("\n");
  return text;
}

std::string kept_by_library() {
  std::string text = listed(g_l3_ifname_table);
  for (const auto& [key, entry] : g_wan_mibinfo_cache_list) {
    text += key + ": " + (entry == nullptr ? "nothing" : shown(*entry)) + '\n';
  }
  return text;
}

std::string kept_by_reference() {
  std::string text = listed(reference::state().l3_names);
  for (const auto& [key, entry] : reference::state().cache) {
    text += key + ": " + shown(entry) + '\n';
  }
  return text;
}

template <typename Act>
Outcome outcome_of(Recorder& recorder, const Fault& fault, const Act& act) {
  Outcome outcome;
  recorder.start(fault);
  try {
    outcome.answer = act();
  } catch (const std::bad_alloc&) {
    outcome.threw = true;
  }
  outcome.calls = recorder.calls();
  return outcome;
}

Outcome done_by_library(const Operation& operation, Gateway& gateway, const Fault& fault,
                        long failing_allocation) {
  const Start& start = gateway.start();
  gateway.recorder().start({});
  if (operation.cached) (void)_get_cache(start.wan);
  allocations::fail_at(failing_allocation);
  Outcome outcome =
      outcome_of(gateway.recorder(), fault, [&] { return operation.by_library(start); });
  outcome.kept = kept_by_library();
  return outcome;
}

Outcome done_by_reference(const Operation& operation, Gateway& gateway, const Fault& fault) {
  const Start& start = gateway.start();
  gateway.recorder().start({});
  reference::state() = {&gateway.recorder(), {}, {}};
  if (operation.cached) (void)reference::_get_cache(start.wan);
  Outcome outcome =
      outcome_of(gateway.recorder(), fault, [&] { return operation.by_reference(start); });
  outcome.kept = kept_by_reference();
  reference::state() = {};
  gateway.restore();
  return outcome;
}

std::string difference(const char* what, const std::string& is, const std::string& expected) {
  if (is == expected) return {};
  std::size_t at = 0;
  while (at < is.size() && at < expected.size() && is[at] == expected[at]) ++at;
  const std::size_t end = at == 0 ? std::string::npos : is.rfind('\n', at - 1);
  const std::size_t line = end == std::string::npos ? 0 : end + 1;
  return std::string(what) + " differ:\n  is       " + is.substr(line, 200) + "\n  expected " +
         expected.substr(line < expected.size() ? line : expected.size(), 200);
}

std::string compare(const Outcome& is, const Outcome& expected) {
  if (is.threw) return "an exception came out";
  std::string complaint = difference("calls", is.calls, expected.calls);
  if (complaint.empty()) complaint = difference("answers", is.answer, expected.answer);
  if (complaint.empty()) complaint = difference("kept entries", is.kept, expected.kept);
  return complaint;
}

// A key may be left without an entry when there was no memory for it; the next request makes one.
std::string check_cache(const Start& start) {
  for (const auto& [key, entry] : g_wan_mibinfo_cache_list) {
    if (entry != nullptr && entry->wan_path != key) return "a cache entry is half made";
  }
  const wan_mib_info* const entry = _get_cache(start.wan);
  if (entry == nullptr || entry->wan_path != start.wan) return "the cache cannot be used on";
  return {};
}

std::string check_walks(const Recorder& recorder) {
  if (recorder.open_walks() != 0) return "a walk is left open";
  return recorder.closed_wrongly() ? "a walk is closed twice" : "";
}

std::string check_exception(const Outcome& outcome, const Start& start) {
  if (!outcome.threw) return "std::bad_alloc did not reach the caller";
  return check_cache(start);
}

// The gateway is brought back before the blocks are counted. A complaint keeps its own text, and so
// is no leak.
template <typename Trial>
Verdict without_leaks(Gateway& gateway, const Trial& trial) {
  const long before = allocations::live();
  Verdict verdict = trial();
  allocations::fail_at(0);
  gateway.restore();
  if (verdict.complaint.empty() && allocations::live() != before) {
    verdict.complaint = std::to_string(allocations::live() - before) + " blocks leak";
  }
  return verdict;
}

}  // namespace

Gateway::Gateway(const Start& start)
    : start_(&start), tree_(start.tree), recorder_(host::mib_access()) {
  walk_as_always();
}

void Gateway::walk_as_always() { (void)tree_.instances(kPortInterface); }

void Gateway::Active::connect(Gateway& gateway) {
  before_ = host::exchange_active_tree(&gateway.tree_);
  support::put_behind_switchboard(&gateway.recorder_);
}

Gateway::Active::~Active() {
  support::put_behind_switchboard(nullptr);
  host::exchange_active_tree(before_);
}

void Gateway::restore() {
  Names none;
  _rebuid_cache(none);
  g_l3_ifname_table.clear();
  if (recorder_.wrote()) {
    tree_ = start_->tree;
    recorder_.start({});
  }
  walk_as_always();
}

Verdict Trials::fail_call(const Fault& fault) {
  return without_leaks(by_library_, [&] {
    const Outcome outcome = [&] {
      const Gateway::Active active(by_library_);
      return done_by_library(operation_, by_library_, fault, 0);
    }();
    Verdict verdict{by_library_.recorder().failed(), check_walks(by_library_.recorder())};
    if (!verdict.complaint.empty()) return verdict;
    if (verdict.reached && fault.failure == Failure::kThrows) {
      const Gateway::Active active(by_library_);
      verdict.complaint = check_exception(outcome, by_library_.start());
    } else {
      const Gateway::Active active(by_reference_);
      verdict.complaint = compare(outcome, done_by_reference(operation_, by_reference_, fault));
    }
    return verdict;
  });
}

Verdict Trials::fail_allocation(long nth) {
  const Gateway::Active active(by_library_);
  return without_leaks(by_library_, [&] {
    const Outcome outcome = done_by_library(operation_, by_library_, {}, nth);
    Verdict verdict{allocations::counted() >= nth, check_walks(by_library_.recorder())};
    allocations::fail_at(0);
    if (verdict.complaint.empty() && verdict.reached) {
      verdict.complaint = check_exception(outcome, by_library_.start());
    }
    return verdict;
  });
}

Clean Trials::without_fault() {
  const Gateway::Active active(by_library_);
  (void)done_by_library(operation_, by_library_, {}, 0);
  Clean clean{by_library_.recorder().counts(), allocations::counted()};
  by_library_.restore();
  return clean;
}

}  // namespace operations
