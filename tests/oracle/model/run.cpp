#include "run.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

#include "comparison.h"
#include "gateway.h"
#include "model.h"

namespace model {
namespace {

/// The library prints what it does; nobody is to read it here.
class Silence {
 public:
  Silence() {
    std::fflush(stdout);
    saved_ = ::dup(STDOUT_FILENO);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (saved_ < 0 || nowhere < 0 || ::dup2(nowhere, STDOUT_FILENO) < 0) {
      throw std::runtime_error("cannot silence standard output");
    }
    ::close(nowhere);
  }
  ~Silence() {
    std::fflush(stdout);
    ::dup2(saved_, STDOUT_FILENO);
    ::close(saved_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  int saved_;
};

std::string created_path(const Step& step, const std::string& path, const std::string& answer) {
  return step.operation == Operation::kCreate ? answer.substr(0, answer.find('\n')) : path;
}

std::string compare(const Step& step, Model& model, Gateway& gateway, Tally& tally,
                    const Meddler& meddler) {
  const std::string path = model.path_meant_by(step);
  const Before before(gateway.tree(), path);
  const Answer expected = model.perform(step);
  const std::string answer = gateway.perform(step, path);
  if (meddler) meddler(step, gateway.tree());
  tally.count(step.operation, expected.outcome);
  if (answer != expected.text) {
    return "answers \"" + answer + "\", expected \"" + expected.text + '"';
  }
  std::string found = difference(model.state(), gateway.tree());
  if (found.empty()) {
    const std::string worked_on = created_path(step, path, answer);
    found = broken_rule(step, worked_on, before, gateway.tree(), tally.rules);
  }
  return found;
}

}  // namespace

std::optional<Failure> run(const Steps& steps, Tally& tally, const Meddler& meddler) {
  const Silence silence;
  Model model;
  Gateway gateway;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const std::string found = compare(steps[i], model, gateway, tally, meddler);
    if (!found.empty()) return Failure{i, found};
  }
  const std::string found = difference_anywhere(model.state(), gateway.tree());
  if (!found.empty()) return Failure{steps.empty() ? 0 : steps.size() - 1, found};
  return std::nullopt;
}

std::string shown(const Steps& steps, const Failure& failure) {
  std::string all;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    all += shown(steps[i]) + '\n';
    if (i != failure.step) continue;
    std::string comment = "# " + failure.what;
    for (std::size_t at = 0; (at = comment.find('\n', at)) != std::string::npos; at += 3) {
      comment.replace(at, 1, "\n# ");
    }
    all += comment + '\n';
  }
  return all;
}

}  // namespace model
