#include "tally.h"

#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace model {

void Tally::count(Operation operation, const std::string& outcome) {
  for (const Outcome& known : info_of(operation).outcomes) {
    if (outcome != known.name) continue;
    ++counts_[{operation, outcome}];
    return;
  }
  throw std::logic_error(std::string(info_of(operation).name) + " has no outcome " + outcome);
}

long Tally::times(Operation operation, const Outcome& outcome) const {
  const auto found = counts_.find({operation, outcome.name});
  return found == counts_.end() ? 0 : found->second;
}

std::vector<std::string> Tally::missing() const {
  std::vector<std::string> all;
  for (int i = 0; i < kOperations; ++i) {
    const auto operation = static_cast<Operation>(i);
    const OperationInfo& info = info_of(operation);
    for (const Outcome& outcome : info.outcomes) {
      if (times(operation, outcome) != 0) continue;
      all.push_back(std::string(info.name) + ": " + outcome.name);
    }
  }
  if (rules.held == 0) all.emplace_back("rule: ports stand where they were put");
  if (rules.released == 0) all.emplace_back("rule: released ports are in the LAN bridge");
  if (rules.gone == 0) all.emplace_back("rule: a removed connection leaves no trace");
  if (rules.read_back == 0) all.emplace_back("rule: what was written is read again");
  return all;
}

std::string Tally::table() const {
  std::ostringstream out;
  out << std::left << std::setw(20) << "operation" << std::right << std::setw(9) << "done"
      << std::setw(9) << "refused"
      << "  of these\n";
  for (int i = 0; i < kOperations; ++i) {
    const auto operation = static_cast<Operation>(i);
    long done = 0, refused = 0;
    std::string of_these;
    for (const Outcome& outcome : info_of(operation).outcomes) {
      const long number = times(operation, outcome);
      (outcome.done ? done : refused) += number;
      of_these +=
          (of_these.empty() ? "" : ", ") + std::string(outcome.name) + ' ' + std::to_string(number);
    }
    out << std::left << std::setw(20) << info_of(operation).name << std::right << std::setw(9)
        << done << std::setw(9) << refused << "  " << of_these << '\n';
  }
  out << "rules held: ports stand where they were put " << rules.held << ", released ports back "
      << rules.released << ", no trace of a removed connection " << rules.gone
      << ", read as written " << rules.read_back << '\n';
  return out.str();
}

long Tally::steps() const {
  long all = 0;
  for (const auto& [outcome, number] : counts_) all += number;
  return all;
}

}  // namespace model
