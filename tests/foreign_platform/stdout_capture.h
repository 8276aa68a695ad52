// Standard output of the process, readable piece by piece while it is being written.
#pragma once

#include <string>

namespace foreign {

/// Redirects file descriptor 1 to a file as long as the object lives.
class StdoutCapture {
 public:
  StdoutCapture();
  ~StdoutCapture();
  StdoutCapture(const StdoutCapture&) = delete;
  StdoutCapture& operator=(const StdoutCapture&) = delete;

  /// What was printed since the last call.
  static std::string drain();
};

}  // namespace foreign
