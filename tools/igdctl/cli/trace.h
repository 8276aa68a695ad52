/// Keeps the library's printed trace away from results.
#ifndef IGDCTL_TRACE_H
#define IGDCTL_TRACE_H

#include <cstdio>
#include <string>

namespace igdctl {

/// Makes sure that file descriptors 0 to 2 are open, so that no file of the store becomes the
/// standard output to which the library prints. First thing in main().
void open_standard_streams();

/// While one lives, descriptor 1, to which libigd prints, is /dev/null or the trace file; results()
/// is the standard output that the process was started with.
class Trace {
 public:
  /// @param file  the trace file, made or emptied, mode 0600; no symbolic link is followed; ""
  ///              drops the trace. Its first line says that it holds passwords.
  /// Throws Failure (kBadInput) when the file cannot be opened; the descriptors are then untouched.
  explicit Trace(const std::string& file);
  Trace(const Trace&) = delete;
  Trace& operator=(const Trace&) = delete;
  ~Trace();

  std::FILE* results() const { return results_; }

 private:
  std::FILE* results_ = nullptr;
};

}  // namespace igdctl

#endif  // IGDCTL_TRACE_H
