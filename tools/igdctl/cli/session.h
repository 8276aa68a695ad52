/// One run of igdctl: its global options, its output, and the tree it works on.
#ifndef IGDCTL_SESSION_H
#define IGDCTL_SESSION_H

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "backend/backend.h"
#include "common_util.h"
#include "term/failure.h"
#include "term/output.h"

namespace igdctl {

struct GlobalOptions {
  OutputOptions output;
  bool show_secrets = false;
  std::string store;  ///< "" for the usual one
  std::string trace;  ///< "" drops the library's trace
};

/// A command does not work while the command line is parsed: it leaves its work with on_run(), and
/// run() calls that when the library's trace is out of the way.
class Session {
 public:
  explicit Session(Backend& backend) : backend_(backend) {}

  GlobalOptions options;  // NOLINT(*-non-private-member-variables-in-classes): CLI11 fills it

  /// Called by the chosen command when it was parsed.
  void on_run(std::function<void()> work) { work_ = std::move(work); }

  /// Does the work. Failures end as messages on standard error.
  /// @return the exit code of the process
  int run();

  /// Only while the work runs.
  Output& output() { return *output_; }

  /// The tree behind the library's operations, opened at the first call. A command calls it before
  /// any operation of the library. Throws Failure (kStore) when there is none.
  MibAccess& tree();

  /// What stands behind the tree. But for has_store() it is to be asked after tree().
  Backend& backend() const { return backend_; }

  /// Ends with this code though the work was done, as doctor does when it found something.
  void set_exit_code(ExitCode code) { exit_code_ = code; }

 private:
  void run_with_trace();

  Backend& backend_;
  std::function<void()> work_;
  std::unique_ptr<Output> output_;
  MibAccess* tree_ = nullptr;
  ExitCode exit_code_ = ExitCode::kDone;
};

/// Prints a failure: of each problem a line with what is wrong, and one with what to do.
void report(const Failure& failure);

}  // namespace igdctl

#endif  // IGDCTL_SESSION_H
