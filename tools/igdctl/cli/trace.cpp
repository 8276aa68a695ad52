#include "cli/trace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "term/failure.h"
#include "term/text.h"

namespace igdctl {

namespace {

constexpr char kHeader[] =
    "# Trace of libigd, kept by igdctl. It contains passwords in clear text: delete it when "
    "done.\n";
constexpr mode_t kOwnerOnly = 0600;

[[noreturn]] void fail_to_open(const std::string& file, const char* reason) {
  throw Failure(ExitCode::kBadInput, "cannot write the trace to " + in_quotes(file) + ": " + reason,
                "give a file in a folder of your own: --trace=FILE");
}

int open_trace_file(const std::string& file) {
  const int descriptor =
      open(file.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, kOwnerOnly);
  if (descriptor < 0) fail_to_open(file, std::strerror(errno));
  struct stat status {};
  const bool regular = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  const bool ours = regular && fchmod(descriptor, kOwnerOnly) == 0 && ftruncate(descriptor, 0) == 0;
  constexpr std::string_view kLine = kHeader;
  if (ours && write(descriptor, kLine.data(), kLine.size()) == static_cast<ssize_t>(kLine.size())) {
    return descriptor;
  }
  const char* const reason = regular ? std::strerror(errno) : "it is not a regular file";
  (void)close(descriptor);
  fail_to_open(file, reason);
}

}  // namespace

void open_standard_streams() {
  int descriptor = 0;
  do {
    descriptor = open("/dev/null", O_RDWR);
  } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
  if (descriptor >= 0) (void)close(descriptor);
}

Trace::Trace(const std::string& file) {
  const int trace = file.empty() ? open("/dev/null", O_WRONLY | O_CLOEXEC) : open_trace_file(file);
  const int kept = trace < 0 ? -1 : fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  results_ = kept < 0 ? nullptr : fdopen(kept, "w");
  if (results_ == nullptr || dup2(trace, STDOUT_FILENO) < 0) {
    throw Failure(ExitCode::kFailed,
                  std::string("cannot set up standard output: ") + std::strerror(errno),
                  "check whether this process has too many open files");
  }
  (void)close(trace);
}

Trace::~Trace() {
  (void)std::fflush(stdout);
  (void)std::fflush(results_);
  (void)dup2(fileno(results_), STDOUT_FILENO);
  (void)std::fclose(results_);
}

}  // namespace igdctl
