#include "cli/session.h"

#include <cstdio>
#include <new>
#include <string>
#include <vector>

#include "cli/trace.h"
#include "igd_api.h"
#include "term/text.h"

namespace igdctl {

namespace {

// What the library remembers of connections belongs to whoever used it.
class LibraryMemory {
 public:
  LibraryMemory() = default;
  LibraryMemory(const LibraryMemory&) = delete;
  LibraryMemory& operator=(const LibraryMemory&) = delete;
  ~LibraryMemory() {
    std::vector<std::string> none;
    _rebuid_cache(none);
  }
};

}  // namespace

void report(const Failure& failure) {
  for (const Problem& problem : failure.problems) {
    (void)std::fprintf(stderr, "igdctl: %s\n", printable(problem.message).c_str());
    if (!problem.hint.empty()) {
      (void)std::fprintf(stderr, "        %s\n", printable(problem.hint).c_str());
    }
  }
}

int Session::run() {
  try {
    run_with_trace();
  } catch (const Failure& failure) {
    report(failure);
    return static_cast<int>(failure.code);
  } catch (const std::bad_alloc&) {
    report(Failure(ExitCode::kFailed, "there is not enough memory",
                   "free some memory, then try again"));
    return static_cast<int>(ExitCode::kFailed);
  } catch (const std::exception& error) {
    report(Failure(ExitCode::kFailed, std::string("unexpected: ") + error.what(),
                   "report it with the command that led to it"));
    return static_cast<int>(ExitCode::kFailed);
  }
  return static_cast<int>(exit_code_);
}

void Session::run_with_trace() {
  const Trace trace(options.trace);
  const LibraryMemory memory;
  output_ = std::make_unique<Output>(trace.results(), stderr, options.output);
  work_();
  output_->finish();
}

MibAccess& Session::tree() {
  if (tree_ == nullptr) tree_ = &backend_.open_tree(options.store);
  return *tree_;
}

}  // namespace igdctl
