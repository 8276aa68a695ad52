/// How a command ends without having done its work.
#ifndef IGDCTL_FAILURE_H
#define IGDCTL_FAILURE_H

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "term/exit_codes.h"

namespace igdctl {

/// One thing that is wrong. Both are one line without a full stop and without control characters
/// (printable() of text.h), as they go to people.
struct Problem {
  std::string message;
  std::string hint;  ///< what to do about it
};

/// Thrown once by a command. Problems that can be found together are collected and thrown together,
/// so that people can solve them in one go.
struct Failure : std::exception {
  Failure(ExitCode exit_code, std::vector<Problem> all_problems)
      : code(exit_code), problems(std::move(all_problems)) {}
  Failure(ExitCode exit_code, std::string message, std::string hint)
      : code(exit_code), problems{{std::move(message), std::move(hint)}} {}
  const char* what() const noexcept override {
    return problems.empty() ? "" : problems.front().message.c_str();
  }

  ExitCode code;
  std::vector<Problem> problems;
};

/// Throws the problems, if there are any, as bad input.
inline void fail_on(const std::vector<Problem>& problems) {
  if (!problems.empty()) throw Failure(ExitCode::kBadInput, problems);
}

}  // namespace igdctl

#endif  // IGDCTL_FAILURE_H
