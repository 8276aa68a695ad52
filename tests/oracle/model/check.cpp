#include "check.h"

#include <rapidcheck.h>
#include <rapidcheck/detail/TestListenerAdapter.h>

#include <unordered_map>

namespace model {
namespace {

constexpr int kLongestSequence = 60;

Operation pick_operation(rc::Random& random) {
  int total = 0;
  for (int i = 0; i < kOperations; ++i) total += info_of(static_cast<Operation>(i)).weight;
  int left = static_cast<int>(random.split().next() % static_cast<std::uint64_t>(total));
  int i = 0;
  while ((left -= info_of(static_cast<Operation>(i)).weight) >= 0) ++i;
  return static_cast<Operation>(i);
}

/// Three times of four something usual.
std::size_t pick_choice(rc::Random& random, Field field) {
  const std::uint64_t picked = random.split().next();
  const std::size_t usual = usual_values_of(field);
  return picked % 4 != 0 ? picked / 4 % usual : picked / 4 % values_of(field).size();
}

Step pick_step(rc::Random random) {
  Step step(pick_operation(random));
  const Fields& fields = info_of(step.operation).fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    step.choices[i] = pick_choice(random, fields[i]);
  }
  return step;
}

/// The same step with one field plainer: the plainest value first, then its neighbour.
std::vector<Step> plainer_steps(const Step& step) {
  std::vector<Step> plainer;
  for (std::size_t i = 0; i < step.choices.size(); ++i) {
    if (step.choices[i] == 0) continue;
    plainer.push_back(step);
    plainer.back().choices[i] = 0;
    if (step.choices[i] == 1) continue;
    plainer.push_back(step);
    --plainer.back().choices[i];
  }
  return plainer;
}

rc::Gen<Steps> any_sequence() {
  const rc::Gen<Step> any_step = [](const rc::Random& random, int) {
    return rc::shrinkable::shrinkRecur(pick_step(random), [](const Step& step) {
      return rc::seq::fromContainer(plainer_steps(step));
    });
  };
  return rc::gen::container<Steps>(any_step);
}

}  // namespace

void showValue(const Step& step, std::ostream& out) { out << shown(step); }

Report check(int sequences, std::uint64_t seed, const Meddler& meddler) {
  Report report;
  const auto property = [&](void) {
    const Steps steps = *any_sequence();
    Tally tally = report.tally;
    const std::optional<Failure> failure = run(steps, report.tally, meddler);
    if (!failure) return;
    report.tally = tally;  // what shrinking tries does not count
    report.shortest = steps;
    report.failure = *failure;
    RC_FAIL(failure->what);
  };
  rc::detail::TestParams params;
  params.seed = seed;
  params.maxSuccess = sequences;
  params.maxSize = kLongestSequence;
  // Neither RC_PARAMS nor a seed of the hour: what is run is what was asked for.
  rc::detail::TestListenerAdapter nobody;
  const rc::detail::TestResult result =
      rc::detail::checkTestable(property, rc::detail::TestMetadata(), params, nobody,
                                std::unordered_map<std::string, rc::detail::Reproduce>());
  report.ok = result.is<rc::detail::SuccessResult>();
  report.sequences = report.ok ? result.get<rc::detail::SuccessResult>().numSuccess : 0;
  if (result.is<rc::detail::FailureResult>()) {
    report.sequences = result.get<rc::detail::FailureResult>().numSuccess;
  }
  return report;
}

}  // namespace model
