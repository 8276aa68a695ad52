#include "step.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace model {
namespace {

std::string value_of(Field field, std::size_t choice) { return values_of(field).at(choice); }

void read_choice(Step& step, const std::string& word) {
  const std::size_t equals = word.find('=');
  const Fields& fields = info_of(step.operation).fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (word.substr(0, equals) != name_of(fields[i]) || equals == std::string::npos) continue;
    const std::vector<std::string>& values = values_of(fields[i]);
    const auto found = std::find(values.begin(), values.end(), word.substr(equals + 1));
    if (found == values.end()) break;
    step.choices[i] = static_cast<std::size_t>(found - values.begin());
    return;
  }
  throw std::invalid_argument("what is \"" + word + "\"?");
}

Operation operation_named(const std::string& name) {
  for (int i = 0; i < kOperations; ++i) {
    if (name == info_of(static_cast<Operation>(i)).name) return static_cast<Operation>(i);
  }
  throw std::invalid_argument("no such operation: " + name);
}

Step read_step(const std::string& line) {
  std::istringstream words(line);
  std::string word;
  words >> word;
  Step step(operation_named(word));
  while (words >> word) read_choice(step, word);
  return step;
}

}  // namespace

Step::Step(Operation chosen) : operation(chosen), choices(info_of(chosen).fields.size(), 0) {}

std::string Step::text(Field field) const {
  const Fields& fields = info_of(operation).fields;
  const auto found = std::find(fields.begin(), fields.end(), field);
  const std::size_t choice =
      found == fields.end() ? 0 : choices[static_cast<std::size_t>(found - fields.begin())];
  const std::string value = value_of(field, choice);
  if (value == "none") return {};
  return value == "long" ? std::string(300, 'n') : value;
}

int Step::number(Field field) const { return std::stoi(text(field)); }

std::vector<std::string> Step::list(Field field) const {
  std::vector<std::string> elements;
  std::istringstream rest(text(field));
  std::string element;
  while (std::getline(rest, element, ',')) elements.push_back(element);
  return elements;
}

std::string shown(const Step& step) {
  const OperationInfo& info = info_of(step.operation);
  std::string line = info.name;
  for (std::size_t i = 0; i < info.fields.size(); ++i) {
    if (step.choices[i] == 0) continue;
    line += std::string(" ") + name_of(info.fields[i]) + '=';
    line += value_of(info.fields[i], step.choices[i]);
  }
  return line;
}

Steps read_steps(const std::string& text) {
  Steps steps;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    line = line.substr(0, line.find('#'));
    if (line.find_first_not_of(" \t\r") != std::string::npos) steps.push_back(read_step(line));
  }
  return steps;
}

}  // namespace model
